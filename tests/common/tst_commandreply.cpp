#include "CommandReply.h"
#include "LogFolder.h"
#include "ScriptedHost.h"
#include "TestCase.h"

#include <QJsonDocument>

namespace {

const QString Command = QStringLiteral("set_it");

// As the readers see it: "none" where no element answers.
QString textOf(const std::optional<int>& result)
{
    return result ? QString::number(*result) : QStringLiteral("none");
}

// A reply whose "return" is the JSON text.
QJsonArray replyOf(const QString& result)
{
    const QString text =
        QStringLiteral(R"([{"qelLaserWelding":{"set_it":{"return":%1}}}])").arg(result);
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isArray())
        qFatal("no reply: %s", qPrintable(text));
    return document.array();
}

QJsonArray parsed(const QString& reply)
{
    const QJsonDocument document = QJsonDocument::fromJson(reply.toUtf8());
    if (!document.isArray())
        qFatal("no reply: %s", qPrintable(reply));
    return document.array();
}

const CommandReply::SaveTexts Texts{QStringLiteral("saved"), QStringLiteral("failed"),
                                    QStringLiteral("It failed. "),
                                    QStringLiteral("It failed. not found ")};

} // namespace

class CommandReplyTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sends();
    void sendsText();
    void results_data();
    void results();
    void envelopes_data();
    void envelopes();
    void numberThatIsNone();
    void reports_data();
    void reports();
};

void CommandReplyTest::sends()
{
    ScriptedHost host;
    host.replies[Command] = ScriptedHost::reply(Command, 7);
    const QJsonObject payload{{QStringLiteral("a"), 1}};
    QCOMPARE(CommandReply::send(this, Command, payload), ScriptedHost::reply(Command, 7));

    QCOMPARE(host.callNames(), QStringList{QStringLiteral("commandCustomData")});
    QCOMPARE(host.commands.first().sender, this);
    QCOMPARE(host.commands.first().plugin, QStringLiteral("qelLaserWelding"));
    QCOMPARE(host.commands.first().data, (QJsonObject{{Command, payload}}));
    QVERIFY(!host.commands.first().isText);
}

void CommandReplyTest::sendsText()
{
    ScriptedHost host;
    host.replies[Command] = ScriptedHost::reply(Command, true);
    QCOMPARE(CommandReply::sendText(this, Command, QStringLiteral("TRUE")),
             ScriptedHost::reply(Command, true));

    QCOMPARE(host.commands.size(), 1);
    QCOMPARE(host.commands.first().sender, this);
    QCOMPARE(host.commands.first().plugin, QStringLiteral("qelLaserWelding"));
    QCOMPARE(host.commands.first().data, (QJsonObject{{Command, QStringLiteral("TRUE")}}));
    QVERIFY(host.commands.first().isText);
}

void CommandReplyTest::results_data()
{
    QTest::addColumn<QString>("result");
    QTest::addColumn<int>("strict");
    QTest::addColumn<int>("tolerant");
    QTest::addColumn<bool>("accepted");

    const auto row = [](const char* result, int strict, int tolerant, bool accepted = false) {
        QTest::newRow(result) << QString::fromUtf8(result) << strict << tolerant << accepted;
    };
    row("0", 0, 0);
    row("5", 5, 5);
    row("-3", -3, -3);
    row("0.5", 0, 0);
    row("1.5", 0, 1);
    row("-1.5", 0, -1);
    row("2147483647", 2147483647, 2147483647);
    row("2147483648", 0, std::numeric_limits<int>::max());
    row("1e300", 0, std::numeric_limits<int>::max());
    row("-1e300", 0, std::numeric_limits<int>::min());
    row("true", 0, 1, true);
    row("false", 0, 0);
    row("\"0\"", 0, 0);
    row("\"7\"", 0, 7);
    row("\"-7\"", 0, -7);
    row("\" 7 \"", 0, 7);
    row("\"0x10\"", 0, 0);
    row("\"1.5\"", 0, 0);
    row("\"true\"", 0, 0);
    row("\"99999999999\"", 0, 0);
    row("\"\"", 0, 0);
    row("null", 0, 0);
    row("[1]", 0, 0);
    row("{\"a\":1}", 0, 0);
}

void CommandReplyTest::results()
{
    QFETCH(QString, result);
    QFETCH(int, strict);
    QFETCH(int, tolerant);
    QFETCH(bool, accepted);
    const QJsonArray reply = replyOf(result);

    QCOMPARE(textOf(CommandReply::strictResult(reply, Command)), QString::number(strict));
    QCOMPARE(textOf(CommandReply::tolerantResult(reply, Command)), QString::number(tolerant));
    QCOMPARE(CommandReply::firstElementResult(reply, Command), tolerant);
    QCOMPARE(CommandReply::firstElementAccepted(reply, Command), accepted);
}

