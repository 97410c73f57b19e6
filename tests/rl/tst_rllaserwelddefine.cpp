#include "EditorTest.h"
#include "LogFolder.h"
#include "RlLaserWeldDefine.h"
#include "ScriptedHost.h"
#include "TestCase.h"
#include "rlregistry.h"

#include <QApplication>
#include <QLabel>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <memory>

using qelplugin::RLContentBase;
using qelplugin::RlInstruction;
using qelplugin::RlRegistry;

namespace {

QStringList allKeys()
{
    return {QStringLiteral("LaserOn"),        QStringLiteral("LaserOff"),
            QStringLiteral("LsParaSet"),      QStringLiteral("LsWireFwd"),
            QStringLiteral("LsWireBwd"),      QStringLiteral("LsParaMatch"),
            QStringLiteral("LsParaMatchOff"), QStringLiteral("LsMoveL"),
            QStringLiteral("LsMoveC"),        QStringLiteral("LsMoveCF")};
}

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

RlInstruction& registered(const QString& key)
{
    return RlRegistry::instance().instruction(key);
}

std::unique_ptr<RLContentBase> made(const qelplugin::RLManager::Factory& factory)
{
    return std::unique_ptr<RLContentBase>(factory());
}

/// "name 3" for each field, and the rule where it is not 0.
QStringList fieldTexts(const QList<qelplugin::RlCustomField>& fields)
{
    QStringList texts;
    for (const qelplugin::RlCustomField& field : fields) {
        texts << field.name + QLatin1Char(' ') + QString::number(field.kind);
        if (field.rule != 0)
            texts << QStringLiteral("rule");
    }
    return texts;
}

/// Operations and keys in the order in which they are registered.
class Recorder
{
public:
    Recorder()
    {
        RlRegistry::instance().observer = [this](const char* operation, const QStringList& texts) {
            calls << QStringList{latin(operation), texts.join(QLatin1Char('|'))};
            operations << latin(operation);
            last = texts;
        };
    }
    ~Recorder() { RlRegistry::instance().observer = nullptr; }

    /// The operations whose first text, or second of createTypeToGroup and createData, is the key.
    QStringList of(const QString& key) const
    {
        QStringList names;
        for (const QStringList& call : calls) {
            const QStringList texts = call.at(1).split(QLatin1Char('|'));
            const bool isGroupFirst = call.at(0) == QLatin1String("createTypeToGroup") ||
                                      call.at(0) == QLatin1String("createData");
            if (texts.value(isGroupFirst ? 1 : 0) == key)
                names << call.at(0);
        }
        return names;
    }

    QList<QStringList> calls;
    QStringList operations;
    QStringList last;

private:
    Q_DISABLE_COPY(Recorder)
};

} // namespace

class RlLaserWeldDefineTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void orderOfInstructions();
    void groupComesLast();
    void operations_data();
    void operations();
    void notInterleaved();
    void texts_data();
    void texts();
    void withoutEditors_data();
    void withoutEditors();
    void typed_data();
    void typed();
    void dataFactories_data();
    void dataFactories();
    void editors_data();
    void editors();
    void fixedLines_data();
    void fixedLines();
    void defaultThroughEditor_data();
    void defaultThroughEditor();
    void patterns_data();
    void patterns();
    void translated();
    void outlivesTheObject();
    void isAQObject();
    void saysNothing();
};

void RlLaserWeldDefineTest::cleanup()
{
    RlRegistry::instance().clear();
    TestCase::cleanup();
}

void RlLaserWeldDefineTest::orderOfInstructions()
{
    const RlLaserWeldDefine define(nullptr);
    QStringList keys;
    for (const RlInstruction& instruction : qAsConst(RlRegistry::instance().instructions)) {
        keys << instruction.key;
        QCOMPARE(instruction.group, QStringLiteral("LaserWeld"));
    }
    QCOMPARE(keys, allKeys());
}

