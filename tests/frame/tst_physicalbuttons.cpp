#include "PluginOnHost.h"
#include "TestCase.h"

#include <QJsonDocument>

#include <utility>

namespace {

enum Key { WorkMode, Wiring, RedLight, Gas, Retract };

// Of a key in the lists that the host got.
const qelplugin::PhysicalButton& button(const ScriptedHost& host, Key key)
{
    return key < Gas ? host.firstKeys.at(key) : host.secondKeys.at(key - Gas);
}

QString commandOf(Key key)
{
    const char* const commands[] = {"set_virtual_welding", "set_weld_feed_wire",
                                    "set_weld_red_light", "set_weld_manual_gas",
                                    "set_weld_retract_wire"};
    return QLatin1String(commands[key]);
}

const QString VirtualKey = QStringLiteral("laser_weld_data.virtual_welding_status");
const QString RedLightKey = QStringLiteral("laser_weld_data.weld_redlight_status");

const QString Refusal = QStringLiteral("1: Insufficient user permissions!");
const QString ToReal = QStringLiteral("0: Switch to RealWdlding");
const QString ToVirtual = QStringLiteral("0: Switch to VirtualWelding");
const QString NotSwitched = QStringLiteral("2: Switch work mode failed");

// Takes the lines of qDebug(), each behind the count of lines that the log has got since.
class DebugLines
{
public:
    DebugLines()
    {
        lines().clear();
        linesBefore = LogFolder::lines().size();
        before = qInstallMessageHandler(take);
    }
    ~DebugLines() { qInstallMessageHandler(before); }
    DebugLines(const DebugLines&) = delete;
    DebugLines& operator=(const DebugLines&) = delete;

    static QStringList take() { return std::exchange(lines(), {}); }

private:
    static void take(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (type == QtDebugMsg)
            lines()
                << QStringLiteral("%1: %2").arg(LogFolder::lines().size() - linesBefore).arg(text);
        else
            before(type, context, text);
    }

    static QStringList& lines()
    {
        static QStringList all;
        return all;
    }

    static inline QtMessageHandler before = nullptr;
    static inline int linesBefore = 0;
};

// The plugin with its keys in place and nothing noted yet. Only the work mode needs the indicator,
// and with it all of init().
class KeysOnHost : public PluginOnHost
{
public:
    explicit KeysOnHost(Key key)
    {
        if (key == WorkMode)
            asHostSees().init();
        else
            plugin.initPhysicalButton();
        host.forgetCalls();
        linesBefore = LogFolder::texts().size();
    }

    QStringList newLogTexts() const { return LogFolder::texts().mid(linesBefore); }
    void turn(Key key, bool pressed) { button(host, key).callback(pressed); }

