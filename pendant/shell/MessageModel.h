#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QVector>

namespace pendant {

/// One message to the operator.
struct Message
{
    QDateTime time;
    QString plugin;
    int level = 0; ///< 0 information, 1 warning, 2 error
    QString text;
};

/// The message history, the newest first. Keeps the last 1000.
class MessageModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Time, Level, Text, ColumnCount };
    static constexpr int Capacity = 1000;

    explicit MessageModel(QObject* parent = nullptr);

    void add(const Message& message);
    void clear();
    /// The message of the row, the newest in row 0.
    const Message& at(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVector<Message> messages; ///< the oldest first
};

} // namespace pendant