void RlLaserWeldDefineTest::groupComesLast()
{
    const Recorder recorder;
    const RlLaserWeldDefine define(nullptr);
    QCOMPARE(recorder.operations.count(QStringLiteral("createGroups")), 1);
    QCOMPARE(recorder.operations.last(), QStringLiteral("createGroups"));
    QCOMPARE(recorder.last,
             (QStringList{QStringLiteral("Laser Weld Ins"), QStringLiteral("LaserWeld")}));
}

void RlLaserWeldDefineTest::operations_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("expected");
    const QStringList common{QStringLiteral("createTypeKey"), QStringLiteral("createSkeleton"),
                             QStringLiteral("createInsDescribe"), QStringLiteral("createPattern"),
                             QStringLiteral("createInsDefault")};
    const QStringList group{QStringLiteral("createTypeToGroup")};
    const QStringList full =
        common +
        QStringList{QStringLiteral("createPropertyWidget"), QStringLiteral("createInsertWidget")} +
        group;
    const QStringList typed{QStringLiteral("createData"), QStringLiteral("createInsertWidget"),
                            QStringLiteral("createPropertyWidget")};
    const QList<QStringList> forms{full,           full, full,  common + group, common + group,
                                   common + group, full, typed, typed,          typed};
    for (int index = 0; index < allKeys().size(); ++index)
        QTest::newRow(qPrintable(allKeys().at(index))) << allKeys().at(index) << forms.at(index);
}

void RlLaserWeldDefineTest::operations()
{
    QFETCH(QString, key);
    const Recorder recorder;
    const RlLaserWeldDefine define(nullptr);
    QTEST(recorder.of(key), "expected");
}

void RlLaserWeldDefineTest::notInterleaved()
{
    const Recorder recorder;
    const RlLaserWeldDefine define(nullptr);
    QStringList expected;
    const QStringList keys = allKeys();
    for (const QString& key : keys)
        expected << recorder.of(key);
    expected << QStringLiteral("createGroups");
    QCOMPARE(recorder.operations, expected);
}

void RlLaserWeldDefineTest::texts_data()
{
    QTest::addColumn<QString>("skeleton");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("defaultText");
    const auto row = [](const char* key, const char* skeleton, const char* description,
                        const char* pattern, const char* defaultText) {
        QTest::newRow(key) << latin(skeleton) << latin(description) << latin(pattern)
                           << latin(defaultText);
    };
    row("LaserOn", "LaserOn;",
        "Welding start instruction\n1. LaserOn(\"LsDatax\"), normal\n"
        "2. LaserOn(\"LsDatax\", Time), spot weld",
        "^\\s*LaserOn\\(\\s*\\\"([^\\\"]+)\\\"\\s*(?:,\\s*"
        "((?:0|[1-9]\\d{0,2}|[1-4]\\d{3}|5000))\\s*)?\\);\\s*(?://.*)?$",
        "LaserOn(\"LsData1\");");
    row("LaserOff", "LaserOff();", "Welding end instruction\nLaserOff(), no parameters",
        "^\\s*LaserOff\\s*(?://.*)?$", "LaserOff();");
    row("LsParaSet", "LsParaSet;",
        "Parameter switch instruction\n1. LsParaSet(\"LsData1\"), no ramp\n"
        "2. LsParaSet(\"LsData1\", \"Time\", value), time ramp\n"
        "3. LsParaSet(\"LsData1\", \"Pos\"), position ramp",
        "^\\s*LsParaSet\\s*(?://.*)?$", "LsParaSet(\"LsData1\");");
    row("LsWireFwd",
        "LsWireFwd($Wire feed speed [1-100](mm/s):#spn#1,100#true$, "
        "$Wire feed time [1-10000](ms):#spn#1,10000#true$);",
        "Wire feed instruction\nLsWireFwd(speed, time)",
        "^\\s*LsWireFwd\\((\\s*(?:-?\\d+)\\s*),(\\s*(?:-?\\d+)\\s*)\\);\\s*(?://.*)?$",
        "LsWireFwd(50,1000);");
    row("LsWireBwd",
        "LsWireBwd($Wire feed back speed [1-100](mm/s):#spn#1,100#true$, "
        "$Wire feed back time [1-10000](ms):#spn#1,10000#true$);",
        "Wire retract instruction\nLsWireBwd(speed, time)",
        "^\\s*LsWireBwd\\((\\s*(?:-?\\d+)\\s*),(\\s*(?:-?\\d+)\\s*)\\);\\s*(?://.*)?$",
        "LsWireBwd(50,1000);");
    row("LsParaMatch",
        "LsParaMatch($Sched:#cmb#\"PowerData1\"/\"PowerData2\"/\"PowerData3\"/\"PowerData4\"/"
        "\"PowerData5\"/\"PowerData6\"/\"PowerData7\"/\"PowerData8\"/\"PowerData9\"/"
        "\"PowerData10\"#true$);",
        "Parameter match enable instruction\nLsParaMatch(\"PowerDatax\")",
        "^\\s*LsParaMatch\\(\\s*\\\"([^\\\"]+)\\\"\\s*\\);\\s*(?://.*)?$",
        "LsParaMatch(\"PowerData1\");");
    row("LsParaMatchOff", "LsParaMatchOff();",
        "Parameter match disable instruction\nLsParaMatchOff(), no parameters",
        "^\\s*LsParaMatchOff\\s*(?://.*)?$", "LsParaMatchOff();");
}

