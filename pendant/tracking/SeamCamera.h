#pragma once

#include <QWidget>

/// Picture of the sensor's camera: two plates, the stripe of light across them, and the point at
/// which the seam was found.
class SeamCamera : public QWidget
{
    Q_OBJECT

public:
    explicit SeamCamera(QWidget* parent = nullptr);

    /// How far the seam lies from the torch, in millimetres to the right and upwards.
    void setOffset(QPointF millimetres);
    /// Whether the light is on; without it the picture has no stripe and no seam.
    void setSearching(bool on);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPointF seam() const;
    void drawPlates(QPainter& painter) const;
    void drawStripe(QPainter& painter) const;
    void drawTorch(QPainter& painter) const;

    QPointF offset;
    bool searching = false;
};
