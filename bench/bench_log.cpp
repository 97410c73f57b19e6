#include "Log.h"
#include "Ratio.h"

#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

// What a line of the log costs beside the least that it could: the same bytes, handed to the system
// from a buffer that is ready, to the same console and to a file of the same folder.

namespace {

constexpr int Lines = 1000;
constexpr int Rounds = 100;
constexpr double Limit = 1.5;
constexpr char Text[] = "WeldSettingPage::checkSaveResult failed. ";

QString formatTime()
{
    return QDateTime::currentDateTime().toString(QLatin1String("MM/dd hh:mm:ss.zzz"));
}

void put(int descriptor, const QByteArray& bytes)
{
    benchmark::DoNotOptimize(::write(descriptor, bytes.constData(), size_t(bytes.size())));
}

Ratio::Work times(int count, const Ratio::Work& work)
{
    return [=] {
        for (int i = 0; i < count; ++i)
            work();
    };
}

// Writes one line and returns its bytes as the file has them.
QByteArray lineInFile(const Ratio::Work& writeLine)
{
    writeLine();
    QFile file(LogLine::pathBase(LogTag::Plugin) + QLatin1String(".log"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no log file %s", qPrintable(file.fileName()));
    return file.readAll().split('\n').first() + '\n';
}

bool compare()
{
    const QString header = QLatin1String("[E|11/21 12:00:00.000]");
    const auto macroLine = [] { LOGE(LogTag::Plugin) << Text << "set_weld_io_config" << 12; };
    const auto streamLine = [header] {
        qelplugin::QFLog(QLatin1String("\x1b[31m"), header, QString(),
                         LogLine::pathBase(LogTag::Plugin), QLatin1String("log"))
            << Text << "set_weld_io_config" << 12;
    };
    const QByteArray inFile = lineInFile(macroLine);
    const QByteArray onConsole = "\x1b[31m" + inFile.chopped(1) + "\x1b[0m\n";
    const int file = ::open("peer.log", O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    const auto writes = [=] {
        put(STDERR_FILENO, onConsole);
        put(file, inFile);
    };
    const auto timeAndWrites = [=] {
        benchmark::DoNotOptimize(formatTime());
        writes();
    };
    const auto measure = [](const Ratio::Work& ours, const Ratio::Work& peer) {
        return Ratio::measure(Rounds, times(Lines, ours), times(Lines, peer));
    };
    const bool holds = Ratio::report("1000 log lines / the same time formatted and a bare write",
                                     measure(macroLine, timeAndWrites), Limit);
    Ratio::note("1000 log lines, without the time's formatting / bare write",
                measure(streamLine, writes), "us");
    ::close(file);
    return holds;
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ::dup2(nowhere, STDERR_FILENO);
    const bool holds = compare();
    QDir::setCurrent(QDir::rootPath());
    return holds ? 0 : 1;
}
