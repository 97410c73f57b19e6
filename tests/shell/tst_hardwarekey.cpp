#include "HardwareKey.h"
#include "KeyColumn.h"
#include "TestCase.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QVBoxLayout>

#include <memory>

using namespace pendant;

namespace {

/// A window with one key and a field beside it; notes what the key calls.
struct Bench
{
    QVector<bool> calls;
    QWidget window;
    QVBoxLayout column{&window};
    HardwareKey* key;
    QLineEdit* field;

    Bench()
        : key(new HardwareKey({QStringLiteral("Gas"), {}, {}, [this](bool on) { calls << on; }},
                              &window))
        , field(new QLineEdit(&window))
    {
        column.addWidget(key);
        column.addWidget(field);
        window.show();
        window.activateWindow();
    }
    void press() { QTest::mousePress(key, Qt::LeftButton); }
    void release() { QTest::mouseRelease(key, Qt::LeftButton); }
};

QVector<bool> pressed()
{
    return {true};
}

QVector<bool> pressedAndReleased()
{
    return {true, false};
}

using Taking = void (*)(Bench&);

} // namespace

Q_DECLARE_METATYPE(Taking)

class TestHardwareKey : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pressAndRelease();
    void onlyTheLeftButton();
    void releaseBesideTheKey();
    void theFieldKeepsTheFocus();
    void takenAway_data();
    void takenAway();
    void focusIsTheKeyboards();
    void spaceBar();
    void autoRepeatDoesNotPressAgain();
    void otherKeysPassThrough();
    void disabledKeyIsDead();
    void letGoInsideItsOwnPress();
    void deletedWhileHeld();
    void withoutACallback();
    void finger();
    void columnShowsOnePluginAtATime();
    void columnReplacesAGroup();
    void columnReplacedByTheKeyItself();
    void columnSwitchesAGroup();
    void columnReleasesAll();
};

void TestHardwareKey::pressAndRelease()
{
    Bench bench;
    bench.press();
    QCOMPARE(bench.calls, pressed());
    QVERIFY(bench.key->isHeld());
    bench.release();
    QCOMPARE(bench.calls, pressedAndReleased());
    QVERIFY(!bench.key->isHeld());
}

void TestHardwareKey::onlyTheLeftButton()
{
    Bench bench;
    QTest::mouseClick(bench.key, Qt::RightButton);
    QVERIFY(bench.calls.isEmpty());
}

void TestHardwareKey::releaseBesideTheKey()
{
    Bench bench;
    bench.press();
    QTest::mouseMove(bench.key, QPoint(-50, -50));
    QCOMPARE(bench.calls, pressed());
    QTest::mouseRelease(bench.key, Qt::LeftButton, {}, QPoint(-50, -50));
    QCOMPARE(bench.calls, pressedAndReleased());
}

void TestHardwareKey::theFieldKeepsTheFocus()
{
    Bench bench;
    QVERIFY(QTest::qWaitForWindowActive(&bench.window));
    bench.field->setFocus();
    bench.press();
    QVERIFY(bench.field->hasFocus());
    bench.release();
}

void TestHardwareKey::takenAway_data()
{
    QTest::addColumn<Taking>("take");
    const auto row = [](const char* name, Taking take) { QTest::newRow(name) << take; };
    row("key hidden", [](Bench& b) { b.key->hide(); });
    row("page hidden", [](Bench& b) { b.window.hide(); });
    row("window closed", [](Bench& b) { b.window.close(); });
    row("key disabled", [](Bench& b) { b.key->setEnabled(false); });
    row("page disabled", [](Bench& b) { b.window.setEnabled(false); });
    row("window deactivated", [](Bench& b) {
        QEvent event(QEvent::WindowDeactivate);
        QApplication::sendEvent(&b.window, &event);
    });
    row("touch cancelled", [](Bench& b) {
        QEvent event(QEvent::TouchCancel);
        QApplication::sendEvent(b.key, &event);
    });
}

// Released once, and the pointer that comes up later releases nothing more.
void TestHardwareKey::takenAway()
{
    QFETCH(Taking, take);
    Bench bench;
    QVERIFY(QTest::qWaitForWindowActive(&bench.window));
    bench.press();
    take(bench);
    QCOMPARE(bench.calls, pressedAndReleased());
    bench.release();
    QCOMPARE(bench.calls, pressedAndReleased());
}

// It comes to a key by itself when the field that has it is locked, and goes at the next touch of
// another one: what a finger holds stays held.
void TestHardwareKey::focusIsTheKeyboards()
{
    Bench bench;
    QVERIFY(QTest::qWaitForWindowActive(&bench.window));
    bench.press();
    bench.key->setFocus();
    bench.field->setFocus();
    QCOMPARE(bench.calls, pressed());
    bench.release();
    QCOMPARE(bench.calls, pressedAndReleased());
    bench.calls.clear();
    bench.key->setFocus();
    QTest::keyPress(bench.key, Qt::Key_Space);
    bench.field->setFocus();
    QCOMPARE(bench.calls, pressedAndReleased());
}

void TestHardwareKey::spaceBar()
{
    Bench bench;
    QTest::keyPress(bench.key, Qt::Key_Space);
    QCOMPARE(bench.calls, pressed());
    QTest::keyRelease(bench.key, Qt::Key_Space);
    QCOMPARE(bench.calls, pressedAndReleased());
}

