#pragma once

#include "qelpluginglobal.h"

#include <QString>

#include <string>

#include <sys/types.h>

class QByteArray;

namespace qelplugin {

/// When a log file is put aside, and how many old ones are kept.
struct LogLimits
{
    qint64 bytes; ///< no line makes the file longer than this, unless the line alone is longer
    int oldFiles; ///< "name.1.log" is the youngest of them; 0 keeps none
};

/// 5 MiB and three old files, until set otherwise. Returns the limits before.
QELPLUGIN_EXPORT LogLimits setLogLimits(const LogLimits& limits);

/// Lets the next line of every log file look whether its file is still in place. Lines do so by
/// themselves once in a tick of the system's coarse clock, which is some milliseconds.
QELPLUGIN_EXPORT void recheckLogFiles();

/// A log file of the process: open from its first line on, and shared by all lines.
///
/// It is opened anew when its name leads elsewhere: the file was removed or replaced, or the
/// working directory is another. What cannot be opened or written stops nobody: the first time the
/// console is told, and the lines go there alone. All operations may be called on any thread.
class LogFile
{
public:
    /// The file "<pathBase>.<extension>"; it lives as long as the process. The names are copied.
    static LogFile& of(const QString& pathBase, const QString& extension);

    /// Opens the file if need be, and makes its folder. False when that is not possible.
    bool open();
    /// Writes the bytes in one piece, behind a rotation if need be.
    void append(const QByteArray& bytes);

    const QString& path() const { return name; }

private:
    friend QELPLUGIN_EXPORT void recheckLogFiles();

    LogFile(const QString& pathBase, const QString& extension);
    Q_DISABLE_COPY(LogFile)

    std::string oldName(int number) const;
    bool inPlace();
    void reopen();
    void rotate();

    const QString base;
    const QString ending;
    const QString name;
    const std::string encoded; ///< the name as the file system has it
    int descriptor = -1;
    dev_t device = 0; ///< with the inode: the file that is open
    ino_t inode = 0;
    qint64 size = 0;
    qint64 lookedAt = -1; ///< tick of the last look at the file's place
    bool torn = false;    ///< the last line was not written to its end
};

/// Writes all bytes unless the descriptor refuses; returns how many it took.
qint64 writeAll(int descriptor, const char* bytes, qint64 count);

} // namespace qelplugin
