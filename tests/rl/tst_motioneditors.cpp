#include "EditorTest.h"
#include "LogFolder.h"
#include "MotionEditors.h"
#include "ScriptedHost.h"
#include "SetUpPointWidget.h"
#include "TestCase.h"

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSet>
#include <QVBoxLayout>

#include <memory>
#include <stdexcept>

namespace {

using EditorTest::ContextTranslator;
using EditorTest::gridTexts;
using EditorTest::outline;
using EditorTest::SilentConsole;
using qelplugin::RLContentBase;
using Editor = std::unique_ptr<RLContentBase>;

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromUtf8(text, int(size));
}

template<typename Class>
RLContentBase* make()
{
    return new Class(nullptr);
}

/// Object names with their texts.
using Named = QVector<QPair<const char*, const char*>>;

/// One welding motion with its two editors and what sets it apart.
struct Motion
{
    const char* key;
    RLContentBase* (*insert)();
    RLContentBase* (*property)();
    QSize size;
    Named points; ///< with their labels
    bool circle;
    const char* arguments; ///< behind the points, as a new instruction has them
};

const Motion Motions[] = {
    {"LsMoveL",
     make<WMoveLInsertWidget>,
     make<WMoveLPropertyWidget>,
     {639, 501},
     {{"wgtTargetPoint", "TargetPoint(robtarget): "}},
     false,
     "NULL, fine, tool1, wobj1"},
    {"LsMoveC",
     make<WMoveCInsertWidget>,
     make<WMoveCPropertyWidget>,
     {846, 176},
     {{"wgtAuxPoint", "AuxPoint(robtarget): "}, {"wgtTargetPoint", "TargetPoint(robtarget): "}},
     false,
     "NULL, fine, tool1, wobj1"},
    {"LsMoveCF",
     make<WMoveCFInsertWidget>,
     make<WMoveCFPropertyWidget>,
     {643, 277},
     {{"wgtAuxPoint1", "AuxPoint1(robtarget): "}, {"wgtAuxPoint2", "AuxPoint2(robtarget): "}},
     true,
     "360, \"RotAxis\", NULL, fine, tool1, wobj1"},
};

/// A controller with two of everything and a current tool and work object.
struct Cell : ScriptedHost
{
    Cell()
    {
        speedNames = QStringList{"v10"_s, "v100"_s};
        zoneNames = QStringList{"fine"_s, "z1"_s};
        toolNames = QStringList{"tool0"_s, "tool1"_s};
        workObjectNames = QStringList{"wobj0"_s, "wobj1"_s, "wobj2"_s};
        points = QStringList{"p1"_s, "p3"_s};
        tool = "tool1"_s;
        workObject = "wobj1"_s;
    }
};

QComboBox* combo(const Editor& editor, const char* name)
{
    return child<QComboBox>(editor.get(), name);
}

QDoubleSpinBox* runDeg(const Editor& editor)
{
    return child<QDoubleSpinBox>(editor.get(), "sbxRunDeg");
}

/// The box with the name of a point.
QComboBox* pointName(const Editor& editor, const char* point)
{
    return child<QComboBox>(child<SetUpPointWidget>(editor.get(), point), "cbxPoint");
}

void press(const Editor& editor, const char* point, const char* button)
{
    child<QPushButton>(child<SetUpPointWidget>(editor.get(), point), button)->click();
}

QString editorName(const Editor& editor)
{
    return QString::fromLatin1(editor->metaObject()->className());
}

/// What a property editor shows of a line, written again.
QString loadedAndWritten(const Motion& motion, const QString& line)
{
    const Editor editor(motion.property());
    editor->FillWith(line);
    return editor->BuildText();
}

QStringList lowerRows(int first)
{
    QStringList texts;
    for (const char* text : {"%1,0 QLabel label_2", "%1,1 QComboBox cbxSpeed",
                             "%1,2 QLabel label_5", "%1,3 QComboBox cbxZone"})
        texts << QString::fromLatin1(text).arg(first);
    for (const char* text : {"%1,0 QLabel label", "%1,1 QComboBox cbxTool", "%1,2 QLabel label_4",
                             "%1,3 QComboBox cbxWobj"})
        texts << QString::fromLatin1(text).arg(first + 1);
    return texts;
}

