#include "BoxModels.h"

#include <QComboBox>
#include <QFontMetrics>

#include <algorithm>

namespace {

constexpr int MostNumbers = 1000000;

bool isExactSearch(int role, Qt::MatchFlags flags)
{
    // MatchExactly is 0.
    const Qt::MatchFlags beyond = flags & ~Qt::MatchFlags(Qt::MatchCaseSensitive | Qt::MatchWrap);
    return (role == Qt::DisplayRole || role == Qt::EditRole) && !beyond;
}

bool digitsAreAlike(const QFontMetrics& metrics)
{
    const QLatin1String digits("123456789");
    const int zero = metrics.horizontalAdvance(QLatin1Char('0'));
    return std::all_of(digits.begin(), digits.end(), [&](char digit) {
        return metrics.horizontalAdvance(QLatin1Char(digit)) == zero;
    });
}

QString withoutDigits(QString name)
{
    for (QChar& each : name) {
        if (each >= QLatin1Char('0') && each <= QLatin1Char('9'))
            each = QLatin1Char('0');
    }
    return name;
}

/// Neighbours that differ in their digits alone are measured once: a list of ports has some ten
/// thousand names and a handful of widths.
int widestOf(const QStringList& names, const QFontMetrics& metrics)
{
    const bool alike = digitsAreAlike(metrics);
    int widest = 0;
    QString measured;
    for (const QString& name : names) {
        const QString shape = alike ? withoutDigits(name) : name;
        if (shape == measured)
            continue;
        widest = std::max(widest, metrics.horizontalAdvance(shape));
        measured = shape;
    }
    return widest;
}

} // namespace

QVariant TextListModel::data(const QModelIndex& index, int role) const
{
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    if (!isText || !index.isValid() || index.row() >= rowCount())
        return {};
    return textAt(index.row());
}

QModelIndexList TextListModel::match(const QModelIndex& start, int role, const QVariant& value,
                                     int hits, Qt::MatchFlags flags) const
{
    const bool isFirstOfAll = start.row() == 0 && hits == 1;
    if (!isFirstOfAll || !isExactSearch(role, flags) || value.type() != QVariant::String)
        return QAbstractListModel::match(start, role, value, hits, flags);
    const int row = rowOf(value.toString());
    return row < 0 ? QModelIndexList() : QModelIndexList{index(row)};
}

PortListModel::PortListModel(const QStringList& portNames, QObject* parent)
    : TextListModel(parent)
    , list(portNames)
{}

int PortListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : list.size() + 1;
}

int PortListModel::widestName(const QFont& font) const
{
    if (measuredWidth < 0 || font != measuredFont) {
        measuredFont = font;
        measuredWidth = widestOf(list, QFontMetrics(font));
    }
    return measuredWidth;
}

QString PortListModel::textAt(int row) const
{
    return row == 0 ? QString() : list.at(row - 1);
}

int PortListModel::rowOf(const QString& text) const
{
    if (text.isEmpty())
        return 0;
    const int place = list.indexOf(text);
    return place < 0 ? -1 : place + 1;
}

void NumberListModel::setCount(int newCount)
{
    newCount = std::clamp(newCount, 1, MostNumbers);
    if (newCount == count)
        return;
    beginResetModel();
    count = newCount;
    endResetModel();
}

int NumberListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count;
}

QString NumberListModel::textAt(int row) const
{
    return QString::number(row + 1);
}

int NumberListModel::rowOf(const QString& text) const
{
    const int number = text.toInt();
    const bool isOurs = number >= 1 && number <= count && text == QString::number(number);
    return isOurs ? number - 1 : -1;
}

void PortListModels::refill(QComboBox* box, const QStringList& names, bool keepText)
{
    const QString shown = keepText ? box->currentText() : QString();
    const std::shared_ptr<PortListModel> model = modelOf(names);
    box->setCurrentIndex(-1);
    if (box->model() == model.get())
        box->setCurrentIndex(0);
    else
        box->setModel(model.get()); // selects the first item
    models.insert(box, model);      // the model before goes, if no other box has it
    if (!shown.isEmpty())
        box->setCurrentText(shown);
}

std::shared_ptr<PortListModel> PortListModels::modelOf(const QStringList& names) const
{
    for (const std::shared_ptr<PortListModel>& model : models) {
        if (model->names() == names)
            return model;
    }
    return std::make_shared<PortListModel>(names);
}
