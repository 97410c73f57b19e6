#include "TestCase.h"

#include <QProcess>
#include <QTemporaryDir>

/// The plugin is loaded, used and unloaded under valgrind: no wrong access to memory, no value that
/// nobody has set, nothing lost.
class TestValgrind : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void loadUseUnload();
};

void TestValgrind::loadUseUnload()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer does it in this build, and the two do not go together.");
#endif
    const QTemporaryDir folder; // the plugin logs below the working directory
    QProcess valgrind;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_LIBRARY_PATH"), QStringLiteral(TINY_SDK_FOLDER));
    valgrind.setProcessEnvironment(environment);
    valgrind.setWorkingDirectory(folder.path());
    valgrind.setProcessChannelMode(QProcess::MergedChannels);
    // With the names of a library that is gone by the time of the report.
    valgrind.start(QStringLiteral("valgrind"),
                   {QStringLiteral("--quiet"), QStringLiteral("--leak-check=full"),
                    QStringLiteral("--errors-for-leak-kinds=definite,indirect"),
                    QStringLiteral("--keep-debuginfo=yes"), QStringLiteral("--num-callers=30"),
                    QStringLiteral("--error-exitcode=9"),
                    QStringLiteral("--suppressions=" VALGRIND_SUPPRESSIONS),
                    QStringLiteral(LIBRARY_DRIVER), QStringLiteral(PLUGIN_LIBRARY),
                    QStringLiteral("2")});
    QVERIFY2(valgrind.waitForStarted(), "valgrind is not installed");
    QVERIFY(valgrind.waitForFinished(-1));
    const QByteArray output = valgrind.readAll();
    QVERIFY2(valgrind.exitStatus() == QProcess::NormalExit && valgrind.exitCode() == 0, output);
    QVERIFY2(output.endsWith("2 rounds\n"), output);
}

LASERWELD_CORE_TEST_MAIN(TestValgrind)
#include "tst_valgrind.moc"
