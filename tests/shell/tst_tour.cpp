#include "TestCase.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

constexpr int Milliseconds = 240000;

// What an operator came for; each is a step that the tour has to have.
constexpr const char* MainSteps[] = {
    "saved",
    "switch-on",
    "key-wiring",
    "level-2",
    "weld-io-outputs",
    "weld-io-inputs",
    "weld-io-register",
    "weld-io-double",
    "weld-io-gap",
    "weld-io-saved",
    "weld-io-port-gone",
    "weld-io-locked",
    "io-laser",
    "io-gas",
    "io-wire",
    "io-retract",
    "io-inputs",
    "data-schedule",
    "data-wire",
    "data-retract",
    "data-compensation",
    "data-saved",
    "data-list-again",
    "matching-powers",
    "matching-speeds",
    "matching-saved",
    "curve-mapping",
    "curve-nodes",
    "curve-computed",
    "curve-saved",
    "curve-number",
    "curve-cancelled",
    "tracking-late",
    "tracking-never",
    "program-instruction",
    "program-target",
    "program-insert-LsMoveL",
    "program-insert-LaserOn",
    "program-insert-LsWireFwd",
    "program-insert-LsParaMatch",
    "program-insert-LsMoveCF",
    "program-insert-LsMoveC",
    "program-insert-LsParaSet",
    "program-insert-LsParaMatchOff",
    "program-insert-LsWireBwd",
    "program-insert-LaserOff",
    "program-change-LsMoveL",
    "program-change-LaserOn",
    "program-change-LsWireFwd",
    "program-change-LsParaMatch",
    "program-change-LsMoveCF",
    "program-change-LsMoveC",
    "program-change-LsParaSet",
    "program-change-LsParaMatchOff",
    "program-change-LsWireBwd",
    "program-change-LaserOff",
    "program-saved",
    "program-again",
    "program-insert-refused",
    "program-replace-refused",
};

/// A run of the pendant as a process of its own.
struct Run
{
    QProcess process;
    QTemporaryDir folder;
    int code = -1;
    QString output;
    QString errors;

    explicit Run(const QStringList& arguments, bool withPlatform = true)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QString::fromLatin1(name));
        if (withPlatform)
            environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), folder.path());
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder.path());
        process.start(QStringLiteral(PENDANT_PROGRAM), arguments);
        if (!process.waitForFinished(Milliseconds))
            process.kill();
        else if (process.exitStatus() == QProcess::NormalExit)
            code = process.exitCode();
        output = QString::fromLocal8Bit(process.readAllStandardOutput());
        errors = QString::fromLocal8Bit(process.readAllStandardError());
    }
    QStringList pictures(const char* name) const
    {
        return QDir(folder.filePath(QString::fromLatin1(name)))
            .entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
    }
};

} // namespace

class TestTour : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theWholeStory_data();
    void theWholeStory();
    void withoutADisplayItSaysSo();
    void aFailedStepIsNamed();
    void exitCodes_data();
    void exitCodes();

private:
    const QTemporaryDir kept;
};

void TestTour::theWholeStory_data()
{
    QTest::addColumn<QString>("dpi");
    QTest::addColumn<QSize>("size");
    QTest::newRow("as it starts") << QString() << QSize(1024, 768);
    QTest::newRow("small at 192 dpi") << QStringLiteral("192") << QSize(800, 600);
    QTest::newRow("wide at 144 dpi") << QStringLiteral("144") << QSize(1280, 800);
}

// The later ones with the points and the power of the tour before.
void TestTour::theWholeStory()
{
    QFETCH(QString, dpi);
    QFETCH(QSize, size);
    QStringList arguments{QStringLiteral("--tour"), QStringLiteral("pictures"),
                          QStringLiteral("--cell"), kept.filePath(QStringLiteral("cell"))};
    if (!dpi.isEmpty()) {
        arguments << QStringLiteral("--dpi") << dpi << QStringLiteral("--size")
                  << QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
    }
    const Run run(arguments);
    QVERIFY2(run.code == 0, qPrintable(run.output + run.errors));
    const QStringList pictures = run.pictures("pictures");
    QCOMPARE(pictures.size(), run.output.count(QStringLiteral(" ok   ")));
    for (const char* step : MainSteps) {
        const QRegularExpression name(QStringLiteral("^\\d+-%1\\.png$").arg(QLatin1String(step)));
        QVERIFY2(pictures.filter(name).size() == 1, step);
    }
    for (const QString& name : pictures) {
        const QImage picture(run.folder.filePath(QStringLiteral("pictures/") + name));
        QCOMPARE(picture.size(), size);
    }
}

// Of a folder without a plugin that loads: that the tour begins will do.
void TestTour::withoutADisplayItSaysSo()
{
    const Run run({QStringLiteral("--plugins"), QStringLiteral(SHELL_LIBRARIES "/noapi")}, false);
    QCOMPARE(run.code, 1);
    QVERIFY(run.output.startsWith(QStringLiteral("There is no display")));
    QCOMPARE(run.pictures("tour"), QStringList{QStringLiteral("01-start.png")});
}

void TestTour::aFailedStepIsNamed()
{
    const Run run({QStringLiteral("--tour"), QStringLiteral("pictures"),
                   QStringLiteral("--plugins"), QStringLiteral(SHELL_LIBRARIES "/noapi")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.errors.contains(QStringLiteral("step 1 (start): libnoapi.so: no plugin: has no")),
             qPrintable(run.errors));
    QCOMPARE(run.pictures("pictures"), QStringList{QStringLiteral("01-start.png")});
}

void TestTour::exitCodes_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::newRow("help") << QStringList{QStringLiteral("--help")} << 0;
    QTest::newRow("version") << QStringList{QStringLiteral("--version")} << 0;
    QTest::newRow("usage") << QStringList{QStringLiteral("--level=9")} << 2;
    QTest::newRow("cell") << QStringList{QStringLiteral("--cell"), QStringLiteral(".")} << 3;
}

void TestTour::exitCodes()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    const Run run(arguments);
    QVERIFY2(run.code == code, qPrintable(run.output + run.errors));
}

LASERWELD_CORE_TEST_MAIN(TestTour)
#include "tst_tour.moc"
