#include "SeamTrackingPage.h"

#include <qelplugin.h>

namespace qelplugin {

namespace {

QString pluginName()
{
    return QLatin1String("qelLaserSeamTracking");
}

/// Hands the page over; the laser welding takes it into its own.
class SeamTracking : public PluginBase
{
    Q_OBJECT

public:
    explicit SeamTracking(QObject* parent)
        : PluginBase(parent)
    {
        setDefaultGlobalSheet(false);
        setPluginLabel(tr("Seam Tracking"));
    }

    void init() override { CreateCenterWidget(pluginName(), new SeamTrackingPage); }
};

int registerPlugin()
{
    qelPluginFactory().regist(
        pluginName(), [](QObject* parent) -> PluginBase* { return new SeamTracking(parent); });
    return 0;
}

// Runs while the library is being loaded.
[[maybe_unused]] const int registered = registerPlugin();

} // namespace

Q_DECL_EXPORT int api();
int api()
{
    return 1;
}

} // namespace qelplugin

#include "SeamTracking.moc"
