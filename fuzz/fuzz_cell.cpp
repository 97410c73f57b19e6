// Feeds a cell to the controller. JSON { "records": { key: record, or text to stand in its place },
// "programs": { name: text }, "commands": [ { command: payload }, ... ] } goes into a sound cell
// beside what is there; any other bytes are the file.
//
// A file that is refused is refused with a text, and left as it was. One that opens can be read,
// commanded and closed; opened again it holds the same, and no record has become anything else than
// an object or an array.

#include "Controller.h"
#include "Harness.h"
#include "LeaksOfQt.h"
#include "RecordKeys.h"
#include "SqlConnection.h"
#include "WeldIo.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace {

using pendant::Controller;
using Access = pendant::SqlConnection::Access;

constexpr pendant::CellSize Small{4, 12};

// In memory, where there is such a folder: a cell waits for the disk at each change.
QString templateOfFolder()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
           QStringLiteral("/fuzz_cell-XXXXXX");
}

struct Place
{
    Place()
        : folder(templateOfFolder())
        , file(folder.filePath(QStringLiteral("cell")))
    {
        QString error;
        Fuzz::demand(Controller::open(file, Small, &error) != nullptr, "a new cell opens");
        sound = content();
    }

    QByteArray content() const
    {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }

    void put(const QByteArray& bytes) const
    {
        for (const char* ending : {"-wal", "-shm", "-journal"})
            QFile::remove(file + QLatin1String(ending));
        QFile opened(file);
        Fuzz::demand(opened.open(QIODevice::WriteOnly), "the file can be written");
        opened.write(bytes);
    }

    QTemporaryDir folder;
    QString file;
    QByteArray sound;
};

QByteArray recordText(const QJsonValue& value)
{
    if (value.isString())
        return value.toString().toUtf8();
    const QJsonDocument document =
        value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    return document.toJson(QJsonDocument::Compact);
}

void insertAll(const QString& file, const QJsonObject& input)
{
    pendant::SqlConnection connection;
    Fuzz::demand(connection.open(file, Access::ReadWrite), "a sound cell can be written");
    connection.run(QStringLiteral("PRAGMA synchronous=OFF"));
    connection.run(QStringLiteral("BEGIN"));
    const QJsonObject records = input.value(QLatin1String("records")).toObject();
    for (auto each = records.begin(); each != records.end(); ++each)
        connection.run(QStringLiteral("INSERT OR REPLACE INTO records VALUES (?, ?)"),
                       {each.key(), QString::fromUtf8(recordText(each.value()))});
    const QJsonObject programs = input.value(QLatin1String("programs")).toObject();
    for (auto each = programs.begin(); each != programs.end(); ++each)
        connection.run(QStringLiteral("INSERT OR REPLACE INTO programs VALUES (?, ?)"),
                       {each.key(), each.value().toString().toUtf8()});
    connection.run(QStringLiteral("COMMIT"));
}

std::vector<QLatin1String> recordKeys()
{
    namespace keys = pendant::keys;
    return {keys::weldSetting,  keys::weldIo,     keys::weldData, keys::weldSchedules,
            keys::weldMatching, keys::weldCurves, keys::selection};
}

void read(Controller& controller)
{
    for (const QLatin1String key : recordKeys()) {
        const QJsonValue record = controller.serviceData(key);
        Fuzz::demand(record.isUndefined() || record.isObject() || record.isArray(),
                     "a record is an object or an array");
        const QJsonObject members = record.toObject();
        for (auto each = members.begin(); each != members.end(); ++each) {
            if (!each.key().contains(QLatin1Char('.')))
                Fuzz::demand(controller.serviceData(key + QLatin1Char('.') + each.key()) ==
                                 each.value(),
                             "a dotted key reaches into a record");
        }
    }
    for (const char* kind : {"AI", "AO", "DI", "DO", "GI", "GO", ""})
        controller.ports(QLatin1String(kind));
    Fuzz::demand(controller.registers().isArray() || controller.registers().isObject(),
                 "registers are a list");
    controller.registerGroups();
    controller.tools();
    controller.workObjects();
    controller.speeds();
    controller.zones();
    controller.currentTool();
    controller.currentWorkObject();
    controller.pointNames();
}

void readSignals(Controller& controller)
{
    const auto states = controller.ioSignals();
    for (const pendant::SignalState& state : states) {
        Fuzz::demand(state.value == state.value, "a signal has a number");
        controller.setInput(QLatin1String(state.signal->key), 1);
    }
}

