#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QWidget>

#include <memory>

namespace Ui {
class WeldSettingPage;
}

/// Settings of the laser unit, the gas, the restart and the wire feeder, under the main switch that
/// starts and stops laser welding.
class WeldSettingPage : public QWidget
{
    Q_OBJECT

public:
    explicit WeldSettingPage(QWidget* parent = nullptr);
    ~WeldSettingPage() override;

    /// State of the main switch. While it is on the other pages are locked.
    bool isMainEnabled() const;
    /// The visual pass; called when the host renders the plugin.
    void applyPageStyle();

Q_SIGNALS:
    void setMainEnable(bool);

private:
    std::unique_ptr<Ui::WeldSettingPage> ui;
};
