#include "Host.h"

#include <qelplugin.h>

namespace Host {

namespace {

constexpr int OperatorLevel = 3;

void tell(int level, const QString& text)
{
    qelplugin::ThrowLog(pluginName(), static_cast<qelplugin::enThrowLogLevel>(level), text);
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
