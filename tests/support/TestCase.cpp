#include "TestCase.h"

#include "logfile.h"

#include <QMutex>
#include <QMutexLocker>

#include <algorithm>

namespace {

// Warnings may come from any thread, the assertions belong on the test's.
QMutex mutex;
QList<QRegularExpression> expected;
QStringList unexpected;
QtMessageHandler before = nullptr;

// The platform without a display says this of every window and popup that is shown.
bool isOfThePlatform(const QString& text)
{
    return text.startsWith(QLatin1String("This plugin does not support "));
}

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (isOfThePlatform(text))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const QMutexLocker lock(&mutex);
        const auto match =
            std::find_if(expected.begin(), expected.end(), [&](const QRegularExpression& each) {
                return each.match(text).hasMatch();
            });
        if (match != expected.end()) {
            expected.erase(match);
            return;
        }
        unexpected << text;
    }
    if (before)
        before(type, context, text);
}

} // namespace

void TestCase::expectWarning(const QRegularExpression& text)
{
    const QMutexLocker lock(&mutex);
    expected << text;
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
    const QMutexLocker lock(&mutex);
    expected.clear();
    unexpected.clear();
    before = qInstallMessageHandler(handleMessage);
    // The test may have gone to another working directory.
    qelplugin::recheckLogFiles();
}

void TestCase::cleanup()
{
    qInstallMessageHandler(before);
    before = nullptr;
    const QMutexLocker lock(&mutex);
    QStringList missing;
    for (const QRegularExpression& each : std::as_const(expected))
        missing << each.pattern();
    QVERIFY2(
        unexpected.isEmpty(),
        qPrintable(
            QStringLiteral("unexpected warning: %1").arg(unexpected.join(QLatin1String(" | ")))));
    QVERIFY2(
        missing.isEmpty(),
        qPrintable(
            QStringLiteral("warning did not come: %1").arg(missing.join(QLatin1String(" | ")))));
}
