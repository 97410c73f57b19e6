#pragma once

#include <QPointer>
#include <QWidget>

#include <memory>

namespace Ui {
class LaserTrackingPage;
}

/// The place of the seam-tracking plugin's widget, which arrives when that plugin does: with this
/// one, seconds later, or never. The operator is told nothing; until then the page is blank.
class LaserTrackingPage : public QWidget
{
    Q_OBJECT

public:
    explicit LaserTrackingPage(QWidget* parent = nullptr);
    ~LaserTrackingPage() override;

    /// Takes the widget into the page, also back from where it was moved to. While there is none
    /// it asks again every 200 ms; 25 failures end that for good, and each later call asks once.
    void embedTrackingWidget();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void askAgain(int code);
    void takeWidget();

    std::unique_ptr<Ui::LaserTrackingPage> ui;
    QPointer<QWidget> trackingWidget; ///< the other plugin's, which may delete it
    int embedRetries = 0;             ///< attempts that found nothing
};
