#include "CallText.h"

namespace qellaser::util {

bool extractFunctionAndParameters(const QString&, QString& functionName, QStringList& parameterList)
{
    functionName.clear();
    parameterList.clear();
    return false;
}

QString stripEnclosing(const QString& text, const QString&, const QString&)
{
    return text;
}

} // namespace qellaser::util