void RlLaserWeldDefineTest::texts()
{
    const RlLaserWeldDefine define(nullptr);
    const RlInstruction& instruction = registered(latin(QTest::currentDataTag()));
    QTEST(instruction.skeleton, "skeleton");
    QTEST(instruction.description, "description");
    QTEST(instruction.pattern, "pattern");
    QTEST(instruction.defaultText, "defaultText");
    QVERIFY(!instruction.command);
}

void RlLaserWeldDefineTest::withoutEditors_data()
{
    QTest::addColumn<QString>("key");
    for (int index = 3; index < 6; ++index)
        QTest::newRow(qPrintable(allKeys().at(index))) << allKeys().at(index);
}

void RlLaserWeldDefineTest::withoutEditors()
{
    QFETCH(QString, key);
    const RlLaserWeldDefine define(nullptr);
    QVERIFY(!registered(key).insertEditor);
    QVERIFY(!registered(key).propertyEditor);
}

void RlLaserWeldDefineTest::typed_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QStringList>("fields");
    const QStringList motion{QStringLiteral("speed 5"), QStringLiteral("zone 6"),
                             QStringLiteral("tool 7"), QStringLiteral("wobj 8")};
    QTest::newRow("LsMoveL") << QStringLiteral("Linear welding motion instruction\n\n"
                                               "LsMoveL(Pos, Speed, Zone, Tool, Wobj);")
                             << QStringList{QStringLiteral("Pos 3")} + motion;
    QTest::newRow("LsMoveC") << QStringLiteral("Arc welding motion instruction\n\n"
                                               "LsMoveC(MidPos, Pos, Speed, Zone, Tool, Wobj);")
                             << QStringList{QStringLiteral("midPos 3"), QStringLiteral("Pos 3")} +
                                    motion;
    QTest::newRow("LsMoveCF")
        << QStringLiteral("Full circle welding motion instruction\n\n"
                          "LsMoveCF(Aux1, Aux2, RunDeg, \"RotType\", Speed, Zone, Tool, Wobj);")
        << QStringList{QStringLiteral("auxPos1 3"), QStringLiteral("auxPos2 3"),
                       QStringLiteral("runDeg 1"), QStringLiteral("rotType 2")} +
               motion;
}

