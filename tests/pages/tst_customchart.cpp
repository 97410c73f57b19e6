#include "CustomChart.h"
#include "TestCase.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <limits>
#include <utility>

namespace {

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromLatin1(text, int(size));
}

constexpr QSize OwnSize(380, 259);
constexpr int IntMin = std::numeric_limits<int>::min();
constexpr int IntMax = std::numeric_limits<int>::max();
constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr double Huge = std::numeric_limits<double>::max();
const double NoNumber = std::numeric_limits<double>::quiet_NaN();

struct Axis
{
    QString suffix;
    int step, first, last;
};

/// All that a chart is handed.
struct Plot
{
    Axis x{QString(), 1, 0, 10};
    Axis y{QString(), 1, 0, 10};
    QList<QPair<double, double>> points{};
    double slope = 0;
    double intercept = 0;
    QString xTitle{};
    QString yTitle{};
};

void hand(CustomChart& chart, const Plot& plot)
{
    chart.setAxes(plot.x.suffix, plot.x.step, plot.x.first, plot.x.last, plot.y.suffix, plot.y.step,
                  plot.y.first, plot.y.last);
    chart.setPoints(plot.points);
    chart.setLine(plot.slope, plot.intercept);
    chart.setTitles(plot.xTitle, plot.yTitle);
}

/// What the widget paints, on white.
QImage pictureOf(QWidget& widget, QSize size)
{
    widget.resize(size);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    widget.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    return picture;
}

QImage pictureOf(const Plot& plot, QSize size = OwnSize)
{
    CustomChart chart;
    hand(chart, plot);
    return pictureOf(chart, size);
}

/// The same plot, painted stroke by stroke with a pen.
class PenChart : public QWidget
{
public:
    explicit PenChart(Plot plot_)
        : plot(std::move(plot_))
    {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(QPen(Qt::black, 2));
        drawFrame(painter);
        drawTicks(painter);
        painter.setPen(QPen(Qt::black, 1));
        painter.setBrush(QBrush(Qt::black, Qt::SolidPattern));
        for (const auto& point : std::as_const(plot.points))
            painter.drawEllipse(QPoint(50 + xOffset(point.first), yPixel(point.second)), 3, 3);
        painter.setFont(QFont("Arial"_s, 10));
        painter.drawText(right() - 30, height() - 5, plot.xTitle);
        painter.drawText(45, 15, plot.yTitle);
    }

private:
    static int endOf(const Axis& axis)
    {
        int end = axis.first;
        while (end < axis.last)
            end += axis.step;
        return end;
    }
    int right() const { return width() - 20; }
    int bottom() const { return height() - 25; }
    int xOffset(double x) const
    {
        const double scale = double(width() - 70) / (endOf(plot.x) - plot.x.first);
        return int(std::round((x - plot.x.first) * scale));
    }
    int yPixel(double y) const
    {
        const double scale = double(height() - 45) / (endOf(plot.y) - plot.y.first);
        return bottom() - int(std::round((y - plot.y.first) * scale));
    }
    void drawFrame(QPainter& painter) const
    {
        painter.drawLine(50, bottom(), right(), bottom());
        painter.drawLine(50, 20, 50, bottom());
        painter.drawLine(50, 20, right(), 20);
        painter.drawLine(right(), 20, right(), bottom());
    }
    void drawTicks(QPainter& painter) const
    {
        for (int tick = plot.x.first; tick < endOf(plot.x); tick += plot.x.step) {
            const int p = xOffset(tick);
            painter.drawLine(50 + p, height() - 30, 50 + p, bottom());
            painter.drawText(40 + p, height() - 5, QString::number(tick) + plot.x.suffix);
        }
        for (int tick = plot.y.first; tick <= endOf(plot.y); tick += plot.y.step) {
            const int y = yPixel(tick);
            painter.drawLine(50, y, 55, y);
            painter.drawText(10, y + 10, QString::number(tick) + plot.y.suffix);
        }
    }

