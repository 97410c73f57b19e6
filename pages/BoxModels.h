#pragma once

#include <QAbstractListModel>
#include <QFont>
#include <QHash>
#include <QStringList>

#include <memory>

class QComboBox;

/// Texts of a combo box, found at once and not one by one.
class TextListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    QVariant data(const QModelIndex& index, int role) const override;
    /// Exact searches of the shown text go through rowOf().
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

protected:
    /// `row` is in range.
    virtual QString textAt(int row) const = 0;
    /// The first row with the text, case sensitive; -1 when there is none.
    virtual int rowOf(const QString& text) const = 0;
};

/// An empty item, then the names of one list. Boxes with equal lists share one.
class PortListModel : public TextListModel
{
public:
    explicit PortListModel(const QStringList& portNames, QObject* parent = nullptr);

    const QStringList& names() const { return list; }
    int rowCount(const QModelIndex& parent = {}) const override;
    /// Pixels that the widest name takes; 0 without a name that is not empty.
    int widestName(const QFont& font) const;

protected:
    QString textAt(int row) const override;
    int rowOf(const QString& text) const override;

private:
    QStringList list;
    // What widestName() answered last.
    mutable QFont measuredFont;
    mutable int measuredWidth = -1; ///< -1 before the first question
};

/// The numbers "1" to count; none before the first setCount().
class NumberListModel : public TextListModel
{
public:
    using TextListModel::TextListModel;

    /// Confined to 1 and a million, which is beyond any register and within what a popup can lay
    /// out.
    void setCount(int newCount);
    int rowCount(const QModelIndex& parent = {}) const override;

protected:
    QString textAt(int row) const override;
    int rowOf(const QString& text) const override;

private:
    int count = 0;
};

/// The models of the port boxes of one page.
class PortListModels
{
public:
    /// Shows the names in the box behind an empty item. With `keepText` the item that was shown is
    /// selected again if it is still there, and the empty one otherwise.
    ///
    /// The box emits what it would if it was cleared and filled anew.
    void refill(QComboBox* box, const QStringList& names, bool keepText);

private:
    std::shared_ptr<PortListModel> modelOf(const QStringList& names) const;

    QHash<const QComboBox*, std::shared_ptr<PortListModel>> models;
};
