#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class LaserTrackingPage;
}

/// Holds the widget of the seam-tracking plugin.
class LaserTrackingPage : public QWidget
{
    Q_OBJECT

public:
    explicit LaserTrackingPage(QWidget* parent = nullptr);
    ~LaserTrackingPage() override;

    /// Takes the sibling plugin's widget in as soon as that is ready.
    void embedTrackingWidget();

private:
    std::unique_ptr<Ui::LaserTrackingPage> ui;
};
