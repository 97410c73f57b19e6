#include "qelLaserWelding.h"

#include "Host.h"
#include "LaserWeldPage.h"
#include "Log.h"
#include "RlLaserWeldDefine.h"
#include "ShowStatusBar.h"

namespace qelplugin {

namespace {

int registerPlugin()
{
    qelPluginFactory().regist(Host::pluginName(), [](QObject* parent) -> PluginBase* {
        return new qelLaserWelding(parent);
    });
    return 0;
}

// Runs while the library is being loaded.
const int registered = registerPlugin();

} // namespace

// The pointers are set by init(), before any use of them.
qelLaserWelding::qelLaserWelding(QObject* parent)
    : PluginBase(parent)
    , mainPage(nullptr)
    , statusBar(nullptr)
{
    Q_UNUSED(registered)
    setDefaultGlobalSheet(false);
    setPluginLabel(tr("Laser Welding"));
    monitorDataKey = QLatin1String("weld_monitor_data");
}

qelLaserWelding::~qelLaserWelding() = default;

void qelLaserWelding::init()
{
    LOGI(LogTag::Plugin) << "qelLaserWelding::iniUi()";
    mainPage = new LaserWeldPage(nullptr);
    CreateCenterWidget(Host::pluginName(), mainPage);
    LOGI(LogTag::Plugin) << "qelLaserWelding::init()";
    initPhysicalButton();
    statusBar = new ShowStatusBar(nullptr);
    // The keys have written this line themselves; it stands here as well.
    LOGI(LogTag::Plugin) << "qelLaserWelding::initPhysicalButton()";
    CreateStatusBar(Host::pluginName(), statusBar, 1);
    statusBar->showRealWelding();
}

void qelLaserWelding::afterInit()
{
    LOGI(LogTag::Plugin) << "QelPluginDemo::initData()";
    const RlLaserWeldDefine instructions(this);
    Q_UNUSED(instructions)
}

// Each call adds a connection; the outcome of a reconnection is the same.
void qelLaserWelding::render()
{
    mainPage->renderPages();
    connect(&qelPluginInterface(), &InterfaceManager::sigNetworkConnect, this,
            [this] { statusBar->showWorkMode(Host::isVirtualWelding()); });
}

void qelLaserWelding::idle() {}

int api()
{
    return 1;
}

} // namespace qelplugin
