#include "PluginLoader.h"
#include "ScriptedHost.h"
#include "TestCase.h"
#include "rlregistry.h"

#include <QFile>
#include <QTemporaryDir>

using namespace pendant;

namespace {

QString folderOf(const char* library)
{
    return QStringLiteral(SHELL_LIBRARIES "/") + QLatin1String(library);
}

bool isMapped(const QByteArray& file)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(file);
}

} // namespace

class TestPluginLoader : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void refusals_data();
    void refusals();
    void aFolderThatIsMissingIsReported();
    void anEmptyFolderIsReported();
    void textFileNamedLikeALibrary();
    void aSoundPluginIsDrivenInOrder();
    void allPluginsAreMadeBeforeAnyIsStarted();
    void theSecondOfOneNameIsRefused();
    void oneBrokenLibraryDoesNotKeepTheOthersOut();
    void pluginsAreMadeAnewByTheirFactories();
    void oneThatIsNotMadeAnewIsReported();
    void unloadTakesEverythingBack();
    void aHundredTimes();
    void explanations_data();
    void explanations();
    void needs_data();
    void needs();

private:
    void copy(const char* library, const QString& folder, const char* as);
};

void TestPluginLoader::initTestCase()
{
    QVERIFY(QFile::exists(folderOf("good")));
}

void TestPluginLoader::copy(const char* library, const QString& folder, const char* as)
{
    QVERIFY(QFile::copy(folderOf(library) + QStringLiteral("/lib") + QLatin1String(library) +
                            QStringLiteral(".so"),
                        folder + QLatin1Char('/') + QLatin1String(as)));
}

void TestPluginLoader::refusals_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* library, const char* name, const char* reason) {
        QTest::newRow(library) << QString::fromLatin1(name) << QString::fromLatin1(reason);
    };
    row("noapi", "noapi", "no plugin: has no function qelplugin::api()");
    row("wrongapi", "wrongapi", "made for version 2 of the plugin interface, the pendant has 1");
    row("nofactory", "", "no factory: the library registers no plugin");
    row("nothing", "nothing", "its factory made no plugin");
    row("missingsymbol", "", "missing symbol: elsewhere::neverDefined(int)");
    row("needsqt6", "",
        "wrong Qt: needs Qt 6 (libQt6Core.so.6), the pendant runs with Qt " QT_VERSION_STR);
    row("newerqt", "", "wrong Qt: needs Qt 5.99, the pendant runs with Qt " QT_VERSION_STR);
}

void TestPluginLoader::refusals()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    ScriptedHost host;
    PluginLoader loader;
    loader.loadFolder(folderOf(QTest::currentDataTag()));
    QCOMPARE(loader.reports().size(), 1);
    const PluginReport report = loader.reports().first();
    QVERIFY(!report.loaded);
    QCOMPARE(report.name, name);
    QCOMPARE(report.file, QStringLiteral("lib%1.so").arg(QLatin1String(QTest::currentDataTag())));
    QCOMPARE(report.reason, reason);
    QVERIFY(loader.pluginNames().isEmpty());
    QVERIFY(qelplugin::registeredPlugins().isEmpty());
    QVERIFY(!isMapped(report.file.toLatin1()));
}

void TestPluginLoader::aFolderThatIsMissingIsReported()
{
    PluginLoader loader;
    loader.loadFolder(QStringLiteral("/nowhere/at/all"));
    QCOMPARE(loader.reports().size(), 1);
    QCOMPARE(loader.reports().first().file, QStringLiteral("/nowhere/at/all"));
    QCOMPARE(loader.reports().first().reason, QStringLiteral("the plugin folder does not exist"));
}

void TestPluginLoader::anEmptyFolderIsReported()
{
    const QTemporaryDir folder;
    PluginLoader loader;
    loader.loadFolder(folder.path());
    QCOMPARE(loader.reports().size(), 1);
    QCOMPARE(loader.reports().first().reason, QStringLiteral("the plugin folder holds no lib*.so"));
}

void TestPluginLoader::textFileNamedLikeALibrary()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("libtext.so")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("not a library at all\n");
    file.close();
    PluginLoader loader;
    loader.loadFolder(folder.path());
    QCOMPARE(loader.reports().size(), 1);
    QCOMPARE(loader.reports().first().reason, QStringLiteral("not a library"));
}

