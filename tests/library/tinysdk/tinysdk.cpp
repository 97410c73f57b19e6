// A second SDK library, made from the declarations alone: what can be done with as little as this
// must not need the other one.

#include "tinysdk.h"

#include "qelplugin.h"

#include <list>
#include <map>
#include <utility>

using Factory = std::function<qelplugin::PluginBase*(QObject*)>;
using qelplugin::PhysicalButton;
using qelplugin::RLManager;

namespace {

/// All that it holds, in one place.
struct Everything
{
    QStringList calls;
    std::map<QString, Factory> factories;
    std::vector<PhysicalButton> keys;
    std::vector<RLManager::Factory> editors;
    QWidget* center = nullptr;
    QWidget* indicator = nullptr;
    std::list<QString> lines; ///< of the log, open at the moment
};

Everything& everything()
{
    static Everything all;
    return all;
}

template<typename... Argument>
void note(const char* function, const Argument&... argument)
{
    QString call;
    QDebug stream(&call);
    stream.noquote() << function;
    ((stream << argument), ...);
    everything().calls << call.trimmed();
}

QString* beginLine()
{
    everything().lines.emplace_back();
    return &everything().lines.back();
}

void endLine(const char* stream)
{
    note(stream, everything().lines.back().trimmed());
    everything().lines.pop_back();
}

} // namespace

namespace qelplugin {

struct PluginBase::State
{
    QString label;
};

PluginBase::PluginBase(QObject* parent)
    : QObject(parent)
    , state(new State)
{}

PluginBase::~PluginBase()
{
    delete state;
}

void PluginBase::init() {}
void PluginBase::afterInit() {}
void PluginBase::render() {}
void PluginBase::idle() {}

void PluginBase::detach()
{
    note("detach", state->label);
}

void PluginBase::setPluginLabel(const QString& label)
{
    state->label = label;
    note("setPluginLabel", label);
}

void PluginBase::setDefaultGlobalSheet(bool on)
{
    note("setDefaultGlobalSheet", on);
}

struct PluginRegister::State
{
    std::map<QString, Factory>& factories = everything().factories;
};

PluginRegister::PluginRegister()
    : state(new State)
{}

PluginRegister::~PluginRegister()
{
    delete state;
}

void PluginRegister::regist(const QString& name, Factory factory)
{
    state->factories[name] = std::move(factory);
}

int CreateCenterWidget(const QString& plugin, QWidget* widget)
{
    note("CreateCenterWidget", plugin);
    everything().center = widget;
    return 0;
}

int CreateStatusBar(const QString& plugin, QWidget* widget, int position)
{
    note("CreateStatusBar", plugin, position);
    everything().indicator = widget;
    return 0;
}

// NOLINTBEGIN(performance-unnecessary-value-param): by value in the binary interface
int CreatePhyButtonList(const QString& plugin, const QString& group,
                        const QList<PhysicalButton>& firstList,
                        const QList<PhysicalButton>& secondList, QStringList extra)
{
    note("CreatePhyButtonList", plugin, group, firstList.size(), secondList.size(), extra.size());
    everything().keys.insert(everything().keys.end(), firstList.begin(), firstList.end());
    everything().keys.insert(everything().keys.end(), secondList.begin(), secondList.end());
    return 0;
}
// NOLINTEND(performance-unnecessary-value-param)

int ChangePhyButtonStatus(const QString& plugin, const QString& group, bool active)
{
    note("ChangePhyButtonStatus", plugin, group, active);
    return 0;
}

int GetPluginNoUniqueWidget(const QString& plugin, QWidget*&)
{
    note("GetPluginNoUniqueWidget", plugin);
    return 1;
}

int ThrowLog(const QString& plugin, enThrowLogLevel level, const QString& text)
{
    note("ThrowLog", plugin, static_cast<int>(level), text);
    return 0;
}

InterfaceManager::InterfaceManager(QObject* parent)
    : QObject(parent)
{}

InterfaceManager::~InterfaceManager() = default;

QJsonValue InterfaceManager::getNodeData(const QString& key)
{
    note("getNodeData", key);
    return QJsonValue(QJsonValue::Undefined);
}

QJsonValue InterfaceManager::getQelServiceData(const QString& key)
{
    note("getQelServiceData", key);
    return QJsonValue(QJsonValue::Undefined);
}

QJsonArray InterfaceManager::commandCustomData(QObject*, const QString& plugin,
                                               const QJsonObject& data)
{
    note("commandCustomData", plugin, data.keys().join(QLatin1Char(',')));
    return {};
}

QJsonArray InterfaceManager::commandCustomData(QObject*, const QString& plugin,
                                               const QString& command, const QString& value)
{
    note("commandCustomData", plugin, command, value);
    return {};
}

bool InterfaceManager::getRobotEleStatus()
{
    return false;
}

int InterfaceManager::getUserOperateLevel()
{
    return 3;
}

QJsonValue InterfaceManager::getRegisterValue()
{
    return QJsonArray();
}

QHash<QString, QStringList> InterfaceManager::getRegisterHash()
{
    return {};
}

QStringList InterfaceManager::getIOByType(const QString&)
{
    return {};
}

QStringList InterfaceManager::getToolList()
{
    return {};
}

QStringList InterfaceManager::getWobjList()
{
    return {};
}

QStringList InterfaceManager::getSpeedList()
{
    return {};
}

QStringList InterfaceManager::getZoneList()
{
    return {};
}

QString InterfaceManager::getCurTool()
{
    return {};
}

QString InterfaceManager::getCurWobj()
{
    return {};
}

QStringList InterfaceManager::getPointNameList()
{
    return {};
}

bool InterfaceManager::addCurrentPoint(const QString&, bool, const QString&, const QString&)
{
    return false;
}

InterfaceManager& qelPluginInterface()
{
    static InterfaceManager manager;
    return manager;
}

QLog::QLog(const QString&, const QString&, const QString&)
    : QDebug(beginLine())
{
    noquote();
}

QLog::~QLog()
{
    endLine("QLog");
}

QLog& QLog::operator<<(const QString& text)
{
    QDebug::operator<<(text);
    return *this;
}

// No file: the second stream is the first.
QFLog::QFLog(const QString&, const QString&, const QString&, const QString&, const QString&)
    : console(beginLine())
    , fileStream(console)
{
    console.noquote();
}

QFLog::~QFLog()
{
    endLine("QFLog");
}

QFLog& QFLog::operator<<(const QString& text)
{
    console << text;
    return *this;
}

QFLog& QFLog::operator<<(const char* text)
{
    console << text;
    return *this;
}

QFLog& QFLog::operator<<(char character)
{
    console << character;
    return *this;
}

QFLog& QFLog::operator<<(int number)
{
    console << number;
    return *this;
}

QFLog& QFLog::operator<<(bool value)
{
    console << value;
    return *this;
}

RLContentBase::RLContentBase(QWidget* parent)
    : QWidget(parent)
{}

RLContentBase::~RLContentBase() = default;

void RLContentBase::FillWith(const QString&) {}

QString RLContentBase::BuildText()
{
    return {};
}

bool RLContentBase::CheckInsert()
{
    return false;
}

bool RLContentBase::CheckReplace()
{
    return false;
}

// NOLINTNEXTLINE(modernize-pass-by-value): the signature is part of the binary interface
RlCustomField::RlCustomField(const QString& name_, RlCustomFieldKind kind_, ArgRuleTypeAPI rule_)
    : name(name_)
    , kind(kind_)
    , rule(rule_)
{}

RlCustomField::RlCustomField(const RlCustomField& other) = default;
RlCustomField& RlCustomField::operator=(const RlCustomField& other) = default;
RlCustomField::~RlCustomField() = default;

RlCustomCommandSpec::RlCustomCommandSpec()
    : flag(false)
{}

RlCustomCommandSpec::RlCustomCommandSpec(const RlCustomCommandSpec& other) = default;
RlCustomCommandSpec& RlCustomCommandSpec::operator=(const RlCustomCommandSpec& other) = default;
RlCustomCommandSpec::~RlCustomCommandSpec() = default;

struct RLManager::State
{
    std::vector<Factory>& editors = everything().editors;
};

RLManager::RLManager(QObject* parent)
    : QObject(parent)
    , state(new State)
{}

RLManager::~RLManager()
{
    delete state;
}

void RLManager::createTypeKey(const QString& key)
{
    note("createTypeKey", key);
}

void RLManager::createSkeleton(const QString& key, const QString&)
{
    note("createSkeleton", key);
}

void RLManager::createInsDescribe(const QString& key, const QString&)
{
    note("createInsDescribe", key);
}

void RLManager::createPattern(const QString& key, const QString&)
{
    note("createPattern", key);
}

void RLManager::createInsDefault(const QString& key, const QString&)
{
    note("createInsDefault", key);
}

void RLManager::createInsertWidget(const QString& key, Factory factory)
{
    note("createInsertWidget", key);
    state->editors.push_back(std::move(factory));
}

void RLManager::createPropertyWidget(const QString& key, Factory factory)
{
    note("createPropertyWidget", key);
    state->editors.push_back(std::move(factory));
}

void RLManager::createTypeToGroup(const QString& group, const QString& key)
{
    note("createTypeToGroup", group, key);
}

void RLManager::createGroups(const QString& title, const QString& group)
{
    note("createGroups", title, group);
}

void RLManager::createData(const QString& group, const RlCustomCommandSpec& command, Factory insert,
                           Factory property)
{
    note("createData", group, command.name);
    state->editors.push_back(std::move(insert));
    state->editors.push_back(std::move(property));
}

} // namespace qelplugin

