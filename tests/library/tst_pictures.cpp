// The pictures in the library: the names and sizes that the code asks for, the same pixels as the
// drawings, and what an operator must be able to tell apart.

#include "Drawing.h"
#include "TestCase.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QImage>
#include <QResource>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int indicatorHeight = 25;  // px, as the status bar shows it
constexpr int keyHeight = 64;        // px, as a row of keys shows it
constexpr int navigationHeight = 16; // px, the smallest that a navigation button shows
constexpr int glyphContrast = 3; // between a symbol and its ground, for graphics that carry meaning

const QLatin1String arrow(":/qelLaserWelding/png/arrow/down_arrow_white.png");

constexpr std::array keys{"switchMode", "feedWire", "gas", "pullWire", "redLight", "monitor"};
constexpr std::array entries{"LaserWeldDeviceSetting", "LaserWeldIO",
                             "LaserWeldCharacteristicCurve", "LaserWeldProcessSetting",
                             "LaserWeldWeaveFunction"};

QString keyPicture(const char* key, const char* state)
{
    return QStringLiteral(":/png/phybutton/%1%2.png").arg(QLatin1String(key), QLatin1String(state));
}

QString entryPicture(const char* entry)
{
    return QStringLiteral(":/png/meanlist/%1.png").arg(QLatin1String(entry));
}

QString resourceOf(const QString& png)
{
    const QLatin1String root(png.startsWith(QLatin1String("arrow/")) ? ":/qelLaserWelding/png/"
                                                                     : ":/png/");
    return root + png;
}

QImage shown(const QString& path, int height, const QColor& ground = Qt::white)
{
    const QImage scaled = QImage(path).scaledToHeight(height, Qt::SmoothTransformation);
    QImage image(scaled.size(), QImage::Format_RGB32);
    image.fill(ground);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor top = scaled.pixelColor(x, y);
            const auto mix = [&top](int over, int under) {
                return (over * top.alpha() + under * (255 - top.alpha())) / 255;
            };
            image.setPixelColor(x, y,
                                QColor(mix(top.red(), ground.red()),
                                       mix(top.green(), ground.green()),
                                       mix(top.blue(), ground.blue())));
        }
    return image;
}

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

// 0 (black) to 1 (white), as the eye weighs the channels.
double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

std::vector<double> luminances(const QImage& image)
{
    std::vector<double> all;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            all.push_back(luminance(image.pixelColor(x, y)));
    std::sort(all.begin(), all.end());
    return all;
}

double contrast(double light, double dark)
{
    return (light + 0.05) / (dark + 0.05);
}

// Between the lightest and the darkest tenth of the pixels.
double contrastWithin(const QImage& image)
{
    const std::vector<double> sorted = luminances(image);
    const std::size_t tenth = sorted.size() / 10;
    return contrast(sorted[sorted.size() - tenth], sorted[tenth]);
}

// The share of pixels, 0 to 1, whose lightness tells the two apart even with no colour at all.
double differingShare(const QImage& left, const QImage& right)
{
    int differing = 0;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const double l = luminance(left.pixelColor(x, y));
            const double r = luminance(right.pixelColor(x, y));
            differing += contrast(std::max(l, r), std::min(l, r)) >= glyphContrast ? 1 : 0;
        }
    return double(differing) / (left.width() * left.height());
}

int largestDifference(const QImage& left, const QImage& right)
{
    const auto step = [](int l, int r) { return std::abs(l - r); };
    int largest = 0;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const QRgb l = left.pixel(x, y);
            const QRgb r = right.pixel(x, y);
            largest = std::max({largest, step(qRed(l), qRed(r)), step(qGreen(l), qGreen(r)),
                                step(qBlue(l), qBlue(r)), step(qAlpha(l), qAlpha(r))});
        }
    return largest;
}

} // namespace

class Pictures : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void isThere_data();
    void isThere();
    void thereAreNoOthers();
    void equalsItsDrawing_data();
    void equalsItsDrawing();
    void brokenDrawingGivesNothing();
    void pressedDiffersFromReleased_data();
    void pressedDiffersFromReleased();
    void keysDifferFromEachOther_data();
    void keysDifferFromEachOther();
    void navigationIconStandsOnItsGround_data();
    void navigationIconStandsOnItsGround();
    void realDiffersFromVirtualInOutline();
    void arrowShowsOnWhite();
};