void TestPluginLoader::aSoundPluginIsDrivenInOrder()
{
    ScriptedHost host;
    {
        PluginLoader loader;
        loader.loadFolder(folderOf("good"));
        QCOMPARE(loader.pluginNames(), QStringList{QStringLiteral("good")});
        QVERIFY(loader.reports().first().reason.isEmpty());
        QCOMPARE(host.label, QStringLiteral("Label of good"));
        loader.start();
        QCOMPARE(host.messageTexts(), QStringList({QStringLiteral("0: init at level 3"),
                                                   QStringLiteral("0: afterInit at level 3"),
                                                   QStringLiteral("0: render at level 3")}));
        host.firstKeys.clear();
        host.secondKeys.clear();
        delete host.centerWidget;
        delete host.statusBarWidget;
    }
    QCOMPARE(host.messages.last().text, QStringLiteral("deleted at level 3"));
    QVERIFY(!isMapped("libgood.so"));
}

void TestPluginLoader::allPluginsAreMadeBeforeAnyIsStarted()
{
    const QTemporaryDir folder;
    copy("good", folder.path(), "libb.so");
    copy("other", folder.path(), "liba.so");
    ScriptedHost host;
    PluginLoader loader;
    loader.loadFolder(folder.path());
    QCOMPARE(loader.pluginNames(), QStringList({QStringLiteral("other"), QStringLiteral("good")}));
    QVERIFY(host.messages.isEmpty());
    loader.start();
    QCOMPARE(host.messages.size(), 6);
    QCOMPARE(host.messages.at(1).text, QStringLiteral("init at level 3"));
    QCOMPARE(host.messages.at(2).text, QStringLiteral("afterInit at level 3"));
    // The scripted host keeps the keys and the widgets of the last plugin only.
    host.firstKeys.clear();
    host.secondKeys.clear();
    qDeleteAll(QApplication::topLevelWidgets());
}

void TestPluginLoader::theSecondOfOneNameIsRefused()
{
    const QTemporaryDir folder;
    copy("good", folder.path(), "liba.so");
    copy("twin", folder.path(), "libb.so");
    ScriptedHost host;
    PluginLoader loader;
    loader.loadFolder(folder.path());
    QCOMPARE(loader.reports().size(), 2);
    QVERIFY(loader.reports().at(0).loaded);
    QCOMPARE(loader.reports().at(1).reason,
             QStringLiteral("another library has registered this name"));
    QVERIFY(!isMapped("libb.so"));
}

void TestPluginLoader::oneBrokenLibraryDoesNotKeepTheOthersOut()
{
    const QTemporaryDir folder;
    copy("missingsymbol", folder.path(), "liba.so");
    copy("good", folder.path(), "libb.so");
    copy("noapi", folder.path(), "libc.so");
    ScriptedHost host;
    PluginLoader loader;
    loader.loadFolder(folder.path());
    QCOMPARE(loader.reports().size(), 3);
    QCOMPARE(loader.pluginNames(), QStringList{QStringLiteral("good")});
}

// The libraries stay; each maker is told of before its plugin is made.
void TestPluginLoader::pluginsAreMadeAnewByTheirFactories()
{
    ScriptedHost host;
    PluginLoader loader;
    QStringList told;
    loader.setBeforeMaking([&](const QString& name) { told << name; });
    loader.loadFolder(folderOf("good"));
    loader.start();
    host.firstKeys.clear();
    host.secondKeys.clear();
    delete host.centerWidget;
    delete host.statusBarWidget;
    qelplugin::RlRegistry::instance().instruction(QStringLiteral("Ins"));
    loader.drop();
    QVERIFY(qelplugin::RlRegistry::instance().instructions.isEmpty());
    QVERIFY(isMapped("libgood.so"));
    host.messages.clear();
    loader.makeAnew();
    QCOMPARE(host.messageTexts(), QStringList({QStringLiteral("0: init at level 3"),
                                               QStringLiteral("0: afterInit at level 3"),
                                               QStringLiteral("0: render at level 3")}));
    QCOMPARE(told, QStringList({QStringLiteral("good"), QStringLiteral("good")}));
    QCOMPARE(loader.reports().size(), 1);
    host.firstKeys.clear();
    host.secondKeys.clear();
    delete host.centerWidget;
    delete host.statusBarWidget;
    loader.unload();
    QVERIFY(!isMapped("libgood.so"));
}

