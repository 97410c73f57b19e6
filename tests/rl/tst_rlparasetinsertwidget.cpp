#include "LogFolder.h"
#include "RLParaSetInsertWidget.h"
#include "ScheduleEditorTest.h"
#include "ScriptedHost.h"

#include <QApplication>
#include <QVBoxLayout>

using qelplugin::RLParaSetInsertWidget;

class RLParaSetInsertWidgetTest : public ScheduleEditorTest
{
    Q_OBJECT

public:
    RLParaSetInsertWidgetTest();

private:
    Editor make() const override;
    QString callWith(int schedule, int number) const override;
    void rowsToBuild() const override;
    void rowsToLoad() const override;
    QStringList otherRefusals() const override { return {QStringLiteral("LsParaSet();")}; }

private Q_SLOTS:
    void form();
    void ramps();
    void translation();
    void singleArgumentKeepsTheRamp();
    void checks();
    void logsEachLoad();
    void logsMissingArguments();
};

RLParaSetInsertWidgetTest::RLParaSetInsertWidgetTest()
    : ScheduleEditorTest(
          {QStringLiteral("LsParaSet"),
           "qelplugin::RLParaSetInsertWidget",
           {639, 501},
           "cbxRampType",
           "spinBox_ramp_time",
           "label",
           0,
           1000,
           200,
           2,
           "^LsParaSet\\(\"LsData([1-9]|[12]\\d|30)\"(,\"Time\",(\\d{1,3}|1000)|,\"Pos\")?\\);$",
           QStringLiteral("qelLaserWelding"),
           "Caught an unknown exception!",
           {QStringLiteral("\"LsData7\""), QStringLiteral("LsData31"), QStringLiteral("\""),
            QStringLiteral("-2147483648"), QStringLiteral("9999"), QStringLiteral("\"Time\""),
            QStringLiteral("POS"), QStringLiteral("f(1,"), QStringLiteral("%1"),
            QStringLiteral("LsData8, Time, 777")}})
{}

ScheduleEditorTest::Editor RLParaSetInsertWidgetTest::make() const
{
    return std::make_unique<RLParaSetInsertWidget>(traits.key, nullptr);
}

QString RLParaSetInsertWidgetTest::callWith(int schedule, int number) const
{
    return QStringLiteral("LsParaSet(\"LsData%1\",\"Time\",%2);").arg(schedule).arg(number);
}

void RLParaSetInsertWidgetTest::form()
{
    const Editor editor = make();
    QCOMPARE(EditorTest::outline(child<QVBoxLayout>(editor.get(), "verticalLayout")),
             (QStringList{QStringLiteral("vertical"), QStringLiteral("layout gridLayout_2"),
                          QStringLiteral("vertical")}));
    const auto* grid = child<QGridLayout>(editor.get(), "gridLayout_2");
    QCOMPARE(grid->horizontalSpacing(), 10);
    QCOMPARE(
        EditorTest::gridTexts(grid),
        (QStringList{
            QStringLiteral("0,0 QLabel label_2"), QStringLiteral("0,1 QComboBox cbxLaserDataID"),
            QStringLiteral("0,2 QLabel label_5"), QStringLiteral("0,3 QComboBox cbxRampType"),
            QStringLiteral("1,0 QLabel label"), QStringLiteral("1,1 QSpinBox spinBox_ramp_time")}));
}

void RLParaSetInsertWidgetTest::ramps()
{
    const Editor editor = make();
    QCOMPARE(EditorTest::entries(mode(editor)),
             (QStringList{QString(), QStringLiteral("Time"), QStringLiteral("Pos")}));
}

void RLParaSetInsertWidgetTest::translation()
{
    EditorTest::ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const Editor editor = make();
    QCoreApplication::removeTranslator(&translator);
    const QString form = QStringLiteral("RLParaSetInsertWidget/");
    const auto label = [&editor](const char* name) {
        return child<QLabel>(editor.get(), name)->text();
    };
    QCOMPARE(label("label_2"), form + QStringLiteral("LsDataID: "));
    QCOMPARE(label("label_5"), form + QStringLiteral("Ramp Type: "));
    QCOMPARE(label("label"), form + QStringLiteral("Time(ms): "));
    QCOMPARE(mode(editor)->itemText(1), QStringLiteral("Time"));
}

void RLParaSetInsertWidgetTest::rowsToBuild() const
{
    build("no ramp", 0, 0, 200, "LsParaSet(\"LsData1\");");
    build("time", 29, 1, 1000, "LsParaSet(\"LsData30\",\"Time\",1000);");
    build("no time", 1, 1, 0, "LsParaSet(\"LsData2\",\"Time\",0);");
    build("position", 1, 2, 5, "LsParaSet(\"LsData2\",\"Pos\");");
}

