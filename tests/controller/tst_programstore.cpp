#include "ControllerFixture.h"
#include "FullDisk.h"
#include "ProgramStore.h"

using namespace pendant;

namespace {

const QString seam = QStringLiteral("example_seam");
const QString ring = QStringLiteral("example_ring");
const QString fresh = QStringLiteral("fresh");

using Operation = bool (*)(Controller& controller, QString* error);

} // namespace

Q_DECLARE_METATYPE(Operation)

/// Robot programs as the controller keeps them.
class ProgramStoreTest : public ControllerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void examples();
    void examplesNameWhatThereIs();
    void saves();
    void savesUnderNewName();
    void creates();
    void renames();
    void renamesInCaseOnly();
    void removes();
    void refused_data();
    void refused();
    void tooLarge();
    void unknownIsNotRead();
    void manyLines();
    void disconnected_data();
    void disconnected();
    void fullDisk_data();
    void fullDisk();

private:
    QByteArray text(const QString& name) const;
    QMap<QString, QByteArray> all() const;
    void addOperations();
};

void ProgramStoreTest::init()
{
    TestCase::init();
    makeCell();
}

QByteArray ProgramStoreTest::text(const QString& name) const
{
    QByteArray text("unread");
    return controller().readProgram(name, &text) ? text : QByteArray("none");
}

QMap<QString, QByteArray> ProgramStoreTest::all() const
{
    QMap<QString, QByteArray> programs;
    const QStringList names = controller().programs();
    for (const QString& name : names)
        programs.insert(name, text(name));
    return programs;
}

void ProgramStoreTest::examples()
{
    QCOMPARE(controller().programs(), QStringList({ring, seam}));
    const QByteArray both = text(ring) + text(seam);
    for (const char* line :
         {"LaserOn(\"LsData1\");", "LaserOff();", "LsParaSet(\"LsData1\");", "LsWireFwd(50,1000);",
          "LsWireBwd(50,1000);", "LsParaMatch(\"PowerData1\");", "LsParaMatchOff();",
          "LsMoveL(p1, v100, fine, tool0, wobj0);"})
        QVERIFY2(both.contains('\n' + QByteArray(line) + '\n'), line);
    for (const char* part : {"// ", "LsMoveC(", "LsMoveCF(", "Offs(", "RelTool("})
        QVERIFY2(both.contains(part), part);
}

void ProgramStoreTest::examplesNameWhatThereIs()
{
    const Controller& robot = controller();
    const QStringList known =
        robot.pointNames() + robot.speeds() + robot.zones() + robot.tools() + robot.workObjects();
    const QString both = QString::fromUtf8(text(ring) + text(seam));
    const QRegularExpression name(QStringLiteral("(?<=[(, ])(home|[pvz]\\d+|tool\\w+|wobj\\w+)"
                                                 "(?=[,)])"));
    auto found = name.globalMatch(both);
    int count = 0;
    for (; found.hasNext(); ++count) {
        const QString word = found.next().captured(1);
        QVERIFY2(known.contains(word), qPrintable(word));
    }
    QVERIFY(count > 20);
}

void ProgramStoreTest::saves()
{
    const QSignalSpy changed(&controller(), &Controller::programsChanged);
    const QByteArray bytes("LaserOn(\"LsData2\");\r\n\xff no line end", 34);
    QString error;
    QVERIFY2(controller().saveProgram(seam, bytes, &error), qPrintable(error));
    QVERIFY(error.isEmpty());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_log, QStringList(QStringLiteral("save program \"example_seam\" done")));
    reopen();
    QCOMPARE(text(seam), bytes);
    QCOMPARE(controller().programs(), QStringList({ring, seam}));
}

void ProgramStoreTest::savesUnderNewName()
{
    QVERIFY(controller().saveProgram(fresh, "a"));
    QCOMPARE(controller().programs(), QStringList({ring, seam, fresh}));
    QCOMPARE(text(fresh), QByteArray("a"));
}

void ProgramStoreTest::creates()
{
    const QSignalSpy changed(&controller(), &Controller::programsChanged);
    QVERIFY(controller().createProgram(fresh));
    QCOMPARE(changed.size(), 1);
    reopen();
    QCOMPARE(controller().programs(), QStringList({ring, seam, fresh}));
    QCOMPARE(text(fresh), QByteArray());
}

void ProgramStoreTest::renames()
{
    const QByteArray bytes = text(seam);
    const QSignalSpy changed(&controller(), &Controller::programsChanged);
    QVERIFY(controller().renameProgram(seam, fresh));
    QCOMPARE(changed.size(), 1);
    reopen();
    QCOMPARE(controller().programs(), QStringList({ring, fresh}));
    QCOMPARE(text(fresh), bytes);
}

void ProgramStoreTest::renamesInCaseOnly()
{
    QVERIFY(controller().renameProgram(seam, seam.toUpper()));
    QCOMPARE(controller().programs(), QStringList({ring, seam.toUpper()}));
}

void ProgramStoreTest::removes()
{
    const QSignalSpy changed(&controller(), &Controller::programsChanged);
    QVERIFY(controller().removeProgram(seam));
    QVERIFY(controller().removeProgram(ring));
    QCOMPARE(changed.size(), 2);
    reopen();
    QVERIFY2(controller().programs().isEmpty(), "the examples have come back");
}

