#pragma once

#include <QString>

/// What points and programs may be called. Each check is empty when the name will do, and otherwise
/// a text for the user that shows the name and says what to do.
namespace pendant::names {

/// Characters of a name at most.
constexpr int longest = 64;

/// A name stands in a line of a program: letters of any script, digits and underscores, and no
/// digit first.
QString checkPoint(const QString& name);

/// A name may become the name of a file: no control characters, no slashes, no blank at the ends.
QString checkProgram(const QString& name);

} // namespace pendant::names
