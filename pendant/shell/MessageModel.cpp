#include "MessageModel.h"

#include "Theme.h"

namespace pendant {

MessageModel::MessageModel(QObject* parent)
    : QAbstractTableModel(parent)
{}

void MessageModel::add(const Message& message)
{
    if (messages.size() == Capacity) {
        beginRemoveRows({}, Capacity - 1, Capacity - 1);
        messages.removeFirst();
        endRemoveRows();
    }
    beginInsertRows({}, 0, 0);
    messages.append(message);
    endInsertRows();
}

void MessageModel::clear()
{
    beginResetModel();
    messages.clear();
    endResetModel();
}

const Message& MessageModel::at(int row) const
{
    return messages.at(messages.size() - 1 - row);
}

int MessageModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : messages.size();
}

int MessageModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MessageModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Message& message = at(index.row());
    const Severity severity = severityOf(message.level);
    if (role == Qt::ForegroundRole && index.column() == Level)
        return severity.colour;
    if (role == Qt::BackgroundRole)
        return severity.tint;
    if (role == Qt::ToolTipRole)
        return QStringLiteral("%1: %2").arg(message.plugin, message.text);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Time:
        return message.time.toString(QStringLiteral("HH:mm:ss"));
    case Level:
        return severity.name;
    default:
        return message.text;
    }
}

QVariant MessageModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString captions[ColumnCount] = {tr("Time"), tr("Severity"), tr("Message")};
    return section < ColumnCount ? captions[section] : QString();
}

} // namespace pendant
