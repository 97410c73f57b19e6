#include "EditorTest.h"
#include "LogFolder.h"
#include "RLParaSetInsertWidget.h"
#include "ScriptedHost.h"
#include "TestCase.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

using qelplugin::RLParaSetInsertWidget;

namespace {

const QString Key = QStringLiteral("LsParaSet");

struct Editor : RLParaSetInsertWidget
{
    Editor()
        : RLParaSetInsertWidget(Key, nullptr)
    {}

    using RLParaSetInsertWidget::insName;
    QComboBox* schedule = child<QComboBox>(this, "cbxLaserDataID");
    QComboBox* ramp = child<QComboBox>(this, "cbxRampType");
    QSpinBox* time = child<QSpinBox>(this, "spinBox_ramp_time");
    QLabel* timeLabel = child<QLabel>(this, "label");

    bool showsTime() const { return time->isVisibleTo(this) && timeLabel->isVisibleTo(this); }
    bool hidesTime() const { return !time->isVisibleTo(this) && !timeLabel->isVisibleTo(this); }
};

/// Matches a line of the editor's log that ends with the text.
QRegularExpression lineWith(char level, const QString& end)
{
    return QRegularExpression(
        QStringLiteral("\\[%1\\|[^]]+\\] LASER:: "
                       "qelplugin::RLParaSetInsertWidget::FillWith [1-9]\\d* %2$")
            .arg(QLatin1Char(level))
            .arg(QRegularExpression::escape(end)));
}

} // namespace

class RLParaSetInsertWidgetTest : public TestCase
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
    void singleArgumentKeepsTheRamp();
    void timeFollowsRamp();
    void checks();
    void logsEachLoad();
    void logsMissingArguments();
    void exception_data();
    void exception();
    void asksNoHost();
    void randomLines();
};

