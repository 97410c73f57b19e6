#include "Skeleton.h"
#include "SkeletonForm.h"
#include "TestCase.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>

using namespace pendant;

namespace {

const QString WireFeed =
    QStringLiteral("LsWireFwd($Wire feed speed [1-100](mm/s):#spn#1,100#true$, "
                   "$Wire feed time [1-10000](ms):#spn#1,10000#true$);");
const QString Match =
    QStringLiteral("LsParaMatch($Sched:#cmb#\"PowerData1\"/\"PowerData2\"#true$);");

Skeleton parsed(const QString& text)
{
    SkeletonError error;
    const auto skeleton = Skeleton::parse(text, &error);
    if (!skeleton)
        qFatal("%s", qPrintable(error.text()));
    return *skeleton;
}

} // namespace

class TestSkeleton : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void numbers();
    void choice();
    void plain();
    void malformed_data();
    void malformed();
    void reads_data();
    void reads();
    void form();
    void formOfAChoice();
    void loads_data();
    void loads();
};

void TestSkeleton::numbers()
{
    const Skeleton skeleton = parsed(WireFeed);
    QCOMPARE(skeleton.literals(), QStringList({QStringLiteral("LsWireFwd("), QStringLiteral(", "),
                                               QStringLiteral(");")}));
    QCOMPARE(skeleton.fields().size(), 2);
    const SkeletonField& field = skeleton.fields().at(1);
    QCOMPARE(field.label, QStringLiteral("Wire feed time [1-10000](ms):"));
    QVERIFY(field.kind == SkeletonField::Kind::Number);
    QCOMPARE(field.minimum, 1);
    QCOMPARE(field.maximum, 10000);
    QVERIFY(field.flag);
}

void TestSkeleton::choice()
{
    const Skeleton skeleton = parsed(Match);
    QCOMPARE(skeleton.fields().size(), 1);
    QVERIFY(skeleton.fields().first().kind == SkeletonField::Kind::Choice);
    QCOMPARE(skeleton.fields().first().entries,
             QStringList({QStringLiteral("\"PowerData1\""), QStringLiteral("\"PowerData2\"")}));
    QCOMPARE(skeleton.write({QStringLiteral("\"PowerData2\"")}),
             QStringLiteral("LsParaMatch(\"PowerData2\");"));
}

void TestSkeleton::plain()
{
    const Skeleton skeleton = parsed(QStringLiteral("LaserOff();"));
    QVERIFY(skeleton.fields().isEmpty());
    QCOMPARE(skeleton.write({}), QStringLiteral("LaserOff();"));
    QCOMPARE(parsed(QString()).write({}), QString());
}

void TestSkeleton::malformed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* text, int offset, const char* reason) {
        QTest::newRow(text) << QString::fromLatin1(text) << offset << QString::fromLatin1(reason);
    };
    row("A($x#spn#1,2#true);", 2, "the field has no end");
    row("A($x#spn#1,2$);", 3, "a field has 4 parts, this one has 3");
    row("A($x#spn#1,2#true#x$);", 3, "a field has 4 parts, this one has 5");
    row("A($$);", 3, "a field has 4 parts, this one has 1");
    row("A($x#box#1,2#true$);", 5, "\"box\" is no kind of input");
    row("A($x#spn#1#true$);", 9, "a range is two numbers with a comma between");
    row("A($x#spn#1,2,3#true$);", 9, "a range is two numbers with a comma between");
    row("A($x#spn#1,b#true$);", 11, "\"b\" is no whole number");
    row("A($x#spn#1,99999999999#true$);", 11, "\"99999999999\" is no whole number");
    row("A($x#spn#2,1#true$);", 9, "the range ends before it begins");
    row("A($x#cmb##true$);", 9, "an entry of the list is empty");
    row("A($x#cmb#a//b#true$);", 11, "an entry of the list is empty");
    row("A($x#cmb#a#yes$);", 11, "\"yes\" is neither true nor false");
    row("A($x#cmb#a#true$, $", 18, "the field has no end");
}

void TestSkeleton::malformed()
{
    QFETCH(QString, text);
    QFETCH(int, offset);
    QFETCH(QString, reason);
    SkeletonError error;
    QVERIFY(!Skeleton::parse(text, &error));
    QCOMPARE(error.reason, reason);
    QCOMPARE(error.offset, offset);
    QCOMPARE(error.text(), QStringLiteral("at character %1: %2").arg(offset + 1).arg(reason));
}

