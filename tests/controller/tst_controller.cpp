#include "ControllerFixture.h"
#include "DefaultCell.h"
#include "Envelope.h"
#include "FullDisk.h"
#include "OldCell.h"
#include "ResultCode.h"
#include "WeldDataSamples.h"
#include "WeldIo.h"

using namespace pendant;

namespace {

const QString plugin = QStringLiteral("qelLaserWelding");
const QString setSetting = QStringLiteral("set_weld_setting_config");
const QString setIo = QStringLiteral("set_weld_io_config");
const QString setSchedule = QStringLiteral("set_weld_param_list_config");
const QString setMatching = QStringLiteral("set_weld_param_match_config");
const QString setFeedCurve = QStringLiteral("set_weld_curve_feed_config");
const QString compute = QStringLiteral("compute_curve_config");
const QString setEnable = QStringLiteral("set_weld_enable");
const QString feed = QStringLiteral("set_weld_feed_wire");
const QString retract = QStringLiteral("set_weld_retract_wire");
const QString gas = QStringLiteral("set_weld_manual_gas");
const QString redLight = QStringLiteral("set_weld_red_light");
const QString virtualWelding = QStringLiteral("set_virtual_welding");

const QString setting = QStringLiteral("weld_setting_config");
const QString weldIo = QStringLiteral("weld_io_config");
const QString schedules = QStringLiteral("weld_param_config");
const QString matching = QStringLiteral("weld_param_match");
const QString curves = QStringLiteral("weld_curve_config");
const QString weldData = QStringLiteral("laser_weld_data");

/// The envelope with one answer.
QJsonArray reply(const QString& command, const QJsonValue& returned, const QString& name = plugin)
{
    return {QJsonObject{
        {name, QJsonObject{{command, QJsonObject{{QStringLiteral("return"), returned}}}}}}};
}

/// The envelope with the answer of a computed curve.
QJsonArray lineReply(const QJsonValue& slope, const QJsonValue& intercept)
{
    const QJsonObject line{{QStringLiteral("slope"), slope},
                           {QStringLiteral("intercept"), intercept}};
    return {QJsonObject{{plugin, QJsonObject{{compute, line}}}}};
}

QJsonArray reply(const QString& command, ResultCode code)
{
    return reply(command, static_cast<int>(code));
}

QJsonValue weldStatus(const Controller& controller, const char* key)
{
    return controller.serviceData(weldData + QLatin1Char('.') + QLatin1String(key));
}

/// On the line process = 2 * output + 1.
QJsonObject straightCurve(int index)
{
    return curveRecord(weldCurves()[static_cast<std::size_t>(index)],
                       {QJsonArray{0, 1}, QJsonArray{1, 3}, QJsonArray{2, 5}});
}

/// A row for each command of the process data.
void dataCommandRows()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("record");   // of the cell; empty: none is stored
    QTest::addColumn<QJsonObject>("good"); // payload
    QTest::addColumn<QJsonObject>("bad");  // out of range
    const QString schedule = QStringLiteral("LsData30");
    QJsonObject badSchedule = sampleSchedule(schedule);
    badSchedule.insert(QStringLiteral("welding_speed"), 201);
    QTest::newRow("schedule") << setSchedule << schedules
                              << listed(schedule, sampleSchedule(schedule))
                              << listed(schedule, badSchedule);
    const QString match = QStringLiteral("PowerData10");
    QJsonObject badMatching = sampleMatching(match);
    badMatching.insert(QStringLiteral("PowerDataID"), QString());
    QTest::newRow("matching") << setMatching << matching << listed(match, sampleMatching(match))
                              << listed(match, badMatching);
    const char* const commands[] = {"set_weld_curve_power_config", "set_weld_curve_feed_config",
                                    "set_weld_curve_frequency_config",
                                    "set_weld_curve_dutycycle_config"};
    const auto outOfRange = [](int index) {
        QJsonObject bad = straightCurve(index);
        bad.insert(QLatin1String(weldCurves()[static_cast<std::size_t>(index)].numberKey), 1);
        return bad;
    };
    for (int index = 0; index < 4; ++index)
        QTest::newRow(commands[index]) << QString(QLatin1String(commands[index])) << curves
                                       << straightCurve(index) << outOfRange(index);
    QTest::newRow("compute") << compute << QString() << straightCurve(3) << outOfRange(3);
}

/// The answer to a command that is carried out.
QJsonArray goodReply(const QString& command)
{
    return command == compute ? lineReply(2, 1) : reply(command, ResultCode::Done);
}

} // namespace

class ControllerTest : public ControllerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newCell();
    void newWeldIo();
    void newLists_data();
    void newLists();
    void registersOfEveryKind();
    void registerGroups();
    void sizeIsOfTheCell();
    void openWithoutErrorText();

    void serviceData_data();
    void serviceData();

    void saves();
    void refusedSaveStoresNothing_data();
    void refusedSaveStoresNothing();
    void enable();
    void enableSurvivesInTheRecordOnly();
    void enableRefused_data();
    void enableRefused();
    void savesIo();
    void refusedIoStoresNothing_data();
    void refusedIoStoresNothing();
    void newWeldData();
    void savesData_data() { dataCommandRows(); }
    void savesData();
    void savesOneOfMany();
    void refusedDataStoresNothing_data() { dataCommandRows(); }
    void refusedDataStoresNothing();
    void dataOfAnOlderCell();
    void dataOfACellWithNonsense();
    void dataFaults_data() { dataCommandRows(); }
    void dataFaults();
    void enableNeedsPorts_data();
    void enableNeedsPorts();
    void enableAfterTheMappingOfTheSameCall();
    void oldCellWithNonsense();
    void ioFollows();
    void inputByHand();
    void keys_data();
    void keys();
    void keysTakeBoolsOnly_data();
    void keysTakeBoolsOnly();
    void wireRunsOneWay_data();
    void wireRunsOneWay();
    void gasPurges();
    void toggledStatesAreStored();
    void wireStopsWithTheConnection();

    void unknownCommand();
    void otherPlugin();
    void severalCommands();
    void noCommand();
    void fullDisk();

    void disconnected();
    void workModeAtTheCabinet();
    void powered();

    void faultDelay();
    void faultEmptyReply();
    void faultForeignReply();
    void faultMissingReturn();
    void faultReturnValue_data();
    void faultReturnValue();
    void faultElementTypes();
    void faultLostCommand_data();
    void faultLostCommand();
    void faultReturnCode();
    void faultWrongTypes();
    void faultRegisters();
    void faultPortGone();

