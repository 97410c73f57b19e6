#include "JsonCommon.h"

namespace JsonCommon {
QStringList diList()
{
    return {};
}
QStringList doList()
{
    return {};
}
} // namespace JsonCommon
