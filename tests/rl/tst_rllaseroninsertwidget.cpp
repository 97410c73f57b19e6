#include "EditorTest.h"
#include "LogFolder.h"
#include "RLLaserOnInsertWidget.h"
#include "ScriptedHost.h"
#include "TestCase.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>

using qelplugin::RLLaserOnInsertWidget;

namespace {

const QString Key = QStringLiteral("LaserOn");
const QString Tag = QStringLiteral("qellaserweld");

struct Editor : RLLaserOnInsertWidget
{
    Editor()
        : RLLaserOnInsertWidget(Key, nullptr)
    {}

    using RLLaserOnInsertWidget::insName;
    QComboBox* schedule = child<QComboBox>(this, "cbxLaserDataID");
    QComboBox* mode = child<QComboBox>(this, "cbxStartMode");
    QSpinBox* wait = child<QSpinBox>(this, "spinInPlaceWait");
    QLabel* waitLabel = child<QLabel>(this, "labelInPlaceWait");

    bool showsWait() const { return wait->isVisibleTo(this) && waitLabel->isVisibleTo(this); }
    bool hidesWait() const { return !wait->isVisibleTo(this) && !waitLabel->isVisibleTo(this); }
};

} // namespace

class RLLaserOnInsertWidgetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void form();
    void newInstruction();
    void translation();
    void builds_data();
    void builds();
    void loads_data();
    void loads();
    void changesNothing_data();
    void changesNothing();
    void secondLoad();
    void waitFollowsMode();
    void checks();
    void checkInsertIsVirtual();
    void logsOnlyFailures();
    void exception_data();
    void exception();
    void asksNoHost();
    void randomLines();
};

