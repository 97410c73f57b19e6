#pragma once

#include <QStringList>

// The natural order of names. A name counts as its runs of ASCII letters and of ASCII digits; what
// stands between them is passed over. Two runs of digits that fit an int compare as numbers, so
// "DI2" stands before "DI10" and "007" equals "7". Any other two runs compare as text, case
// sensitive. Where all runs of one name are those of the other, the name with fewer runs stands
// first.

/// True when `a` stands before `b`. An order of two names only: a run of digits too long for an int
/// is text, and so "9" < "10" < "5999999999999" < "9". Not for std::sort.
bool naturallyLess(const QString& a, const QString& b);

/// The names in natural order, duplicates kept. Equal names keep their order as long as every run
/// of digits fits an int.
///
/// Defined for every input. Where naturallyLess() goes round in a circle no name stands right
/// behind one that it is less than, and the result does not depend on the order of the input.
QStringList naturallySorted(const QStringList& names);
