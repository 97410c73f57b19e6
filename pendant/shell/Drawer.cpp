#include "Drawer.h"

#include "Theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

namespace pendant {

Drawer::Drawer(QWidget* parent)
    : QFrame(parent)
    , title(new QLabel(this))
    , contents(new QStackedWidget(this))
{
    setObjectName(QStringLiteral("drawer"));
    title->setObjectName(QStringLiteral("label_drawerTitle"));
    auto* close = new QPushButton(tr("Close"), this);
    close->setObjectName(QStringLiteral("button_closeDrawer"));
    auto* grid = new QGridLayout(this);
    const int gap = Theme::px(10);
    grid->setContentsMargins(gap, gap, gap, gap);
    grid->setSpacing(gap);
    grid->addWidget(title, 0, 0);
    grid->addWidget(close, 0, 1);
    grid->addWidget(contents, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(1, 1);
    connect(close, &QPushButton::clicked, this, &Drawer::shut);
    Theme::dress(this);
    hide();
}

void Drawer::add(const QString& text, QWidget* content)
{
    content->setWindowTitle(text);
    contents->addWidget(content);
}

void Drawer::open(QWidget* content)
{
    title->setText(content->windowTitle());
    contents->setCurrentWidget(content);
    raise();
    show();
    Q_EMIT changed(content);
}

QWidget* Drawer::current() const
{
    return isHidden() ? nullptr : contents->currentWidget();
}

void Drawer::shut()
{
    hide();
    Q_EMIT changed(nullptr);
}

} // namespace pendant
