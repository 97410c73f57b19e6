#include "CaptionText.h"
#include "TestCase.h"

#include <QFontMetrics>
#include <QImage>

namespace {

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

const char* const Caption = "Welding Speed (mm/s)";

int lineHeight(const QFont& font)
{
    return CaptionText::height(latin("W"), font, 100);
}

/// A label that paints black on white.
void prepare(CaptionLabel& label, QSize size)
{
    label.setText(latin(Caption));
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::black);
    label.setPalette(palette);
    label.setAutoFillBackground(true);
    label.resize(size);
}

/// Rows of the picture that hold something dark.
QVector<int> inkedRows(const QImage& image)
{
    QVector<int> rows;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
                rows << y;
                break;
            }
        }
    }
    return rows;
}

} // namespace

class TestCaptionText : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void unitIsNotBroken();
    void breaksBeforeABracket();
    void linesGrowAsTheWidthShrinks();
    void anyWidth_data();
    void anyWidth();
    void fontFitsTheRoom_data();
    void fontFitsTheRoom();
    void labelKeepsItsText();
    void labelFitsItsCell_data();
    void labelFitsItsCell();
};

void TestCaptionText::unitIsNotBroken()
{
    const QFont font;
    const QFontMetrics metrics(font);
    const int width = metrics.horizontalAdvance(latin("speed (mm/")) + 1;
    const int lines = CaptionText::height(CaptionText::drawn(latin("speed (mm/s)")), font, width);
    QCOMPARE(lines, CaptionText::height(latin("speed\n(mm\u00a0s)"), font, width));
    QCOMPARE(CaptionText::drawn(latin("Power")), latin("Power"));
    QCOMPARE(CaptionText::drawn(QString()), QString());
    QVERIFY(metrics.horizontalAdvance(CaptionText::drawn(latin("mm/s"))) <=
            metrics.horizontalAdvance(latin("mm/s")) + 1);
}

void TestCaptionText::breaksBeforeABracket()
{
    const QFont font;
    const int width = QFontMetrics(font).horizontalAdvance(latin("Frequency")) + 2;
    QVERIFY(CaptionText::height(CaptionText::drawn(latin("Frequency(Hz)")), font, width) >
            lineHeight(font));
}

void TestCaptionText::linesGrowAsTheWidthShrinks()
{
    const QFont font;
    const QString caption = latin(Caption);
    const int whole = QFontMetrics(font).horizontalAdvance(caption);
    QCOMPARE(CaptionText::height(caption, font, whole + 2), lineHeight(font));
    QVERIFY(CaptionText::height(caption, font, whole - 2) > lineHeight(font));
    QVERIFY(CaptionText::height(caption, font, whole / 3) >
            CaptionText::height(caption, font, whole - 2));
}

void TestCaptionText::anyWidth_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {-1000, -1, 0, 1, 100000})
        QTest::newRow(QByteArray::number(width)) << width;
}

void TestCaptionText::anyWidth()
{
    QFETCH(int, width);
    QVERIFY(CaptionText::height(latin(Caption), QFont(), width) >= lineHeight(QFont()));
}

void TestCaptionText::fontFitsTheRoom_data()
{
    QTest::addColumn<QSize>("room"); // in hundredths of what the caption needs in 10pt
    QTest::addColumn<bool>("isSmaller");
    QTest::newRow("as large") << QSize(110, 110) << false;
    QTest::newRow("too narrow for a word") << QSize(85, 110) << true;
    QTest::newRow("too low for the lines") << QSize(110, 85) << true;
    QTest::newRow("nothing fits") << QSize(1, 1) << true;
}

void TestCaptionText::fontFitsTheRoom()
{
    QFETCH(QSize, room);
    QFETCH(bool, isSmaller);
    QFont font;
    font.setPointSize(10);
    const QString caption = latin("Frequency");
    const QSize whole = QFontMetrics(font).size(0, caption);
    const QSize part(whole.width() * room.width() / 100, whole.height() * room.height() / 100);
    const QFont fitted = CaptionText::fitted(caption, font, part, nullptr);
    QCOMPARE(fitted.pointSize() < 10, isSmaller);
    QVERIFY(fitted.pointSize() >= 7);
    const QSize drawn = QFontMetrics(fitted).size(0, caption);
    QCOMPARE(drawn.width() <= part.width() && drawn.height() <= part.height(), room.width() > 1);
}

void TestCaptionText::labelKeepsItsText()
{
    CaptionLabel label;
    prepare(label, {80, 38});
    const int points = label.font().pointSize();
    label.grab();
    QCOMPARE(label.text(), latin(Caption));
    QCOMPARE(label.font().pointSize(), points);
}

void TestCaptionText::labelFitsItsCell_data()
{
    QTest::addColumn<QSize>("cell");
    QTest::addColumn<bool>("isBroken");
    QTest::newRow("wide") << QSize(400, 38) << false;
    QTest::newRow("two lines") << QSize(110, 38) << true;
    QTest::newRow("narrow") << QSize(80, 38) << true;
}

// The first and the last row stay free, so no letter is cut.
void TestCaptionText::labelFitsItsCell()
{
    QFETCH(QSize, cell);
    QFETCH(bool, isBroken);
    CaptionLabel label;
    prepare(label, cell);
    const QVector<int> rows = inkedRows(label.grab().toImage());
    QVERIFY(!rows.isEmpty());
    QVERIFY(rows.constFirst() > 0);
    QVERIFY(rows.constLast() < cell.height() - 1);
    QCOMPARE(rows.constLast() - rows.constFirst() > lineHeight(label.font()), isBroken);
}

LASERWELD_TEST_MAIN(TestCaptionText)
#include "tst_captiontext.moc"
