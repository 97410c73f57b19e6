#include "MessageStrip.h"

#include "BriefLabel.h"
#include "MessageModel.h"
#include "Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

namespace pendant {

MessageStrip::MessageStrip(QWidget* parent)
    : QFrame(parent)
    , row(new QHBoxLayout(this))
    , box(new QFrame(this))
    , time(new QLabel(box))
    , text(new BriefLabel(box))
{
    setObjectName(QStringLiteral("messageStrip"));
    const int gap = Theme::px(8);
    row->setContentsMargins(gap, gap, gap, gap);
    row->setSpacing(gap);
    row->addWidget(box, 1);
    box->setObjectName(QStringLiteral("messageBox"));
    time->setObjectName(QStringLiteral("label_messageTime"));
    text->setObjectName(QStringLiteral("label_message"));
    auto* line = new QHBoxLayout(box);
    line->setContentsMargins(Theme::px(12), 0, gap, 0);
    line->setSpacing(Theme::px(12));
    line->addWidget(time);
    line->addWidget(text, 1);
    clear();
}

void MessageStrip::showMessage(const Message& message)
{
    level = message.level;
    time->setText(message.time.toString(QStringLiteral("HH:mm:ss")));
    text->setText(message.text);
    text->setToolTip(message.text);
    tint();
}

void MessageStrip::clear()
{
    time->clear();
    text->clear();
    text->setToolTip(QString());
    level.reset();
    tint();
}

void MessageStrip::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (Theme::isChange(*event))
        tint();
}

void MessageStrip::tint()
{
    const QColor bar = level ? severityOf(*level).colour : Theme::colour(Theme::Line);
    const QColor ground = level ? severityOf(*level).tint : Theme::colour(Theme::Ground);
    box->setStyleSheet(QStringLiteral("QFrame#messageBox { background: %1; border: none; "
                                      "border-left: %2px solid %3; }")
                           .arg(ground.name())
                           .arg(Theme::px(6))
                           .arg(bar.name()));
}

QAbstractButton* MessageStrip::addButton(const QString& name, const QString& caption)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QStringLiteral("button_") + name);
    button->setCheckable(true);
    button->setProperty("narrow", true);
    row->addWidget(button);
    return button;
}

void MessageStrip::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && box->geometry().contains(event->pos()))
        Q_EMIT messageClicked();
}

} // namespace pendant
