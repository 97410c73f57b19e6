#include "ScriptedHost.h"
#include "TestCase.h"

#include <memory>

using qelplugin::PluginBase;

class TestPluginBase : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsTheHostOfItself();
    void operationsDoNothing();
    void belongsToItsParent();
};

void TestPluginBase::tellsTheHostOfItself()
{
    ScriptedHost host;
    PluginBase plugin(nullptr);
    QCOMPARE(host.callNames(), QStringList());
    plugin.setDefaultGlobalSheet(false);
    plugin.setPluginLabel(QStringLiteral("Laser Welding"));
    QCOMPARE(host.callNames(), (QStringList{QStringLiteral("setDefaultGlobalSheet"),
                                            QStringLiteral("setPluginLabel")}));
    QCOMPARE(host.lastArguments(QStringLiteral("setDefaultGlobalSheet")), QJsonArray{false});
    QCOMPARE(host.label, QStringLiteral("Laser Welding"));
}

void TestPluginBase::operationsDoNothing()
{
    const ScriptedHost host;
    PluginBase plugin(nullptr);
    plugin.init();
    plugin.afterInit();
    plugin.render();
    plugin.idle();
    plugin.detach();
    QCOMPARE(host.callNames(), QStringList());
}

void TestPluginBase::belongsToItsParent()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<PluginBase> plugin = new PluginBase(parent.get());
    parent.reset();
    QVERIFY(!plugin);
}

LASERWELD_CORE_TEST_MAIN(TestPluginBase)
#include "tst_pluginbase.moc"
