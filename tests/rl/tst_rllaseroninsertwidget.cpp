#include "LogFolder.h"
#include "RLLaserOnInsertWidget.h"
#include "ScheduleEditorTest.h"
#include "ScriptedHost.h"

#include <QApplication>
#include <QVBoxLayout>

using qelplugin::RLLaserOnInsertWidget;

class RLLaserOnInsertWidgetTest : public ScheduleEditorTest
{
    Q_OBJECT

public:
    RLLaserOnInsertWidgetTest();

private:
    Editor make() const override;
    QString callWith(int schedule, int number) const override;
    void rowsToBuild() const override;
    void rowsToLoad() const override;

private Q_SLOTS:
    void form();
    void startModes();
    void translation();
    void secondLoad();
    void checks();
    void checkInsertIsVirtual();
    void logsOnlyFailures();
};

RLLaserOnInsertWidgetTest::RLLaserOnInsertWidgetTest()
    : ScheduleEditorTest(
          {QStringLiteral("LaserOn"),
           "qelplugin::RLLaserOnInsertWidget",
           {520, 120},
           "cbxStartMode",
           "spinInPlaceWait",
           "labelInPlaceWait",
           0,
           5000,
           500,
           1,
           "^LaserOn\\(\"LsData([1-9]|[12]\\d|30)\"(, \\d{1,4})?\\);$",
           QStringLiteral("qellaserweld"),
           " unknown exception",
           {QStringLiteral("\"LsData7\""), QStringLiteral("LsData31"), QStringLiteral("\""),
            QStringLiteral("-2147483649"), QStringLiteral("2147483647"), QStringLiteral("f(1,"),
            QStringLiteral("%1"), QStringLiteral("1234"), QString()}})
{}

ScheduleEditorTest::Editor RLLaserOnInsertWidgetTest::make() const
{
    return std::make_unique<RLLaserOnInsertWidget>(traits.key, nullptr);
}

QString RLLaserOnInsertWidgetTest::callWith(int schedule, int number) const
{
    return QStringLiteral("LaserOn(\"LsData%1\", %2);").arg(schedule).arg(number);
}

void RLLaserOnInsertWidgetTest::form()
{
    const Editor editor = make();
    QCOMPARE(EditorTest::outline(child<QVBoxLayout>(editor.get(), "verticalLayout")),
             QStringList{QStringLiteral("layout gridLayout")});
    QCOMPARE(EditorTest::gridTexts(child<QGridLayout>(editor.get(), "gridLayout")),
             (QStringList{QStringLiteral("0,0 QLabel labelLaserData"),
                          QStringLiteral("0,1 QComboBox cbxLaserDataID"),
                          QStringLiteral("1,0 QLabel labelStartMode"),
                          QStringLiteral("1,1 QComboBox cbxStartMode"),
                          QStringLiteral("2,0 QLabel labelInPlaceWait"),
                          QStringLiteral("2,1 QSpinBox spinInPlaceWait")}));
}

void RLLaserOnInsertWidgetTest::startModes()
{
    const Editor editor = make();
    QCOMPARE(EditorTest::entries(mode(editor)),
             (QStringList{QStringLiteral("Normal"), QStringLiteral("Spot weld")}));
    QCOMPARE(mode(editor)->itemData(0, Qt::UserRole), QVariant(0));
    QCOMPARE(mode(editor)->itemData(1, Qt::UserRole), QVariant(1));
}

void RLLaserOnInsertWidgetTest::translation()
{
    EditorTest::ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const Editor editor = make();
    QCoreApplication::removeTranslator(&translator);
    const QString form = QStringLiteral("RLLaserOnInsertWidget/");
    const QString own = QStringLiteral("qelplugin::RLLaserOnInsertWidget/");
    const auto label = [&editor](const char* name) {
        return child<QLabel>(editor.get(), name)->text();
    };
    QCOMPARE(label("labelLaserData"), form + QStringLiteral("Sched:"));
    QCOMPARE(label("labelStartMode"), form + QStringLiteral("Start mode:"));
    QCOMPARE(label("labelInPlaceWait"), form + QStringLiteral("In-place wait(ms):"));
    QCOMPARE(mode(editor)->itemText(0), own + QStringLiteral("Normal"));
    QCOMPARE(mode(editor)->itemText(1), own + QStringLiteral("Spot weld"));
}

