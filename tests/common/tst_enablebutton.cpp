#include "EnableButton.h"

#include "TestCase.h"

#include <QApplication>
#include <QPropertyAnimation>
#include <QSignalSpy>

#include <limits>
#include <memory>

namespace {

const QColor OnTrack(141, 185, 244);
const QColor OffTrack(189, 193, 198);
const QColor OnThumb(26, 115, 232);
const QColor OffThumb(221, 221, 221);

QPropertyAnimation* clockOf(const EnableButton& button)
{
    return button.findChild<QPropertyAnimation*>();
}

QImage pictureOf(QWidget& button)
{
    QImage image(button.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    button.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

bool isEmpty(const QImage& image)
{
    QImage empty = image;
    empty.fill(Qt::transparent);
    return image == empty;
}

/// Left edge of the thumb. The first pixel of its circle is blended with the ground.
int thumbLeft(QWidget& button, const QColor& thumb)
{
    const QImage image = pictureOf(button);
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, image.height() / 2) == thumb)
            return x - 1;
    }
    return -2;
}

void finishSlide(const EnableButton& button)
{
    clockOf(button)->setCurrentTime(clockOf(button)->duration());
}

} // namespace

class TestEnableButton : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void startsOffAndAtRest();
    void hasOneSizeOnly();
    void isTransparentWhateverItsPageSays();
    void leftPressToggles();
    void otherButtonsAreLeftToTheParent_data();
    void otherButtonsAreLeftToTheParent();
    void signalComesAtTheStartOfTheSlide();
    void pressPutsTheThumbAtTheOldEnd();
    void pressDuringASlideStartsItAnew();
    void setCheckedAnimatesAndIsSilent();
    void setCheckedOfTheSameStateNeedsForce();
    void quickChangesNeverShowTheWrongEnd();
    void thumbFollowsTheValue_data();
    void thumbFollowsTheValue();
    void oddValuesAreHarmless_data();
    void oddValuesAreHarmless();
    void slideWithoutRepaint();
    void coloursFollowTheStateAtOnce();
    void trackSpansTheInnerWidth();
    void tallerThanWidePaintsNothing();
    void thumbFollowsAResizeAtRest_data();
    void thumbFollowsAResizeAtRest();
    void slideDrivesNoProperty();
    void mayBeDeletedByItsReceiver();
    void diesDuringItsSlide();
};

void TestEnableButton::startsOffAndAtRest()
{
    EnableButton button(nullptr);
    QVERIFY(!button.isChecked());
    const QPropertyAnimation* clock = clockOf(button);
    QVERIFY(clock);
    QCOMPARE(clock->targetObject(), &button);
    QCOMPARE(clock->propertyName(), QByteArray());
    QCOMPARE(clock->startValue(), QVariant(0));
    QCOMPARE(clock->endValue(), QVariant(25));
    QCOMPARE(clock->duration(), 200);
    QCOMPARE(clock->easingCurve().type(), QEasingCurve::Linear);
    QCOMPARE(clock->currentTime(), 200);
    QCOMPARE(clock->currentValue(), QVariant(25));
    QCOMPARE(clock->state(), QAbstractAnimation::Stopped);
    QCOMPARE(thumbLeft(button, OffThumb), 0);
}

void TestEnableButton::hasOneSizeOnly()
{
    const EnableButton button(nullptr);
    const QSize size(50, 24);
    QCOMPARE(button.sizeHint(), size);
    QCOMPARE(button.minimumSizeHint(), size);
    QCOMPARE(button.size(), size);
    QCOMPARE(button.minimumSize(), size);
    QCOMPARE(button.maximumSize(), size);
    QCOMPARE(button.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QVERIFY(!button.autoFillBackground());
    QCOMPARE(button.styleSheet(), QStringLiteral("background:transparent;"));
}

void TestEnableButton::isTransparentWhateverItsPageSays()
{
    QWidget page;
    page.setStyleSheet(QStringLiteral("QWidget{background-color:red;border:3px solid red;}"));
    EnableButton button(&page);
    button.ensurePolished();
    const QImage image = pictureOf(button);
    QCOMPARE(image.pixelColor(49, 0).alpha(), 0);
    QCOMPARE(button.width(), 50);
}

void TestEnableButton::leftPressToggles()
{
    EnableButton button(nullptr);
    const QSignalSpy enabled(&button, &EnableButton::enabled);
    QTest::mousePress(&button, Qt::LeftButton);
    QVERIFY(button.isChecked());
    QTest::mouseRelease(&button, Qt::LeftButton);
    QTest::mousePress(&button, Qt::LeftButton);
    QVERIFY(!button.isChecked());
    QCOMPARE(enabled.count(), 2);
    QCOMPARE(enabled.at(0), QVariantList{true});
    QCOMPARE(enabled.at(1), QVariantList{false});
}

void TestEnableButton::otherButtonsAreLeftToTheParent_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("back") << int(Qt::BackButton);
}

