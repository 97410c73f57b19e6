#include "NaturalSort.h"
#include "SortKeys.h"
#include "TestCase.h"

#include <algorithm>
#include <random>

namespace {

// The order of two names written out with a regular expression.
QStringList runsOf(const QString& name)
{
    static const QRegularExpression runs(QStringLiteral("([A-Za-z]+|\\d+)"));
    QStringList found;
    auto each = runs.globalMatch(name);
    while (each.hasNext())
        found << each.next().captured();
    return found;
}

bool isLessByExpression(const QString& a, const QString& b)
{
    const QStringList left = runsOf(a);
    const QStringList right = runsOf(b);
    for (int i = 0; i < std::min(left.size(), right.size()); ++i) {
        bool isNumber = false;
        bool isOtherNumber = false;
        const int number = left.at(i).toInt(&isNumber, 10);
        const int other = right.at(i).toInt(&isOtherNumber, 10);
        if (isNumber && isOtherNumber) {
            if (number != other)
                return number < other;
        } else if (left.at(i) != right.at(i)) {
            return left.at(i) < right.at(i);
        }
    }
    return left.size() < right.size();
}

QString pick(std::mt19937& random, const QStringList& list)
{
    return list.at(static_cast<int>(random() % static_cast<uint>(list.size())));
}

QStringList randomNames(uint seed, int count, const QStringList& pieces)
{
    std::mt19937 random(seed);
    QStringList names;
    for (int i = 0; i < count; ++i) {
        QString name;
        for (auto length = random() % 6; length > 0; --length)
            name += pick(random, pieces);
        names << name;
    }
    return names;
}

// Few pieces, so that the names share runs and starts; six of them make no number too long.
QStringList fittingPieces()
{
    return {QStringLiteral("a"),      QStringLiteral("B"),       QStringLiteral("ab"),
            QStringLiteral("_"),      QStringLiteral(" "),       QStringLiteral("1"),
            QStringLiteral("12_"),    QStringLiteral("07"),      QStringLiteral("-256-"),
            QStringLiteral("0"),      QStringLiteral(".65536."), QStringLiteral(".2147483647."),
            QStringLiteral("\u00e9"), QStringLiteral("\u0663"),  QStringLiteral("\u212a"),
            QStringLiteral("z"),      QStringLiteral("longword")};
}

QStringList shuffled(QStringList names, uint seed)
{
    std::shuffle(names.begin(), names.end(), std::mt19937(seed));
    return names;
}

QStringList ordered(QStringList names)
{
    std::sort(names.begin(), names.end());
    return names;
}

// Names of which most keys differ only behind their first bytes.
QStringList longNames()
{
    QStringList names;
    for (int i = 0; i < 300; ++i)
        names << QStringLiteral("weld_register_of_cell_%1_bit%2").arg(i / 16).arg(i % 16)
              << QStringLiteral("system_signal_number_%1").arg(i)
              << QStringLiteral("weld_register_of_cell_%1").arg(i % 7);
    return names;
}

} // namespace

class NaturalSortTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void ordersTwoNames_data();
    void ordersTwoNames();
    void agreesWithTheExpression();
    void sorts_data();
    void sorts();
    void sortsAsThePairsSay_data();
    void sortsAsThePairsSay();
    void keepsEqualNamesInTheirOrder();
    void keepsDuplicates();
    void circleIsDefined();
    void longDigitsAreDefined();
    void noNamesHaveKeys();
};

void NaturalSortTest::ordersTwoNames_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<int>("order");

    const auto row = [](const char* a, const char* b, int order) {
        QTest::addRow("%s | %s", a, b) << QString::fromUtf8(a) << QString::fromUtf8(b) << order;
    };
    row("", "", 0);
    row("", "a", -1);
    row("_", "", 0);
    row("_", "1", -1);
    row("DI2", "DI10", -1);
    row("R9", "R10", -1);
    row("a2b", "a10", -1);
    row("1", "A", -1);
    row("9", "a", -1);
    row("10", "a", -1);
    row("A", "a", -1);
    row("Z", "a", -1);
    row("DI", "DI1", -1);
    row("DI_1", "DI1", 0);
    row("D I 1", "DI1", -1); // three runs against two: "D" before "DI"
    row("AB_C", "AB_D", -1);
    row("AB_Z", "ABC", -1); // "AB" before "ABC"
    row("AB_C", "ABC", -1);
    row("7", "007", 0);
    row("7a", "007b", -1);
    row("7b", "007a", 1);
    row("000000000000000000000000000012", "13", -1);
    row("2147483646", "2147483647", -1);
    row("2147483648", "3", -1); // text from here on
    row("2147483647", "3", 1);  // numbers
    row("9", "10", -1);         // the circle,
    row("10", "5999999999999", -1);
    row("5999999999999", "9", -1); // and back
    row("99999999999", "99999999999a", -1);
    row("99999999999_1", "99999999999_2", -1);
    row("007", "5999999999999", -1); // the digits as they stand: "0" before "5"
    row("7", "5999999999999", 1);
    row("99999999999", "a", -1);
    row("\u00e9a", "a", 0);
    row("\u06631", "1", 0); // only ASCII digits count
    row("x\u00e9y", "xy", -1);
}