void RlLaserWeldDefineTest::typed()
{
    QFETCH(QStringList, fields);
    const QString key = latin(QTest::currentDataTag());
    const RlLaserWeldDefine define(nullptr);
    const auto& command = registered(key).command;
    QVERIFY(command);
    QCOMPARE(command->name, key);
    QTEST(command->description, "description");
    QCOMPARE(command->skeleton, key + QLatin1Char(';'));
    QVERIFY(!command->flag);
    QCOMPARE(fieldTexts(command->fields), fields);
}

void RlLaserWeldDefineTest::dataFactories_data()
{
    QTest::addColumn<QStringList>("classes");
    for (const char* key : {"LsMoveL", "LsMoveC", "LsMoveCF"}) {
        const QString motion = latin(key).replace(QStringLiteral("Ls"), QStringLiteral("W"));
        QTest::newRow(key) << QStringList{motion + QStringLiteral("InsertWidget"),
                                          motion + QStringLiteral("PropertyWidget")};
    }
}

// Those that come with the typed arguments, before the two by themselves.
void RlLaserWeldDefineTest::dataFactories()
{
    const QString key = latin(QTest::currentDataTag());
    const ScriptedHost host;
    QStringList classes;
    RlRegistry::instance().observer = [&](const char* operation, const QStringList& texts) {
        if (latin(operation) != QLatin1String("createInsertWidget") || texts.first() != key)
            return;
        for (const auto& factory : {registered(key).insertEditor, registered(key).propertyEditor})
            classes << latin(made(factory)->metaObject()->className());
    };
    const RlLaserWeldDefine define(nullptr);
    RlRegistry::instance().observer = nullptr;
    QTEST(classes, "classes");
}

void RlLaserWeldDefineTest::editors_data()
{
    QTest::addColumn<QString>("insert");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("insName");
    const QString laserOn = QStringLiteral("qelplugin::RLLaserOnInsertWidget");
    const QString paraSet = QStringLiteral("qelplugin::RLParaSetInsertWidget");
    const QString fixed = QStringLiteral("qelplugin::RLContentBase");
    const auto row = [](const char* key, const QString& insert, const QString& property,
                        const char* insName) {
        QTest::newRow(key) << insert << property << latin(insName);
    };
    row("LaserOn", laserOn, laserOn, "LaserOn");
    row("LaserOff", fixed, fixed, "");
    row("LsParaSet", paraSet, paraSet, "LsParaSet");
    row("LsParaMatchOff", fixed, fixed, "");
    row("LsMoveL", latin("WMoveLInsertWidget"), latin("WMoveLPropertyWidget"), "");
    row("LsMoveC", latin("WMoveCInsertWidget"), latin("WMoveCPropertyWidget"), "");
    row("LsMoveCF", latin("WMoveCFInsertWidget"), latin("WMoveCFPropertyWidget"), "");
}

void RlLaserWeldDefineTest::editors()
{
    const ScriptedHost host;
    const RlLaserWeldDefine define(nullptr);
    const RlInstruction& instruction = registered(latin(QTest::currentDataTag()));
    const auto insert = made(instruction.insertEditor);
    const auto property = made(instruction.propertyEditor);
    QTEST(latin(insert->metaObject()->className()), "insert");
    QTEST(latin(property->metaObject()->className()), "property");
    QTEST(EditorTest::keyOf(*insert), "insName");
    QTEST(EditorTest::keyOf(*property), "insName");
    QVERIFY(!insert->parent());
    QVERIFY(!property->parent());
    QVERIFY(made(instruction.insertEditor) != insert);
}

void RlLaserWeldDefineTest::fixedLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("LaserOff") << QStringLiteral("LaserOff();");
    QTest::newRow("LsParaMatchOff") << QStringLiteral("LsParaMatchOff();");
}

