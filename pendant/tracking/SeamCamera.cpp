#include "SeamCamera.h"

#include <QPainter>

namespace {

constexpr double FieldOfView = 12; // millimetres across the picture
constexpr double GapWidth = 1.6;   // millimetres
constexpr double GapDepth = 1.1;   // millimetres, as the slanting stripe shows it

constexpr QRgb Dark = 0xff10161c;
constexpr QRgb Plate = 0xff39444e;
constexpr QRgb Edge = 0xff5d6b78;
constexpr QRgb Light = 0xffff5a4d;
constexpr QRgb Found = 0xff6fe08a;
constexpr QRgb Torch = 0xffe9edf1;

QPen pen(QRgb colour, double width)
{
    return {QColor(colour), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

} // namespace

SeamCamera::SeamCamera(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QLatin1String("camera"));
    setMinimumSize(160, 100);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize SeamCamera::sizeHint() const
{
    return {480, 300};
}

void SeamCamera::setOffset(QPointF millimetres)
{
    offset = millimetres;
    update();
}

void SeamCamera::setSearching(bool on)
{
    searching = on;
    update();
}

QPointF SeamCamera::seam() const
{
    const double scale = width() / FieldOfView;
    return rect().center() + QPointF(offset.x() * scale, -offset.y() * scale);
}

void SeamCamera::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), QColor(Dark));
    drawPlates(painter);
    if (searching)
        drawStripe(painter);
    drawTorch(painter);
}

void SeamCamera::drawPlates(QPainter& painter) const
{
    const double gap = GapWidth * width() / FieldOfView;
    const double x = seam().x();
    const QRectF left(0, 0, x - gap / 2, height());
    const QRectF right(x + gap / 2, 0, width() - x - gap / 2, height());
    painter.fillRect(left, QColor(Plate));
    painter.fillRect(right, QColor(Plate));
    painter.setPen(pen(Edge, 2));
    painter.drawLine(left.topRight(), left.bottomRight());
    painter.drawLine(right.topLeft(), right.bottomLeft());
}

// The stripe dips where it falls into the gap; the seam is the lowest point.
void SeamCamera::drawStripe(QPainter& painter) const
{
    const double scale = width() / FieldOfView;
    const double half = GapWidth / 2 * scale;
    const QPointF lowest = seam();
    const double top = lowest.y() - GapDepth * scale;
    painter.setPen(pen(Light, 3));
    const QPointF stripe[] = {QPointF(0, top), QPointF(lowest.x() - half, top), lowest,
                              QPointF(lowest.x() + half, top), QPointF(width(), top)};
    painter.drawPolyline(stripe, 5);
    painter.setPen(pen(Found, 2));
    painter.drawEllipse(lowest, 8, 8);
    painter.drawLine(lowest - QPointF(14, 0), lowest + QPointF(14, 0));
    painter.drawLine(lowest - QPointF(0, 14), lowest + QPointF(0, 14));
}

void SeamCamera::drawTorch(QPainter& painter) const
{
    QPen dashed = pen(Torch, 1);
    dashed.setStyle(Qt::DashLine);
    painter.setPen(dashed);
    const QPointF middle = rect().center();
    painter.drawLine(QPointF(middle.x(), 0), QPointF(middle.x(), height()));
    painter.drawLine(QPointF(0, middle.y()), QPointF(width(), middle.y()));
}
