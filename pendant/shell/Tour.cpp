#include "Tour.h"

#include "Controller.h"
#include "FaultPanel.h"
#include "MainWindow.h"
#include "Session.h"

#include <QAbstractAnimation>
#include <QDir>
#include <QJsonArray>
#include <QPixmap>

#include <algorithm>

namespace pendant {

namespace {

constexpr int Information = 0;
constexpr int Warning = 1;
constexpr int Error = 2;

constexpr int OperatorLevel = 3;
constexpr int TooLow = 2;
constexpr int NewPower = 2650; // watts; no cell starts with it

constexpr const char* MainSwitch = "pushButton_main_enable";
constexpr const char* PowerField = "spinBox_laser_power";
constexpr const char* Setting = "weld_setting_config";
constexpr const char* RedLight = "laser_weld_data.weld_redlight_status";
constexpr const char* VirtualWelding = "laser_weld_data.virtual_welding_status";

// What the main switch locks.
constexpr const char* Locked[] = {"frame", "frame_2", "frame_3", "frame_4", "frame_WireSticking"};

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

/// The story, one row for each step.
struct TourSteps
{
    struct Step
    {
        const char* name; ///< of the picture
        const char* title;
        bool (*perform)(Tour& tour);
    };

    static bool savePower(Tour& tour)
    {
        return tour.clickName(latin("pushButton_save")) &&
               tour.expectMessage(Information, latin("Saved successfully")) &&
               tour.expect(tour.record(latin(Setting))[QLatin1String("laser_power")].toInt() ==
                               NewPower,
                           latin("the controller does not hold the new laser power"));
    }

    static bool startAgain(Tour& tour)
    {
        tour.hand.reset();
        tour.session.reset();
        return tour.open() && tour.logIn(OperatorLevel) && tour.clickTool(latin("Weld Setup")) &&
               tour.expectPower(NewPower);
    }

    static bool switchOn(Tour& tour) { return tour.turnSwitch(true) && tour.expectPage(false); }

    // Switching off is not stored by itself.
    static bool switchOff(Tour& tour)
    {
        return tour.clickName(latin(MainSwitch)) && tour.expectPage(true) &&
               tour.clickName(latin("pushButton_save")) &&
               tour.expectMessage(Information, latin("Saved successfully")) &&
               tour.expect(
                   !tour.record(latin(Setting))[QLatin1String("laser_main_enable")].toBool(true),
                   latin("the controller still holds the main switch on"));
    }

    static bool refusedWhilePowered(Tour& tour)
    {
        return tour.clickName(latin("button_power")) && tour.clickName(latin(MainSwitch)) &&
               tour.expectMessage(Error, latin("Do not modify while powered on!")) &&
               tour.expectPage(true);
    }

    static bool redLight(Tour& tour)
    {
        const bool before = tour.record(latin(RedLight)).toBool();
        return tour.workKey(latin("Red Light"), Information, QString(), QString()) &&
               tour.expect(tour.record(latin(RedLight)).toBool() != before,
                           latin("the red light did not change"));
    }

    static bool workMode(Tour& tour)
    {
        return tour.workKey(latin("Work mode"), Information, latin("Switch to VirtualWelding"),
                            QString()) &&
               tour.expectVirtual(true);
    }

    // What the indicator shows must not change before the connection is back.
    static bool dropConnection(Tour& tour)
    {
        if (!tour.clickName(latin("button_connection")))
            return false;
        tour.session->controller().setVirtualWelding(false);
        return tour.expect(!tour.session->controller().isConnected(),
                           latin("the connection did not go down")) &&
               tour.expectVirtual(true);
    }

    static bool bringBack(Tour& tour)
    {
        return tour.clickName(latin("button_connection")) && tour.expectVirtual(false) &&
               tour.expect(!tour.record(latin(VirtualWelding)).toBool(true),
                           latin("the controller is not in real welding"));
    }

    // The keys that test the user before the key's state refuse the release as well.
    static bool keysRefused(Tour& tour)
    {
        const QString refusal = latin("Insufficient user permissions!");
        bool good = true;
        for (const char* key : {"Wiring", "Retract Wire"})
            good = good && tour.workKey(latin(key), Warning, refusal, refusal);
        for (const char* key : {"Work mode", "ProtectGas", "Red Light"})
            good = good && tour.workKey(latin(key), Warning, refusal, QString());
        return good;
    }

    static bool pageRefused(Tour& tour)
    {
        const auto* page = tour.widget(latin("WeldSettingPage"));
        return tour.expect(page && !page->isEnabled(), latin("the page is not locked")) &&
               tour.clickName(latin(MainSwitch)) && tour.expectNoMessage() &&
               tour.clickName(latin("pushButton_save")) && tour.expectNoMessage();
    }

