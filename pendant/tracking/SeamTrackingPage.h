#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class SeamCamera;

/// The page of the seam tracking: the camera's picture, a switch for the sensor, and a line that
/// says what it sees.
class SeamTrackingPage : public QWidget
{
    Q_OBJECT

public:
    explicit SeamTrackingPage(QWidget* parent = nullptr);

private:
    void setSearching(bool on);

    SeamCamera* camera;
    QLabel* state;
    QPushButton* sensor;
};
