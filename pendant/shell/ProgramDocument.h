#pragma once

#include <QAbstractListModel>
#include <QByteArray>
#include <QUndoStack>
#include <QVector>

namespace pendant {

/// The lines of a robot program, one row each. They are kept byte for byte: what is not touched is
/// written as it was read, line ends and broken characters among it.
class ProgramDocument : public QAbstractListModel
{
    Q_OBJECT

public:
    using Lines = QVector<QByteArray>;

    explicit ProgramDocument(QObject* parent = nullptr);

    /// Replaces everything and forgets the history.
    void load(const QByteArray& text);
    QByteArray text() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    /// The line without its end for Qt::DisplayRole.
    QVariant data(const QModelIndex& index, int role) const override;
    QString line(int row) const;
    /// Bytes of the longest line that there has been since the load.
    int longestLine() const { return longest; }

    // Changes, each one step of the history. Rows out of range are brought into it.
    void insert(int row, const QStringList& lines);
    void replace(int first, int count, const QStringList& lines);
    /// Puts the code in the place of the line's own: indent and trailing comment stay.
    void replaceCode(int row, const QStringList& code);
    void remove(int first, int count);
    /// One row up or down; false at the end of the program.
    bool moveUp(int first, int count);
    bool moveDown(int first, int count);
    /// Makes the lines comments; where all are comments already, makes them lines again.
    void toggleComment(int first, int count);

    /// The lines as text, for paste().
    QByteArray copy(int first, int count) const;
    void paste(int row, const QByteArray& copied);

    /// The next row from `from` on that holds the text, in any case of letters, around the end of
    /// the program; -1 when there is none.
    int find(const QString& text, int from) const;

    QUndoStack& history() { return steps; }
    bool isModified() const { return !steps.isClean(); }

Q_SIGNALS:
    /// The rows that a change, an undo or a redo has left; `count` may be 0.
    void changed(int first, int count);

private:
    class Splice;

    void change(const QString& name, int first, int count, const Lines& lines);
    void splice(int first, int count, const Lines& lines);
    Lines encoded(const QStringList& texts) const;
    bool endsWithReturn() const;

    Lines all;
    bool lastHasEnd = true; ///< the text ends with a line end
    int longest = 0;
    QUndoStack steps;
};

} // namespace pendant
