#include "TestCase.h"
#include "WeldCurves.h"
#include "WeldDataSamples.h"

#include <random>

using namespace pendant;

namespace {

int codeOf(ResultCode code)
{
    return static_cast<int>(code);
}

QJsonArray node(const QJsonValue& output, const QJsonValue& process)
{
    return {output, process};
}

/// Nodes on the line process = 2 * output + 1.
QJsonArray risingNodes(int count)
{
    QJsonArray nodes;
    for (int index = 0; index < count; ++index)
        nodes.append(node(index, 2 * index + 1));
    return nodes;
}

const WeldCurve& power()
{
    return weldCurves()[0];
}

double valueOf(const Result& result, const char* key)
{
    return result.values.value(QLatin1String(key)).toDouble();
}

void curveRows()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < 4; ++index)
        QTest::newRow(weldCurves()[static_cast<std::size_t>(index)].nodesKey) << index;
}

const WeldCurve& curveAt(int index)
{
    return weldCurves()[static_cast<std::size_t>(index)];
}

} // namespace

class WeldCurvesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void table_data();
    void table();
    void counts_data() { curveRows(); }
    void counts();
    void keys_data() { curveRows(); }
    void keys();
    void ranges_data() { curveRows(); }
    void ranges();
    void nodeTypes();
    void rising_data();
    void rising();
    void noObject();
    void line_data();
    void line();
    void lineOfEachCurve_data() { curveRows(); }
    void lineOfEachCurve();
    void leastSquares();
    void noLine_data();
    void noLine();
};

void WeldCurvesTest::table_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("numberKey");
    QTest::addColumn<QString>("nodesKey");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    const auto row = [](int index, const char* number, const char* nodes, int least, int most) {
        QTest::newRow(nodes) << index << QString(QLatin1String(number))
                             << QString(QLatin1String(nodes)) << least << most;
    };
    row(0, "laser_power_node", "power_nodes_data", 0, 65535);
    row(1, "laser_feed_node", "feed_nodes_data", 0, 65535);
    row(2, "laser_frequency_node", "frequency_nodes_data", 0, 65535);
    row(3, "laser_dutycycle_node", "dutycycle_nodes_data", 1, 100);
}

void WeldCurvesTest::table()
{
    QFETCH(int, index);
    QFETCH(QString, numberKey);
    QFETCH(QString, nodesKey);
    QFETCH(int, least);
    QFETCH(int, most);
    const WeldCurve& curve = curveAt(index);
    QCOMPARE(QLatin1String(curve.numberKey), numberKey);
    QCOMPARE(QLatin1String(curve.nodesKey), nodesKey);
    QCOMPARE(curve.least, least);
    QCOMPARE(curve.most, most);
}

void WeldCurvesTest::counts()
{
    QFETCH(int, index);
    const WeldCurve& curve = curveAt(index);
    for (int count = 0; count <= 12; ++count) {
        QJsonObject record = curveRecord(curve, risingNodes(count));
        const Result result = checkCurve(curve, record);
        const bool isGood = count >= 2 && count <= 10;
        QCOMPARE(result.code, isGood ? 0 : codeOf(ResultCode::OutOfRange));
        QCOMPARE(fitCurve(record).code, result.code);
        if (!isGood)
            continue;
        record.insert(QLatin1String(curve.nodesKey), risingNodes(count - 1));
        QCOMPARE(checkCurve(curve, record).code, codeOf(ResultCode::WrongCount));
        QCOMPARE(fitCurve(record).code, codeOf(ResultCode::WrongCount));
        record.insert(QLatin1String(curve.nodesKey), risingNodes(count + 1));
        QCOMPARE(checkCurve(curve, record).reason,
                 QStringLiteral("\"%1\" has %2 nodes; accepted: %3, as \"%4\" says")
                     .arg(QLatin1String(curve.nodesKey))
                     .arg(count + 1)
                     .arg(count)
                     .arg(QLatin1String(curve.numberKey)));
    }
}

void WeldCurvesTest::keys()
{
    QFETCH(int, index);
    const WeldCurve& curve = curveAt(index);
    const QJsonObject good = curveRecord(curve, risingNodes(3));
    const QVector<QJsonValue> values = everyJsonType();
    for (const char* key : {curve.numberKey, curve.nodesKey}) {
        QJsonObject record = good;
        for (const QJsonValue& value : values) {
            record.insert(QLatin1String(key), value);
            QVERIFY(!checkCurve(curve, record).isDone());
            QVERIFY(!fitCurve(record).isDone());
        }
        record.remove(QLatin1String(key));
        QCOMPARE(checkCurve(curve, record).code, codeOf(ResultCode::MissingKey));
        QCOMPARE(fitCurve(record).code, codeOf(ResultCode::MissingKey));
        // Either key tells which curve it is.
        QCOMPARE(fitCurve(record).reason, checkCurve(curve, record).reason);
    }
    QJsonObject more = good;
    more.insert(QStringLiteral("slope"), 2);
    QCOMPARE(checkCurve(curve, more).code, codeOf(ResultCode::UnknownKey));
    // The keys of another curve.
    const QJsonObject other = curveRecord(curveAt((index + 1) % 4), risingNodes(3));
    QCOMPARE(checkCurve(curve, other).code, codeOf(ResultCode::UnknownKey));
}