void RLParaSetInsertWidgetTest::form()
{
    const Editor editor;
    QCOMPARE(editor.size(), QSize(639, 501));
    const auto* outer = child<QVBoxLayout>(&editor, "verticalLayout");
    QCOMPARE(outer->count(), 3);
    QCOMPARE(outer->itemAt(0)->expandingDirections(), Qt::Vertical);
    QCOMPARE(outer->itemAt(2)->expandingDirections(), Qt::Vertical);
    const auto* grid = child<QGridLayout>(&editor, "gridLayout_2");
    QCOMPARE(grid->horizontalSpacing(), 10);
    QCOMPARE(
        EditorTest::gridTexts(grid),
        (QStringList{
            QStringLiteral("0,0 QLabel label_2"), QStringLiteral("0,1 QComboBox cbxLaserDataID"),
            QStringLiteral("0,2 QLabel label_5"), QStringLiteral("0,3 QComboBox cbxRampType"),
            QStringLiteral("1,0 QLabel label"), QStringLiteral("1,1 QSpinBox spinBox_ramp_time")}));
    QVERIFY(!editor.schedule->isEditable());
    QVERIFY(!editor.ramp->isEditable());
    QCOMPARE(editor.time->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QCOMPARE(editor.time->minimum(), 0);
    QCOMPARE(editor.time->maximum(), 1000);
}

void RLParaSetInsertWidgetTest::newInstruction()
{
    const Editor editor;
    QCOMPARE(editor.insName, Key);
    QCOMPARE(editor.schedule->count(), 30);
    for (int index = 0; index < 30; ++index)
        QCOMPARE(editor.schedule->itemText(index), QStringLiteral("LsData%1").arg(index + 1));
    QCOMPARE(editor.schedule->currentIndex(), 0);
    QCOMPARE(editor.ramp->count(), 3);
    QCOMPARE(editor.ramp->itemText(0), QString());
    QCOMPARE(editor.ramp->itemText(1), QStringLiteral("Time"));
    QCOMPARE(editor.ramp->itemText(2), QStringLiteral("Pos"));
    QCOMPARE(editor.ramp->currentIndex(), 0);
    QCOMPARE(editor.time->value(), 200);
    QVERIFY(editor.hidesTime());
}

void RLParaSetInsertWidgetTest::translation()
{
    EditorTest::ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const Editor editor;
    QCoreApplication::removeTranslator(&translator);
    const QString form = QStringLiteral("RLParaSetInsertWidget/");
    QCOMPARE(child<QLabel>(&editor, "label_2")->text(), form + QStringLiteral("LsDataID: "));
    QCOMPARE(child<QLabel>(&editor, "label_5")->text(), form + QStringLiteral("Ramp Type: "));
    QCOMPARE(editor.timeLabel->text(), form + QStringLiteral("Time(ms): "));
    QCOMPARE(editor.ramp->itemText(1), QStringLiteral("Time"));
}

void RLParaSetInsertWidgetTest::builds_data()
{
    QTest::addColumn<int>("schedule");
    QTest::addColumn<int>("ramp");
    QTest::addColumn<int>("time");
    QTest::addColumn<QString>("text");
    QTest::newRow("no ramp") << 0 << 0 << 200 << QStringLiteral("LsParaSet(\"LsData1\");");
    QTest::newRow("time") << 29 << 1 << 1000
                          << QStringLiteral("LsParaSet(\"LsData30\",\"Time\",1000);");
    QTest::newRow("no time") << 1 << 1 << 0 << QStringLiteral("LsParaSet(\"LsData2\",\"Time\",0);");
    QTest::newRow("position") << 1 << 2 << 5 << QStringLiteral("LsParaSet(\"LsData2\",\"Pos\");");
}

void RLParaSetInsertWidgetTest::builds()
{
    QFETCH(int, schedule);
    QFETCH(int, ramp);
    QFETCH(int, time);
    Editor editor;
    editor.schedule->setCurrentIndex(schedule);
    editor.ramp->setCurrentIndex(ramp);
    editor.time->setValue(time);
    QTEST(editor.BuildText(), "text");
}

void RLParaSetInsertWidgetTest::loads_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text"); ///< as written again
    const auto row = [](const char* name, const char* line, const char* text) {
        QTest::newRow(name) << QString::fromLatin1(line) << QString::fromLatin1(text);
    };
    constexpr char Plain[] = "LsParaSet(\"LsData9\");";
    constexpr char Position[] = "LsParaSet(\"LsData9\",\"Pos\");";
    constexpr char Time[] = "LsParaSet(\"LsData9\",\"Time\",70);";
    constexpr char NoTime[] = "LsParaSet(\"LsData9\",\"Time\",0);";
    row("default", "LsParaSet(\"LsData1\");", "LsParaSet(\"LsData1\");");
    row("no ramp", Plain, Plain);
    row("time", Time, Time);
    row("position", Position, Position);
    row("blanks", " LsParaSet ( \"LsData9\" , \"Time\" , 70 ) ", Time);
    row("no quotation marks", "LsParaSet(LsData9,Time,70);", Time);
    row("capitals, time", "LsParaSet(\"LsData9\",\"TIME\",70);", Time);
    row("capitals, position", "LsParaSet(\"LsData9\",\"POS\");", Position);
    row("position with a time", "LsParaSet(\"LsData9\",\"Pos\",70);", Position);
    row("another function", "LaserOn(\"LsData9\");", Plain);
    row("beyond the last", "LsParaSet(\"LsData31\");", "LsParaSet(\"LsData1\");");
    row("a quotation mark", "LsParaSet(\");", "LsParaSet(\"LsData1\");");
    row("empty schedule", "LsParaSet(\"\");", "LsParaSet(\"LsData1\");");
    row("too long", "LsParaSet(\"LsData9\",\"Time\",1001);",
        "LsParaSet(\"LsData9\",\"Time\",1000);");
    row("negative", "LsParaSet(\"LsData9\",\"Time\",-1);", NoTime);
    row("time without value", "LsParaSet(\"LsData9\",\"Time\");", NoTime);
    row("no number", "LsParaSet(\"LsData9\",\"Time\",x);", NoTime);
    row("quoted number", "LsParaSet(\"LsData9\",\"Time\",\"70\");", NoTime);
    row("unknown ramp", "LsParaSet(\"LsData9\",\"Way\",70);", Plain);
    row("empty ramp", "LsParaSet(\"LsData9\",\"\");", Plain);
    row("half a ramp", "LsParaSet(\"LsData9\",\"Time,70);", Plain);
}

void RLParaSetInsertWidgetTest::loads()
{
    QFETCH(QString, line);
    QFETCH(QString, text);
    Editor editor;
    editor.FillWith(line);
    QCOMPARE(editor.BuildText(), text);
    QVERIFY(text.contains(QLatin1String("Time")) ? editor.showsTime() : editor.hidesTime());
}

void RLParaSetInsertWidgetTest::changesNothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << QString();
    QTest::newRow("no parentheses") << Key;
    QTest::newRow("no arguments") << QStringLiteral("LsParaSet();");
    QTest::newRow("comment") << QStringLiteral("LsParaSet(\"LsData1\"); // next");
}

void RLParaSetInsertWidgetTest::changesNothing()
{
    QFETCH(QString, line);
    const QString before = QStringLiteral("LsParaSet(\"LsData5\",\"Time\",77);");
    Editor editor;
    editor.FillWith(before);
    editor.FillWith(line);
    QCOMPARE(editor.BuildText(), before);
}

void RLParaSetInsertWidgetTest::singleArgumentKeepsTheRamp()
{
    Editor editor;
    editor.FillWith(QStringLiteral("LsParaSet(\"LsData5\",\"Time\",77);"));
    editor.FillWith(QStringLiteral("LsParaSet(\"LsData6\");"));
    QCOMPARE(editor.BuildText(), QStringLiteral("LsParaSet(\"LsData6\",\"Time\",77);"));
    editor.FillWith(QStringLiteral("LsParaSet(\"LsData6\",\"Way\");"));
    QCOMPARE(editor.BuildText(), QStringLiteral("LsParaSet(\"LsData6\");"));
}

