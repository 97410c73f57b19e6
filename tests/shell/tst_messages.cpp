#include "BriefLabel.h"
#include "MessageModel.h"
#include "MessagePage.h"
#include "MessageStrip.h"
#include "TestCase.h"
#include "Theme.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QLabel>
#include <QLayout>
#include <QStyle>
#include <QTableView>

using namespace pendant;

namespace {

Message message(int level, const QString& text)
{
    return {QDateTime(QDate(2024, 5, 6), QTime(7, 8, 9)), QStringLiteral("weld"), level, text};
}

QVariant shown(const MessageModel& model, int row, int column, int role = Qt::DisplayRole)
{
    return model.data(model.index(row, column), role);
}

} // namespace

class TestMessages : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void severities_data();
    void severities();
    void theNewestComesFirst();
    void theOldestGoesWhenItIsFull();
    void clearEmptiesTheHistory();
    void toolTipNamesThePlugin();
    void theModelKeepsItsRules();
    void stripShowsTheLastMessage();
    void stripTakesPlainText();
    void stripKeepsItsHeight();
    void stripIsClicked();
    void longTextIsLeftOut_data();
    void longTextIsLeftOut();
    void pageHasItsClearButton();
    void pageShowsLongMessagesWhole();
};

void TestMessages::severities_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("name");
    QTest::newRow("information") << 0 << QStringLiteral("Information");
    QTest::newRow("warning") << 1 << QStringLiteral("Warning");
    QTest::newRow("error") << 2 << QStringLiteral("Error");
    QTest::newRow("beyond") << 3 << QStringLiteral("Level 3");
    QTest::newRow("below") << -1 << QStringLiteral("Level -1");
}

void TestMessages::severities()
{
    QFETCH(int, level);
    QFETCH(QString, name);
    MessageModel model;
    model.add(message(level, QStringLiteral("text")));
    QCOMPARE(shown(model, 0, MessageModel::Level).toString(), name);
    QCOMPARE(shown(model, 0, MessageModel::Level, Qt::ForegroundRole).value<QColor>(),
             severityOf(level).colour);
    QVERIFY(severityOf(level).colour != severityOf(level == 0 ? 1 : 0).colour);
}

void TestMessages::theNewestComesFirst()
{
    MessageModel model;
    model.add(message(0, QStringLiteral("first")));
    model.add(message(2, QStringLiteral("second")));
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(shown(model, 0, MessageModel::Text).toString(), QStringLiteral("second"));
    QCOMPARE(shown(model, 1, MessageModel::Text).toString(), QStringLiteral("first"));
    QCOMPARE(shown(model, 1, MessageModel::Time).toString(), QStringLiteral("07:08:09"));
}

void TestMessages::theOldestGoesWhenItIsFull()
{
    MessageModel model;
    for (int i = 0; i <= MessageModel::Capacity; ++i)
        model.add(message(0, QString::number(i)));
    QCOMPARE(model.rowCount(), MessageModel::Capacity);
    QCOMPARE(model.at(0).text, QString::number(MessageModel::Capacity));
    QCOMPARE(model.at(MessageModel::Capacity - 1).text, QStringLiteral("1"));
}

void TestMessages::clearEmptiesTheHistory()
{
    MessageModel model;
    model.add(message(0, QStringLiteral("text")));
    model.clear();
    QCOMPARE(model.rowCount(), 0);
}

void TestMessages::toolTipNamesThePlugin()
{
    MessageModel model;
    model.add(message(0, QStringLiteral("text")));
    QCOMPARE(shown(model, 0, 0, Qt::ToolTipRole).toString(), QStringLiteral("weld: text"));
}

void TestMessages::theModelKeepsItsRules()
{
    MessageModel model;
    for (int i = 1; i < MessageModel::Capacity; ++i)
        model.add(message(i % 3, QString::number(i)));
    const QAbstractItemModelTester tester(&model);
    model.add(message(0, QStringLiteral("the last that fits")));
    model.add(message(0, QStringLiteral("one more")));
    model.clear();
    QCOMPARE(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(),
             QStringLiteral("Message"));
}

void TestMessages::stripShowsTheLastMessage()
{
    MessageStrip strip;
    strip.showMessage(message(2, QStringLiteral("Save failed")));
    QCOMPARE(child<QLabel>(&strip, "label_message")->text(), QStringLiteral("Save failed"));
    QCOMPARE(child<QLabel>(&strip, "label_messageTime")->text(), QStringLiteral("07:08:09"));
    const QString error = child<QFrame>(&strip, "messageBox")->styleSheet();
    QVERIFY(error.contains(severityOf(2).colour.name()));
    strip.clear();
    QVERIFY(child<QLabel>(&strip, "label_message")->text().isEmpty());
    QVERIFY(child<QFrame>(&strip, "messageBox")->styleSheet() != error);
}

