#pragma once

#include "hostbackend.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>

/// What the benchmarks of the pages share: a host with a believable cell, and the wait for a frame.
namespace PageBench {

/// A cell with a record and a hundred ports of each kind.
class CellHost : public qelplugin::HostBackend
{
public:
    CellHost()
        : before(qelplugin::setHostBackend(this))
    {}
    ~CellHost() override { qelplugin::setHostBackend(before); }

    int createCenterWidget(const QString&, QWidget* widget) override
    {
        center = widget;
        return 0;
    }
    QJsonValue serviceData(const QString& key) override
    {
        if (key != QLatin1String("weld_setting_config"))
            return QJsonValue(QJsonValue::Undefined);
        return QJsonObject{{QLatin1String("laser_power"), 2500},
                           {QLatin1String("feedback_delay"), 800},
                           {QLatin1String("feeder_enable"), true}};
    }
    int userLevel() override { return 3; }
    QStringList ports(const QString& kind) override
    {
        QStringList names;
        for (int index = 0; index < 100; ++index)
            names << kind + QString::number(index);
        return names;
    }

    QPointer<QWidget> center;

private:
    Q_DISABLE_COPY(CellHost)
    qelplugin::HostBackend* before;
};

/// Notes the first paint of a widget.
class PaintWatch : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
    bool painted = false;
};

inline void showUntilPainted(QWidget* widget)
{
    PaintWatch watch;
    widget->installEventFilter(&watch);
    widget->show();
    while (!watch.painted)
        QApplication::processEvents();
}

} // namespace PageBench
