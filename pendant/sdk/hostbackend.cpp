#include "hostbackend.h"

#include <utility>

namespace qelplugin {

namespace {

constexpr int NothingThere = -1;

HostBackend* installed = nullptr;

} // namespace

HostBackend::HostBackend() = default;
HostBackend::~HostBackend() = default;

void HostBackend::pluginLabelSet(PluginBase*, const QString&) {}
void HostBackend::defaultGlobalSheetSet(PluginBase*, bool) {}

int HostBackend::createCenterWidget(const QString&, QWidget*)
{
    return NothingThere;
}

int HostBackend::createStatusBar(const QString&, QWidget*, int)
{
    return NothingThere;
}

int HostBackend::createPhyButtonList(const QString&, const QString&, const QList<PhysicalButton>&,
                                     const QList<PhysicalButton>&, const QStringList&)
{
    return NothingThere;
}

int HostBackend::changePhyButtonStatus(const QString&, const QString&, bool)
{
    return NothingThere;
}

int HostBackend::pluginWidget(const QString&, QWidget*&)
{
    return NothingThere;
}

int HostBackend::throwLog(const QString&, enThrowLogLevel, const QString&)
{
    return NothingThere;
}

QJsonValue HostBackend::nodeData(const QString&)
{
    return QJsonValue(QJsonValue::Undefined);
}

QJsonValue HostBackend::serviceData(const QString&)
{
    return QJsonValue(QJsonValue::Undefined);
}

QJsonArray HostBackend::command(QObject*, const QString&, const QJsonObject&)
{
    return {};
}

QJsonArray HostBackend::textCommand(QObject*, const QString&, const QString&, const QString&)
{
    return {};
}

bool HostBackend::robotPowered()
{
    return false;
}

int HostBackend::userLevel()
{
    return 0;
}

QJsonValue HostBackend::registers()
{
    return QJsonValue(QJsonValue::Undefined);
}

QHash<QString, QStringList> HostBackend::registerGroups()
{
    return {};
}

QStringList HostBackend::ports(const QString&)
{
    return {};
}

QStringList HostBackend::tools()
{
    return {};
}

QStringList HostBackend::workObjects()
{
    return {};
}

QStringList HostBackend::speeds()
{
    return {};
}

QStringList HostBackend::zones()
{
    return {};
}

QString HostBackend::currentTool()
{
    return {};
}

QString HostBackend::currentWorkObject()
{
    return {};
}

QStringList HostBackend::pointNames()
{
    return {};
}

bool HostBackend::addCurrentPoint(const QString&, bool, const QString&, const QString&)
{
    return false;
}

HostBackend* setHostBackend(HostBackend* backend)
{
    return std::exchange(installed, backend);
}

HostBackend& hostBackend()
{
    static HostBackend nothing;
    return installed ? *installed : nothing;
}

} // namespace qelplugin
