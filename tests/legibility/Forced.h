#pragma once

#include "Examiner.h"

#include <QStringList>

/// What is known to be cut because sizes are given, and why.
namespace Forced {

/// Where the texts were drawn: "en96:800" for the language, the dots per inch and the width of the
/// pendant's window.
///
/// Compares what was found there with the table: a line for each finding that is not in it, and one
/// for each row of it that no longer occurs.
QStringList differences(const QString& where, const QVector<Finding>& findings);

} // namespace Forced
