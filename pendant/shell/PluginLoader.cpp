#include "PluginLoader.h"

#include "ElfFile.h"
#include "hostbackend.h"
#include "rlregistry.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QLibrary>
#include <QRegularExpression>

#include <cxxabi.h>

#include <cstdlib>

namespace pendant {

namespace {

const QString MadeNone = QStringLiteral("its factory made no plugin");
constexpr int ApiVersion = 1;
// int qelplugin::api(), as the compilers of the platform write it.
constexpr const char* ApiSymbol = "_ZN9qelplugin3apiEv";

QString demangled(const QString& symbol)
{
    int status = 0;
    char* name = abi::__cxa_demangle(symbol.toLatin1().constData(), nullptr, nullptr, &status);
    const QString text = status == 0 ? QString::fromLatin1(name) : symbol;
    std::free(name);
    return text;
}

QString wrongQt(const QString& wanted)
{
    return QStringLiteral("wrong Qt: needs %1, the pendant runs with Qt %2")
        .arg(wanted, QString::fromLatin1(qVersion()));
}

/// A text of the system's loader and what it means; %1 is what the expression caught.
struct Explanation
{
    const char* expression;
    QString (*text)(const QString& caught);
};

const std::vector<Explanation>& explanations()
{
    static const std::vector<Explanation> all{
        {"version [`']Qt_([0-9.]+)(?:_PRIVATE_API)?' not found",
         [](const QString& version) { return wrongQt(QStringLiteral("Qt %1").arg(version)); }},
        {"undefined symbol: ([^\\s,()]+)",
         [](const QString& symbol) {
             return QStringLiteral("missing symbol: %1").arg(demangled(symbol));
         }},
        {"([^\\s:()]+): cannot open shared object file",
         [](const QString& name) {
             return QStringLiteral("needs a library that is not there: %1").arg(name);
         }},
    };
    return all;
}

QString refuseApi(QLibrary& library)
{
    using Api = int (*)();
    const auto api = reinterpret_cast<Api>(library.resolve(ApiSymbol));
    if (!api)
        return QStringLiteral("no plugin: has no function qelplugin::api()");
    const int version = api();
    if (version == ApiVersion)
        return {};
    return QStringLiteral("made for version %1 of the plugin interface, the pendant has %2")
        .arg(version)
        .arg(ApiVersion);
}

void forgetAll()
{
    const QStringList names = qelplugin::registeredPlugins();
    for (const QString& name : names)
        qelplugin::forgetPlugin(name);
}

} // namespace

/// A plugin by its registered name, and how it is made.
struct PluginLoader::Maker
{
    QString name;
    std::function<qelplugin::PluginBase*(QObject* parent)> factory;
    int report; ///< index of what became of it
};

struct PluginLoader::Library
{
    QLibrary file;
    std::vector<Maker> makers;
    std::vector<qelplugin::PluginBase*> plugins; ///< owned, in the order of their registration

