// Every command of the plugin under every fault of its reply, as docs/faults.md tells it.

#include "Deeds.h"
#include "FaultBench.h"
#include "FaultDocument.h"
#include "FaultTable.h"
#include "TestCase.h"

#include <QFile>
#include <QHash>
#include <QLoggingCategory>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace {

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromUtf8(text, int(size));
}

/// A fault: its name in the tables, and what turns it on at the pendant.
struct FaultCase
{
    const char* name;
    const char* option;
    const char* meaning;
};

constexpr FaultCase FaultCases[] = {
    {"none", "", "all is well"},
    {"long delay", "reply-delay=60000", "the reply comes after a minute"},
    {"refused", "return-code=5",
     R"(the controller refuses: "return" is 5, at the main switch `false`)"},
    {"no reply", "no-reply", "the command gets lost; the reply is an empty array"},
    {"empty array", "empty-reply", "the reply is an empty array"},
    {"other types", "element-types",
     R"(the reply is `[null, true, 7, "done", [], {}]`: no element is an answer)"},
    {"another plugin", "foreign-reply", "the reply stands under another plugin's name"},
    {"no “return”", "missing-return", "the command's object is empty"},
    {"wrong types", "wrong-types",
     "texts stand for numbers, numbers for texts and for `true` and `false`"},
    {"`null`", "return-value=null", "is in the place of each value of the answer"},
    {"`true`", "return-value=true", "the same"},
    {"`false`", "return-value=false", "the same"},
    {"`\"0\"`", "return-value=text-0", "the same"},
    {"`\"7\"`", "return-value=text-7", "the same"},
    {"`\"done\"`", "return-value=text", "the same"},
    {"`2.5`", "return-value=fraction", "the same"},
    {"`-1`", "return-value=negative", "the same"},
    {"`1e300`", "return-value=huge", "the same"},
    {"`[7]`", "return-value=array", "the same"},
    {"`{\"code\": 7}`", "return-value=object", "the same"},
    {"lost before", "lost-before", "the connection drops before the command is carried out"},
    {"lost after", "lost-after", "the connection drops after the command was carried out"},
};
constexpr int NoFault = 0;
constexpr int LongDelay = 1;
constexpr unsigned long DelayMilliseconds = 60000;

pendant::Faults faultsOf(const FaultCase& fault)
{
    pendant::Faults faults;
    const QString option = QString::fromLatin1(fault.option);
    const QString complaint = option.isEmpty() ? QString() : applyFault(option, &faults);
    if (!complaint.isEmpty())
        qFatal("%s", qPrintable(complaint));
    return faults;
}

QStringList faultNames()
{
    QStringList names;
    for (const FaultCase& each : FaultCases)
        names << QString::fromUtf8(each.name);
    return names;
}

/// How the panel calls what the option turns on.
QString captionOf(const QString& option)
{
    const QString name = option.section(QLatin1Char('='), 0, 0);
    for (const pendant::FaultRow& row : pendant::faultRows()) {
        if (name == QLatin1String(row.name))
            return QString::fromLatin1(row.caption);
    }
    return {};
}

/// To the heading under which a group's table stands.
QString linkTo(const QString& group)
{
    return "[%1](#%2)"_s.arg(group, group.toLower().replace(QLatin1Char(' '), QLatin1Char('-')));
}

/// The lines of a text that another one has not.
QString linesWithout(const QString& text, const QString& other)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    const QStringList others = other.split(QLatin1Char('\n'));
    for (const QString& each : others)
        lines.removeAll(each);
    return lines.join(QLatin1Char('\n'));
}

QStringList inWordsOf(const Deed& deed, QStringList lines)
{
    for (QString& line : lines) {
        line.replace(deed.command, "COMMAND"_s);
        for (const auto& [word, own] : deed.words)
            line.replace(own, word);
    }
    return lines;
}

} // namespace