private:
    void reopen();
    void watchChanges();
    QJsonArray send(const QString& command, const QJsonValue& payload);
    QJsonObject storedIo() const { return m_controller->serviceData(weldIo).toObject(); }
    QJsonObject stored() const { return m_controller->serviceData(setting).toObject(); }

    QStringList m_changed;
};

void ControllerTest::init()
{
    TestCase::init();
    makeCell();
    watchChanges();
}

void ControllerTest::cleanup()
{
    m_controller.reset();
    TestCase::cleanup();
}

void ControllerTest::reopen()
{
    ControllerFixture::reopen();
    watchChanges();
}

void ControllerTest::watchChanges()
{
    m_changed.clear();
    connect(m_controller.get(), &Controller::recordChanged, this,
            [this](const QString& key) { m_changed << key; });
}

QJsonArray ControllerTest::send(const QString& command, const QJsonValue& payload)
{
    return m_controller->command(plugin, {{command, payload}});
}

// ---------------------------------------------------------------- the new cell

void ControllerTest::newCell()
{
    QCOMPARE(stored().size(), 18);
    QCOMPARE(stored().value(QLatin1String("laser_power")), QJsonValue(3000));
    QCOMPARE(stored().value(QLatin1String("laser_main_enable")), QJsonValue(false));
    QCOMPARE(weldStatus(*m_controller, "virtual_welding_status"), QJsonValue(false));
    QCOMPARE(weldStatus(*m_controller, "weld_redlight_status"), QJsonValue(false));
    QVERIFY(!m_controller->isPowered());
    QVERIFY(m_controller->isConnected());
    // What a new cell holds is what the controller itself accepts.
    QCOMPARE(send(setSetting, stored()), reply(setSetting, ResultCode::Done));
    QCOMPARE(send(setIo, storedIo()), reply(setIo, ResultCode::Done));
}

void ControllerTest::newWeldIo()
{
    const QJsonObject record =
        m_controller->serviceData(QStringLiteral("weld_io_config")).toObject();
    QHash<QString, int> counts;
    QSet<QString> used;
    for (auto each = record.begin(); each != record.end(); ++each) {
        counts[each.key().section(QLatin1Char('_'), -1)]++;
        const QString port = each.value().toString();
        QVERIFY2(port.isEmpty() || !used.contains(port), qPrintable(port));
        used.insert(port);
    }
    const QHash<QString, int> expected{{QStringLiteral("type"), 24},
                                       {QStringLiteral("port"), 24},
                                       {QStringLiteral("bias"), 24},
                                       {QStringLiteral("enabled"), 22}};
    QCOMPARE(counts, expected);
    QVERIFY(!record.value(QLatin1String("laser_enable_port")).toString().isEmpty());
    QVERIFY(!record.value(QLatin1String("gas_protect_port")).toString().isEmpty());
}

void ControllerTest::newLists_data()
{
    QTest::addColumn<int>("ports");
    QTest::addColumn<int>("registers");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("negative") << -1 << -1;
    QTest::newRow("few") << 1 << 1;
    QTest::newRow("as usual") << CellSize().ports << CellSize().registers;
    QTest::newRow("many") << 2000 << 10000;
}

void ControllerTest::newLists()
{
    QFETCH(int, ports);
    QFETCH(int, registers);
    QString error;
    const auto controller =
        Controller::open(m_folder->filePath(QStringLiteral("sized")), {ports, registers}, &error);
    QVERIFY2(controller, qPrintable(error));
    for (const char* kind : {"AI", "AO", "DI", "DO", "GI", "GO"}) {
        const QStringList names = controller->ports(QLatin1String(kind));
        QCOMPARE(names.size(), std::max(0, ports));
        if (ports > 0)
            QCOMPARE(names.last(), QLatin1String(kind) + QString::number(ports));
    }
    QVERIFY(controller->ports(QStringLiteral("XX")).isEmpty());
    QVERIFY(controller->registers().isArray());
    QCOMPARE(controller->registers().toArray().size(), std::max(0, registers));
}

void ControllerTest::registersOfEveryKind()
{
    QSet<QString> types;
    QSet<QString> accesses;
    QSet<QString> names;
    QSet<int> lengths;
    const QJsonArray registers = m_controller->registers().toArray();
    for (const QJsonValue& each : registers) {
        types.insert(each[QLatin1String("type")].toString());
        accesses.insert(each[QLatin1String("rw")].toString());
        names.insert(each[QLatin1String("name")].toString());
        lengths.insert(each[QLatin1String("len")].toInt());
    }
    QCOMPARE(types.size(), 19); // two for bits, fourteen integers, two floating, texts
    QCOMPARE(accesses.size(), 12);
    QCOMPARE(names.size(), registers.size());
    QVERIFY(!names.contains(QString()));
    QVERIFY(lengths.contains(1) && lengths.size() > 1 && !lengths.contains(0));
}

void ControllerTest::registerGroups()
{
    const QHash<QString, QStringList> groups = m_controller->registerGroups();
    QCOMPARE(groups.size(), 19);
    int count = 0;
    for (const QStringList& names : groups)
        count += names.size();
    QCOMPARE(count, CellSize().registers);
    QVERIFY(groups.value(QStringLiteral("bool")).contains(QStringLiteral("R1")));
}

