#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QWidget>

/// The host's side of the tiny SDK. A program reaches it through the symbol "tinySdk", so that it
/// need not be linked to the library whose place this one takes.
class TinySdk
{
public:
    virtual ~TinySdk() = default;

    /// What was called since the last look, in its order: the function and its arguments.
    virtual QStringList takeCalls() = 0;

    virtual QStringList registered() = 0;
    virtual QObject* make(const QString& name) = 0;
    virtual void init(QObject* plugin) = 0;
    virtual void afterInit(QObject* plugin) = 0;
    virtual void render(QObject* plugin) = 0;
    virtual void idle(QObject* plugin) = 0;
    virtual void detach(QObject* plugin) = 0;

    virtual QWidget* centerWidget() = 0;
    virtual QWidget* statusBar() = 0;
    /// Presses and releases every key.
    virtual void pressKeys() = 0;
    /// Makes every editor that was registered, and deletes it again. Returns their number.
    virtual int tryEditors() = 0;
    virtual void connectNetwork() = 0;

    /// Drops the factories, the keys and the instructions: all that is code of a plugin.
    virtual void forget() = 0;
};

using TinySdkEntry = TinySdk* (*)();
