#include "Application.h"

#include "MainWindow.h"
#include "Options.h"
#include "Session.h"
#include "Theme.h"
#include "Tour.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace pendant {

namespace {

constexpr const char* PluginFolders[] = {"../plugins", PENDANT_PLUGIN_FOLDER};

int ended(ExitCode code)
{
    return static_cast<int>(code);
}

void print(std::FILE* stream, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

void becomeOffscreen(Options* options)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (options->tourFolder.isEmpty()) {
        options->tourFolder = QStringLiteral("tour");
        print(stdout,
              QStringLiteral("There is no display: the pendant takes the tour and leaves its "
                             "pictures in ./tour. See --help.\n"));
    }
}

// Both have to be known before the application is made.
void prepareScreen(Options* options)
{
    if (!hasDisplay())
        becomeOffscreen(options);
    // A platform without a screen would take one of its own.
    if (options->dpi == 0 && qgetenv("QT_QPA_PLATFORM") == "offscreen" &&
        qEnvironmentVariableIsEmpty("QT_FONT_DPI"))
        options->dpi = 96;
    if (options->dpi > 0)
        qputenv("QT_FONT_DPI", QByteArray::number(options->dpi));
}

void makeAbsolute(QString* path)
{
    if (!path->isEmpty())
        *path = QDir::cleanPath(QDir::current().absoluteFilePath(*path));
}

void enterHome(const QString& home)
{
    if (!QDir::setCurrent(home))
        print(stderr, QStringLiteral("pendant: cannot work in %1, logs go to %2\n")
                          .arg(home, QDir::currentPath()));
}

int refuse(const QString& reason)
{
    print(stderr, QStringLiteral("pendant: %1\n").arg(reason));
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        QMessageBox::critical(nullptr, QStringLiteral("Pendant"), reason);
    return ended(ExitCode::CellUnusable);
}

int runWindow(const Options& options)
{
    QString error;
    const auto session = Session::open(options, &error);
    if (!session)
        return refuse(error);
    return QApplication::exec();
}

int runTour(const Options& options)
{
    Tour tour(options);
    const QString failed = tour.run([](const QString& line) { print(stdout, line); });
    if (failed.isEmpty())
        return ended(ExitCode::Success);
    print(stderr, QStringLiteral("pendant: the tour failed: %1\n").arg(failed));
    return ended(ExitCode::TourFailed);
}

int runWith(Options* options)
{
    // A tour starts from a new cell and leaves the user's own alone.
    const QTemporaryDir thrownAway;
    const bool isTour = !options->tourFolder.isEmpty();
    fillPaths(options, isTour ? thrownAway.path()
                              : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    enterHome(options->home);
    const int code = isTour ? runTour(*options) : runWindow(*options);
    // Out of the folder that is about to go.
    QDir::setCurrent(QDir::rootPath());
    return code;
}

QStringList argumentList(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

} // namespace

QString defaultPluginFolder(const QString& programFolder)
{
    const QDir program(programFolder);
    QStringList folders;
    for (const char* each : PluginFolders)
        folders << QDir::cleanPath(program.absoluteFilePath(QString::fromLatin1(each)));
    const auto there = std::find_if(folders.cbegin(), folders.cend(),
                                    [](const QString& folder) { return QDir(folder).exists(); });
    return there == folders.cend() ? folders.first() : *there;
}

void fillPaths(Options* options, const QString& data)
{
    if (options->pluginFolder.isEmpty())
        options->pluginFolder = defaultPluginFolder(QCoreApplication::applicationDirPath());
    if (options->cellFile.isEmpty())
        options->cellFile = data + QStringLiteral("/cell.sqlite");
    if (options->home.isEmpty())
        options->home = data;
    for (QString* path :
         {&options->pluginFolder, &options->cellFile, &options->home, &options->tourFolder})
        makeAbsolute(path);
    QDir().mkpath(QFileInfo(options->cellFile).path());
    QDir().mkpath(options->home);
}

int runPendant(int argc, char** argv)
{
    QString error;
    std::optional<Options> options = parseOptions(argumentList(argc, argv), &error);
    if (!options) {
        print(stderr, QStringLiteral("pendant: %1\nSee --help.\n").arg(error));
        return ended(ExitCode::WrongUsage);
    }
    if (options->help || options->version) {
        print(stdout, options->help ? helpText() : QStringLiteral("pendant " PENDANT_VERSION "\n"));
        return ended(ExitCode::Success);
    }
    prepareScreen(&*options);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pendant"));
    QApplication::setApplicationVersion(QStringLiteral(PENDANT_VERSION));
    Theme::apply(application);
    return runWith(&*options);
}

} // namespace pendant
