#include "BoxModels.h"
#include "TestCase.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QFontMetrics>
#include <QPointer>
#include <QRandomGenerator>

#include <limits>
#include <memory>

namespace {

QString operator""_s(const char* text, std::size_t size)
{
    return QString::fromLatin1(text, int(size));
}

QStringList portNames()
{
    return {"DO1"_s, "DO2"_s, "do2"_s, "DO10"_s};
}

QStringList itemTexts(const QComboBox* box)
{
    QStringList texts;
    for (int index = 0; index < box->count(); ++index)
        texts << box->itemText(index);
    return texts;
}

QStringList behindEmpty(const QStringList& names)
{
    return QStringList{QString()} + names;
}

/// Writes down what a box emits.
class SignalLog
{
public:
    explicit SignalLog(const QComboBox* box)
    {
        QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), box,
                         [this](int index) { lines << "index "_s + QString::number(index); });
        QObject::connect(box, &QComboBox::currentTextChanged, box,
                         [this](const QString& text) { lines << "text "_s + text; });
        QObject::connect(box, QOverload<int>::of(&QComboBox::activated), box,
                         [this](int index) { lines << "activated "_s + QString::number(index); });
    }
    QStringList take() { return std::exchange(lines, {}); }

private:
    QStringList lines;
};

/// The straightforward way, on a model of the box's own.
void refillPlainly(QComboBox* box, const QStringList& names, bool keepText)
{
    const QString before = keepText ? box->currentText() : QString();
    box->clear();
    box->insertItem(0, QString());
    box->addItems(names);
    if (!keepText)
        box->setCurrentIndex(0);
    else if (!before.isEmpty())
        box->setCurrentIndex(
            std::max(0, box->findText(before, Qt::MatchFixedString | Qt::MatchCaseSensitive)));
}

} // namespace

class TestBoxModels : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void portItems_data();
    void portItems();
    void modelsAreConsistent();
    void itemsHoldOnlyTheirText_data();
    void itemsHoldOnlyTheirText();
    void textsAreFound_data();
    void textsAreFound();
    void searchesAreThoseOfAPlainBox_data();
    void searchesAreThoseOfAPlainBox();
    void widestName_data();
    void widestName();
    void widestNameFollowsTheFont();

    void numberItems_data();
    void numberItems();
    void numbersAreFound_data();
    void numbersAreFound();
    void equalCountKeepsTheSelection();

    void refill_data();
    void refill();
    void refillEmitsWhatAPlainBoxDoes();
    void equalListsShareAModel();
    void modelGoesWithItsLastBox();
    void modelsMayGoBeforeTheirBoxes();
};

void TestBoxModels::portItems_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none") << QStringList();
    QTest::newRow("one") << QStringList{"DO1"_s};
    QTest::newRow("several") << portNames();
    QTest::newRow("twice the same") << QStringList{"DO1"_s, "DO1"_s};
    QTest::newRow("an empty one") << QStringList{"DO1"_s, QString(), "DO2"_s};
}

void TestBoxModels::portItems()
{
    QFETCH(QStringList, names);
    PortListModel model(names);
    QComboBox box;
    box.setModel(&model);
    QCOMPARE(itemTexts(&box), behindEmpty(names));
    QCOMPARE(box.currentIndex(), 0);
    QCOMPARE(model.names(), names);
    QCOMPARE(model.rowCount(model.index(0)), 0);
}

void TestBoxModels::modelsAreConsistent()
{
    using Tester = QAbstractItemModelTester;
    PortListModel ports(portNames());
    const Tester portTester(&ports, Tester::FailureReportingMode::QtTest);
    NumberListModel numbers;
    const Tester numberTester(&numbers, Tester::FailureReportingMode::QtTest);
    for (const int count : {1, 4, 4, 2, 0, 1000})
        numbers.setCount(count);
    QCOMPARE(numbers.rowCount(), 1000);
}

void TestBoxModels::itemsHoldOnlyTheirText_data()
{
    QTest::addColumn<int>("role");
    QTest::newRow("user") << int(Qt::UserRole);
    QTest::newRow("picture") << int(Qt::DecorationRole);
    QTest::newRow("tip") << int(Qt::ToolTipRole);
    QTest::newRow("font") << int(Qt::FontRole);
    QTest::newRow("check") << int(Qt::CheckStateRole);
}

void TestBoxModels::itemsHoldOnlyTheirText()
{
    QFETCH(int, role);
    const PortListModel model(portNames());
    for (int row = 0; row < model.rowCount(); ++row) {
        QVERIFY(!model.index(row).data(role).isValid());
        QCOMPARE(model.index(row).data(Qt::EditRole), model.index(row).data(Qt::DisplayRole));
    }
    QVERIFY(!model.data(QModelIndex(), Qt::DisplayRole).isValid());
}

void TestBoxModels::textsAreFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("first") << "DO1" << 1;
    QTest::newRow("other case") << "do2" << 3;
    QTest::newRow("last") << "DO10" << 4;
    QTest::newRow("no such case") << "dO1" << -1;
    QTest::newRow("a part") << "DO" << -1;
    QTest::newRow("with a blank") << "DO1 " << -1;
}

