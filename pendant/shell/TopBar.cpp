#include "TopBar.h"

#include "LampButton.h"
#include "LoginPanel.h"
#include "Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVariant>

namespace pendant {

namespace {

constexpr const char* Position = "indicatorPosition";

} // namespace

TopBar::TopBar(QWidget* parent)
    : QFrame(parent)
    , row(new QHBoxLayout(this))
    , indicators(new QHBoxLayout(new QWidget(this)))
    , connection(addButton("button_connection", tr("Controller")))
    , power(addButton("button_power", tr("Robot")))
    , title(new QLabel(this))
    , program(new QPushButton(tr("Program"), this))
    , user(nullptr)
{
    setObjectName(QStringLiteral("topBar"));
    // By the palette: a style sheet would reach the indicators of the plugins.
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    const int gap = Theme::px(8);
    row->setContentsMargins(gap, gap, gap, gap);
    row->setSpacing(gap);
    title->setObjectName(QStringLiteral("label_application"));
    row->addSpacing(gap);
    row->addWidget(title);
    row->addStretch(1);
    program->setObjectName(QStringLiteral("button_program"));
    program->setCheckable(true);
    row->addWidget(program);
    indicators->parentWidget()->setObjectName(QStringLiteral("indicators"));
    indicators->setContentsMargins(0, 0, 0, 0);
    indicators->setSpacing(gap);
    row->addWidget(indicators->parentWidget());
    row->addSpacing(gap);
    user = addButton("button_user", tr("User"));
    connect(connection, &LampButton::clicked, this, &TopBar::connectionClicked);
    connect(power, &LampButton::clicked, this, &TopBar::powerClicked);
    connect(user, &LampButton::clicked, this, &TopBar::userClicked);
    showUser(0);
    connect(program, &QPushButton::toggled, this, &TopBar::programToggled);
    Theme::dress(title);
    Theme::dress(program);
}

LampButton* TopBar::addButton(const char* name, const QString& caption)
{
    auto* button = new LampButton(caption, this);
    button->setObjectName(QString::fromLatin1(name));
    row->addWidget(button);
    return button;
}

void TopBar::showConnection(bool up)
{
    connection->setValue(up ? tr("Connected") : tr("No connection"));
    connection->setLamp(Theme::colour(up ? Theme::Good : Theme::Bad));
}

void TopBar::showPower(bool on)
{
    power->setValue(on ? tr("Powered") : tr("Power off"));
    power->setLamp(Theme::colour(on ? Theme::Warning : Theme::Off));
}

void TopBar::showUser(int level)
{
    user->setValue(userName(level));
}

void TopBar::showTitle(const QString& text)
{
    title->setText(text);
}

void TopBar::setProgram(bool on)
{
    program->setChecked(on);
}

void TopBar::addIndicator(QWidget* indicator, int position)
{
    int index = 0;
    while (index < indicators->count() &&
           indicators->itemAt(index)->widget()->property(Position).toInt() <= position)
        ++index;
    indicator->setProperty(Position, position);
    indicators->insertWidget(index, indicator);
    indicator->show();
}

void TopBar::clearIndicators()
{
    while (QLayoutItem* item = indicators->takeAt(0)) {
        delete item->widget();
        delete item;
    }
}

} // namespace pendant
