#pragma once

#include <QByteArray>
#include <QString>

namespace qelplugin {

/// The log files that are open, kept open between lines and rotated by size.
class LogFile
{
public:
    /// The file of the name, opened for appending, or null when that is not possible.
    static LogFile* open(const QString& path);
};

} // namespace qelplugin
