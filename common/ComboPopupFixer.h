#pragma once

#include <QObject>
#include <QPointer>

class QComboBox;

/// Gives the popup of a combo box the height of its rows each time it opens. Filters the item view
/// of the box and belongs to it. Private to UiScale.
class ComboPopupFixer : public QObject
{
public:
    /// Shows at most `maxRows` rows; 10 when that is not positive. `below`: the popup also moves
    /// right under the box. `view` is the item view of the box, which must have one.
    ComboPopupFixer(QComboBox* servedCombo, int rows, bool moveBelow);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fixPopup() const;

    QPointer<QComboBox> combo;
    qint32 maxRows;
    bool below;
};
