#include "ProgramDocument.h"

#include "ProgramLine.h"

#include <algorithm>

namespace pendant {

namespace {

constexpr char LineEnd = '\n';
constexpr char Return = '\r';

ProgramDocument::Lines split(const QByteArray& text)
{
    ProgramDocument::Lines lines;
    lines.reserve(text.count(LineEnd) + 1);
    int from = 0;
    while (from < text.size()) {
        const int found = text.indexOf(LineEnd, from);
        const int end = found < 0 ? text.size() : found;
        lines.append(text.mid(from, end - from));
        from = end + 1;
    }
    return lines;
}

} // namespace

/// One step of the history: some rows were put in the place of others.
class ProgramDocument::Splice : public QUndoCommand
{
public:
    Splice(ProgramDocument& document, const QString& name, int row, Lines removed, Lines inserted)
        : QUndoCommand(name)
        , owner(document)
        , first(row)
        , before(std::move(removed))
        , after(std::move(inserted))
    {}

    void undo() override { owner.splice(first, after.size(), before); }
    void redo() override { owner.splice(first, before.size(), after); }

private:
    ProgramDocument& owner;
    int first;
    Lines before;
    Lines after;
};

ProgramDocument::ProgramDocument(QObject* parent)
    : QAbstractListModel(parent)
{}

void ProgramDocument::load(const QByteArray& text)
{
    beginResetModel();
    steps.clear();
    all = split(text);
    lastHasEnd = text.isEmpty() || text.endsWith(LineEnd);
    longest = 0;
    for (const QByteArray& each : qAsConst(all))
        longest = qMax(longest, each.size());
    endResetModel();
}

QByteArray ProgramDocument::text() const
{
    QByteArray text;
    int size = 0;
    for (const QByteArray& each : all)
        size += each.size() + 1;
    text.reserve(size);
    for (const QByteArray& each : all)
        text.append(each).append(LineEnd);
    if (!lastHasEnd)
        text.chop(1);
    return text;
}

int ProgramDocument::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : all.size();
}

QVariant ProgramDocument::data(const QModelIndex& index, int role) const
{
    return index.isValid() && role == Qt::DisplayRole ? line(index.row()) : QVariant();
}

QString ProgramDocument::line(int row) const
{
    if (row < 0 || row >= all.size())
        return {};
    const QByteArray& bytes = all.at(row);
    return QString::fromUtf8(bytes.constData(), bytes.size() - (bytes.endsWith(Return) ? 1 : 0));
}

// New lines end as the first one does.
bool ProgramDocument::endsWithReturn() const
{
    return !all.isEmpty() && all.first().endsWith(Return);
}

ProgramDocument::Lines ProgramDocument::encoded(const QStringList& texts) const
{
    Lines lines;
    for (const QString& each : texts) {
        lines.append(each.toUtf8());
        if (endsWithReturn())
            lines.last().append(Return);
    }
    return lines;
}

void ProgramDocument::change(const QString& name, int first, int count, const Lines& lines)
{
    const int row = qBound(0, first, all.size());
    const int removed = qBound(0, count, all.size() - row);
    if (removed > 0 || !lines.isEmpty())
        steps.push(new Splice(*this, name, row, all.mid(row, removed), lines));
}

void ProgramDocument::splice(int first, int count, const Lines& lines)
{
    const int same = qMin(count, lines.size());
    std::copy_n(lines.begin(), same, all.begin() + first);
    if (same > 0)
        Q_EMIT dataChanged(index(first), index(first + same - 1));
    if (count > same) {
        beginRemoveRows({}, first + same, first + count - 1);
        all.remove(first + same, count - same);
        endRemoveRows();
    } else if (lines.size() > same) {
        beginInsertRows({}, first + same, first + lines.size() - 1);
        all.insert(first + same, lines.size() - same, QByteArray());
        std::copy(lines.begin() + same, lines.end(), all.begin() + first + same);
        endInsertRows();
    }
    for (const QByteArray& each : lines)
        longest = qMax(longest, each.size());
    Q_EMIT changed(first, lines.size());
}

void ProgramDocument::insert(int row, const QStringList& lines)
{
    change(tr("Insert"), row, 0, encoded(lines));
}

void ProgramDocument::replace(int first, int count, const QStringList& lines)
{
    change(tr("Replace"), first, count, encoded(lines));
}

// The line keeps its own end, also where the rest of the program ends otherwise.
void ProgramDocument::replaceCode(int row, const QStringList& code)
{
    if (row < 0 || row >= all.size())
        return;
    QByteArray old = all.at(row);
    const QByteArray end = old.endsWith(Return) ? QByteArray(1, Return) : QByteArray();
    old.chop(end.size());
    Lines lines;
    for (const QString& each : code) {
        lines << withCode(old, each) + end;
        old.truncate(indentOf(QString::fromLatin1(old)));
    }
    change(tr("Replace"), row, 1, lines);
}

void ProgramDocument::remove(int first, int count)
{
    change(tr("Delete"), first, count, {});
}

bool ProgramDocument::moveUp(int first, int count)
{
    if (first < 1 || count < 1 || first + count > all.size())
        return false;
    Lines lines = all.mid(first - 1, count + 1);
    std::rotate(lines.begin(), lines.begin() + 1, lines.end());
    change(tr("Move up"), first - 1, count + 1, lines);
    Q_EMIT changed(first - 1, count);
    return true;
}

bool ProgramDocument::moveDown(int first, int count)
{
    if (first < 0 || count < 1 || first + count >= all.size())
        return false;
    Lines lines = all.mid(first, count + 1);
    std::rotate(lines.begin(), lines.end() - 1, lines.end());
    change(tr("Move down"), first, count + 1, lines);
    Q_EMIT changed(first + 1, count);
    return true;
}

// By bytes, so that a line that is no proper text is only lengthened.
void ProgramDocument::toggleComment(int first, int count)
{
    Lines lines = all.mid(first, count);
    const bool areComments = std::all_of(lines.begin(), lines.end(), [](const QByteArray& each) {
        return isComment(QString::fromLatin1(each));
    });
    for (QByteArray& each : lines) {
        const QString text = QString::fromLatin1(each);
        each = (areComments ? withoutComment(text) : asComment(text)).toLatin1();
    }
    change(tr("Comment"), first, lines.size(), lines);
}

QByteArray ProgramDocument::copy(int first, int count) const
{
    QByteArray copied;
    const Lines lines = all.mid(first, count);
    for (const QByteArray& each : lines)
        copied.append(each).append(LineEnd);
    return copied;
}

void ProgramDocument::paste(int row, const QByteArray& copied)
{
    change(tr("Paste"), row, 0, split(copied));
}

int ProgramDocument::find(const QString& text, int from) const
{
    if (text.isEmpty())
        return -1;
    for (int i = 0; i < all.size(); ++i) {
        const int row = (qMax(from, 0) + i) % all.size();
        if (line(row).contains(text, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

} // namespace pendant
