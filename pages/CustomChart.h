#pragma once

#include <QList>
#include <QPair>
#include <QWidget>

#include <memory>

namespace Ui {
class CustomChart;
}

/// Plot of a characteristic curve: a frame with whole-numbered ticks, the measured points as dots,
/// and one straight line. It computes nothing but where things stand.
///
/// No setter repaints; the caller calls update(). Each paint draws all of it.
class CustomChart : public QWidget
{
    Q_OBJECT

public:
    explicit CustomChart(QWidget* parent = nullptr);
    ~CustomChart() override;

    /// The ticks of both axes: text behind each number, distance (at least 1), first number, and
    /// the number that the axis must reach. An axis ends on a whole step.
    void setAxes(const QString& xTickSuffix, qint32 xTickStep, qint32 xFirst, qint32 xLast,
                 const QString& yTickSuffix, qint32 yTickStep, qint32 yFirst, qint32 yLast);
    /// The dots; those beyond the axes are drawn outside the frame.
    void setPoints(const QList<QPair<double, double>>& dots);
    /// The line y = slope * x + intercept, cut off at the frame. A slope of 0 draws none.
    void setLine(double lineSlope, double lineIntercept);
    void setTitles(const QString& xAxisTitle, const QString& yAxisTitle);
    /// Whether a line has ever been set.
    bool isComputed() const { return computed; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Frame;

    void drawFrame(QPainter& painter, const Frame& frame) const;
    void drawXTicks(QPainter& painter, const Frame& frame) const;
    void drawYTicks(QPainter& painter, const Frame& frame) const;
    void drawPoints(QPainter& painter, const Frame& frame) const;
    void drawLine(QPainter& painter, const Frame& frame) const;
    void drawTitles(QPainter& painter, const Frame& frame) const;
    QPointF cutOff(QPointF end, const Frame& frame) const;

    std::unique_ptr<Ui::CustomChart> ui;
    double slope = 0;
    double intercept = 0;
    qint32 xMax = 10;
    qint32 xMin = 0;
    qint32 yMax = 10;
    qint32 yMin = 0;
    qint32 xStep = 1;
    qint32 yStep = 1;
    QString xSuffix;
    QString ySuffix;
    QString xTitle;
    QString yTitle;
    QList<QPair<double, double>> points;
    QList<QPair<double, double>> extraPoints; ///< kept; nothing fills or draws it
    bool computed = false;
};
