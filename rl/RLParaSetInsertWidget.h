#pragma once

#include <qelplugin.h>

#include <memory>

namespace Ui {
class RLParaSetInsertWidget;
}

namespace qelplugin {

/// Edits an LsParaSet instruction, new or existing: the schedule to switch to and how to get there,
/// at once, over a time or over the way.
class RLParaSetInsertWidget : public RLContentBase
{
    Q_OBJECT

public:
    RLParaSetInsertWidget(const QString& key, QWidget* parent);
    ~RLParaSetInsertWidget() override;

    /// A text that is no call, or one without arguments, changes nothing. A schedule that the
    /// controller does not have keeps the one before, a ramp of another kind is none.
    void FillWith(const QString& text) override;
    QString BuildText() override;
    bool CheckInsert() override;
    bool CheckReplace() override;

private:
    void load(const QString& text);
    void loadRamp(const QString& kind, const QString& milliseconds);
    void showRampTime(const QString& kind);

    std::unique_ptr<Ui::RLParaSetInsertWidget> ui;
};

} // namespace qelplugin