void TestMessages::stripTakesPlainText()
{
    MessageStrip strip;
    QCOMPARE(child<QLabel>(&strip, "label_message")->textFormat(), Qt::PlainText);
    auto* button = strip.addButton(QStringLiteral("faults"), QStringLiteral("Faults"));
    QCOMPARE(button, child<QAbstractButton>(&strip, "button_faults"));
    QVERIFY(button->isCheckable());
}

void TestMessages::stripKeepsItsHeight()
{
    MessageStrip strip;
    strip.addButton(QStringLiteral("faults"), QStringLiteral("Faults"));
    strip.resize(300, strip.sizeHint().height());
    strip.show();
    const QSize hint = strip.sizeHint();
    const QString text = QString(100, QLatin1Char('m')) + QStringLiteral(" and so on").repeated(50);
    strip.showMessage(message(2, text));
    QCoreApplication::processEvents();
    QCOMPARE(strip.sizeHint().height(), hint.height());
    QVERIFY(!strip.layout()->hasHeightForWidth());
    const auto* label = child<BriefLabel>(&strip, "label_message");
    QCOMPARE(label->text(), text);
    QCOMPARE(label->toolTip(), text);
    QVERIFY(label->height() >= 2 * label->fontMetrics().lineSpacing());
}

void TestMessages::stripIsClicked()
{
    MessageStrip strip;
    auto* button = strip.addButton(QStringLiteral("faults"), QStringLiteral("Faults"));
    strip.showMessage(message(0, QStringLiteral("text")));
    strip.resize(500, strip.sizeHint().height());
    strip.show();
    const QSignalSpy spy(&strip, &MessageStrip::messageClicked);
    QTest::mouseClick(child<QLabel>(&strip, "label_message"), Qt::LeftButton);
    QTest::mouseClick(child<QFrame>(&strip, "messageBox"), Qt::LeftButton);
    QCOMPARE(spy.size(), 2);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseClick(&strip, Qt::LeftButton, {}, QPoint(1, 1));
    QTest::mouseClick(child<QFrame>(&strip, "messageBox"), Qt::RightButton);
    QCOMPARE(spy.size(), 2);
}

void TestMessages::longTextIsLeftOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lines");
    QTest::addColumn<bool>("isWhole");
    QTest::newRow("empty") << QString() << 0 << true;
    QTest::newRow("short") << QStringLiteral("Save failed") << 1 << true;
    QTest::newRow("two lines") << QStringLiteral("Save failed, for the cell is silent") << 2
                               << true;
    QTest::newRow("long") << QStringLiteral("Save failed ").repeated(30).trimmed() << 2 << false;
    QTest::newRow("one word") << QString(300, QLatin1Char('m')) << 2 << false;
    QTest::newRow("line break") << QStringLiteral("a\nb") << 2 << true;
    QTest::newRow("line breaks") << QStringLiteral("a\nb\nc") << 2 << true;
}

void TestMessages::longTextIsLeftOut()
{
    QFETCH(QString, text);
    QFETCH(int, lines);
    QFETCH(bool, isWhole);
    BriefLabel label;
    label.setText(text);
    const int width = label.fontMetrics().horizontalAdvance(QStringLiteral("Save failed, for the"));
    const QStringList shown = label.linesFor(width + 20);
    QCOMPARE(shown.size(), lines);
    for (const QString& each : shown)
        QVERIFY(label.fontMetrics().horizontalAdvance(each) <= width + 20);
    const QString joined = shown.join(QLatin1Char(' '));
    QCOMPARE(joined == QString(text).replace(QLatin1Char('\n'), QLatin1Char(' ')), isWhole);
    QCOMPARE(joined.endsWith(QChar(0x2026)), !isWhole);
}

// Also when it comes while the page is hidden, and when the page becomes narrower.
void TestMessages::pageShowsLongMessagesWhole()
{
    MessageModel model;
    MessagePage page(model);
    const QString text = QStringLiteral("Save failed ").repeated(30);
    model.add(message(2, text));
    page.resize(800, 300);
    page.show();
    const auto* table = child<QTableView>(&page, "table_messages");
    const int margins = 2 * (page.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    for (const int width : {800, 450, 600}) {
        page.resize(width, 300);
        const int room = table->columnWidth(MessageModel::Text) - margins;
        const int least =
            table->fontMetrics().boundingRect(0, 0, room, 10000, Qt::TextWordWrap, text).height();
        QTRY_VERIFY(table->rowHeight(0) >= least);
        QVERIFY(table->rowHeight(0) < 2 * least);
    }
}

void TestMessages::pageHasItsClearButton()
{
    MessageModel model;
    MessagePage page(model);
    QSignalSpy spy(&page, &MessagePage::clearClicked);
    QCOMPARE(child<QTableView>(&page, "table_messages")->model(), &model);
    QTest::mouseClick(child<QAbstractButton>(&page, "button_clearMessages"), Qt::LeftButton);
    QCOMPARE(spy.size(), 1);
}

LASERWELD_TEST_MAIN(TestMessages)
#include "tst_messages.moc"
