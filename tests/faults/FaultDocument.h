#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// What came of a deed under a fault, in the words of its group.
struct Outcome
{
    QStringList told;
    QStringList logged;
    QString shown;
    QString held;

    /// The cells of its row, behind the fault.
    QString cells() const;
    bool operator==(const Outcome& other) const { return cells() == other.cells(); }
};

/// What came of a deed under each of the faults, in their order.
struct DeedOutcomes
{
    QString name;
    QVector<Outcome> outcomes;
};

/// The parts of docs/faults.md that are not written by hand. Each stands between two lines that
/// name it.
namespace FaultDocument {

/// One table of all deeds of a group: faults of the same outcome share a row, and deeds that come
/// out otherwise have one of their own.
QString table(const QStringList& faults, const QVector<DeedOutcomes>& deeds);

/// A table with a head, row by row.
QString plainTable(const QStringList& head, const QVector<QStringList>& rows);

/// The text of the part; null when the document has none of the name.
QString part(const QString& document, const QString& name);
/// The document with another text in the part.
QString withPart(const QString& document, const QString& name, const QString& text);

} // namespace FaultDocument
