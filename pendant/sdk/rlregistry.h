#pragma once

#include "rlmanager.h"

#include <QHash>
#include <QStringList>
#include <QVector>

#include <functional>
#include <optional>

namespace qelplugin {

/// All that was registered under one instruction key.
struct RlInstruction
{
    QString key;
    QString group;
    QString skeleton;
    QString description;
    QString pattern;
    QString defaultText;
    RLManager::Factory insertEditor;
    RLManager::Factory propertyEditor;
    std::optional<RlCustomCommandSpec> command; ///< set when it came with typed arguments
};

struct RlGroup
{
    QString key;
    QString title;
};

/// The robot-program instructions of all plugins, in the order of their registration.
class QELPLUGIN_EXPORT RlRegistry
{
public:
    static RlRegistry& instance();

    QVector<RlInstruction> instructions;
    QVector<RlGroup> groups;
    /// Told of each registration before it takes effect, with the RLManager's operation and the
    /// texts that it was given. For whoever wants to know their order.
    std::function<void(const char* operation, const QStringList& texts)> observer;

    /// The instruction under the key, made when it is new.
    RlInstruction& instruction(const QString& key);
    RlGroup& group(const QString& key);
    /// Drops everything that was registered. To be called before the library whose factories these
    /// are is unloaded.
    void clear();
    void tellObserver(const char* operation, const QStringList& texts) const;
};

} // namespace qelplugin
