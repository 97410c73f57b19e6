#pragma once

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

/// Sort keys of a list of names in natural order, each made once.
class SortKeys
{
public:
    /// The keys of the names; nothing when one has a run of digits too long for an int.
    static std::optional<SortKeys> of(const QStringList& names);

    /// The indexes of the names in their natural order; equal names keep their order.
    std::vector<int> sortedIndexes() const;

    std::size_t count() const { return offsets.size() - 1; }
    /// Start and length of the key of the name at the index.
    const uchar* begin(std::size_t index) const { return bytes.get() + offsets[index]; }
    std::size_t size(std::size_t index) const { return offsets[index + 1] - offsets[index]; }

private:
    std::unique_ptr<uchar[]> bytes;   ///< the keys, one behind the other
    std::vector<std::size_t> offsets; ///< of each key, and of the end
};
