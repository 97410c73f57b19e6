#include "logline.h"

#include "logfile.h"

#include <QByteArray>

#include <algorithm>
#include <mutex>
#include <vector>

#include <unistd.h>

namespace qelplugin {

namespace {

constexpr int UsualLength = 256;
constexpr int LengthToKeep = 16 * 1024;
const QLatin1String ColourReset("\x1b[0m");

std::mutex guard;

// As many as there ever were lines at the same time. Never destroyed: see the table of the files.
std::vector<LogLine*>& lines()
{
    static auto* all = new std::vector<LogLine*>;
    return *all;
}

// Keeps the memory for the next line, but not that of a line beyond all measure.
void empty(QString& text)
{
    if (text.capacity() > LengthToKeep)
        text = QString();
    text.reserve(UsualLength);
    text.resize(0);
}

// QDebug puts a blank behind each item, the last one too.
QByteArray ended(QString& text, const QString& trailer, QLatin1String reset)
{
    if (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    text += trailer;
    text += reset;
    text += QLatin1Char('\n');
    return text.toUtf8();
}

} // namespace

LogLine::LogLine() = default;

// The caller holds the guard. Null asks for a line that is free.
LogLine& LogLine::ownedBy(const void* stream)
{
    auto& all = lines();
    const auto found = std::find_if(
        all.begin(), all.end(), [stream](const LogLine* line) { return line->owner == stream; });
    if (found != all.end())
        return **found;
    all.push_back(new LogLine);
    return *all.back();
}

LogLine& LogLine::begin(const void* stream, const QString& colour, const QString& trailer)
{
    const std::lock_guard<std::mutex> lock(guard);
    LogLine& line = ownedBy(nullptr);
    line.owner = stream;
    line.trailer = trailer;
    empty(line.console);
    empty(line.file);
    line.console += colour;
    return line;
}

LogLine& LogLine::of(const void* stream)
{
    const std::lock_guard<std::mutex> lock(guard);
    return ownedBy(stream);
}

void LogLine::end()
{
    const QByteArray shown = ended(console, trailer, ColourReset);
    writeAll(STDERR_FILENO, shown.constData(), shown.size());
    if (target)
        target->append(ended(file, trailer, QLatin1String()));
    const std::lock_guard<std::mutex> lock(guard);
    trailer = QString();
    target = nullptr;
    owner = nullptr;
}

} // namespace qelplugin