void ControllerTest::sizeIsOfTheCell()
{
    m_controller.reset();
    const auto controller =
        Controller::open(m_folder->filePath(QStringLiteral("cell")), {3, 3}, nullptr);
    QCOMPARE(controller->ports(QStringLiteral("DI")).size(), CellSize().ports);
}

void ControllerTest::openWithoutErrorText()
{
    QVERIFY(!Controller::open(m_folder->path(), {}, nullptr));
}

// ---------------------------------------------------------------- reading

void ControllerTest::serviceData_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");
    const QJsonValue nothing(QJsonValue::Undefined);
    const auto row = [](const char* key, const QJsonValue& value) {
        QTest::newRow(key) << QString(QLatin1String(key)) << value;
    };
    row("weld_setting_config.laser_power", 3000);
    row("laser_weld_data.virtual_welding_status", false);
    row("laser_weld_data.weld_gas_status", false);
    row("", nothing);
    row(".", nothing);
    row("none", nothing);
    row("weld_setting_config.", nothing);
    row(".weld_setting_config", nothing);
    row("weld_setting_config.none", nothing);
    row("weld_setting_config.laser_power.unit", nothing);
    row("weld_setting_config..laser_power", nothing);
    row("none.none", nothing);
    row("ports", nothing);
    row("registers", nothing);
    row("ports.DI", nothing);
    for (const char* key :
         {"tools", "work_objects", "speeds", "zones", "points", "selection", "selection.tool"})
        row(key, nothing);
}

void ControllerTest::serviceData()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    const QJsonValue read = m_controller->serviceData(key);
    QCOMPARE(read, value);
    QCOMPARE(read.type(), value.type());
}

// ---------------------------------------------------------------- commands

void ControllerTest::saves()
{
    QJsonObject record = stored();
    record.insert(QStringLiteral("laser_power"), 4321);
    QCOMPARE(send(setSetting, record), reply(setSetting, ResultCode::Done));
    QCOMPARE(stored(), record);
    QCOMPARE(m_changed, QStringList(setting));
    QCOMPARE(m_log, QStringList(QStringLiteral("set_weld_setting_config done")));
    reopen();
    QCOMPARE(stored(), record);
}

void ControllerTest::refusedSaveStoresNothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value"); // undefined takes the key away
    QTest::addColumn<int>("code");
    const auto row = [](const char* key, const QJsonValue& value, int code) {
        QTest::newRow(key) << QString(QLatin1String(key)) << value << code;
    };
    row("laser_power", 10000, 6);
    row("feeder_enable", 1, 3);
    row("detection_time", QJsonValue::Undefined, 4);
    row("laser_colour", 1, 5);
}

void ControllerTest::refusedSaveStoresNothing()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    QFETCH(int, code);
    const QJsonObject before = stored();
    QJsonObject record = before;
    record.insert(key, value);
    QCOMPARE(send(setSetting, record), reply(setSetting, code));
    QCOMPARE(stored(), before);
    QVERIFY(m_changed.isEmpty());
    QCOMPARE(m_log.size(), 1);
    QVERIFY2(
        m_log.first().startsWith(
            QStringLiteral("set_weld_setting_config refused with %1: \"%2\"").arg(code).arg(key)),
        qPrintable(m_log.first()));
    reopen();
    QCOMPARE(stored(), before);
}

void ControllerTest::enable()
{
    const QJsonObject before = stored();
    QCOMPARE(m_controller->textCommand(plugin, setEnable, QStringLiteral("TRUE")),
             reply(setEnable, true));
    QCOMPARE(weldStatus(*m_controller, "weld_enable_status"), QJsonValue(true));
    QCOMPARE(m_changed, QStringList(weldData));
    QCOMPARE(m_controller->textCommand(plugin, setEnable, QStringLiteral("FALSE")),
             reply(setEnable, true));
    QCOMPARE(weldStatus(*m_controller, "weld_enable_status"), QJsonValue(false));
    QCOMPARE(stored(), before);
}

void ControllerTest::enableSurvivesInTheRecordOnly()
{
    QJsonObject record = stored();
    record.insert(QStringLiteral("laser_main_enable"), true);
    m_controller->textCommand(plugin, setEnable, QStringLiteral("TRUE"));
    send(setSetting, record);
    m_controller->textCommand(plugin, setEnable, QStringLiteral("FALSE"));
    QCOMPARE(stored().value(QLatin1String("laser_main_enable")), QJsonValue(true));
    m_controller->textCommand(plugin, setEnable, QStringLiteral("TRUE"));
    reopen();
    QCOMPARE(stored().value(QLatin1String("laser_main_enable")), QJsonValue(true));
    QCOMPARE(weldStatus(*m_controller, "weld_enable_status"), QJsonValue(false));
}

void ControllerTest::enableRefused_data()
{
    QTest::addColumn<QJsonValue>("payload");
    QTest::addColumn<bool>("isPowered");
    QTest::addColumn<int>("code");
    const QJsonValue on = QStringLiteral("TRUE");
    QTest::newRow("powered, on") << on << true << 8;
    QTest::newRow("powered, off") << QJsonValue(QStringLiteral("FALSE")) << true << 8;
    QTest::newRow("lower case") << QJsonValue(QStringLiteral("true")) << false << 6;
    QTest::newRow("blank") << QJsonValue(QStringLiteral("TRUE ")) << false << 6;
    QTest::newRow("empty") << QJsonValue(QString()) << false << 6;
    QTest::newRow("bool") << QJsonValue(true) << false << 3;
    QTest::newRow("number") << QJsonValue(1) << false << 3;
    QTest::newRow("null") << QJsonValue() << false << 3;
    QTest::newRow("object") << QJsonValue(QJsonObject()) << false << 3;
}