void RlLaserWeldDefineTest::fixedLines()
{
    ScriptedHost host;
    host.level = 0;
    EditorTest::ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const RlLaserWeldDefine define(nullptr);
    const RlInstruction& instruction = registered(latin(QTest::currentDataTag()));
    for (const auto& factory : {instruction.insertEditor, instruction.propertyEditor}) {
        const auto editor = made(factory);
        editor->FillWith(QStringLiteral("something(else);"));
        QTEST(editor->BuildText(), "line");
        QVERIFY(editor->CheckInsert());
        QVERIFY(editor->CheckReplace());
        // No meta-object of its own.
        QCOMPARE(editor->metaObject(), &RLContentBase::staticMetaObject);
        const auto* layout = qobject_cast<QVBoxLayout*>(editor->layout());
        QVERIFY(layout);
        QCOMPARE(layout->count(), 2);
        const auto* label = qobject_cast<QLabel*>(layout->itemAt(0)->widget());
        QVERIFY(label);
        QCOMPARE(label->text(), QStringLiteral("No parameters."));
        QCOMPARE(layout->itemAt(0)->alignment(), Qt::AlignHCenter);
        QCOMPARE(label->alignment(), Qt::AlignHCenter);
        QVERIFY(layout->itemAt(1)->spacerItem());
    }
    QCoreApplication::removeTranslator(&translator);
}

void RlLaserWeldDefineTest::defaultThroughEditor_data()
{
    QTest::addColumn<QString>("key");
    for (const int index : {0, 1, 2, 6})
        QTest::newRow(qPrintable(allKeys().at(index))) << allKeys().at(index);
}

void RlLaserWeldDefineTest::defaultThroughEditor()
{
    QFETCH(QString, key);
    const RlLaserWeldDefine define(nullptr);
    const RlInstruction& instruction = registered(key);
    QCOMPARE(made(instruction.insertEditor)->BuildText(), instruction.defaultText);
    const auto editor = made(instruction.propertyEditor);
    editor->FillWith(instruction.defaultText);
    QCOMPARE(editor->BuildText(), instruction.defaultText);
}

void RlLaserWeldDefineTest::patterns_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("doesMatch");
    const auto row = [](const char* key, const char* line, bool doesMatch) {
        QTest::newRow(line) << latin(key) << latin(line) << doesMatch;
    };
    // Without its parentheses only.
    for (const int index : {1, 2, 6}) {
        const QByteArray key = allKeys().at(index).toLatin1();
        row(key, key, true);
        row(key, "  " + key + "\t ", true);
        row(key, key + " // comment", true);
        row(key, key + "//", true);
        row(key, key + "();", false);
        row(key, key + ";", false);
        row(key, key + "()", false);
        row(key, key + " comment", false);
        row(key, key.toLower(), false);
    }
    row("LsParaSet", "LsParaSet(\"LsData1\");", false);
    // The second argument goes from 0 to 5000 without leading zeros.
    for (const char* wait : {"0", "1", "10", "999", "1000", "4999", "5000"})
        row("LaserOn", QByteArray("LaserOn(\"LsData1\", ") + wait + ");", true);
    for (const char* wait : {"5001", "007", "00", "-1", "Time", "9999", "10000", "1.5", ""})
        row("LaserOn", QByteArray("LaserOn(\"LsData1\", ") + wait + ");", false);
    row("LaserOn", "LaserOn(\"LsData1\");", true);
    row("LaserOn", " LaserOn( \"any text, at (all)\" , 7 ); // on", true);
    row("LaserOn", "LaserOn(\"\");", false);
    row("LaserOn", "LaserOn(LsData1);", false);
    row("LaserOn", "LaserOn(\"LsData1\")", false);
    row("LaserOn", "LaserOn(\"LsData1\"); on", false);
    row("LaserOn", "LaserOn (\"LsData1\");", false);
    row("LaserOn", "LaserOn;", false);
    for (const char* key : {"LsWireFwd", "LsWireBwd"}) {
        const QByteArray call = key;
        row(key, call + "(50,1000);", true);
        row(key, call + "( 50 , 1000 ); // feed", true);
        row(key, call + "(-5,99999999);", true);
        row(key, call + "(50,1000)", false);
        row(key, call + "(50);", false);
        row(key, call + "(50,1000,1);", false);
        row(key, call + "(5.5,1000);", false);
        row(key, call + "(- 5,1000);", false);
        row(key, call + "(,1000);", false);
    }
    row("LsParaMatch", "LsParaMatch(\"PowerData1\");", true);
    row("LsParaMatch", "LsParaMatch( \"anything\" );//on", true);
    row("LsParaMatch", "LsParaMatch(PowerData1);", false);
    row("LsParaMatch", "LsParaMatch(\"PowerData1\")", false);
    row("LsParaMatch", "LsParaMatch(\"\");", false);
}

