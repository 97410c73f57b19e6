#include "EditorTest.h"
#include "LogFolder.h"
#include "ScriptedHost.h"
#include "SetUpPointWidget.h"
#include "TestCase.h"
#include "UiScale.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const char Idle[] = "\n\n        QPushButton{\n          background:rgb(211, 220, 230); "
                    "color:black;\n        }\n\n\n\n    ";
const char Active[] = "\n\n        QPushButton{background:rgb(194, 37, 43);color:white;}\n\n    ";
constexpr const char* Boxes[] = {"sbxX", "sbxY", "sbxZ", "sbxA", "sbxB", "sbxC"};
constexpr const char* AngleRow[] = {"lblAngle", "lblA", "sbxA", "lblB", "sbxB", "lblC", "sbxC"};

QStringList names(const char* list)
{
    return QString::fromLatin1(list).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList lines(const char* list)
{
    return QString::fromLatin1(list).split(QLatin1Char('|'));
}

/// The editor in its window, and what a test asks of it.
struct Editor
{
    SetUpPointWidget widget{nullptr};

    QComboBox* points() const { return child<QComboBox>(&widget, "cbxPoint"); }
    QPushButton* offs() const { return child<QPushButton>(&widget, "btnOffs"); }
    QPushButton* relTool() const { return child<QPushButton>(&widget, "btnReltool"); }
    bool isShown(const char* name) const { return !child<QWidget>(&widget, name)->isHidden(); }
    double value(const char* name) const { return child<QDoubleSpinBox>(&widget, name)->value(); }
    void setValue(const char* name, double number) const
    {
        child<QDoubleSpinBox>(&widget, name)->setValue(number);
    }
    static bool has(QPushButton* button, const char* sheet)
    {
        return button->styleSheet() == UiScale::styleSheet(QLatin1String(sheet), button);
    }
    bool anglesShown(bool shown) const
    {
        return std::all_of(std::begin(AngleRow), std::end(AngleRow),
                           [=](const char* name) { return isShown(name) == shown; });
    }
    bool isPlain() const
    {
        return !isShown("wgtPointParam") && has(offs(), Idle) && has(relTool(), Idle);
    }
    bool isOffs() const
    {
        return isShown("wgtPointParam") && anglesShown(false) && has(offs(), Active) &&
               has(relTool(), Idle);
    }
    bool isRelTool() const
    {
        return isShown("wgtPointParam") && anglesShown(true) && has(offs(), Idle) &&
               has(relTool(), Active);
    }
};

} // namespace

class SetUpPointWidgetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void form();
    void layouts();
    void translation();
    void boxesOfTheForm();
    void startsPlain();
    void proposes_data();
    void proposes();
    void refreshReadsTwice();
    void nothingProposedBelowOne();
    void setIndexHidesOnly();
    void loads_data();
    void loads();
    void refuses_data();
    void refuses();
    void plainTextKeepsMode();
    void loadLeavesOtherButton();
    void buttons();
    void buttonsZeroBoxes();
    void slotsNeedTheirButton();
    void printsRelToolFlag();
    void writesSixDigits();
    void addsMissingPoint();
    void addsNoKnownPoint();
    void addsNoPointOfTheHost();
};

void SetUpPointWidgetTest::form()
{
    const ScriptedHost host;
    Editor editor;
    QCOMPARE(editor.widget.objectName(), QStringLiteral("SetUpPointWidget"));
    const QPair<const char*, QString> labels[] = {
        {"lblPoint", QStringLiteral("p(robtarget): ")},
        {"label_15", QStringLiteral("Position(mm): ")},
        {"lblAngle", QStringLiteral("Euler(\u00b0): ")},
        {"label_16", QStringLiteral("X")},
        {"label_14", QStringLiteral("Y")},
        {"label_13", QStringLiteral("Z")},
        {"lblA", QStringLiteral("A")},
        {"lblB", QStringLiteral("B")},
        {"lblC", QStringLiteral("C")},
    };
    for (const auto& label : labels)
        QCOMPARE(child<QLabel>(&editor.widget, label.first)->text(), label.second);
    QCOMPARE(editor.offs()->text(), QStringLiteral("offs"));
    QCOMPARE(editor.relTool()->text(), QStringLiteral("reltool"));
    QVERIFY(!editor.offs()->isCheckable() && !editor.relTool()->isCheckable());
    QVERIFY(editor.points()->isEditable());
    QCOMPARE(editor.points()->minimumWidth(), 200);
    editor.widget.setLabelText(QStringLiteral("aux: "));
    QCOMPARE(child<QLabel>(&editor.widget, "lblPoint")->text(), QStringLiteral("aux: "));
}

