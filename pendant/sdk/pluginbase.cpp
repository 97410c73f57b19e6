#include "hostbackend.h"

namespace qelplugin {

// What the plugin told of itself; the backend is told as well, as soon as it is said.
struct PluginBase::State
{
    QString label;
    bool globalSheet = true;
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
void PluginBase::detach() {}

void PluginBase::setPluginLabel(const QString& label)
{
    state->label = label;
    hostBackend().pluginLabelSet(this, state->label);
}

void PluginBase::setDefaultGlobalSheet(bool on)
{
    state->globalSheet = on;
    hostBackend().defaultGlobalSheetSet(this, state->globalSheet);
}

} // namespace qelplugin