void ProgramStoreTest::refused_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const char* reason, Operation operation) {
        QTest::newRow(name) << operation << QString(QLatin1String(reason));
    };
    row("create taken", "There is a program \"example_seam\" already. Choose another name",
        [](Controller& robot, QString* error) { return robot.createProgram(seam, error); });
    row("create bad", "\"a\\nb\" holds a control character. Leave it out",
        [](Controller& robot, QString* error) {
            return robot.createProgram(QStringLiteral("a\nb"), error);
        });
    row("save bad", "is empty. Give a name",
        [](Controller& robot, QString* error) { return robot.saveProgram({}, "a", error); });
    row("rename none", "There is no program \"fresh\". Choose one",
        [](Controller& robot, QString* error) {
            return robot.renameProgram(fresh, QStringLiteral("new"), error);
        });
    row("rename to taken", "There is a program \"example_ring\" already",
        [](Controller& robot, QString* error) { return robot.renameProgram(seam, ring, error); });
    row("rename to itself", "There is a program \"example_seam\" already",
        [](Controller& robot, QString* error) { return robot.renameProgram(seam, seam, error); });
    row("rename to bad", "has 65 characters", [](Controller& robot, QString* error) {
        return robot.renameProgram(seam, QString(65, QLatin1Char('x')), error);
    });
    row("remove none", "There is no program \"fresh\". Choose one",
        [](Controller& robot, QString* error) { return robot.removeProgram(fresh, error); });
}

void ProgramStoreTest::refused()
{
    QFETCH(Operation, operation);
    QFETCH(QString, reason);
    const auto before = all();
    const QSignalSpy changed(&controller(), &Controller::programsChanged);
    QString error;
    QVERIFY(!operation(controller(), &error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY(!operation(controller(), nullptr));
    QVERIFY(changed.isEmpty());
    QVERIFY2(m_log.value(0).contains(error), qPrintable(m_log.value(0)));
    QCOMPARE(all(), before);
}

void ProgramStoreTest::tooLarge()
{
    QString error;
    const QByteArray largest(ProgramStore::largest + 1, ' ');
    QVERIFY(!controller().saveProgram(fresh, largest, &error));
    QVERIFY2(error.contains(QLatin1String("\"fresh\" has 67108865 bytes. Divide it")),
             qPrintable(error));
    QVERIFY(!controller().programs().contains(fresh));
}

void ProgramStoreTest::unknownIsNotRead()
{
    QByteArray bytes("before");
    QVERIFY(!controller().readProgram(fresh, &bytes));
    QVERIFY(!controller().readProgram({}, &bytes));
    QVERIFY(!controller().readProgram(seam.toUpper(), &bytes));
}

void ProgramStoreTest::manyLines()
{
    const QByteArray line("LsMoveL(p1, v100, fine, tool0, wobj0);\n");
    const QByteArray bytes = line.repeated(100000);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(controller().saveProgram(fresh, bytes));
    const qint64 saved = clock.restart();
    QCOMPARE(text(fresh), bytes);
    const qint64 read = clock.elapsed();
    reopen();
    QCOMPARE(text(fresh), bytes);
    qInfo("%d bytes: saved in %d ms, read in %d ms", bytes.size(), int(saved), int(read));
}

void ProgramStoreTest::addOperations()
{
    QTest::addColumn<Operation>("operation");
    const auto row = [](const char* name, Operation operation) {
        QTest::newRow(name) << operation;
    };
    row("save", [](Controller& robot, QString* error) {
        return robot.saveProgram(seam, QByteArray(100000, 'x'), error);
    });
    row("create",
        [](Controller& robot, QString* error) { return robot.createProgram(fresh, error); });
    row("rename",
        [](Controller& robot, QString* error) { return robot.renameProgram(seam, fresh, error); });
    row("remove",
        [](Controller& robot, QString* error) { return robot.removeProgram(seam, error); });
}

void ProgramStoreTest::disconnected_data()
{
    addOperations();
}

void ProgramStoreTest::disconnected()
{
    QFETCH(Operation, operation);
    const auto before = all();
    controller().setConnected(false);
    QString error;
    QVERIFY(!operation(controller(), &error));
    QVERIFY2(error.contains(QLatin1String("is down. Bring it up")), qPrintable(error));
    QVERIFY(controller().programs().isEmpty());
    QByteArray bytes;
    QVERIFY(!controller().readProgram(seam, &bytes));
    controller().setConnected(true);
    QCOMPARE(all(), before);
}

void ProgramStoreTest::fullDisk_data()
{
    addOperations();
}

void ProgramStoreTest::fullDisk()
{
    QFETCH(Operation, operation);
    const auto before = all();
    QString error;
    {
        const FullDisk full(1);
        QVERIFY(!operation(controller(), &error));
    }
    QVERIFY2(error.contains(fileName()) && error.contains(QLatin1String("left as it was")),
             qPrintable(error));
    QCOMPARE(all(), before);
    QVERIFY2(operation(controller(), &error), qPrintable(error));
}

LASERWELD_CORE_TEST_MAIN(ProgramStoreTest)
#include "tst_programstore.moc"