void SetUpPointWidgetTest::layouts()
{
    const ScriptedHost host;
    const Editor editor;
    QCOMPARE(editor.widget.size(), QSize(594, 180));
    const auto* outer = child<QVBoxLayout>(&editor.widget, "verticalLayout_2");
    QCOMPARE(editor.widget.layout(), outer);
    QCOMPARE(outer->contentsMargins(), QMargins());
    QCOMPARE(EditorTest::outline(outer), lines("layout gridLayout|QWidget wgtPointParam"));
    QCOMPARE(EditorTest::gridTexts(child<QGridLayout>(&editor.widget, "gridLayout")),
             lines("0,0 QLabel lblPoint|0,1 QComboBox cbxPoint|0,2 QPushButton btnOffs|"
                   "0,3 QPushButton btnReltool"));
    QCOMPARE(editor.points()->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    const auto* inner = child<QVBoxLayout>(&editor.widget, "verticalLayout");
    QCOMPARE(child<QWidget>(&editor.widget, "wgtPointParam")->layout(), inner);
    QCOMPARE(EditorTest::outline(inner), lines("spacer 20x5|layout glyt|spacer 20x5"));
    const auto* grid = child<QGridLayout>(&editor.widget, "glyt");
    QCOMPARE(grid->horizontalSpacing(), 10);
    QCOMPARE(EditorTest::gridTexts(grid),
             lines("0,0 QLabel label_15|0,1 QLabel label_16|0,2 QDoubleSpinBox sbxX|"
                   "0,3 QLabel label_14|0,4 QDoubleSpinBox sbxY|0,5 QLabel label_13|"
                   "0,6 QDoubleSpinBox sbxZ|0,7 spacer 40x20|1,0 QLabel lblAngle|1,1 QLabel lblA|"
                   "1,2 QDoubleSpinBox sbxA|1,3 QLabel lblB|1,4 QDoubleSpinBox sbxB|"
                   "1,5 QLabel lblC|1,6 QDoubleSpinBox sbxC"));
    QCOMPARE(grid->itemAtPosition(0, 7)->expandingDirections(), Qt::Horizontal);
}

// Two labels, and neither letters nor captions.
void SetUpPointWidgetTest::translation()
{
    const ScriptedHost host;
    EditorTest::ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const Editor editor;
    QCoreApplication::removeTranslator(&translator);
    QStringList translated;
    const auto labels = editor.widget.findChildren<QLabel*>();
    for (const QLabel* label : labels)
        translated << label->text();
    translated << editor.offs()->text() << editor.relTool()->text();
    QCOMPARE(translated.filter(QStringLiteral("/")),
             (QStringList{QStringLiteral("SetUpPointWidget/Position(mm): "),
                          QStringLiteral("SetUpPointWidget/Euler(\u00b0): ")}));
}

void SetUpPointWidgetTest::boxesOfTheForm()
{
    const ScriptedHost host;
    Editor editor;
    for (const char* name : Boxes) {
        const auto* box = child<QDoubleSpinBox>(&editor.widget, name);
        QCOMPARE(box->decimals(), 6);
        QCOMPARE(box->minimum(), -999999.0);
        QCOMPARE(box->maximum(), 999999.0);
        QCOMPARE(box->buttonSymbols(), QAbstractSpinBox::NoButtons);
        const bool nearest = name[3] == 'X' || name[3] == 'A';
        QCOMPARE(box->correctionMode() == QAbstractSpinBox::CorrectToNearestValue, nearest);
    }
}

void SetUpPointWidgetTest::startsPlain()
{
    const ScriptedHost host;
    const Editor editor;
    QVERIFY(editor.isPlain());
    QCOMPARE(editor.points()->count(), 0);
    QCOMPARE(editor.widget.pointText(), QStringLiteral("p1"));
}

void SetUpPointWidgetTest::proposes_data()
{
    QTest::addColumn<QString>("taken");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("proposal");
    const auto row = [](const char* taken, int index, const char* proposal) {
        QTest::addRow("%s, %d", taken, index)
            << QString::fromLatin1(taken) << index << QString::fromLatin1(proposal);
    };
    row("", 1, "p1");
    row("", 2, "p2");
    row("p1 p3", 1, "p2");
    row("p1 p3", 2, "p4");
    row("p3 p2 p1 p2", 1, "p4");
    row("p2", 1, "p1");
    row("p2", 2, "p3");
    row("P1 ap1 p1a p q1 home", 1, "p1");
    row("p001", 1, "p2");
    row("p0 p99999999999", 1, "p1");
    row("p2147483647", 2147483647, "p2147483648");
}

void SetUpPointWidgetTest::proposes()
{
    QFETCH(QString, taken);
    QFETCH(int, index);
    ScriptedHost host;
    host.points = taken.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    Editor editor;
    editor.widget.setIndex(index);
    QTEST(editor.points()->currentText(), "proposal");
    QCOMPARE(editor.points()->count(), host.points.size());
}

void SetUpPointWidgetTest::refreshReadsTwice()
{
    ScriptedHost host;
    host.points = names("p7 home p1");
    Editor editor;
    QCOMPARE(host.callNames(),
             QStringList({QStringLiteral("getPointNameList"), QStringLiteral("getPointNameList")}));
    for (int each = 0; each < 3; ++each)
        QCOMPARE(editor.points()->itemText(each), host.points[each]);
    host.points << QStringLiteral("p2");
    host.forgetCalls();
    editor.widget.refreshPointList();
    QCOMPARE(host.count(QStringLiteral("getPointNameList")), 2);
    QCOMPARE(editor.points()->count(), 4);
    QCOMPARE(editor.points()->currentText(), QStringLiteral("p3"));
}

void SetUpPointWidgetTest::nothingProposedBelowOne()
{
    ScriptedHost host;
    host.points = names("home p1");
    Editor editor;
    editor.widget.setIndex(0);
    QCOMPARE(editor.points()->currentText(), QStringLiteral("home"));
}

void SetUpPointWidgetTest::setIndexHidesOnly()
{
    const ScriptedHost host;
    Editor editor;
    editor.offs()->click();
    editor.widget.setIndex(2);
    QVERIFY(!editor.isShown("wgtPointParam"));
    QCOMPARE(editor.widget.pointText(), QStringLiteral("Offs(p2,0,0,0)"));
}

void SetUpPointWidgetTest::loads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("mode");
    const auto row = [](const char* text, const char* written, const char* mode) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(written)
                            << QString::fromLatin1(mode);
    };
    row("home", "home", "plain");
    row("", "", "plain");
    row("Offs(p1,1,-2,3.5)", "Offs(p1,1,-2,3.5)", "offs");
    row(" offs ( p1 , 1 , 2 , 3 );  ", "Offs(p1,1,2,3)", "offs");
    row("OFFS(RelTool(p1,0,0,1,0,0,0),1,2,3)", "Offs(RelTool(p1,0,0,1,0,0,0),1,2,3)", "offs");
    row("Offs(p1,x,,1e3,12a)", "Offs(p1,0,1000,0)", "offs");
    row("Offs(p1,1e9,-1e9,0.1234567)", "Offs(p1,999999,-999999,0.123457)", "offs");
    row("RelTool(p1,1,2,3,4,5,6)", "RelTool(p1,1,2,3,4,5,6)", "reltool");
    row("reltool(p%2,1,2,3,4,5,6.25);", "RelTool(p%2,1,2,3,4,5,6.25)", "reltool");
}

