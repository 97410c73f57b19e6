#include "rlcustomcommand.h"

namespace qelplugin {

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

} // namespace qelplugin
