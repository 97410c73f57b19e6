#include "rlcontentbase.h"

namespace qelplugin {

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
    return true;
}

bool RLContentBase::CheckReplace()
{
    return true;
}

} // namespace qelplugin