void RLParaSetInsertWidgetTest::rowsToLoad() const
{
    constexpr char Plain[] = "LsParaSet(\"LsData9\");";
    constexpr char Position[] = "LsParaSet(\"LsData9\",\"Pos\");";
    constexpr char Time[] = "LsParaSet(\"LsData9\",\"Time\",70);";
    constexpr char NoTime[] = "LsParaSet(\"LsData9\",\"Time\",0);";
    load("default", "LsParaSet(\"LsData1\");", "LsParaSet(\"LsData1\");");
    load("no ramp", Plain, Plain);
    load("time", Time, Time);
    load("position", Position, Position);
    load("blanks", " LsParaSet ( \"LsData9\" , \"Time\" , 70 ) ", Time);
    load("no quotation marks", "LsParaSet(LsData9,Time,70);", Time);
    load("capitals, time", "LsParaSet(\"LsData9\",\"TIME\",70);", Time);
    load("capitals, position", "LsParaSet(\"LsData9\",\"POS\");", Position);
    load("position with a time", "LsParaSet(\"LsData9\",\"Pos\",70);", Position);
    load("another function", "LaserOn(\"LsData9\");", Plain);
    load("beyond the last", "LsParaSet(\"LsData31\");", "LsParaSet(\"LsData1\");");
    load("a quotation mark", "LsParaSet(\");", "LsParaSet(\"LsData1\");");
    load("empty schedule", "LsParaSet(\"\");", "LsParaSet(\"LsData1\");");
    load("too long", "LsParaSet(\"LsData9\",\"Time\",1001);",
         "LsParaSet(\"LsData9\",\"Time\",1000);");
    load("negative", "LsParaSet(\"LsData9\",\"Time\",-1);", NoTime);
    load("time without value", "LsParaSet(\"LsData9\",\"Time\");", NoTime);
    load("no number", "LsParaSet(\"LsData9\",\"Time\",x);", NoTime);
    load("other base", "LsParaSet(\"LsData9\",\"Time\",0x10);", NoTime);
    load("quoted number", "LsParaSet(\"LsData9\",\"Time\",\"70\");", NoTime);
    load("unknown ramp", "LsParaSet(\"LsData9\",\"Way\",70);", Plain);
    load("empty ramp", "LsParaSet(\"LsData9\",\"\");", Plain);
    load("half a ramp", "LsParaSet(\"LsData9\",\"Time,70);", Plain);
}

void RLParaSetInsertWidgetTest::singleArgumentKeepsTheRamp()
{
    const Editor editor = make();
    editor->FillWith(callWith(5, 77));
    editor->FillWith(QStringLiteral("LsParaSet(\"LsData6\");"));
    QCOMPARE(editor->BuildText(), callWith(6, 77));
    editor->FillWith(QStringLiteral("LsParaSet(\"LsData6\",\"Way\");"));
    QCOMPARE(editor->BuildText(), QStringLiteral("LsParaSet(\"LsData6\");"));
}

void RLParaSetInsertWidgetTest::checks()
{
    ScriptedHost host;
    host.level = 0;
    const Editor editor = make();
    schedule(editor)->setCurrentIndex(-1);
    QVERIFY(editor->CheckInsert());
    QVERIFY(editor->CheckReplace());
}

void RLParaSetInsertWidgetTest::logsEachLoad()
{
    const LogFolder log;
    const Editor editor = make();
    QStringList console;
    {
        ConsoleCapture capture;
        editor->FillWith(callWith(5, 77));
        const QList<QByteArray> taken = capture.take();
        for (const QByteArray& each : taken)
            console << QString::fromUtf8(each).remove(QStringLiteral("\x1b[0m\n"));
    }
    QVERIFY(!console.isEmpty());
    QVERIFY2(lineWith('D', callWith(5, 77)).match(console.first()).hasMatch(),
             qPrintable(console.first()));
    QCOMPARE(LogFolder::lines(), QStringList());
    QCOMPARE(LogFolder::lines(QStringLiteral("qellaserweld")), QStringList());
}

void RLParaSetInsertWidgetTest::logsMissingArguments()
{
    const LogFolder log;
    const Editor editor = make();
    editor->FillWith(QStringLiteral("LsParaSet( );"));
    const QStringList lines = LogFolder::lines();
    QCOMPARE(lines.size(), 1);
    const QString end =
        QStringLiteral(" Missing required parameters! funcName: LsParaSet , params: ()");
    QVERIFY2(lineWith('W', end).match(lines.first()).hasMatch(), qPrintable(lines.first()));
}

LASERWELD_TEST_MAIN(RLParaSetInsertWidgetTest)
#include "tst_rlparasetinsertwidget.moc"
