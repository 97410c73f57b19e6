#include "TestCase.h"
#include "qelplugin.h"
#include "rlregistry.h"

#include <QApplication>

#include <functional>
#include <memory>

using qelplugin::RLContentBase;
using qelplugin::RlCustomCommandSpec;
using qelplugin::RlCustomField;
using qelplugin::RlInstruction;
using qelplugin::RLManager;
using qelplugin::RlRegistry;

namespace {

using Operation = std::function<void(RLManager&)>;
using Reader = std::function<QString(const RlInstruction&)>;

const QString Key = QStringLiteral("LaserOn");

/// A factory of editors of that name.
RLManager::Factory editor(const char* name)
{
    return [name] {
        auto* made = new RLContentBase(nullptr);
        made->setObjectName(QLatin1String(name));
        return made;
    };
}

QString nameOfEditor(const RLManager::Factory& factory)
{
    const std::unique_ptr<RLContentBase> made(factory());
    return made->objectName();
}

RlCustomCommandSpec command()
{
    RlCustomCommandSpec spec;
    spec.name = QStringLiteral("LsMoveL");
    spec.description = QStringLiteral("what it is for");
    spec.skeleton = QStringLiteral("LsMoveL;");
    spec.fields << RlCustomField(QStringLiteral("Pos"), qelplugin::RobTarget,
                                 static_cast<qelplugin::ArgRuleTypeAPI>(0))
                << RlCustomField(QStringLiteral("speed"), qelplugin::Speed,
                                 static_cast<qelplugin::ArgRuleTypeAPI>(0));
    return spec;
}

} // namespace

Q_DECLARE_METATYPE(Operation)
Q_DECLARE_METATYPE(Reader)

class TestRLManager : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void stores_data();
    void stores();
    void oneRecordPerKey();
    void typedInstruction();
    void group();
    void outlivesTheManager();
    void clear();
    void observer();
    void fieldKinds();
    void newSpec();
};

void TestRLManager::cleanup()
{
    RlRegistry::instance().observer = nullptr;
    RlRegistry::instance().clear();
    TestCase::cleanup();
}

void TestRLManager::stores_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<Reader>("reader");
    QTest::addColumn<QString>("expected");

    const QString text = QStringLiteral("some text");
    const auto row = [](const char* name, const Operation& operation, const Reader& reader,
                        const QString& expected) {
        QTest::newRow(name) << operation << reader << expected;
    };
    row(
        "key", [](RLManager& manager) { manager.createTypeKey(Key); },
        [](const RlInstruction& it) { return it.key; }, Key);
    row(
        "skeleton", [=](RLManager& manager) { manager.createSkeleton(Key, text); },
        [](const RlInstruction& it) { return it.skeleton; }, text);
    row(
        "description", [=](RLManager& manager) { manager.createInsDescribe(Key, text); },
        [](const RlInstruction& it) { return it.description; }, text);
    row(
        "pattern", [=](RLManager& manager) { manager.createPattern(Key, text); },
        [](const RlInstruction& it) { return it.pattern; }, text);
    row(
        "default", [=](RLManager& manager) { manager.createInsDefault(Key, text); },
        [](const RlInstruction& it) { return it.defaultText; }, text);
    row(
        "group", [=](RLManager& manager) { manager.createTypeToGroup(text, Key); },
        [](const RlInstruction& it) { return it.group; }, text);
    row(
        "editor for a new one",
        [](RLManager& manager) { manager.createInsertWidget(Key, editor("insert")); },
        [](const RlInstruction& it) { return nameOfEditor(it.insertEditor); },
        QStringLiteral("insert"));
    row(
        "editor of a line",
        [](RLManager& manager) { manager.createPropertyWidget(Key, editor("property")); },
        [](const RlInstruction& it) { return nameOfEditor(it.propertyEditor); },
        QStringLiteral("property"));
}

void TestRLManager::stores()
{
    QFETCH(Operation, operation);
    QFETCH(Reader, reader);
    QFETCH(QString, expected);
    RLManager manager(nullptr);
    operation(manager);
    QCOMPARE(RlRegistry::instance().instructions.size(), 1);
    const RlInstruction& instruction = RlRegistry::instance().instructions.first();
    QCOMPARE(instruction.key, Key);
    QCOMPARE(reader(instruction), expected);
    QVERIFY(!instruction.command);
}

void TestRLManager::oneRecordPerKey()
{
    RLManager manager(nullptr);
    manager.createTypeKey(Key);
    manager.createTypeKey(QStringLiteral("LaserOff"));
    manager.createSkeleton(Key, QStringLiteral("first"));
    manager.createSkeleton(Key, QStringLiteral("second"));
    const auto& instructions = RlRegistry::instance().instructions;
    QCOMPARE(instructions.size(), 2);
    QCOMPARE(instructions.at(0).skeleton, QStringLiteral("second"));
    QCOMPARE(instructions.at(1).key, QStringLiteral("LaserOff"));
}

