#include "WeldioTest.h"

#include <QStringListModel>

#include <functional>

using namespace WeldioTest;

namespace {

const QString Locked = "1: Current status does not allow saving I/O configuration."_s;
const QString Gap = "2: There is an empty port. Please check and reconfigure!"_s;
const QString Saved = "0: Saved successfully"_s;
const QString NotSaved = "2: Save failed. Please check the parameter configuration."_s;
const QString NoReply = "2: Save failed. No response from controller."_s;
const QString Command = "set_weld_io_config"_s;

QString badRegister(const char* caption, const char* name, const char* expected)
{
    return QStringLiteral("2: Signal %1: register \"%2\" is invalid or has wrong read/write "
                          "permission, expected %3.")
        .arg(text(caption), text(name), text(expected));
}

QString inUse(const char* port)
{
    return QStringLiteral("2: Port %1 is already in use, save failed!").arg(text(port));
}

/// What can be wrong with a mapping. In the order in which it is told.
struct Fault
{
    const char* name;
    QJsonObject values; ///< what the record then holds
    const char* lostRegister;
    QString message;
};

const QVector<Fault>& faults()
{
    static const QVector<Fault> all = {
        {"bad output register",
         {{"process_job_type"_s, 2}, {"process_job_port"_s, "WI1"_s}},
         "WI1",
         badRegister("Process JOB", "WI1", "writable register")},
        {"output used twice",
         {{"red_light_port"_s, "DO1"_s}, {"red_light_enabled"_s, true}},
         nullptr,
         inUse("DO1")},
        {"bad input register",
         {{"power_feedback_type"_s, 2}, {"power_feedback_port"_s, "RN1"_s}},
         "RN1",
         badRegister("Laser power", "RN1", "readable register")},
        {"input used twice",
         {{"light_feedback_port"_s, "DI2"_s},
          {"light_feedback_enabled"_s, true},
          {"laser_alarm_port"_s, "DI2"_s},
          {"laser_alarm_enabled"_s, true}},
         nullptr,
         inUse("DI2")},
        {"gap in the outputs", {{"power_enabled"_s, true}}, nullptr, Gap},
        {"gap in the inputs", {{"external_alarm_enabled"_s, true}}, nullptr, Gap},
    };
    return all;
}

/// The faults of a mapping, with the first of which it is refused.
QStringList refusal(PageOnCell& t, const QVector<Fault>& present)
{
    QJsonObject record = plainRecord();
    QStringList lost;
    for (const Fault& fault : present) {
        record = with(record, fault.values);
        if (fault.lostRegister)
            lost << text(fault.lostRegister);
    }
    t.host.service.insert("weld_io_config"_s, record);
    t.show();
    t.host.registerValue = registersWithout(lost);
    t.clickSave();
    return t.host.messageTexts();
}

/// What one row of a pair holds.
struct Use
{
    const char* key;
    int type;
    const char* port;
    int bias;
    bool isOn;
};

QJsonObject withUses(const QVector<Use>& uses)
{
    QJsonObject record = plainRecord();
    for (const Use& use : uses) {
        const Signal& signal = signalOf(text(use.key));
        record.insert(text(use.key) + "_type"_s, use.type);
        record.insert(text(use.key) + "_port"_s, text(use.port));
        record.insert(text(use.key) + "_bias"_s, use.bias);
        if (signal.enabledKey)
            record.insert(text(signal.enabledKey), use.isOn);
    }
    return record;
}

/// A reply with one answer of the plugin.
QJsonObject element(const QString& plugin, const QString& command, const QJsonValue& answer)
{
    return {{plugin, QJsonObject{{command, answer}}}};
}

QJsonObject answerOf(const QJsonValue& result)
{
    return element("qelLaserWelding"_s, Command, QJsonObject{{"return"_s, result}});
}

} // namespace

Q_DECLARE_METATYPE(QVector<Use>)