void NaturalSortTest::ordersTwoNames()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, order);

    QCOMPARE(naturallyLess(a, b), order < 0);
    QCOMPARE(naturallyLess(b, a), order > 0);
}

void NaturalSortTest::agreesWithTheExpression()
{
    const QStringList pieces = fittingPieces()
                               << QStringLiteral("2147483648") << QStringLiteral("5999999999999");
    const QStringList names = randomNames(1, 300, pieces);
    for (const QString& a : names) {
        for (const QString& b : names)
            QVERIFY2(naturallyLess(a, b) == isLessByExpression(a, b),
                     qPrintable(a + QStringLiteral(" | ") + b));
    }
}

void NaturalSortTest::sorts_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("sorted");

    const auto row = [](const char* given, const char* sorted) {
        QTest::newRow(given) << QString::fromUtf8(given) << QString::fromUtf8(sorted);
    };
    row("R10 R9 R1", "R1 R9 R10");
    row("a10 a2b", "a2b a10");
    row("A 1", "1 A");
    row("DI10 AI2 DI2 AI10", "AI2 AI10 DI2 DI10");
    row("AB_Z ABC AB1 AB AB_C", "AB AB1 AB_C AB_Z ABC");
    row("x256 x255 x65536 x0 x", "x x0 x255 x256 x65536");
    // Runs too long for an int are text, and here no circle arises.
    row("R9 R10000000000", "R10000000000 R9");
    row("R9999999999 R10000000000", "R10000000000 R9999999999");
    row("R20000000000 A2 A10 A1", "A1 A2 A10 R20000000000");
}

void NaturalSortTest::sorts()
{
    QFETCH(QString, given);
    QFETCH(QString, sorted);

    const QStringList names = given.split(QLatin1Char(' '));
    const QStringList expected = sorted.split(QLatin1Char(' '));
    QCOMPARE(naturallySorted(names), expected);
    QCOMPARE(naturallySorted(expected), expected);
    QCOMPARE(names, given.split(QLatin1Char(' ')));
}

void NaturalSortTest::sortsAsThePairsSay_data()
{
    QTest::addColumn<QStringList>("names");

    QTest::newRow("none") << QStringList();
    QTest::newRow("one") << QStringList{QStringLiteral("DI1")};
    QTest::newRow("null and empty") << QStringList{QString(), QLatin1String(""), QString()};
    QTest::newRow("long starts") << longNames();
    for (uint seed = 1; seed <= 5; ++seed) {
        QTest::addRow("random %u", seed) << randomNames(seed, 400, fittingPieces());
        QTest::addRow("few %u", seed) << randomNames(seed, 20, fittingPieces());
    }
}

void NaturalSortTest::sortsAsThePairsSay()
{
    QFETCH(QStringList, names);

    names = shuffled(names, 7);
    QStringList expected = names;
    std::stable_sort(expected.begin(), expected.end(), isLessByExpression);
    QCOMPARE(naturallySorted(names), expected);
}

void NaturalSortTest::keepsEqualNamesInTheirOrder()
{
    const QStringList names{QStringLiteral("DI2"), QStringLiteral("DI_1"), QStringLiteral("DI01"),
                            QStringLiteral("DI1")};
    const QStringList expected{names.at(1), names.at(2), names.at(3), names.at(0)};
    QCOMPARE(naturallySorted(names), expected);
}

void NaturalSortTest::keepsDuplicates()
{
    QStringList names;
    for (int i = 0; i < 200; ++i)
        names << QStringLiteral("a_register_with_a_long_name_%1").arg(i % 3);
    const QStringList sorted = naturallySorted(names);
    QCOMPARE(sorted, ordered(names));
}

void NaturalSortTest::circleIsDefined()
{
    const QStringList circle{QStringLiteral("9"), QStringLiteral("10"),
                             QStringLiteral("5999999999999")};
    const QStringList sorted = naturallySorted(circle);
    QCOMPARE(ordered(sorted), ordered(circle));
    QStringList other = ordered(circle);
    do
        QCOMPARE(naturallySorted(other), sorted);
    while (std::next_permutation(other.begin(), other.end()));
}

void NaturalSortTest::longDigitsAreDefined()
{
    const QStringList pieces = fittingPieces()
                               << QStringLiteral("_2147483648_") << QStringLiteral("9")
                               << QStringLiteral("10") << QStringLiteral("5999999999999");
    const QStringList names = randomNames(3, 1000, pieces);
    const QStringList sorted = naturallySorted(names);
    QCOMPARE(ordered(sorted), ordered(names));
    for (int i = 1; i < sorted.size(); ++i)
        QVERIFY(!naturallyLess(sorted.at(i), sorted.at(i - 1)));
    QCOMPARE(naturallySorted(shuffled(names, 5)), sorted);
}

void NaturalSortTest::noNamesHaveKeys()
{
    const auto keys = SortKeys::of({});
    QVERIFY(keys);
    QVERIFY(keys->sortedIndexes().empty());
}

LASERWELD_CORE_TEST_MAIN(NaturalSortTest)
#include "tst_naturalsort.moc"