void RLParaSetInsertWidgetTest::timeFollowsRamp()
{
    const Editor editor;
    editor.ramp->setCurrentIndex(1);
    QVERIFY(editor.showsTime());
    editor.ramp->setCurrentIndex(2);
    QVERIFY(editor.hidesTime());
    editor.ramp->setCurrentIndex(1);
    editor.ramp->setCurrentIndex(0);
    QVERIFY(editor.hidesTime());
}

void RLParaSetInsertWidgetTest::checks()
{
    ScriptedHost host;
    host.level = 0;
    Editor editor;
    editor.schedule->setCurrentIndex(-1);
    QVERIFY(editor.CheckInsert());
    QVERIFY(editor.CheckReplace());
}

void RLParaSetInsertWidgetTest::logsEachLoad()
{
    const LogFolder log;
    const QString line = QStringLiteral("LsParaSet(\"LsData5\",\"Time\",77);");
    Editor editor;
    QStringList console;
    {
        ConsoleCapture capture;
        editor.FillWith(line);
        const QList<QByteArray> taken = capture.take();
        for (const QByteArray& each : taken)
            console << QString::fromUtf8(each).remove(QStringLiteral("\x1b[0m\n"));
    }
    QVERIFY(!console.isEmpty());
    QVERIFY2(lineWith('D', line).match(console.first()).hasMatch(), qPrintable(console.first()));
    QCOMPARE(LogFolder::lines(), QStringList());
    QCOMPARE(LogFolder::lines(QStringLiteral("qellaserweld")), QStringList());
}

void RLParaSetInsertWidgetTest::logsMissingArguments()
{
    const LogFolder log;
    Editor editor;
    editor.FillWith(QStringLiteral("LsParaSet( );"));
    const QStringList lines = LogFolder::lines();
    QCOMPARE(lines.size(), 1);
    const QString end =
        QStringLiteral(" Missing required parameters! funcName: LsParaSet , params: ()");
    QVERIFY2(lineWith('W', end).match(lines.first()).hasMatch(), qPrintable(lines.first()));
}

void RLParaSetInsertWidgetTest::exception_data()
{
    QTest::addColumn<bool>("isStandard");
    QTest::addColumn<QString>("end");
    QTest::newRow("standard") << true << QStringLiteral(" std::exception: broken");
    QTest::newRow("other") << false << QStringLiteral("Caught an unknown exception!");
}

void RLParaSetInsertWidgetTest::exception()
{
    QFETCH(bool, isStandard);
    QFETCH(QString, end);
    const LogFolder log;
    EditorTest::ThrowingModel model(isStandard);
    Editor editor;
    editor.schedule->setModel(&model);
    {
        const EditorTest::LeaksInQt expected;
        editor.FillWith(QStringLiteral("LsParaSet(\"LsData5\",\"Pos\");"));
    }
    const QStringList lines = LogFolder::lines();
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lineWith('W', end).match(lines.first()).hasMatch(), qPrintable(lines.first()));
    QCOMPARE(editor.ramp->currentIndex(), 0);
}

void RLParaSetInsertWidgetTest::asksNoHost()
{
    const ScriptedHost host;
    Editor editor;
    editor.FillWith(QStringLiteral("LsParaSet(\"LsData5\");"));
    editor.BuildText();
    editor.CheckReplace();
    QCOMPARE(host.callNames(), QStringList());
}

void RLParaSetInsertWidgetTest::randomLines()
{
    const QStringList pieces{QStringLiteral("\"LsData7\""), QStringLiteral("LsData31"),
                             QStringLiteral("\""),          QStringLiteral("-2147483648"),
                             QStringLiteral("9999"),        QStringLiteral("\"Time\""),
                             QStringLiteral("POS"),         QStringLiteral("f(1,"),
                             QStringLiteral("%1"),          QStringLiteral("LsData8, Time, 777")};
    const LogFolder log;
    const EditorTest::SilentConsole silent;
    QRandomGenerator random(4713);
    Editor editor;
    const QRegularExpression call(QStringLiteral(
        "^LsParaSet\\(\"LsData([1-9]|[12]\\d|30)\"(,\"Time\",(\\d{1,3}|1000)|,\"Pos\")?\\);$"));
    for (int line = 0; line < 50'000; ++line) {
        const QString text = EditorTest::randomCall(random, pieces);
        editor.FillWith(text);
        const QString built = editor.BuildText();
        QVERIFY2(call.match(built).hasMatch(), qPrintable(text + QStringLiteral(" -> ") + built));
    }
}

LASERWELD_TEST_MAIN(RLParaSetInsertWidgetTest)
#include "tst_rlparasetinsertwidget.moc"