void RLLaserOnInsertWidgetTest::form()
{
    const Editor editor;
    QCOMPARE(editor.size(), QSize(520, 120));
    QCOMPARE(editor.layout()->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(EditorTest::gridTexts(child<QGridLayout>(&editor, "gridLayout")),
             (QStringList{QStringLiteral("0,0 QLabel labelLaserData"),
                          QStringLiteral("0,1 QComboBox cbxLaserDataID"),
                          QStringLiteral("1,0 QLabel labelStartMode"),
                          QStringLiteral("1,1 QComboBox cbxStartMode"),
                          QStringLiteral("2,0 QLabel labelInPlaceWait"),
                          QStringLiteral("2,1 QSpinBox spinInPlaceWait")}));
    QVERIFY(!editor.schedule->isEditable());
    QVERIFY(!editor.mode->isEditable());
    QCOMPARE(editor.wait->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QCOMPARE(editor.wait->minimum(), 0);
    QCOMPARE(editor.wait->maximum(), 5000);
}

void RLLaserOnInsertWidgetTest::newInstruction()
{
    const Editor editor;
    QCOMPARE(editor.insName, Key);
    QCOMPARE(editor.schedule->count(), 30);
    for (int index = 0; index < 30; ++index)
        QCOMPARE(editor.schedule->itemText(index), QStringLiteral("LsData%1").arg(index + 1));
    QCOMPARE(editor.schedule->currentIndex(), 0);
    QCOMPARE(editor.mode->count(), 2);
    QCOMPARE(editor.mode->itemText(0), QStringLiteral("Normal"));
    QCOMPARE(editor.mode->itemData(0, Qt::UserRole), QVariant(0));
    QCOMPARE(editor.mode->itemText(1), QStringLiteral("Spot weld"));
    QCOMPARE(editor.mode->itemData(1, Qt::UserRole), QVariant(1));
    QCOMPARE(editor.mode->currentIndex(), 0);
    QCOMPARE(editor.wait->value(), 500);
    QVERIFY(editor.hidesWait());
}

void RLLaserOnInsertWidgetTest::translation()
{
    EditorTest::ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const Editor editor;
    QCoreApplication::removeTranslator(&translator);
    const QString form = QStringLiteral("RLLaserOnInsertWidget/");
    const QString own = QStringLiteral("qelplugin::RLLaserOnInsertWidget/");
    QCOMPARE(child<QLabel>(&editor, "labelLaserData")->text(), form + QStringLiteral("Sched:"));
    QCOMPARE(child<QLabel>(&editor, "labelStartMode")->text(),
             form + QStringLiteral("Start mode:"));
    QCOMPARE(editor.waitLabel->text(), form + QStringLiteral("In-place wait(ms):"));
    QCOMPARE(editor.mode->itemText(0), own + QStringLiteral("Normal"));
    QCOMPARE(editor.mode->itemText(1), own + QStringLiteral("Spot weld"));
}

void RLLaserOnInsertWidgetTest::builds_data()
{
    QTest::addColumn<int>("schedule");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("wait");
    QTest::addColumn<QString>("text");
    QTest::newRow("normal") << 0 << 0 << 500 << QStringLiteral("LaserOn(\"LsData1\");");
    QTest::newRow("normal, with a wait")
        << 29 << 0 << 7 << QStringLiteral("LaserOn(\"LsData30\");");
    QTest::newRow("spot") << 1 << 1 << 500 << QStringLiteral("LaserOn(\"LsData2\", 500);");
    QTest::newRow("no wait") << 1 << 1 << 0 << QStringLiteral("LaserOn(\"LsData2\", 0);");
    QTest::newRow("longest") << 1 << 1 << 5000 << QStringLiteral("LaserOn(\"LsData2\", 5000);");
}

void RLLaserOnInsertWidgetTest::builds()
{
    QFETCH(int, schedule);
    QFETCH(int, mode);
    QFETCH(int, wait);
    Editor editor;
    editor.schedule->setCurrentIndex(schedule);
    editor.mode->setCurrentIndex(mode);
    editor.wait->setValue(wait);
    QTEST(editor.BuildText(), "text");
}

void RLLaserOnInsertWidgetTest::loads_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text"); ///< as written again
    QTest::addColumn<bool>("isSpot");
    QTest::addColumn<int>("wait");
    const auto row = [](const char* name, const char* line, const char* text, bool isSpot,
                        int wait) {
        QTest::newRow(name) << QString::fromLatin1(line) << QString::fromLatin1(text) << isSpot
                            << wait;
    };
    constexpr char One[] = "LaserOn(\"LsData1\");";
    constexpr char Nine[] = "LaserOn(\"LsData9\");";
    row("default", One, One, false, 500);
    row("normal", Nine, Nine, false, 500);
    row("last schedule", "LaserOn(\"LsData30\");", "LaserOn(\"LsData30\");", false, 500);
    row("beyond the last", "LaserOn(\"LsData31\");", One, false, 500);
    row("other case", "LaserOn(\"lsdata9\");", One, false, 500);
    row("no quotation marks", "LaserOn(LsData9);", Nine, false, 500);
    row("one quotation mark", "LaserOn(\"LsData9);", One, false, 500);
    row("a quotation mark", "LaserOn(\");", One, false, 500);
    row("empty schedule", "LaserOn(\"\");", One, false, 500);
    row("no arguments", "LaserOn();", One, false, 500);
    row("another function", "LaserOff(\"LsData9\")", Nine, false, 500);
    row("spot", "LaserOn(\"LsData9\", 1234);", "LaserOn(\"LsData9\", 1234);", true, 1234);
    row("no blank", "LaserOn(\"LsData9\",12)", "LaserOn(\"LsData9\", 12);", true, 12);
    row("too long", "LaserOn(\"LsData9\", 5001);", "LaserOn(\"LsData9\", 5000);", true, 5000);
    row("negative", "LaserOn(\"LsData9\", -1);", "LaserOn(\"LsData9\", 0);", true, 0);
    row("no number", "LaserOn(\"LsData9\", Time);", "LaserOn(\"LsData9\", 500);", true, 500);
    row("no int", "LaserOn(\"LsData9\", 99999999999);", "LaserOn(\"LsData9\", 500);", true, 500);
    row("fraction", "LaserOn(\"LsData9\", 1.5);", "LaserOn(\"LsData9\", 500);", true, 500);
    row("other base", "LaserOn(\"LsData9\", 0x10);", "LaserOn(\"LsData9\", 500);", true, 500);
    row("leading zeros", "LaserOn(\"LsData9\", 007);", "LaserOn(\"LsData9\", 7);", true, 7);
    row("more", "LaserOn(\"LsData9\", 7, 8);", "LaserOn(\"LsData9\", 7);", true, 7);
}

void RLLaserOnInsertWidgetTest::loads()
{
    QFETCH(QString, line);
    QFETCH(bool, isSpot);
    Editor editor;
    editor.FillWith(line);
    QCOMPARE(editor.mode->currentIndex(), isSpot ? 1 : 0);
    QVERIFY(isSpot ? editor.showsWait() : editor.hidesWait());
    QTEST(editor.wait->value(), "wait");
    QTEST(editor.BuildText(), "text");
}

void RLLaserOnInsertWidgetTest::changesNothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << QString();
    QTest::newRow("no parentheses") << Key;
    QTest::newRow("comment") << QStringLiteral("LaserOn(\"LsData1\"); // on");
    QTest::newRow("two lines") << QStringLiteral("LaserOn(\"LsData1\",\n7);");
}

void RLLaserOnInsertWidgetTest::changesNothing()
{
    QFETCH(QString, line);
    const QString before = QStringLiteral("LaserOn(\"LsData5\", 77);");
    Editor editor;
    editor.FillWith(before);
    editor.FillWith(line);
    QCOMPARE(editor.BuildText(), before);
}

