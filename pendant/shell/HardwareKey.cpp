#include "HardwareKey.h"

#include "Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace pendant {

namespace {

// For 96 dots per inch.
constexpr int Width = 88;
constexpr int Height = 96;
constexpr int Picture = 44;
constexpr int Margin = 8;
constexpr int Side = 4; // beside the caption
constexpr int Radius = 10;

bool isTrigger(const QKeyEvent* event)
{
    return event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
           event->key() == Qt::Key_Enter;
}

// What takes the key away from the operator.
bool takesAway(QEvent::Type type)
{
    switch (type) {
    case QEvent::Hide:
    case QEvent::Close:
    case QEvent::WindowDeactivate:
    case QEvent::UngrabMouse:
    case QEvent::TouchCancel:
        return true;
    default:
        return false;
    }
}

} // namespace

HardwareKey::HardwareKey(const qelplugin::PhysicalButton& key, QWidget* parent)
    : QWidget(parent)
    , record(key)
    , pressedPicture(key.pressedIcon)
    , restPicture(key.unpressedIcon)
{
    setAccessibleName(key.label);
    setAttribute(Qt::WA_AcceptTouchEvents);
    // A hardware key does not take the focus out of a field that is being edited.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

HardwareKey::~HardwareKey()
{
    letGo();
}

QSize HardwareKey::sizeHint() const
{
    return {Theme::px(Width), Theme::px(Height)};
}

void HardwareKey::hold()
{
    if (held || !isEnabled())
        return;
    held = true;
    update();
    call(true);
}

void HardwareKey::letGo()
{
    if (!held)
        return;
    held = false;
    byKeyboard = false;
    update();
    call(false);
}

// A copy: the plugin may take its keys away while it is being called.
void HardwareKey::call(bool pressed)
{
    const auto callback = record.callback;
    if (callback)
        callback(pressed);
}

bool HardwareKey::event(QEvent* event)
{
    const QEvent::Type type = event->type();
    // The focus wanders by itself too, when what has it is locked: only a key that is held with the
    // keyboard goes with it.
    const bool losesKeyboard = type == QEvent::FocusOut && byKeyboard;
    if (takesAway(type) || losesKeyboard || (type == QEvent::EnabledChange && !isEnabled()))
        letGo();
    if (type == QEvent::TouchBegin || type == QEvent::TouchUpdate || type == QEvent::TouchEnd)
        return touched(event);
    return QWidget::event(event);
}

// Each finger holds its own key; accepting the event keeps Qt from making a mouse of it.
bool HardwareKey::touched(QEvent* event)
{
    event->accept();
    if (event->type() == QEvent::TouchBegin)
        hold();
    if (event->type() == QEvent::TouchEnd)
        letGo();
    return true;
}

void HardwareKey::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        hold();
}

void HardwareKey::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        letGo();
}

void HardwareKey::keyPressEvent(QKeyEvent* event)
{
    if (!isTrigger(event))
        QWidget::keyPressEvent(event);
    else if (!event->isAutoRepeat() && !held) {
        hold();
        byKeyboard = held;
    }
}

void HardwareKey::keyReleaseEvent(QKeyEvent* event)
{
    if (!isTrigger(event))
        QWidget::keyReleaseEvent(event);
    else if (!event->isAutoRepeat())
        letGo();
}

void HardwareKey::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(isEnabled() ? 1.0 : 0.4);
    painter.setPen(
        QPen(Theme::colour(held || hasFocus() ? Theme::Accent : Theme::Off), held ? 2 : 1));
    painter.setBrush(Theme::colour(held ? Theme::Pressed : Theme::Card));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), Theme::px(Radius),
                            Theme::px(Radius));
    const int margin = Theme::px(Margin);
    const int size = Theme::px(Picture);
    paintPicture(painter, QRect((width() - size) / 2, margin, size, size));
    painter.setPen(Theme::colour(Theme::Ink));
    const int side = Theme::px(Side);
    painter.drawText(QRect(side, margin + size, width() - 2 * side, height() - margin - size),
                     Qt::AlignCenter | Qt::TextWordWrap, record.label);
}

// A key without a picture shows its initial.
void HardwareKey::paintPicture(QPainter& painter, const QRect& place) const
{
    const QPixmap& picture = held ? pressedPicture : restPicture;
    if (!picture.isNull()) {
        const QSize size = picture.size().scaled(place.size(), Qt::KeepAspectRatio);
        QRect target(QPoint(), size);
        target.moveCenter(place.center());
        painter.drawPixmap(target, picture);
        return;
    }
    QFont large = font();
    large.setPointSizeF(Theme::points(18));
    large.setBold(true);
    painter.save();
    painter.setFont(large);
    painter.setPen(Theme::colour(Theme::Accent));
    painter.drawText(place, Qt::AlignCenter, record.label.mid(0, 1));
    painter.restore();
}

} // namespace pendant