class TestWeldioChecks : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    // Who may save.
    void lockedPageSavesNothing_data();
    void lockedPageSavesNothing();

    // The three checks.
    void oneFault_data();
    void oneFault();
    void twoFaults_data();
    void twoFaults();
    void allFaults();
    void refusalKeepsTheForm();
    void faultsAreToldInChinese_data();
    void faultsAreToldInChinese();

    void registerOfASwitchedOffRowIsChecked();
    void registerIsChecked_data();
    void registerIsChecked();
    void registerCheckAsksForTheRegistersAlone();
    void registerIsTrimmed_data();
    void registerIsTrimmed();
    void registerMessageTakesTextsAsTheyAre();

    void duplicates_data();
    void duplicates();
    void gaps_data();
    void gaps();

    // The reply.
    void goodSaveReloads();
    void replies_data();
    void replies();
    void repliesAreLogged_data();
    void repliesAreLogged();
    void refusedSaveKeepsTheForm();
    void repliesInChinese_data();
    void repliesInChinese();
};

void TestWeldioChecks::cleanup()
{
    RegisterLengths::read(QJsonArray());
    TestCase::cleanup();
}

void TestWeldioChecks::lockedPageSavesNothing_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("isMainOn");
    QTest::addColumn<bool>("isSettingGone");
    QTest::addColumn<QString>("message");
    QTest::newRow("free") << 3 << false << false << Saved;
    QTest::newRow("free, no setting page") << 3 << true << true << Saved;
    QTest::newRow("level too low") << 2 << false << false << Locked;
    QTest::newRow("level too low, no setting page") << 2 << false << true << Locked;
    QTest::newRow("main switch on") << 3 << true << false << Locked;
    QTest::newRow("both") << 2 << true << false << Locked;
}

// A disabled button cannot be clicked, but what it is connected to refuses by itself.
void TestWeldioChecks::lockedPageSavesNothing()
{
    QFETCH(int, level);
    QFETCH(bool, isMainOn);
    QFETCH(bool, isSettingGone);
    QFETCH(QString, message);
    PageOnCell t;
    t.host.level = level;
    t.setMainSwitch(isMainOn);
    if (isSettingGone)
        t.setting.reset();
    t.show();
    Q_EMIT child<QPushButton>(t.page.get(), "pushButton_Save")->clicked();
    QCOMPARE(t.host.messageTexts(), QStringList{message});
    QCOMPARE(t.host.commands.isEmpty(), message == Locked);
    if (message == Locked)
        QCOMPARE(t.asked(), QStringList{"ThrowLog qelLaserWelding"_s});
}

void TestWeldioChecks::oneFault_data()
{
    QTest::addColumn<int>("fault");
    for (int fault = 0; fault < faults().size(); ++fault)
        QTest::newRow(faults().at(fault).name) << fault;
}

void TestWeldioChecks::oneFault()
{
    QFETCH(int, fault);
    PageOnCell t;
    QCOMPARE(refusal(t, {faults().at(fault)}), QStringList{faults().at(fault).message});
    QVERIFY(t.host.commands.isEmpty());
}

void TestWeldioChecks::twoFaults_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    for (int first = 0; first < faults().size(); ++first) {
        for (int second = first + 1; second < faults().size(); ++second)
            QTest::addRow("%s, %s", faults().at(first).name, faults().at(second).name)
                << first << second;
    }
}

void TestWeldioChecks::twoFaults()
{
    QFETCH(int, first);
    QFETCH(int, second);
    PageOnCell t;
    QCOMPARE(refusal(t, {faults().at(first), faults().at(second)}),
             QStringList{faults().at(first).message});
    QVERIFY(t.host.commands.isEmpty());
}

void TestWeldioChecks::allFaults()
{
    PageOnCell t;
    QCOMPARE(refusal(t, faults()), QStringList{faults().first().message});
}

void TestWeldioChecks::refusalKeepsTheForm()
{
    PageOnCell t;
    refusal(t, faults());
    t.assign("wire_speed"_s, "AO2"_s);
    const QJsonObject before = t.form();
    t.host.forgetCalls();
    t.clickSave();
    QCOMPARE(t.form(), before);
    QCOMPARE(t.host.count("getQelServiceData"_s), 0);
    QCOMPARE(t.host.count("getUserOperateLevel"_s), 0);
}

