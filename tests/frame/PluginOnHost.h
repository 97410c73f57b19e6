#pragma once

#include "LogFolder.h"
#include "ScriptedHost.h"
#include "qelLaserWelding.h"

#include <QLabel>
#include <QPixmap>

/// The plugin on a scripted host, with a log and a console of its own. Owns the widgets that the
/// plugin hands over, as the host does.
class PluginOnHost
{
public:
    ~PluginOnHost()
    {
        delete host.centerWidget;
        delete host.statusBarWidget;
    }

    // The host's side of the plugin: its operations are the base's.
    qelplugin::PluginBase& asHostSees() { return plugin; }

    /// The picture that the indicator shows.
    QImage picture() const
    {
        const auto* label = host.statusBarWidget->findChild<QLabel*>(QStringLiteral("label"));
        return label->pixmap(Qt::ReturnByValue).toImage();
    }

    /// What the indicator is to show.
    static QImage pictureOf(bool isVirtual)
    {
        const QPixmap whole(isVirtual ? QStringLiteral(":/png/LaserSwitchSimu.png")
                                      : QStringLiteral(":/png/LaserSwitchReal.png"));
        return whole.scaledToHeight(25, Qt::SmoothTransformation).toImage();
    }

    ScriptedHost host;
    LogFolder folder;
    ConsoleCapture console;
    qelplugin::qelLaserWelding plugin;
};
