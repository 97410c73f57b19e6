#pragma once

#include "pluginbase.h"

#include <functional>

namespace qelplugin {

/// The host's list of plugin factories, one for the process.
class QELPLUGIN_EXPORT PluginRegister
{
public:
    PluginRegister();
    ~PluginRegister();

    /// Remembers the factory under the plugin's name; a second one under the same name replaces it.
    void regist(const QString& name, std::function<PluginBase*(QObject*)> factory);

private:
    Q_DISABLE_COPY(PluginRegister)
    struct State;
    State* state;
};

} // namespace qelplugin

/// The process-wide registry; usable while a library is being loaded.
QELPLUGIN_EXPORT qelplugin::PluginRegister& qelPluginFactory();
