#include "ComboPopupFixer.h"

#include "OwnedTimer.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QFontMetrics>

#include <algorithm>

namespace {

constexpr int DefaultRows = 10;
constexpr int MinRowHeight = 20;
constexpr int RowPadding = 8;
// A popup that is higher than its rows by no more than this stays as it is.
constexpr int HeightSlack = 4;

int rowHeight(const QComboBox& combo, const QAbstractItemView& view)
{
    const int hint = view.sizeHintForRow(0);
    if (hint >= 1)
        return hint;
    return std::max(QFontMetrics(combo.font()).height() + RowPadding, MinRowHeight);
}

bool isPopupOf(const QComboBox& combo, const QWidget* window)
{
    // A window of its own, or a popup.
    constexpr unsigned separate = 0x1U | 0x8U;
    return window && window != combo.window() &&
           (static_cast<unsigned>(window->windowFlags()) & separate) != 0;
}

} // namespace

ComboPopupFixer::ComboPopupFixer(QComboBox* servedCombo, int rows, bool moveBelow)
    : QObject(servedCombo->view())
    , combo(servedCombo)
    , maxRows(rows > 0 ? rows : DefaultRows)
    , below(moveBelow)
{
    servedCombo->view()->installEventFilter(this);
}

bool ComboPopupFixer::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Show && combo) {
        fixPopup();
        // Once more when the box has finished placing its popup. The view may go before, and this
        // filter with it.
        ownedSingleShot(0, combo.data(), [self = QPointer<ComboPopupFixer>(this)] {
            if (self)
                self->fixPopup();
        });
    }
    return false;
}

void ComboPopupFixer::fixPopup() const
{
    QAbstractItemView* view = combo ? combo->view() : nullptr;
    if (!view || combo->count() == 0)
        return;
    const int rows = std::min(combo->count(), maxRows);
    const int height = rows * rowHeight(*combo, *view) + 2 * view->frameWidth();
    QWidget* popup = view->window();
    if (!isPopupOf(*combo, popup))
        return;
    if (popup->height() > height + HeightSlack) {
        view->setMinimumHeight(0);
        view->setMaximumHeight(height);
        popup->setFixedHeight(height);
    }
    if (below)
        popup->move(combo->mapToGlobal(QPoint(0, combo->height())));
}
