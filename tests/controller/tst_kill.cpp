#include "Controller.h"
#include "OldCell.h"
#include "RunRecord.h"
#include "TestCase.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace pendant;

namespace {

const QString setting = QStringLiteral("weld_setting_config");
const QString setSetting = QStringLiteral("set_weld_setting_config");
const QString program = QStringLiteral("main");

/// A command whose saves carry a number, and how it is read back from the cell.
struct RunCommand
{
    const char* name;
    const char* record;
    int (*run)(const QJsonObject& record);
};

constexpr RunCommand commands[] = {
    {"set_weld_setting_config", "weld_setting_config", runOf},
    {"set_weld_io_config", "weld_io_config", runOfMapping},
    {"set_weld_param_list_config", "weld_param_config", runOfSchedule},
    {"set_weld_param_match_config", "weld_param_match", runOfMatching},
    {"set_weld_curve_power_config", "weld_curve_config", runOfCurve},
};

/// A process that saves until it is killed.
class Writer
{
public:
    Writer(const QString& cell, int first, const QString& what = setSetting)
    {
        const QString writer =
            QCoreApplication::applicationDirPath() + QStringLiteral("/kill_writer");
        m_process.start(writer, {cell, QString::number(first), what});
    }

    bool waitForStart() { return m_process.waitForStarted(); }

    /// False when the process ended before it had answered so often.
    bool waitForAnswers(int count)
    {
        while (m_output.count('\n') < count) {
            if (!m_process.waitForReadyRead())
                return false;
            m_output += m_process.readAllStandardOutput();
        }
        return true;
    }

    /// False when the process had already ended by itself.
    bool kill()
    {
        const bool isRunning = m_process.state() == QProcess::Running;
        m_process.kill();
        m_process.waitForFinished();
        m_output += m_process.readAllStandardOutput();
        return isRunning && m_process.exitStatus() == QProcess::CrashExit;
    }

    /// True when the process ended by itself and without success.
    bool waitForFailure()
    {
        return m_process.waitForFinished() && m_process.exitStatus() == QProcess::NormalExit &&
               m_process.exitCode() != 0;
    }

    QString errors() { return QString::fromLocal8Bit(m_process.readAllStandardError()); }

    /// The last number that was answered with success; -1 when there was none.
    int lastAnswered() const
    {
        const QList<QByteArray> lines = m_output.left(m_output.lastIndexOf('\n')).split('\n');
        return m_output.contains('\n') ? lines.last().toInt() : -1;
    }

private:
    QProcess m_process;
    QByteArray m_output;
};

QJsonObject storedRecord(const QString& cell, const QString& key, QString* error)
{
    const auto controller = Controller::open(cell, {}, error);
    return controller ? controller->serviceData(key).toObject() : QJsonObject();
}

QByteArray storedProgram(const QString& cell, QString* error)
{
    QByteArray text;
    const auto controller = Controller::open(cell, {}, error);
    if (controller && !controller->readProgram(program, &text))
        *error = QStringLiteral("the program is missing");
    return text;
}

/// The number of what is stored; -1 when it is not whole.
int storedRun(const QString& cell, const QString& what, QString* error)
{
    for (const RunCommand& command : commands) {
        if (what == QLatin1String(command.name))
            return command.run(storedRecord(cell, QLatin1String(command.record), error));
    }
    return runOf(storedProgram(cell, error));
}

} // namespace

/// Kills a process at random moments of a run of saves and looks at what is left.
class KillTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void killedWhileSaving_data();
    void killedWhileSaving();
    void killedWhileMaking_data();
    void killedWhileMaking();
    void lockedByTheOther();
    void lockedForTheOther();

private:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    QRandomGenerator m_random;
};

void KillTest::initTestCase()
{
    QVERIFY(m_folder.isValid());
    const bool isGiven = qEnvironmentVariableIsSet("LASERWELD_SEED");
    const quint32 seed = isGiven
                             ? static_cast<quint32>(qEnvironmentVariableIntValue("LASERWELD_SEED"))
                             : QRandomGenerator::global()->generate() & 0x7fffffffU;
    m_random.seed(seed);
    qInfo("LASERWELD_SEED=%u", seed);
}

