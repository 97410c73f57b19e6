#include "EnableButton.h"

#include "UiScale.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPropertyAnimation>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize SwitchSize(50, 24);
constexpr int SlideEnd = 25;
constexpr int SlideMs = 200;

/// Only its valueChanged() is of use. Qt would keep each value in a dynamic property without a
/// name.
class SlideClock : public QPropertyAnimation
{
public:
    using QPropertyAnimation::QPropertyAnimation;

protected:
    void updateCurrentValue(const QVariant&) override {}
};

/// Confined to what a painter can still add to.
int truncated(double value)
{
    constexpr double farOut = 1e6;
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, -farOut, farOut));
}

} // namespace

EnableButton::EnableButton(QWidget* parent)
    : QWidget(parent)
    , animation(new SlideClock(this, QByteArray(), this))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFixedSize(SwitchSize);
    setAutoFillBackground(false);
    UiScale::setStyleSheet(this, QLatin1String("background:transparent;"));
    lastWidth = width();
    animation->setStartValue(0);
    animation->setEndValue(SlideEnd);
    animation->setDuration(SlideMs);
    animation->setCurrentTime(SlideMs);
    connect(animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { moveSlider(value); });
}

EnableButton::~EnableButton()
{
    delete animation;
}

void EnableButton::setChecked(bool on, bool force)
{
    if (on == checked && !force)
        return;
    checked = on;
    startSlide();
}

QSize EnableButton::sizeHint() const
{
    return SwitchSize;
}

QSize EnableButton::minimumSizeHint() const
{
    return SwitchSize;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): a slot that others call by its signature
void EnableButton::moveSlider(QVariant value, bool need_update)
{
    const int range = drawnWidth() - drawnHeight();
    const double step = value.toDouble();
    sliderX = truncated((checked ? step : SlideEnd - step) * range / SlideEnd);
    if (need_update)
        update();
}

void EnableButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    checked = !checked;
    startSlide();
    // A receiver may delete the switch.
    Q_EMIT enabled(checked);
}

/// Puts the thumb at the end of the state before, whence it slides; a running slide starts anew.
/// Two starts without a tick between them have the same value, which
/// the animation does not tell a second time.
void EnableButton::startSlide()
{
    animation->stop();
    animation->start();
    moveSlider(animation->currentValue());
}

void EnableButton::paintEvent(QPaintEvent*)
{
    if (drawnHeight() > drawnWidth())
        return;
    if (width() != lastWidth) {
        moveSlider(animation->currentValue(), false);
        lastWidth = width();
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintTrack(painter);
    paintThumb(painter);
}

void EnableButton::paintTrack(QPainter& painter) const
{
    const int trackHeight = static_cast<int>(drawnHeight() * 0.6);
    const int top = marginTop + (drawnHeight() - trackHeight) / 2;
    const int radius = drawnHeight() / 2;
    painter.setBrush(checked ? onTrackColor : offTrackColor);
    painter.drawEllipse(marginLeft + radius, top, trackHeight, trackHeight);
    painter.drawRect(radius + trackHeight / 2 + marginLeft, top,
                     drawnWidth() - trackHeight - drawnHeight(), trackHeight);
    painter.drawEllipse(width() - radius - trackHeight - marginRight, top, trackHeight,
                        trackHeight);
}

void EnableButton::paintThumb(QPainter& painter) const
{
    painter.setBrush(checked ? onThumbColor : offThumbColor);
    painter.drawEllipse(sliderX + marginLeft, marginTop, drawnHeight(), drawnHeight());
}