void WeldCurvesTest::ranges()
{
    QFETCH(int, index);
    const WeldCurve& curve = curveAt(index);
    const auto code = [&](const QJsonArray& first, const QJsonArray& second) {
        const QJsonObject record = curveRecord(curve, {first, second});
        return checkCurve(curve, record).code;
    };
    QCOMPARE(code(node(0, curve.least), node(65535.99, curve.most)), 0);
    QCOMPARE(code(node(0, curve.least), node(0.01, curve.least + 1)), 0);
    const int out = codeOf(ResultCode::OutOfRange);
    QCOMPARE(code(node(-0.01, curve.least), node(10, curve.most)), out);
    QCOMPARE(code(node(0, curve.least), node(65536, curve.most)), out);
    QCOMPARE(code(node(0, curve.least - 1), node(10, curve.most)), out);
    QCOMPARE(code(node(0, curve.least), node(10, curve.most + 1)), out);
    QCOMPARE(code(node(0, curve.least), node(10, curve.most - 0.5)), codeOf(ResultCode::WrongType));
    const QJsonObject record = curveRecord(curve, {node(0, curve.least), node(65536, curve.most)});
    QCOMPARE(checkCurve(curve, record).reason,
             QStringLiteral("\"%1[1][0]\": 65536 is out of range; accepted: number from 0 to "
                            "65535.99")
                 .arg(QLatin1String(curve.nodesKey)));
}

void WeldCurvesTest::nodeTypes()
{
    const auto code = [](const QJsonValue& each) {
        const QJsonObject record = curveRecord(power(), {node(0, 1), each});
        return checkCurve(power(), record).code;
    };
    QCOMPARE(code(QJsonArray()), codeOf(ResultCode::WrongCount));
    QCOMPARE(code(QJsonArray{1}), codeOf(ResultCode::WrongCount));
    QCOMPARE(code(QJsonArray{1, 2, 3}), codeOf(ResultCode::WrongCount));
    const QVector<QJsonValue> values = everyJsonType();
    for (const QJsonValue& value : values) {
        if (!value.isArray())
            QCOMPARE(code(value), codeOf(ResultCode::WrongType));
        if (value.isDouble())
            continue;
        QCOMPARE(code(node(value, 9)), codeOf(ResultCode::WrongType));
        QCOMPARE(code(node(9, value)), codeOf(ResultCode::WrongType));
    }
}

void WeldCurvesTest::rising_data()
{
    QTest::addColumn<QJsonArray>("nodes");
    QTest::addColumn<QString>("reason"); // empty: accepted
    QTest::newRow("rises") << QJsonArray{node(0, 0), node(0.01, 1), node(0.02, 2)} << QString();
    QTest::newRow("equal output")
        << QJsonArray{node(0, 0), node(2.5, 1), node(2.5, 2)}
        << QStringLiteral("\"power_nodes_data[2][0]\": 2.5 does not rise; accepted: more than 2.5");
    QTest::newRow("equal value")
        << QJsonArray{node(0, 7), node(1, 7), node(2, 9)}
        << QStringLiteral("\"power_nodes_data[1][1]\": 7 does not rise; accepted: more than 7");
    QTest::newRow("falls")
        << QJsonArray{node(65535.99, 1), node(65535.98, 2)}
        << QStringLiteral("\"power_nodes_data[1][0]\": 65535.98 does not rise; accepted: more than "
                          "65535.99");
    QTest::newRow("value falls")
        << QJsonArray{node(0, 9), node(1, 8)}
        << QStringLiteral("\"power_nodes_data[1][1]\": 8 does not rise; accepted: more than 9");
}

void WeldCurvesTest::rising()
{
    QFETCH(QJsonArray, nodes);
    QFETCH(QString, reason);
    const Result result = checkCurve(power(), curveRecord(power(), nodes));
    QCOMPARE(result.reason, reason);
    QCOMPARE(result.code, reason.isEmpty() ? 0 : codeOf(ResultCode::NotRising));
}

