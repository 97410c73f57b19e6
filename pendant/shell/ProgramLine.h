#pragma once

#include <QByteArray>
#include <QString>

namespace pendant {

// What stands around the code of a program line.

/// Blanks before the first sign of the line.
int indentOf(const QString& line);
/// The line is a comment and nothing else.
bool isComment(const QString& line);
/// A line that is a comment without its "//" and the blank behind it.
QString withoutComment(QString line);
QString asComment(const QString& line);
/// Where the "//" of the line's comment stands; the size of the line when there is none. What
/// stands between quotation marks is no comment.
int commentStart(const QString& line);
/// The line without its comment and the blanks before it.
QString withoutTrailingComment(const QString& line);

/// The new code in the place of the line's own, by bytes, without line ends. The indent stays, and
/// so does a comment behind code, with the blanks before it, unless the new code brings one.
QByteArray withCode(const QByteArray& line, const QString& code);

} // namespace pendant