void TestPluginLoader::oneThatIsNotMadeAnewIsReported()
{
    const ScriptedHost host;
    PluginLoader loader;
    loader.loadFolder(folderOf("once"));
    QCOMPARE(loader.pluginNames(), QStringList{QStringLiteral("once")});
    for (int time = 0; time < 2; ++time) {
        loader.drop();
        loader.makeAnew();
        QVERIFY(loader.pluginNames().isEmpty());
        QCOMPARE(loader.reports().size(), 1);
        QCOMPARE(loader.reports().first().reason, QStringLiteral("its factory made no plugin"));
    }
}

void TestPluginLoader::unloadTakesEverythingBack()
{
    ScriptedHost host;
    PluginLoader loader;
    loader.loadFolder(folderOf("good"));
    qelplugin::RlRegistry::instance().instruction(QStringLiteral("Ins"));
    loader.unload();
    QVERIFY(loader.reports().isEmpty());
    QVERIFY(qelplugin::registeredPlugins().isEmpty());
    QVERIFY(qelplugin::RlRegistry::instance().instructions.isEmpty());
    QVERIFY(!isMapped("libgood.so"));
}

void TestPluginLoader::aHundredTimes()
{
    ScriptedHost host;
    for (int i = 0; i < 100; ++i) {
        PluginLoader loader;
        loader.loadFolder(folderOf("good"));
        QCOMPARE(loader.pluginNames().size(), 1);
    }
    QCOMPARE(host.messages.size(), 100);
}

void TestPluginLoader::explanations_data()
{
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("reason");
    const QString head = QStringLiteral("Cannot load library /p/libx.so: (");
    QTest::newRow("symbol of C") << head +
                                        QStringLiteral("/p/libx.so: undefined symbol: plain_name)")
                                 << QStringLiteral("missing symbol: plain_name");
    QTest::newRow("symbol with a version")
        << head + QStringLiteral("/p/libx.so: undefined symbol: _ZN1a1bEv, version V1)")
        << QStringLiteral("missing symbol: a::b()");
    QTest::newRow("private interface of another Qt")
        << head + QStringLiteral("/lib/libQt5Core.so.5: version `Qt_5.12.3_PRIVATE_API' not found "
                                 "(required by /p/libx.so))")
        << QStringLiteral("wrong Qt: needs Qt 5.12.3, the pendant runs with Qt " QT_VERSION_STR);
    QTest::newRow("library that is not there")
        << head + QStringLiteral("libgone.so.2: cannot open shared object file: No such file or "
                                 "directory)")
        << QStringLiteral("needs a library that is not there: libgone.so.2");
    QTest::newRow("anything else stays as it is")
        << QStringLiteral("quite another text") << QStringLiteral("quite another text");
}

void TestPluginLoader::explanations()
{
    QFETCH(QString, error);
    QFETCH(QString, reason);
    QCOMPARE(PluginLoader::explain(error), reason);
}

void TestPluginLoader::needs_data()
{
    QTest::addColumn<QString>("needed");
    QTest::addColumn<QString>("wanted");
    QTest::newRow("this Qt") << QStringLiteral("libQt5Core.so.5") << QString();
    QTest::newRow("no Qt") << QStringLiteral("libQtile.txt") << QString();
    QTest::newRow("Qt 6") << QStringLiteral("libQt6Gui.so.6") << QStringLiteral("Qt 6");
    QTest::newRow("Qt 4") << QStringLiteral("libQtCore.so.4") << QStringLiteral("Qt 4");
    QTest::newRow("Qt 10") << QStringLiteral("libQt10Core.so.10") << QStringLiteral("Qt 10");
}

void TestPluginLoader::needs()
{
    QFETCH(QString, needed);
    QFETCH(QString, wanted);
    const QString reason = PluginLoader::refuseNeeds({QStringLiteral("libc.so.6"), needed});
    if (wanted.isEmpty())
        QCOMPARE(reason, QString());
    else
        QVERIFY2(reason.startsWith(QStringLiteral("wrong Qt: needs %1 (").arg(wanted)),
                 qPrintable(reason));
}

LASERWELD_TEST_MAIN(TestPluginLoader)
#include "tst_pluginloader.moc"