    Library() = default;
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    void deletePlugins()
    {
        while (!plugins.empty()) {
            delete plugins.back();
            plugins.pop_back();
        }
    }
};

PluginLoader::PluginLoader() = default;

PluginLoader::~PluginLoader()
{
    unload();
}

const QVector<PluginReport>& PluginLoader::reports() const
{
    return results;
}

QStringList PluginLoader::pluginNames() const
{
    QStringList names;
    for (const PluginReport& each : results) {
        if (each.loaded)
            names << each.name;
    }
    return names;
}

void PluginLoader::report(const QString& name, const QString& file, const QString& reason)
{
    results.append({name, file, reason.isEmpty(), reason});
}

void PluginLoader::loadFolder(const QString& folder, const QString& skipped)
{
    const QDir dir(folder);
    if (!dir.exists()) {
        report({}, folder, QStringLiteral("the plugin folder does not exist"));
        return;
    }
    const QFileInfoList files =
        dir.entryInfoList({QStringLiteral("lib*.so")}, QDir::Files, QDir::Name);
    if (files.isEmpty())
        report({}, folder, QStringLiteral("the plugin folder holds no lib*.so"));
    for (const QFileInfo& file : files) {
        if (file.fileName() != skipped)
            loadFile(file.absoluteFilePath());
    }
}

void PluginLoader::loadFile(const QString& path)
{
    const QString file = QFileInfo(path).fileName();
    auto library = std::make_unique<Library>();
    QString wrong = open(path, library.get());
    const QStringList names = qelplugin::registeredPlugins();
    if (wrong.isEmpty() && names.isEmpty())
        wrong = QStringLiteral("no factory: the library registers no plugin");
    if (wrong.isEmpty()) {
        adopt(file, std::move(library), names);
        return;
    }
    // A factory is code of its library and has to go first.
    forgetAll();
    library->file.unload();
    report(names.join(QLatin1String(", ")), file, wrong);
}

QString PluginLoader::open(const QString& path, Library* library)
{
    const ElfFacts facts = readElf(path);
    if (!facts.isLibrary)
        return QStringLiteral("not a library");
    if (!facts.isNative)
        return QStringLiteral("a library for another kind of machine");
    QString wrong = refuseNeeds(facts.needed);
    if (!wrong.isEmpty())
        return wrong;
    library->file.setFileName(path);
    // All symbols at once: one that is missing must show now and not at the first call.
    library->file.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    if (!library->file.load())
        return explain(library->file.errorString());
    return refuseApi(library->file);
}

qelplugin::PluginBase* PluginLoader::make(const Maker& maker) const
{
    if (beforeMaking)
        beforeMaking(maker.name);
    auto* plugin = maker.factory ? maker.factory(nullptr) : nullptr;
    if (plugin)
        plugin->setObjectName(maker.name);
    return plugin;
}

void PluginLoader::setBeforeMaking(const std::function<void(const QString& name)>& listener)
{
    beforeMaking = listener;
}

// The factories are dropped from the registry as soon as they have been used, so that whatever
// stands in the registry after the next load is that library's own.
void PluginLoader::adopt(const QString& file, std::unique_ptr<Library> library,
                         const QStringList& names)
{
    const QStringList taken = pluginNames();
    for (const QString& name : names) {
        if (taken.contains(name)) {
            report(name, file, QStringLiteral("another library has registered this name"));
            continue;
        }
        const Maker maker{name, qelplugin::pluginFactory(name), results.size()};
        auto* plugin = make(maker);
        if (plugin) {
            library->plugins.push_back(plugin);
            library->makers.push_back(maker);
        }
        report(name, file, plugin ? QString() : MadeNone);
    }
    forgetAll();
    if (library->plugins.empty())
        library->file.unload(); // no factory of it is kept
    else
        libraries.push_back(std::move(library));
}

void PluginLoader::start()
{
    using Phase = void (qelplugin::PluginBase::*)();
    for (const Phase phase : {&qelplugin::PluginBase::init, &qelplugin::PluginBase::afterInit,
                              &qelplugin::PluginBase::render}) {
        for (std::size_t each = started; each < libraries.size(); ++each) {
            for (auto* plugin : libraries[each]->plugins)
                (plugin->*phase)();
        }
    }
    started = libraries.size();
}

void PluginLoader::drop()
{
    for (auto each = libraries.rbegin(); each != libraries.rend(); ++each)
        (*each)->deletePlugins();
    // Deferred deletions run code of the libraries too.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    forgetAll();
    qelplugin::RlRegistry::instance().clear();
    started = 0;
}

void PluginLoader::makeAnew()
{
    for (const auto& library : libraries) {
        for (const Maker& maker : library->makers) {
            auto* plugin = make(maker);
            if (plugin)
                library->plugins.push_back(plugin);
            results[maker.report].loaded = plugin;
            results[maker.report].reason = plugin ? QString() : MadeNone;
        }
    }
    start();
}

void PluginLoader::unload()
{
    drop();
    while (!libraries.empty()) {
        // A factory is code of its library and has to go first.
        libraries.back()->makers.clear();
        libraries.back()->file.unload();
        libraries.pop_back();
    }
    results.clear();
}

QString PluginLoader::explain(const QString& loadError)
{
    for (const Explanation& each : explanations()) {
        const auto match =
            QRegularExpression(QString::fromLatin1(each.expression)).match(loadError);
        if (match.hasMatch())
            return each.text(match.captured(1));
    }
    return loadError;
}

// A library of another major version of Qt may well be there, and would then live beside ours in
// one process. "libQt6Core.so.6" has the version in its name, "libQtCore.so.4" behind it.
QString PluginLoader::refuseNeeds(const QStringList& needed)
{
    static const QRegularExpression qtLibrary(
        QStringLiteral("^libQt(\\d*)[A-Z]\\w*\\.so(?:\\.(\\d+))?"));
    for (const QString& name : needed) {
        const auto match = qtLibrary.match(name);
        if (!match.hasMatch())
            continue;
        const QString major = match.captured(match.capturedLength(1) > 0 ? 1 : 2);
        if (major.toInt() != QT_VERSION_MAJOR)
            return wrongQt(QStringLiteral("Qt %1 (%2)").arg(major, name));
    }
    return {};
}

} // namespace pendant
