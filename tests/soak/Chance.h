#pragma once

#include <QRandomGenerator>

#include <algorithm>

namespace soak {

/// What is drawn at random; the same for the same seed.
class Chance
{
public:
    explicit Chance(quint32 seed)
        : generator(seed)
    {}

    /// From 0 to count - 1; the count is at least 1.
    int below(int count) { return generator.bounded(count); }
    int between(int least, int most) { return generator.bounded(least, most + 1); }
    bool oneIn(int count) { return below(count) == 0; }

    /// Of a list that is not empty.
    template<typename List>
    auto of(const List& list) -> decltype(*std::begin(list))
    {
        return *(std::begin(list) + below(static_cast<int>(std::size(list))));
    }

    template<typename List>
    void shuffle(List& list)
    {
        for (int left = static_cast<int>(list.size()); left > 1; --left)
            std::swap(list[static_cast<std::size_t>(left - 1)],
                      list[static_cast<std::size_t>(below(left))]);
    }

private:
    QRandomGenerator generator;
};

} // namespace soak
