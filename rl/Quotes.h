#pragma once

#include "CallText.h"

/// Arguments in quotation marks.
namespace Quotes {

/// The text without the quotation marks around it; unchanged when it does not have both.
inline QString strip(const QString& text)
{
    const QString mark(QLatin1Char('"'));
    return qellaser::util::stripEnclosing(text, mark, mark);
}

/// The text between quotation marks.
inline QString add(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace Quotes