void ControllerTest::enableRefused()
{
    QFETCH(QJsonValue, payload);
    QFETCH(bool, isPowered);
    QFETCH(int, code);
    m_controller->setPowered(isPowered);
    QCOMPARE(send(setEnable, payload), reply(setEnable, false));
    QCOMPARE(weldStatus(*m_controller, "weld_enable_status"), QJsonValue(false));
    QCOMPARE(m_log.size(), 1);
    QVERIFY2(
        m_log.first().startsWith(QStringLiteral("set_weld_enable refused with %1: ").arg(code)),
        qPrintable(m_log.first()));
}

void ControllerTest::savesIo()
{
    QJsonObject record = storedIo();
    record.insert(QStringLiteral("laser_enable_port"), QStringLiteral("DO99"));
    record.insert(QStringLiteral("red_light_type"), 2);
    record.insert(QStringLiteral("red_light_port"), QStringLiteral("R20"));
    record.insert(QStringLiteral("red_light_bias"), 7);
    QCOMPARE(send(setIo, record), reply(setIo, ResultCode::Done));
    QCOMPARE(storedIo(), record);
    QCOMPARE(m_changed, QStringList(weldIo));
    reopen();
    QCOMPARE(storedIo(), record);
}

void ControllerTest::refusedIoStoresNothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value"); // undefined takes the key away
    QTest::addColumn<int>("code");
    const auto row = [](const char* key, const QJsonValue& value, int code) {
        QTest::newRow(key) << QString(QLatin1String(key)) << value << code;
    };
    row("laser_enable_port", 1, 3);
    row("laser_enable_bias", QJsonValue::Undefined, 4);
    row("laser_enable_enabled", true, 5);
    row("laser_enable_type", 1, 6);
    row("power_port", QStringLiteral("DO1"), 10);
    row("red_light_port", QLatin1String(""), 12);
}

void ControllerTest::refusedIoStoresNothing()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    QFETCH(int, code);
    const QJsonObject before = storedIo();
    QJsonObject record = before;
    record.insert(key, value);
    QCOMPARE(send(setIo, record), reply(setIo, code));
    QCOMPARE(storedIo(), before);
    QVERIFY(m_changed.isEmpty());
    QCOMPARE(m_log.size(), 1);
    QVERIFY2(m_log.first().startsWith(
                 QStringLiteral("set_weld_io_config refused with %1: \"%2\"").arg(code).arg(key)),
             qPrintable(m_log.first()));
}

// A new cell has a few of each, and what it has is what the controller itself accepts.
void ControllerTest::newWeldData()
{
    const QJsonObject allSchedules = m_controller->serviceData(schedules).toObject();
    QCOMPARE(allSchedules.size(), 5);
    for (auto each = allSchedules.begin(); each != allSchedules.end(); ++each)
        QCOMPARE(send(setSchedule, listed(each.key(), each.value())),
                 reply(setSchedule, ResultCode::Done));
    const QJsonObject allMatching = m_controller->serviceData(matching).toObject();
    QCOMPARE(allMatching.size(), 3);
    for (auto each = allMatching.begin(); each != allMatching.end(); ++each)
        QCOMPARE(send(setMatching, listed(each.key(), each.value())),
                 reply(setMatching, ResultCode::Done));
    const QJsonObject allCurves = m_controller->serviceData(curves).toObject();
    QCOMPARE(allCurves.size(), 8);
    for (const WeldCurve& curve : weldCurves()) {
        const QString nodes = QLatin1String(curve.nodesKey);
        const QString number = QLatin1String(curve.numberKey);
        const Result result =
            checkCurve(curve, QJsonObject{{number, allCurves[number]}, {nodes, allCurves[nodes]}});
        QVERIFY2(result.isDone(), qPrintable(result.reason));
    }
}

void ControllerTest::savesData()
{
    QFETCH(QString, command);
    QFETCH(QString, record);
    QFETCH(QJsonObject, good);
    QJsonObject expected = m_controller->serviceData(record).toObject();
    for (auto each = good.begin(); !record.isEmpty() && each != good.end(); ++each)
        expected.insert(each.key(), each.value());
    QCOMPARE(send(command, good), goodReply(command));
    QCOMPARE(m_controller->serviceData(record).toObject(), expected);
    QCOMPARE(m_changed, record.isEmpty() ? QStringList() : QStringList(record));
    QCOMPARE(m_log, QStringList(command + QStringLiteral(" done")));
    reopen();
    QCOMPARE(m_controller->serviceData(record).toObject(), expected);
}

void ControllerTest::savesOneOfMany()
{
    for (int number = 1; number <= scheduleCount; ++number) {
        const QString key = scheduleKey(number);
        QCOMPARE(send(setSchedule, listed(key, sampleSchedule(key))),
                 reply(setSchedule, ResultCode::Done));
    }
    const QJsonObject before = m_controller->serviceData(schedules).toObject();
    QCOMPARE(before.size(), scheduleCount);
    const QString key = scheduleKey(17);
    QJsonObject changed = sampleSchedule(key);
    changed.insert(QStringLiteral("Tips"), QStringLiteral("changed"));
    send(setSchedule, listed(key, changed));
    QJsonObject expected = before;
    expected.insert(key, changed);
    QCOMPARE(m_controller->serviceData(schedules).toObject(), expected);
    QCOMPARE(m_controller->serviceData(schedules + QLatin1Char('.') + key), QJsonValue(changed));
}

void ControllerTest::refusedDataStoresNothing()
{
    QFETCH(QString, command);
    QFETCH(QString, record);
    QFETCH(QJsonObject, bad);
    const QJsonValue before = m_controller->serviceData(record);
    QCOMPARE(send(command, bad), reply(command, ResultCode::OutOfRange));
    QCOMPARE(send(command, 7), reply(command, ResultCode::WrongType));
    QCOMPARE(m_controller->serviceData(record), before);
    QVERIFY(m_changed.isEmpty());
    QCOMPARE(m_log.size(), 2);
    QVERIFY2(m_log.first().startsWith(command + QStringLiteral(" refused with 6: \"")),
             qPrintable(m_log.first()));
    QVERIFY(m_log.first().contains(QStringLiteral("accepted: ")));
    QCOMPARE(m_log.last(), command + QStringLiteral(" refused with 3: 7 is no object"));
}

