#include "logstreams.h"

#include "logfile.h"

namespace qelplugin {

QLog::QLog(const QString& colour, const QString& header, const QString&)
    : QDebug(QtDebugMsg)
{
    noquote() << colour + header;
}

QLog::~QLog() = default;

QLog& QLog::operator<<(const QString& text)
{
    QDebug::operator<<(text);
    return *this;
}

QFLog::QFLog(const QString& colour, const QString& header, const QString&, const QString& pathBase,
             const QString& extension)
    : console(QtDebugMsg)
    , file(pathBase + QLatin1Char('.') + extension)
    , fileStream(&file)
{
    console.noquote() << colour + header;
}

QFLog::~QFLog() = default;

QFLog& QFLog::operator<<(const QString& text)
{
    console << text;
    return *this;
}

QFLog& QFLog::operator<<(const char* text)
{
    console << text;
    return *this;
}

QFLog& QFLog::operator<<(char character)
{
    console << character;
    return *this;
}

QFLog& QFLog::operator<<(int number)
{
    console << number;
    return *this;
}

QFLog& QFLog::operator<<(bool value)
{
    console << value;
    return *this;
}

} // namespace qelplugin