    Plot plot;
};

bool isInk(const QImage& picture, int x, int y)
{
    return picture.pixel(x, y) == qRgb(0, 0, 0);
}

bool isBlank(const QImage& picture, const QRect& area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (picture.pixel(x, y) != qRgb(255, 255, 255))
                return false;
        }
    }
    return true;
}

/// The second pixel of each stroke of width 2 that a row or a column of pixels crosses.
QVector<int> strokes(const QImage& picture, int at, Qt::Orientation along)
{
    const bool isRow = along == Qt::Horizontal;
    const int length = isRow ? picture.width() : picture.height();
    const auto ink = [&](int place) {
        return place < length && (isRow ? isInk(picture, place, at) : isInk(picture, at, place));
    };
    QVector<int> found;
    for (int place = 1; place < length; ++place) {
        if (ink(place - 1) && ink(place) && !ink(place + 1))
            found << place;
    }
    return found;
}

class PaintCounter : public QObject
{
public:
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

} // namespace

Q_DECLARE_METATYPE(Plot)
Q_DECLARE_METATYPE(Axis)

class TestCustomChart : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isAnEmptyWidgetAtFirst();
    void knowsThatALineWasSet();
    void noSetterRepaints();
    void strokesAreThoseOfAPen_data();
    void strokesAreThoseOfAPen();
    void xTicksStandAt_data();
    void xTicksStandAt();
    void yTicksStandAt_data();
    void yTicksStandAt();
    void noLabelAtTheEndOfTheXAxis();
    void anAxisThatRunsBackEndsWhereItStarts();
    void suffixesFollowTheLabels();
    void dotsStandAt_data();
    void dotsStandAt();
    void newDotsReplaceTheOldOnes();
    void lineRunsFromTo_data();
    void lineRunsFromTo();
    void aFlatLineIsNotDrawn_data();
    void aFlatLineIsNotDrawn();
    void titlesAreOfTheirOwnFont();
    void keepsWhatItShows();
    void standsUnlikelyAxes_data();
    void standsUnlikelyAxes();
    void standsUnlikelyValues_data();
    void standsUnlikelyValues();
    void standsSmallSizes_data();
    void standsSmallSizes();
};

void TestCustomChart::isAnEmptyWidgetAtFirst()
{
    const CustomChart chart;
    QCOMPARE(chart.objectName(), "CustomChart"_s);
    QCOMPARE(chart.size(), OwnSize);
    QCOMPARE(chart.windowTitle(), "Form"_s);
    QVERIFY(chart.children().isEmpty());
    QVERIFY(!chart.isComputed());
}

void TestCustomChart::knowsThatALineWasSet()
{
    CustomChart chart;
    chart.setAxes(QString(), 1, 0, 5, QString(), 1, 0, 5);
    chart.setPoints({{1, 1}});
    chart.setTitles("x"_s, "y"_s);
    QVERIFY(!chart.isComputed());
    chart.setLine(0, 0);
    QVERIFY(chart.isComputed());
}

void TestCustomChart::noSetterRepaints()
{
    CustomChart chart;
    chart.show();
    QVERIFY(QTest::qWaitForWindowExposed(&chart));
    QCoreApplication::processEvents();
    PaintCounter counter;
    chart.installEventFilter(&counter);
    hand(chart, {{"V"_s, 2, 0, 8}, {"W"_s, 2, 0, 8}, {{1, 1}}, 1, 1, "x"_s, "y"_s});
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
    chart.update();
    QTRY_COMPARE(counter.paints, 1);
}