void ControllerTest::dataOfAnOlderCell()
{
    m_controller.reset();
    const QString file = m_folder->filePath(QStringLiteral("old"));
    QVERIFY(makeOldCell(file));
    const Records expected = defaultRecords({});
    m_controller = Controller::open(file, {}, nullptr);
    QVERIFY(m_controller);
    for (const QString& key : {schedules, matching, curves})
        QCOMPARE(m_controller->serviceData(key), expected.value(key));
}

// Nonsense is shown as it is, until the first save makes a record of it.
void ControllerTest::dataOfACellWithNonsense()
{
    m_controller.reset();
    const QString file = m_folder->filePath(QStringLiteral("old"));
    QVERIFY(makeOldCell(file));
    QVERIFY(runSql(file, {QStringLiteral("INSERT INTO records VALUES ('weld_param_config', '[1]')"),
                          QStringLiteral("INSERT INTO records VALUES ('weld_curve_config', "
                                         "'{\"laser_power_node\":\"x\",\"other\":1}')")}));
    m_controller = Controller::open(file, {}, nullptr);
    QVERIFY(m_controller);
    QCOMPARE(m_controller->serviceData(schedules), QJsonValue(QJsonArray{1}));
    const QString key = scheduleKey(1);
    const QJsonObject payload = listed(key, sampleSchedule(key));
    QCOMPARE(send(setSchedule, payload), reply(setSchedule, ResultCode::Done));
    QCOMPARE(m_controller->serviceData(schedules).toObject(), payload);
    QCOMPARE(send(setFeedCurve, straightCurve(1)), reply(setFeedCurve, ResultCode::Done));
    QCOMPARE(m_controller->serviceData(curves).toObject().size(), 4);
}

// The faults of the replies fall upon each of the commands alike.
void ControllerTest::dataFaults()
{
    QFETCH(QString, command);
    QFETCH(QString, record);
    QFETCH(QJsonObject, good);
    const auto sendWith = [&](auto Faults::*fault, auto value) {
        Faults faults;
        faults.*fault = value;
        m_controller->setFaults(faults);
        const QJsonArray answered = send(command, good);
        m_controller->setFaults({});
        return answered;
    };
    const QJsonValue before = m_controller->serviceData(record);
    QCOMPARE(sendWith(&Faults::returnCode, 42), reply(command, 42));
    QCOMPARE(m_controller->serviceData(record), before);
    QCOMPARE(sendWith(&Faults::emptyReply, true), QJsonArray());
    QVERIFY(record.isEmpty() || m_controller->serviceData(record) != before);
    const QStringList names = sendWith(&Faults::foreignReply, true).at(0).toObject().keys();
    QVERIFY(!names.contains(plugin));
    const QJsonArray nothing{QJsonObject({{plugin, QJsonObject{{command, QJsonObject()}}}})};
    QCOMPARE(sendWith(&Faults::missingReturn, true), nothing);
    const QString zero = QStringLiteral("0");
    QCOMPARE(sendWith(&Faults::wrongTypes, true),
             command == compute ? lineReply(QStringLiteral("2"), QStringLiteral("1"))
                                : reply(command, zero));
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(sendWith(&Faults::replyDelay, 20), goodReply(command));
    QVERIFY(clock.elapsed() >= 20);
}

void ControllerTest::enableNeedsPorts_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("laser") << QStringLiteral("laser_enable_port");
    QTest::newRow("gas") << QStringLiteral("gas_protect_port");
}

void ControllerTest::enableNeedsPorts()
{
    QFETCH(QString, key);
    QJsonObject record = storedIo();
    const QJsonValue port = record.value(key);
    record.insert(key, QString());
    QCOMPARE(send(setIo, record), reply(setIo, ResultCode::Done));
    m_log.clear();
    QCOMPARE(send(setEnable, QStringLiteral("TRUE")), reply(setEnable, false));
    QCOMPARE(weldStatus(*m_controller, "weld_enable_status"), QJsonValue(false));
    QVERIFY2(m_log.value(0).startsWith(
                 QStringLiteral("set_weld_enable refused with 12: \"%1\" is empty").arg(key)),
             qPrintable(m_log.value(0)));
    QCOMPARE(send(setEnable, QStringLiteral("FALSE")), reply(setEnable, true));
    record.insert(key, port);
    send(setIo, record);
    QCOMPARE(send(setEnable, QStringLiteral("TRUE")), reply(setEnable, true));
}

void ControllerTest::enableAfterTheMappingOfTheSameCall()
{
    QJsonObject record = storedIo();
    record.insert(QStringLiteral("gas_protect_port"), QString());
    // The commands of a call are carried out in the order of their names.
    const QJsonArray answered =
        m_controller->command(plugin, {{setIo, record}, {setEnable, QStringLiteral("TRUE")}});
    const QJsonObject answers = answered.at(0).toObject().value(plugin).toObject();
    QCOMPARE(answers.value(setEnable), QJsonValue(QJsonObject{{QStringLiteral("return"), true}}));
    QCOMPARE(storedIo(), record);
}

// What an older pendant has left is read as far as it goes.
void ControllerTest::oldCellWithNonsense()
{
    m_controller.reset();
    const QString file = m_folder->filePath(QStringLiteral("old"));
    QVERIFY(makeOldCell(file));
    QVERIFY(runSql(file, {QStringLiteral("INSERT INTO records VALUES ('weld_io_config', "
                                         "'{\"power_type\":\"x\",\"gas_protect_port\":7}')")}));
    QString error;
    m_controller = Controller::open(file, {}, &error);
    QVERIFY2(m_controller, qPrintable(error));
    QCOMPARE(storedIo().size(), 2);
    QCOMPARE(m_controller->ioSignals().size(), 24);
    QCOMPARE(send(setEnable, QStringLiteral("TRUE")), reply(setEnable, false));
    QVERIFY(m_controller->setVirtualWelding(true));
}