void SetUpPointWidgetTest::loads()
{
    QFETCH(QString, text);
    QFETCH(QString, mode);
    const ScriptedHost host;
    const LogFolder folder;
    const ConsoleCapture console;
    Editor editor;
    for (const char* name : Boxes)
        editor.setValue(name, 9);
    editor.widget.setPointText(text);
    QTEST(editor.widget.pointText(), "written");
    QCOMPARE(editor.isPlain(), mode == QLatin1String("plain"));
    QCOMPARE(editor.isOffs(), mode == QLatin1String("offs"));
    QCOMPARE(editor.isRelTool(), mode == QLatin1String("reltool"));
    QVERIFY(!editor.isOffs() || editor.value("sbxC") == 0);
    QCOMPARE(LogFolder::texts(), QStringList());
}

void SetUpPointWidgetTest::refuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("warning");
    const auto row = [](const char* text, const char* warning) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(warning);
    };
    row("Offs(p1", "):ExtractFunctionAndParameters failed");
    row("p1)", "):ExtractFunctionAndParameters failed");
    row("(p1)", "):ExtractFunctionAndParameters failed");
    row("Offs(p1,1,2)", "):Offs paramter number invalid");
    row("Offs(p1,1,2,3,4,5,6)", "):Offs paramter number invalid");
    row("Offs()", "):Offs paramter number invalid");
    row("RelTool(p1,1,2,3)", "):RelTool paramter number invalid");
    row("RelTool(p1,1,2,3,4,5,6,7)", "):RelTool paramter number invalid");
    row("Other(p1,1,2,3)", "");
}