qelplugin::PluginRegister& qelPluginFactory()
{
    static qelplugin::PluginRegister registry;
    return registry;
}

namespace {

qelplugin::PluginBase& asPlugin(QObject* object)
{
    return *static_cast<qelplugin::PluginBase*>(object);
}

class Host : public TinySdk
{
public:
    QStringList takeCalls() override { return std::exchange(everything().calls, {}); }

    QStringList registered() override
    {
        QStringList names;
        for (const auto& factory : everything().factories)
            names << factory.first;
        return names;
    }
    QObject* make(const QString& name) override { return everything().factories[name](nullptr); }
    void init(QObject* plugin) override { asPlugin(plugin).init(); }
    void afterInit(QObject* plugin) override { asPlugin(plugin).afterInit(); }
    void render(QObject* plugin) override { asPlugin(plugin).render(); }
    void idle(QObject* plugin) override { asPlugin(plugin).idle(); }
    void detach(QObject* plugin) override { asPlugin(plugin).detach(); }

    QWidget* centerWidget() override { return everything().center; }
    QWidget* statusBar() override { return everything().indicator; }
    void pressKeys() override
    {
        for (const PhysicalButton& key : everything().keys) {
            key.callback(true);
            key.callback(false);
        }
    }
    int tryEditors() override
    {
        for (const RLManager::Factory& factory : everything().editors)
            delete factory();
        return int(everything().editors.size());
    }
    void connectNetwork() override { Q_EMIT qelplugin::qelPluginInterface().sigNetworkConnect(); }
    void forget() override { everything() = {}; }
};

} // namespace

extern "C" Q_DECL_EXPORT TinySdk* tinySdk()
{
    static Host host;
    return &host;
}