void TestCustomChart::strokesAreThoseOfAPen_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Plot>("plot");
    const QPair<const char*, Plot> plots[] = {
        {"empty", {}},
        {"steps", {{QString(), 2, 0, 11}, {QString(), 1, 0, 5}}},
        {"far numbers", {{QString(), 7, -50, 13}, {QString(), 1200, -1200, 5000}}},
        {"suffixes", {{" V"_s, 2, 0, 10}, {"\u00b0"_s, 3, 0, 10}}},
        {"dots", {{QString(), 2, 0, 10}, {QString(), 1, 0, 5}, {{0, 0}, {2.5, 1.25}, {10, 5.3}}}},
        {"titles", {{"V"_s, 2, 0, 10}, {"W"_s, 1, 0, 5}, {{1, 1}}, 0, 1, "AO3"_s, "Power W"_s}},
        {"dense", {{QString(), 1, 0, 400}, {QString(), 1, 0, 300}}},
    };
    for (const QSize size : {OwnSize, QSize(200, 400), QSize(913, 577), QSize(120, 91),
                             QSize(71, 46), QSize(70, 45), QSize(60, 40), QSize(30, 21)}) {
        for (const auto& plot : plots)
            QTest::addRow("%s, %d x %d", plot.first, size.width(), size.height())
                << size << plot.second;
    }
}

void TestCustomChart::strokesAreThoseOfAPen()
{
    QFETCH(const QSize, size);
    QFETCH(const Plot, plot);
    PenChart reference(plot);
    QCOMPARE(pictureOf(plot, size), pictureOf(reference, size));
}

void TestCustomChart::xTicksStandAt_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Axis>("axis");
    QTest::addColumn<QVector<int>>("places"); // between the sides of the frame, 50 and right
    QTest::newRow("0 to 10 by 2") << OwnSize << Axis{QString(), 2, 0, 10}
                                  << QVector<int>{112, 174, 236, 298};
    QTest::newRow("0 to 11 by 2 ends at 12")
        << OwnSize << Axis{QString(), 2, 0, 11} << QVector<int>{102, 153, 205, 257, 308};
    QTest::newRow("-5 to 5 by 5") << OwnSize << Axis{QString(), 5, -5, 5} << QVector<int>{205};
    QTest::newRow("a step beyond the range")
        << OwnSize << Axis{QString(), 20, 0, 10} << QVector<int>{};
    QTest::newRow("wide") << QSize(1070, 300) << Axis{QString(), 25, 0, 100}
                          << QVector<int>{300, 550, 800};
    // 25 pixels for each two: a half of a pixel counts as a whole.
    QTest::newRow("halves") << QSize(145, 200) << Axis{QString(), 1, 0, 6}
                            << QVector<int>{63, 75, 88, 100, 113};
}

void TestCustomChart::xTicksStandAt()
{
    QFETCH(const QSize, size);
    QFETCH(const Axis, axis);
    QFETCH(QVector<int>, places);
    const QImage picture = pictureOf({axis, {QString(), 100, 0, 100}}, size);
    places.prepend(50);
    places.append(size.width() - 20);
    for (const int y : {size.height() - 30, size.height() - 27})
        QCOMPARE(strokes(picture, y, Qt::Horizontal), places);
    // Above the ticks there are the sides of the frame alone.
    QCOMPARE(strokes(picture, size.height() - 32, Qt::Horizontal),
             QVector<int>({50, size.width() - 20}));
}

void TestCustomChart::yTicksStandAt_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Axis>("axis");
    QTest::addColumn<QVector<int>>("places"); // from the top; the frame's sides are among them
    QTest::newRow("0 to 5 by 1") << OwnSize << Axis{QString(), 1, 0, 5}
                                 << QVector<int>{20, 63, 106, 148, 191, 234};
    QTest::newRow("0 to 5 by 2 ends at 6")
        << OwnSize << Axis{QString(), 2, 0, 5} << QVector<int>{20, 91, 163, 234};
    QTest::newRow("-10 to 10 by 10")
        << QSize(300, 445) << Axis{QString(), 10, -10, 10} << QVector<int>{20, 220, 420};
    // Counted from the bottom a half of a pixel goes up.
    QTest::newRow("halves") << QSize(200, 120) << Axis{QString(), 1, 0, 6}
                            << QVector<int>{20, 32, 45, 57, 70, 82, 95};
}