void TestRLManager::typedInstruction()
{
    RLManager manager(nullptr);
    manager.createData(QStringLiteral("group"), command(), editor("insert"), editor("property"));
    const RlInstruction& instruction = RlRegistry::instance().instructions.first();
    QCOMPARE(instruction.key, QStringLiteral("LsMoveL"));
    QCOMPARE(instruction.group, QStringLiteral("group"));
    QCOMPARE(instruction.skeleton, QStringLiteral("LsMoveL;"));
    QCOMPARE(instruction.description, QStringLiteral("what it is for"));
    QCOMPARE(nameOfEditor(instruction.insertEditor), QStringLiteral("insert"));
    QCOMPARE(nameOfEditor(instruction.propertyEditor), QStringLiteral("property"));
    QVERIFY(instruction.command);
    const auto& fields = instruction.command->fields;
    QCOMPARE(fields.size(), 2);
    QCOMPARE(fields.at(0).name, QStringLiteral("Pos"));
    QCOMPARE(fields.at(1).kind, qelplugin::Speed);
    QCOMPARE(static_cast<int>(fields.at(1).rule), 0);
}

void TestRLManager::group()
{
    RLManager manager(nullptr);
    manager.createGroups(QStringLiteral("Laser"), QStringLiteral("laser"));
    manager.createGroups(QStringLiteral("Laser welding"), QStringLiteral("laser"));
    const auto& groups = RlRegistry::instance().groups;
    QCOMPARE(groups.size(), 1);
    QCOMPARE(groups.first().key, QStringLiteral("laser"));
    QCOMPARE(groups.first().title, QStringLiteral("Laser welding"));
}

void TestRLManager::outlivesTheManager()
{
    auto parent = std::make_unique<QObject>();
    auto* manager = new RLManager(parent.get());
    manager->createInsertWidget(Key, editor("insert"));
    manager->createGroups(QStringLiteral("Laser"), QStringLiteral("laser"));
    parent.reset();
    QCOMPARE(nameOfEditor(RlRegistry::instance().instruction(Key).insertEditor),
             QStringLiteral("insert"));
    QCOMPARE(RlRegistry::instance().groups.size(), 1);
}

// With the factories goes all that they hold.
void TestRLManager::observer()
{
    QStringList told;
    bool wasThere = true;
    RlRegistry::instance().observer = [&](const char* operation, const QStringList& texts) {
        told << QLatin1String(operation) + QLatin1Char(' ') + texts.join(QLatin1Char('|'));
        wasThere = !RlRegistry::instance().instructions.isEmpty();
    };
    RLManager manager(nullptr);
    manager.createTypeKey(Key);
    QVERIFY(!wasThere);
    manager.createTypeToGroup(QStringLiteral("group"), Key);
    manager.createGroups(QStringLiteral("title"), QStringLiteral("group"));
    manager.createData(QStringLiteral("group"), command(), editor("a"), editor("b"));
    QCOMPARE(told, (QStringList{QStringLiteral("createTypeKey LaserOn"),
                                QStringLiteral("createTypeToGroup group|LaserOn"),
                                QStringLiteral("createGroups title|group"),
                                QStringLiteral("createData group|LsMoveL")}));
}

void TestRLManager::clear()
{
    const auto held = std::make_shared<int>();
    RLManager manager(nullptr);
    manager.createInsertWidget(Key, [held] { return new RLContentBase(nullptr); });
    manager.createGroups(QStringLiteral("Laser"), QStringLiteral("laser"));
    QCOMPARE(held.use_count(), 2L);
    RlRegistry::instance().clear();
    QCOMPARE(held.use_count(), 1L);
    QVERIFY(RlRegistry::instance().instructions.isEmpty());
    QVERIFY(RlRegistry::instance().groups.isEmpty());
}

void TestRLManager::fieldKinds()
{
    QCOMPARE(static_cast<int>(qelplugin::Number), 1);
    QCOMPARE(static_cast<int>(qelplugin::Text), 2);
    QCOMPARE(static_cast<int>(qelplugin::RobTarget), 3);
    QCOMPARE(static_cast<int>(qelplugin::Speed), 5);
    QCOMPARE(static_cast<int>(qelplugin::Zone), 6);
    QCOMPARE(static_cast<int>(qelplugin::Tool), 7);
    QCOMPARE(static_cast<int>(qelplugin::Wobj), 8);
}

void TestRLManager::newSpec()
{
    const RlCustomCommandSpec spec;
    QVERIFY(!spec.flag);
    QVERIFY(spec.name.isNull());
    QVERIFY(spec.fields.isEmpty());
}

LASERWELD_TEST_MAIN(TestRLManager)
#include "tst_rlmanager.moc"