void RLLaserOnInsertWidgetTest::rowsToBuild() const
{
    build("normal", 0, 0, 500, "LaserOn(\"LsData1\");");
    build("normal, with a wait", 29, 0, 7, "LaserOn(\"LsData30\");");
    build("spot", 1, 1, 500, "LaserOn(\"LsData2\", 500);");
    build("no wait", 1, 1, 0, "LaserOn(\"LsData2\", 0);");
    build("longest", 1, 1, 5000, "LaserOn(\"LsData2\", 5000);");
}

void RLLaserOnInsertWidgetTest::rowsToLoad() const
{
    constexpr char One[] = "LaserOn(\"LsData1\");";
    constexpr char Nine[] = "LaserOn(\"LsData9\");";
    load("default", One, One);
    load("normal", Nine, Nine);
    load("last schedule", "LaserOn(\"LsData30\");", "LaserOn(\"LsData30\");");
    load("beyond the last", "LaserOn(\"LsData31\");", One);
    load("other case", "LaserOn(\"lsdata9\");", One);
    load("no quotation marks", "LaserOn(LsData9);", Nine);
    load("one quotation mark", "LaserOn(\"LsData9);", One);
    load("a quotation mark", "LaserOn(\");", One);
    load("empty schedule", "LaserOn(\"\");", One);
    load("no arguments", "LaserOn();", One);
    load("another function", "LaserOff(\"LsData9\")", Nine);
    load("spot", "LaserOn(\"LsData9\", 1234);", "LaserOn(\"LsData9\", 1234);");
    load("no blank", "LaserOn(\"LsData9\",12)", "LaserOn(\"LsData9\", 12);");
    load("too long", "LaserOn(\"LsData9\", 5001);", "LaserOn(\"LsData9\", 5000);");
    load("negative", "LaserOn(\"LsData9\", -1);", "LaserOn(\"LsData9\", 0);");
    load("no number", "LaserOn(\"LsData9\", Time);", "LaserOn(\"LsData9\", 500);");
    load("no int", "LaserOn(\"LsData9\", 99999999999);", "LaserOn(\"LsData9\", 500);");
    load("fraction", "LaserOn(\"LsData9\", 1.5);", "LaserOn(\"LsData9\", 500);");
    load("other base", "LaserOn(\"LsData9\", 0x10);", "LaserOn(\"LsData9\", 500);");
    load("leading zeros", "LaserOn(\"LsData9\", 007);", "LaserOn(\"LsData9\", 7);");
    load("more", "LaserOn(\"LsData9\", 7, 8);", "LaserOn(\"LsData9\", 7);");
}

void RLLaserOnInsertWidgetTest::secondLoad()
{
    const Editor editor = make();
    editor->FillWith(callWith(5, 77));
    editor->FillWith(QStringLiteral("LaserOn();"));
    QCOMPARE(editor->BuildText(), QStringLiteral("LaserOn(\"LsData5\");"));
    QVERIFY(hidesNumber(editor));
    editor->FillWith(QStringLiteral("LaserOn(\"LsData99\", x);"));
    QCOMPARE(editor->BuildText(), callWith(5, 77));
}

void RLLaserOnInsertWidgetTest::checks()
{
    ScriptedHost host;
    host.level = 0;
    const Editor editor = make();
    QVERIFY(editor->CheckInsert());
    QVERIFY(editor->CheckReplace());
    schedule(editor)->setCurrentIndex(-1);
    QVERIFY(!editor->CheckInsert());
    QVERIFY(!editor->CheckReplace());
}

void RLLaserOnInsertWidgetTest::checkInsertIsVirtual()
{
    struct Refusing : RLLaserOnInsertWidget
    {
        using RLLaserOnInsertWidget::RLLaserOnInsertWidget;
        bool CheckReplace() override { return false; }
    } editor(traits.key, nullptr);
    QVERIFY(!editor.CheckInsert());
}

void RLLaserOnInsertWidgetTest::logsOnlyFailures()
{
    const LogFolder log;
    const Editor editor = make();
    editor->FillWith(QStringLiteral("LaserOn(\"LsData99\", x);"));
    QCOMPARE(LogFolder::texts(traits.tag), QStringList());
    editor->FillWith(QStringLiteral("LaserOn();"));
    editor->FillWith(traits.key);
    // The splitter's own lines.
    QCOMPARE(LogFolder::texts(traits.tag).size(), 2);
    QCOMPARE(LogFolder::texts(traits.tag).filter(QStringLiteral("FillWith")), QStringList());
}

LASERWELD_TEST_MAIN(RLLaserOnInsertWidgetTest)
#include "tst_rllaseroninsertwidget.moc"
