#include "FaultPanel.h"
#include "FaultTable.h"
#include "TestCase.h"
#include "TestCell.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QSignalSpy>
#include <QSpinBox>

using namespace pendant;

class TestFaultPanel : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyFaultCanBeTurned_data();
    void everyFaultCanBeTurned();
    void showsWhatTheControllerHolds();
    void connectionAndPower();
    void followsTheController();
    void workModeAtTheController();
};

void TestFaultPanel::everyFaultCanBeTurned_data()
{
    QTest::addColumn<int>("row");
    for (size_t row = 0; row < faultRows().size(); ++row)
        QTest::newRow(faultRows()[row].name) << static_cast<int>(row);
}

void TestFaultPanel::everyFaultCanBeTurned()
{
    QFETCH(int, row);
    const FaultRow& fault = faultRows()[static_cast<size_t>(row)];
    const QByteArray name = QByteArray("fault_") + fault.name;
    TestCell cell;
    FaultPanel panel(*cell);
    panel.show();
    const QSignalSpy changed(&panel, &FaultPanel::faultsChanged);
    if (fault.flag) {
        child<QCheckBox>(&panel, name.constData())->click();
        QVERIFY(cell->faults().*fault.flag);
    } else if (fault.choices) {
        auto* box = child<QComboBox>(&panel, name.constData());
        QCOMPARE(box->count(), fault.maximum + 1);
        QTest::keyClick(box, Qt::Key_End);
        QCOMPARE(cell->faults().*fault.number, fault.maximum);
    } else {
        child<QSpinBox>(&panel, name.constData())->setValue(fault.maximum);
        QCOMPARE(cell->faults().*fault.number, fault.maximum);
    }
    QCOMPARE(changed.size(), 1);
}

void TestFaultPanel::showsWhatTheControllerHolds()
{
    TestCell cell;
    Faults faults;
    faults.wrongTypes = true;
    faults.replyDelay = 70;
    cell->setFaults(faults);
    FaultPanel panel(*cell);
    panel.show();
    QVERIFY(child<QCheckBox>(&panel, "fault_wrong-types")->isChecked());
    QVERIFY(!child<QCheckBox>(&panel, "fault_empty-reply")->isChecked());
    QCOMPARE(child<QSpinBox>(&panel, "fault_reply-delay")->value(), 70);
    QCOMPARE(child<QSpinBox>(&panel, "fault_return-code")->value(), 0);
}

void TestFaultPanel::connectionAndPower()
{
    TestCell cell;
    FaultPanel panel(*cell);
    panel.show();
    child<QCheckBox>(&panel, "switch_connection")->click();
    QVERIFY(!cell->isConnected());
    child<QCheckBox>(&panel, "switch_connection")->click();
    QVERIFY(cell->isConnected());
    child<QCheckBox>(&panel, "switch_power")->click();
    QVERIFY(cell->isPowered());
}

void TestFaultPanel::followsTheController()
{
    TestCell cell;
    FaultPanel panel(*cell);
    panel.show();
    cell->setPowered(true);
    QVERIFY(child<QCheckBox>(&panel, "switch_power")->isChecked());
    cell->setConnected(false);
    QVERIFY(child<QCheckBox>(&panel, "switch_connection")->isChecked());
}

void TestFaultPanel::workModeAtTheController()
{
    TestCell cell;
    FaultPanel panel(*cell);
    panel.show();
    auto* box = child<QCheckBox>(&panel, "switch_virtual");
    QVERIFY(!box->isChecked());
    box->click();
    QVERIFY(cell->serviceData(QStringLiteral("laser_weld_data.virtual_welding_status")).toBool());
    box->click();
    QVERIFY(!cell->serviceData(QStringLiteral("laser_weld_data.virtual_welding_status")).toBool());
}

LASERWELD_TEST_MAIN(TestFaultPanel)
#include "tst_faultpanel.moc"