void TestBoxModels::textsAreFound()
{
    QFETCH(QString, text);
    QFETCH(int, row);
    PortListModel model(portNames());
    QComboBox box;
    box.setModel(&model);
    QCOMPARE(box.findText(text), row);
    box.setCurrentIndex(2);
    box.setCurrentText(text);
    QCOMPARE(box.currentIndex(), row < 0 ? 2 : row);
}

void TestBoxModels::searchesAreThoseOfAPlainBox_data()
{
    QTest::addColumn<int>("flags");
    QTest::newRow("exactly") << int(Qt::MatchExactly);
    QTest::newRow("exactly, case") << int(Qt::MatchExactly | Qt::MatchCaseSensitive);
    QTest::newRow("text") << int(Qt::MatchFixedString);
    QTest::newRow("text, case") << int(Qt::MatchFixedString | Qt::MatchCaseSensitive);
    QTest::newRow("contains") << int(Qt::MatchContains);
    QTest::newRow("starts") << int(Qt::MatchStartsWith | Qt::MatchCaseSensitive);
    QTest::newRow("ends") << int(Qt::MatchEndsWith);
    QTest::newRow("wildcard") << int(Qt::MatchWildcard);
    QTest::newRow("wrapped") << int(Qt::MatchExactly | Qt::MatchWrap);
}

void TestBoxModels::searchesAreThoseOfAPlainBox()
{
    QFETCH(int, flags);
    PortListModel model(portNames());
    QComboBox box;
    box.setModel(&model);
    QComboBox plain;
    refillPlainly(&plain, portNames(), false);
    for (const char* each : {"", "DO1", "DO2", "do2", "do1", "O", "2", "DO*", "x"}) {
        const QString text = QString::fromLatin1(each);
        const Qt::MatchFlags how(flags);
        QCOMPARE(box.findText(text, how), plain.findText(text, how));
        const auto rows = [&](const QAbstractItemModel* searched, int start, int hits) {
            QList<int> found;
            const auto matches =
                searched->match(searched->index(start, 0), Qt::DisplayRole, text, hits, how);
            for (const QModelIndex& match : matches)
                found << match.row();
            return found;
        };
        for (const int start : {0, 3}) {
            for (const int hits : {1, 2, -1})
                QCOMPARE(rows(&model, start, hits), rows(plain.model(), start, hits));
        }
    }
    QCOMPARE(box.findData(1), plain.findData(1));
}

void TestBoxModels::widestName_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none") << QStringList();
    QTest::newRow("empty") << QStringList{QString()};
    QTest::newRow("digits") << QStringList{"DO1"_s, "DO22"_s, "DO9"_s};
    QTest::newRow("letters") << QStringList{"WWWW"_s, "iiiiiii"_s, "mm_1"_s};
    QTest::newRow("first") << QStringList{"a long name"_s, "b"_s};
    QTest::newRow("same shape apart") << QStringList{"A1"_s, "longest"_s, "A2"_s};
}

void TestBoxModels::widestName()
{
    QFETCH(QStringList, names);
    for (const char* family : {"Noto Sans", "DejaVu Serif", "DejaVu Sans Mono"}) {
        const QFont font(QString::fromLatin1(family), 9);
        const QFontMetrics metrics(font);
        int widest = 0;
        for (const QString& name : std::as_const(names))
            widest = std::max(widest, metrics.horizontalAdvance(name));
        const PortListModel model(names);
        QCOMPARE(model.widestName(font), widest);
        QCOMPARE(model.widestName(font), widest);
    }
}

void TestBoxModels::widestNameFollowsTheFont()
{
    const PortListModel model(portNames());
    const QFont small("Noto Sans"_s, 8), large("Noto Sans"_s, 24);
    const int width = model.widestName(small);
    QVERIFY(model.widestName(large) > width);
    QCOMPARE(model.widestName(small), width);
}

void TestBoxModels::numberItems_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("rows");
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("twelve") << 12 << 12;
    QTest::newRow("none") << 0 << 1;
    QTest::newRow("below") << -4 << 1;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << 1;
    QTest::newRow("a million") << 1000000 << 1000000;
    QTest::newRow("more") << 1000001 << 1000000;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << 1000000;
}

void TestBoxModels::numberItems()
{
    QFETCH(int, rows);
    QFETCH(int, count);
    NumberListModel model;
    QCOMPARE(model.rowCount(), 0);
    model.setCount(count);
    QCOMPARE(model.rowCount(), rows);
    QCOMPARE(model.index(0).data().toString(), "1"_s);
    QCOMPARE(model.index(rows - 1).data().toString(), QString::number(rows));
    QVERIFY(!model.index(0).data(Qt::UserRole).isValid());
    QCOMPARE(model.rowCount(model.index(0)), 0);
}

