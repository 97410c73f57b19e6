#pragma once

#include <QPointer>
#include <QWidget>

#include <memory>

class WeldSettingPage;

namespace Ui {
class CharacteristicsCurvePage;
}

/// The characteristic curves of the laser and the wire feeder.
class CharacteristicsCurvePage : public QWidget
{
    Q_OBJECT

public:
    /// `setting` tells the state of the main switch; it may go before this page does.
    explicit CharacteristicsCurvePage(WeldSettingPage* setting, QWidget* parent = nullptr);
    ~CharacteristicsCurvePage() override;

    /// The visual pass; called when the host renders the plugin.
    void applyPageStyle();

private:
    std::unique_ptr<Ui::CharacteristicsCurvePage> ui;
    QPointer<WeldSettingPage> settingPage;
};
