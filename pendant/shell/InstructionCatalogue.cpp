#include "InstructionCatalogue.h"

#include "SkeletonForm.h"

#include <algorithm>

namespace pendant {

namespace {

QString titleOf(const qelplugin::RlRegistry& registry, const QString& key)
{
    const auto found = std::find_if(registry.groups.begin(), registry.groups.end(),
                                    [&](const auto& group) { return group.key == key; });
    return found == registry.groups.end() || found->title.isEmpty() ? key : found->title;
}

bool isWord(QChar sign)
{
    return sign.isLetterOrNumber() || sign == QLatin1Char('_');
}

} // namespace

void InstructionCatalogue::load(const qelplugin::RlRegistry& registry)
{
    clear();
    instructions = registry.instructions;
    for (int i = 0; i < instructions.size(); ++i) {
        const qelplugin::RlInstruction& each = instructions.at(i);
        byName.insert(each.key, i);
        addToGroup(registry, i);
        QRegularExpression expression(each.pattern);
        if (!each.pattern.isEmpty() && expression.isValid()) {
            expression.optimize();
            patterns.append({expression, i});
        }
    }
}

void InstructionCatalogue::clear()
{
    instructions.clear();
    allGroups.clear();
    patterns.clear();
    byName.clear();
}

void InstructionCatalogue::addToGroup(const qelplugin::RlRegistry& registry, int index)
{
    const QString& key = instructions.at(index).group;
    auto group = std::find_if(allGroups.begin(), allGroups.end(),
                              [&](const Group& each) { return each.key == key; });
    if (group == allGroups.end())
        group = allGroups.insert(allGroups.end(), {key, titleOf(registry, key), {}});
    group->members << index;
}

int InstructionCatalogue::find(const QString& line) const
{
    const auto matching =
        std::find_if(patterns.begin(), patterns.end(), [&](const Pattern& pattern) {
            return pattern.expression.match(line).hasMatch();
        });
    return matching != patterns.end() ? matching->instruction : byName.value(callName(line), -1);
}

QString InstructionCatalogue::callName(const QString& line)
{
    const QChar* const end = line.constEnd();
    const auto isSpace = [](QChar sign) { return sign.isSpace(); };
    const QChar* const start = std::find_if_not(line.constBegin(), end, isSpace);
    const QChar* const stop = std::find_if_not(start, end, isWord);
    const QChar* const bracket = std::find_if_not(stop, end, isSpace);
    if (bracket == end || *bracket != QLatin1Char('('))
        return {};
    return QString(start, static_cast<int>(stop - start));
}

qelplugin::RLContentBase* InstructionCatalogue::makeInsertEditor(int index, QString* error) const
{
    return make(instructions.at(index).insertEditor, index, error);
}

qelplugin::RLContentBase* InstructionCatalogue::makePropertyEditor(int index, QString* error) const
{
    return make(instructions.at(index).propertyEditor, index, error);
}

qelplugin::RLContentBase* InstructionCatalogue::make(const qelplugin::RLManager::Factory& factory,
                                                     int index, QString* error) const
{
    if (factory)
        return factory();
    SkeletonError malformed;
    const auto skeleton = Skeleton::parse(instructions.at(index).skeleton, &malformed);
    if (skeleton && !skeleton->fields().isEmpty()) {
        auto* form = new SkeletonForm(*skeleton);
        form->FillWith(instructions.at(index).defaultText);
        return form;
    }
    *error = skeleton ? QString() : malformed.text();
    return nullptr;
}

} // namespace pendant
