#include "Application.h"
#include "FaultTable.h"
#include "Options.h"
#include "TestCase.h"

#include <QDir>
#include <QTemporaryDir>

using namespace pendant;

namespace {

std::optional<Options> parse(const QStringList& arguments, QString* error)
{
    return parseOptions(QStringList{QStringLiteral("pendant")} + arguments, error);
}

using Check = bool (*)(const Options&);

} // namespace

Q_DECLARE_METATYPE(Check)

class TestCommandLine : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void understood_data();
    void understood();
    void refused_data();
    void refused();
    void everyFaultHasAName();
    void faultsAddUp();
    void helpTellsAll();
    void missingPathsAreFilled();
    void givenPathsBecomeAbsolute();
    void pluginFolderOfABuild();
    void pluginFolderOfAnInstallation();
};

void TestCommandLine::defaults()
{
    QString error;
    const auto options = parse({}, &error);
    QVERIFY(options);
    QCOMPARE(options->userLevel, 0);
    QCOMPARE(options->dpi, 0);
    QCOMPARE(options->zoom, 1.0);
    QCOMPARE(options->cellSize.ports, 128);
    QCOMPARE(options->cellSize.registers, 160);
    QVERIFY(options->windowSize.isEmpty());
    QVERIFY(!options->powered && !options->disconnected && !options->help);
    QCOMPARE(options->trackingDelay, 0);
    QVERIFY(options->language == Language::English);
    QVERIFY(options->shade == Theme::Shade::Light);
    QVERIFY(!anyFault(options->faults));
}

void TestCommandLine::understood_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<Check>("check");
    const auto row = [](const char* arguments, Check check) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << check;
    };
    row("--plugins p", [](const Options& o) { return o.pluginFolder == QLatin1String("p"); });
    row("--cell c.sqlite",
        [](const Options& o) { return o.cellFile == QLatin1String("c.sqlite"); });
    row("--home h", [](const Options& o) { return o.home == QLatin1String("h"); });
    row("--tour t", [](const Options& o) { return o.tourFolder == QLatin1String("t"); });
    row("--level 0", [](const Options& o) { return o.userLevel == 0; });
    row("--level=4", [](const Options& o) { return o.userLevel == 4; });
    row("--ports 10000", [](const Options& o) { return o.cellSize.ports == 10000; });
    row("--registers 0", [](const Options& o) { return o.cellSize.registers == 0; });
    row("--dpi 144", [](const Options& o) { return o.dpi == 144; });
    row("--zoom 1.25", [](const Options& o) { return o.zoom == 1.25; });
    row("--language zh", [](const Options& o) { return o.language == Language::Chinese; });
    row("--language en", [](const Options& o) { return o.language == Language::English; });
    row("--theme dark", [](const Options& o) { return o.shade == Theme::Shade::Dark; });
    row("--theme light", [](const Options& o) { return o.shade == Theme::Shade::Light; });
    row("--size 800x600", [](const Options& o) { return o.windowSize == QSize(800, 600); });
    row("--tracking now", [](const Options& o) { return o.trackingDelay == 0; });
    row("--tracking never", [](const Options& o) { return o.trackingDelay < 0; });
    row("--tracking 3", [](const Options& o) { return o.trackingDelay == 3; });
    row("--powered", [](const Options& o) { return o.powered; });
    row("--disconnected", [](const Options& o) { return o.disconnected; });
    row("--help", [](const Options& o) { return o.help; });
    row("--version", [](const Options& o) { return o.version; });
    row("--fault empty-reply", [](const Options& o) { return o.faults.emptyReply; });
    row("--fault foreign-reply", [](const Options& o) { return o.faults.foreignReply; });
    row("--fault missing-return", [](const Options& o) { return o.faults.missingReturn; });
    row("--fault wrong-types", [](const Options& o) { return o.faults.wrongTypes; });
    row("--fault registers-no-array", [](const Options& o) { return o.faults.registersNoArray; });
    row("--fault register-keys", [](const Options& o) { return o.faults.registerOtherKeys; });
    row("--fault register-metadata",
        [](const Options& o) { return o.faults.registersUndescribed; });
    row("--fault register-numbers", [](const Options& o) { return o.faults.registerNumberNames; });
    row("--fault port-gone", [](const Options& o) { return o.faults.firstPortGone; });
    row("--fault return-code", [](const Options& o) { return o.faults.returnCode != 0; });
    row("--fault return-code=-7", [](const Options& o) { return o.faults.returnCode == -7; });
    row("--fault no-reply", [](const Options& o) { return o.faults.noReply; });
    row("--fault lost-before", [](const Options& o) { return o.faults.lostBefore; });
    row("--fault lost-after", [](const Options& o) { return o.faults.lostAfter; });
    row("--fault element-types", [](const Options& o) { return o.faults.elementTypes; });
    row("--fault return-value", [](const Options& o) { return o.faults.returnValue == 1; });
    row("--fault return-value=object", [](const Options& o) { return o.faults.returnValue == 11; });
    row("--fault reply-delay=250", [](const Options& o) { return o.faults.replyDelay == 250; });
}

void TestCommandLine::understood()
{
    QFETCH(QString, arguments);
    QFETCH(Check, check);
    QString error;
    const auto options = parse(arguments.split(QLatin1Char(' ')), &error);
    QVERIFY2(options, qPrintable(error));
    QVERIFY(check(*options));
}

