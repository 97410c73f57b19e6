#pragma once

#include "Controller.h"
#include "Languages.h"
#include "Theme.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace pendant {

/// How the process ends.
enum class ExitCode {
    Success = 0,
    TourFailed = 1,   ///< a step of the tour failed
    WrongUsage = 2,   ///< the command line is not understood
    CellUnusable = 3, ///< the cell file cannot be opened
};

/// What the command line asks for.
struct Options
{
    QString pluginFolder; ///< empty: the folder of the build or of the installation
    QString cellFile;     ///< empty: in the data folder of the user
    QString home;         ///< working directory, for ./log; empty: the data folder of the user
    QString tourFolder;   ///< empty: no tour
    CellSize cellSize;    ///< of a cell that is made new
    Faults faults;
    QSize windowSize; ///< pixels; empty: 1024 x 768 at 96 dots per inch
    double zoom = 1.0;
    Language language = Language::English;
    Theme::Shade shade = Theme::Shade::Light;
    int userLevel = 0; ///< who is logged in at the start, 0 to 4
    /// Seconds from the start to the loading of the seam-tracking plugin; negative: never.
    int trackingDelay = 0;
    int dpi = 0; ///< of fonts and sizes; 0: of the screen
    bool powered = false;
    bool disconnected = false;
    bool help = false;
    bool version = false;
};

constexpr int MaximumLevel = 4;

/// Reads the arguments, the first of which is the program. Without a result `error` says why.
std::optional<Options> parseOptions(const QStringList& arguments, QString* error);

/// What --help prints.
QString helpText();

} // namespace pendant
