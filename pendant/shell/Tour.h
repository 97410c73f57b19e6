#pragma once

#include "Hand.h"
#include "Options.h"

#include <QImage>
#include <QJsonValue>

#include <functional>
#include <memory>
#include <optional>

namespace pendant {

class Session;

/// The pendant shows itself: performs the main job of an operator through the widgets, leaves a
/// numbered picture of each step, and stops at the first step that does not go as it should.
class Tour
{
public:
    /// The options must have their paths filled, the folder of the tour among them.
    explicit Tour(const Options& options);
    ~Tour();

    /// Performs all steps and says each in a line. Returns what failed; empty when nothing did.
    QString run(const std::function<void(const QString&)>& say);

private:
    friend struct TourSteps;

    bool fail(const QString& reason);
    bool expect(bool condition, const QString& otherwise);
    bool takePicture(int number, const QString& name);
    void settle();
    bool open();

    // What the steps are made of. Each returns whether it went as it should.
    bool logIn(int level);
    bool clickName(const QString& name);
    bool clickTool(const QString& text);
    bool expectMessage(int level, const QString& text);
    bool expectNoMessage();
    bool pressKey(const QString& label, int level, const QString& outcome);
    bool releaseKey(const QString& label, int level, const QString& outcome);
    bool workKey(const QString& label, int level, const QString& onPress, const QString& onRelease);
    bool turnSwitch(bool on);
    bool expectPage(bool editable);
    bool expectPower(int watts);
    bool expectVirtual(bool on);
    QJsonValue record(const QString& key) const;
    QImage indicator() const;
    QWidget* widget(const QString& name);

    Options options;
    std::unique_ptr<Session> session;
    std::optional<Hand> hand;
    QImage realWelding; ///< the indicator at the start of the tour
    QString trouble;
    int messagesRead = 0;
};

} // namespace pendant
