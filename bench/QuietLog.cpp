// The log streams of an SDK library whose log does nothing. The program's own bodies go before
// those of the library.

#include <qelplugin.h>

namespace qelplugin {

namespace {

QString* sink()
{
    static QString text;
    text.resize(0);
    return &text;
}

} // namespace

QLog::QLog(const QString&, const QString&, const QString&)
    : QDebug(sink())
{}

QLog::~QLog() = default;

QLog& QLog::operator<<(const QString&)
{
    return *this;
}

QFLog::QFLog(const QString&, const QString&, const QString&, const QString&, const QString&)
    : console(sink())
    , fileStream(console)
{}

QFLog::~QFLog() = default;

QFLog& QFLog::operator<<(const QString&)
{
    return *this;
}

QFLog& QFLog::operator<<(const char*)
{
    return *this;
}

QFLog& QFLog::operator<<(char)
{
    return *this;
}

QFLog& QFLog::operator<<(int)
{
    return *this;
}

QFLog& QFLog::operator<<(bool)
{
    return *this;
}

} // namespace qelplugin
