#include "LogFolder.h"

#include "logfile.h"

#include <QDir>
#include <QFile>

#include <array>

#include <sys/socket.h>
#include <unistd.h>

LogFolder::LogFolder()
    : before(QDir::currentPath())
{
    QDir::setCurrent(folder.path());
    qelplugin::recheckLogFiles();
}

LogFolder::~LogFolder()
{
    QDir::setCurrent(before);
    qelplugin::recheckLogFiles();
}

QString LogFolder::fileName(const QString& tag)
{
    return QStringLiteral("./log/qelplugin/%1/%1.log").arg(tag);
}

QStringList LogFolder::lines(const QString& tag)
{
    QFile file(fileName(tag));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList all = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    all.removeLast();
    return all;
}

QStringList LogFolder::texts(const QString& tag)
{
    QStringList all = lines(tag);
    for (QString& line : all)
        line = line.mid(line.indexOf(QLatin1String("] ")) + 2);
    return all;
}

// A socket that keeps the bounds of what is written to it.
ConsoleCapture::ConsoleCapture()
    : console(::dup(STDERR_FILENO))
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0)
        qFatal("no socket for the console");
    reader = ends[0];
    ::dup2(ends[1], STDERR_FILENO);
    ::close(ends[1]);
}

ConsoleCapture::~ConsoleCapture()
{
    ::dup2(console, STDERR_FILENO);
    ::close(console);
    ::close(reader);
}

QList<QByteArray> ConsoleCapture::take()
{
    QList<QByteArray> writes;
    QByteArray buffer(128 * 1024, Qt::Uninitialized);
    for (;;) {
        const ssize_t count = ::recv(reader, buffer.data(), size_t(buffer.size()), 0);
        if (count <= 0)
            return writes;
        writes << buffer.left(int(count));
    }
}