void SetUpPointWidgetTest::refuses()
{
    QFETCH(QString, text);
    QFETCH(QString, warning);
    const ScriptedHost host;
    const LogFolder folder;
    const ConsoleCapture console;
    Editor editor;
    editor.widget.setPointText(QStringLiteral("Offs(home,1,2,3)"));
    editor.widget.setPointText(text);
    QCOMPARE(editor.widget.pointText(), QStringLiteral("Offs(home,1,2,3)"));
    QVERIFY(editor.isOffs());
    QStringList logged = LogFolder::lines();
    for (QString& line : logged)
        line.remove(QRegularExpression(
            QStringLiteral("^\\[W\\|[^]]+\\] SetUpPointWidget::setPointText \\( [1-9]\\d* ")));
    QCOMPARE(logged, warning.isEmpty() ? QStringList() : QStringList{warning});
}

void SetUpPointWidgetTest::plainTextKeepsMode()
{
    const ScriptedHost host;
    const ConsoleCapture console;
    Editor editor;
    editor.widget.setPointText(QStringLiteral("Offs(p1,1,2,3)"));
    editor.widget.setPointText(QStringLiteral("p9"));
    QVERIFY(editor.isOffs());
    QCOMPARE(editor.widget.pointText(), QStringLiteral("Offs(p9,1,2,3)"));
    QCOMPARE(editor.points()->count(), 0);
}

void SetUpPointWidgetTest::loadLeavesOtherButton()
{
    const ScriptedHost host;
    const ConsoleCapture console;
    Editor editor;
    editor.widget.setPointText(QStringLiteral("Offs(p1,1,2,3)"));
    editor.widget.setPointText(QStringLiteral("RelTool(p1,1,2,3,4,5,6)"));
    QVERIFY(Editor::has(editor.offs(), Active) && Editor::has(editor.relTool(), Active));
    editor.widget.setPointText(QStringLiteral("Offs(p1,1,2,3)"));
    QVERIFY(Editor::has(editor.offs(), Active) && Editor::has(editor.relTool(), Active));
    QVERIFY(editor.anglesShown(false));
    QCOMPARE(editor.widget.pointText(), QStringLiteral("Offs(p1,1,2,3)"));
}

