#pragma once

#include <QStringList>

namespace pendant {

struct Options;

/// Runs the pendant with these arguments, the first of which is the program, and returns the exit
/// code of the process.
int runPendant(int argc, char** argv);

/// Fills the paths that the command line left out, makes all of them absolute, and makes the
/// folders that are missing. `data` is the user's folder for the pendant.
void fillPaths(Options* options, const QString& data);

/// The folder from which plugins are loaded by default: beside the program in a build, below the
/// libraries in an installation.
QString defaultPluginFolder(const QString& programFolder);

} // namespace pendant
