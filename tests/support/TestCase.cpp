#include "TestCase.h"

#include "logfile.h"

#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <utility>

namespace {

// Warnings may come from any thread, the assertions belong on the test's.
struct Warnings
{
    QMutex mutex;
    QList<QRegularExpression> expected;
    QStringList unexpected;
    QtMessageHandler before = nullptr;
};

Warnings& warnings()
{
    static Warnings all;
    return all;
}

// The platform without a display says this of every window and popup that is shown.
bool isOfThePlatform(const QString& text)
{
    return text.startsWith(QLatin1String("This plugin does not support "));
}

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (isOfThePlatform(text))
        return;
    Warnings& all = warnings();
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const QMutexLocker lock(&all.mutex);
        const auto match = std::find_if(
            all.expected.begin(), all.expected.end(),
            [&](const QRegularExpression& each) { return each.match(text).hasMatch(); });
        if (match != all.expected.end()) {
            all.expected.erase(match);
            return;
        }
        all.unexpected << text;
    }
    if (all.before)
        all.before(type, context, text);
}

} // namespace

void TestCase::expectWarning(const QRegularExpression& text)
{
    const QMutexLocker lock(&warnings().mutex);
    warnings().expected << text;
}

void TestCase::expectWarning(const QString& text)
{
    expectWarning(
        QRegularExpression(QRegularExpression::anchoredPattern(QRegularExpression::escape(text))));
}

int TestCase::run(QObject* test, int argc, char** argv)
{
    return QTest::qExec(test, argc, argv);
}

void TestCase::init()
{
    Warnings& all = warnings();
    const QMutexLocker lock(&all.mutex);
    all.expected.clear();
    all.unexpected.clear();
    all.before = qInstallMessageHandler(handleMessage);
    // The test may have gone to another working directory.
    qelplugin::recheckLogFiles();
}

void TestCase::cleanup()
{
    Warnings& all = warnings();
    qInstallMessageHandler(std::exchange(all.before, nullptr));
    const QMutexLocker lock(&all.mutex);
    QStringList missing;
    for (const QRegularExpression& each : std::as_const(all.expected))
        missing << each.pattern();
    const QString separator = QStringLiteral(" | ");
    QVERIFY2(all.unexpected.isEmpty(),
             qPrintable(QStringLiteral("unexpected: ") + all.unexpected.join(separator)));
    QVERIFY2(missing.isEmpty(),
             qPrintable(QStringLiteral("did not come: ") + missing.join(separator)));
}