void ControllerTest::ioFollows()
{
    QSignalSpy changed(m_controller.get(), &Controller::ioChanged);
    const auto value = [&](int row) { return m_controller->ioSignals().at(row).value; };
    send(setEnable, QStringLiteral("TRUE"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(value(0), 1.0);
    send(redLight, true);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(value(4), 1.0);
    send(setIo, storedIo());
    QCOMPARE(changed.count(), 3);
    m_controller->setFaults({});
    QCOMPARE(changed.count(), 4);
    // The terminals are there without the connection too.
    m_controller->setConnected(false);
    QCOMPARE(value(4), 1.0);
    reopen();
    QCOMPARE(value(0), 0.0);
    QCOMPARE(value(4), 1.0);
}

void ControllerTest::inputByHand()
{
    QSignalSpy changed(m_controller.get(), &Controller::ioChanged);
    const auto value = [&] { return m_controller->ioSignals().at(17).value; };
    QVERIFY(m_controller->setInput(QStringLiteral("laser_alarm"), 1));
    QCOMPARE(value(), 1.0);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!m_controller->setInput(QStringLiteral("laser_alarm"), 2));
    QVERIFY(!m_controller->setInput(QStringLiteral("red_light"), 1));
    QCOMPARE(value(), 1.0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_log, QStringList({QStringLiteral("input \"laser_alarm\" to 1 done"),
                                 QStringLiteral("input \"laser_alarm\" to 2 refused: 2 is neither "
                                                "0 nor 1"),
                                 QStringLiteral("input \"red_light\" to 1 refused: there is no "
                                                "such input")}));
    reopen();
    QCOMPARE(value(), 0.0);
}

void ControllerTest::keys_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("status");
    QTest::newRow("virtual") << virtualWelding << QByteArray("virtual_welding_status");
    QTest::newRow("red light") << redLight << QByteArray("weld_redlight_status");
    QTest::newRow("feed") << feed << QByteArray("weld_feed_wire_status");
    QTest::newRow("retract") << retract << QByteArray("weld_retract_wire_status");
    QTest::newRow("gas") << gas << QByteArray("weld_gas_status");
}

void ControllerTest::keys()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, status);
    for (bool on : {true, true, false, false}) {
        QCOMPARE(send(command, on), reply(command, ResultCode::Done));
        QCOMPARE(weldStatus(*m_controller, status.constData()), QJsonValue(on));
    }
    QCOMPARE(m_changed, QStringList({weldData, weldData}));
    QCOMPARE(m_log.size(), 4);
}

void ControllerTest::keysTakeBoolsOnly_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QJsonValue>("payload");
    for (const QString& command : {feed, retract, gas, redLight, virtualWelding}) {
        const auto row = [&](const char* name, const QJsonValue& payload) {
            QTest::addRow("%s %s", qPrintable(command), name) << command << payload;
        };
        row("null", {});
        row("number", 1);
        row("text", QStringLiteral("true"));
        row("array", QJsonArray{true});
        row("object", QJsonObject{{command, true}});
    }
}

void ControllerTest::keysTakeBoolsOnly()
{
    QFETCH(QString, command);
    QFETCH(QJsonValue, payload);
    const QJsonValue before = m_controller->serviceData(weldData);
    QCOMPARE(send(command, payload), reply(command, ResultCode::WrongType));
    QCOMPARE(m_controller->serviceData(weldData), before);
    QVERIFY(m_log.value(0).contains(QLatin1String("true or false")));
}

void ControllerTest::wireRunsOneWay_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("feed first") << feed << retract;
    QTest::newRow("retract first") << retract << feed;
}

void ControllerTest::wireRunsOneWay()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QCOMPARE(send(first, true), reply(first, ResultCode::Done));
    QCOMPARE(send(second, true), reply(second, ResultCode::Conflict));
    QCOMPARE(send(second, false), reply(second, ResultCode::Done)); // the release of that key
    QCOMPARE(send(first, false), reply(first, ResultCode::Done));
    QCOMPARE(send(second, true), reply(second, ResultCode::Done));
}

void ControllerTest::gasPurges()
{
    QJsonObject record = stored();
    record.insert(QStringLiteral("manual_gas_time"), 1000);
    send(setSetting, record);
    m_changed.clear();
    QElapsedTimer clock;
    clock.start();
    send(gas, true);
    QCOMPARE(weldStatus(*m_controller, "weld_gas_status"), QJsonValue(true));
    QTRY_COMPARE(weldStatus(*m_controller, "weld_gas_status"), QJsonValue(false));
    QVERIFY(clock.elapsed() >= 1000);
    QTRY_COMPARE(m_changed, QStringList({weldData, weldData}));
}

void ControllerTest::toggledStatesAreStored()
{
    send(virtualWelding, true);
    send(redLight, true);
    send(feed, true);
    reopen();
    QCOMPARE(weldStatus(*m_controller, "virtual_welding_status"), QJsonValue(true));
    QCOMPARE(weldStatus(*m_controller, "weld_redlight_status"), QJsonValue(true));
    QCOMPARE(weldStatus(*m_controller, "weld_feed_wire_status"), QJsonValue(false));
}

void ControllerTest::wireStopsWithTheConnection()
{
    send(feed, true);
    m_controller->setConnected(false);
    m_controller->setConnected(true);
    QCOMPARE(weldStatus(*m_controller, "weld_feed_wire_status"), QJsonValue(false));
}

void ControllerTest::unknownCommand()
{
    const QString name = QStringLiteral("set_weld_everything");
    QCOMPARE(send(name, true), reply(name, ResultCode::UnknownCommand));
    QCOMPARE(m_controller->textCommand(plugin, name, QStringLiteral("TRUE")),
             reply(name, ResultCode::UnknownCommand));
    QVERIFY(m_log.value(0).contains(name));
}

