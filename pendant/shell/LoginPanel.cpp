#include "LoginPanel.h"

#include "Options.h"
#include "Theme.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace pendant {

namespace {

QString buttonName(int level)
{
    return QStringLiteral("button_level%1").arg(level);
}

} // namespace

QString userName(int level)
{
    static const char* const names[MaximumLevel + 1] = {
        QT_TRANSLATE_NOOP("LoginPanel", "Nobody"), QT_TRANSLATE_NOOP("LoginPanel", "Observer"),
        QT_TRANSLATE_NOOP("LoginPanel", "Operator"), QT_TRANSLATE_NOOP("LoginPanel", "Technician"),
        QT_TRANSLATE_NOOP("LoginPanel", "Administrator")};
    const char* name = names[qBound(0, level, MaximumLevel)];
    return QCoreApplication::translate("LoginPanel", "Level %1: %2")
        .arg(level)
        .arg(QCoreApplication::translate("LoginPanel", name));
}

LoginPanel::LoginPanel(QWidget* parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("loginPanel"));
    auto* column = new QVBoxLayout(this);
    const int gap = Theme::px(12);
    column->setContentsMargins(gap, gap, gap, gap);
    column->setSpacing(Theme::px(8));
    auto* title = new QLabel(tr("Log in"), this);
    title->setObjectName(QStringLiteral("label_loginTitle"));
    column->addWidget(title);
    for (int level = 0; level <= MaximumLevel; ++level) {
        auto* button = new QPushButton(userName(level), this);
        button->setObjectName(buttonName(level));
        button->setCheckable(true);
        column->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, level] { Q_EMIT levelChosen(level); });
    }
    auto* hint = new QLabel(tr("Level 3 and above may operate."), this);
    hint->setProperty("hint", true);
    column->addWidget(hint);
    Theme::dress(this);
    hide();
}

void LoginPanel::setLevel(int current)
{
    for (int level = 0; level <= MaximumLevel; ++level) {
        auto* button = findChild<QPushButton*>(buttonName(level));
        button->setChecked(level == current);
    }
}

} // namespace pendant