void TestWeldioChecks::faultsAreToldInChinese_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<QString>("message");
    const char* const bad = "Signal %1: register \"%2\" is invalid or has wrong read/write "
                            "permission, expected %3.";
    const QString used = chinese("Port %1 is already in use, save failed!");
    const QString gap = chinese("There is an empty port. Please check and reconfigure!");
    QTest::newRow("output register")
        << 0 << chinese(bad).arg(chinese("Process JOB"), "WI1"_s, chinese("writable register"));
    QTest::newRow("output twice") << 1 << used.arg("DO1"_s);
    QTest::newRow("input register")
        << 2 << chinese(bad).arg(chinese("Laser power"), "RN1"_s, chinese("readable register"));
    QTest::newRow("input twice") << 3 << used.arg("DI2"_s);
    QTest::newRow("gap") << 4 << gap;
    QTest::newRow("input gap") << 5 << gap;
}

void TestWeldioChecks::faultsAreToldInChinese()
{
    QFETCH(int, fault);
    QFETCH(QString, message);
    const ChineseTranslator translator;
    PageOnCell t;
    QCOMPARE(refusal(t, {faults().at(fault)}), QStringList{"2: "_s + message});
}

void TestWeldioChecks::registerOfASwitchedOffRowIsChecked()
{
    for (const bool isOn : {false, true}) {
        PageOnCell t(withUses({{"light_feedback", 2, "RB1", 0, isOn}}));
        t.show();
        t.host.registerValue = registersWithout({"RB1"_s});
        t.clickSave();
        QCOMPARE(t.host.messageTexts(),
                 QStringList{badRegister("Laser feedback", "RB1", "readable register")});
    }
}

void TestWeldioChecks::registerIsChecked_data()
{
    QTest::addColumn<QString>("key");
    for (const Signal& signal : Signals)
        QTest::newRow(signal.key) << text(signal.key);
}

// A register that changed its direction since the page was shown.
void TestWeldioChecks::registerIsChecked()
{
    QFETCH(QString, key);
    const Signal& signal = signalOf(key);
    const QString name = registerOf(signal.typeCode);
    PageOnCell t(with(plainRecord(), {{key + "_type"_s, 2}, {key + "_port"_s, name}}));
    t.show();
    QJsonArray registers = registersWithout({name});
    const char* otherWay = isOutput(signal) ? "r" : "w";
    const char* type = signal.typeCode % 3 == 1 ? "bool" : "int";
    registers.append(registerRecord(name.toLatin1().constData(), type, otherWay, 4));
    t.host.registerValue = registers;
    t.clickSave();
    QCOMPARE(
        t.host.messageTexts(),
        QStringList{badRegister(signal.caption, name.toLatin1().constData(),
                                isOutput(signal) ? "writable register" : "readable register")});
}

// A row at a port is not asked for, nor is one at REG without a name.
void TestWeldioChecks::registerCheckAsksForTheRegistersAlone()
{
    PageOnCell t(withUses({{"power", 2, "WN1", 0, false},
                           {"swing_job", 2, "WI1", 0, false},
                           {"frequency", 2, "", 0, false},
                           {"laser_alarm", 2, "RB1", 0, false}}));
    t.show();
    t.host.replies.insert(Command, QJsonArray());
    t.clickSave();
    QCOMPARE(t.asked(),
             (QStringList{"getRegisterValue"_s, "getRegisterValue"_s, "getRegisterValue"_s,
                          "getRegisterValue"_s, "commandCustomData qelLaserWelding"_s,
                          "ThrowLog qelLaserWelding"_s}));
}

void TestWeldioChecks::registerIsTrimmed_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("message");
    QTest::newRow("blanks around") << " WN1 " << Saved;
    QTest::newRow("blanks alone") << "  " << Saved;
    QTest::newRow("other case") << " wn1 " << badRegister("Power", "wn1", "writable register");
    QTest::newRow("a part") << "WN" << badRegister("Power", "WN", "writable register");
}

