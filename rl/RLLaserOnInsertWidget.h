#pragma once

#include <qelplugin.h>

#include <memory>

namespace Ui {
class RLLaserOnInsertWidget;
}

namespace qelplugin {

/// Edits a LaserOn instruction, new or existing: the schedule to weld with and, for a spot weld,
/// the time at the spot.
class RLLaserOnInsertWidget : public RLContentBase
{
    Q_OBJECT

public:
    RLLaserOnInsertWidget(const QString& key, QWidget* parent);
    ~RLLaserOnInsertWidget() override;

    /// A text that is no call changes nothing, and so does a schedule that the controller does not
    /// have. A wait is brought into 0 to 5000 ms.
    void FillWith(const QString& text) override;
    QString BuildText() override;
    bool CheckInsert() override;
    /// Whether there is a schedule.
    bool CheckReplace() override;

private:
    void load(const QString& text);
    void loadWait(const QString& wait);
    bool isSpotWeld() const;
    void updateWaitVisibility();

    std::unique_ptr<Ui::RLLaserOnInsertWidget> ui;
};

} // namespace qelplugin