void Pictures::isThere_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    const auto row = [](const QString& path, const QSize& size) {
        QTest::newRow(qPrintable(path)) << path << size;
    };
    row(QStringLiteral(":/png/LaserSwitchReal.png"), {131, 130});
    row(QStringLiteral(":/png/LaserSwitchSimu.png"), {130, 130});
    for (const char* entry : entries)
        row(entryPicture(entry), {200, 200});
    for (const char* key : keys) {
        row(keyPicture(key, "Pressed"), {626, 626});
        row(keyPicture(key, "Unpressed"), {626, 626});
    }
    row(arrow, {20, 20});
}

void Pictures::isThere()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    QCOMPARE(QImage(path).size(), size);
    QCOMPARE(QResource(path).compressionAlgorithm(), QResource::NoCompression);
}

void Pictures::thereAreNoOthers()
{
    int count = 0;
    QDirIterator files(QStringLiteral(":/"), {QStringLiteral("*.png")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        count += path.startsWith(QLatin1String(":/png/")) || path == arrow ? 1 : 0;
    }
    QCOMPARE(count, 20);
    QCOMPARE(int(drawingsIn(QStringLiteral(DRAWINGS_FOLDER)).size()), 20);
}

void Pictures::equalsItsDrawing_data()
{
    QTest::addColumn<QString>("png");
    QTest::addColumn<QByteArray>("svg");
    for (const Drawing& drawing : drawingsIn(QStringLiteral(DRAWINGS_FOLDER)))
        QTest::newRow(qPrintable(drawing.png)) << drawing.png << drawing.svg;
}

void Pictures::equalsItsDrawing()
{
    QFETCH(QString, png);
    QFETCH(QByteArray, svg);
    const QImage fresh = rendered({png, svg});
    const QImage stored = QImage(resourceOf(png)).convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(stored.size(), fresh.size());
    // Processors with other vector instructions round a blended edge otherwise.
    QVERIFY2(largestDifference(stored, fresh) <= 4, "run resources/render-pictures");
}

void Pictures::brokenDrawingGivesNothing()
{
    QVERIFY(rendered({QStringLiteral("x.png"), "<svg><"}).isNull());
}

void Pictures::pressedDiffersFromReleased_data()
{
    QTest::addColumn<QString>("pressed");
    QTest::addColumn<QString>("released");
    for (const char* key : keys)
        QTest::newRow(key) << keyPicture(key, "Pressed") << keyPicture(key, "Unpressed");
}

void Pictures::pressedDiffersFromReleased()
{
    QFETCH(QString, pressed);
    QFETCH(QString, released);
    const double share = differingShare(shown(pressed, keyHeight), shown(released, keyHeight));
    QVERIFY2(share > 0.4, qPrintable(QString::number(share)));
}

void Pictures::keysDifferFromEachOther_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    for (const char* one : keys)
        for (const char* other : keys)
            if (qstrcmp(one, other) < 0)
                QTest::addRow("%s and %s", one, other)
                    << keyPicture(one, "Unpressed") << keyPicture(other, "Unpressed");
}

void Pictures::keysDifferFromEachOther()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    const double share = differingShare(shown(one, keyHeight), shown(other, keyHeight));
    QVERIFY2(share > 0.05, qPrintable(QString::number(share)));
}

void Pictures::navigationIconStandsOnItsGround_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QColor>("ground");
    const std::array<QColor, 4> grounds{QColor(235, 235, 235), QColor(135, 161, 174),
                                        QColor(0x63, 0x63, 0x63), QColor(0x8a, 0x01, 0x21)};
    for (const char* entry : entries)
        for (const QColor& ground : grounds)
            QTest::addRow("%s on %s", entry, qPrintable(ground.name()))
                << entryPicture(entry) << ground;
}

void Pictures::navigationIconStandsOnItsGround()
{
    QFETCH(QString, path);
    QFETCH(QColor, ground);
    const double measured = contrastWithin(shown(path, navigationHeight, ground));
    QVERIFY2(measured >= glyphContrast, qPrintable(QString::number(measured)));
}

void Pictures::realDiffersFromVirtualInOutline()
{
    const auto covered = [](const char* name) {
        const QImage image = QImage(QLatin1String(name))
                                 .scaledToHeight(indicatorHeight, Qt::SmoothTransformation)
                                 .convertToFormat(QImage::Format_ARGB32);
        return qAlpha(image.pixel(2, 2)) > 127;
    };
    QVERIFY(covered(":/png/LaserSwitchReal.png"));
    QVERIFY(!covered(":/png/LaserSwitchSimu.png"));
}

void Pictures::arrowShowsOnWhite()
{
    const double darkest = luminances(shown(arrow, 10)).front();
    QVERIFY2(contrast(1, darkest) >= 4.5, qPrintable(QString::number(darkest)));
}

LASERWELD_CORE_TEST_MAIN(Pictures)
#include "tst_pictures.moc"
