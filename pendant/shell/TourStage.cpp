#include "TourStage.h"

#include "Controller.h"
#include "MainWindow.h"
#include "Session.h"

#include <QAbstractAnimation>
#include <QCoreApplication>
#include <QPixmap>

#include <algorithm>

namespace pendant {

QString shown(const char* context, const char* text)
{
    return QCoreApplication::translate(context, text);
}

namespace {

QString keyName(const char* label)
{
    return QStringLiteral("key_") + shown("qelplugin::qelLaserWelding", label);
}

} // namespace

// The story begins with nobody logged in and the connection up.
TourStage::TourStage(const Options& tourOptions)
    : options(tourOptions)
{
    options.userLevel = 0;
    options.disconnected = false;
    options.powered = false;
}

TourStage::~TourStage() = default;

bool TourStage::open()
{
    QString error;
    session = Session::open(options, &error);
    if (!session)
        return fail(error);
    atWork.emplace(window());
    indicatorsAtStart = indicators();
    messagesRead = 0;
    for (const PluginReport& report : session->plugins().reports()) {
        if (!report.loaded)
            return fail(QStringLiteral("%1: %2").arg(report.file, report.reason));
    }
    return Hand::waitFor([this] { return window().isVisible(); });
}

void TourStage::close()
{
    atWork.reset();
    session.reset();
}

bool TourStage::openAgain(int trackingDelay)
{
    close();
    options.trackingDelay = trackingDelay;
    return open();
}

// Two turns of the event loop, for what a step posted lays itself out in the second; and to the end
// of what still slides.
void TourStage::settle()
{
    Hand::waitFor([turns = 0]() mutable { return ++turns > 2; });
    Hand::waitFor([this] {
        const auto all = window().findChildren<QAbstractAnimation*>();
        return std::none_of(all.begin(), all.end(), [](const QAbstractAnimation* each) {
            return each->state() == QAbstractAnimation::Running;
        });
    });
}

bool TourStage::takePicture(const QString& file)
{
    settle();
    return window().grab().save(file) || fail(QStringLiteral("cannot write %1").arg(file));
}

MainWindow& TourStage::window() const
{
    return session->window();
}

Controller& TourStage::controller() const
{
    return session->controller();
}

QJsonValue TourStage::record(const QString& key) const
{
    return controller().serviceData(key);
}

QImage TourStage::indicators() const
{
    return window().findChild<QWidget*>(latin("indicators"))->grab().toImage();
}

bool TourStage::fail(const QString& why)
{
    reason = why;
    return false;
}

bool TourStage::expect(bool condition, const QString& otherwise)
{
    return condition || fail(otherwise);
}

QString TourStage::trouble() const
{
    return reason.isEmpty() && atWork ? atWork->complaint() : reason;
}

QWidget* TourStage::widget(const QString& name)
{
    return atWork->find(name);
}

void TourStage::markMessages()
{
    messagesRead = window().messages().rowCount();
}

bool TourStage::logIn(int level)
{
    return clickName(latin("button_user")) &&
           clickName(QStringLiteral("button_level%1").arg(level));
}

bool TourStage::clickName(const QString& name)
{
    markMessages();
    return atWork->click(widget(name));
}

bool TourStage::clickTool(const char* text)
{
    markMessages();
    return atWork->click(atWork->findTool(shown("LaserWeldPage", text)));
}

bool TourStage::pressKey(const char* label)
{
    markMessages();
    return atWork->press(widget(keyName(label)));
}

bool TourStage::releaseKey(const char* label)
{
    markMessages();
    return atWork->release(widget(keyName(label)));
}

bool TourStage::expectMessage(int level, const QString& text)
{
    const MessageModel& messages = window().messages();
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

bool TourStage::expectNoMessage()
{
    const MessageModel& messages = window().messages();
    return expect(messages.rowCount() == messagesRead,
                  QStringLiteral("a message came: %1")
                      .arg(messages.rowCount() > 0 ? messages.at(0).text : QString()));
}

} // namespace pendant
