#include "Session.h"

#include "Controller.h"
#include "MainWindow.h"
#include "Options.h"
#include "PluginSheet.h"
#include "ShellBackend.h"
#include "Theme.h"

#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QTimer>

namespace pendant {

namespace {

constexpr QSize DesignSize(1024, 768); // for 96 dots per inch

const QString TrackingLibrary = QStringLiteral("libqelLaserSeamTracking.so");

QSize windowSize(const Options& options)
{
    if (!options.windowSize.isEmpty())
        return options.windowSize;
    const QSize size = DesignSize * Theme::screenScale();
    // Without a display the screen is no limit.
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        return size;
    return size.boundedTo(QGuiApplication::primaryScreen()->availableSize());
}

} // namespace

std::unique_ptr<Session> Session::open(const Options& options, QString* error)
{
    auto controller = Controller::open(options.cellFile, options.cellSize, error);
    if (!controller)
        return nullptr;
    Theme::fit(windowSize(options));
    Theme::setZoom(options.zoom);
    Theme::setShade(options.shade);
    return std::unique_ptr<Session>(new Session(std::move(controller), options));
}

Session::Session(std::unique_ptr<Controller> controller, const Options& options)
    : machine(std::move(controller))
    , backend(std::make_unique<ShellBackend>(*machine))
{
    // Before the window, that it is in the language at once.
    languages.choose(options.language);
    loader.setBeforeMaking([this](const QString& name) { languages.addPlugin(name); });
    mainWindow = std::make_unique<MainWindow>(*machine);
    join();
    start(options);
}

Session::~Session()
{
    dropPlugins();
    loader.unload();
}

// The catalogues of the plugins go before their libraries may.
void Session::dropPlugins()
{
    mainWindow->releaseKeys();
    mainWindow->dropPlugins();
    loader.drop();
    languages.dropPlugins();
}

void Session::setLanguage(Language language)
{
    if (language == languages.current())
        return;
    const QStringList before = loader.pluginNames();
    dropPlugins();
    languages.choose(language);
    mainWindow->renew([&] {
        loader.makeAnew();
        backend->tellConnection();
        dressPlugins();
    });
    if (loader.pluginNames() != before)
        mainWindow->setReports(loader.reports());
}

void Session::join()
{
    MainWindow* window = mainWindow.get();
    connect(backend.get(), &ShellBackend::pageCreated, window, &MainWindow::addPage);
    connect(backend.get(), &ShellBackend::indicatorCreated, window,
            [window](const QString&, QWidget* indicator, int position) {
                window->addIndicator(indicator, position);
            });
    connect(backend.get(), &ShellBackend::keysCreated, window, &MainWindow::setKeys);
    connect(backend.get(), &ShellBackend::keysSwitched, window, &MainWindow::setKeysActive);
    connect(backend.get(), &ShellBackend::messageThrown, window, &MainWindow::showMessage);
    connect(window, &MainWindow::levelChosen, this, &Session::logIn);
    connect(window, &MainWindow::connectionClicked, machine.get(),
            [this] { machine->setConnected(!machine->isConnected()); });
    connect(window, &MainWindow::powerClicked, machine.get(),
            [this] { machine->setPowered(!machine->isPowered()); });
    // Not while the button is being pressed: it goes with the rest.
    connect(
        window, &MainWindow::languageClicked, this,
        [this] {
            setLanguage(language() == Language::English ? Language::Chinese : Language::English);
        },
        Qt::QueuedConnection);
    connect(window, &MainWindow::themeClicked, this, [this] {
        Theme::setShade(Theme::shade() == Theme::Shade::Light ? Theme::Shade::Dark
                                                              : Theme::Shade::Light);
        dressPlugins();
    });
}

// As at the robot: the plugins are up before the connection is.
void Session::start(const Options& options)
{
    machine->setConnected(false);
    machine->setPowered(options.powered);
    machine->setFaults(options.faults);
    backend->setZoom(options.zoom);
    logIn(options.userLevel);
    mainWindow->resize(windowSize(options));
    loader.loadFolder(options.pluginFolder,
                      options.trackingDelay == 0 ? QString() : TrackingLibrary);
    loader.start();
    machine->setConnected(!options.disconnected);
    showPlugins();
    mainWindow->show();
    awaitTracking(options);
}

// As a plugin that the robot's system brings up after the others.
void Session::awaitTracking(const Options& options)
{
    const QString file = QDir(options.pluginFolder).filePath(TrackingLibrary);
    if (options.trackingDelay <= 0 || !QFile::exists(file))
        return;
    QTimer::singleShot(options.trackingDelay * 1000, this, [this, file] {
        loader.loadFile(file);
        loader.start();
        showPlugins();
    });
}

void Session::dressPlugins()
{
    QString sheet;
    const QStringList names = loader.pluginNames();
    for (const QString& name : names) {
        mainWindow->setPageTitle(name, backend->labelOf(name));
        sheet += PluginSheet::ofPlugin(name);
    }
    mainWindow->setPluginSheet(sheet);
}

void Session::showPlugins()
{
    dressPlugins();
    mainWindow->setReports(loader.reports());
}

// A key that is held is let go by the user who holds it; the page reads the new user at its show.
void Session::logIn(int level)
{
    mainWindow->releaseKeys();
    backend->setUserLevel(level);
    mainWindow->showUser(level);
    mainWindow->reopenPage();
}

} // namespace pendant