void TestEnableButton::otherButtonsAreLeftToTheParent()
{
    QFETCH(int, button);
    EnableButton widget(nullptr);
    const QSignalSpy enabled(&widget, &EnableButton::enabled);
    const auto pressed = static_cast<Qt::MouseButton>(button);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), pressed, pressed, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
    QVERIFY(!press.isAccepted());
    QVERIFY(!widget.isChecked());
    QCOMPARE(enabled.count(), 0);
    QCOMPARE(clockOf(widget)->state(), QAbstractAnimation::Stopped);
}

void TestEnableButton::signalComesAtTheStartOfTheSlide()
{
    EnableButton button(nullptr);
    int time = -1;
    bool running = false;
    connect(&button, &EnableButton::enabled, this, [&](bool on) {
        QCOMPARE(on, button.isChecked());
        time = clockOf(button)->currentTime();
        running = clockOf(button)->state() == QAbstractAnimation::Running;
    });
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(time, 0);
    QVERIFY(running);
}

void TestEnableButton::pressPutsTheThumbAtTheOldEnd()
{
    EnableButton button(nullptr);
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(thumbLeft(button, OnThumb), 0);
    finishSlide(button);
    QCOMPARE(thumbLeft(button, OnThumb), 26);
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(thumbLeft(button, OffThumb), 26);
    finishSlide(button);
    QCOMPARE(thumbLeft(button, OffThumb), 0);
}

void TestEnableButton::pressDuringASlideStartsItAnew()
{
    EnableButton button(nullptr);
    QTest::mousePress(&button, Qt::LeftButton);
    clockOf(button)->setCurrentTime(100);
    QTest::mousePress(&button, Qt::LeftButton);
    QVERIFY(!button.isChecked());
    QCOMPARE(clockOf(button)->currentTime(), 0);
    QCOMPARE(clockOf(button)->state(), QAbstractAnimation::Running);
    QCOMPARE(thumbLeft(button, OffThumb), 26);
}

void TestEnableButton::setCheckedAnimatesAndIsSilent()
{
    EnableButton button(nullptr);
    const QSignalSpy enabled(&button, &EnableButton::enabled);
    button.setChecked(true);
    QVERIFY(button.isChecked());
    QCOMPARE(clockOf(button)->state(), QAbstractAnimation::Running);
    QCOMPARE(clockOf(button)->currentTime(), 0);
    QTRY_COMPARE(clockOf(button)->state(), QAbstractAnimation::Stopped);
    QCOMPARE(clockOf(button)->currentValue(), QVariant(25));
    QCOMPARE(thumbLeft(button, OnThumb), 26);
    QCOMPARE(enabled.count(), 0);
}

void TestEnableButton::setCheckedOfTheSameStateNeedsForce()
{
    EnableButton button(nullptr);
    button.setChecked(true);
    finishSlide(button);
    clockOf(button)->stop();
    const QSignalSpy enabled(&button, &EnableButton::enabled);

    button.setChecked(true);
    QCOMPARE(clockOf(button)->state(), QAbstractAnimation::Stopped);
    QCOMPARE(thumbLeft(button, OnThumb), 26);

    button.setChecked(true, true);
    QVERIFY(button.isChecked());
    QCOMPARE(clockOf(button)->state(), QAbstractAnimation::Running);
    QCOMPARE(thumbLeft(button, OnThumb), 0);
    QCOMPARE(enabled.count(), 0);
}

void TestEnableButton::quickChangesNeverShowTheWrongEnd()
{
    EnableButton button(nullptr);
    button.setChecked(true);
    QCOMPARE(thumbLeft(button, OnThumb), 0);
    button.setChecked(false);
    QCOMPARE(thumbLeft(button, OffThumb), 26);
    button.setChecked(true);
    QCOMPARE(thumbLeft(button, OnThumb), 0);
}

void TestEnableButton::thumbFollowsTheValue_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("left");
    QTest::newRow("on, start") << true << 0 << 0;
    QTest::newRow("on, 1.04 is truncated") << true << 1 << 1;
    QTest::newRow("on, 12.48 is truncated") << true << 12 << 12;
    QTest::newRow("on, 24.96 is truncated") << true << 24 << 24;
    QTest::newRow("on, end") << true << 25 << 26;
    QTest::newRow("off, start") << false << 0 << 26;
    QTest::newRow("off, 13.52 is truncated") << false << 12 << 13;
    QTest::newRow("off, end") << false << 25 << 0;
}

void TestEnableButton::thumbFollowsTheValue()
{
    QFETCH(bool, on);
    QFETCH(int, value);
    QFETCH(int, left);
    EnableButton button(nullptr);
    button.setChecked(on, true);
    button.moveSlider(value);
    QCOMPARE(thumbLeft(button, on ? OnThumb : OffThumb), left);
}