void ControllerTest::otherPlugin()
{
    const QString name = QStringLiteral("qelArcWelding");
    QCOMPARE(m_controller->command(name, {{redLight, true}}), reply(redLight, 1, name));
    QCOMPARE(weldStatus(*m_controller, "weld_redlight_status"), QJsonValue(false));
    QVERIFY(m_log.value(0).contains(name));
}

void ControllerTest::severalCommands()
{
    QJsonObject record = stored();
    record.insert(QStringLiteral("laser_power"), 1);
    const QJsonArray answered = m_controller->command(
        plugin, {{feed, true}, {retract, true}, {setSetting, record}, {redLight, 1}});
    const QJsonObject answers = answered.at(0).toObject().value(plugin).toObject();
    QCOMPARE(answered.size(), 1);
    QCOMPARE(answers.size(), 4);
    QCOMPARE(answers.value(feed), QJsonValue(QJsonObject{{QStringLiteral("return"), 0}}));
    QCOMPARE(answers.value(retract), QJsonValue(QJsonObject{{QStringLiteral("return"), 7}}));
    QCOMPARE(answers.value(redLight), QJsonValue(QJsonObject{{QStringLiteral("return"), 3}}));
    QCOMPARE(answers.value(setSetting), QJsonValue(QJsonObject{{QStringLiteral("return"), 0}}));
    QCOMPARE(stored(), record);
}

void ControllerTest::noCommand()
{
    QCOMPARE(m_controller->command(plugin, {}), QJsonArray{QJsonObject({{plugin, QJsonObject()}})});
    QVERIFY(m_log.isEmpty());
}

/// Nothing of a call whose transaction fails is done, neither in the cell nor at the device.
void ControllerTest::fullDisk()
{
    QJsonArray answered;
    {
        const FullDisk full(1);
        answered = m_controller->command(plugin, {{feed, true}, {redLight, true}});
    }

    const QJsonObject notStored{{QStringLiteral("return"), 9}};
    const QJsonObject answers{{feed, notStored}, {redLight, notStored}};
    QCOMPARE(answered, QJsonArray{QJsonObject({{plugin, answers}})});
    QCOMPARE(weldStatus(*m_controller, "weld_redlight_status"), QJsonValue(false));
    QCOMPARE(weldStatus(*m_controller, "weld_feed_wire_status"), QJsonValue(false));
    QVERIFY(m_changed.isEmpty());
    QVERIFY(m_log.value(0).contains(m_controller->fileName()));
    QCOMPARE(send(redLight, true), reply(redLight, ResultCode::Done));
}

// ---------------------------------------------------------------- connection and power

void ControllerTest::disconnected()
{
    QSignalSpy changed(m_controller.get(), &Controller::connectionChanged);
    m_controller->setConnected(false);
    m_controller->setConnected(false);
    QCOMPARE(changed, QList<QVariantList>{{false}});
    QVERIFY(!m_controller->isConnected());
    QVERIFY(m_controller->serviceData(setting).isUndefined());
    QVERIFY(m_controller->registers().isUndefined());
    QVERIFY(m_controller->registerGroups().isEmpty());
    QVERIFY(m_controller->ports(QStringLiteral("DI")).isEmpty());
    QCOMPARE(send(redLight, true), QJsonArray());
    m_controller->setConnected(true);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(weldStatus(*m_controller, "weld_redlight_status"), QJsonValue(false));
    QCOMPARE(m_controller->ports(QStringLiteral("DI")).size(), CellSize().ports);
}

// At the cabinet neither the connection nor a tester's faults are in the way.
void ControllerTest::workModeAtTheCabinet()
{
    m_controller->setConnected(false);
    m_controller->setFaults([] {
        Faults faults;
        faults.returnCode = 5;
        return faults;
    }());
    QSignalSpy changed(m_controller.get(), &Controller::recordChanged);
    QVERIFY(m_controller->setVirtualWelding(true));
    QVERIFY(m_controller->isVirtualWelding());
    QCOMPARE(changed, QList<QVariantList>{{weldData}});
    QVERIFY(!m_controller->isConnected());
    m_controller->setConnected(true);
    QCOMPARE(weldStatus(*m_controller, "virtual_welding_status"), QJsonValue(true));
}

void ControllerTest::powered()
{
    QSignalSpy changed(m_controller.get(), &Controller::powerChanged);
    m_controller->setPowered(true);
    m_controller->setPowered(true);
    QVERIFY(m_controller->isPowered());
    m_controller->setPowered(false);
    QCOMPARE(changed, QList<QVariantList>({{true}, {false}}));
}

// ---------------------------------------------------------------- faults

void ControllerTest::faultDelay()
{
    Faults faults;
    faults.replyDelay = 60;
    m_controller->setFaults(faults);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(send(redLight, true), reply(redLight, ResultCode::Done));
    QVERIFY(clock.elapsed() >= 60);
    QCOMPARE(m_controller->faults().replyDelay, 60);
}

void ControllerTest::faultEmptyReply()
{
    Faults faults;
    faults.emptyReply = true;
    m_controller->setFaults(faults);
    QCOMPARE(send(redLight, true), QJsonArray());
    QCOMPARE(weldStatus(*m_controller, "weld_redlight_status"), QJsonValue(true));
}

void ControllerTest::faultForeignReply()
{
    Faults faults;
    faults.foreignReply = true;
    m_controller->setFaults(faults);
    const QJsonArray answered = send(redLight, true);
    const QStringList names = answered.at(0).toObject().keys();
    QCOMPARE(names.size(), 1);
    QVERIFY(names.first() != plugin);
    QCOMPARE(answered, reply(redLight, 0, names.first()));
}

void ControllerTest::faultMissingReturn()
{
    Faults faults;
    faults.missingReturn = true;
    m_controller->setFaults(faults);
    const QJsonObject answers{{redLight, QJsonObject()}};
    QCOMPARE(send(redLight, true), QJsonArray{QJsonObject({{plugin, answers}})});
}