void SetUpPointWidgetTest::buttons()
{
    const ScriptedHost host;
    const ConsoleCapture console;
    Editor editor;
    editor.offs()->click();
    QVERIFY(editor.isOffs());
    QCOMPARE(editor.widget.pointText(), QStringLiteral("Offs(p1,0,0,0)"));
    editor.relTool()->click();
    QVERIFY(editor.isRelTool());
    QCOMPARE(editor.widget.pointText(), QStringLiteral("RelTool(p1,0,0,0,0,0,0)"));
    editor.offs()->click();
    QVERIFY(editor.isOffs());
    editor.offs()->click();
    QVERIFY(editor.isPlain());
    QCOMPARE(editor.widget.pointText(), QStringLiteral("p1"));
    editor.relTool()->click();
    editor.relTool()->click();
    QVERIFY(editor.isPlain());
}

void SetUpPointWidgetTest::buttonsZeroBoxes()
{
    const ScriptedHost host;
    const ConsoleCapture console;
    Editor editor;
    const auto allAre = [&editor](double number) {
        return std::all_of(std::begin(Boxes), std::end(Boxes),
                           [=, &editor](const char* name) { return editor.value(name) == number; });
    };
    for (QPushButton* button : {editor.offs(), editor.relTool(), editor.offs()}) {
        for (const char* name : Boxes)
            editor.setValue(name, 5);
        QVERIFY(allAre(5));
        button->click();
        QVERIFY(allAre(0));
    }
}

void SetUpPointWidgetTest::slotsNeedTheirButton()
{
    const ScriptedHost host;
    Editor editor;
    QVERIFY(QMetaObject::invokeMethod(&editor.widget, "onBtnOffsClicked"));
    QVERIFY(QMetaObject::invokeMethod(&editor.widget, "onBtnRelToolClicked"));
    QVERIFY(editor.isPlain());
    QCOMPARE(editor.widget.pointText(), QStringLiteral("p1"));
}

void SetUpPointWidgetTest::printsRelToolFlag()
{
    const ScriptedHost host;
    Editor editor;
    QTest::ignoreMessage(QtDebugMsg, "false");
    editor.relTool()->click();
    QTest::ignoreMessage(QtDebugMsg, "true");
    editor.relTool()->click();
}

void SetUpPointWidgetTest::writesSixDigits()
{
    const ScriptedHost host;
    Editor editor;
    editor.offs()->click();
    editor.setValue("sbxX", 1234.5678);
    editor.setValue("sbxY", -0.000001);
    editor.setValue("sbxZ", 999999);
    QCOMPARE(editor.widget.pointText(), QStringLiteral("Offs(p1,1234.57,-1e-06,999999)"));
}

void SetUpPointWidgetTest::addsMissingPoint()
{
    ScriptedHost host;
    host.points = names("P1");
    Editor editor;
    host.forgetCalls();
    editor.widget.addPointIfMissing(QStringLiteral("tool1"), QStringLiteral("wobj1"));
    QCOMPARE(host.callNames(),
             QStringList({QStringLiteral("getPointNameList"), QStringLiteral("addCurrentPoint")}));
    QCOMPARE(host.lastArguments(QStringLiteral("addCurrentPoint")),
             QJsonArray(
                 {QStringLiteral("p1"), false, QStringLiteral("tool1"), QStringLiteral("wobj1")}));
}

void SetUpPointWidgetTest::addsNoKnownPoint()
{
    ScriptedHost host;
    host.points = names("home p1");
    Editor editor;
    editor.widget.setPointText(QStringLiteral("home"));
    host.forgetCalls();
    editor.widget.addPointIfMissing(QString(), QString());
    QCOMPARE(host.callNames(), QStringList());
}

void SetUpPointWidgetTest::addsNoPointOfTheHost()
{
    ScriptedHost host;
    Editor editor;
    host.points = names("p1");
    host.forgetCalls();
    QTest::ignoreMessage(QtDebugMsg, "Point \"p1\" already exists, skip adding.");
    editor.widget.addPointIfMissing(QString(), QString());
    QCOMPARE(host.callNames(), QStringList{QStringLiteral("getPointNameList")});
}

LASERWELD_TEST_MAIN(SetUpPointWidgetTest)
#include "tst_setuppointwidget.moc"
