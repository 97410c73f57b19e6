// The chart of a characteristic curve beside three chart libraries that draw the same: ten nodes, a
// line, ticks and titles. A paint renders the widget into a picture of the chart's own size.

// The headers of one of the peers are written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "CustomChart.h"
#include "LiveHeap.h"
#include "Ratio.h"

#include <qcustomplot.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QScatterSeries>
#include <QtCharts/QValueAxis>

#include <memory>

namespace {

constexpr QSize ChartSize(380, 259);
constexpr int Nodes = 10;
constexpr double Slope = 440;
constexpr double Intercept = 60;
constexpr int Rounds = 200;

QVector<QPointF> nodes()
{
    QVector<QPointF> points;
    for (int index = 0; index < Nodes; ++index)
        points << QPointF(index + 0.5, Slope * (index + 0.5) + Intercept + (index % 3 - 1) * 40);
    return points;
}

QVector<QPointF> line()
{
    return {QPointF(0, Intercept), QPointF(10, Slope * 10 + Intercept)};
}

std::unique_ptr<QWidget> ourChart()
{
    auto chart = std::make_unique<CustomChart>();
    QList<QPair<double, double>> points;
    for (const QPointF& node : nodes())
        points << qMakePair(node.x(), node.y());
    chart->setAxes(QString(), 2, 0, 10, QString(), 1200, 0, 4800);
    chart->setPoints(points);
    chart->setLine(Slope, Intercept);
    chart->setTitles(QLatin1String("AO3"), QLatin1String("Power W"));
    return chart;
}

std::unique_ptr<QWidget> customPlot()
{
    auto plot = std::make_unique<QCustomPlot>();
    QCPGraph* dots = plot->addGraph();
    dots->setLineStyle(QCPGraph::lsNone);
    dots->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, 6));
    for (const QPointF& node : nodes())
        dots->addData(node.x(), node.y());
    QCPGraph* fitted = plot->addGraph();
    for (const QPointF& end : line())
        fitted->addData(end.x(), end.y());
    plot->xAxis->setLabel(QLatin1String("AO3"));
    plot->yAxis->setLabel(QLatin1String("Power W"));
    plot->xAxis->setRange(0, 10);
    plot->yAxis->setRange(0, 4800);
    return plot;
}

std::unique_ptr<QWidget> qwtPlot()
{
    auto plot = std::make_unique<QwtPlot>();
    auto* dots = new QwtPlotCurve;
    dots->setStyle(QwtPlotCurve::NoCurve);
    dots->setSymbol(new QwtSymbol(QwtSymbol::Ellipse, Qt::black, QPen(Qt::black), QSize(6, 6)));
    dots->setSamples(nodes());
    dots->attach(plot.get());
    auto* fitted = new QwtPlotCurve;
    fitted->setSamples(line());
    fitted->attach(plot.get());
    plot->setAxisTitle(QwtPlot::xBottom, QLatin1String("AO3"));
    plot->setAxisTitle(QwtPlot::yLeft, QLatin1String("Power W"));
    plot->setAxisScale(QwtPlot::xBottom, 0, 10, 2);
    plot->setAxisScale(QwtPlot::yLeft, 0, 4800, 1200);
    plot->replot();
    return plot;
}

std::unique_ptr<QWidget> qtChart()
{
    using namespace QtCharts;
    auto* chart = new QChart;
    auto* dots = new QScatterSeries;
    dots->setMarkerSize(6);
    auto* fitted = new QLineSeries;
    for (const QPointF& node : nodes())
        dots->append(node);
    for (const QPointF& end : line())
        fitted->append(end);
    chart->addSeries(dots);
    chart->addSeries(fitted);
    chart->legend()->hide();
    chart->createDefaultAxes();
    chart->axes(Qt::Horizontal).first()->setTitleText(QLatin1String("AO3"));
    chart->axes(Qt::Vertical).first()->setTitleText(QLatin1String("Power W"));
    return std::make_unique<QChartView>(chart);
}

using Maker = std::unique_ptr<QWidget> (*)();

/// A paint of what is on show already.
Ratio::Work painter(QWidget* chart, QImage* picture)
{
    return [chart, picture] {
        // A chart that keeps a buffer draws it anew, as after a change.
        if (auto* plot = qobject_cast<QCustomPlot*>(chart))
            plot->replot();
        else if (auto* qwt = qobject_cast<QwtPlot*>(chart))
            qwt->replot();
        chart->render(picture);
    };
}

std::unique_ptr<QWidget> onShow(Maker make)
{
    std::unique_ptr<QWidget> chart = make();
    chart->resize(ChartSize);
    chart->show();
    QApplication::processEvents();
    return chart;
}

bool comparePaint(const char* name, Maker peer, double limit)
{
    QImage picture(ChartSize, QImage::Format_ARGB32_Premultiplied);
    const auto ours = onShow(&ourChart);
    const auto theirs = onShow(peer);
    return Ratio::report(
        name,
        Ratio::measure(Rounds, painter(ours.get(), &picture), painter(theirs.get(), &picture)),
        limit);
}

bool compareFill()
{
    QImage picture(ChartSize, QImage::Format_ARGB32_Premultiplied);
    const auto chart = onShow(&ourChart);
    QWidget bare;
    bare.resize(ChartSize);
    bare.setAutoFillBackground(true);
    bare.show();
    QApplication::processEvents();
    return Ratio::report(
        "a paint of the chart / a bare fill of the same area",
        Ratio::measure(Rounds, painter(chart.get(), &picture), painter(&bare, &picture)), 12);
}

Ratio::Work life(Maker make)
{
    return [make] {
        QImage picture(ChartSize, QImage::Format_ARGB32_Premultiplied);
        const auto chart = make();
        chart->resize(ChartSize);
        chart->render(&picture);
    };
}

long long bytesOf(Maker make)
{
    life(make)(); // what it sets up for the process is not the chart's
    QImage picture(ChartSize, QImage::Format_ARGB32_Premultiplied);
    const LiveHeap::Count before = LiveHeap::now();
    const auto chart = make();
    chart->resize(ChartSize);
    chart->render(&picture);
    return (LiveHeap::now() - before).bytes;
}

bool compareMemory()
{
    const auto kilobytes = [](Maker make) { return static_cast<double>(bytesOf(make)) / 1024; };
    return Ratio::report("memory of a chart / Qwt", {kilobytes(&ourChart), kilobytes(&qwtPlot)},
                         0.1, "kB");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    bool holds = comparePaint("a paint of the chart / QCustomPlot", &customPlot, 0.4);
    holds &= comparePaint("a paint of the chart / Qwt", &qwtPlot, 0.4);
    holds &= comparePaint("a paint of the chart / Qt Charts", &qtChart, 0.2);
    holds &= compareFill();
    holds &= Ratio::report("making, painting and destroying a chart / Qwt",
                           Ratio::measure(Rounds, life(&ourChart), life(&qwtPlot)), 0.3);
    holds &= compareMemory();
    return holds ? 0 : 1;
}
