#include "Host.h"

#include <qelplugin.h>

namespace Host {

namespace {

constexpr int OperatorLevel = 3;

void tell(int level, const QString& text)
{
    qelplugin::ThrowLog(pluginName(), static_cast<qelplugin::enThrowLogLevel>(level), text);
}

bool serviceFlag(const char* key)
{
    return qelplugin::qelPluginInterface().getQelServiceData(QLatin1String(key)).toBool(false);
}

} // namespace

QString pluginName()
{
    return QLatin1String("qelLaserWelding");
}

bool mayOperate()
{
    return qelplugin::qelPluginInterface().getUserOperateLevel() >= OperatorLevel;
}

bool isVirtualWelding()
{
    return serviceFlag("laser_weld_data.virtual_welding_status");
}

bool isRedLightOn()
{
    return serviceFlag("laser_weld_data.weld_redlight_status");
}

void tellSuccess(const QString& text)
{
    tell(0, text);
}

void tellWarning(const QString& text)
{
    tell(1, text);
}

void tellError(const QString& text)
{
    tell(2, text);
}

} // namespace Host
