#pragma once

#include <QPointer>
#include <QWidget>

#include <memory>

class WeldSettingPage;

namespace Ui {
class WeldParameterPage;
}

/// The process schedules and the matching records.
class WeldParameterPage : public QWidget
{
    Q_OBJECT

public:
    /// `setting` tells the state of the main switch; it may go before this page does.
    explicit WeldParameterPage(WeldSettingPage* setting, QWidget* parent = nullptr);
    ~WeldParameterPage() override;

    /// The visual pass; called when the host renders the plugin.
    void applyPageStyle();

private:
    std::unique_ptr<Ui::WeldParameterPage> ui;
    QPointer<WeldSettingPage> settingPage;
};
