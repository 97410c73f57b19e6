#include "Cell.h"
#include "ControllerFixture.h"
#include "FullDisk.h"

#include <QJsonObject>

using namespace pendant;

namespace {

const QString tool0 = QStringLiteral("tool0");
const QString wobj0 = QStringLiteral("wobj0");
const QString newPoint = QStringLiteral("p10");

using List = QStringList (Controller::*)() const;

} // namespace

Q_DECLARE_METATYPE(List)

/// The robot's tools, work objects, speeds, zones and points.
class PointsTest : public ControllerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void newLists_data();
    void newLists();
    void newSelection();
    void selects();
    void unknownSelection();

    void adds();
    void positions();
    void refused_data();
    void refused();
    void taken();
    void fullDisk();
    void manyPoints();

    void disconnected();
};

void PointsTest::init()
{
    TestCase::init();
    makeCell();
}

void PointsTest::newLists_data()
{
    QTest::addColumn<List>("list");
    QTest::addColumn<QStringList>("expected"); // among others
    const auto row = [](const char* name, List list, const char* expected) {
        QTest::newRow(name) << list << QString(QLatin1String(expected)).split(QLatin1Char(' '));
    };
    row("tools", &Controller::tools, "tool0 laser_torch");
    row("work objects", &Controller::workObjects, "wobj0 fixture_a");
    row("speeds", &Controller::speeds, "v5 v100 v1000");
    row("zones", &Controller::zones, "fine z1 z100");
    row("points", &Controller::pointNames, "home p1 p5");
}

void PointsTest::newLists()
{
    QFETCH(List, list);
    QFETCH(QStringList, expected);
    const QStringList names = (controller().*list)();
    QCOMPARE(names.first(), expected.first());
    QCOMPARE(names.last().isEmpty(), false);
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
    for (const QString& name : std::as_const(expected))
        QVERIFY2(names.contains(name), qPrintable(name));
}

void PointsTest::newSelection()
{
    QVERIFY(controller().tools().contains(controller().currentTool()));
    QCOMPARE(controller().currentWorkObject(), wobj0);
}

void PointsTest::selects()
{
    const QSignalSpy changed(&controller(), &Controller::recordChanged);
    controller().setCurrentTool(QStringLiteral("gripper"));
    controller().setCurrentWorkObject(QStringLiteral("tray"));
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed.first(), QVariantList{QStringLiteral("selection")});
    reopen();
    QCOMPARE(controller().currentTool(), QStringLiteral("gripper"));
    QCOMPARE(controller().currentWorkObject(), QStringLiteral("tray"));
}

void PointsTest::unknownSelection()
{
    const QString before = controller().currentTool();
    const QSignalSpy changed(&controller(), &Controller::recordChanged);
    controller().setCurrentTool(QStringLiteral("Gripper"));
    controller().setCurrentWorkObject({});
    QCOMPARE(controller().currentTool(), before);
    QCOMPARE(controller().currentWorkObject(), wobj0);
    QVERIFY(changed.isEmpty());
    QCOMPARE(m_log.size(), 2);
    QVERIFY2(m_log.first().contains(QLatin1String("\"Gripper\". Choose a name")),
             qPrintable(m_log.first()));
}

void PointsTest::adds()
{
    const QStringList before = controller().pointNames();
    const QSignalSpy changed(&controller(), &Controller::pointsChanged);
    QString error;
    QVERIFY2(controller().addCurrentPoint(newPoint, tool0, wobj0, &error), qPrintable(error));
    QVERIFY(error.isEmpty());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_log, QStringList(QStringLiteral("add point \"p10\" done")));
    QCOMPARE(controller().pointNames(), before + QStringList(newPoint));
    reopen();
    QCOMPARE(controller().pointNames(), before + QStringList(newPoint));
}

/// What is stored with the name.
void PointsTest::positions()
{
    QVERIFY(controller().addCurrentPoint(newPoint, tool0, QStringLiteral("tray")));
    const QString copy = fileName() + QStringLiteral(".copy");
    QVERIFY(QFile::copy(fileName(), copy));
    QVERIFY(QFile::copy(fileName() + QStringLiteral("-wal"), copy + QStringLiteral("-wal")));
    QString error;
    const auto cell = Cell::open(copy, {}, {}, &error);
    QVERIFY2(cell, qPrintable(error));
    const QJsonArray points = cell->record(QStringLiteral("points")).toArray();
    const QJsonObject point = points.last().toObject();
    QCOMPARE(point.value(QLatin1String("name")), QJsonValue(newPoint));
    QCOMPARE(point.value(QLatin1String("tool")), QJsonValue(tool0));
    QCOMPARE(point.value(QLatin1String("work_object")), QJsonValue(QStringLiteral("tray")));
    const QJsonObject position = point.value(QLatin1String("position")).toObject();
    for (const char* axis : {"x", "y", "z", "a", "b", "c"})
        QVERIFY2(position.value(QLatin1String(axis)).isDouble(), axis);
    // The robot does not stand still.
    QVERIFY(position != points.first().toObject().value(QLatin1String("position")).toObject());
}