void TestCommandLine::refused_data()
{
    QTest::addColumn<QString>("part");
    const auto row = [](const char* arguments, const char* part) {
        QTest::newRow(arguments) << QString::fromLatin1(part);
    };
    row("--nonsense", "nonsense");
    row("stray", "unexpected argument: stray");
    row("--level 5", "--level 5: takes a number from 0 to 4");
    row("--level -1", "--level -1: takes a number from 0 to 4");
    row("--level three", "takes a number from 0 to 4");
    row("--level", "level");
    row("--plugins=", "takes a path");
    row("--ports -1", "takes a number");
    row("--dpi 100", "takes 96, 144 or 192");
    row("--zoom 0.5", "takes a number from 0.75 to 3");
    row("--language de", "takes en or zh");
    row("--theme blue", "takes light or dark");
    row("--zoom nan", "takes a number from 0.75 to 3");
    row("--size 1024", "takes a size in pixels");
    row("--size 10x10", "takes a size in pixels");
    row("--size 1024x768x2", "takes a size in pixels");
    row("--tracking later", "--tracking later: takes now, never or a number of seconds");
    row("--tracking -1", "takes now, never or a number of seconds from 0 to 3600");
    row("--tracking 3601", "takes now, never or a number of seconds");
    row("--fault unknown", "there is no fault \"unknown\"; there are: no-reply, ");
    row("--fault return-value=5", "takes one of null, true, false, text-0, ");
    row("--fault empty-reply=1", "takes no value");
    row("--fault reply-delay=soon", "takes a number from 0 to 60000, not \"soon\"");
    row("--fault reply-delay=60001", "takes a number from 0 to 60000");
    row("--powered=yes", "powered");
}

void TestCommandLine::refused()
{
    QFETCH(QString, part);
    QString error;
    const QString arguments = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(!parse(arguments.split(QLatin1Char(' ')), &error));
    QVERIFY2(error.contains(part), qPrintable(error));
}

void TestCommandLine::everyFaultHasAName()
{
    for (const FaultRow& row : faultRows()) {
        QVERIFY((row.flag != nullptr) != (row.number != nullptr));
        Faults faults;
        QCOMPARE(applyFault(QString::fromLatin1(row.name), &faults), QString());
        QVERIFY(anyFault(faults));
    }
    QStringList names = faultNames();
    QCOMPARE(names.removeDuplicates(), 0);
}

void TestCommandLine::faultsAddUp()
{
    QString error;
    const auto options = parse({QStringLiteral("--fault"), QStringLiteral("empty-reply"),
                                QStringLiteral("--fault"), QStringLiteral("reply-delay=5")},
                               &error);
    QVERIFY(options);
    QVERIFY(options->faults.emptyReply);
    QCOMPARE(options->faults.replyDelay, 5);
}

void TestCommandLine::helpTellsAll()
{
    const QString help = helpText();
    for (const char* name : {"plugins", "cell", "home", "level", "ports", "registers", "tour",
                             "dpi", "zoom", "language", "theme", "size", "tracking", "powered",
                             "disconnected", "fault", "help", "version"})
        QVERIFY2(help.contains(QStringLiteral("\n  --") + QLatin1String(name)), name);
    const QStringList faults = faultNames();
    for (const QString& name : faults)
        QVERIFY2(help.contains(QStringLiteral("\n  ") + name), qPrintable(name));
    const QStringList lines = help.split(QLatin1Char('\n'));
    for (const QString& line : lines)
        QVERIFY2(line.size() <= 100, qPrintable(line));
}

void TestCommandLine::missingPathsAreFilled()
{
    const QTemporaryDir folder;
    const QString data = folder.filePath(QStringLiteral("data"));
    Options options;
    fillPaths(&options, data);
    QCOMPARE(options.cellFile, data + QStringLiteral("/cell.sqlite"));
    QCOMPARE(options.home, data);
    QVERIFY(QDir(data).exists());
    QVERIFY(QDir::isAbsolutePath(options.pluginFolder));
    QVERIFY(options.tourFolder.isEmpty());
}

void TestCommandLine::givenPathsBecomeAbsolute()
{
    const QTemporaryDir folder;
    Options options;
    options.cellFile = folder.filePath(QStringLiteral("a/../b/cell.sqlite"));
    options.tourFolder = QStringLiteral("tour");
    fillPaths(&options, folder.path());
    QCOMPARE(options.cellFile, folder.filePath(QStringLiteral("b/cell.sqlite")));
    QVERIFY(QDir(folder.filePath(QStringLiteral("b"))).exists());
    QCOMPARE(options.tourFolder, QDir::current().absoluteFilePath(QStringLiteral("tour")));
}

void TestCommandLine::pluginFolderOfABuild()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("plugins")));
    QCOMPARE(defaultPluginFolder(folder.filePath(QStringLiteral("bin"))),
             folder.filePath(QStringLiteral("plugins")));
}

void TestCommandLine::pluginFolderOfAnInstallation()
{
    const QTemporaryDir folder;
    const QString installed = QStringLiteral(LIBRARY_FOLDER "/qelplugin/plugins");
    QVERIFY(QDir(folder.path()).mkpath(installed));
    QCOMPARE(defaultPluginFolder(folder.filePath(QStringLiteral("bin"))),
             folder.filePath(installed));
}

LASERWELD_TEST_MAIN(TestCommandLine)
#include "tst_commandline.moc"