// Blanks fill a port: the check for gaps does not trim.
void TestWeldioChecks::registerIsTrimmed()
{
    QFETCH(QString, shown);
    QFETCH(QString, message);
    PageOnCell t(withUses({{"power", 2, "WN1", 0, true}}));
    t.show();
    QStringListModel texts(QStringList{shown});
    t.port("power"_s)->setModel(&texts);
    t.clickSave();
    QCOMPARE(t.host.messageTexts(), QStringList{message});
    if (message == Saved) {
        const QJsonObject sent = t.host.commands.first().data.value(Command).toObject();
        QCOMPARE(sent.value("power_port"_s), QJsonValue(shown));
    }
}

void TestWeldioChecks::registerMessageTakesTextsAsTheyAre()
{
    PageOnCell t(withUses({{"power", 2, "%1 %3", 0, true}}));
    t.host.registerValue = QJsonArray{registerRecord("%1 %3", "int", "w", 1)};
    t.show();
    t.host.registerValue = cellRegisters();
    t.label("power"_s)->setText("%2"_s);
    t.clickSave();
    QCOMPARE(t.host.messageTexts(), QStringList{badRegister("%2", "%1 %3", "writable register")});
}

void TestWeldioChecks::duplicates_data()
{
    QTest::addColumn<QVector<Use>>("uses");
    QTest::addColumn<QString>("message");
    QTest::newRow("both off") << QVector<Use>{{"red_light", 0, "DO10", 0, false},
                                              {"wire_feed", 0, "DO10", 0, false}}
                              << Saved;
    QTest::newRow("one on") << QVector<Use>{{"red_light", 0, "DO10", 0, true},
                                            {"wire_feed", 0, "DO10", 0, false}}
                            << Saved;
    QTest::newRow("both on") << QVector<Use>{{"red_light", 0, "DO10", 0, true},
                                             {"wire_feed", 0, "DO10", 0, true}}
                             << inUse("DO10");
    QTest::newRow("with one that always counts")
        << QVector<Use>{{"wire_feed", 0, "DO1", 0, true}} << inUse("DO1");
    QTest::newRow("off, with one that always counts")
        << QVector<Use>{{"wire_feed", 0, "DO1", 0, false}} << Saved;
    QTest::newRow("two that always count")
        << QVector<Use>{{"gas_protect", 0, "DO1", 0, true}} << inUse("DO1");
    QTest::newRow("place and place")
        << QVector<Use>{{"red_light", 2, "WB1", 1, true}, {"wire_feed", 2, "WB1", 2, true}}
        << Saved;
    QTest::newRow("the same place")
        << QVector<Use>{{"red_light", 2, "WB1", 1, true}, {"wire_feed", 2, "WB1", 1, true}}
        << inUse("WB1");
    QTest::newRow("the same register of other signals")
        << QVector<Use>{{"power", 2, "WI1", 3, true}, {"swing_job", 2, "WI1", 3, true}}
        << inUse("WI1");
    QTest::newRow("the same port of other kinds")
        << QVector<Use>{{"power", 1, "GO1", 0, true}, {"swing_job", 0, "GO1", 0, true}} << Saved;
    QTest::newRow("the same port of the second kind")
        << QVector<Use>{{"power", 1, "GO1", 0, true}, {"wire_speed", 1, "GO1", 0, true}}
        << inUse("GO1");
    QTest::newRow("in the inputs")
        << QVector<Use>{{"laser_alarm", 0, "DI1", 0, true}, {"external_alarm", 0, "DI1", 0, true}}
        << inUse("DI1");
    QTest::newRow("places in the inputs")
        << QVector<Use>{{"laser_alarm", 2, "RB1", 0, true}, {"external_alarm", 2, "RB1", 3, true}}
        << Saved;
    QTest::newRow("two without a port")
        << QVector<Use>{{"red_light", 0, "", 0, true}, {"wire_feed", 0, "", 0, true}} << Gap;
    QTest::newRow("two that always count without a port")
        << QVector<Use>{{"laser_enable", 0, "", 0, true}, {"gas_protect", 0, "", 0, true}} << Gap;
    QTest::newRow("two pairs, the later ends first")
        << QVector<Use>{{"red_light", 0, "DO10", 0, true},
                        {"manual_wire_feed", 0, "DO1", 0, true},
                        {"manual_retract", 0, "DO10", 0, true}}
        << inUse("DO1");
}