void ControllerTest::faultReturnValue_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::newRow("null") << QJsonValue(QJsonValue::Null);
    QTest::newRow("true") << QJsonValue(true);
    QTest::newRow("false") << QJsonValue(false);
    QTest::newRow("text-0") << QJsonValue(QStringLiteral("0"));
    QTest::newRow("text-7") << QJsonValue(QStringLiteral("7"));
    QTest::newRow("text") << QJsonValue(QStringLiteral("done"));
    QTest::newRow("fraction") << QJsonValue(2.5);
    QTest::newRow("negative") << QJsonValue(-1);
    QTest::newRow("huge") << QJsonValue(1e300);
    QTest::newRow("array") << QJsonValue(QJsonArray{7});
    QTest::newRow("object") << QJsonValue(QJsonObject{{QStringLiteral("code"), 7}});
}

void ControllerTest::faultReturnValue()
{
    QFETCH(QJsonValue, value);
    Faults faults;
    faults.returnValue =
        returnValueNames().indexOf(QString::fromLatin1(QTest::currentDataTag())) + 1;
    QVERIFY(faults.returnValue > 0);
    m_controller->setFaults(faults);
    QCOMPARE(send(redLight, true), reply(redLight, value));
    QCOMPARE(weldStatus(*m_controller, "weld_redlight_status"), QJsonValue(true));
}

void ControllerTest::faultElementTypes()
{
    Faults faults;
    faults.elementTypes = true;
    m_controller->setFaults(faults);
    const QJsonArray answered = send(redLight, true);
    QVector<QJsonValue::Type> types;
    for (const QJsonValue& each : answered)
        types << each.type();
    QCOMPARE(types, (QVector<QJsonValue::Type>{QJsonValue::Null, QJsonValue::Bool,
                                               QJsonValue::Double, QJsonValue::String,
                                               QJsonValue::Array, QJsonValue::Object}));
    QCOMPARE(weldStatus(*m_controller, "weld_redlight_status"), QJsonValue(true));
}

void ControllerTest::faultLostCommand_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("isConnected");
    QTest::addColumn<bool>("isCarriedOut");
    QTest::newRow("no reply") << 0 << true << false;
    QTest::newRow("lost before") << 1 << false << false;
    QTest::newRow("lost after") << 2 << false << true;
}

void ControllerTest::faultLostCommand()
{
    QFETCH(int, row);
    QFETCH(bool, isConnected);
    QFETCH(bool, isCarriedOut);
    const QSignalSpy log(m_controller.get(), &Controller::logged);
    bool Faults::*const lost[] = {&Faults::noReply, &Faults::lostBefore, &Faults::lostAfter};
    Faults faults;
    faults.*lost[row] = true;
    m_controller->setFaults(faults);
    QCOMPARE(send(redLight, true), QJsonArray());
    QCOMPARE(m_controller->isConnected(), isConnected);
    m_controller->setConnected(true);
    QCOMPARE(weldStatus(*m_controller, "weld_redlight_status"), QJsonValue(isCarriedOut));
    QCOMPARE(log.size(), 1);
    QCOMPARE(log.at(0).at(0).toString(),
             redLight + (isCarriedOut ? QStringLiteral(" done")
                                      : QStringLiteral(" lost: a tester wants it so")));
}

void ControllerTest::faultReturnCode()
{
    const QJsonObject before = stored();
    QJsonObject record = before;
    record.insert(QStringLiteral("laser_power"), 1);
    Faults faults;
    faults.returnCode = 42;
    m_controller->setFaults(faults);
    QCOMPARE(send(setSetting, record), reply(setSetting, 42));
    QCOMPARE(send(setEnable, QStringLiteral("TRUE")), reply(setEnable, false));
    QCOMPARE(stored(), before);
    QCOMPARE(weldStatus(*m_controller, "weld_enable_status"), QJsonValue(false));
}

void ControllerTest::faultWrongTypes()
{
    Faults faults;
    faults.wrongTypes = true;
    m_controller->setFaults(faults);
    QCOMPARE(stored().value(QLatin1String("laser_power")), QJsonValue(QStringLiteral("3000")));
    QCOMPARE(stored().value(QLatin1String("laser_main_enable")), QJsonValue(0));
    const QString port = QStringLiteral("weld_io_config.laser_enable_port");
    QCOMPARE(m_controller->serviceData(port), QJsonValue(3)); // the length of "DO1"
    QCOMPARE(send(redLight, true), reply(redLight, QStringLiteral("0")));
    QCOMPARE(send(setEnable, QStringLiteral("TRUE")), reply(setEnable, 1));
    m_controller->setFaults({});
    QCOMPARE(stored().value(QLatin1String("laser_power")), QJsonValue(3000));
}

void ControllerTest::faultRegisters()
{
    Faults faults;
    faults.registersNoArray = true;
    m_controller->setFaults(faults);
    QVERIFY(m_controller->registers().isObject());
    QVERIFY(!m_controller->registerGroups().isEmpty());
}

void ControllerTest::faultPortGone()
{
    Faults faults;
    faults.firstPortGone = true;
    m_controller->setFaults(faults);
    QCOMPARE(m_controller->ports(QStringLiteral("DO")).constFirst(), QStringLiteral("DO2"));
    QCOMPARE(send(setEnable, QStringLiteral("TRUE")), reply(setEnable, false));
    QCOMPARE(send(setIo, storedIo()), reply(setIo, ResultCode::NoSuchPort));
    m_controller->setFaults({});
    QCOMPARE(send(setIo, storedIo()), reply(setIo, ResultCode::Done));
    QCOMPARE(send(setEnable, QStringLiteral("TRUE")), reply(setEnable, true));
}

LASERWELD_CORE_TEST_MAIN(ControllerTest)
#include "tst_controller.moc"