QStringList circleRows()
{
    return {"0,0 QLabel label_6"_s, "0,1 1x3 QDoubleSpinBox sbxRunDeg"_s, "1,0 QLabel label_7"_s,
            "1,1 1x3 QComboBox cbxRotType"_s};
}

QStringList repeated(const QStringList& names, int times)
{
    QStringList all;
    for (int each = 0; each < times; ++each)
        all << names;
    return all;
}

/// A call of any shape: names, numbers, nests, blanks, brackets, quotes, bytes.
QString randomCall(QRandomGenerator& random)
{
    static const QStringList pieces =
        QString::fromUtf8("p1|p77|Offs(p1,1,2,3)|offs(p9,1e9,nan,-inf)|RelTool(p2,1,2,3,4,5,6)|"
                          "RelTool(p2,1)|360|-1e300|nan|inf|0x10|\"RotAxis\"|\"FixedAxis\"|\"|NULL|"
                          "v100|z1|tool0|wobj2| wobj1 ||(|)|((|Offs(|\n|\\|%1|\xE7\x84\x8A|RotAxis|"
                          "//|;")
            .split(QLatin1Char('|'));
    return EditorTest::randomCall(random, pieces, 10);
}

/// Empty when all numbers lie in their ranges and all fixed lists show one of their entries.
QString outOfRange(const RLContentBase* editor)
{
    const auto numbers = editor->findChildren<QDoubleSpinBox*>();
    for (const QDoubleSpinBox* box : numbers) {
        if (!(box->value() >= box->minimum() && box->value() <= box->maximum()))
            return QStringLiteral("%1 is %2").arg(box->objectName()).arg(box->value());
    }
    const auto lists = editor->findChildren<QComboBox*>();
    for (const QComboBox* box : lists) {
        if (!box->isEditable() && box->currentIndex() < 0)
            return box->objectName();
    }
    return QString();
}

} // namespace

Q_DECLARE_METATYPE(const Motion*)

class MotionEditorsTest : public TestCase
{
    Q_OBJECT

    LogFolder folder;

