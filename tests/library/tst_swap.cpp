#include "TestCase.h"

#include <QProcess>

/// The library that was built against one SDK library runs with another in its place.
class TestSwap : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void loadsAndUnloads_data();
    void loadsAndUnloads();
    void pathDecides();

private:
    /// Starts the driver with the folder first in the loader's path, and waits for its end.
    static void run(QProcess& driver, const QString& folder, int rounds);
};

void TestSwap::run(QProcess& driver, const QString& folder, int rounds)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString variable = QStringLiteral("LD_LIBRARY_PATH");
    QStringList folders{folder};
    folders << environment.value(variable).split(QLatin1Char(':'), Qt::SkipEmptyParts);
    environment.insert(variable, folders.join(QLatin1Char(':')));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    driver.setProcessEnvironment(environment);
    driver.setProcessChannelMode(QProcess::MergedChannels);
    driver.start(QStringLiteral(LIBRARY_DRIVER),
                 {QStringLiteral(PLUGIN_LIBRARY), QString::number(rounds)});
    QVERIFY(driver.waitForFinished(-1));
}

void TestSwap::loadsAndUnloads_data()
{
    QTest::addColumn<int>("rounds");
    QTest::newRow("once") << 1;
    QTest::newRow("a hundred times in one process") << 100;
}

void TestSwap::loadsAndUnloads()
{
    QFETCH(int, rounds);
    QProcess driver;
    run(driver, QStringLiteral(TINY_SDK_FOLDER), rounds);
    const QByteArray output = driver.readAll();
    QVERIFY2(driver.exitStatus() == QProcess::NormalExit && driver.exitCode() == 0, output);
    QVERIFY2(output.endsWith(QByteArray::number(rounds) + " rounds\n"), output);
}

// Beside the proof: with the other folder in the path the driver finds the other library.
void TestSwap::pathDecides()
{
    QProcess driver;
    run(driver, QStringLiteral(SDK_FOLDER), 1);
    const QByteArray output = driver.readAll();
    QCOMPARE(driver.exitCode(), 1);
    QVERIFY2(output.contains("undefined symbol: tinySdk"), output);
}

LASERWELD_CORE_TEST_MAIN(TestSwap)
#include "tst_swap.moc"
