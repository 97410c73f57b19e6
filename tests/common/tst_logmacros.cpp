#include "Log.h"
#include "LogFolder.h"
#include "TestCase.h"

#include <QRegularExpression>

namespace {

const QString Time = QStringLiteral("[01]\\d/[0-3]\\d [0-2]\\d:[0-5]\\d:[0-5]\\d\\.\\d{3}");

using Writer = void (*)();

QRegularExpression exactly(const QString& pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

} // namespace

Q_DECLARE_METATYPE(Writer)

/// The log macros: time, level, colour and file of each.
class TestLogMacros : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void header_data();
    void header();
    void presentTime();
    void pathBase_data();
    void pathBase();
    void macro_data();
    void macro();
    void tags();
};

void TestLogMacros::header_data()
{
    QTest::addColumn<char>("level");
    for (const char level : {'D', 'I', 'W', 'E'})
        QTest::addRow("%c", level) << level;
}

void TestLogMacros::header()
{
    QFETCH(char, level);
    const QRegularExpression pattern =
        exactly(QStringLiteral("\\[%1\\|%2\\]").arg(QLatin1Char(level)).arg(Time));
    const QString made = LogLine::header(level);
    QVERIFY2(pattern.match(made).hasMatch(), qPrintable(made));
}

void TestLogMacros::presentTime()
{
    const QString format = QStringLiteral("MM/dd hh:mm:ss.zzz");
    const QDateTime before = QDateTime::currentDateTime();
    const QString made = LogLine::header('I');
    const QDateTime after = QDateTime::currentDateTime();
    const QString time = made.mid(3, format.size());
    // At the turn of the year the texts would run backwards.
    if (before.date().year() == after.date().year()) {
        QVERIFY(before.toString(format) <= time);
        QVERIFY(time <= after.toString(format));
    }
}

void TestLogMacros::pathBase_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("base");
    QTest::newRow("plugin") << QString::fromLatin1(LogTag::Plugin)
                            << QStringLiteral("./log/qelplugin/qelLaserWelding/qelLaserWelding");
    QTest::newRow("short") << QString::fromLatin1(LogTag::Short)
                           << QStringLiteral("./log/qelplugin/qellaserweld/qellaserweld");
    QTest::newRow("with a place in it")
        << QStringLiteral("%1") << QStringLiteral("./log/qelplugin/%1/%1");
}

void TestLogMacros::pathBase()
{
    QFETCH(QString, tag);
    QFETCH(QString, base);
    QCOMPARE(LogLine::pathBase(qPrintable(tag)), base);
}

void TestLogMacros::macro_data()
{
    QTest::addColumn<Writer>("write");
    QTest::addColumn<QString>("level");
    QTest::addColumn<QString>("colour");
    QTest::addColumn<bool>("inFile");

    QTest::newRow("debug") << Writer([] { LOGD(LogTag::Plugin) << "item" << 1; })
                           << QStringLiteral("D") << QStringLiteral("32") << false;
    QTest::newRow("information") << Writer([] { LOGI(LogTag::Plugin) << "item" << 1; })
                                 << QStringLiteral("I") << QStringLiteral("36") << true;
    QTest::newRow("warning") << Writer([] { LOGW(LogTag::Plugin) << "item" << 1; })
                             << QStringLiteral("W") << QStringLiteral("33") << true;
    QTest::newRow("error") << Writer([] { LOGE(LogTag::Plugin) << "item" << 1; })
                           << QStringLiteral("E") << QStringLiteral("31") << true;
}

void TestLogMacros::macro()
{
    QFETCH(Writer, write);
    QFETCH(QString, level);
    QFETCH(QString, colour);
    QFETCH(bool, inFile);
    const LogFolder folder;
    ConsoleCapture console;
    write();

    const QString body = QStringLiteral("\\[%1\\|%2\\] item 1").arg(level, Time);
    const auto written = console.take();
    QCOMPARE(written.size(), 1);
    const QRegularExpression line =
        exactly(QStringLiteral("\x1b\\[%1m%2\x1b\\[0m\n").arg(colour, body));
    QVERIFY2(line.match(QString::fromUtf8(written.first())).hasMatch(), written.first());
    const QStringList lines = LogFolder::lines();
    QCOMPARE(lines.size(), inFile ? 1 : 0);
    QVERIFY(lines.isEmpty() || exactly(body).match(lines.first()).hasMatch());
}

void TestLogMacros::tags()
{
    const LogFolder folder;
    const ConsoleCapture console;
    LOGI(LogTag::Plugin) << "page";
    LOGE(LogTag::Short) << "LASER::" << QLatin1String("editor");
    QCOMPARE(LogFolder::texts(), QStringList{QStringLiteral("page")});
    QCOMPARE(LogFolder::texts(QStringLiteral("qellaserweld")),
             QStringList{QStringLiteral("LASER:: editor")});
}

LASERWELD_CORE_TEST_MAIN(TestLogMacros)
#include "tst_logmacros.moc"
