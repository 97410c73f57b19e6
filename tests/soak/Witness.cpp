#include "Witness.h"

#include "Controller.h"
#include "MainWindow.h"
#include "Session.h"

#include <utility>

namespace soak {

namespace {

Witness* present = nullptr;
QtMessageHandler handlerBefore = nullptr;

void hear(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    // The platform without a display says so of every popup.
    const bool isOfThePlatform = text.startsWith(QLatin1String("This plugin does not support "));
    if (type == QtDebugMsg || type == QtInfoMsg || isOfThePlatform)
        return;
    if (type == QtFatalMsg)
        handlerBefore(type, context, text);
    else if (present)
        present->warnings << text;
}

QString pathOf(const char* tag)
{
    return QStringLiteral("./log/qelplugin/%1/%1").arg(QString::fromLatin1(tag));
}

QStringList errorTexts(const QStringList& lines)
{
    QStringList texts;
    for (const QString& line : lines) {
        if (line.startsWith(QLatin1String("[E|")))
            texts << line.mid(line.indexOf(QLatin1String("] ")) + 2).simplified();
    }
    return texts;
}

} // namespace

Witness::Witness()
    : pluginLog(pathOf("qelLaserWelding"))
    , editorLog(pathOf("qellaserweld"))
{
    present = this;
    handlerBefore = qInstallMessageHandler(hear);
}

Witness::~Witness()
{
    qInstallMessageHandler(std::exchange(handlerBefore, nullptr));
    present = nullptr;
}

void Witness::listen(pendant::Session& session)
{
    const pendant::MessageModel& history = session.window().messages();
    connect(&history, &QAbstractItemModel::rowsInserted, this, [this, &history] {
        messages.append({history.at(0).level, history.at(0).text});
    });
    connect(&session.controller(), &pendant::Controller::logged, this,
            [this](const QString& text) { controllerLines << text; });
    connect(&session.controller(), &pendant::Controller::recordChanged, this,
            [this](const QString& key) { recordsChanged << key; });
}

void Witness::forget()
{
    messages.clear();
    controllerLines.clear();
    recordsChanged.clear();
    warnings.clear();
    takeErrorLines();
}

QStringList Witness::takeErrorLines()
{
    return errorTexts(pluginLog.take()) + errorTexts(editorLog.take());
}

} // namespace soak
