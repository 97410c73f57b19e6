#pragma once

#include "qelpluginglobal.h"

#include <QDebug>
#include <QFile>
#include <QString>

namespace qelplugin {

/// One line on the console. The items follow by `<<`; the destructor ends and emits the line.
class QELPLUGIN_EXPORT QLog : public QDebug
{
public:
    /// `colour` is a terminal escape, `header` stands before the items, `trailer` behind them.
    QLog(const QString& colour, const QString& header, const QString& trailer);
    ~QLog();

    using QDebug::operator<<;
    QLog& operator<<(const QString& text);

private:
    Q_DISABLE_COPY(QLog)
};

/// One line on the console and, while its file is open, in the file as well.
class QELPLUGIN_EXPORT QFLog
{
public:
    /// `pathBase` and `extension` name the file.
    QFLog(const QString& colour, const QString& header, const QString& trailer,
          const QString& pathBase, const QString& extension);
    ~QFLog();

    QFLog& operator<<(const QString& text);
    QFLog& operator<<(const char* text);
    QFLog& operator<<(char character);
    QFLog& operator<<(int number);
    QFLog& operator<<(bool value);

private:
    Q_DISABLE_COPY(QFLog)
    QDebug console;
    QFile file;
    QDebug fileStream;
};

} // namespace qelplugin
