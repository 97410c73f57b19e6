#pragma once

#include "qelpluginglobal.h"

#include <QList>
#include <QString>

namespace qelplugin {

/// What an argument of an instruction holds. The values are part of the interface with the host.
enum RlCustomFieldKind {
    Number = 1,
    Text = 2, ///< stands in quotation marks in the call
    RobTarget = 3,
    Speed = 5,
    Zone = 6,
    Tool = 7,
    Wobj = 8,
};

/// Argument rule.
enum ArgRuleTypeAPI {
    ArgRuleNone = 0,
};

/// One argument of an instruction with typed arguments.
class QELPLUGIN_EXPORT RlCustomField
{
public:
    RlCustomField(const QString& name, RlCustomFieldKind kind, ArgRuleTypeAPI rule);
    RlCustomField(const RlCustomField& other);
    RlCustomField& operator=(const RlCustomField& other);
    ~RlCustomField();

    QString name;
    RlCustomFieldKind kind;
    ArgRuleTypeAPI rule;
};

/// An instruction with typed arguments.
class QELPLUGIN_EXPORT RlCustomCommandSpec
{
public:
    RlCustomCommandSpec();
    RlCustomCommandSpec(const RlCustomCommandSpec& other);
    RlCustomCommandSpec& operator=(const RlCustomCommandSpec& other);
    ~RlCustomCommandSpec();

    QString name;        ///< the instruction's key
    QString description; ///< purpose, an empty line, the signature
    QString skeleton;    ///< the key followed by a semicolon
    bool flag;
    QList<RlCustomField> fields; ///< the arguments in the order of the call
};

} // namespace qelplugin
