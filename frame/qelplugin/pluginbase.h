#pragma once

#include "qelpluginglobal.h"

#include <QObject>
#include <QString>

namespace qelplugin {

/// Base of a plugin. The host makes it through the factory that the library registered and calls
/// init(), afterInit() and render(), in this order, on the GUI thread. The order in which the
/// virtual operations stand is part of the binary interface.
class QELPLUGIN_EXPORT PluginBase : public QObject
{
    Q_OBJECT

public:
    explicit PluginBase(QObject* parent);
    ~PluginBase() override;

    virtual void init();
    virtual void afterInit();
    virtual void render();
    virtual void idle();
    virtual void detach();

    /// Name of the plugin as the operator reads it.
    void setPluginLabel(const QString& label);
    /// Whether the host lays its global style sheet over the plugin's widgets.
    void setDefaultGlobalSheet(bool on);

private:
    Q_DISABLE_COPY(PluginBase)
    struct State;
    State* state;
};

} // namespace qelplugin