    int linesBefore = 0;
};

QJsonArray parsed(const QString& reply)
{
    return QJsonDocument::fromJson(reply.toUtf8()).array();
}

// The keys whose reply is checked. Lines of qDebug() stand behind the count of log lines by then.
struct CheckedKey
{
    Key key;
    bool pressed;
    const char* texts; ///< start of both messages
    const char* log;
    const char* debugAlways;
    const char* debugNone; ///< more of them when nothing answers
};

constexpr CheckedKey CheckedKeys[] = {
    {Wiring, true, "Feed wire", "Phybtn:: feed_wire failed. ", "",
     "1: is_pressed =  true|1: Welding"},
    {Wiring, false, "Feed wire", "Phybtn:: feed_wire failed. ", "0: is_pressed =  false",
     "|1: Welding"},
    {Retract, true, "Retract wire", "Phybtn:: retract_wire failed. ", "", "1: Retract Wire"},
    {Retract, false, "Retract wire", "Phybtn:: retract_wire failed. ", "", "1: Retract Wire"},
    {Gas, true, "Open gas", "Phybtn:: open gas failed. ", "", "1: ProtectGas"},
};

// Replies with the command as "%1"; what is said of them with the start of the messages and of the
// log line. Without a message nothing answers.
struct CheckedReply
{
    const char* reply;
    const char* message;
    const char* log;
};

constexpr char Success[] = "0: %1 successfully";
constexpr char Failure[] = "2: %1 failed. Please check logs.";
constexpr char None[] = "not found  %1  Result";

constexpr CheckedReply CheckedReplies[] = {
    {R"([{"qelLaserWelding":{"%1":{"return":0}}}])", Success, nullptr},
    {R"([{"qelLaserWelding":{"%1":{"return":"5"}}}])", Success, nullptr},
    {R"([{"qelLaserWelding":{"%1":{"return":true}}}])", Success, nullptr},
    {R"([{"other":1},{"qelLaserWelding":{"%1":{"return":0}}}])", Success, nullptr},
    {R"([{"qelLaserWelding":{"%1":{"return":5}}}])", Failure, " %1  Result: 5"},
    {R"([{"qelLaserWelding":{"%1":{"return":-2}}}])", Failure, " %1  Result: -2"},
    {"[]", nullptr, None},
    {R"([{"other":{"%1":{"return":0}}}])", nullptr, None},
    {R"([{"qelLaserWelding":{"%1":{}}}])", nullptr, None},
    {R"([{"qelLaserWelding":{"set_it":{"return":0}}},7])", nullptr, None},
};

QString filledIn(const char* text, const QString& word)
{
    return QString::fromLatin1(text).replace(QLatin1String("%1"), word);
}

QString titleOf(const QString& key, const QString& what)
{
    return key + QStringLiteral(", ") + what;
}

} // namespace

Q_DECLARE_METATYPE(Key)

class PhysicalButtonsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void lists();
    void records_data();
    void records();
    void hostCalls_data();
    void hostCalls();
    void refusals_data();
    void refusals();
    void payloads_data();
    void payloads();
    void checkedReplies_data();
    void checkedReplies();
    void workModeReplies_data();
    void workModeReplies();
    void redLightIgnoresTheReply();
    void callbacksKeepNoState();
};

void PhysicalButtonsTest::lists()
{
    PluginOnHost on;
    on.host.forgetCalls();
    on.plugin.initPhysicalButton();

    QCOMPARE(LogFolder::texts(),
             QStringList{QStringLiteral("qelLaserWelding::initPhysicalButton()")});
    QCOMPARE(on.host.callNames(), (QStringList{QStringLiteral("CreatePhyButtonList"),
                                               QStringLiteral("ChangePhyButtonStatus")}));
    const QString name = QStringLiteral("qelLaserWelding");
    QCOMPARE(on.host.calls.at(0).arguments, (QJsonArray{name, name, QJsonArray{QString()}}));
    QCOMPARE(on.host.calls.at(1).arguments, (QJsonArray{name, name, true}));
    QCOMPARE(on.host.firstKeys.size(), 3);
    QCOMPARE(on.host.secondKeys.size(), 2);
}

void PhysicalButtonsTest::records_data()
{
    QTest::addColumn<Key>("key");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("picture");

    QTest::newRow("mode") << WorkMode << QStringLiteral("Work mode")
                          << QStringLiteral("switchMode");
    QTest::newRow("feed") << Wiring << QStringLiteral("Wiring") << QStringLiteral("feedWire");
    QTest::newRow("light") << RedLight << QStringLiteral("Red Light") << QStringLiteral("redLight");
    QTest::newRow("gas") << Gas << QStringLiteral("ProtectGas") << QStringLiteral("gas");
    QTest::newRow("retract") << Retract << QStringLiteral("Retract Wire")
                             << QStringLiteral("pullWire");
}

