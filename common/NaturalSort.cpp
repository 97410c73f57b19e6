#include "NaturalSort.h"

#include "NameRuns.h"
#include "SortKeys.h"

#include <QStringView>

#include <algorithm>
#include <cstring>

using namespace NameRuns;

namespace {

// As text the empty run at the end of a name stands before every other.
int order(const Run& left, const Run& right)
{
    if (left.isDigits && right.isDigits) {
        const auto number = numberOf(left);
        const auto other = numberOf(right);
        if (number && other)
            return *number < *other ? -1 : *number > *other;
    }
    return QStringView(left.begin, left.end).compare(QStringView(right.begin, right.end));
}

// The runs by which two names part; both are empty when they do not.
struct Parting
{
    Run left;
    Run right;

    int order() const { return ::order(left, right); }
    // Only here the order of runs can go round in a circle.
    bool isNumberBesideLongDigits() const
    {
        return left.isDigits && right.isDigits &&
               numberOf(left).has_value() != numberOf(right).has_value();
    }
};

Parting parting(const QString& a, const QString& b)
{
    const QChar* const leftEnd = a.constData() + a.size();
    const QChar* const rightEnd = b.constData() + b.size();
    Parting runs{nextRun(a.constData(), leftEnd), nextRun(b.constData(), rightEnd)};
    while (runs.order() == 0 && !runs.left.isEmpty())
        runs = {nextRun(runs.left.end, leftEnd), nextRun(runs.right.end, rightEnd)};
    return runs;
}

// Index of the first character in which the names differ, or the length of the shorter one. Four
// characters at a time: names that follow each other in a list begin alike.
int firstDifference(const QString& a, const QString& b)
{
    constexpr int Step = sizeof(quint64) / sizeof(QChar);
    const int size = std::min(a.size(), b.size());
    int at = 0;
    while (at + Step <= size &&
           std::memcmp(a.constData() + at, b.constData() + at, sizeof(quint64)) == 0)
        at += Step;
    while (at < size && a.at(at) == b.at(at))
        ++at;
    return at;
}

int firstDigit(const QString& name, int index)
{
    while (index > 0 && isDigit(name.at(index - 1)))
        --index;
    return index;
}

int behindDigits(const QString& name, int index)
{
    while (index < name.size() && isDigit(name.at(index)))
        ++index;
    return index;
}

// True when the first difference alone tells that `a` stands before `b`: it lies within two runs of
// letters, or within two numbers of one length. So nearly all neighbours of a list part.
bool isPlainlyLess(const QString& a, const QString& b)
{
    const int index = firstDifference(a, b);
    if (index >= std::min(a.size(), b.size()) || a.at(index) > b.at(index))
        return false;
    if (isLetter(a.at(index)) && isLetter(b.at(index)))
        return true;
    if (!isDigit(a.at(index)) || !isDigit(b.at(index)))
        return false;
    const int end = behindDigits(a, index);
    return end == behindDigits(b, index) && end - firstDigit(a, index) <= FittingDigits;
}

// True for neighbours in an order that holds for the whole list.
bool areInOrder(const QString& a, const QString& b)
{
    if (isPlainlyLess(a, b))
        return true;
    const Parting runs = parting(a, b);
    return runs.order() <= 0 && !runs.isNumberBesideLongDigits();
}

bool isInOrder(const QStringList& names)
{
    const auto disorder =
        std::adjacent_find(names.begin(), names.end(),
                           [](const QString& a, const QString& b) { return !areInOrder(a, b); });
    return disorder == names.end();
}

void appendMerged(QStringList& merged, const QStringList& names, int from, int middle, int end)
{
    int left = from;
    int right = middle;
    while (left < middle || right < end) {
        const bool takesRight =
            left == middle || (right < end && naturallyLess(names.at(right), names.at(left)));
        merged.append(names.at(takesRight ? right++ : left++));
    }
}

// For names with runs of digits that are too long for a number. A merge only ever takes one of two
// names, so it ends well whatever it is told of them, which std::sort does not; and it starts from
// the order of the plain text, so that the order of the input does not matter.
QStringList merged(QStringList names)
{
    std::sort(names.begin(), names.end());
    const int size = names.size();
    for (int width = 1; width < size; width *= 2) {
        QStringList wider;
        wider.reserve(size);
        for (int from = 0; from < size; from += 2 * width)
            appendMerged(wider, names, from, std::min(from + width, size),
                         std::min(from + 2 * width, size));
        names.swap(wider);
    }
    return names;
}

} // namespace

bool naturallyLess(const QString& a, const QString& b)
{
    return parting(a, b).order() < 0;
}

QStringList naturallySorted(const QStringList& names)
{
    if (isInOrder(names))
        return names;
    const std::optional<SortKeys> keys = SortKeys::of(names);
    if (!keys)
        return merged(names);
    QStringList sorted;
    sorted.reserve(names.size());
    for (const int index : keys->sortedIndexes())
        sorted.append(names.at(index));
    return sorted;
}
