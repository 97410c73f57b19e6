#include "logfile.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <mutex>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qelplugin {

namespace {

constexpr qint64 MiB = 1024 * 1024;
constexpr mode_t FileMode = 0644;

// One for the table and for all of its files: lines are rare and short.
std::mutex guard;
LogLimits limits{5 * MiB, 3};
bool told = false;

// Never destroyed: lines may be written until the very end of the process.
std::vector<LogFile*>& table()
{
    static auto* files = new std::vector<LogFile*>;
    return *files;
}

// Moves on every few milliseconds and is read without a call of the system.
qint64 tick()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return qint64(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
}

// Past Qt's messages: their handler may be one that logs.
void tellOnce(const QString& path)
{
    const int error = errno;
    if (told)
        return;
    told = true;
    const QString text =
        QString(QLatin1String("qelplugin: no log in %1 (%2), the lines are on the console only\n"))
            .arg(path, QString::fromLocal8Bit(strerror(error)));
    const QByteArray bytes = text.toUtf8();
    writeAll(STDERR_FILENO, bytes.constData(), bytes.size());
}

// A plugin's name may lie in its library, which can be gone while the table still stands.
QString deepCopy(const QString& text)
{
    return QString(text.constData(), text.size());
}

} // namespace

qint64 writeAll(int descriptor, const char* bytes, qint64 count)
{
    qint64 done = 0;
    while (done < count) {
        const ssize_t taken = ::write(descriptor, bytes + done, size_t(count - done));
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken <= 0)
            break;
        done += taken;
    }
    return done;
}

LogLimits setLogLimits(const LogLimits& newLimits)
{
    const std::lock_guard<std::mutex> lock(guard);
    return std::exchange(limits, newLimits);
}

void recheckLogFiles()
{
    const std::lock_guard<std::mutex> lock(guard);
    for (LogFile* file : table())
        file->lookedAt = -1;
}

LogFile::LogFile(const QString& pathBase, const QString& extension)
    : base(deepCopy(pathBase))
    , ending(QLatin1Char('.') + extension)
    , name(base + ending)
    , encoded(QFile::encodeName(name).toStdString())
{}

LogFile& LogFile::of(const QString& pathBase, const QString& extension)
{
    const std::lock_guard<std::mutex> lock(guard);
    for (LogFile* file : table()) {
        if (file->base == pathBase && file->ending.midRef(1) == extension)
            return *file;
    }
    table().push_back(new LogFile(pathBase, extension));
    return *table().back();
}

bool LogFile::open()
{
    const std::lock_guard<std::mutex> lock(guard);
    const qint64 now = tick();
    if (now != lookedAt) {
        lookedAt = now;
        if (!inPlace())
            reopen();
    }
    return descriptor >= 0;
}

void LogFile::append(const QByteArray& bytes)
{
    const std::lock_guard<std::mutex> lock(guard);
    if (size > 0 && size + bytes.size() > limits.bytes)
        rotate();
    if (descriptor < 0)
        return;
    if (torn)
        size += writeAll(descriptor, "\n", 1);
    const qint64 written = writeAll(descriptor, bytes.constData(), bytes.size());
    size += written;
    torn = written > 0 && written < bytes.size();
    if (written < bytes.size())
        tellOnce(name);
}

// True while the name leads to the file that is open. Brings the size up to date: another process
// may write to the file as well.
bool LogFile::inPlace()
{
    struct stat found
    {};
    if (descriptor < 0 || ::stat(encoded.c_str(), &found) != 0)
        return false;
    size = found.st_size;
    return found.st_dev == device && found.st_ino == inode;
}

void LogFile::reopen()
{
    if (descriptor >= 0)
        ::close(descriptor);
    torn = false;
    size = 0;
    QDir().mkpath(QFileInfo(name).path());
    // Not to wait: the name may lead to a pipe that nobody reads.
    descriptor =
        ::open(encoded.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
               FileMode);
    struct stat opened
    {};
    if (descriptor < 0 || ::fstat(descriptor, &opened) != 0) {
        tellOnce(name);
        return;
    }
    device = opened.st_dev;
    inode = opened.st_ino;
    size = opened.st_size;
}

std::string LogFile::oldName(int number) const
{
    return QFile::encodeName(base + QLatin1Char('.') + QString::number(number) + ending)
        .toStdString();
}

// Only the file that is in place is put aside: in another working directory the same names are
// other files.
void LogFile::rotate()
{
    if (inPlace()) {
        for (int number = limits.oldFiles - 1; number > 0; --number)
            std::rename(oldName(number).c_str(), oldName(number + 1).c_str());
        if (limits.oldFiles > 0)
            std::rename(encoded.c_str(), oldName(1).c_str());
        else
            ::unlink(encoded.c_str());
    }
    reopen();
}

} // namespace qelplugin
