// Loads the plugin's library against whatever SDK library the loader finds, drives it and unloads
// it, as often as it is told: library_driver <library> <rounds>. Exits with 0 when every round was
// as it should be.

#include "MappedLibraries.h"
#include "tinysdk/tinysdk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPixmap>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include <dlfcn.h>

namespace {

int currentRound = 0;

[[noreturn]] void fail(const QString& reason)
{
    std::fprintf(stderr, "round %d: %s\n", currentRound, qPrintable(reason));
    std::exit(1);
}

void require(bool holds, const char* what)
{
    if (!holds)
        fail(QString::fromUtf8(what));
}

void requireSame(const char* step, const QStringList& found, const QStringList& expected)
{
    if (found != expected)
        fail(QStringLiteral("%1:\n  %2\nand not\n  %3")
                 .arg(QString::fromUtf8(step), found.join(QLatin1String("\n  ")),
                      expected.join(QLatin1String("\n  "))));
}

// But for what a platform without windows says of windows that have limits to their size.
void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    const bool isWarning = type == QtWarningMsg || type == QtCriticalMsg;
    if (isWarning && !text.contains(QLatin1String("propagateSizeHints")))
        fail(QStringLiteral("warning: %1").arg(text));
}

template<typename Function>
Function symbol(void* library, const char* name)
{
    void* found = ::dlsym(library, name);
    if (!found)
        fail(QString::fromLocal8Bit(::dlerror()));
    return reinterpret_cast<Function>(found);
}

void* load(const char* path)
{
    void* library = ::dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (!library)
        fail(QString::fromLocal8Bit(::dlerror()));
    return library;
}

/// The calls that belong to the frame itself; what the pages ask of the host is theirs.
QStringList ofTheFrame(const QStringList& calls)
{
    static const QStringList starts{
        QStringLiteral("setDefault"),
        QStringLiteral("setPlugin"),
        QStringLiteral("Create"),
        QStringLiteral("ChangePhy"),
        QStringLiteral("QFLog qelLaserWelding"),
        QStringLiteral("QFLog QelPlugin"),
        QStringLiteral("QFLog LaserWeld"),
        QStringLiteral("GetPlugin"),
        QStringLiteral("detach"),
        QStringLiteral("getQelServiceData laser_weld_data.virtual_welding_status"),
    };
    QStringList kept;
    for (const QString& call : calls) {
        for (const QString& start : starts) {
            if (call.startsWith(start))
                kept << call;
        }
    }
    return kept;
}

/// The plugin of the library, from its making to its end.
class Session
{
public:
    explicit Session(TinySdk& host)
        : sdk(host)
        , plugin(sdk.make(QStringLiteral("qelLaserWelding")))
    {
        check("constructor", {"setDefaultGlobalSheet false", "setPluginLabel Laser Welding"});
    }

    void bringUp()
    {
        sdk.init(plugin.get());
        check("init",
              {"QFLog qelLaserWelding::iniUi()", "QFLog LaserWeldPage::LaserWeldPage 17",
               "CreateCenterWidget qelLaserWelding", "QFLog qelLaserWelding::init()",
               "QFLog qelLaserWelding::initPhysicalButton()",
               "CreatePhyButtonList qelLaserWelding qelLaserWelding 3 2 1",
               "ChangePhyButtonStatus qelLaserWelding qelLaserWelding true",
               "QFLog qelLaserWelding::initPhysicalButton()", "CreateStatusBar qelLaserWelding 1"});
        page.reset(sdk.centerWidget());
        indicator.reset(sdk.statusBar());
        require(page && indicator, "init hands over both widgets");
        sdk.afterInit(plugin.get());
        check("afterInit", {"QFLog QelPluginDemo::initData()"});
        sdk.render(plugin.get());
        check("render", {"GetPluginNoUniqueWidget qelLaserSeamTracking"});
        sdk.connectNetwork();
        check("sigNetworkConnect", {"getQelServiceData laser_weld_data.virtual_welding_status"});
    }

    /// Runs as much of the library's code as a short while with it would.
    void use()
    {
        for (QWidget* widget : {page.get(), indicator.get()}) {
            widget->setAttribute(Qt::WA_DontShowOnScreen);
            widget->resize(1024, 700);
            widget->show();
        }
        const auto entries = page->findChildren<QAbstractButton*>();
        for (QAbstractButton* entry : entries) {
            if (entry->property("pageIndex").isValid()) {
                entry->click();
                QCoreApplication::processEvents();
                require(!page->grab().isNull(), "the page is painted");
            }
        }
        sdk.pressKeys();
        sdk.tryEditors();
        sdk.idle(plugin.get());
        sdk.takeCalls();
        sdk.detach(plugin.get());
        check("detach", {"detach Laser Welding"});
    }

private:
    void check(const char* step, const std::initializer_list<const char*>& expected)
    {
        QStringList calls;
        for (const char* call : expected)
            calls << QString::fromUtf8(call);
        requireSame(step, ofTheFrame(sdk.takeCalls()), calls);
    }

    TinySdk& sdk;
    std::unique_ptr<QObject> plugin;
    std::unique_ptr<QWidget> page;
    std::unique_ptr<QWidget> indicator;
};

void driveRound(TinySdk& sdk, const char* path)
{
    const QString name = QString::fromLocal8Bit(path).section(QLatin1Char('/'), -1);
    require(mappedLibraries(name).isEmpty(), "the library is not there before");
    void* library = load(path);
    require(mappedLibraries(name).size() == 1, "the library is there");
    require(symbol<int (*)()>(library, "_ZN9qelplugin3apiEv")() == 1, "api() is 1");
    requireSame("registered", sdk.registered(), {QStringLiteral("qelLaserWelding")});
    {
        Session session(sdk);
        session.bringUp();
        session.use();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    sdk.forget();
    ::dlclose(library);
    require(mappedLibraries(name).isEmpty(), "the library is gone");
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    qInstallMessageHandler(failOnWarning);
    require(argc == 3, "usage: library_driver <library> <rounds>");
    void* library = load("libqelplugin.so.1");
    const QStringList sdkLibraries = mappedLibraries(QStringLiteral("libqelplugin.so"));
    TinySdk& sdk = *symbol<TinySdkEntry>(library, "tinySdk")();
    const int rounds = std::atoi(argv[2]);
    for (currentRound = 1; currentRound <= rounds; ++currentRound)
        driveRound(sdk, argv[1]);
    require(mappedLibraries(QStringLiteral("libqelplugin.so")) == sdkLibraries, "one SDK library");
    std::printf("%d rounds\n", rounds);
    return 0;
}
