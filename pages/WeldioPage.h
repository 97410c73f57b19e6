#pragma once

#include <QPointer>
#include <QWidget>

#include <memory>

class WeldSettingPage;

namespace Ui {
class WeldioPage;
}

/// Maps the process signals to ports and registers.
class WeldioPage : public QWidget
{
    Q_OBJECT

public:
    /// `setting` tells the state of the main switch; it may go before this page does.
    explicit WeldioPage(WeldSettingPage* setting, QWidget* parent = nullptr);
    ~WeldioPage() override;

    /// The visual pass; called when the host renders the plugin.
    void applyPageStyle();

private:
    std::unique_ptr<Ui::WeldioPage> ui;
    QPointer<WeldSettingPage> settingPage;
};
