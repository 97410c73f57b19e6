#include "hostbackend.h"

namespace qelplugin {

int CreateCenterWidget(const QString& plugin, QWidget* widget)
{
    return hostBackend().createCenterWidget(plugin, widget);
}

int CreateStatusBar(const QString& plugin, QWidget* widget, int position)
{
    return hostBackend().createStatusBar(plugin, widget, position);
}

// NOLINTBEGIN(performance-unnecessary-value-param): by value in the binary interface
int CreatePhyButtonList(const QString& plugin, const QString& group,
                        const QList<PhysicalButton>& firstList,
                        const QList<PhysicalButton>& secondList, QStringList extra)
{
    return hostBackend().createPhyButtonList(plugin, group, firstList, secondList, extra);
}
// NOLINTEND(performance-unnecessary-value-param)

int ChangePhyButtonStatus(const QString& plugin, const QString& group, bool active)
{
    return hostBackend().changePhyButtonStatus(plugin, group, active);
}

int GetPluginNoUniqueWidget(const QString& plugin, QWidget*& widget)
{
    return hostBackend().pluginWidget(plugin, widget);
}

int ThrowLog(const QString& plugin, enThrowLogLevel level, const QString& text)
{
    return hostBackend().throwLog(plugin, level, text);
}

} // namespace qelplugin