void TestCustomChart::yTicksStandAt()
{
    QFETCH(const QSize, size);
    QFETCH(const Axis, axis);
    QFETCH(const QVector<int>, places);
    const QImage picture = pictureOf({{QString(), 100, 0, 100}, axis}, size);
    for (const int x : {51, 55})
        QCOMPARE(strokes(picture, x, Qt::Vertical), places);
    QCOMPARE(strokes(picture, 56, Qt::Vertical), QVector<int>({20, size.height() - 25}));
}

void TestCustomChart::anAxisThatRunsBackEndsWhereItStarts()
{
    const Axis x{QString(), 2, 0, 10};
    const QImage back = pictureOf({x, {QString(), 1, 5, 0}}, OwnSize);
    QCOMPARE(back, pictureOf({x, {QString(), 1, 5, 5}}, OwnSize));
    QVERIFY(!isBlank(back, {QPoint(10, 235), QPoint(25, 246)})); // the one tick's label
}

void TestCustomChart::noLabelAtTheEndOfTheXAxis()
{
    const QImage picture = pictureOf({{QString(), 2, 0, 10}, {QString(), 1, 0, 5}});
    // "8" stands at 288, "10" would stand at 350.
    QVERIFY(!isBlank(picture, {QPoint(288, 240), QPoint(300, 258)}));
    QVERIFY(isBlank(picture, {QPoint(320, 236), QPoint(379, 258)}));
    // "5" stands at the end of the other axis.
    QVERIFY(!isBlank(picture, {QPoint(10, 16), QPoint(25, 31)}));
}

void TestCustomChart::suffixesFollowTheLabels()
{
    const QImage plain = pictureOf({{QString(), 5, 0, 10}, {QString(), 5, 0, 10}});
    const QImage suffixed = pictureOf({{"%"_s, 5, 0, 10}, {"W"_s, 5, 0, 10}});
    const int digit = QWidget().fontMetrics().horizontalAdvance(QLatin1Char('5'));
    const QRect behindX(195 + digit, 240, 15, 15); // the tick of 5 is at 205
    const QRect behindY(10 + digit, 128, 15, 15);  // and at 127
    for (const QRect& place : {behindX, behindY}) {
        QVERIFY(isBlank(plain, place));
        QVERIFY(!isBlank(suffixed, place));
    }
}

void TestCustomChart::dotsStandAt_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("within") << 5.0 << 2.5 << QPoint(205, 127);
    QTest::newRow("above the frame") << 5.0 << 5.25 << QPoint(205, 9);
    QTest::newRow("below the frame") << 7.5 << -0.25 << QPoint(283, 245);
    QTest::newRow("before the frame") << -0.5 << 1.3 << QPoint(34, 178);
    QTest::newRow("behind the frame") << 10.3 << 2.5 << QPoint(369, 127);
}

void TestCustomChart::dotsStandAt()
{
    QFETCH(const double, x);
    QFETCH(const double, y);
    QFETCH(const QPoint, place);
    const Plot bare{{QString(), 5, 0, 10}, {QString(), 1, 0, 5}};
    Plot dotted = bare;
    dotted.points << qMakePair(x, y);
    QImage expected = pictureOf(bare);
    QVERIFY(isBlank(expected, {place - QPoint(2, 2), place + QPoint(2, 2)}));
    QPainter painter(&expected);
    painter.setBrush(Qt::black);
    painter.drawEllipse(place, 3, 3);
    painter.end();
    QVERIFY(isInk(expected, place.x(), place.y()));
    QCOMPARE(pictureOf(dotted), expected);
}

void TestCustomChart::newDotsReplaceTheOldOnes()
{
    CustomChart chart;
    const QImage empty = pictureOf(chart, OwnSize);
    chart.setPoints({{2, 2}, {4, 4}});
    QVERIFY(pictureOf(chart, OwnSize) != empty);
    chart.setPoints({});
    QCOMPARE(pictureOf(chart, OwnSize), empty);
}

