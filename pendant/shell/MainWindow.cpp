#include "MainWindow.h"

#include "Controller.h"
#include "Drawer.h"
#include "FaultPanel.h"
#include "IoMonitor.h"
#include "KeyColumn.h"
#include "LoginPanel.h"
#include "MessagePage.h"
#include "MessageStrip.h"
#include "Phrases.h"
#include "PluginPage.h"
#include "ProgramPage.h"
#include "Theme.h"
#include "TopBar.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QEvent>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QTime>
#include <QVBoxLayout>

#include <algorithm>

namespace pendant {

namespace {

constexpr int LogLines = 2000;
// Height for 96 dots per inch: all faults are in view.
constexpr int LeastDrawer = 450;
// Width for 96 dots per inch: below it the keys are narrow.
constexpr int WideWindow = 1000;
// For 96 dots per inch. The plugins hold back half of what a screen has more.
constexpr QSize LeastPage(520, 370);
constexpr int Warning = 1; // severity of a message

QVBoxLayout* plainColumn(QWidget* parent)
{
    auto* column = new QVBoxLayout(parent);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

} // namespace

MainWindow::MainWindow(Controller& controller, QWidget* parent)
    : QWidget(parent)
    , machine(controller)
{
    setObjectName(QStringLiteral("pendant"));
    Theme::ground(this);
    // No button is marked before the operator has chosen one.
    setFocusPolicy(Qt::ClickFocus);
    setFocus();
    build({});
}

MainWindow::~MainWindow()
{
    dropPlugins();
}

void MainWindow::build(const ProgramWork& work)
{
    setWindowTitle(tr("Pendant"));
    topBar = new TopBar(this);
    leftKeys = new KeyColumn(this);
    rightKeys = new KeyColumn(this);
    tabs = new QTabBar(this);
    pages = new QStackedWidget(this);
    centre = new QStackedWidget(this);
    strip = new MessageStrip(this);
    drawer = new Drawer(this);
    login = new LoginPanel(this);
    pluginPage = new PluginPage;
    programPage = new ProgramPage(machine, work);
    fill();
    join();
    follow();
}

void MainWindow::fill()
{
    auto* column = plainColumn(this);
    column->addWidget(topBar);
    column->addWidget(buildBody(), 1);
    column->addWidget(strip);
    auto* messagePage = new MessagePage(history);
    connect(messagePage, &MessagePage::clearClicked, this, &MainWindow::clearMessages);
    connect(strip, &MessageStrip::messageClicked, this,
            [this, messagePage] { drawer->open(messagePage); });
    addPanel(QStringLiteral("messages"), tr("Messages"), messagePage);
    addPanel(QStringLiteral("faults"), tr("Faults"), new FaultPanel(machine));
    addPanel(QStringLiteral("io"), tr("I/O"), new IoMonitor(machine));
    addPanel(QStringLiteral("log"), tr("Controller log"), buildLog());
    addPanel(QStringLiteral("plugins"), tr("Plugins"), pluginPage);
    Theme::dress(strip);
    Theme::dress(leftKeys);
    Theme::dress(rightKeys);
}

void MainWindow::join()
{
    connect(tabs, &QTabBar::currentChanged, this, &MainWindow::selectPage);
    connect(pages, &QStackedWidget::widgetRemoved, this, &MainWindow::dropTab);
    connect(topBar, &TopBar::connectionClicked, this, &MainWindow::connectionClicked);
    connect(topBar, &TopBar::powerClicked, this, &MainWindow::powerClicked);
    connect(topBar, &TopBar::userClicked, this, &MainWindow::toggleLogin);
    connect(topBar, &TopBar::programToggled, this, &MainWindow::showProgram);
    connect(topBar, &TopBar::languageClicked, this, &MainWindow::languageClicked);
    connect(topBar, &TopBar::themeClicked, this, &MainWindow::themeClicked);
    connect(programPage, &ProgramPage::complained, this,
            [this](const QString& text) { showMessage(objectName(), Warning, phrase(text)); });
    connect(login, &LoginPanel::levelChosen, login, &QWidget::hide);
    connect(login, &LoginPanel::levelChosen, this, &MainWindow::levelChosen);
}

// The plugins are made while their pages are in view and before the programs are, as at the start.
void MainWindow::renew(const std::function<void()>& makePlugins)
{
    const ProgramWork work = programPage->handOver();
    const bool isProgram = centre->currentWidget() == programPage;
    const QString panel = drawer->current() ? drawer->current()->objectName() : QString();
    const QString said = log->toPlainText();
    const int tab = tabs->currentIndex();
    setFocus();
    delete layout();
    qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    build(work);
    // An indicator of a plugin is smaller once it is laid out: the window would grow meanwhile.
    layout()->setSizeConstraint(QLayout::SetNoConstraint);
    log->setPlainText(said);
    showUser(userLevel);
    pluginPage->setReports(reports);
    if (history.rowCount() > 0)
        strip->showMessage(history.at(0));
    for (int index = 0; index < layout()->count(); ++index)
        layout()->itemAt(index)->widget()->setVisible(true);
    placeKeys();
    makePlugins();
    tabs->setCurrentIndex(tab);
    if (isProgram)
        topBar->setProgram(true);
    if (auto* open = findChild<QWidget*>(panel); open && !panel.isEmpty())
        drawer->open(open);
}

bool MainWindow::event(QEvent* event)
{
    const bool isDone = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest)
        confine();
    return isDone;
}

// As soon as what is new in the window fits into it.
void MainWindow::confine()
{
    const QSize least = layout()->totalMinimumSize();
    if (least.width() <= width() && least.height() <= height())
        layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
}

QWidget* MainWindow::buildBody()
{
    leftKeys->setObjectName(QStringLiteral("keyColumn_left"));
    rightKeys->setObjectName(QStringLiteral("keyColumn_right"));
    tabs->setObjectName(QStringLiteral("tabBar"));
    tabs->setExpanding(false);
    tabs->setFont(Theme::font());
    tabs->hide();
    centre->setObjectName(QStringLiteral("centre"));
    centre->installEventFilter(this);
    auto* body = new QWidget(this);
    auto* row = new QHBoxLayout(body);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(leftKeys);
    auto* column = plainColumn(new QWidget);
    column->addWidget(tabs);
    column->addWidget(buildPages(), 1);
    centre->addWidget(column->parentWidget());
    centre->addWidget(programPage);
    row->addWidget(centre, 1);
    row->addWidget(rightKeys);
    return body;
}

// A page is not squeezed: it is scrolled.
QWidget* MainWindow::buildPages()
{
    pages->setObjectName(QStringLiteral("pages"));
    pages->setPalette(Theme::pluginPalette());
    pages->setMinimumSize(LeastPage * ((1 + Theme::screenScale()) / 2));
    auto* area = new QScrollArea(this);
    area->setObjectName(QStringLiteral("scroll_pages"));
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(pages);
    Theme::dress(area->verticalScrollBar());
    Theme::dress(area->horizontalScrollBar());
    return area;
}

void MainWindow::addPanel(const QString& name, const QString& caption, QWidget* content)
{
    content->setObjectName(QStringLiteral("panel_") + name);
    drawer->add(caption, content);
    auto* button = strip->addButton(name, caption);
    connect(button, &QAbstractButton::clicked, drawer, [this, content](bool open) {
        if (open)
            drawer->open(content);
        else
            drawer->shut();
    });
    connect(drawer, &Drawer::changed, button,
            [button, content](QWidget* current) { button->setChecked(current == content); });
}

QWidget* MainWindow::buildLog()
{
    auto* view = log = new QPlainTextEdit;
    view->setReadOnly(true);
    view->setPlaceholderText(tr("The controller has said nothing yet."));
    view->setMaximumBlockCount(LogLines);
    Theme::mark(view, "empty", true);
    connect(view, &QPlainTextEdit::textChanged, view, [view] {
        const bool isEmpty = view->document()->isEmpty();
        if (view->property("empty").toBool() != isEmpty)
            Theme::mark(view, "empty", isEmpty);
    });
    connect(&machine, &Controller::logged, view, [view](const QString& text) {
        view->appendPlainText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss  ")) + text);
    });
    return view;
}

void MainWindow::follow()
{
    topBar->showConnection(machine.isConnected());
    topBar->showPower(machine.isPowered());
    connect(&machine, &Controller::connectionChanged, topBar, &TopBar::showConnection);
    connect(&machine, &Controller::powerChanged, topBar, &TopBar::showPower);
}

void MainWindow::addPage(const QString& plugin, QWidget* page)
{
    pages->addWidget(page);
    const int index = tabs->addTab(plugin);
    tabs->setTabData(index, plugin);
    tabs->setVisible(tabs->count() > 1);
    selectPage(tabs->currentIndex());
}

void MainWindow::setPageTitle(const QString& plugin, const QString& title)
{
    for (int index = 0; index < tabs->count(); ++index) {
        if (tabs->tabData(index) == plugin)
            tabs->setTabText(index, title);
    }
    showTitle();
}

void MainWindow::selectPage(int index)
{
    releaseKeys();
    pages->setCurrentIndex(index);
    const QString plugin = tabs->tabData(index).toString();
    leftKeys->showPlugin(plugin);
    rightKeys->showPlugin(plugin);
    showTitle();
}

// A plugin may take the page of another one into its own.
void MainWindow::dropTab(int index)
{
    tabs->removeTab(index);
    tabs->setVisible(tabs->count() > 1);
    selectPage(tabs->currentIndex());
}

void MainWindow::showProgram(bool on)
{
    releaseKeys();
    centre->setCurrentIndex(on ? 1 : 0);
    showTitle();
}

void MainWindow::showTitle()
{
    const bool isProgram = centre->currentWidget() == programPage;
    topBar->showTitle(isProgram ? tr("Robot programs") : tabs->tabText(tabs->currentIndex()));
}

void MainWindow::addIndicator(QWidget* indicator, int position)
{
    topBar->addIndicator(indicator, position);
}

void MainWindow::setKeys(const QString& plugin, const QString& group,
                         const QList<qelplugin::PhysicalButton>& firstList,
                         const QList<qelplugin::PhysicalButton>& secondList)
{
    leftKeys->setKeys(plugin, group, firstList);
    rightKeys->setKeys(plugin, group, secondList);
}

void MainWindow::setKeysActive(const QString& plugin, const QString& group, bool active)
{
    leftKeys->setActive(plugin, group, active);
    rightKeys->setActive(plugin, group, active);
}

void MainWindow::showMessage(const QString& plugin, int level, const QString& text)
{
    const Message message{QDateTime::currentDateTime(), plugin, level, text};
    history.add(message);
    strip->showMessage(message);
}

void MainWindow::clearMessages()
{
    history.clear();
    strip->clear();
}

// For the editors of instructions only. A page whose plugin has no use for the host's default sheet
// stays free of it: the sheet's heights of 36 pixels make the page scroll and its icons grow, and
// what the page wants to look like it says itself. The indicators are bare pictures.
void MainWindow::setPluginSheet(const QString& sheet)
{
    programPage->setPluginSheet(sheet);
}

void MainWindow::setReports(const QVector<PluginReport>& newReports)
{
    reports = newReports;
    pluginPage->setReports(reports);
    const bool anyRefused = std::any_of(reports.begin(), reports.end(),
                                        [](const PluginReport& each) { return !each.loaded; });
    if (anyRefused)
        drawer->open(pluginPage);
}

void MainWindow::showUser(int level)
{
    userLevel = level;
    topBar->showUser(level);
    login->setLevel(level);
}

void MainWindow::reopenPage()
{
    if (QWidget* page = pages->currentWidget()) {
        page->hide();
        page->show();
    }
}

void MainWindow::releaseKeys()
{
    leftKeys->releaseAll();
    rightKeys->releaseAll();
}

void MainWindow::dropPlugins()
{
    leftKeys->clear();
    rightKeys->clear();
    programPage->dropPlugins();
    const QSignalBlocker quiet(tabs);
    while (tabs->count() > 0)
        tabs->removeTab(0);
    while (QWidget* page = pages->widget(0))
        delete page;
    topBar->clearIndicators();
}

void MainWindow::toggleLogin()
{
    login->setVisible(login->isHidden());
    login->raise();
}

void MainWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow())
        releaseKeys();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    releaseKeys();
    if (programPage->hasUnsaved()) {
        event->ignore();
        topBar->setProgram(true);
        programPage->leave([this] { close(); });
        return;
    }
    QWidget::closeEvent(event);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeKeys();
}

void MainWindow::placeKeys()
{
    for (KeyColumn* keys : {leftKeys, rightKeys})
        keys->setNarrow(width() < Theme::px(WideWindow));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == centre && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        placePanels();
    return QWidget::eventFilter(watched, event);
}

// The drawer covers the lower part of the page, the login hangs under the user's button.
void MainWindow::placePanels()
{
    const int gap = Theme::px(8);
    const QRect page(centre->mapTo(this, QPoint()), centre->size());
    const int height =
        qMin(qMax(page.height() / 2, Theme::px(LeastDrawer)), page.height() - 2 * gap);
    drawer->setGeometry(page.left() + gap, page.bottom() - height - gap + 1, page.width() - 2 * gap,
                        height);
    const QSize size = login->sizeHint().expandedTo(QSize(Theme::px(240), 0));
    login->setGeometry(QRect(QPoint(width() - size.width() - gap, topBar->height() + gap), size));
}

} // namespace pendant