void TestHardwareKey::autoRepeatDoesNotPressAgain()
{
    Bench bench;
    QTest::keyPress(bench.key, Qt::Key_Return);
    for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent repeated(type, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(bench.key, &repeated);
    }
    QCOMPARE(bench.calls, pressed());
    QTest::keyRelease(bench.key, Qt::Key_Return);
    QCOMPARE(bench.calls, pressedAndReleased());
}

void TestHardwareKey::otherKeysPassThrough()
{
    Bench bench;
    QTest::keyClick(bench.key, Qt::Key_A);
    QVERIFY(bench.calls.isEmpty());
}

void TestHardwareKey::disabledKeyIsDead()
{
    Bench bench;
    bench.key->setEnabled(false);
    bench.key->hold();
    QVERIFY(bench.calls.isEmpty());
}

void TestHardwareKey::letGoInsideItsOwnPress()
{
    QVector<bool> calls;
    std::unique_ptr<HardwareKey> key;
    key = std::make_unique<HardwareKey>(
        qelplugin::PhysicalButton{QStringLiteral("Gas"), {}, {}, [&](bool on) {
                                      calls << on;
                                      if (on)
                                          key->letGo();
                                  }});
    key->hold();
    key->letGo();
    QCOMPARE(calls, pressedAndReleased());
}

void TestHardwareKey::deletedWhileHeld()
{
    Bench bench;
    bench.press();
    delete bench.key;
    QCOMPARE(bench.calls, pressedAndReleased());
}

void TestHardwareKey::withoutACallback()
{
    HardwareKey key({QStringLiteral("Dead"), {}, {}, nullptr});
    key.hold();
    QVERIFY(key.isHeld());
    key.letGo();
    QVERIFY(!key.isHeld());
}

void TestHardwareKey::finger()
{
    Bench bench;
    auto* device = QTest::createTouchDevice();
    QTest::touchEvent(&bench.window, device).press(0, QPoint(5, 5), bench.key);
    QCOMPARE(bench.calls, pressed());
    QTest::touchEvent(&bench.window, device).release(0, QPoint(5, 5), bench.key);
    QCOMPARE(bench.calls, pressedAndReleased());
}

namespace {

const QString PluginA = QStringLiteral("a");
const QString PluginB = QStringLiteral("b");
const QString Group = QStringLiteral("group");

/// A column with one key of each of two plugins; notes what they call.
struct ColumnBench
{
    QStringList calls;
    KeyColumn column;

    ColumnBench()
    {
        column.showPlugin(PluginA);
        column.setKeys(PluginA, Group, {record("one"), record("two")});
        column.setKeys(PluginB, Group, {record("three")});
        column.show();
    }
    qelplugin::PhysicalButton record(const char* label)
    {
        const QString name = QString::fromLatin1(label);
        return {
            name, {}, {}, [this, name](bool on) { calls << name + QLatin1Char(on ? '+' : '-'); }};
    }
    HardwareKey* key(const char* label)
    {
        return child<HardwareKey>(&column, (QByteArray("key_") + label).constData());
    }
};

} // namespace

void TestHardwareKey::columnShowsOnePluginAtATime()
{
    ColumnBench bench;
    QVERIFY(bench.key("one")->isVisible());
    QVERIFY(!bench.key("three")->isVisible());
    bench.key("one")->hold();
    bench.column.showPlugin(PluginB);
    QVERIFY(!bench.key("one")->isVisible());
    QVERIFY(bench.key("three")->isVisible());
    QCOMPARE(bench.calls, QStringList({QStringLiteral("one+"), QStringLiteral("one-")}));
}

void TestHardwareKey::columnReplacesAGroup()
{
    ColumnBench bench;
    bench.column.setKeys(PluginA, Group, {bench.record("four")});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(bench.column.findChildren<HardwareKey*>().size(), 2);
    QVERIFY(bench.key("four")->isVisible());
    QVERIFY(!bench.key("three")->isVisible());
}

void TestHardwareKey::columnReplacedByTheKeyItself()
{
    ColumnBench bench;
    qelplugin::PhysicalButton record{QStringLiteral("self"), {}, {}, [&](bool on) {
                                         if (on)
                                             bench.column.setKeys(PluginA, Group, {});
                                     }};
    bench.column.setKeys(PluginA, Group, {record});
    QTest::mousePress(bench.key("self"), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(bench.column.findChildren<HardwareKey*>().size(), 1);
}

void TestHardwareKey::columnSwitchesAGroup()
{
    ColumnBench bench;
    bench.column.setActive(PluginA, Group, false);
    QVERIFY(!bench.key("one")->isEnabled());
    QVERIFY(bench.key("three")->isEnabled());
    bench.column.setActive(PluginA, Group, true);
    QVERIFY(bench.key("one")->isEnabled());
}

void TestHardwareKey::columnReleasesAll()
{
    ColumnBench bench;
    bench.key("one")->hold();
    bench.key("two")->hold();
    bench.column.releaseAll();
    bench.column.clear();
    QCOMPARE(bench.calls, QStringList({QStringLiteral("one+"), QStringLiteral("two+"),
                                       QStringLiteral("one-"), QStringLiteral("two-")}));
    QVERIFY(bench.column.findChildren<HardwareKey*>().isEmpty());
}

LASERWELD_TEST_MAIN(TestHardwareKey)
#include "tst_hardwarekey.moc"