// Of each envelope "return" is 5 or true where it is found.
void CommandReplyTest::envelopes_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("anyElement");
    QTest::addColumn<int>("firstElement");
    QTest::addColumn<bool>("accepted");

    const auto row = [](const char* title, const char* reply, const char* anyElement,
                        int firstElement, bool accepted = false) {
        QTest::newRow(title) << QString::fromUtf8(reply) << QString::fromUtf8(anyElement)
                             << firstElement << accepted;
    };
    row("empty", "[]", "none", 0);
    row("no object", R"([5, "x", null, true, []])", "none", 0);
    row("empty object", "[{}]", "none", 0);
    row("found", R"([{"qelLaserWelding":{"set_it":{"return":5}}}])", "5", 5);
    row("found with more", R"([{"a":1,"qelLaserWelding":{"b":2,"set_it":{"c":3,"return":5}}}])",
        "5", 5);
    row("another plugin", R"([{"other":{"set_it":{"return":5}}}])", "none", 0);
    row("behind another plugin",
        R"([{"other":{"set_it":{"return":1}}},{"qelLaserWelding":{"set_it":{"return":5}}}])", "5",
        0);
    row("behind no object", R"([1,{"qelLaserWelding":{"set_it":{"return":5}}}])", "5", 0);
    row("another command", R"([{"qelLaserWelding":{"set_that":{"return":5}}}])", "none", 0);
    row("behind another command",
        R"([{"qelLaserWelding":{"set_that":{"return":1}}},
            {"qelLaserWelding":{"set_it":{"return":5}}}])",
        "5", 0);
    row("no return", R"([{"qelLaserWelding":{"set_it":{}}}])", "none", 0);
    row("behind no return",
        R"([{"qelLaserWelding":{"set_it":{}}},{"qelLaserWelding":{"set_it":{"return":5}}}])", "5",
        0);
    row("plugin no object", R"([{"qelLaserWelding":5}])", "none", 0);
    row("command no object", R"([{"qelLaserWelding":{"set_it":5}}])", "none", 0);
    row("command an array", R"([{"qelLaserWelding":{"set_it":[{"return":5}]}}])", "none", 0);
    row("the first of two",
        R"([{"qelLaserWelding":{"set_it":{"return":5}}},
            {"qelLaserWelding":{"set_it":{"return":6}}}])",
        "5", 5);
    row("accepted", R"([{"qelLaserWelding":{"set_it":{"return":true}}}])", "0", 1, true);
    row("accepted behind another plugin",
        R"([{"other":1},{"qelLaserWelding":{"set_it":{"return":true}}}])", "0", 0);
    row("case", R"([{"qellaserwelding":{"set_it":{"return":5}}}])", "none", 0);
}

void CommandReplyTest::envelopes()
{
    QFETCH(QString, reply);
    QFETCH(QString, anyElement);
    QFETCH(int, firstElement);
    QFETCH(bool, accepted);
    const QJsonArray array = parsed(reply);

    QCOMPARE(textOf(CommandReply::strictResult(array, Command)), anyElement);
    const bool isBool = anyElement == QLatin1String("0");
    QCOMPARE(textOf(CommandReply::tolerantResult(array, Command)),
             isBool ? QStringLiteral("1") : anyElement);
    QCOMPARE(CommandReply::firstElementResult(array, Command), firstElement);
    QCOMPARE(CommandReply::firstElementAccepted(array, Command), accepted);
}

void CommandReplyTest::numberThatIsNone()
{
    const QJsonArray reply = ScriptedHost::reply(Command, QJsonValue(qQNaN()));
    QCOMPARE(textOf(CommandReply::strictResult(reply, Command)), QStringLiteral("0"));
    const int result = CommandReply::firstElementResult(reply, Command);
    QCOMPARE(result, 0);
}

void CommandReplyTest::reports_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");

    const auto row = [](const char* reply, const char* message, const char* log) {
        QTest::newRow(reply) << QString::fromUtf8(reply) << QString::fromUtf8(message)
                             << QString::fromUtf8(log);
    };
    row(R"([{"qelLaserWelding":{"set_it":{"return":0}}}])", "0: saved", "");
    row(R"([{"qelLaserWelding":{"set_it":{"return":"3"}}}])", "0: saved", "");
    row(R"([{"qelLaserWelding":{"set_it":{"return":true}}}])", "0: saved", "");
    row(R"([{"qelLaserWelding":{"set_it":{"return":5}}}])", "2: failed",
        "It failed.  set_it  Result: 5");
    row(R"([{"qelLaserWelding":{"set_it":{"return":-1}}}])", "2: failed",
        "It failed.  set_it  Result: -1");
    row("[]", "", "It failed. not found  set_it  Result");
    row(R"([{"other":{"set_it":{"return":0}}}])", "", "It failed. not found  set_it  Result");
}

void CommandReplyTest::reports()
{
    QFETCH(QString, reply);
    QFETCH(QString, message);
    QFETCH(QString, log);
    const LogFolder folder;
    const ConsoleCapture console;
    const ScriptedHost host;

    const bool isAnswered = CommandReply::reportStrict(parsed(reply), Command, Texts);
    QCOMPARE(isAnswered, !message.isEmpty());
    QCOMPARE(host.messageTexts().join(QLatin1Char('|')), message);
    QCOMPARE(LogFolder::texts().join(QLatin1Char('|')), log);
    QVERIFY(log.isEmpty() || LogFolder::lines().constFirst().startsWith(QLatin1String("[E|")));
}

LASERWELD_CORE_TEST_MAIN(CommandReplyTest)
#include "tst_commandreply.moc"
