#include "Pages.h"

#include "CharacteristicsCurvePage.h"
#include "WeldParameterPage.h"
#include "WeldSettingPage.h"
#include "WeldioPage.h"
#include "qelLaserWelding.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>

namespace {

constexpr int PageCount = 5;

/// What the plugin writes to the console of a record that cannot be used, or of values that do not
/// rise. What else it warns of is a finding.
const char* const AnswersToRecords[] = {
    "[qellaserweld][JsonCommon] ",
    "setTableMatchData: ",
    "parseMatchParamToTable: 'power_data'",
    "parseMatchParamToTable: No valid data",
    "parseMatchParamToTable: PowerData",
    "parseMatchParamToTable: Process data is empty",
    "validateMatchingTableParams: Speed validation failed",
    "validateMatchingTableParams: Power validation failed",
    "validateMatchingTableParams: Frequency validation failed",
    "validateMatchingTableParams: Duty Cycle validation failed",
};

template<typename Widget>
Widget* find(const QObject* parent, const char* name)
{
    auto* found = parent->findChild<Widget*>(QLatin1String(name));
    Fuzz::demand(found, name);
    return found;
}

void openRecord(WeldParameterPage* page, const char* list, int number)
{
    find<QPushButton>(page, "pushButton_back")->click();
    find<QTableWidget>(page, list)->selectRow(number - 1);
    find<QPushButton>(page, "pushButton_Config")->click();
}

WeldParameterPage* newParameterPage(WeldSettingPage* setting, int tab)
{
    auto* page = new WeldParameterPage(setting);
    page->applyPageStyle();
    find<QTabWidget>(page, "tabWidget")->setCurrentIndex(tab);
    page->show();
    return page;
}

} // namespace

Pages::Pages()
{
    for (const char* start : AnswersToRecords)
        Fuzz::allowWarning(start);
    static qelplugin::qelLaserWelding plugin;
    qelplugin::PluginBase& base = plugin;
    base.init();
    base.afterInit();
    base.render();
    host.centerWidget->resize(1100, 720);
    host.centerWidget->show();
    setting = host.centerWidget->findChild<WeldSettingPage*>();
    io = host.centerWidget->findChild<WeldioPage*>();
    curves = host.centerWidget->findChild<CharacteristicsCurvePage*>();
    schedules = newParameterPage(setting, 0);
    matching = newParameterPage(setting, 1);
    for (int index = 0; index < PageCount; ++index)
        open(index);
    openRecords(1);
    Fuzz::settle();
}

void Pages::play(const QJsonObject& input)
{
    host.forgetCalls();
    host.service.clear();
    for (auto each = input.begin(); each != input.end(); ++each) {
        host.service.insert(each.key(), each.value());
        const QJsonObject members = each.value().toObject();
        for (auto member = members.begin(); member != members.end(); ++member)
            host.service.insert(each.key() + QLatin1Char('.') + member.key(), member.value());
    }
    host.registerValue = input.value(QLatin1String("registers"));
    host.portNames.clear();
    const QJsonObject ports = input.value(QLatin1String("ports")).toObject();
    for (auto each = ports.begin(); each != ports.end(); ++each) {
        QStringList names;
        const QJsonArray array = each.value().toArray();
        for (const QJsonValue& name : array)
            names << name.toString();
        host.portNames.insert(each.key(), names);
    }
    host.level = input.value(QLatin1String("level")).toInt(3);
    host.powered = input.value(QLatin1String("powered")).toBool();
    host.nodes = {{QStringLiteral("qeltheme.fontzoom"), input.value(QLatin1String("zoom"))}};
}

void Pages::open(int index)
{
    static const QRegularExpression name(QStringLiteral("^toolButton_page_"));
    const auto buttons = host.centerWidget->findChildren<QToolButton*>(name);
    Fuzz::demand(buttons.size() == PageCount, "the navigation has an entry for each page");
    buttons.at(qAbs(index % PageCount))->click();
    Fuzz::settle();
}

void Pages::openRecords(int number)
{
    openRecord(schedules, "tableWidget", number);
    openRecord(matching, "tableWidget_2", (number - 1) % 10 + 1);
}