void TestWeldioChecks::duplicates()
{
    QFETCH(QVector<Use>, uses);
    QFETCH(QString, message);
    PageOnCell t(withUses(uses));
    t.show();
    t.clickSave();
    QCOMPARE(t.host.messageTexts(), QStringList{message});
    QCOMPARE(t.host.commands.size(), message == Saved ? 1 : 0);
}

void TestWeldioChecks::gaps_data()
{
    QTest::addColumn<QString>("key");
    for (const Signal& signal : Signals)
        QTest::newRow(signal.key) << text(signal.key);
}

// A row that is switched on needs a port, and one without a switch always does.
void TestWeldioChecks::gaps()
{
    QFETCH(QString, key);
    const Signal& signal = signalOf(key);
    for (const bool isOn : {false, true}) {
        PageOnCell t(withUses({{signal.key, 0, "", 0, isOn}}));
        t.show();
        t.clickSave();
        const bool isGap = isOn || signal.portRequired;
        QCOMPARE(t.host.messageTexts(), QStringList{isGap ? Gap : Saved});
        if (!isGap) {
            const QJsonObject sent = t.host.commands.first().data.value(Command).toObject();
            QCOMPARE(sent.value(key + "_port"_s), QJsonValue(QString()));
        }
    }
}

void TestWeldioChecks::goodSaveReloads()
{
    PageOnCell t;
    t.show();
    t.assign("power"_s, "AO2"_s);
    t.press("power"_s);
    const QJsonObject expected =
        with(plainRecord(), {{"power_port"_s, "AO2"_s}, {"power_enabled"_s, true}});
    const QJsonObject held = with(expected, {{"power_enabled"_s, false}});
    t.host.onCommand = [&](const ScriptedHost::Command&) {
        t.host.service.insert("weld_io_config"_s, held);
    };
    t.clickSave();
    QCOMPARE(t.host.commands.size(), 1);
    const ScriptedHost::Command& command = t.host.commands.first();
    QCOMPARE(command.sender, t.page.get());
    QCOMPARE(command.plugin, "qelLaserWelding"_s);
    QVERIFY(!command.isText);
    QCOMPARE(command.data, (QJsonObject{{Command, expected}}));
    // What the controller holds, and the rows freed by it.
    QCOMPARE(t.form(), held);
    QVERIFY(!PageOnCell::isFree(t.port("power"_s)));
    QCOMPARE(t.host.messageTexts(), QStringList{Saved});
    const QStringList asked = t.asked();
    QCOMPARE(asked.mid(0, 3),
             (QStringList{"commandCustomData qelLaserWelding"_s, "ThrowLog qelLaserWelding"_s,
                          "getQelServiceData weld_io_config"_s}));
    QCOMPARE(asked.last(), "getUserOperateLevel"_s);
    QCOMPARE(asked.size(), 4 + int(std::size(Signals)));
}

void TestWeldioChecks::replies_data()
{
    QTest::addColumn<QJsonArray>("reply");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QJsonValue& result, const QString& message) {
        QTest::newRow(name) << QJsonArray{answerOf(result)} << message;
    };
    row("0", 0, Saved);
    row("1", 1, NotSaved);
    row("-1", -1, NotSaved);
    row("false", false, Saved);
    row("true", true, NotSaved);
    row("text 0", "0"_s, Saved);
    row("text 3", "3"_s, NotSaved);
    row("text 0x3", "0x3"_s, Saved);
    row("other text", "failed"_s, Saved);
    row("fraction below 1", 0.9, Saved);
    row("fraction", -1.5, NotSaved);
    row("huge", 1e300, NotSaved);
    row("null", QJsonValue(), Saved);
    row("array", QJsonArray{1}, Saved);
    row("object", QJsonObject{{"return"_s, 1}}, Saved);

    const QJsonObject other = element("other"_s, Command, QJsonObject{{"return"_s, 1}});
    const QJsonObject otherCommand =
        element("qelLaserWelding"_s, "set_weld_enable"_s, QJsonObject{{"return"_s, 1}});
    const QJsonObject noReturn = element("qelLaserWelding"_s, Command, QJsonObject());
    const QJsonObject noAnswer = element("qelLaserWelding"_s, Command, 0);
    const QJsonObject noCommands{{"qelLaserWelding"_s, 0}};
    QTest::newRow("empty") << QJsonArray() << NoReply;
    QTest::newRow("another plugin's") << QJsonArray{other} << NoReply;
    QTest::newRow("another command's") << QJsonArray{otherCommand} << NoReply;
    QTest::newRow("no return") << QJsonArray{noReturn} << NoReply;
    QTest::newRow("no answer") << QJsonArray{noAnswer} << NoReply;
    QTest::newRow("no commands") << QJsonArray{noCommands} << NoReply;
    QTest::newRow("no objects") << QJsonArray{0, QJsonValue(), "0"_s, QJsonArray{answerOf(0)}}
                                << NoReply;
    QTest::newRow("behind others")
        << QJsonArray{0, other, otherCommand, noReturn, noAnswer, noCommands, answerOf(0)} << Saved;
    QTest::newRow("the first counts") << QJsonArray{answerOf(2), answerOf(0)} << NotSaved;
    QTest::newRow("the first counts, good") << QJsonArray{answerOf(0), answerOf(2)} << Saved;
}

