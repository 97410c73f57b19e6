#include "logstreams.h"

#include "logfile.h"
#include "logline.h"

namespace qelplugin {

namespace {

// The line's QFile is open while the process has its file open, and takes nothing of it but that.
// The descriptor is shared by all lines and stays open: a QFile opened on it by each line would
// cost two calls of the system and a slower write.
void setOpenMode(QFile& file, QIODevice::OpenMode mode)
{
    struct Opener : QFile
    {
        using QFile::setOpenMode;
    };
    (file.*&Opener::setOpenMode)(mode);
}

// Opens the line's file if that can be; returns the text of the file stream.
QString* openFile(QFile& file, LogLine& line, const QString& pathBase, const QString& extension)
{
    LogFile& target = LogFile::of(pathBase, extension);
    if (target.open()) {
        line.target = &target;
        setOpenMode(file, QIODevice::WriteOnly | QIODevice::Append);
    }
    return &line.file;
}

// Every item goes to the console and, only when the file is open, to the file as well.
template<typename Item>
void write(QDebug& console, const QFile& file, QDebug& fileStream, const Item& item)
{
    console << item;
    if (file.isOpen())
        fileStream << item;
}

} // namespace

QLog::QLog(const QString& colour, const QString& header, const QString& trailer)
    : QDebug(&LogLine::begin(this, colour, trailer).console)
{
    noquote() << header;
}

QLog::~QLog()
{
    LogLine::of(this).end();
}

QLog& QLog::operator<<(const QString& text)
{
    QDebug::operator<<(text);
    return *this;
}

QFLog::QFLog(const QString& colour, const QString& header, const QString& trailer,
             const QString& pathBase, const QString& extension)
    : console(&LogLine::begin(this, colour, trailer).console)
    , fileStream(openFile(file, LogLine::of(this), pathBase, extension))
{
    console.noquote();
    fileStream.noquote();
    *this << header;
}

// The QFile must not find anything to close.
QFLog::~QFLog()
{
    setOpenMode(file, QIODevice::NotOpen);
    LogLine::of(this).end();
}

QFLog& QFLog::operator<<(const QString& text)
{
    write(console, file, fileStream, text);
    return *this;
}

QFLog& QFLog::operator<<(const char* text)
{
    return *this << QString::fromUtf8(text);
}

QFLog& QFLog::operator<<(char character)
{
    write(console, file, fileStream, character);
    return *this;
}

QFLog& QFLog::operator<<(int number)
{
    write(console, file, fileStream, number);
    return *this;
}

QFLog& QFLog::operator<<(bool value)
{
    write(console, file, fileStream, value);
    return *this;
}

} // namespace qelplugin
