#pragma once

#include "Log.h"

#include <exception>

/// What the instruction editors log, and what keeps their exceptions from the host.
namespace Guard {

/// Where a warning comes from, in the words of the editor.
struct Origin
{
    const char* tag;      ///< one of LogTag
    const char* function; ///< qualified name
    int line = 0;         ///< of the source; 0 where the editor does not write it
};

/// Writes one warning: the origin, then the items.
template<typename... Items>
void warn(const Origin& origin, const Items&... items)
{
    auto&& log = LOGW(origin.tag);
    log << "LASER::" << origin.function;
    if (origin.line > 0)
        log << origin.line;
    (log << ... << items);
}

/// Runs the body. An exception ends it, is written as a warning and goes no further.
template<typename Body>
void run(const Origin& origin, const char* unknownException, const Body& body)
{
    try {
        body();
    } catch (const std::exception& exception) {
        warn(origin, " std::exception:", exception.what());
    } catch (...) {
        warn(origin, unknownException);
    }
}

} // namespace Guard
