#pragma once

#include "Cell.h"

namespace pendant {

/// The rules for the robot programs of a cell. Each operation returns an empty text when it is
/// done; otherwise it has changed nothing and the text tells the user why and what to do.
class ProgramStore
{
public:
    /// Bytes of a text at most: more is no program, and would fill the disk in no time.
    static constexpr int largest = 64 * 1024 * 1024;

    /// The cell must outlive the store.
    explicit ProgramStore(Cell& cell)
        : m_cell(cell)
    {}

    QString save(const QString& name, const QByteArray& text);
    QString create(const QString& name);
    QString rename(const QString& from, const QString& to);
    QString remove(const QString& name);

private:
    bool has(const QString& name) const { return m_cell.programs().contains(name); }
    QString checkNew(const QString& name) const;
    QString checkOld(const QString& name) const;

    Cell& m_cell;
};

} // namespace pendant