void PhysicalButtonsTest::records()
{
    QFETCH(Key, key);
    QFETCH(QString, label);
    QFETCH(QString, picture);
    PluginOnHost on;
    on.plugin.initPhysicalButton();

    const qelplugin::PhysicalButton& record = button(on.host, key);
    QCOMPARE(record.label, label);
    QCOMPARE(record.pressedIcon, QStringLiteral(":/png/phybutton/%1Pressed.png").arg(picture));
    QCOMPARE(record.unpressedIcon, QStringLiteral(":/png/phybutton/%1Unpressed.png").arg(picture));
    QVERIFY(!QPixmap(record.pressedIcon).isNull());
    QVERIFY(!QPixmap(record.unpressedIcon).isNull());
}

// The order of the host's calls at level 3, when all goes well.
void PhysicalButtonsTest::hostCalls_data()
{
    QTest::addColumn<Key>("key");
    QTest::addColumn<bool>("pressed");
    QTest::addColumn<QString>("calls");

    const auto row = [](const char* title, Key key, bool pressed, const char* calls) {
        QTest::addRow("%s %s", title, pressed ? "press" : "release")
            << key << pressed << QString::fromLatin1(calls);
    };
    row("mode", WorkMode, true, "getQelServiceData getUserOperateLevel commandCustomData ThrowLog");
    row("mode", WorkMode, false, "getQelServiceData");
    row("feed", Wiring, true, "getUserOperateLevel commandCustomData ThrowLog");
    row("feed", Wiring, false, "getUserOperateLevel commandCustomData ThrowLog");
    row("light", RedLight, true, "getUserOperateLevel getQelServiceData commandCustomData");
    row("light", RedLight, false, "");
    row("gas", Gas, true, "getUserOperateLevel commandCustomData ThrowLog");
    row("gas", Gas, false, "");
    row("retract", Retract, true, "getUserOperateLevel commandCustomData ThrowLog");
    row("retract", Retract, false, "getUserOperateLevel commandCustomData ThrowLog");
}

void PhysicalButtonsTest::hostCalls()
{
    QFETCH(Key, key);
    QFETCH(bool, pressed);
    QFETCH(QString, calls);
    KeysOnHost on(key);
    const DebugLines debug;
    on.turn(key, pressed);

    QCOMPARE(on.host.callNames().join(QLatin1Char(' ')), calls);
    QCOMPARE(on.newLogTexts(), QStringList());
}

void PhysicalButtonsTest::refusals_data()
{
    QTest::addColumn<Key>("key");
    QTest::addColumn<bool>("pressed");
    QTest::addColumn<QString>("calls");

    const auto row = [](const char* title, Key key, bool pressed, const char* calls) {
        QTest::addRow("%s %s", title, pressed ? "press" : "release")
            << key << pressed << QString::fromLatin1(calls);
    };
    row("mode", WorkMode, true, "getQelServiceData getUserOperateLevel ThrowLog");
    row("mode", WorkMode, false, "getQelServiceData");
    row("feed", Wiring, true, "getUserOperateLevel ThrowLog");
    row("feed", Wiring, false, "getUserOperateLevel ThrowLog");
    row("light", RedLight, true, "getUserOperateLevel ThrowLog");
    row("light", RedLight, false, "");
    row("gas", Gas, true, "getUserOperateLevel ThrowLog");
    row("gas", Gas, false, "");
    row("retract", Retract, true, "getUserOperateLevel ThrowLog");
    row("retract", Retract, false, "getUserOperateLevel ThrowLog");
}

void PhysicalButtonsTest::refusals()
{
    QFETCH(Key, key);
    QFETCH(bool, pressed);
    QFETCH(QString, calls);
    KeysOnHost on(key);
    const DebugLines debug;
    on.host.level = 2;
    on.turn(key, pressed);

    QCOMPARE(on.host.callNames().join(QLatin1Char(' ')), calls);
    const bool isRefused = calls.endsWith(QLatin1String("ThrowLog"));
    QCOMPARE(on.host.messageTexts(), isRefused ? QStringList{Refusal} : QStringList());
    QVERIFY(on.host.commands.isEmpty());
    QCOMPARE(on.newLogTexts(), QStringList());
    QCOMPARE(DebugLines::take(), QStringList());
    if (key == WorkMode)
        QCOMPARE(on.picture(), PluginOnHost::pictureOf(false));
}