// On axes of 0 to 10, 31 by 21.4 pixels for each.
void TestCustomChart::lineRunsFromTo_data()
{
    QTest::addColumn<double>("slope");
    QTest::addColumn<double>("intercept");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::newRow("corner to corner") << 1.0 << 0.0 << QPoint(50, 234) << QPoint(360, 20);
    QTest::newRow("falling") << -1.0 << 10.0 << QPoint(50, 20) << QPoint(360, 234);
    QTest::newRow("from the lower side") << 1.0 << -5.0 << QPoint(205, 234) << QPoint(360, 127);
    QTest::newRow("to the upper side") << 1.0 << 5.0 << QPoint(50, 127) << QPoint(205, 20);
    QTest::newRow("through both") << 4.0 << -10.0 << QPoint(128, 234) << QPoint(205, 20);
    QTest::newRow("falling through both") << -4.0 << 20.0 << QPoint(128, 20) << QPoint(205, 234);
    QTest::newRow("across") << 0.1 << 4.0 << QPoint(50, 148) << QPoint(360, 127);
    QTest::newRow("nearly flat") << 1.1e-6 << 5.0 << QPoint(50, 127) << QPoint(360, 127);
    QTest::newRow("nearly flat, falling") << -1.1e-6 << 5.0 << QPoint(50, 127) << QPoint(360, 127);
    QTest::newRow("nearly upright") << 1e9 << -5e9 << QPoint(205, 234) << QPoint(205, 20);
    // Those that miss the frame come to one place beside it.
    QTest::newRow("above") << 1.0 << 10.5 << QPoint(50, 9) << QPoint(50, 9);
    QTest::newRow("below") << 1.0 << -10.5 << QPoint(360, 245) << QPoint(360, 245);
    QTest::newRow("falling, above") << -1.0 << 20.5 << QPoint(360, 9) << QPoint(360, 9);
    QTest::newRow("falling, below") << -1.0 << -0.5 << QPoint(50, 245) << QPoint(50, 245);
    QTest::newRow("steep, above") << 2.0 << 10.5 << QPoint(50, 9) << QPoint(50, 9);
    QTest::newRow("far above") << 1.0 << 100.0 << QPoint(50, -1906) << QPoint(50, -1906);
}

void TestCustomChart::lineRunsFromTo()
{
    QFETCH(const double, slope);
    QFETCH(const double, intercept);
    QFETCH(const QPoint, from);
    QFETCH(const QPoint, to);
    Plot plot;
    QImage expected = pictureOf(plot);
    QPainter painter(&expected);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawLine(from, to);
    painter.end();
    plot.slope = slope;
    plot.intercept = intercept;
    QCOMPARE(pictureOf(plot), expected);
}

void TestCustomChart::aFlatLineIsNotDrawn_data()
{
    QTest::addColumn<double>("slope");
    for (const double slope : {0.0, 0.0000005, -0.0000005, 1e-06, -1e-06})
        QTest::addRow("%g", slope) << slope;
}

void TestCustomChart::aFlatLineIsNotDrawn()
{
    QFETCH(const double, slope);
    Plot plot;
    const QImage empty = pictureOf(plot);
    plot.slope = slope;
    plot.intercept = 5;
    QCOMPARE(pictureOf(plot), empty);
}

void TestCustomChart::titlesAreOfTheirOwnFont()
{
    CustomChart chart;
    chart.setFont(QFont("Arial"_s, 24));
    QImage expected = pictureOf(chart, OwnSize);
    QPainter painter(&expected);
    painter.setFont(QFont("Arial"_s, 10));
    painter.drawText(330, 254, "AO3"_s);
    painter.drawText(45, 15, "Power W"_s);
    painter.end();
    chart.setTitles("AO3"_s, "Power W"_s);
    QCOMPARE(pictureOf(chart, OwnSize), expected);
    // The labels are of the widget's.
    CustomChart small;
    small.setFont(QFont("Arial"_s, 6));
    small.setTitles("AO3"_s, "Power W"_s);
    QVERIFY(pictureOf(small, OwnSize) != expected);
}

