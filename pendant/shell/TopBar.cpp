#include "TopBar.h"

#include "LampButton.h"
#include "LoginPanel.h"
#include "Theme.h"

#include <QEvent>
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
    // Each language by its own name: who cannot read the one has to find the other.
    QPushButton* language = addSwitch("button_language", QStringLiteral("EN / 中文"), tr("Language"));
    QPushButton* theme = addSwitch("button_theme", QStringLiteral("◐"), tr("Light or dark"));
    connect(language, &QPushButton::clicked, this, &TopBar::languageClicked);
    connect(theme, &QPushButton::clicked, this, &TopBar::themeClicked);
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

QPushButton* TopBar::addSwitch(const char* name, const QString& caption, const QString& hint)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(hint);
    button->setAccessibleName(hint);
    button->setProperty("narrow", true);
    Theme::dress(button);
    row->addWidget(button);
    return button;
}

void TopBar::paintLamps()
{
    connection->setLamp(Theme::colour(isConnected ? Theme::Good : Theme::Bad));
    power->setLamp(Theme::colour(isPowered ? Theme::Warning : Theme::Off));
}

void TopBar::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (Theme::isChange(*event))
        paintLamps();
}

void TopBar::showConnection(bool up)
{
    isConnected = up;
    connection->setValue(up ? tr("Connected") : tr("No connection"));
    paintLamps();
}

void TopBar::showPower(bool on)
{
    isPowered = on;
    power->setValue(on ? tr("Powered") : tr("Power off"));
    paintLamps();
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
