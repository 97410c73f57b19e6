#include "CustomChart.h"

#include "ui_CustomChart.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

// Room around the frame, in pixels.
constexpr int Left = 50;
constexpr int Right = 20;
constexpr int Top = 20;
constexpr int Bottom = 25;

constexpr int TickLength = 5;
constexpr int PointRadius = 3;
constexpr double FlattestSlope = 1e-06;

/// Where an axis ends: the first number, a whole number of steps on, that is not below `last`.
qint64 endOf(qint32 first, qint32 last, qint32 step)
{
    if (last <= first || step < 1)
        return first;
    const qint64 steps = (qint64(last) - first + step - 1) / step;
    return first + steps * step;
}

double scaleOf(int pixels, qint64 range)
{
    return range > 0 ? static_cast<double>(pixels) / static_cast<double>(range) : 0.0;
}

/// Distance of the ticks that are drawn: the step, or a multiple of it where there are more ticks
/// than a screen could show.
qint64 tickDistance(qint64 range, qint32 step)
{
    constexpr qint64 mostTicks = 2000;
    const qint64 least = std::max(step, 1);
    return least * (range / least / mostTicks + 1);
}

/// To the nearest whole number, halves away from zero, within what a painter can take. What is no
/// number is far off.
int rounded(double number)
{
    constexpr double farthest = 1e6;
    if (std::isnan(number))
        return -static_cast<int>(farthest);
    return static_cast<int>(std::lround(std::clamp(number, -farthest, farthest)));
}

/// A stroke along an axis. As a rectangle it covers the same pixels as a line of width 2 and takes
/// a fraction of its time.
void stroke(QPainter& painter, int x1, int y1, int x2, int y2)
{
    const QPoint first(std::min(x1, x2) - 1, std::min(y1, y2) - 1);
    const QPoint last(std::max(x1, x2), std::max(y1, y2));
    painter.fillRect(QRect(first, last), Qt::black);
}

} // namespace

/// The frame in the widget and the mapping of values to pixels.
struct CustomChart::Frame
{
    explicit Frame(const CustomChart& chart)
        : right(chart.width() - Right)
        , bottom(chart.height() - Bottom)
        , xMin(chart.xMin)
        , yMin(chart.yMin)
        , xEnd(endOf(chart.xMin, chart.xMax, chart.xStep))
        , yEnd(endOf(chart.yMin, chart.yMax, chart.yStep))
        , xScale(scaleOf(chart.width() - Left - Right, xEnd - xMin))
        , yScale(scaleOf(chart.height() - Top - Bottom, yEnd - yMin))
    {}

    int xOffset(double x) const { return rounded((x - double(xMin)) * xScale); }
    int yPixel(double y) const { return bottom - rounded((y - double(yMin)) * yScale); }
    QPoint pixel(QPointF value) const { return {Left + xOffset(value.x()), yPixel(value.y())}; }

    int right;
    int bottom;
    qint64 xMin;
    qint64 yMin;
    qint64 xEnd;
    qint64 yEnd;
    double xScale; ///< pixels for each unit
    double yScale;
};

CustomChart::CustomChart(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::CustomChart)
{
    ui->setupUi(this);
}

CustomChart::~CustomChart() = default;

void CustomChart::setAxes(const QString& xTickSuffix, qint32 xTickStep, qint32 xFirst, qint32 xLast,
                          const QString& yTickSuffix, qint32 yTickStep, qint32 yFirst, qint32 yLast)
{
    xSuffix = xTickSuffix;
    xStep = xTickStep;
    xMin = xFirst;
    xMax = xLast;
    ySuffix = yTickSuffix;
    yStep = yTickStep;
    yMin = yFirst;
    yMax = yLast;
}

void CustomChart::setPoints(const QList<QPair<double, double>>& dots)
{
    points = dots;
}

void CustomChart::setLine(double lineSlope, double lineIntercept)
{
    slope = lineSlope;
    intercept = lineIntercept;
    computed = true;
}