void TestWeldioChecks::replies()
{
    QFETCH(QJsonArray, reply);
    QFETCH(QString, message);
    PageOnCell t;
    QCOMPARE(t.page->checkSaveResult(reply, Command), message == Saved);
    QCOMPARE(t.host.messageTexts(), QStringList{message});
    QCOMPARE(t.asked(), QStringList{"ThrowLog qelLaserWelding"_s});
    QCOMPARE(LogFolder::texts().isEmpty(), message == Saved);
}

void TestWeldioChecks::repliesAreLogged_data()
{
    QTest::addColumn<QJsonArray>("reply");
    QTest::addColumn<QString>("line");
    const QString origin = "WeldioPage::checkSaveResult failed. "_s; // one item
    QTest::newRow("refused") << QJsonArray{answerOf(7)}
                             << origin + " set_weld_io_config  Result: 7"_s;
    QTest::newRow("empty") << QJsonArray() << origin + "empty response for  set_weld_io_config"_s;
    QTest::newRow("not found") << QJsonArray{0}
                               << origin + "not found  set_weld_io_config  Result"_s;
}

void TestWeldioChecks::repliesAreLogged()
{
    QFETCH(QJsonArray, reply);
    PageOnCell t;
    t.page->checkSaveResult(reply, Command);
    QTEST(LogFolder::texts().join(QLatin1Char('|')), "line");
    QVERIFY(LogFolder::lines().constFirst().contains("[E|"_s));
}

void TestWeldioChecks::refusedSaveKeepsTheForm()
{
    for (const QJsonArray& reply : {QJsonArray(), QJsonArray{answerOf(1)}, QJsonArray{0}}) {
        PageOnCell t;
        t.show();
        t.assign("power"_s, "AO2"_s);
        t.host.replies.insert(Command, reply);
        const QJsonObject before = t.form();
        t.clickSave();
        QCOMPARE(t.form(), before);
        QCOMPARE(t.asked(), (QStringList{"commandCustomData qelLaserWelding"_s,
                                         "ThrowLog qelLaserWelding"_s}));
    }
}

void TestWeldioChecks::repliesInChinese_data()
{
    QTest::addColumn<QJsonArray>("reply");
    QTest::addColumn<QString>("message");
    QTest::newRow("good") << QJsonArray{answerOf(0)} << chinese("Saved successfully");
    QTest::newRow("refused") << QJsonArray{answerOf(1)}
                             << chinese("Save failed. Please check the parameter configuration.");
    QTest::newRow("empty") << QJsonArray() << chinese("Save failed. No response from controller.");
    QTest::newRow("not found") << QJsonArray{0}
                               << chinese("Save failed. No response from controller.");
}

void TestWeldioChecks::repliesInChinese()
{
    QFETCH(QJsonArray, reply);
    const ChineseTranslator translator;
    PageOnCell t;
    t.page->checkSaveResult(reply, Command);
    QTEST(t.host.messages.first().text, "message");
}

LASERWELD_TEST_MAIN(TestWeldioChecks)
#include "tst_weldiochecks.moc"