void TestSkeleton::reads_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("values");
    const QStringList values{QStringLiteral("50"), QStringLiteral("1000")};
    QTest::newRow("as written") << QStringLiteral("LsWireFwd(50, 1000);") << values;
    QTest::newRow("without blanks") << QStringLiteral("LsWireFwd(50,1000);") << values;
    QTest::newRow("with blanks") << QStringLiteral("  LsWireFwd ( 50 ,\t1000 ) ; // x") << values;
    QTest::newRow("negative") << QStringLiteral("LsWireFwd(-5,1000);")
                              << QStringList({QStringLiteral("-5"), QStringLiteral("1000")});
    QTest::newRow("another") << QStringLiteral("LsWireBwd(50,1000);") << QStringList();
    QTest::newRow("too few") << QStringLiteral("LsWireFwd(50);") << QStringList();
    QTest::newRow("no number") << QStringLiteral("LsWireFwd(a,b);") << QStringList();
    QTest::newRow("wide blank") << QStringLiteral("LsWireFwd(50,\u30001000);") << values;
    QTest::newRow("other digits") << QStringLiteral("LsWireFwd(\uff15,1000);") << QStringList();
    QTest::newRow("empty") << QString() << QStringList();
}

void TestSkeleton::reads()
{
    QFETCH(QString, line);
    QFETCH(QStringList, values);
    const auto read = parsed(WireFeed).read(line);
    QCOMPARE(read.has_value(), !values.isEmpty());
    QCOMPARE(read.value_or(QStringList()), values);
}

void TestSkeleton::form()
{
    SkeletonForm form(parsed(WireFeed));
    auto* speed = child<QSpinBox>(&form, "input_1");
    QCOMPARE(speed->minimum(), 1);
    QCOMPARE(speed->maximum(), 100);
    speed->setValue(7);
    child<QSpinBox>(&form, "input_2")->setValue(10000);
    QCOMPARE(form.BuildText(), QStringLiteral("LsWireFwd(7, 10000);"));
    QStringList labels;
    const auto all = form.findChildren<QLabel*>();
    for (const QLabel* label : all)
        labels << label->text();
    QCOMPARE(labels, QStringList({QStringLiteral("Wire feed speed [1-100](mm/s):"),
                                  QStringLiteral("Wire feed time [1-10000](ms):")}));
}

void TestSkeleton::formOfAChoice()
{
    SkeletonForm form(parsed(Match));
    auto* box = child<QComboBox>(&form, "input_1");
    QCOMPARE(box->count(), 2);
    QCOMPARE(form.BuildText(), QStringLiteral("LsParaMatch(\"PowerData1\");"));
    box->setCurrentIndex(1);
    QCOMPARE(form.BuildText(), QStringLiteral("LsParaMatch(\"PowerData2\");"));
}

void TestSkeleton::loads_data()
{
    QTest::addColumn<QString>("skeleton");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QString& skeleton, const char* line,
                        const char* text) {
        QTest::newRow(name) << skeleton << QString::fromLatin1(line) << QString::fromLatin1(text);
    };
    row("numbers", WireFeed, " LsWireFwd( 50,1000 ); // x", "LsWireFwd(50, 1000);");
    row("beyond", WireFeed, "LsWireFwd(-5,99999999999999999999);", "LsWireFwd(1, 10000);");
    row("no number", WireFeed, "LsWireFwd(x, y);", "LsWireFwd(1, 1);");
    row("listed", Match, "LsParaMatch( \"PowerData2\" );", "LsParaMatch(\"PowerData2\");");
    row("not listed", Match, "LsParaMatch(\"Mine\");", "LsParaMatch(\"Mine\");");
    row("another", Match, "LaserOff();", "LsParaMatch(\"PowerData1\");");
}

void TestSkeleton::loads()
{
    QFETCH(QString, skeleton);
    QFETCH(QString, line);
    QFETCH(QString, text);
    SkeletonForm form(parsed(skeleton));
    form.FillWith(line);
    QCOMPARE(form.BuildText(), text);
}

LASERWELD_TEST_MAIN(TestSkeleton)
#include "tst_skeleton.moc"