    static bool refusedBelowLevel(Tour& tour)
    {
        const auto state = [&] {
            return QJsonArray{tour.record(latin(Setting)), tour.record(latin("laser_weld_data"))};
        };
        const QJsonArray before = state();
        return tour.logIn(TooLow) && keysRefused(tour) && pageRefused(tour) &&
               tour.expect(state() == before, latin("the controller holds something new"));
    }

    static const std::vector<Step>& all()
    {
        static const std::vector<Step> steps{
            {"start", "The pendant starts and loads the plugin", [](Tour& t) { return t.open(); }},
            {"log-in", "A user of level 3 logs in", [](Tour& t) { return t.logIn(OperatorLevel); }},
            {"weld-setup", "\"Weld Setup\" shows the controller's record",
             [](Tour& t) {
                 return t.clickTool(latin("Weld Setup")) &&
                        t.expectPower(
                            t.record(latin(Setting))[QLatin1String("laser_power")].toInt());
             }},
            {"laser-power", "The laser power is changed",
             [](Tour& t) {
                 return t.hand->enter(t.widget(latin(PowerField)), NewPower) &&
                        t.expectPower(NewPower);
             }},
            {"saved", "\"Save\" is pressed", savePower},
            {"start-again", "The pendant is closed and started again: the value is there",
             startAgain},
            {"switch-on", "The main switch goes on: the page locks", switchOn},
            {"switch-off", "The main switch goes off again", switchOff},
            {"powered", "The switch is refused while the robot is powered", refusedWhilePowered},
            {"power-off", "The robot's power goes off",
             [](Tour& t) {
                 return t.clickName(latin("button_power")) &&
                        t.expect(!t.session->controller().isPowered(),
                                 latin("the robot is still powered"));
             }},
            {"key-wiring", "Key \"Wiring\": pressed and released",
             [](Tour& t) {
                 return t.workKey(latin("Wiring"), Information, latin("Feed wire successfully"),
                                  latin("Feed wire successfully"));
             }},
            {"key-gas-held", "Key \"ProtectGas\": held",
             [](Tour& t) {
                 return t.pressKey(latin("ProtectGas"), Information,
                                   latin("Open gas successfully"));
             }},
            {"key-gas", "Key \"ProtectGas\": released",
             [](Tour& t) { return t.releaseKey(latin("ProtectGas"), Information, QString()); }},
            {"key-retract", "Key \"Retract Wire\": pressed and released",
             [](Tour& t) {
                 return t.workKey(latin("Retract Wire"), Information,
                                  latin("Retract wire successfully"),
                                  latin("Retract wire successfully"));
             }},
            {"key-red-light", "Key \"Red Light\": the light changes", redLight},
            {"key-work-mode", "Key \"Work mode\": the indicator shows virtual welding", workMode},
            {"connection-dropped",
             "The connection is dropped, and the mode changed at the controller", dropConnection},
            {"connection-back", "The connection is back: the indicator follows the controller",
             bringBack},
            {"level-2", "A user of level 2 is refused everything", refusedBelowLevel},
            {"messages", "The message history",
             [](Tour& t) { return t.clickName(latin("button_messages")); }},
            {"faults", "The fault panel",
             [](Tour& t) { return t.clickName(latin("button_faults")); }},
            {"controller-log", "The controller's own log",
             [](Tour& t) { return t.clickName(latin("button_log")); }},
            {"plugins", "The list of plugins",
             [](Tour& t) { return t.clickName(latin("button_plugins")); }},
            {"users", "The users",
             [](Tour& t) {
                 return t.clickName(latin("button_closeDrawer")) &&
                        t.clickName(latin("button_user"));
             }},
        };
        return steps;
    }
};

Tour::Tour(const Options& tourOptions)
    : options(tourOptions)
{
    // The story begins with nobody logged in and the connection up.
    options.userLevel = 0;
    options.disconnected = false;
    options.powered = false;
}

Tour::~Tour() = default;

QString Tour::run(const std::function<void(const QString&)>& say)
{
    if (!QDir().mkpath(options.tourFolder))
        return QStringLiteral("cannot make the folder %1").arg(options.tourFolder);
    int number = 0;
    for (const TourSteps::Step& step : TourSteps::all()) {
        ++number;
        const bool good = step.perform(*this);
        if (session)
            takePicture(number, latin(step.name));
        say(QStringLiteral("%1 %2 %3\n")
                .arg(number, 2)
                .arg(good ? latin("ok  ") : latin("FAIL"), latin(step.title)));
        if (!good) {
            const QString reason = trouble.isEmpty() && hand ? hand->complaint() : trouble;
            return QStringLiteral("step %1 (%2): %3").arg(number).arg(latin(step.name), reason);
        }
    }
    return trouble;
}

bool Tour::fail(const QString& reason)
{
    trouble = reason;
    return false;
}

bool Tour::expect(bool condition, const QString& otherwise)
{
    return condition || fail(otherwise);
}

// Two turns of the event loop, for what a step posted lays itself out in the second; and to the end
// of what still slides.
void Tour::settle()
{
    Hand::waitFor([turns = 0]() mutable { return ++turns > 2; });
    Hand::waitFor([this] {
        const auto all = session->window().findChildren<QAbstractAnimation*>();
        return std::none_of(all.begin(), all.end(), [](const QAbstractAnimation* each) {
            return each->state() == QAbstractAnimation::Running;
        });
    });
}

bool Tour::takePicture(int number, const QString& name)
{
    const QString file = QStringLiteral("%1/%2-%3.png")
                             .arg(options.tourFolder)
                             .arg(number, 2, 10, QLatin1Char('0'))
                             .arg(name);
    settle();
    return session->window().grab().save(file) || fail(QStringLiteral("cannot write %1").arg(file));
}

bool Tour::open()
{
    QString error;
    session = Session::open(options, &error);
    if (!session)
        return fail(error);
    hand.emplace(session->window());
    realWelding = indicator();
    messagesRead = 0;
    for (const PluginReport& report : session->plugins().reports()) {
        if (!report.loaded)
            return fail(QStringLiteral("%1: %2").arg(report.file, report.reason));
    }
    return Hand::waitFor([this] { return session->window().isVisible(); });
}

bool Tour::logIn(int level)
{
    return clickName(latin("button_user")) &&
           clickName(QStringLiteral("button_level%1").arg(level));
}

bool Tour::clickName(const QString& name)
{
    messagesRead = session->window().messages().rowCount();
    return hand->click(widget(name));
}

bool Tour::clickTool(const QString& text)
{
    return hand->click(hand->findTool(text));
}

bool Tour::expectMessage(int level, const QString& text)
{
    const MessageModel& messages = session->window().messages();
    if (!Hand::waitFor([&] { return messages.rowCount() > messagesRead; }))
        return fail(QStringLiteral("no message came; expected: %1").arg(text));
    const Message& last = messages.at(0);
    return expect(last.level == level && last.text == text,
                  QStringLiteral("message %1: \"%2\"; expected %3: \"%4\"")
                      .arg(last.level)
                      .arg(last.text)
                      .arg(level)
                      .arg(text));
}

bool Tour::expectNoMessage()
{
    const MessageModel& messages = session->window().messages();
    return expect(messages.rowCount() == messagesRead,
                  QStringLiteral("a message came: %1")
                      .arg(messages.rowCount() > 0 ? messages.at(0).text : QString()));
}

bool Tour::pressKey(const QString& label, int level, const QString& outcome)
{
    messagesRead = session->window().messages().rowCount();
    if (!hand->press(widget(QStringLiteral("key_") + label)))
        return false;
    return outcome.isEmpty() ? expectNoMessage() : expectMessage(level, outcome);
}

bool Tour::releaseKey(const QString& label, int level, const QString& outcome)
{
    messagesRead = session->window().messages().rowCount();
    if (!hand->release(widget(QStringLiteral("key_") + label)))
        return false;
    return outcome.isEmpty() ? expectNoMessage() : expectMessage(level, outcome);
}

bool Tour::workKey(const QString& label, int level, const QString& onPress,
                   const QString& onRelease)
{
    return pressKey(label, level, onPress) && releaseKey(label, level, onRelease);
}

bool Tour::turnSwitch(bool on)
{
    return clickName(latin(MainSwitch)) &&
           expect(Hand::waitFor([&] {
                      return record(latin(Setting))[QLatin1String("laser_main_enable")].toBool() ==
                             on;
                  }),
                  latin("the controller does not hold the main switch"));
}

bool Tour::expectPage(bool editable)
{
    for (const char* name : Locked) {
        const QWidget* frame = widget(latin(name));
        if (!frame || frame->isEnabled() != editable) {
            return fail(QStringLiteral("\"%1\" is %2")
                            .arg(latin(name), latin(editable ? "locked" : "free")));
        }
    }
    return true;
}

bool Tour::expectPower(int watts)
{
    QWidget* field = widget(latin(PowerField));
    return field && expect(field->property("value").toInt() == watts,
                           QStringLiteral("the field shows %1 W, not %2 W")
                               .arg(field->property("value").toInt())
                               .arg(watts));
}

// The picture at the start is that of real welding.
bool Tour::expectVirtual(bool on)
{
    return expect(Hand::waitFor([&] { return (indicator() != realWelding) == on; }),
                  latin(on ? "the indicator does not show virtual welding"
                           : "the indicator does not show real welding"));
}

QJsonValue Tour::record(const QString& key) const
{
    return session->controller().serviceData(key);
}

QImage Tour::indicator() const
{
    auto* place = session->window().findChild<QWidget*>(latin("indicators"));
    return place->grab().toImage();
}

QWidget* Tour::widget(const QString& name)
{
    return hand->find(name);
}

} // namespace pendant
