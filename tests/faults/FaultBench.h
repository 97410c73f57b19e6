#pragma once

#include "LogFolder.h"
#include "ShellBackend.h"
#include "TestCell.h"
#include "qelLaserWelding.h"

#include <QList>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>

/// Milliseconds that were slept so far. Nobody waits for them: the sleep is this program's own.
unsigned long sleptMilliseconds();

/// The pendant's answers to the plugin, with faults in those to one command.
class FaultyBackend : public pendant::ShellBackend
{
    Q_OBJECT

public:
    explicit FaultyBackend(pendant::Controller& controller);

    /// The faults that the command of the name meets from now on, and no other.
    void arm(const QString& command, const pendant::Faults& faults);

    QStringList sent; ///< names of the commands
    QStringList read; ///< keys of the records

    QJsonValue serviceData(const QString& key) override;
    QJsonArray command(QObject* sender, const QString& plugin, const QJsonObject& data) override;
    QJsonArray textCommand(QObject* sender, const QString& plugin, const QString& command,
                           const QString& value) override;

private:
    QJsonArray faulty(const QString& command, const std::function<QJsonArray()>& send);

    pendant::Controller& cell;
    QString armedCommand;
    pendant::Faults armedFaults;
};

/// The plugin on the pendant's backend and a new cell, with a log of its own.
class FaultBench
{
public:
    FaultBench();
    ~FaultBench();

    /// Leaves the page of the navigation's entry, counted from 0, and opens it again, unless it has
    /// just been opened.
    QWidget* reopen(int entry);
    /// The open page no longer shows what it read.
    void touch() { freshEntry = -1; }
    QWidget* currentPage() const;
    void turnKey(const QString& label, bool pressed);
    bool indicatesVirtual() const;

    /// A command of somebody else's, past the faults.
    void command(const char* name, const QJsonValue& payload);
    QJsonValue record(const char* key) const;

    /// Forgets what was told, logged, sent and read so far.
    void forget();
    /// Since then, each with its level: "I: text".
    QStringList messages() const { return told; }
    QStringList logLines() const;

    TestCell cell;
    FaultyBackend backend;

private:
    Q_DISABLE_COPY(FaultBench)

    LogFolder folder;
    ConsoleCapture console;
    qelplugin::qelLaserWelding plugin;
    QPointer<QWidget> centre, indicator;
    QList<qelplugin::PhysicalButton> keys;
    QStringList told;
    int linesBefore = 0;
    int freshEntry = -1; ///< of the page that was opened anew and not touched since
};
