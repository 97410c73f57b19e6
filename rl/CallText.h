#pragma once

#include <QString>
#include <QStringList>

namespace qellaser::util {

/// Takes a call such as "LsMoveL(p1, v10, fine, tool0, wobj0);" apart. False, with both outputs
/// empty, when the text has not the shape of a call. A call without arguments is one with an empty
/// list.
///
/// Knows parentheses and no quotation marks: a comma within quotation marks parts as any other, and
/// the marks stay in the argument. Empty arguments vanish. An argument that is a call stays whole.
bool extractFunctionAndParameters(const QString& input, QString& functionName,
                                  QStringList& parameterList);

/// What lies between the prefix and the suffix, or the text unchanged when it does not have both.
QString stripEnclosing(const QString& text, const QString& prefix, const QString& suffix);

/// The list for a line of the log: ("a", "b"), each item as QDebug prints a QString.
QString printedList(const QStringList& list);

} // namespace qellaser::util