    static void eachMotion()
    {
        QTest::addColumn<const Motion*>("motion");
        for (const Motion& motion : Motions)
            QTest::newRow(motion.key) << &motion;
    }

private Q_SLOTS:
    void classes_data() { eachMotion(); }
    void classes()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        const Editor insert(motion->insert());
        const Editor property(motion->property());
        const QString name = QString::fromLatin1(motion->key).replace("Ls"_s, "W"_s);
        QCOMPARE(editorName(insert), name + "InsertWidget"_s);
        QCOMPARE(editorName(property), name + "PropertyWidget"_s);
        for (const Editor* editor : {&insert, &property}) {
            const QMetaObject* meta = (*editor)->metaObject();
            QCOMPARE(meta->superClass(), &RLContentBase::staticMetaObject);
            QCOMPARE(meta->methodCount(), RLContentBase::staticMetaObject.methodCount());
            QCOMPARE((*editor)->parentWidget(), nullptr);
            QCOMPARE((*editor)->objectName(), editorName(*editor));
            QCOMPARE(EditorTest::keyOf(**editor), QString());
        }
    }

    void parents()
    {
        Cell cell;
        QWidget parent;
        QCOMPARE((new WMoveLInsertWidget(&parent))->parentWidget(), &parent);
        QCOMPARE((new WMoveCFPropertyWidget(&parent))->parentWidget(), &parent);
    }

    void forms_data() { eachMotion(); }
    void forms()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        QStringList rows{"vertical"_s};
        for (const auto& point : motion->points)
            rows << "SetUpPointWidget "_s + QString::fromLatin1(point.first);
        rows << "layout gridLayout_2"_s
             << "vertical"_s;
        for (const auto factory : {motion->insert, motion->property}) {
            const Editor editor(factory());
            QCOMPARE(editor->size(), motion->size);
            QCOMPARE(editor->layout()->objectName(), "verticalLayout"_s);
            QVERIFY(qobject_cast<QVBoxLayout*>(editor->layout()));
            QCOMPARE(outline(editor->layout()), rows);
            const auto* grid = child<QGridLayout>(editor.get(), "gridLayout_2");
            QCOMPARE(grid->horizontalSpacing(), 10);
            QCOMPARE(gridTexts(grid), motion->circle ? circleRows() + lowerRows(2) : lowerRows(0));
        }
    }

    void labels_data() { eachMotion(); }
    void labels()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        ContextTranslator translator;
        QCoreApplication::installTranslator(&translator);
        Named texts{{"label_2", "Speed(V): "},
                    {"label_5", "Zone(Z): "},
                    {"label", "Tool(T): "},
                    {"label_4", "Wobj(W): "}};
        if (motion->circle)
            texts << Named{{"label_6", "RunDeg(rundeg): "}, {"label_7", "RotType(rottype): "}};
        for (const auto factory : {motion->insert, motion->property}) {
            const Editor editor(factory());
            const QString context = editorName(editor) + "/"_s;
            for (const auto& text : qAsConst(texts))
                QCOMPARE(child<QLabel>(editor.get(), text.first)->text(),
                         context + QString::fromLatin1(text.second));
            for (const auto& point : motion->points) {
                const auto* box = child<SetUpPointWidget>(editor.get(), point.first);
                QCOMPARE(child<QLabel>(box, "lblPoint")->text(),
                         context + QString::fromLatin1(point.second));
            }
        }
    }

    void boxes_data() { eachMotion(); }
    void boxes()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        for (const auto factory : {motion->insert, motion->property}) {
            const Editor editor(factory());
            QVector<const char*> names{"cbxSpeed", "cbxZone", "cbxTool", "cbxWobj"};
            if (motion->circle)
                names << "cbxRotType";
            for (const char* name : qAsConst(names)) {
                QVERIFY(!combo(editor, name)->isEditable());
                QCOMPARE(combo(editor, name)->sizePolicy().horizontalPolicy(),
                         QSizePolicy::Expanding);
            }
            QCOMPARE(editor->findChildren<QComboBox*>().size(),
                     names.size() + motion->points.size());
        }
    }

    void circle()
    {
        Cell cell;
        for (const auto factory : {Motions[2].insert, Motions[2].property}) {
            const Editor editor(factory());
            QCOMPARE(runDeg(editor)->buttonSymbols(), QAbstractSpinBox::NoButtons);
            QCOMPARE(runDeg(editor)->decimals(), 2);
            QCOMPARE(runDeg(editor)->minimum(), -359.0);
            QCOMPARE(runDeg(editor)->maximum(), 3600.0);
            QCOMPARE(runDeg(editor)->value(), 360.0);
            QCOMPARE(EditorTest::entries(combo(editor, "cbxRotType")),
                     QStringList({"RotAxis"_s, "ConstPose"_s, "FixedAxis"_s}));
            QCOMPARE(combo(editor, "cbxRotType")->currentIndex(), 0);
        }
    }

    void firstCalls_data() { eachMotion(); }
    void firstCalls()
    {
        QFETCH(const Motion*, motion);
        // Each point reads the names twice when it is made and twice when it gets its index.
        const QStringList expected = repeated({"getPointNameList"_s}, 4 * motion->points.size()) +
                                     QStringList{"getSpeedList"_s, "getZoneList"_s, "getToolList"_s,
                                                 "getCurTool"_s,   "getWobjList"_s, "getCurWobj"_s};
        for (const auto factory : {motion->insert, motion->property}) {
            Cell cell;
            const Editor editor(factory());
            QCOMPARE(cell.callNames(), expected);
        }
    }

    void proposals_data() { eachMotion(); }
    void proposals()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        const QStringList free{"p2"_s, "p4"_s};
        const Editor editor(motion->insert());
        for (int index = 0; index < motion->points.size(); ++index)
            QCOMPARE(pointName(editor, motion->points[index].first)->currentText(), free[index]);
    }

    void selections_data() { eachMotion(); }
    void selections()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        cell.tool = "TOOL1"_s;
        cell.workObject = "nowhere"_s;
        const Editor other(motion->insert());
        QCOMPARE(combo(other, "cbxTool")->currentText(), "tool0"_s);
        QCOMPARE(combo(other, "cbxWobj")->currentText(), "wobj0"_s);
        QCOMPARE(combo(other, "cbxSpeed")->currentText(), "NULL"_s);
        QCOMPARE(combo(other, "cbxSpeed")->count(), 3);
        QCOMPARE(combo(other, "cbxSpeed")->itemText(1), "v10"_s);
        QCOMPARE(combo(other, "cbxZone")->currentText(), "fine"_s);
    }

    void emptyLists_data() { eachMotion(); }
    void emptyLists()
    {
        QFETCH(const Motion*, motion);
        ScriptedHost bare;
        const Editor editor(motion->property());
        const QString points = motion->points.size() == 1 ? "p1"_s : "p1, p2"_s;
        const QString circle = motion->circle ? "360, \"RotAxis\", "_s : QString();
        const QString text =
            QString::fromLatin1(motion->key) + "("_s + points + ", "_s + circle + "NULL, , , );"_s;
        QCOMPARE(editor->BuildText(), text);
        editor->FillWith("x(a, b, c, d, e, f, g, h);"_s);
        QCOMPARE(combo(editor, "cbxWobj")->currentIndex(), -1);
    }

    void firstTexts_data() { eachMotion(); }
    void firstTexts()
    {
        QFETCH(const Motion*, motion);
        const QString points = motion->points.size() == 1 ? "p2"_s : "p2, p4"_s;
        const QString text = QString::fromLatin1(motion->key) + "("_s + points + ", "_s +
                             QString::fromLatin1(motion->arguments) + ");"_s;
        for (const auto factory : {motion->insert, motion->property}) {
            Cell cell;
            const Editor editor(factory());
            QCOMPARE(editor->BuildText(), text);
            QCOMPARE(loadedAndWritten(*motion, text), text);
        }
    }

    void insertStores_data() { eachMotion(); }
    void insertStores()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        const Editor editor(motion->insert());
        // Not what is chosen here, but what the controller has, is stored with the point.
        combo(editor, "cbxTool")->setCurrentIndex(0);
        combo(editor, "cbxWobj")->setCurrentIndex(0);
        cell.forgetCalls();
        editor->BuildText();
        const int points = motion->points.size();
        const QStringList store{"getCurWobj"_s, "getCurTool"_s, "getPointNameList"_s,
                                "addCurrentPoint"_s};
        QCOMPARE(cell.callNames(),
                 repeated(store, points) + repeated({"getPointNameList"_s}, 2 * points));
        const QString last = points == 1 ? "p2"_s : "p4"_s;
        QCOMPARE(cell.calls[3].arguments, QJsonArray({"p2"_s, false, "tool1"_s, "wobj1"_s}));
        QCOMPARE(cell.lastArguments("addCurrentPoint"_s),
                 QJsonArray({last, false, "tool1"_s, "wobj1"_s}));
    }

    void propertyStoresNothing_data() { eachMotion(); }
    void propertyStoresNothing()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        const Editor editor(motion->property());
        cell.forgetCalls();
        const QString text = editor->BuildText();
        QCOMPARE(editor->BuildText(), text);
        QCOMPARE(cell.callNames(), QStringList());
    }

    void secondText()
    {
        Cell cell;
        const Editor editor(Motions[1].insert());
        QCOMPARE(editor->BuildText(), "LsMoveC(p2, p4, NULL, fine, tool1, wobj1);"_s);
        QCOMPARE(pointName(editor, "wgtAuxPoint")->currentText(), "p5"_s);
        QCOMPARE(editor->BuildText(), "LsMoveC(p5, p6, NULL, fine, tool1, wobj1);"_s);
        QCOMPARE(cell.points, QStringList({"p1"_s, "p3"_s, "p2"_s, "p4"_s, "p5"_s, "p6"_s}));
    }

    void knownNames()
    {
        Cell cell;
        const Editor editor(Motions[1].insert());
        pointName(editor, "wgtAuxPoint")->setCurrentText("p3"_s);
        pointName(editor, "wgtTargetPoint")->setCurrentText("p1"_s);
        QCOMPARE(editor->BuildText(), "LsMoveC(p3, p1, NULL, fine, tool1, wobj1);"_s);
        QCOMPARE(cell.count("addCurrentPoint"_s), 0);
    }

    void sameNewName()
    {
        Cell cell;
        const Editor editor(Motions[2].insert());
        pointName(editor, "wgtAuxPoint1")->setCurrentText("seam"_s);
        pointName(editor, "wgtAuxPoint2")->setCurrentText("seam"_s);
        QVERIFY(editor->BuildText().startsWith("LsMoveCF(seam, seam, "_s));
        QCOMPARE(cell.count("addCurrentPoint"_s), 1);
    }

    void expressions()
    {
        Cell cell;
        const Editor editor(Motions[1].insert());
        press(editor, "wgtAuxPoint", "btnOffs");
        press(editor, "wgtTargetPoint", "btnReltool");
        QCOMPARE(editor->BuildText(), "LsMoveC(Offs(p2,0,0,0), RelTool(p4,0,0,0,0,0,0), NULL, "
                                      "fine, tool1, wobj1);"_s);
        QCOMPARE(cell.points, QStringList({"p1"_s, "p3"_s, "p2"_s, "p4"_s}));
    }

    void lines_data()
    {
        QTest::addColumn<const Motion*>("motion");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("written");
        const auto row = [](const char* name, int motion, const char* line, const char* written) {
            QTest::newRow(name) << &Motions[motion] << QString::fromUtf8(line)
                                << QString::fromUtf8(written);
        };
        row("all of L", 0, "LsMoveL(p1, v100, z1, tool0, wobj2);",
            "LsMoveL(p1, v100, z1, tool0, wobj2);");
        row("all of C", 1, "LsMoveC(p1, p3, v100, z1, tool0, wobj2);",
            "LsMoveC(p1, p3, v100, z1, tool0, wobj2);");
        row("all of CF", 2, "LsMoveCF(p1, p3, 45.5, \"FixedAxis\", v100, z1, tool0, wobj2);",
            "LsMoveCF(p1, p3, 45.5, \"FixedAxis\", v100, z1, tool0, wobj2);");
        row("fewest of L", 0, "LsMoveL(p1,v100,z1,tool0)", "LsMoveL(p1, v100, z1, tool0, wobj0);");
        row("fewest of C", 1, "LsMoveC(p1,p3,v100,z1,tool0);",
            "LsMoveC(p1, p3, v100, z1, tool0, wobj0);");
        row("fewest of CF", 2, "LsMoveCF(p1,p3,-10,\"ConstPose\",v100,z1,tool0);",
            "LsMoveCF(p1, p3, -10, \"ConstPose\", v100, z1, tool0, wobj0);");
        row("more than all", 0, "LsMoveL(p1, v100, z1, tool0, wobj2, more, and more);",
            "LsMoveL(p1, v100, z1, tool0, wobj2);");
        row("another instruction", 0, "Other(p1, v100, z1, tool0, wobj2);",
            "LsMoveL(p1, v100, z1, tool0, wobj2);");
        row("no speed", 0, "LsMoveL(p1, NULL, z1, tool0, wobj2);",
            "LsMoveL(p1, NULL, z1, tool0, wobj2);");
        row("unknown work object", 0, "LsMoveL(p1, v10, z1, tool0, gone);",
            "LsMoveL(p1, v10, z1, tool0, wobj0);");
        row("work object in other case", 0, "LsMoveL(p1, v10, z1, tool0, WOBJ2);",
            "LsMoveL(p1, v10, z1, tool0, wobj0);");
        row("unknown speed, zone and tool", 0, "LsMoveL(p1, v1, z99, gone, wobj2);",
            "LsMoveL(p1, NULL, fine, tool1, wobj2);");
        row("new point", 0, "LsMoveL(seam, v10, z1, tool0, wobj2);",
            "LsMoveL(seam, v10, z1, tool0, wobj2);");
        row("offset", 0, "LsMoveL(offs(p1,1,2.5,-3), v10, z1, tool0, wobj2);",
            "LsMoveL(Offs(p1,1,2.5,-3), v10, z1, tool0, wobj2);");
        row("offsets", 1,
            "LsMoveC(Offs(p1,1,2,3), RelTool(p3,1,2,3,4,5,6), v10, z1, tool0, wobj2);",
            "LsMoveC(Offs(p1,1,2,3), RelTool(p3,1,2,3,4,5,6), v10, z1, tool0, wobj2);");
        row("refused offset", 1, "LsMoveC(Offs(p1,1,2), p3, v10, z1, tool0, wobj2);",
            "LsMoveC(p2, p3, v10, z1, tool0, wobj2);");
        row("bare rotation type", 2, "LsMoveCF(p1, p3, 1, FixedAxis, v10, z1, tool0, wobj2);",
            "LsMoveCF(p1, p3, 1, \"FixedAxis\", v10, z1, tool0, wobj2);");
        row("unknown rotation type", 2, "LsMoveCF(p1, p3, 1, \"Spin\", v10, z1, tool0, wobj2);",
            "LsMoveCF(p1, p3, 1, \"RotAxis\", v10, z1, tool0, wobj2);");
    }
    void lines()
    {
        QFETCH(const Motion*, motion);
        QFETCH(QString, line);
        QFETCH(QString, written);
        Cell cell;
        QCOMPARE(loadedAndWritten(*motion, line), written);
        QCOMPARE(loadedAndWritten(*motion, written), written);
    }

    void runAngles_data()
    {
        QTest::addColumn<QString>("read");
        QTest::addColumn<QString>("written");
        const auto row = [](const char* name, const char* read, const char* written) {
            QTest::newRow(name) << QString::fromLatin1(read) << QString::fromLatin1(written);
        };
        row("preset", "360", "360");
        row("greatest", "3600", "3600");
        row("too great", "3600.01", "3600");
        row("least", "-359", "-359");
        row("too small", "-360", "-359");
        row("six digits", "1234.56", "1234.56");
        row("beyond two decimals", "12.346", "12.35");
        row("no number", "round", "0");
        row("no finite number", "inf", "3600");
        row("thousandths", "0.004", "0");
    }
    void runAngles()
    {
        QFETCH(QString, read);
        QFETCH(QString, written);
        Cell cell;
        const QString line = "LsMoveCF(p1, p3, %1, \"RotAxis\", v10, z1, tool0, wobj2);"_s;
        QCOMPARE(loadedAndWritten(Motions[2], line.arg(read)), line.arg(written));
    }

    void noDefaultWorkObject()
    {
        Cell cell;
        cell.workObjectNames = QStringList{"table"_s, "WOBJ0"_s, "wobj1"_s};
        QCOMPARE(loadedAndWritten(Motions[0], "LsMoveL(p1, v10, z1, tool0);"_s),
                 "LsMoveL(p1, v10, z1, tool0, table);"_s);
    }

    void tooFew_data() { eachMotion(); }
    void tooFew()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        const Editor editor(motion->property());
        const QString before = editor->BuildText();
        QStringList arguments = repeated({"p3"_s}, motion->points.size());
        if (motion->circle)
            arguments << "1"_s
                      << "\"FixedAxis\""_s;
        arguments << "v10"_s
                  << "z1"_s;
        LogFolder own;
        editor->FillWith(QString::fromLatin1(motion->key) + "("_s + arguments.join(","_s) + ");"_s);
        QCOMPARE(editor->BuildText(), before);
        arguments.replaceInStrings("\""_s, "\\\""_s);
        QVERIFY(LogFolder::lines("qellaserweld"_s).value(0).startsWith("[W|"_s));
        QCOMPARE(LogFolder::texts("qellaserweld"_s),
                 QStringList("LASER:: "_s + editorName(editor) +
                             "::FillWith  Missing required parameters! params: (\""_s +
                             arguments.join("\", \""_s) + "\")"_s));
    }

    void noCall_data() { eachMotion(); }
    void noCall()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        const Editor editor(motion->property());
        const QString before = editor->BuildText();
        LogFolder own;
        editor->FillWith("no call"_s);
        QCOMPARE(editor->BuildText(), before);
        QCOMPARE(LogFolder::texts("qellaserweld"_s).size(), 1); // the splitter's
        QVERIFY(!LogFolder::texts("qellaserweld"_s).value(0).contains("FillWith"_s));
    }

    void exceptions_data()
    {
        QTest::addColumn<const Motion*>("motion");
        QTest::addColumn<bool>("known");
        QTest::addColumn<QString>("item");
        for (const Motion& motion : Motions) {
            QTest::addRow("%s, known", motion.key) << &motion << true << " std::exception: boom";
            QTest::addRow("%s, unknown", motion.key)
                << &motion << false << " Caught an unknown exception!";
        }
    }
    void exceptions()
    {
        QFETCH(const Motion*, motion);
        QFETCH(bool, known);
        QFETCH(QString, item);
        Cell cell;
        // The box does not give back the text that it sends when a slot throws: one that needs no
        // memory.
        cell.zoneNames = QStringList{QStringLiteral("fine"), QStringLiteral("z1")};
        const Editor editor(motion->property());
        connect(combo(editor, "cbxZone"), &QComboBox::currentTextChanged, this, [known] {
            if (known)
                throw std::runtime_error("boom");
            throw 1;
        });
        LogFolder own;
        const QString points = motion->points.size() == 1 ? "p1"_s : "p1, p3"_s;
        const QString circle = motion->circle ? "1, \"FixedAxis\", "_s : QString();
        editor->FillWith("x("_s + points + ", "_s + circle + "v10, z1, tool0);"_s);
        QVERIFY(LogFolder::lines("qellaserweld"_s).value(0).startsWith("[W|"_s));
        QCOMPARE(LogFolder::texts("qellaserweld"_s),
                 QStringList("LASER:: "_s + editorName(editor) + "::FillWith "_s + item));
        // What came before it is set, what comes behind it is not.
        QCOMPARE(combo(editor, "cbxSpeed")->currentText(), "v10"_s);
        QCOMPARE(combo(editor, "cbxTool")->currentText(), "tool1"_s);
    }

    void insertLoadsNothing_data() { eachMotion(); }
    void insertLoadsNothing()
    {
        QFETCH(const Motion*, motion);
        Cell cell;
        const Editor editor(motion->insert());
        LogFolder own;
        cell.forgetCalls();
        editor->FillWith("x(p3, p3, p3, v10, z1, tool0, wobj0, wobj2);"_s);
        editor->FillWith("no call"_s);
        QCOMPARE(cell.callNames(), QStringList());
        QCOMPARE(LogFolder::texts("qellaserweld"_s), QStringList());
        QCOMPARE(combo(editor, "cbxTool")->currentText(), "tool1"_s);
        QCOMPARE(pointName(editor, motion->points[0].first)->currentText(), "p2"_s);
    }

    void levels_data()
    {
        QTest::addColumn<const Motion*>("motion");
        QTest::addColumn<int>("level");
        QTest::addColumn<bool>("allowed");
        for (const Motion& motion : Motions) {
            QTest::addRow("%s, level 2", motion.key) << &motion << 2 << false;
            QTest::addRow("%s, level 3", motion.key) << &motion << 3 << true;
        }
    }
    void levels()
    {
        QFETCH(const Motion*, motion);
        QFETCH(int, level);
        QFETCH(bool, allowed);
        Cell cell;
        cell.level = level;
        const Editor insert(motion->insert());
        const Editor property(motion->property());
        QCOMPARE(insert->CheckInsert(), allowed);
        QCOMPARE(property->CheckReplace(), allowed);
        QCOMPARE(cell.count("getUserOperateLevel"_s), 2);
        QCOMPARE(insert->CheckReplace(), insert->RLContentBase::CheckReplace());
        QCOMPARE(property->CheckInsert(), property->RLContentBase::CheckInsert());
        QCOMPARE(cell.count("getUserOperateLevel"_s), 2);
    }

    // Anything at all may stand in a line.
    void randomLines_data() { eachMotion(); }
    void randomLines()
    {
        QFETCH(const Motion*, motion);
        constexpr int Lines = 50'000;
        Cell cell;
        QRandomGenerator random(4711);
        LogFolder own;
        const SilentConsole silent;
        const Editor property(motion->property());
        const Editor insert(motion->insert());
        QSet<QString> shown;
        for (int line = 0; line < Lines; ++line) {
            const QString text = randomCall(random);
            property->FillWith(text);
            insert->FillWith(text);
            shown << property->BuildText();
            const QString wrong = outOfRange(property.get());
            if (!wrong.isEmpty())
                QFAIL(qPrintable(wrong + " after "_s + text));
        }
        QVERIFY(shown.size() > Lines / 20); // many were loaded, not only refused
        QCOMPARE(outOfRange(insert.get()), QString());
    }
};

LASERWELD_TEST_MAIN(MotionEditorsTest)
#include "tst_motioneditors.moc"