class TestFaultTable : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void commandUnderFault_data();
    void commandUnderFault();
    void weldingCanBeStopped_data();
    void weldingCanBeStopped();
    void documentTellsIt_data();
    void documentTellsIt();

private:
    Outcome perform(Deed& deed, int fault);
    const Outcome& outcome(std::size_t deed, int fault);
    QString groupTable(const QString& group);
    QString deedTable() const;
    static QString faultTable();
    void checkPart(const QString& name, const QString& text);

    std::unique_ptr<FaultBench> bench;
    std::vector<std::unique_ptr<Deed>> deeds;
    QHash<QPair<int, int>, Outcome> outcomes;
};

void TestFaultTable::initTestCase()
{
    QLoggingCategory::setFilterRules("default.debug=false"_s);
    bench = std::make_unique<FaultBench>();
    deeds = allDeeds();
}

void TestFaultTable::cleanupTestCase()
{
    bench.reset();
}

/// The connection is up again behind it.
Outcome TestFaultTable::perform(Deed& deed, int fault)
{
    deed.prepare(*bench);
    bench->forget();
    bench->backend.arm(deed.command, faultsOf(FaultCases[fault]));
    bench->touch();
    deed.act(*bench);
    QCoreApplication::processEvents();
    bench->backend.arm({}, {});
    Outcome seen{inWordsOf(deed, bench->messages()),
                 inWordsOf(deed, bench->logLines()),
                 deed.shown(*bench),
                 {}};
    bench->cell->setConnected(true);
    seen.held = deed.held(*bench);
    return seen;
}

const Outcome& TestFaultTable::outcome(std::size_t deed, int fault)
{
    const QPair<int, int> key(static_cast<int>(deed), fault);
    if (!outcomes.contains(key))
        outcomes.insert(key, perform(*deeds[deed], fault));
    return *outcomes.constFind(key);
}

void TestFaultTable::commandUnderFault_data()
{
    QTest::addColumn<int>("deed");
    QTest::addColumn<int>("fault");
    const QStringList names = faultNames();
    for (std::size_t deed = 0; deed < deeds.size(); ++deed) {
        for (int fault = 0; fault < names.size(); ++fault)
            QTest::addRow("%s: %s", qPrintable(deeds[deed]->name), qPrintable(names.at(fault)))
                << static_cast<int>(deed) << fault;
    }
}

// Whatever became of a command: it was sent once, what is opened anew shows what the controller
// holds, and the next one works.
void TestFaultTable::commandUnderFault()
{
    QFETCH(int, deed);
    QFETCH(int, fault);
    Deed& done = *deeds[static_cast<std::size_t>(deed)];
    const Outcome clean = outcome(static_cast<std::size_t>(deed), NoFault);
    const unsigned long before = sleptMilliseconds();
    outcomes.remove({deed, fault});
    outcome(static_cast<std::size_t>(deed), fault);
    const QStringList sent = bench->backend.sent;
    QCOMPARE(sent.count(done.command), 1);
    if (fault == LongDelay)
        QVERIFY(sleptMilliseconds() - before >= DelayMilliseconds);
    QVERIFY(done.showsTruth(*bench));
    QCOMPARE(perform(done, NoFault).cells(), clean.cells());
    QCOMPARE(sent, bench->backend.sent.mid(0, sent.size()));
    QVERIFY(done.showsTruth(*bench));
}

void TestFaultTable::weldingCanBeStopped_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("strokes");
    QTest::newRow("start, answer lost") << "Start"_s
                                        << "lost after"_s << 2;
    QTest::newRow("start, no answer") << "Start"_s
                                      << "empty array"_s << 2;
    QTest::newRow("save behind it lost") << "Save behind a start"_s
                                         << "lost before"_s << 2;
    QTest::newRow("stop lost") << "Stop"_s
                               << "lost before"_s << 1;
    QTest::newRow("stop refused") << "Stop"_s
                                  << "refused"_s << 1;
}

