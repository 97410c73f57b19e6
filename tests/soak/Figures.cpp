#include "Figures.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPixmapCache>
#include <QSet>
#include <QWidget>

#include <algorithm>

#include <malloc.h>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
// NOLINTNEXTLINE(bugprone-reserved-identifier): name of the sanitizer
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace soak {

namespace {

constexpr double Settled = 60; // seconds
constexpr double Hour = 3600;

/// What may be more at the end than after the first minute.
struct Limit
{
    const char* name;
    const char* unit;
    double tolerance;
    bool isCounted; ///< by ones: the most counts, and not the trend
    bool isJudged;
};

#ifdef __SANITIZE_ADDRESS__
// What is freed stays in quarantine.
constexpr bool ResidentIsJudged = false;
#else
constexpr bool ResidentIsJudged = true;
#endif

constexpr Limit Limits[FigureCount] = {
    {"resident set", "kB", 4096, false, ResidentIsJudged},
    {"heap in use", "kB", 1024, false, true},
    {"descriptors", "", 1, true, true}, // the editors' log, open from its first line on
    {"timers", "", 2, false, true},     // a cursor that blinks
    {"widgets", "", 0, true, true},
    {"threads", "", 0, true, true},
    {"libraries", "", 0, true, true},
};

QByteArray fileText(const char* name)
{
    QFile file(QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double resident()
{
    const double pages = fileText("/proc/self/statm").split(' ').value(1).toDouble();
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
}

double heap()
{
#ifdef __SANITIZE_ADDRESS__
    return static_cast<double>(__sanitizer_get_current_allocated_bytes()) / 1024;
#else
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1024;
#endif
}

int entries(const char* folder)
{
    return QDir(QString::fromLatin1(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

int libraries()
{
    QSet<QByteArray> names;
    const QList<QByteArray> lines = fileText("/proc/self/maps").split('\n');
    for (const QByteArray& line : lines) {
        if (line.contains(".so"))
            names.insert(line.mid(line.indexOf('/')));
    }
    return names.size();
}

int timersOf(const QObject* object)
{
    auto* dispatcher = QAbstractEventDispatcher::instance();
    int count = dispatcher->registeredTimers(const_cast<QObject*>(object)).size();
    for (const QObject* child : object->children())
        count += timersOf(child);
    return count;
}

int timers()
{
    int count = timersOf(qApp);
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget* each : windows)
        count += timersOf(each);
    return count;
}

void settle()
{
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    QPixmapCache::clear();
    malloc_trim(0);
}

QString number(double value)
{
    return QString::number(value, 'f', 0);
}

} // namespace

Figures measure()
{
    settle();
    return {resident(),
            heap(),
            static_cast<double>(entries("/proc/self/fd")),
            static_cast<double>(timers()),
            static_cast<double>(QApplication::allWidgets().size()),
            static_cast<double>(entries("/proc/self/task")),
            static_cast<double>(libraries())};
}

// In a run that is shorter, the first that there is.
int Course::firstSettled() const
{
    const auto found = std::find_if(samples.begin(), samples.end(),
                                    [](const Sample& each) { return each.seconds >= Settled; });
    return found == samples.end() ? 0 : static_cast<int>(found - samples.begin());
}

// Per second, by least squares.
double Course::slope(int figure) const
{
    double count = 0, time = 0, value = 0, product = 0, square = 0;
    for (int each = firstSettled(); each < samples.size(); ++each) {
        const double x = samples.at(each).seconds;
        const double y = samples.at(each).figures[static_cast<std::size_t>(figure)];
        ++count;
        time += x;
        value += y;
        product += x * y;
        square += x * x;
    }
    const double divisor = count * square - time * time;
    return divisor > 0 ? (count * product - time * value) / divisor : 0;
}

QString Course::listed() const
{
    QString text;
    for (const Sample& each : samples) {
        text += number(each.seconds).rightJustified(6);
        for (const double figure : each.figures)
            text += number(figure).rightJustified(9);
        text += QLatin1Char('\n');
    }
    return text;
}

QString Course::table() const
{
    if (samples.isEmpty())
        return {};
    const Sample& first = samples.at(firstSettled());
    const Sample& last = samples.last();
    QString text = listed() + QStringLiteral("%1%2%3%4%5\n")
                                  .arg(QStringLiteral("figure"), -16)
                                  .arg(QStringLiteral("at %1 s").arg(first.seconds, 0, 'f', 0), 12)
                                  .arg(QStringLiteral("at %1 s").arg(last.seconds, 0, 'f', 0), 12)
                                  .arg(QStringLiteral("per hour"), 12)
                                  .arg(QStringLiteral("samples"), 10);
    for (int each = 0; each < FigureCount; ++each) {
        const auto index = static_cast<std::size_t>(each);
        text += QStringLiteral("%1%2%3%4%5 %6\n")
                    .arg(QString::fromLatin1(Limits[each].name), -16)
                    .arg(number(first.figures[index]), 12)
                    .arg(number(last.figures[index]), 12)
                    .arg(number(slope(each) * Hour), 12)
                    .arg(samples.size() - firstSettled(), 10)
                    .arg(QString::fromLatin1(Limits[each].unit));
    }
    return text;
}

// The most in the last third over the most in the first: Qt's font cache comes and goes, and with
// it more than a megabyte. Of timers the least: switches that slide have some for a moment.
double Course::gain(int figure) const
{
    const int begin = firstSettled();
    const int third = std::max(1, (samples.size() - begin) / 3);
    const bool isFleeting = figure == static_cast<int>(Figure::Timers);
    const auto level = [&](int from, int to) {
        const auto index = static_cast<std::size_t>(figure);
        double value = samples.at(from).figures[index];
        for (int each = from + 1; each < to; ++each) {
            const double other = samples.at(each).figures[index];
            value = isFleeting ? std::min(value, other) : std::max(value, other);
        }
        return value;
    };
    if (Limits[figure].isCounted)
        return level(begin, samples.size()) - level(begin, begin + 1);
    return level(samples.size() - third, samples.size()) - level(begin, begin + third);
}

QString Course::growth() const
{
    const int begin = firstSettled();
    QStringList all;
    for (int each = 0; each < FigureCount && samples.size() - begin >= 2; ++each) {
        const Limit& limit = Limits[each];
        // In a short run the caches still fill.
        const bool isMeasurable = limit.isCounted || samples.at(begin).seconds >= Settled;
        if (limit.isJudged && isMeasurable && gain(each) > limit.tolerance)
            all << QStringLiteral("%1 grow by %2 %3")
                       .arg(QString::fromLatin1(limit.name), number(gain(each)),
                            QString::fromLatin1(limit.unit));
    }
    return all.join(QLatin1String(", "));
}

} // namespace soak
