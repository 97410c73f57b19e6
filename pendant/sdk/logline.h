#pragma once

#include <QString>

namespace qelplugin {

class LogFile;

/// What a log stream needs beside its members, which the binary interface fixes: the texts that its
/// QDebug streams write into, and what ends the line. Found by the stream's address for as long as
/// the stream lives. The texts are used again by later lines.
class LogLine
{
public:
    QString console; ///< colour, header and items
    QString file;    ///< header and items
    LogFile* target = nullptr;

    static LogLine& begin(const void* stream, const QString& colour, const QString& trailer);
    static LogLine& of(const void* stream);

    /// Writes the line to the console, and to its file if it has one.
    void end();

private:
    LogLine();
    Q_DISABLE_COPY(LogLine)

    static LogLine& ownedBy(const void* stream);

    const void* owner = nullptr;
    QString trailer;
};

} // namespace qelplugin
