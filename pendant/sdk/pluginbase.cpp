#include "hostbackend.h"

namespace qelplugin {

// What a plugin tells of itself goes straight to the backend; nothing is kept here.
struct PluginBase::State
{};

PluginBase::PluginBase(QObject* parent)
    : QObject(parent)
    , state(nullptr)
{}

PluginBase::~PluginBase() = default;

void PluginBase::init() {}
void PluginBase::afterInit() {}
void PluginBase::render() {}
void PluginBase::idle() {}
void PluginBase::detach() {}

void PluginBase::setPluginLabel(const QString& label)
{
    hostBackend().pluginLabelSet(this, label);
}

void PluginBase::setDefaultGlobalSheet(bool on)
{
    hostBackend().defaultGlobalSheetSet(this, on);
}

} // namespace qelplugin
