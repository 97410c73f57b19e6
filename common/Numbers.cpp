#include "Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

int truncatedToInt(double number)
{
    constexpr double low = std::numeric_limits<int>::min();
    constexpr double high = std::numeric_limits<int>::max();
    return std::isnan(number) ? 0 : static_cast<int>(std::clamp(number, low, high));
}
