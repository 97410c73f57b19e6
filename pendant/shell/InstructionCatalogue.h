#pragma once

#include "rlregistry.h"

#include <QHash>
#include <QRegularExpression>
#include <QVector>

namespace pendant {

/// The instructions that plugins registered: by group, and by the program line.
///
/// It holds copies of the editors' factories: to be cleared before the plugins are unloaded.
class InstructionCatalogue
{
public:
    struct Group
    {
        QString key;
        QString title; ///< the key where the group was never declared
        QVector<int> members;
    };

    /// Takes over what is registered now and compiles the patterns.
    void load(const qelplugin::RlRegistry& registry);
    void clear();

    /// Those with at least one instruction, in the order of their first one.
    const QVector<Group>& groups() const { return allGroups; }
    int size() const { return instructions.size(); }
    const qelplugin::RlInstruction& at(int index) const { return instructions.at(index); }

    /// Which instruction the line is: that whose pattern it matches, else that of its call name. -1
    /// when it is none.
    int find(const QString& line) const;
    /// The word before the first "(" when the line begins with it; else empty.
    static QString callName(const QString& line);

    /// A new editor, owned by the caller: the plugin's own, else a form made from the skeleton.
    /// Null when there is neither, with the reason in `error` where the skeleton is malformed.
    qelplugin::RLContentBase* makeInsertEditor(int index, QString* error) const;
    qelplugin::RLContentBase* makePropertyEditor(int index, QString* error) const;

private:
    struct Pattern
    {
        QRegularExpression expression;
        int instruction;
    };

    void addToGroup(const qelplugin::RlRegistry& registry, int index);
    qelplugin::RLContentBase* make(const qelplugin::RLManager::Factory& factory, int index,
                                   QString* error) const;

    QVector<qelplugin::RlInstruction> instructions;
    QVector<Group> allGroups;
    QVector<Pattern> patterns;
    QHash<QString, int> byName;
};

} // namespace pendant
