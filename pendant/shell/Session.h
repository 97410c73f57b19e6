#pragma once

#include "Languages.h"
#include "PluginLoader.h"

#include <QObject>

#include <memory>

namespace pendant {

class Controller;
class MainWindow;
class ShellBackend;
struct Options;

/// The pendant from its start to its end: the controller, the window and the plugins that join
/// them. A second one may be opened in the same process after the first is gone.
class Session : public QObject
{
    Q_OBJECT

public:
    /// Opens the cell, loads and starts the plugins and shows the window. On failure returns null
    /// and sets `error`. The paths of the options must be filled.
    static std::unique_ptr<Session> open(const Options& options, QString* error);
    /// Takes the plugins down in order: keys and widgets, plugins, libraries; then the rest.
    ~Session() override;

    MainWindow& window() { return *mainWindow; }
    Controller& controller() { return *machine; }
    const PluginLoader& plugins() const { return loader; }

    /// Logs the user of the level in, 0 to 4.
    void logIn(int level);
    /// The pendant in another language: the window is built and the plugins are made anew. What is
    /// typed into a plugin's page and not saved goes; robot programs, messages and users stay.
    void setLanguage(Language language);
    Language language() const { return languages.current(); }

private:
    Session(std::unique_ptr<Controller> controller, const Options& options);
    void join();
    void start(const Options& options);
    void awaitTracking(const Options& options);
    void dressPlugins();
    void showPlugins();
    void dropPlugins();

    std::unique_ptr<Controller> machine;
    std::unique_ptr<ShellBackend> backend;
    std::unique_ptr<MainWindow> mainWindow;
    Languages languages; ///< goes after the plugins, whose libraries bring catalogues
    PluginLoader loader;
};

} // namespace pendant