void RlLaserWeldDefineTest::patterns()
{
    QFETCH(QString, key);
    QFETCH(QString, line);
    const RlLaserWeldDefine define(nullptr);
    const QRegularExpression pattern(registered(key).pattern);
    QVERIFY(pattern.isValid());
    QTEST(pattern.match(line).hasMatch(), "doesMatch");
}

// The host gets what the operator reads.
void RlLaserWeldDefineTest::translated()
{
    EditorTest::ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const RlLaserWeldDefine define(nullptr);
    QCoreApplication::removeTranslator(&translator);
    const QString context = QStringLiteral("RlLaserWeldDefine/");
    QCOMPARE(RlRegistry::instance().group(QStringLiteral("LaserWeld")).title,
             context + QStringLiteral("Laser Weld Ins"));
    const QStringList keys = allKeys();
    for (const QString& key : keys)
        QVERIFY2(registered(key).description.startsWith(context), qPrintable(key));
    QCOMPARE(registered(QStringLiteral("LsWireBwd")).skeleton,
             QStringLiteral("LsWireBwd($RlLaserWeldDefine/Wire feed back speed [1-100](mm/s):"
                            "#spn#1,100#true$, $RlLaserWeldDefine/Wire feed back time "
                            "[1-10000](ms):#spn#1,10000#true$);"));
    QVERIFY(registered(QStringLiteral("LsParaMatch"))
                .skeleton.startsWith(QStringLiteral("LsParaMatch($RlLaserWeldDefine/Sched:#cmb#")));
    QVERIFY(registered(QStringLiteral("LsMoveC"))
                .description.endsWith(
                    QStringLiteral("\n\nLsMoveC(MidPos, Pos, Speed, Zone, Tool, Wobj);")));
}

void RlLaserWeldDefineTest::outlivesTheObject()
{
    const ScriptedHost host;
    {
        QObject plugin;
        const RlLaserWeldDefine define(&plugin);
        QCOMPARE(plugin.children(), QObjectList{const_cast<RlLaserWeldDefine*>(&define)});
        QCOMPARE(define.children().size(), 1);
        QVERIFY(qobject_cast<qelplugin::RLManager*>(define.children().first()));
    }
    QCOMPARE(RlRegistry::instance().instructions.size(), allKeys().size());
    for (const RlInstruction& instruction : qAsConst(RlRegistry::instance().instructions)) {
        if (instruction.insertEditor)
            QVERIFY(made(instruction.insertEditor) && made(instruction.propertyEditor));
    }
}

void RlLaserWeldDefineTest::isAQObject()
{
    const QMetaObject& meta = RlLaserWeldDefine::staticMetaObject;
    QCOMPARE(latin(meta.className()), QStringLiteral("RlLaserWeldDefine"));
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount(), QObject::staticMetaObject.methodCount());
    QCOMPARE(meta.propertyCount(), QObject::staticMetaObject.propertyCount());
}

void RlLaserWeldDefineTest::saysNothing()
{
    const ScriptedHost host;
    const LogFolder log;
    const RlLaserWeldDefine define(nullptr);
    QCOMPARE(host.callNames(), QStringList());
    QCOMPARE(LogFolder::lines(), QStringList());
    QCOMPARE(LogFolder::lines(QStringLiteral("qellaserweld")), QStringList());
}

LASERWELD_TEST_MAIN(RlLaserWeldDefineTest)
#include "tst_rllaserwelddefine.moc"