void PhysicalButtonsTest::payloads_data()
{
    QTest::addColumn<Key>("key");
    QTest::addColumn<bool>("pressed");
    QTest::addColumn<QJsonValue>("status"); // of the mode and of the light
    QTest::addColumn<bool>("sent");

    const QJsonValue absent(QJsonValue::Undefined);
    for (const Key key : {WorkMode, RedLight}) {
        const QString name = commandOf(key);
        const auto row = [&](const char* title, const QJsonValue& status, bool sent) {
            QTest::newRow(qPrintable(titleOf(name, QLatin1String(title))))
                << key << true << status << sent;
        };
        row("on", true, false);
        row("off", false, true);
        row("absent", absent, true);
        row("null", QJsonValue(), true);
        row("a number", 1, true);
        row("a text", QStringLiteral("true"), true);
    }
    for (const bool status : {false, true}) {
        for (const Key key : {Wiring, Retract}) {
            for (const bool pressed : {true, false})
                QTest::addRow("%s %d %d", qPrintable(commandOf(key)), pressed, status)
                    << key << pressed << QJsonValue(status) << pressed;
        }
        QTest::addRow("gas %d", status) << Gas << true << QJsonValue(status) << true;
    }
}

void PhysicalButtonsTest::payloads()
{
    QFETCH(Key, key);
    QFETCH(bool, pressed);
    QFETCH(QJsonValue, status);
    QFETCH(bool, sent);
    KeysOnHost on(key);
    const DebugLines debug;
    on.host.service[key == WorkMode ? VirtualKey : RedLightKey] = status;
    on.turn(key, pressed);

    QCOMPARE(on.host.commands.size(), 1);
    const ScriptedHost::Command& command = on.host.commands.first();
    QCOMPARE(command.data, (QJsonObject{{commandOf(key), sent}}));
    QCOMPARE(command.plugin, QStringLiteral("qelLaserWelding"));
    QCOMPARE(command.sender, &on.plugin);
    QVERIFY(!command.isText);
    if (key == WorkMode || key == RedLight)
        QCOMPARE(on.host.lastArguments(QStringLiteral("getQelServiceData")),
                 QJsonArray{key == WorkMode ? VirtualKey : RedLightKey});
}

void PhysicalButtonsTest::checkedReplies_data()
{
    QTest::addColumn<Key>("key");
    QTest::addColumn<bool>("pressed");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("debug");

    for (const CheckedKey& key : CheckedKeys) {
        const QString command = commandOf(key.key);
        for (const CheckedReply& reply : CheckedReplies) {
            const QString text = filledIn(reply.reply, command);
            const QString logStart = QLatin1String(key.log);
            const QString always = QLatin1String(key.debugAlways);
            const bool isNone = reply.message == nullptr;
            QTest::addRow("%s %s %d", qPrintable(command), reply.reply, key.pressed)
                << key.key << key.pressed << text
                << (isNone ? QString() : filledIn(reply.message, QLatin1String(key.texts)))
                << (reply.log ? logStart + filledIn(reply.log, command) : QString())
                << (isNone ? always + QLatin1String(key.debugNone) : always);
        }
    }
}

void PhysicalButtonsTest::checkedReplies()
{
    QFETCH(Key, key);
    QFETCH(bool, pressed);
    QFETCH(QString, reply);
    QFETCH(QString, message);
    QFETCH(QString, log);
    QFETCH(QString, debug);
    KeysOnHost on(key);
    const DebugLines lines;
    on.host.replies[commandOf(key)] = parsed(reply);
    on.turn(key, pressed);

    const QChar bar = QLatin1Char('|');
    QCOMPARE(on.host.messageTexts().join(bar), message);
    QCOMPARE(on.newLogTexts().join(bar), log);
    QVERIFY(log.isEmpty() || LogFolder::lines().constLast().startsWith(QLatin1String("[E|")));
    QCOMPARE(DebugLines::take(), debug.split(bar, Qt::SkipEmptyParts));
}