void KillTest::killedWhileSaving_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("microseconds"); // a few saves long
    QTest::addColumn<QString>("what");
    // A disk takes nearly all of a save for the flush at its end. Memory takes none, so that the
    // kills fall upon the steps of the save itself.
    QTest::newRow("disk") << QDir::tempPath() << 20000 << setSetting;
    const auto row = [](const char* what, int microseconds) {
        QTest::newRow(what) << QStringLiteral("/dev/shm") << microseconds
                            << QString(QLatin1String(what));
    };
    row("set_weld_setting_config", 1000);
    row("set_weld_io_config", 3000);
    row("set_weld_param_list_config", 2000);
    row("set_weld_param_match_config", 1000);
    row("set_weld_curve_power_config", 1000);
    row("main", 2000);
}

void KillTest::killedWhileSaving()
{
    constexpr int rounds = 200;
    QFETCH(QString, folder);
    QFETCH(int, microseconds);
    QFETCH(QString, what);
    if (!QFileInfo(folder).isWritable())
        folder = QDir::tempPath();
    const QTemporaryDir place(folder + QStringLiteral("/tst_kill-XXXXXX"));
    const QString cell = place.filePath(QStringLiteral("saving.cell"));
    int first = 0;
    int unanswered = 0;
    for (int round = 0; round < rounds; ++round) {
        Writer writer(cell, first, what);
        QVERIFY(writer.waitForAnswers(1 + m_random.bounded(8)));
        // Anywhere within the saves that follow.
        QThread::usleep(static_cast<unsigned long>(m_random.bounded(microseconds)));
        QVERIFY(writer.kill());

        QString error;
        const int stored = storedRun(cell, what, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        const int answered = writer.lastAnswered();
        // One save may have been stored whose answer did not get out any more.
        QVERIFY2(stored == answered || stored == answered + 1,
                 qPrintable(QStringLiteral("round %1: answered %2, stored %3")
                                .arg(round)
                                .arg(answered)
                                .arg(stored)));
        unanswered += stored - answered;
        first = stored + 1;
    }
    qInfo("%d saves, %d kills, %d of them between the store and its answer", first, rounds,
          unanswered);
}

void KillTest::killedWhileMaking_data()
{
    QTest::addColumn<bool>("isOlder");
    QTest::newRow("a new cell") << false;
    QTest::newRow("a cell of the older layout") << true;
}

void KillTest::killedWhileMaking()
{
    QFETCH(bool, isOlder);
    constexpr int rounds = 40;
    QElapsedTimer clock;
    clock.start();
    Writer scout(path(QStringLiteral("scout.cell")), 0);
    QVERIFY(scout.waitForAnswers(1));
    const auto longest = static_cast<quint32>(clock.nsecsElapsed() / 1000);
    QVERIFY(scout.kill());

    for (int round = 0; round < rounds; ++round) {
        const QString cell = path(QStringLiteral("making%1%2.cell").arg(isOlder).arg(round));
        QVERIFY(!isOlder || makeOldCell(cell));
        Writer writer(cell, 0);
        QVERIFY(writer.waitForStart());
        // From before the file is there to the first saves.
        QThread::usleep(m_random.bounded(longest));
        QVERIFY(writer.kill());

        QString error;
        const QJsonObject stored = storedRecord(cell, setting, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        // Either as new or one of the run, but always whole.
        QCOMPARE(stored.size(), runRecord(0).size());
        QVERIFY(writer.lastAnswered() < 0 || runOf(stored) >= writer.lastAnswered());
        QCOMPARE(Controller::open(cell, {}, &error)->programs().size(), 2);
    }
}

void KillTest::lockedByTheOther()
{
    const QString cell = path(QStringLiteral("busy.cell"));
    Writer writer(cell, 0);
    QVERIFY(writer.waitForAnswers(1));
    QString error;
    QVERIFY(!Controller::open(cell, {}, &error));
    QVERIFY2(error.contains(QLatin1String("open in another pendant")), qPrintable(error));
    QVERIFY2(writer.waitForAnswers(20), "the refused look has disturbed the other");
    QVERIFY(writer.kill());
    QVERIFY2(Controller::open(cell, {}, &error), qPrintable(error));
}

void KillTest::lockedForTheOther()
{
    const QString cell = path(QStringLiteral("mine.cell"));
    QString error;
    const auto controller = Controller::open(cell, {}, &error);
    QVERIFY2(controller, qPrintable(error));
    // A second look from within the process must not open the door to the others.
    QVERIFY(!Controller::open(cell, {}, &error));
    Writer writer(cell, 0);
    QVERIFY(writer.waitForFailure());
    const QString errors = writer.errors();
    QVERIFY2(errors.contains(QLatin1String("open in another pendant")), qPrintable(errors));
}

LASERWELD_CORE_TEST_MAIN(KillTest)
#include "tst_kill.moc"
