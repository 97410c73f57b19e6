#include "ScriptedHost.h"
#include "TestCase.h"

#include <memory>

using qelplugin::createPlugin;
using qelplugin::forgetPlugin;
using qelplugin::PluginBase;
using qelplugin::registeredPlugins;

namespace {

const QString Name = QStringLiteral("somePlugin");

void registerAs(const QString& name, const QString& made)
{
    qelPluginFactory().regist(name, [made](QObject* parent) {
        auto* plugin = new PluginBase(parent);
        plugin->setObjectName(made);
        return plugin;
    });
}

} // namespace

class TestPluginRegister : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void makesThePluginByItsName();
    void namesInTheirOrder();
    void secondFactoryReplacesTheFirst();
    void unknownName();
    void noFactory();
    void forgets();
    void releasesTheFactory();
    void copiesTheName();
    void isOneForTheProcess();
};

void TestPluginRegister::cleanup()
{
    const QStringList names = registeredPlugins();
    for (const QString& name : names)
        forgetPlugin(name);
    TestCase::cleanup();
}

void TestPluginRegister::makesThePluginByItsName()
{
    registerAs(Name, QStringLiteral("it"));
    registerAs(QStringLiteral("other"), QStringLiteral("not it"));
    QObject parent;
    const PluginBase* plugin = createPlugin(Name, &parent);
    QVERIFY(plugin);
    QCOMPARE(plugin->parent(), &parent);
    QCOMPARE(plugin->objectName(), QStringLiteral("it"));
}

void TestPluginRegister::namesInTheirOrder()
{
    const QStringList names{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("c")};
    for (const QString& name : names)
        registerAs(name, name);
    QCOMPARE(registeredPlugins(), names);
}

void TestPluginRegister::secondFactoryReplacesTheFirst()
{
    registerAs(Name, QStringLiteral("first"));
    registerAs(Name, QStringLiteral("second"));
    QCOMPARE(registeredPlugins(), QStringList{Name});
    const std::unique_ptr<PluginBase> plugin(createPlugin(Name, nullptr));
    QCOMPARE(plugin->objectName(), QStringLiteral("second"));
}

void TestPluginRegister::unknownName()
{
    registerAs(Name, Name);
    QVERIFY(!createPlugin(QStringLiteral("someplugin"), nullptr));
    QVERIFY(!forgetPlugin(QString()));
}

void TestPluginRegister::noFactory()
{
    qelPluginFactory().regist(Name, {});
    QVERIFY(!createPlugin(Name, nullptr));
}

void TestPluginRegister::forgets()
{
    registerAs(Name, Name);
    QVERIFY(forgetPlugin(Name));
    QVERIFY(!forgetPlugin(Name));
    QVERIFY(registeredPlugins().isEmpty());
    QVERIFY(!createPlugin(Name, nullptr));
}

// Nothing of the library may be called once it is forgotten.
void TestPluginRegister::releasesTheFactory()
{
    const auto held = std::make_shared<int>();
    qelPluginFactory().regist(Name, [held](QObject*) -> PluginBase* { return nullptr; });
    QCOMPARE(held.use_count(), 2L);
    forgetPlugin(Name);
    QCOMPARE(held.use_count(), 1L);
}

void TestPluginRegister::copiesTheName()
{
    QString memory(Name.constData(), Name.size());
    registerAs(QString::fromRawData(memory.constData(), memory.size()), Name);
    memory.fill(QLatin1Char('?'));
    QCOMPARE(registeredPlugins(), QStringList{Name});
}

void TestPluginRegister::isOneForTheProcess()
{
    QCOMPARE(&qelPluginFactory(), &qelPluginFactory());
    qelplugin::PluginRegister handle;
    handle.regist(Name, [](QObject* parent) { return new PluginBase(parent); });
    QCOMPARE(registeredPlugins(), QStringList{Name});
}

LASERWELD_CORE_TEST_MAIN(TestPluginRegister)
#include "tst_pluginregister.moc"