void PhysicalButtonsTest::workModeReplies_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<bool>("isSwitched");

    const auto row = [](const char* reply, bool isSwitched) {
        QTest::newRow(reply) << QString::fromLatin1(reply) << isSwitched;
    };
    const auto result = [&](const char* value, bool isSwitched) {
        row(qPrintable(
                QStringLiteral(R"([{"qelLaserWelding":{"set_virtual_welding":{"return":%1}}}])")
                    .arg(QLatin1String(value))),
            isSwitched);
    };
    result("0", true);
    result("5", false);
    result("0.9", true);
    result("1.9", false);
    result("\"0\"", true);
    result("\"3\"", false);
    result("\"x\"", true);
    result("false", true);
    result("true", false);
    result("null", true);
    result("[5]", true);
    row("[]", true);
    row("[5]", true);
    row("[{}]", true);
    row(R"([{"qelLaserWelding":{"set_virtual_welding":{}}}])", true);
    row(R"([{"qelLaserWelding":{"set_virtual_welding":5}}])", true);
    row(R"([{"qelLaserWelding":5}])", true);
    row(R"([{"other":1},{"qelLaserWelding":{"set_virtual_welding":{"return":5}}}])", true);
}

void PhysicalButtonsTest::workModeReplies()
{
    QFETCH(QString, reply);
    QFETCH(bool, isSwitched);
    for (const bool wasVirtual : {false, true}) {
        KeysOnHost on(WorkMode);
        const DebugLines debug;
        on.host.service[VirtualKey] = wasVirtual;
        ScriptedHost::emitNetworkConnect(); // not rendered: the indicator stays
        on.host.replies[commandOf(WorkMode)] = parsed(reply);
        on.turn(WorkMode, true);

        const QString switched = wasVirtual ? ToReal : ToVirtual;
        QCOMPARE(on.host.messageTexts(), QStringList{isSwitched ? switched : NotSwitched});
        QCOMPARE(on.picture(), PluginOnHost::pictureOf(isSwitched && !wasVirtual));
        QCOMPARE(on.newLogTexts(), QStringList());
        QCOMPARE(DebugLines::take(), QStringList());
    }
}

void PhysicalButtonsTest::redLightIgnoresTheReply()
{
    for (const char* reply :
         {"[]", "[5]", R"([{"qelLaserWelding":{"set_weld_red_light":{"return":5}}}])"}) {
        KeysOnHost on(RedLight);
        const DebugLines debug;
        on.host.replies[commandOf(RedLight)] = parsed(QString::fromLatin1(reply));
        on.turn(RedLight, true);
        QCOMPARE(on.host.messageTexts(), QStringList());
        QCOMPARE(on.newLogTexts(), QStringList());
        QCOMPARE(DebugLines::take(), QStringList());
    }
}

void PhysicalButtonsTest::callbacksKeepNoState()
{
    KeysOnHost on(RedLight);
    const DebugLines debug;
    on.turn(Gas, true);
    on.turn(Gas, true);
    on.turn(RedLight, true);
    on.turn(RedLight, true);
    on.host.service[RedLightKey] = true;
    on.turn(RedLight, true);

    QList<bool> sent;
    for (const ScriptedHost::Command& command : qAsConst(on.host.commands))
        sent << command.data.begin().value().toBool();
    QCOMPARE(sent, (QList<bool>{true, true, true, true, false}));
}

LASERWELD_TEST_MAIN(PhysicalButtonsTest)
#include "tst_physicalbuttons.moc"