void RLLaserOnInsertWidgetTest::secondLoad()
{
    Editor editor;
    editor.FillWith(QStringLiteral("LaserOn(\"LsData5\", 77);"));
    editor.FillWith(QStringLiteral("LaserOn();"));
    QCOMPARE(editor.BuildText(), QStringLiteral("LaserOn(\"LsData5\");"));
    editor.FillWith(QStringLiteral("LaserOn(\"LsData99\", x);"));
    QCOMPARE(editor.BuildText(), QStringLiteral("LaserOn(\"LsData5\", 77);"));
}

void RLLaserOnInsertWidgetTest::waitFollowsMode()
{
    const Editor editor;
    editor.mode->setCurrentIndex(1);
    QVERIFY(editor.showsWait());
    editor.mode->setCurrentIndex(0);
    QVERIFY(editor.hidesWait());
}

void RLLaserOnInsertWidgetTest::checks()
{
    ScriptedHost host;
    host.level = 0;
    Editor editor;
    QVERIFY(editor.CheckInsert());
    QVERIFY(editor.CheckReplace());
    editor.schedule->setCurrentIndex(-1);
    QVERIFY(!editor.CheckInsert());
    QVERIFY(!editor.CheckReplace());
}

void RLLaserOnInsertWidgetTest::checkInsertIsVirtual()
{
    struct Refusing : Editor
    {
        bool CheckReplace() override { return false; }
    } editor;
    QVERIFY(!editor.CheckInsert());
}

void RLLaserOnInsertWidgetTest::logsOnlyFailures()
{
    const LogFolder log;
    Editor editor;
    editor.FillWith(QStringLiteral("LaserOn(\"LsData99\", x);"));
    QCOMPARE(LogFolder::texts(Tag), QStringList());
    editor.FillWith(QStringLiteral("LaserOn();"));
    editor.FillWith(Key);
    // The splitter's own lines.
    QCOMPARE(LogFolder::texts(Tag).size(), 2);
    QCOMPARE(LogFolder::texts(Tag).filter(QStringLiteral("FillWith")), QStringList());
}

void RLLaserOnInsertWidgetTest::exception_data()
{
    QTest::addColumn<bool>("isStandard");
    QTest::addColumn<QString>("end");
    QTest::newRow("standard") << true << QStringLiteral("  std::exception: broken");
    QTest::newRow("other") << false << QStringLiteral("  unknown exception");
}

void RLLaserOnInsertWidgetTest::exception()
{
    QFETCH(bool, isStandard);
    QFETCH(QString, end);
    const LogFolder log;
    EditorTest::ThrowingModel model(isStandard);
    Editor editor;
    editor.schedule->setModel(&model);
    {
        const EditorTest::LeaksInQt expected;
        editor.FillWith(QStringLiteral("LaserOn(\"LsData5\", 77);"));
    }
    const QStringList lines = LogFolder::lines(Tag);
    QCOMPARE(lines.size(), 1);
    const QRegularExpression form(
        QStringLiteral("^\\[W\\|[^]]+\\] LASER:: "
                       "qelplugin::RLLaserOnInsertWidget::FillWith [1-9]\\d*%1$")
            .arg(QRegularExpression::escape(end)));
    QVERIFY2(form.match(lines.first()).hasMatch(), qPrintable(lines.first()));
    QCOMPARE(editor.mode->currentIndex(), 0);
}

void RLLaserOnInsertWidgetTest::asksNoHost()
{
    const ScriptedHost host;
    Editor editor;
    editor.FillWith(QStringLiteral("LaserOn(\"LsData5\", 77);"));
    editor.BuildText();
    editor.CheckInsert();
    QCOMPARE(host.callNames(), QStringList());
}

void RLLaserOnInsertWidgetTest::randomLines()
{
    const QStringList pieces{
        QStringLiteral("\"LsData7\""), QStringLiteral("LsData31"),   QStringLiteral("\""),
        QStringLiteral("-2147483649"), QStringLiteral("2147483647"), QStringLiteral("f(1,"),
        QStringLiteral("%1"),          QStringLiteral("1234"),       QString()};
    const LogFolder log;
    const EditorTest::SilentConsole silent;
    QRandomGenerator random(4712);
    Editor editor;
    const QRegularExpression call(
        QStringLiteral("^LaserOn\\(\"LsData([1-9]|[12]\\d|30)\"(, \\d{1,4})?\\);$"));
    for (int line = 0; line < 50'000; ++line) {
        const QString text = EditorTest::randomCall(random, pieces);
        editor.FillWith(text);
        const QString built = editor.BuildText();
        const bool isGood = call.match(built).hasMatch() && editor.wait->value() <= 5000;
        QVERIFY2(isGood, qPrintable(text + QStringLiteral(" -> ") + built));
    }
}

LASERWELD_TEST_MAIN(RLLaserOnInsertWidgetTest)
#include "tst_rllaseroninsertwidget.moc"
