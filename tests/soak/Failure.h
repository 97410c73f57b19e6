#pragma once

#include <QString>

namespace soak {

/// What did not go as it should; ends the run.
struct Failure
{
    QString reason;
};

inline void demand(bool condition, const QString& otherwise)
{
    if (!condition)
        throw Failure{otherwise};
}

} // namespace soak
