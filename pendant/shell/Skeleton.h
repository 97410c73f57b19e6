#pragma once

#include <QStringList>
#include <QVector>

#include <optional>

namespace pendant {

/// One input of an instruction, as "$label#kind#values#flag$" describes it.
struct SkeletonField
{
    enum class Kind {
        Choice, ///< "cmb": one of the entries
        Number, ///< "spn": a whole number within the range
    };

    QString label;
    Kind kind = Kind::Choice;
    QStringList entries; ///< of a choice, with the quotation marks that go into the instruction
    int minimum = 0;
    int maximum = 0;
    bool flag = false;
};

/// What is wrong with a skeleton, and where: an offset in characters from its start.
struct SkeletonError
{
    int offset = 0;
    QString reason;

    QString text() const;
};

/// The text of an instruction with its inputs: literal pieces and, between each two, a field.
class Skeleton
{
public:
    /// Null for a malformed text, with the error set.
    static std::optional<Skeleton> parse(const QString& text, SkeletonError* error);

    const QVector<SkeletonField>& fields() const { return inputs; }
    const QStringList& literals() const { return pieces; } ///< one more than there are fields

    /// The instruction with the values in the place of its fields, one for each.
    QString write(const QStringList& values) const;
    /// The values of the fields in a program line. Spaces between the words and signs of the
    /// instruction do not count, nor what stands behind its end. Null when the line is another.
    std::optional<QStringList> read(const QString& line) const;

private:
    QStringList pieces;
    QVector<SkeletonField> inputs;
};

} // namespace pendant