void TestBoxModels::numbersAreFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    QTest::newRow("first") << "1" << 0;
    QTest::newRow("last") << "12" << 11;
    QTest::newRow("below") << "0" << -1;
    QTest::newRow("beyond") << "13" << -1;
    QTest::newRow("empty") << "" << -1;
    QTest::newRow("padded") << "01" << -1;
    QTest::newRow("blank") << " 1" << -1;
    QTest::newRow("sign") << "+1" << -1;
    QTest::newRow("huge") << "4294967297" << -1;
}

void TestBoxModels::numbersAreFound()
{
    QFETCH(QString, text);
    NumberListModel model;
    model.setCount(12);
    QComboBox box;
    box.setModel(&model);
    QTEST(box.findText(text), "row");
}

void TestBoxModels::equalCountKeepsTheSelection()
{
    NumberListModel model;
    model.setCount(4);
    QComboBox box;
    box.setModel(&model);
    box.setCurrentIndex(2);
    model.setCount(4);
    QCOMPARE(box.currentText(), "3"_s);
    model.setCount(5);
    QCOMPARE(box.count(), 5);
}

void TestBoxModels::refill_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<bool>("keepText");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("after");
    const QStringList others{"DO0"_s, "DO2"_s};
    QTest::newRow("kept") << "DO2" << true << portNames() << "DO2";
    QTest::newRow("kept in another list") << "DO2" << true << others << "DO2";
    QTest::newRow("vanished") << "DO10" << true << others << "";
    QTest::newRow("another case") << "do2" << true << others << "";
    QTest::newRow("reset") << "DO2" << false << portNames() << "";
    QTest::newRow("reset to another list") << "DO2" << false << others << "";
    QTest::newRow("nothing to keep") << "" << true << others << "";
    QTest::newRow("emptied") << "DO2" << true << QStringList() << "";
}

void TestBoxModels::refill()
{
    QFETCH(QString, before);
    QFETCH(bool, keepText);
    QFETCH(QStringList, names);
    PortListModels models;
    QComboBox box;
    models.refill(&box, portNames(), false);
    box.setCurrentText(before);
    models.refill(&box, names, keepText);
    QCOMPARE(itemTexts(&box), behindEmpty(names));
    QTEST(box.currentText(), "after");
    QVERIFY(!box.itemData(0).isValid());
}

void TestBoxModels::refillEmitsWhatAPlainBoxDoes()
{
    const QStringList lists[] = {
        portNames(), portNames(), {"DO2"_s}, {}, {"DO0"_s, "DO2"_s, "x"_s}, {"DO2"_s, "DO2"_s}};
    PortListModels models;
    QComboBox box, plain, neighbour;
    SignalLog boxLog(&box), plainLog(&plain);
    QRandomGenerator dice(7);
    for (int step = 0; step < 500; ++step) {
        const QStringList& names = lists[dice.bounded(int(std::size(lists)))];
        const bool keepText = dice.bounded(2) == 1;
        models.refill(&neighbour, lists[dice.bounded(int(std::size(lists)))], false);
        const int index = dice.bounded(box.count() + 1) - 1;
        box.setCurrentIndex(index);
        plain.setCurrentIndex(index);
        models.refill(&box, names, keepText);
        refillPlainly(&plain, names, keepText);
        QCOMPARE(boxLog.take(), plainLog.take());
        QCOMPARE(itemTexts(&box), itemTexts(&plain));
        QCOMPARE(box.currentIndex(), plain.currentIndex());
    }
}

void TestBoxModels::equalListsShareAModel()
{
    PortListModels models;
    QComboBox first, second, third;
    models.refill(&first, portNames(), false);
    models.refill(&second, {"DO1"_s, "DO2"_s, "do2"_s, "DO10"_s}, false);
    models.refill(&third, {"DO1"_s}, false);
    QCOMPARE(first.model(), second.model());
    QVERIFY(first.model() != third.model());
    second.setCurrentIndex(2);
    QCOMPARE(first.currentIndex(), 0);
    models.refill(&second, {"DO1"_s}, true);
    QCOMPARE(second.model(), third.model());
    QCOMPARE(itemTexts(&first), behindEmpty(portNames()));
}

void TestBoxModels::modelGoesWithItsLastBox()
{
    PortListModels models;
    QComboBox first, second;
    models.refill(&first, portNames(), false);
    models.refill(&second, portNames(), false);
    const QPointer<QAbstractItemModel> model = first.model();
    models.refill(&first, {}, false);
    QVERIFY(model);
    models.refill(&second, {}, false);
    QVERIFY(!model);
}

void TestBoxModels::modelsMayGoBeforeTheirBoxes()
{
    QComboBox box;
    auto models = std::make_unique<PortListModels>();
    models->refill(&box, portNames(), false);
    box.setCurrentIndex(2);
    box.showPopup();
    SignalLog log(&box);
    models.reset();
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(box.count(), 0);
    box.hidePopup();
}

LASERWELD_TEST_MAIN(TestBoxModels)
#include "tst_boxmodels.moc"
