#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>
#include <vector>

namespace qelplugin {
class PluginBase;
}

namespace pendant {

/// What became of one library of the plugin folder, or of one plugin that it registers.
struct PluginReport
{
    QString name; ///< registered name of the plugin; empty when it was not found out
    QString file; ///< without its folder
    bool loaded = false;
    QString reason; ///< why it was not loaded
};

/// Loads the libraries of the plugin folder and drives the plugins that they register.
///
/// It knows nothing of a library but its file: a plugin is what the library registers while it is
/// being loaded, provided that it has an `int qelplugin::api()` that returns 1.
class PluginLoader
{
public:
    PluginLoader();
    /// Unloads.
    ~PluginLoader();

    /// Loads each lib*.so of the folder but `skipped` in the order of their names and makes its
    /// plugins.
    void loadFolder(const QString& folder, const QString& skipped = QString());
    /// Loads one library and makes its plugins.
    void loadFile(const QString& path);
    /// Calls init() of every plugin that was loaded since the last call, then afterInit(), then
    /// render().
    void start();
    /// Deletes the plugins, the last one first, and all that they have registered; their libraries
    /// stay. The widgets and keys of the plugins must be gone before.
    void drop();
    /// Makes the plugins of the libraries that are loaded by their factories, after drop(), and
    /// starts them. A factory that makes none this time is reported.
    void makeAnew();
    /// Called with the registered name before each plugin is made: its library is there already.
    void setBeforeMaking(const std::function<void(const QString& name)>& listener);
    /// Deletes the plugins and unloads their libraries, the last one first. The widgets and keys of
    /// the plugins must be gone before: their code goes with the library.
    void unload();

    const QVector<PluginReport>& reports() const;
    /// Registered names of the plugins that are loaded.
    QStringList pluginNames() const;

    /// The reason for the operator behind the text of a failed load.
    static QString explain(const QString& loadError);
    /// Why a library with these needs must not even be loaded; empty when it may.
    static QString refuseNeeds(const QStringList& needed);

private:
    struct Library;
    struct Maker;
    QString open(const QString& path, Library* library);
    void adopt(const QString& file, std::unique_ptr<Library> library, const QStringList& names);
    qelplugin::PluginBase* make(const Maker& maker) const;
    void report(const QString& name, const QString& file, const QString& reason);

    std::vector<std::unique_ptr<Library>> libraries;
    std::size_t started = 0; ///< of the libraries, from the first on
    QVector<PluginReport> results;
    std::function<void(const QString& name)> beforeMaking;
};

} // namespace pendant
