#pragma once

#include <QStringList>

/// Sorts the names in natural order. Each name is split into its sort key once; the order is a
/// strict weak one for every input, also where naturalLess() is not.
QStringList naturallySorted(QStringList names);
