#include "TestCase.h"
#include "rlcontentbase.h"

#include <QApplication>

namespace {

class Editor : public qelplugin::RLContentBase
{
public:
    explicit Editor(QWidget* parent)
        : RLContentBase(parent)
    {}
    QString& key() { return insName; }
};

} // namespace

class TestRLContentBase : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void belongsToItsParent();
};

void TestRLContentBase::defaults()
{
    Editor editor(nullptr);
    editor.FillWith(QStringLiteral("LaserOff;"));
    QCOMPARE(editor.BuildText(), QString());
    QVERIFY(editor.CheckInsert());
    QVERIFY(editor.CheckReplace());
    QCOMPARE(editor.key(), QString());
}

void TestRLContentBase::belongsToItsParent()
{
    QWidget parent;
    const Editor* editor = new Editor(&parent);
    QCOMPARE(editor->parentWidget(), &parent);
}

LASERWELD_TEST_MAIN(TestRLContentBase)
#include "tst_rlcontentbase.moc"