// The page is opened again, and the switch is worked as often as the document says.
void TestFaultTable::weldingCanBeStopped()
{
    QFETCH(QString, group);
    QFETCH(QString, fault);
    QFETCH(int, strokes);
    const auto found = std::find_if(deeds.cbegin(), deeds.cend(),
                                    [&](const auto& each) { return each->group == group; });
    QVERIFY(found != deeds.cend());
    Deed& deed = **found;
    perform(deed, faultNames().indexOf(fault));
    QVERIFY(deed.held(*bench).startsWith("welding on"_s));
    QVERIFY(deed.showsTruth(*bench));
    bench->touch();
    for (int stroke = 0; stroke < strokes; ++stroke)
        deed.act(*bench);
    QVERIFY(deed.held(*bench).startsWith("welding off"_s));
}

QString TestFaultTable::groupTable(const QString& group)
{
    QVector<DeedOutcomes> rows;
    for (std::size_t deed = 0; deed < deeds.size(); ++deed) {
        if (deeds[deed]->group != group)
            continue;
        rows.append({deeds[deed]->name, {}});
        for (int fault = 0; fault < faultNames().size(); ++fault)
            rows.last().outcomes << outcome(deed, fault);
    }
    return FaultDocument::table(faultNames(), rows);
}

QString TestFaultTable::deedTable() const
{
    QVector<QStringList> rows;
    for (const auto& deed : deeds) {
        QStringList words;
        for (const auto& [word, own] : std::as_const(deed->words))
            words << "%1: %2"_s.arg(word, own);
        rows.append(
            {deed->name, "`%1`"_s.arg(deed->command), words.join(", "_s), linkTo(deed->group)});
    }
    return FaultDocument::plainTable({"Done"_s, "COMMAND"_s, "Words"_s, "Table"_s}, rows);
}

QString TestFaultTable::faultTable()
{
    QVector<QStringList> rows;
    for (const FaultCase& each : FaultCases) {
        const QString option = QString::fromLatin1(each.option);
        rows.append({QString::fromUtf8(each.name), captionOf(option),
                     option.isEmpty() ? QString() : "`%1`"_s.arg(option),
                     QString::fromUtf8(each.meaning)});
    }
    return FaultDocument::plainTable(
        {"In the tables"_s, "In the panel"_s, "`--fault`"_s, "Means"_s}, rows);
}

void TestFaultTable::documentTellsIt_data()
{
    QTest::addColumn<QString>("part");
    for (const char* each : {"faults", "commands"})
        QTest::newRow(each) << QString::fromLatin1(each);
    QString last;
    for (const auto& deed : deeds) {
        if (deed->group != last)
            QTest::newRow(qPrintable(deed->group)) << deed->group;
        last = deed->group;
    }
}

// With the variable FAULT_TABLE_WRITE set, the document is written instead.
void TestFaultTable::documentTellsIt()
{
    QFETCH(QString, part);
    checkPart(part, part == "faults"_s     ? faultTable()
                    : part == "commands"_s ? deedTable()
                                           : groupTable(part));
}

void TestFaultTable::checkPart(const QString& name, const QString& text)
{
    QFile file(QStringLiteral(FAULT_DOCUMENT));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString document = QString::fromUtf8(file.readAll());
    file.close();
    QVERIFY2(!FaultDocument::part(document, name).isNull(), "the document has no such part");
    if (qEnvironmentVariableIsSet("FAULT_TABLE_WRITE")) {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(FaultDocument::withPart(document, name, text).toUtf8());
        return;
    }
    const QString told = FaultDocument::part(document, name);
    const QString difference = "seen, not told:\n%1\ntold, not seen:\n%2"_s.arg(
        linesWithout(text, told), linesWithout(told, text));
    QVERIFY2(told == text, qPrintable(difference));
}

LASERWELD_TEST_MAIN(TestFaultTable)
#include "tst_faulttable.moc"