void TestEnableButton::oddValuesAreHarmless_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("not a number") << QVariant(std::numeric_limits<double>::quiet_NaN());
    QTest::newRow("infinite") << QVariant(std::numeric_limits<double>::infinity());
    QTest::newRow("huge") << QVariant(1e300);
    QTest::newRow("most negative") << QVariant(std::numeric_limits<qlonglong>::min());
    QTest::newRow("text") << QVariant(QStringLiteral("abc"));
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("list") << QVariant(QVariantList{1, 2});
}

void TestEnableButton::oddValuesAreHarmless()
{
    QFETCH(QVariant, value);
    EnableButton button(nullptr);
    button.moveSlider(value);
    pictureOf(button);
    button.moveSlider(25);
    QCOMPARE(thumbLeft(button, OffThumb), 0);
}

void TestEnableButton::slideWithoutRepaint()
{
    class Counted : public EnableButton
    {
    public:
        Counted()
            : EnableButton(nullptr)
        {}
        int paints = 0;

    protected:
        void paintEvent(QPaintEvent* event) override
        {
            ++paints;
            EnableButton::paintEvent(event);
        }
    };
    Counted button;
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QTRY_VERIFY(button.paints > 0);
    QApplication::processEvents();
    const int before = button.paints;
    button.moveSlider(5, false);
    QApplication::processEvents();
    QCOMPARE(button.paints, before);
    button.moveSlider(5);
    QTRY_COMPARE(button.paints, before + 1);
}

void TestEnableButton::coloursFollowTheStateAtOnce()
{
    EnableButton button(nullptr);
    QCOMPARE(pictureOf(button).pixelColor(34, 12), OffTrack);
    QCOMPARE(pictureOf(button).pixelColor(12, 12), OffThumb);
    button.setChecked(true);
    QCOMPARE(pictureOf(button).pixelColor(34, 12), OnTrack);
    QCOMPARE(pictureOf(button).pixelColor(12, 12), OnThumb);
}

// 14 high, from 5 to 18, and from the middle of one end's thumb to that of the other, 12 to 37.
void TestEnableButton::trackSpansTheInnerWidth()
{
    EnableButton button(nullptr);
    const QImage off = pictureOf(button);
    QVERIFY(off.pixelColor(37, 12).alpha() > 200);
    QCOMPARE(off.pixelColor(38, 12).alpha(), 0);
    QCOMPARE(off.pixelColor(28, 4).alpha(), 0);
    QCOMPARE(off.pixelColor(28, 5), OffTrack);
    QCOMPARE(off.pixelColor(28, 18), OffTrack);
    QCOMPARE(off.pixelColor(28, 19).alpha(), 0);
    button.setChecked(true);
    finishSlide(button);
    const QImage on = pictureOf(button);
    QCOMPARE(on.pixelColor(11, 12).alpha(), 0);
    QVERIFY(on.pixelColor(12, 12).alpha() > 200);
    // Smooth edges.
    QVERIFY(off.pixelColor(0, 12).alpha() > 0 && off.pixelColor(0, 12).alpha() < 255);
}

void TestEnableButton::tallerThanWidePaintsNothing()
{
    EnableButton button(nullptr);
    button.setFixedSize(24, 25);
    QVERIFY(isEmpty(pictureOf(button)));
    button.setFixedSize(24, 24);
    QVERIFY(!isEmpty(pictureOf(button)));
}

void TestEnableButton::thumbFollowsAResizeAtRest_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("narrower") << 45;
    QTest::newRow("wider") << 80;
}

void TestEnableButton::thumbFollowsAResizeAtRest()
{
    QFETCH(int, width);
    EnableButton button(nullptr);
    button.setChecked(true);
    finishSlide(button);
    button.setFixedSize(width, 24);
    QCOMPARE(thumbLeft(button, OnThumb), width - 24);
}

void TestEnableButton::slideDrivesNoProperty()
{
    EnableButton button(nullptr);
    button.setChecked(true);
    QTRY_COMPARE(clockOf(button)->state(), QAbstractAnimation::Stopped);
    QVERIFY(!button.dynamicPropertyNames().contains(QByteArray()));
}

void TestEnableButton::mayBeDeletedByItsReceiver()
{
    auto button = std::make_unique<EnableButton>(nullptr);
    connect(button.get(), &EnableButton::enabled, this, [&] { button.reset(); });
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    // The handler alone: Qt itself goes on with the widget after a delivered event.
    static_cast<QObject*>(button.get())->event(&press);
    QVERIFY(!button);
}

void TestEnableButton::diesDuringItsSlide()
{
    QPointer<QPropertyAnimation> clock;
    {
        EnableButton button(nullptr);
        button.setChecked(true);
        clock = clockOf(button);
    }
    QVERIFY(!clock);
    QApplication::processEvents();
}

LASERWELD_TEST_MAIN(TestEnableButton)
#include "tst_enablebutton.moc"
