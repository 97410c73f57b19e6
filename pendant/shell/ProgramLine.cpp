#include "ProgramLine.h"

#include <algorithm>

namespace pendant {

namespace {

QString mark()
{
    return QStringLiteral("//");
}

bool isBlank(QChar sign)
{
    return sign == QLatin1Char(' ') || sign == QLatin1Char('\t');
}

// Behind the last sign of the code.
int codeEnd(const QString& line)
{
    int end = commentStart(line);
    while (end > 0 && isBlank(line.at(end - 1)))
        --end;
    return end;
}

} // namespace

int indentOf(const QString& line)
{
    const auto* const start = std::find_if_not(line.constBegin(), line.constEnd(),
                                               [](QChar sign) { return sign.isSpace(); });
    return static_cast<int>(start - line.constBegin());
}

bool isComment(const QString& line)
{
    return line.midRef(indentOf(line)).startsWith(mark());
}

QString withoutComment(QString line)
{
    const int start = indentOf(line);
    line.remove(start, mark().size());
    if (line.midRef(start).startsWith(QLatin1Char(' ')))
        line.remove(start, 1);
    return line;
}

QString asComment(const QString& line)
{
    return mark() + QLatin1Char(' ') + line;
}

int commentStart(const QString& line)
{
    bool isQuoted = false;
    for (int i = 0; i < line.size(); ++i) {
        if (line.at(i) == QLatin1Char('"'))
            isQuoted = !isQuoted;
        else if (!isQuoted && line.midRef(i, 2) == mark())
            return i;
    }
    return line.size();
}

QString withoutTrailingComment(const QString& line)
{
    return line.left(codeEnd(line));
}

// As Latin-1 every byte is one character, and no text is broken that is no proper UTF-8.
QByteArray withCode(const QByteArray& line, const QString& code)
{
    const QString old = QString::fromLatin1(line);
    const int indent = indentOf(old);
    QByteArray result = line.left(indent) + code.toUtf8();
    if (codeEnd(old) > indent && commentStart(code) == code.size())
        result += line.mid(commentStart(old) == old.size() ? old.size() : codeEnd(old));
    return result;
}

} // namespace pendant
