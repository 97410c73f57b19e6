#include "ScriptedHost.h"
#include "TestCase.h"
#include "WeldioSignals.h"
#include "WeldioTest.h"

#include <QCoreApplication>

using namespace WeldioTest;

namespace {

const WeldioSignalDef* definition(int row)
{
    const bool output = row < OutputCount;
    const QVector<WeldioSignalDef>& table =
        output ? WeldioSignals::outputs() : WeldioSignals::inputs();
    return &table.at(output ? row : row - OutputCount);
}

/// The call by which the source asks for a kind, repeated.
QStringList callsFor(const Kind& kind)
{
    QStringList calls;
    for (int time = 0; time < kind.times; ++time)
        calls << text(kind.call);
    return calls;
}

QStringList asked(const ScriptedHost& host)
{
    QStringList calls;
    for (const ScriptedHost::Call& call : host.calls)
        calls << QString(call.name + " "_s + call.arguments.at(0).toString()).trimmed();
    return calls;
}

} // namespace

class TestWeldioSignals : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tablesAreWhole();
    void tablesAreBuiltOnce();
    void definitions_data();
    void definitions();
    void captionIsTranslated_data();
    void captionIsTranslated();
    void typeItems_data();
    void typeItems();
    void sources_data();
    void sources();
    void sourceOffersWhatFits_data();
    void sourceOffersWhatFits();
};

void TestWeldioSignals::tablesAreWhole()
{
    QCOMPARE(WeldioSignals::outputs().size(), 15);
    QCOMPARE(WeldioSignals::inputs().size(), 9);
}

void TestWeldioSignals::tablesAreBuiltOnce()
{
    QCOMPARE(&WeldioSignals::outputs(), &WeldioSignals::outputs());
    QCOMPARE(&WeldioSignals::inputs(), &WeldioSignals::inputs());
    QVERIFY(&WeldioSignals::outputs() != &WeldioSignals::inputs());
}

void TestWeldioSignals::definitions_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(Signals)); ++row)
        QTest::newRow(Signals[row].key) << row;
}

void TestWeldioSignals::definitions()
{
    QFETCH(int, row);
    const Signal& signal = Signals[row];
    const WeldioSignalDef* actual = definition(row);
    QCOMPARE(actual->key, signal.key);
    QCOMPARE(actual->caption, signal.caption);
    QCOMPARE(actual->enabledKey == nullptr, signal.enabledKey == nullptr);
    QCOMPARE(actual->enabledKey, signal.enabledKey);
    QCOMPARE(int(actual->typeCode), signal.typeCode);
    QCOMPARE(actual->digital, signal.digital);
    QCOMPARE(actual->hasSwitch, signal.hasSwitch);
    QCOMPARE(actual->portRequired, signal.portRequired);
    QCOMPARE(actual->portCounted, signal.portCounted);
    QCOMPARE(actual->isOutput, isOutput(signal));
    QVERIFY(actual->portSource);
}

void TestWeldioSignals::captionIsTranslated_data()
{
    definitions_data();
}

void TestWeldioSignals::captionIsTranslated()
{
    QFETCH(int, row);
    const ChineseTranslator translator;
    QCOMPARE(WeldioPage::tr(definition(row)->caption), chinese(Signals[row].caption));
}

void TestWeldioSignals::typeItems_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QStringList>("items");
    QTest::newRow("analogue output") << 0 << QStringList{"AO"_s, "GO"_s, "REG"_s};
    QTest::newRow("digital output") << 1 << QStringList{"DO"_s, "REG"_s};
    QTest::newRow("group output") << 2 << QStringList{"GO"_s, "REG"_s};
    QTest::newRow("analogue input") << 3 << QStringList{"AI"_s, "GI"_s, "REG"_s};
    QTest::newRow("digital input") << 4 << QStringList{"DI"_s, "REG"_s};
    QTest::newRow("beyond") << 5 << QStringList();
    QTest::newRow("below") << -1 << QStringList();
    QTest::newRow("largest") << std::numeric_limits<int>::max() << QStringList();
}

void TestWeldioSignals::typeItems()
{
    QFETCH(int, code);
    QFETCH(QStringList, items);
    QCOMPARE(WeldioSignals::typeItems(code), items);
}

void TestWeldioSignals::sources_data()
{
    definitions_data();
}

// An index that is none of the kinds reads the registers of a signal of three kinds, and the ports
// of one of two.
void TestWeldioSignals::sources()
{
    QFETCH(int, row);
    ScriptedHost host;
    furnish(host);
    const QVector<Kind> all = kinds(Signals[row].typeCode);
    const Kind& other = all.size() == 3 ? all.at(2) : all.at(0);
    for (const int index : {-1, 0, 1, 2, 3, std::numeric_limits<int>::max()}) {
        host.forgetCalls();
        definition(row)->portSource(index);
        const bool isKind = index >= 0 && index < all.size();
        QCOMPARE(asked(host), callsFor(isKind ? all.at(index) : other));
    }
}

void TestWeldioSignals::sourceOffersWhatFits_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("names");
    const auto ports = [](const char* kind) -> QStringList { return offered(kind).mid(1); };
    const QStringList writable{"WI1"_s, "WI2"_s, "WN1"_s};
    QTest::newRow("power AO") << 1 << 0 << ports("AO");
    QTest::newRow("power GO") << 1 << 1 << ports("GO");
    QTest::newRow("power REG") << 1 << 2 << writable;
    QTest::newRow("laser_enable DO") << 0 << 0 << ports("DO");
    QTest::newRow("laser_enable REG") << 0 << 1 << QStringList{"WB1"_s, "WB2"_s};
    QTest::newRow("swing_job GO") << 13 << 0 << ports("GO");
    QTest::newRow("swing_job REG") << 13 << 1 << QStringList{"WI1"_s, "WI2"_s};
    QTest::newRow("power_feedback AI") << 15 << 0 << ports("AI");
    QTest::newRow("power_feedback GI") << 15 << 1 << ports("GI");
    QTest::newRow("power_feedback REG") << 15 << 2 << QStringList{"RI1"_s, "RN1"_s};
    QTest::newRow("light_feedback DI") << 16 << 0 << ports("DI");
    QTest::newRow("light_feedback REG") << 16 << 1 << QStringList{"RB1"_s, "RB2"_s};
}

void TestWeldioSignals::sourceOffersWhatFits()
{
    QFETCH(int, row);
    QFETCH(int, index);
    QFETCH(QStringList, names);
    ScriptedHost host;
    furnish(host);
    QCOMPARE(definition(row)->portSource(index), names);
}

LASERWELD_TEST_MAIN(TestWeldioSignals)
#include "tst_weldiosignals.moc"
