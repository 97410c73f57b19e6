#include "SortKeys.h"

#include "NameRuns.h"

#include <QtAlgorithms>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>

using namespace NameRuns;

namespace {

// Sort keys are bytes, compared from the first to the last. A number is a mark that grows with its
// count of bytes, then these bytes, the highest first; letters stand for themselves, and a mark
// parts them from letters before them. Numbers are less than the mark, and that less than letters.
constexpr uchar NumberMark = 0x10;
constexpr uchar LettersMark = 0x20;

// A digit takes two bytes at most, and a number is written with all of its bytes before the end of
// the key is known.
constexpr std::size_t KeyBytesPerCharacter = 2;
constexpr std::size_t KeySlack = sizeof(quint32);

uchar* appendNumber(uchar* key, quint32 number)
{
    const uint unusedBits = number ? qCountLeadingZeroBits(number) & ~7U : 32;
    const uint bytes = 4 - unusedBits / 8;
    *key++ = static_cast<uchar>(NumberMark + bytes);
    qToBigEndian(number ? number << unusedBits : 0, key);
    return key + bytes;
}

// Returns the end of the key, or null when a run of digits has none.
uchar* appendKey(uchar* key, const QString& name)
{
    const QChar* const end = name.constData() + name.size();
    bool isBehindLetters = false;
    for (const QChar* at = name.constData(); at != end;) {
        if (isDigit(*at)) {
            const Run digits = nextRun(at, end);
            const auto number = numberOf(digits);
            if (!number)
                return nullptr;
            key = appendNumber(key, *number);
            at = digits.end;
            isBehindLetters = false;
        } else if (isLetter(*at)) {
            if (isBehindLetters)
                *key++ = LettersMark;
            do
                *key++ = static_cast<uchar>(at->unicode());
            while (++at != end && isLetter(*at));
            isBehindLetters = true;
        } else {
            ++at;
        }
    }
    return key;
}

// Sorts keys by eight of their bytes at a time, and then each group that these leave equal by the
// bytes behind them. Keys that are equal keep their order.
class KeySorter
{
public:
    explicit KeySorter(const SortKeys& keysToSort);

    std::vector<int> sortedIndexes();

private:
    struct Entry
    {
        quint64 head; // the bytes that are compared next, filled up with zeros
        std::size_t index;
    };
    using Entries = std::vector<Entry>;
    struct Group
    {
        Entries::iterator begin;
        Entries::iterator end;
        std::size_t start; // what is in front of it is the same in all keys of the group

        std::size_t size() const { return static_cast<std::size_t>(end - begin); }
    };

    void sortGroup(Group group);
    void skipSharedStart(Group& group) const;
    void sortByHeads(const Group& group);
    void sortByByte(const Group& group, int shift);
    void openEqualGroups(const Group& sorted);

    const SortKeys& keys;
    Entries entries;
    Entries scratch;
    std::vector<Group> open;
};

KeySorter::KeySorter(const SortKeys& keysToSort)
    : keys(keysToSort)
    , entries(keysToSort.count())
    , scratch(keysToSort.count())
{
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i].index = i;
}

std::vector<int> KeySorter::sortedIndexes()
{
    if (!entries.empty()) // a group has a first key
        open.push_back({entries.begin(), entries.end(), 0});
    while (!open.empty()) {
        const Group group = open.back();
        open.pop_back();
        sortGroup(group);
    }
    std::vector<int> indexes(entries.size());
    std::transform(entries.begin(), entries.end(), indexes.begin(),
                   [](const Entry& entry) { return static_cast<int>(entry.index); });
    return indexes;
}

void KeySorter::sortGroup(Group group)
{
    skipSharedStart(group);
    for (auto entry = group.begin; entry != group.end; ++entry) {
        const std::size_t rest = keys.size(entry->index) - group.start;
        entry->head = 0;
        std::memcpy(&entry->head, keys.begin(entry->index) + group.start,
                    std::min(rest, sizeof entry->head));
        entry->head = qFromBigEndian(entry->head);
    }
    sortByHeads(group);
    openEqualGroups(group);
}

// Names often differ only behind a long common start.
void KeySorter::skipSharedStart(Group& group) const
{
    const uchar* const first = keys.begin(group.begin->index);
    const uchar* shared = first + keys.size(group.begin->index);
    for (auto entry = group.begin + 1; entry != group.end; ++entry) {
        const uchar* const key = keys.begin(entry->index);
        const uchar* const end = key + keys.size(entry->index);
        shared = std::mismatch(first + group.start, shared, key + group.start, end).first;
    }
    group.start = static_cast<std::size_t>(shared - first);
}

void KeySorter::sortByHeads(const Group& group)
{
    constexpr std::size_t Few = 64; // where counting 256 values of a byte does not pay
    if (group.size() < Few) {
        std::stable_sort(group.begin, group.end,
                         [](const Entry& a, const Entry& b) { return a.head < b.head; });
        return;
    }
    quint64 differing = 0;
    for (auto entry = group.begin; entry != group.end; ++entry)
        differing |= entry->head ^ group.begin->head;
    for (int shift = 0; shift < 64; shift += 8) {
        if ((differing >> shift & 0xff) != 0)
            sortByByte(group, shift);
    }
}

// From the lowest byte to the highest, each pass keeps the order of the one before.
void KeySorter::sortByByte(const Group& group, int shift)
{
    const auto byteOf = [shift](const Entry& entry) { return entry.head >> shift & 0xff; };
    std::array<std::size_t, 256> places{};
    for (auto entry = group.begin; entry != group.end; ++entry)
        ++places[byteOf(*entry)];
    std::exclusive_scan(places.begin(), places.end(), places.begin(), std::size_t(0));
    for (auto entry = group.begin; entry != group.end; ++entry)
        scratch[places[byteOf(*entry)]++] = *entry;
    std::copy_n(scratch.begin(), group.size(), group.begin);
}

// No key is another one with zeros behind it, so what a head was filled up with makes none equal.
void KeySorter::openEqualGroups(const Group& sorted)
{
    const std::size_t behind = sorted.start + sizeof(Entry::head);
    const auto goesOn = [&](const Entry& entry) { return keys.size(entry.index) > behind; };
    for (auto begin = sorted.begin; begin != sorted.end;) {
        const auto end = std::find_if(
            begin, sorted.end, [&](const Entry& entry) { return entry.head != begin->head; });
        if (end - begin > 1 && std::any_of(begin, end, goesOn))
            open.push_back({begin, end, behind});
        begin = end;
    }
}

} // namespace

std::optional<SortKeys> SortKeys::of(const QStringList& names)
{
    std::size_t characters = 0;
    for (const QString& name : names)
        characters += static_cast<std::size_t>(name.size());

    SortKeys keys;
    keys.bytes.reset(new uchar[characters * KeyBytesPerCharacter + KeySlack]);
    keys.offsets.reserve(static_cast<std::size_t>(names.size()) + 1);
    keys.offsets.push_back(0);
    uchar* end = keys.bytes.get();
    for (const QString& name : names) {
        end = appendKey(end, name);
        if (!end)
            return {};
        keys.offsets.push_back(static_cast<std::size_t>(end - keys.bytes.get()));
    }
    return keys;
}

std::vector<int> SortKeys::sortedIndexes() const
{
    return KeySorter(*this).sortedIndexes();
}