void PointsTest::refused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QString>("workObject");
    QTest::addColumn<QString>("reason");
    const QString none = QStringLiteral("none");
    const QString p1 = QStringLiteral("p1");
    QTest::newRow("no name") << QString() << tool0 << wobj0 << QStringLiteral("Give a name");
    QTest::newRow("call") << QStringLiteral("Offs(p1,1,2,3)") << tool0 << wobj0
                          << QStringLiteral("\"Offs(p1,1,2,3)\" cannot stand in a program");
    QTest::newRow("tool") << newPoint << none << wobj0
                          << QStringLiteral("\"tools\" has no \"none\". Choose");
    QTest::newRow("work object") << newPoint << tool0 << none
                                 << QStringLiteral("\"work_objects\" has no \"none\". Choose");
    QTest::newRow("taken") << p1 << tool0 << wobj0
                           << QStringLiteral("There is a point \"p1\" already. Choose another");
}

void PointsTest::refused()
{
    QFETCH(QString, name);
    QFETCH(QString, tool);
    QFETCH(QString, workObject);
    QFETCH(QString, reason);
    const QStringList before = controller().pointNames();
    const QSignalSpy changed(&controller(), &Controller::pointsChanged);
    QString error;
    QVERIFY(!controller().addCurrentPoint(name, tool, workObject, &error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY(!controller().addCurrentPoint(name, tool, workObject));
    QCOMPARE(controller().pointNames(), before);
    QVERIFY(changed.isEmpty());
    QVERIFY2(m_log.value(0).contains(error), qPrintable(m_log.value(0)));
}

void PointsTest::taken()
{
    QVERIFY(controller().addCurrentPoint(newPoint, tool0, wobj0));
    QVERIFY(!controller().addCurrentPoint(newPoint, tool0, wobj0));
    QVERIFY(controller().addCurrentPoint(newPoint.toUpper(), tool0, wobj0));
}

void PointsTest::fullDisk()
{
    const QStringList before = controller().pointNames();
    QString error;
    {
        const FullDisk full(1);
        QVERIFY(!controller().addCurrentPoint(newPoint, tool0, wobj0, &error));
        controller().setCurrentTool(QStringLiteral("gripper"));
    }
    QVERIFY2(error.contains(fileName()), qPrintable(error));
    QCOMPARE(controller().pointNames(), before);
    QVERIFY(controller().currentTool() != QLatin1String("gripper"));
    QVERIFY(controller().addCurrentPoint(newPoint, tool0, wobj0));
}

void PointsTest::manyPoints()
{
    const int before = controller().pointNames().size();
    for (int number = 0; number < 200; ++number)
        QVERIFY(controller().addCurrentPoint(QStringLiteral("q%1").arg(number), tool0, wobj0));
    reopen();
    QCOMPARE(controller().pointNames().size(), before + 200);
    QCOMPARE(controller().pointNames().last(), QStringLiteral("q199"));
}

void PointsTest::disconnected()
{
    controller().setConnected(false);
    for (const List list : {&Controller::tools, &Controller::workObjects, &Controller::speeds,
                            &Controller::zones, &Controller::pointNames})
        QVERIFY((controller().*list)().isEmpty());
    QVERIFY(controller().currentTool().isEmpty());
    QVERIFY(controller().currentWorkObject().isEmpty());
    QString error;
    QVERIFY(!controller().addCurrentPoint(newPoint, tool0, wobj0, &error));
    QVERIFY2(error.contains(QLatin1String("connection to the controller is down")),
             qPrintable(error));
    controller().setCurrentTool(QStringLiteral("gripper"));
    controller().setConnected(true);
    QVERIFY(controller().currentTool() != QLatin1String("gripper"));
    QVERIFY(!controller().pointNames().contains(newPoint));
}

LASERWELD_CORE_TEST_MAIN(PointsTest)
#include "tst_points.moc"
