#include "NaturalSort.h"
#include "Ratio.h"

#include <benchmark/benchmark.h>

#include <QCollator>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <random>
#include <vector>

namespace {

constexpr int Names = 10000;
constexpr int Rounds = 60;

using Shape = QString (*)(int index);

// Names as cells have them: ports of one kind, ports of several kinds, registers with long names.
QString port(int index)
{
    return QString::fromLatin1("DI%1").arg(index);
}

QString portOfAKind(int index)
{
    static const char* const kinds[] = {"AI", "AO", "DI", "DO", "GI", "GO"};
    return QString::fromLatin1("%1_%2").arg(QLatin1String(kinds[index % 6])).arg(index / 6);
}

QString reg(int index)
{
    return QString::fromLatin1("weld_register_%1_bit%2").arg(index / 16).arg(index % 16);
}

QStringList shuffled(Shape shape)
{
    QStringList names;
    for (int i = 0; i < Names; ++i)
        names << shape(i);
    std::shuffle(names.begin(), names.end(), std::mt19937(4711));
    return names;
}

void sortPlain(const QStringList& names)
{
    QStringList copy = names;
    std::sort(copy.begin(), copy.end());
}

void sortByCollator(const QStringList& names)
{
    QCollator collator(QLocale(QLocale::English, QLocale::UnitedStates));
    collator.setNumericMode(true);
    std::vector<std::pair<QCollatorSortKey, int>> keys;
    keys.reserve(static_cast<std::size_t>(names.size()));
    for (int i = 0; i < names.size(); ++i)
        keys.emplace_back(collator.sortKey(names.at(i)), i);
    std::sort(keys.begin(), keys.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    QStringList sorted;
    sorted.reserve(names.size());
    for (const auto& key : keys)
        sorted << names.at(key.second);
}

bool reportShape(const char* shapeName, Shape shape)
{
    const QStringList names = shuffled(shape);
    const QStringList ordered = naturallySorted(names);
    const auto sortShuffled = [&] { benchmark::DoNotOptimize(naturallySorted(names)); };
    const auto figure = [&](const char* peerName, const Ratio::Work& ours, const Ratio::Work& peer,
                            double limit) {
        const QByteArray title = QByteArray("natural sort, ") + shapeName + " / " + peerName;
        return Ratio::report(title.constData(), Ratio::measure(Rounds, ours, peer), limit);
    };
    bool holds = figure(
        "plain std::sort", sortShuffled, [&] { sortPlain(names); }, 0.6);
    holds &= figure(
        "QCollator keys", sortShuffled, [&] { sortByCollator(names); }, 0.25);
    holds &= figure(
        "ordered against shuffled", [&] { benchmark::DoNotOptimize(naturallySorted(ordered)); },
        sortShuffled, 0.3);
    return holds;
}

} // namespace

int main()
{
    bool holds = reportShape("ports", port);
    holds &= reportShape("six kinds of ports", portOfAKind);
    holds &= reportShape("registers", reg);
    return holds ? 0 : 1;
}
