#include "NaturalSort.h"

#include "JsonCommon.h"

#include <algorithm>

QStringList naturallySorted(QStringList names)
{
    std::sort(names.begin(), names.end());
    return names;
}
