#include "Numbers.h"

#include "TestCase.h"

#include <limits>

class TestNumbers : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void truncated_data();
    void truncated();
};

void TestNumbers::truncated_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("whole");
    QTest::newRow("zero") << 0.0 << 0;
    QTest::newRow("fraction") << 2500.7 << 2500;
    QTest::newRow("negative fraction") << -2.9 << -2;
    QTest::newRow("largest") << 2147483647.0 << std::numeric_limits<int>::max();
    QTest::newRow("above") << 1e300 << std::numeric_limits<int>::max();
    QTest::newRow("below") << -1e300 << std::numeric_limits<int>::min();
    QTest::newRow("infinite") << qInf() << std::numeric_limits<int>::max();
    QTest::newRow("no number") << qQNaN() << 0;
}

void TestNumbers::truncated()
{
    QFETCH(double, number);
    QTEST(truncatedToInt(number), "whole");
}

LASERWELD_CORE_TEST_MAIN(TestNumbers)
#include "tst_numbers.moc"
