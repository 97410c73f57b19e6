#include "Scene.h"

#include "Controller.h"
#include "Forms.h"
#include "MainWindow.h"
#include "MappedLibraries.h"
#include "RecordKeys.h"
#include "Session.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableWidget>

namespace soak {

namespace keys = pendant::keys;

namespace {

struct PageNames
{
    const char* entry;
    const char* widget;
};

constexpr PageNames Pages[PageCount] = {
    {"Weld Setup", "WeldSettingPage"},           {"Weld I/O", "WeldioPage"},
    {"Char. Curve", "CharacteristicsCurvePage"}, {"Weld Data", "WeldParameterPage"},
    {"Laser Tracking", "LaserTrackingPage"},
};

const PageNames& namesOf(Page page)
{
    return Pages[static_cast<int>(page)];
}

void compare(const QJsonObject& shownRecord, const QJsonObject& storedRecord)
{
    for (auto each = shownRecord.begin(); each != shownRecord.end(); ++each) {
        const QJsonValue held = storedRecord.value(each.key());
        demand(each.value() == held, QStringLiteral("the page shows %1 for \"%2\", stored is %3")
                                         .arg(each.value().toVariant().toString(), each.key(),
                                              held.toVariant().toString()));
    }
}

} // namespace

Scene::Scene(const pendant::Options& options, quint32 seed)
    : stage(options)
    , chance(seed)
{}

void Scene::reopen()
{
    if (stage.isOpen()) {
        model.releaseKeys();
        stage.close();
        witness.controllerLines.clear(); // they went with their panel
        for (const char* library : {"libqelLaserWelding", "libqelLaserSeamTracking"})
            demand(mappedLibraries(latin(library)).isEmpty(),
                   QStringLiteral("%1 is still mapped").arg(latin(library)));
    }
    demand(stage.open(), stage.trouble());
    ++timesOpened;
    witness.listen(stage.pendant());
    model.opened();
    pagesAreNew();
    pageRead();
}

void Scene::pagesAreNew()
{
    page = Page::Setting;
    computed = {};
    mainIsOn = false;
    ioIsTrue = true;
}

void Scene::click(const QString& name)
{
    click(widget(name));
}

void Scene::click(QWidget* touched)
{
    demand(stage.hand().click(touched), stage.hand().complaint());
}

void Scene::clickRow(const QString& view, int row, int column)
{
    auto* list = widget<QAbstractItemView>(view);
    demand(stage.hand().click(list, list->model()->index(row, column)), stage.hand().complaint());
}

// The list of a box that is disabled does not open.
void Scene::choose(QComboBox* box, int index)
{
    if (!box->isEnabled()) {
        click(box);
        return;
    }
    const QString entry = box->itemText(index);
    if (box->findText(entry) == index && box->currentIndex() != index)
        demand(stage.hand().choose(box, entry), stage.hand().complaint());
}

void Scene::enter(QWidget* field, const QString& text)
{
    demand(stage.hand().enter(field, text), stage.hand().complaint());
}

bool Scene::openTab(const QString& tabs, const QString& title)
{
    auto* bar = widget<QTabBar>(tabs + QStringLiteral("/qt_tabwidget_tabbar"));
    if (!bar->isEnabled())
        return false;
    demand(stage.hand().click(bar, title), stage.hand().complaint());
    return true;
}

QWidget* Scene::widget(const QString& name)
{
    QWidget* found = stage.widget(name);
    demand(found, stage.hand().complaint());
    return found;
}

bool Scene::isVisible(const QString& name)
{
    const auto* found = stage.window().findChild<QWidget*>(name);
    return found && found->isVisible();
}

void Scene::leavePanels()
{
    if (isVisible(QStringLiteral("button_closeDrawer")))
        click(QStringLiteral("button_closeDrawer"));
    if (isVisible(QStringLiteral("loginPanel")))
        click(QStringLiteral("button_user"));
}

void Scene::showPages()
{
    leavePanels();
    if (!isVisible(QStringLiteral("programPage")))
        return;
    model.releaseKeys();
    click(QStringLiteral("button_program"));
    pageRead();
}

void Scene::showPrograms()
{
    leavePanels();
    if (isVisible(QStringLiteral("programPage")))
        return;
    model.releaseKeys();
    click(QStringLiteral("button_program"));
}

void Scene::goTo(Page entry)
{
    showPages();
    if (page == entry)
        return;
    demand(stage.clickTool(namesOf(entry).entry), stage.hand().complaint());
    page = entry;
    pageRead();
}

QWidget* Scene::pageWidget()
{
    return widget(latin(namesOf(page).widget));
}

void Scene::logIn(int level)
{
    leavePanels();
    model.releaseKeys();
    demand(stage.logIn(level), stage.hand().complaint());
    model.level = level;
    if (!isVisible(QStringLiteral("programPage")))
        pageRead();
}

void Scene::turnConnection()
{
    click(QStringLiteral("button_connection"));
    model.connection(!model.connected);
}

void Scene::turnPower()
{
    click(QStringLiteral("button_power"));
    model.powered = !model.powered;
}

void Scene::pageRead()
{
    if (page == Page::Curves)
        compareCurves();
    if (page == Page::Setting)
        mainIsOn = Forms::isOn(Forms::within(pageWidget(), latin("pushButton_main_enable")));
    if (page == Page::Io)
        ioIsTrue = model.readsTruly();
    model.allowForUntrueReads();
    if (!model.readsTruly())
        return;
    if (page == Page::Setting)
        compare(Forms::setting(pageWidget()), model.records[keys::weldSetting].toObject());
    if (page == Page::Io)
        compare(Forms::mapping(pageWidget()), model.records[keys::weldIo].toObject());
    if (page == Page::Data)
        compareLists();
}

// A chart that has been computed is so again at each show, whatever the nodes are then.
void Scene::compareCurves()
{
    for (int index = 0; index < Forms::CurveCount; ++index) {
        const QJsonObject record = Forms::curveRecord(pageWidget(), index);
        const QString complaint =
            Forms::complaint(record.value(latin(Forms::curve(index).dataKey)).toArray());
        if (computed[static_cast<std::size_t>(index)] && !complaint.isEmpty())
            model.tell(Model::Warning, complaint);
        if (model.readsTruly())
            compare(record, model.records[keys::weldCurves].toObject());
    }
}

void Scene::compareLists()
{
    enum View { Lists, Schedule, Matching };
    QWidget* data = pageWidget();
    const int view =
        widget<QStackedWidget>(QStringLiteral("WeldParameterPage/stackedWidget"))->currentIndex();
    if (view == Lists)
        return;
    const QJsonObject record = view == Schedule ? Forms::schedule(data) : Forms::matching(data);
    const QString key =
        record.value(latin(view == Schedule ? "LsDataID" : "PowerDataID")).toString();
    const QJsonObject all =
        model.records[view == Schedule ? keys::weldSchedules : keys::weldMatching].toObject();
    if (all.contains(key))
        compare(record, all.value(key).toObject());
}

QJsonValue Scene::stored(const QString& record)
{
    pendant::Controller& machine = stage.controller();
    const QSignalBlocker quiet(machine);
    const pendant::Faults faults = machine.faults();
    const bool isConnected = machine.isConnected();
    machine.setFaults({});
    machine.setConnected(true);
    const QJsonValue value = machine.serviceData(record);
    machine.setConnected(isConnected);
    machine.setFaults(faults);
    return value;
}

std::optional<int> Scene::codeOf(const QString& command) const
{
    for (const QString& line : witness.controllerLines) {
        if (line == command + QStringLiteral(" done"))
            return 0;
        const QString refusal = command + QStringLiteral(" refused with ");
        if (line.startsWith(refusal))
            return line.mid(refusal.size()).section(QLatin1Char(':'), 0, 0).toInt();
    }
    return std::nullopt;
}

} // namespace soak
