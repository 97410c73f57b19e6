#include "DrawnTexts.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace {

/// Spaces, and what only tells where a line may be broken.
bool isBlank(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar each) {
        return each.isSpace() || each.category() == QChar::Other_Format;
    });
}

/// Notes the texts and draws nothing.
class TextEngine : public QPaintEngine
{
public:
    explicit TextEngine(const QRectF& widgetRect)
        : QPaintEngine(AllFeatures)
        , whole(widgetRect)
    {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    Type type() const override { return User; }

    void drawTextItem(const QPointF& baseline, const QTextItem& item) override
    {
        if (isBlank(item.text()))
            return;
        const QTransform toDevice = painter()->combinedTransform();
        const QFontMetricsF metrics(item.font(), paintDevice());
        // What that gives is rounded, outwards; the text is not wider than it was laid out.
        QRectF ink = metrics.tightBoundingRect(item.text()).translated(baseline);
        ink.setLeft(std::max(ink.left(), baseline.x()));
        ink.setRight(std::min(ink.right(), baseline.x() + item.width()));
        QRectF room = whole;
        if (painter()->hasClipping())
            room &= toDevice.mapRect(painter()->clipBoundingRect());
        texts << DrawnText{item.text(), toDevice.mapRect(ink), room};
    }

    QVector<DrawnText> texts;

private:
    QRectF whole;
};

/// A device of the widget's size and dots per inch.
class TextDevice : public QPaintDevice
{
public:
    explicit TextDevice(const QWidget* drawnWidget)
        : widget(drawnWidget)
        , engine(drawnWidget->rect())
    {}

    QPaintEngine* paintEngine() const override { return &engine; }
    const QVector<DrawnText>& texts() const { return engine.texts; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmWidthMM: // nobody goes by it
            return widget->width();
        case PdmHeight:
        case PdmHeightMM:
            return widget->height();
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return widget->logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return widget->logicalDpiY();
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    const QWidget* widget;
    mutable TextEngine engine;
};

} // namespace

QVector<DrawnText> drawnTexts(QWidget* widget)
{
    TextDevice device(widget);
    widget->render(&device, QPoint(), QRegion(), QWidget::DrawWindowBackground);
    return device.texts();
}