void CustomChart::setTitles(const QString& xAxisTitle, const QString& yAxisTitle)
{
    xTitle = xAxisTitle;
    yTitle = yAxisTitle;
}

void CustomChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Frame frame(*this);
    painter.setPen(QPen(Qt::black, 1)); // of the texts as well
    drawFrame(painter, frame);
    drawXTicks(painter, frame);
    drawYTicks(painter, frame);
    painter.setBrush(Qt::black);
    drawPoints(painter, frame);
    if (std::abs(slope) > FlattestSlope)
        drawLine(painter, frame);
    drawTitles(painter, frame);
}

void CustomChart::drawFrame(QPainter& painter, const Frame& frame) const
{
    stroke(painter, Left, frame.bottom, frame.right, frame.bottom);
    stroke(painter, Left, Top, Left, frame.bottom);
    stroke(painter, Left, Top, frame.right, Top);
    stroke(painter, frame.right, Top, frame.right, frame.bottom);
}

// The tick at the end of the axis is left out.
void CustomChart::drawXTicks(QPainter& painter, const Frame& frame) const
{
    const qint64 distance = tickDistance(frame.xEnd - frame.xMin, xStep);
    for (qint64 tick = frame.xMin; tick < frame.xEnd; tick += distance) {
        const int offset = frame.xOffset(static_cast<double>(tick));
        const int x = Left + offset;
        stroke(painter, x, frame.bottom - TickLength, x, frame.bottom);
        painter.drawText(40 + offset, height() - 5, QString::number(tick) + xSuffix);
    }
}

// The tick at the end of the axis is drawn.
void CustomChart::drawYTicks(QPainter& painter, const Frame& frame) const
{
    const qint64 distance = tickDistance(frame.yEnd - frame.yMin, yStep);
    for (qint64 tick = frame.yMin; tick <= frame.yEnd; tick += distance) {
        const int y = frame.yPixel(static_cast<double>(tick));
        stroke(painter, Left, y, Left + TickLength, y);
        painter.drawText(10, y + 10, QString::number(tick) + ySuffix);
    }
}

void CustomChart::drawPoints(QPainter& painter, const Frame& frame) const
{
    for (const QPair<double, double>& point : points)
        painter.drawEllipse(frame.pixel({point.first, point.second}), PointRadius, PointRadius);
}

void CustomChart::drawLine(QPainter& painter, const Frame& frame) const
{
    const auto onLine = [this](qint64 x) {
        return QPointF(static_cast<double>(x), slope * static_cast<double>(x) + intercept);
    };
    painter.drawLine(frame.pixel(cutOff(onLine(frame.xMin), frame)),
                     frame.pixel(cutOff(onLine(frame.xEnd), frame)));
}

// The order of the four corrections is what puts a line that misses the frame on its edge.
QPointF CustomChart::cutOff(QPointF end, const Frame& frame) const
{
    const QPointF least(static_cast<double>(frame.xMin), static_cast<double>(frame.yMin));
    const QPointF most(static_cast<double>(frame.xEnd), static_cast<double>(frame.yEnd));
    const auto moveToY = [&](double y) { end = {end.x() + (y - end.y()) / slope, y}; };
    const auto moveToX = [&](double x) { end = {x, end.y() + (x - end.x()) * slope}; };
    if (end.y() < least.y())
        moveToY(least.y());
    if (end.y() > most.y())
        moveToY(most.y());
    if (end.x() < least.x())
        moveToX(least.x());
    if (end.x() > most.x())
        moveToX(most.x());
    return end;
}

void CustomChart::drawTitles(QPainter& painter, const Frame& frame) const
{
    painter.setFont(QFont(QLatin1String("Arial"), 10));
    painter.drawText(frame.right - 30, height() - 5, xTitle);
    painter.drawText(45, Top - 5, yTitle);
}