void change(Controller& controller)
{
    const auto tools = controller.tools();
    controller.setCurrentTool(tools.value(0));
    controller.setCurrentWorkObject(controller.workObjects().value(0));
    const QString point = QStringLiteral("fuzzed");
    const bool isNew = !controller.pointNames().contains(point);
    QString error;
    const bool isAdded = controller.addCurrentPoint(point, controller.currentTool(),
                                                    controller.currentWorkObject(), &error);
    Fuzz::demand(isAdded || !error.isEmpty(), "a point that is refused is so for a reason");
    Fuzz::demand(isNew || !isAdded, "no point has the name of another");
    controller.setVirtualWelding(!controller.isVirtualWelding());
}

void workPrograms(Controller& controller)
{
    const QStringList names = controller.programs();
    QByteArray text;
    for (const QString& name : names)
        controller.readProgram(name, &text);
    if (!names.isEmpty() && controller.saveProgram(names.first(), "LaserOff();\n"))
        Fuzz::demand(controller.readProgram(names.first(), &text) && text == "LaserOff();\n",
                     "a program reads as it was saved");
    controller.createProgram(QStringLiteral("fuzzed"));
    controller.renameProgram(QStringLiteral("fuzzed"), names.value(0));
    controller.removeProgram(names.value(names.size() - 1));
}

void command(Controller& controller, const QJsonArray& commands)
{
    const QString plugin = QStringLiteral("qelLaserWelding");
    for (const QJsonValue& each : commands) {
        const QJsonObject data = each.toObject();
        const QJsonArray reply = controller.command(plugin, data);
        const QJsonObject answers = reply.first().toObject().value(plugin).toObject();
        Fuzz::demand(reply.size() == 1 && answers.keys() == data.keys(),
                     "each command of a call is answered");
    }
}

QVector<QJsonValue> storedRecords(const Controller& controller)
{
    QVector<QJsonValue> records{controller.registers()};
    for (const QLatin1String key : recordKeys()) {
        if (key != pendant::keys::weldData) // the device starts anew
            records << controller.serviceData(key);
    }
    return records;
}

void work(const Place& place, std::unique_ptr<Controller> controller, const QJsonArray& commands)
{
    read(*controller);
    readSignals(*controller);
    command(*controller, commands);
    change(*controller);
    workPrograms(*controller);
    read(*controller);
    readSignals(*controller);
    const QVector<QJsonValue> before = storedRecords(*controller);
    const QStringList programs = controller->programs();
    controller.reset();

    QString error;
    controller = Controller::open(place.file, Small, &error);
    Fuzz::demand(controller != nullptr, "a cell that was closed opens again");
    Fuzz::demand(storedRecords(*controller) == before, "it holds the records as they were");
    Fuzz::demand(controller->programs() == programs, "and the programs");
}

} // namespace

QStringList Fuzz::words()
{
    static const QStringList words =
        QStringLiteral(
            "records,programs,commands,weld_setting_config,weld_io_config,laser_weld_data,"
            "weld_param_config,weld_param_match,weld_curve_config,ports,registers,tools,"
            "work_objects,speeds,zones,points,selection,name,tool,work_object,position,type,rw,len,"
            "bool,int16,float,DO,DI,AO,AI,GO,GI,DO1,AO1,set_weld_setting_config,set_weld_io_config,"
            "set_weld_param_list_config,set_weld_param_match_config,set_weld_curve_power_config,"
            "compute_curve_config,set_weld_enable,set_virtual_welding,set_weld_red_light,"
            "set_weld_feed_wire,set_weld_retract_wire,set_weld_manual_gas,TRUE,FALSE,LsData1,"
            "LsDataID,PowerData1,PowerDataID,laser_power_node,power_nodes_data,manual_gas_time,"
            "manual_feed_speed,manual_retract_speed,{},[],[1,{\"name\":\"p\"}],{\"a\":,")
            .split(QLatin1Char(','));
    return words;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const Place place;
    const QJsonValue input = Fuzz::json(data, size);
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    place.put(input.isObject() ? place.sound : bytes);
    if (input.isObject())
        insertAll(place.file, input.toObject());
    const QByteArray before = place.content();
    QString error;
    auto controller = [&] {
        const LeaksOfQt leaks;
        return Controller::open(place.file, Small, &error);
    }();
    if (controller) {
        work(place, std::move(controller),
             input.toObject().value(QLatin1String("commands")).toArray());
        return 0;
    }
    Fuzz::demand(error.contains(place.file) || error.contains(QLatin1String("cell")),
                 "a refusal tells the file");
    Fuzz::demand(place.content() == before, "a file that is refused is left as it was");
    return 0;
}
