#pragma once

#include <QChar>

#include <algorithm>
#include <limits>
#include <optional>

/// The runs that a name counts as in the natural order; for its two readers, in their loops.
namespace NameRuns {

// ASCII only. Objects, so that the algorithms that they are given to take them in.
inline constexpr auto isDigit = [](QChar character) {
    return character.unicode() - uint('0') < 10U;
};
// Bit 0x20 makes a capital letter small, and makes no other character a letter.
inline constexpr auto isLetter = [](QChar character) {
    return (character.unicode() | 0x20U) - uint('a') < 26U;
};

/// A run of letters or of digits; empty at the end of the name.
struct Run
{
    const QChar* begin;
    const QChar* end;
    bool isDigits;

    bool isEmpty() const { return begin == end; }
    std::ptrdiff_t size() const { return end - begin; }
};

/// Every run of so few digits fits an int.
inline constexpr int FittingDigits = std::numeric_limits<int>::digits10;

/// The first run at or behind `at`.
inline Run nextRun(const QChar* at, const QChar* const end)
{
    while (at != end && !isDigit(*at) && !isLetter(*at))
        ++at;
    const bool isDigits = at != end && isDigit(*at);
    const QChar* const behind =
        isDigits ? std::find_if_not(at, end, isDigit) : std::find_if_not(at, end, isLetter);
    return {at, behind, isDigits};
}

/// What the digits count, or nothing when that is too much for an int.
inline std::optional<quint32> numberOf(const Run& digits)
{
    constexpr quint64 Largest = std::numeric_limits<int>::max();
    quint64 number = 0;
    for (const QChar* at = digits.begin; at != digits.end; ++at) {
        number = number * 10 + (at->unicode() - uint('0'));
        if (number > Largest)
            return {};
    }
    return static_cast<quint32>(number);
}

} // namespace NameRuns
