#include "PageLayout.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>

#include <algorithm>

namespace PageLayout {

namespace {

constexpr int GridVertical = 6;
constexpr int GridHorizontal = 4;
constexpr int RowSpacing = 4;

/// Column of the units in the grid of a frame.
constexpr int UnitColumn = 2;

void polishUnit(QLabel* label, int width)
{
    if (label->wordWrap())
        label->setWordWrap(false);
    label->setMinimumWidth(width);
}

void polishCaption(QLabel* label)
{
    if (!label->wordWrap())
        label->setWordWrap(true);
    label->setMinimumSize(0, 0);
    // Without this flag a wrapped line would not get its height.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    label->setSizePolicy(policy);
}

template<typename Field>
void polishAll(QWidget* page, int width, int height)
{
    const auto fields = page->findChildren<Field*>();
    for (Field* each : fields) {
        // When a field is polished, its sheet sets a least height of its own.
        if (!each->isHidden())
            each->ensurePolished();
        each->setMinimumSize(width, height);
        each->setMaximumWidth(width);
    }
}

void relaxSpacersOf(QLayout* layout)
{
    for (int index = 0; index < layout->count(); ++index) {
        QSpacerItem* spacer = layout->itemAt(index)->spacerItem();
        const QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
        if (!spacer || (spacer->sizeHint().width() == 0 && spacer->sizePolicy() == policy))
            continue;
        spacer->changeSize(0, spacer->sizeHint().height(), policy.horizontalPolicy(),
                           policy.verticalPolicy());
        layout->invalidate();
    }
}

} // namespace

int polishLabels(QWidget* page, int unitWidth)
{
    int widestUnit = 0;
    const auto labels = page->findChildren<QLabel*>();
    for (QLabel* each : labels) {
        each->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        if (each->objectName().endsWith(QLatin1String("_unit"))) {
            polishUnit(each, unitWidth);
            widestUnit = std::max(widestUnit, each->sizeHint().width());
        } else {
            polishCaption(each);
        }
    }
    return widestUnit;
}

void setUnitColumn(QWidget* frame, int width)
{
    auto* grid = qobject_cast<QGridLayout*>(frame->layout());
    if (grid && grid->columnMinimumWidth(UnitColumn) != width)
        grid->setColumnMinimumWidth(UnitColumn, width);
}

void polishFields(QWidget* page, int width, int height)
{
    polishAll<QSpinBox>(page, width, height);
    polishAll<QDoubleSpinBox>(page, width, height);
    polishAll<QComboBox>(page, width, height);
}

void relaxSpacers(QWidget* page)
{
    const auto layouts = page->findChildren<QLayout*>();
    for (QLayout* each : layouts)
        relaxSpacersOf(each);
}

void setSpacings(QWidget* page)
{
    const auto grids = page->findChildren<QGridLayout*>();
    for (QGridLayout* each : grids) {
        if (each->verticalSpacing() != GridVertical)
            each->setVerticalSpacing(GridVertical);
        if (each->horizontalSpacing() != GridHorizontal)
            each->setHorizontalSpacing(GridHorizontal);
    }
    const auto boxes = page->findChildren<QBoxLayout*>();
    for (QBoxLayout* each : boxes) {
        if (each->spacing() != RowSpacing)
            each->setSpacing(RowSpacing);
    }
}

void packToTop(QWidget* column)
{
    auto* layout = qobject_cast<QBoxLayout*>(column->layout());
    if (!layout)
        return;
    layout->setAlignment(Qt::AlignTop);
    for (int index = 0; index < layout->count(); ++index)
        layout->setStretch(index, 0);
}

void clearRowStretch(QGridLayout* grid, int last)
{
    for (int row = 0; row <= last; ++row) {
        if (grid->rowStretch(row) != 0)
            grid->setRowStretch(row, 0);
    }
}

void shareColumns(QGridLayout* grid, int last)
{
    for (int column = 0; column <= last; ++column) {
        if (grid->columnStretch(column) != 1)
            grid->setColumnStretch(column, 1);
    }
}

void releaseSize(QWidget* frame)
{
    frame->setMinimumSize(0, 0);
    frame->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
}

} // namespace PageLayout
