// Feeds an object of service items to the loads of all pages, see Pages::play(); with "open" in it
// one page is opened anew, with "number" the weld data of that number.
//
// Whatever a record holds, what a page would save then is a record that the controller takes as to
// keys, types and ranges, but for a kind of port that was none; loading that changes nothing. A
// node table is no longer than its box says, and a matching table that the page lets pass the
// controller takes too.

#include "CharacteristicsCurvePage.h"
#include "Host.h"
#include "Pages.h"
#include "RecordSchema.h"
#include "WeldIoCheck.h"
#include "WeldParameterCheck.h"
#include "WeldParameterPage.h"
#include "WeldSettingPage.h"
#include "WeldioPage.h"

#include <QTableWidget>

namespace {

QJsonValue only(const QJsonObject& object)
{
    Fuzz::demand(object.size() == 1, "a command is one key");
    return *object.begin();
}

void demandTaken(const pendant::Result& result)
{
    Fuzz::demand(result.isDone(), qPrintable(result.reason));
}

void loadSetting(WeldSettingPage& page, const QJsonValue& record)
{
    page.loadConfig(record);
    const QJsonValue saved = only(page.toSaveCommand());
    demandTaken(pendant::weldSettingSchema().check(saved));
    page.loadConfig(saved);
    Fuzz::demand(only(page.toSaveCommand()) == saved, "a setting loads as it was saved");
}

void loadIo(WeldioPage& page, const QJsonValue& record)
{
    page.loadConfig(record);
    const QJsonValue saved = only(page.toSaveCommand());
    QJsonObject checked = saved.toObject();
    for (auto each = checked.begin(); each != checked.end(); ++each) {
        if (each.key().endsWith(QLatin1String("_type")) && each.value() == QJsonValue(-1))
            each.value() = 0; // none of three kinds
    }
    demandTaken(pendant::weldIoSchema().check(checked));
    page.loadConfig(saved); // the ports on offer may have become others
    const QJsonValue again = only(page.toSaveCommand());
    page.loadConfig(again);
    Fuzz::demand(only(page.toSaveCommand()) == again, "a mapping loads as it was saved");
}

void loadCurves(CharacteristicsCurvePage& page, const QJsonValue& record)
{
    page.loadCurves(record);
    page.refreshPortHeaders();
    page.updateAccess();
    const auto tables = page.findChildren<QTableWidget*>();
    for (const QTableWidget* table : tables) {
        const auto nodes = CharacteristicsCurvePage::readNodes(table);
        Fuzz::demand(nodes.size() <= 12, "a table has no more rows than its record says");
        for (const auto& node : nodes)
            Fuzz::demand(node.first >= 0 && node.first <= 65535.99 && node.second >= 0 &&
                             node.second <= 65535,
                         "a node is within the ranges of its editors");
        CharacteristicsCurvePage::validateNodes(table);
    }
    for (int tab = 0; tab < CharacteristicsCurvePage::TabCount; ++tab)
        page.computeCurve(tab);
}

void loadSchedule(WeldParameterPage& page, int number)
{
    page.setTableProcessData();
    page.loadProcessData(pendant::scheduleKey(number));
    const QJsonValue saved = only(only(page.createProcessDataJson()).toObject());
    demandTaken(pendant::scheduleSchema().check(saved));
}

void loadMatching(WeldParameterPage& page, int number)
{
    page.setTableMatchData();
    page.loadMatchData(pendant::matchingKey(number));
    const bool isValid = page.validateMatchingTableParams();
    const QJsonObject command = page.createMatchDataJson();
    if (isValid)
        demandTaken(pendant::checkMatching(only(command)));
}

// Rows beyond these are more of the same, and take their time.
QJsonObject withFewNodes(QJsonObject input)
{
    constexpr int Few = 12;
    const QString key = QStringLiteral("weld_curve_config");
    QJsonObject curves = input.value(key).toObject();
    if (curves.isEmpty())
        return input;
    for (auto each = curves.begin(); each != curves.end(); ++each) {
        if (each.value().isDouble() && each.value().toDouble() > Few)
            each.value() = Few;
    }
    input.insert(key, curves);
    return input;
}

int numberOf(const QJsonObject& input, int most)
{
    const int number = input.value(QLatin1String("number")).toInt(1);
    return number >= 1 && number <= most ? number : 1;
}

} // namespace

QStringList Fuzz::words()
{
    static const QStringList all = [] {
        QStringList words =
            QStringLiteral(
                "weld_setting_config,weld_io_config,laser_weld_data,weld_param_config,"
                "weld_param_match,weld_curve_config,registers,ports,level,powered,zoom,open,number,"
                "virtual_welding_status,weld_redlight_status,PowerDataID,PowerData1,PowerData2,"
                "LsData1,LsData2,power_enable,frequency_enable,dutycycle_enable,power_data,AO,AI,"
                "DI,DO,GI,GO,DO1,DO2,AO1,GO1,name,type,rw,len,bool,int16,float,r,w,WN1,RB1,"
                "laser_power_node,power_nodes_data,laser_feed_node,feed_nodes_data,laser_frequency_"
                "node,"
                "frequency_nodes_data,laser_dutycycle_node,dutycycle_nodes_data,"
                "2147483647,99999999999999999999, ")
                .split(QLatin1Char(','));
        for (const auto* schema : {&pendant::weldSettingSchema(), &pendant::weldIoSchema(),
                                   &pendant::scheduleSchema()}) {
            for (const pendant::Field& field : schema->fields())
                words << QString::fromStdString(field.key);
        }
        return words;
    }();
    return all;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QJsonObject input = withFewNodes(Fuzz::json(data, size).toObject());
    static Pages pages;
    pages.play(input);
    const auto has = [&](const char* key) { return input.contains(QLatin1String(key)); };
    const auto item = [](const char* key) { return pages.host.service.value(QLatin1String(key)); };
    // A page without a record keeps what it shows, which costs time and finds nothing.
    if (has("weld_setting_config"))
        loadSetting(*pages.setting, item("weld_setting_config"));
    if (has("weld_io_config"))
        loadIo(*pages.io, item("weld_io_config"));
    if (has("weld_curve_config"))
        loadCurves(*pages.curves, item("weld_curve_config"));
    if (has("weld_param_config"))
        loadSchedule(*pages.schedules, numberOf(input, pendant::scheduleCount));
    if (has("weld_param_match"))
        loadMatching(*pages.matching, numberOf(input, pendant::matchingCount));
    ScriptedHost::emitNetworkConnect();
    Host::isVirtualWelding();
    Host::isRedLightOn();
    if (has("open"))
        pages.open(input.value(QLatin1String("open")).toInt());
    if (has("number"))
        pages.openRecords(numberOf(input, pendant::scheduleCount));
    return 0;
}