void TestCustomChart::keepsWhatItShows()
{
    CustomChart chart;
    hand(chart, {{"V"_s, 2, 0, 8}, {"W"_s, 2, 0, 8}, {{1, 1}}, 1, 1, "x"_s, "y"_s});
    const QImage shown = pictureOf(chart, OwnSize);
    pictureOf(chart, {500, 400});
    QCOMPARE(pictureOf(chart, OwnSize), shown);
}

void TestCustomChart::standsUnlikelyAxes_data()
{
    QTest::addColumn<Axis>("axis");
    const auto row = [](int step, int first, int last) {
        QTest::addRow("%d to %d by %d", first, last, step) << Axis{QString(), step, first, last};
    };
    for (const int step : {0, -1, IntMin, 1, IntMax}) {
        row(step, 0, 10);
        row(step, 5, 5);
        row(step, 10, 0);
        row(step, IntMin, IntMax);
        row(step, IntMax, IntMin);
        row(step, IntMax, IntMax);
        row(step, IntMin, IntMin);
    }
    row(1000000000, IntMin, IntMax);
    row(IntMax, IntMax - 1, IntMax);
}

// Whatever the axes are, the frame stands, and what is drawn is done.
void TestCustomChart::standsUnlikelyAxes()
{
    QFETCH(const Axis, axis);
    const Axis plain{QString(), 1, 0, 10};
    for (const Plot& plot : {Plot{axis, plain, {{1, 1}}, 1, 0}, Plot{plain, axis, {{1, 1}}, 1, 0},
                             Plot{axis, axis, {{1, 1}}, -1e9, 1}}) {
        const QImage picture = pictureOf(plot);
        for (const QPoint side : {QPoint(200, 20), QPoint(200, 234), QPoint(50, 30), {360, 100}})
            QVERIFY(isInk(picture, side.x(), side.y()));
    }
}

void TestCustomChart::standsUnlikelyValues_data()
{
    QTest::addColumn<double>("value");
    for (const double value : {NoNumber, Infinite, -Infinite, Huge, -Huge, 1e20, -1e20, 1e9, -1e9,
                               std::numeric_limits<double>::denorm_min()})
        QTest::addRow("%g", value) << value;
}

// What is not on the picture leaves it as it is.
void TestCustomChart::standsUnlikelyValues()
{
    QFETCH(const double, value);
    Plot plot;
    const QImage empty = pictureOf(plot);
    plot.points = {{value, value}, {value, 5}, {5, value}};
    const QImage dotted = pictureOf(plot);
    QCOMPARE(dotted == empty, std::abs(value) > 1 || std::isnan(value));
    for (const auto& line : {qMakePair(value, 0.0), qMakePair(1.0, value), qMakePair(value, value),
                             qMakePair(value, -value)}) {
        plot.slope = line.first;
        plot.intercept = line.second;
        QVERIFY(isInk(pictureOf(plot), 50, 100));
    }
}

void TestCustomChart::standsSmallSizes_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(0, 100), QSize(100, 0), QSize(70, 45),
                             QSize(69, 44), QSize(3000, 2)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void TestCustomChart::standsSmallSizes()
{
    QFETCH(const QSize, size);
    CustomChart chart;
    hand(chart, {{"V"_s, 2, 0, 8}, {"W"_s, 2, 0, 8}, {{1, 1}, {9, 9}}, 1, 1, "x"_s, "y"_s});
    chart.resize(size);
    QImage picture(OwnSize, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    chart.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    // Nothing is drawn beyond the widget.
    for (const QRect& beyond : {QRect(QPoint(size.width(), 0), QPoint(379, 258)),
                                QRect(QPoint(0, size.height()), QPoint(379, 258))})
        QVERIFY(isBlank(picture, beyond));
}

LASERWELD_TEST_MAIN(TestCustomChart)
#include "tst_customchart.moc"