void WeldCurvesTest::noObject()
{
    QVector<QJsonValue> values = everyJsonType();
    values.append(QJsonValue(QJsonValue::Undefined));
    for (const QJsonValue& value : std::as_const(values)) {
        if (value.isObject())
            continue;
        QCOMPARE(checkCurve(power(), value).code, codeOf(ResultCode::WrongType));
        QCOMPARE(fitCurve(value).code, codeOf(ResultCode::WrongType));
    }
    QCOMPARE(fitCurve(QJsonObject()).code, codeOf(ResultCode::MissingKey));
}

void WeldCurvesTest::line_data()
{
    QTest::addColumn<QJsonArray>("nodes");
    QTest::addColumn<double>("slope");
    QTest::addColumn<double>("intercept");
    QTest::newRow("two") << QJsonArray{node(0, 1), node(10, 21)} << 2.0 << 1.0;
    QTest::newRow("ten") << risingNodes(10) << 2.0 << 1.0;
    QTest::newRow("beside the line")
        << QJsonArray{node(0, 0), node(1, 2), node(2, 1), node(3, 3)} << 0.8 << 0.3;
    QTest::newRow("level") << QJsonArray{node(0, 5), node(1, 5)} << 0.0 << 5.0;
    QTest::newRow("falling") << QJsonArray{node(0, 10), node(1, 8), node(2, 6)} << -2.0 << 10.0;
    QTest::newRow("any order") << QJsonArray{node(2, 5), node(0, 1), node(1, 3)} << 2.0 << 1.0;
    QTest::newRow("two at one output")
        << QJsonArray{node(1, 2), node(1, 4), node(3, 7)} << 2.0 << 1.0;
    QTest::newRow("far out") << QJsonArray{node(65535.97, 1), node(65535.99, 2)} << 50.0
                             << 1 - 50 * 65535.97;
}

void WeldCurvesTest::line()
{
    QFETCH(QJsonArray, nodes);
    QFETCH(double, slope);
    QFETCH(double, intercept);
    const Result result = fitCurve(curveRecord(power(), nodes));
    QCOMPARE(result.reason, QString());
    QCOMPARE(result.values.keys(),
             QStringList({QStringLiteral("intercept"), QStringLiteral("slope")}));
    const double near = 1e-8 * std::max(1.0, std::abs(intercept));
    QVERIFY(std::abs(valueOf(result, "slope") - slope) < near);
    QVERIFY(std::abs(valueOf(result, "intercept") - intercept) < near);
}

void WeldCurvesTest::lineOfEachCurve()
{
    QFETCH(int, index);
    const Result result = fitCurve(curveRecord(curveAt(index), risingNodes(5)));
    QVERIFY(std::abs(valueOf(result, "slope") - 2) < 1e-12);
    QVERIFY(std::abs(valueOf(result, "intercept") - 1) < 1e-12);
}

// No line near the one that is found has a smaller sum of squares.
void WeldCurvesTest::leastSquares()
{
    std::mt19937 random(5);
    std::uniform_int_distribution<int> value(0, 65535);
    for (int time = 0; time < 200; ++time) {
        QJsonArray nodes;
        for (int index = 0; index < 2 + time % 9; ++index)
            nodes.append(node(index + value(random) / 70000.0, value(random)));
        const Result result = fitCurve(curveRecord(power(), nodes));
        const auto squares = [&](double slope, double intercept) {
            double sum = 0;
            for (const QJsonValue& each : std::as_const(nodes)) {
                const double miss = each[1].toDouble() - slope * each[0].toDouble() - intercept;
                sum += miss * miss;
            }
            return sum;
        };
        const double slope = valueOf(result, "slope");
        const double intercept = valueOf(result, "intercept");
        const double least = squares(slope, intercept);
        for (double aside : {-10.0, 10.0}) {
            QVERIFY(least <= squares(slope + aside, intercept));
            QVERIFY(least <= squares(slope, intercept + aside));
            QVERIFY(least <= squares(slope + aside, intercept - aside));
        }
    }
}

void WeldCurvesTest::noLine_data()
{
    QTest::addColumn<QJsonArray>("nodes");
    QTest::newRow("the same node") << QJsonArray{node(0, 0), node(0, 0)};
    QTest::newRow("one output") << QJsonArray{node(0.1, 1), node(0.1, 2), node(0.1, 3)};
}

void WeldCurvesTest::noLine()
{
    QFETCH(QJsonArray, nodes);
    const Result result = fitCurve(curveRecord(power(), nodes));
    QCOMPARE(result.code, codeOf(ResultCode::NoLine));
    QVERIFY(result.values.isEmpty());
    QCOMPARE(result.reason, QStringLiteral("\"power_nodes_data\": all nodes have the output value "
                                           "%1; accepted: nodes that differ")
                                .arg(nodes.first()[0].toDouble()));
}

LASERWELD_CORE_TEST_MAIN(WeldCurvesTest)
#include "tst_weldcurves.moc"
