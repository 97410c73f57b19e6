#pragma once

#include <QString>
#include <QStringList>

namespace soak {

/// The new lines of a log file that is put aside when it is long.
class LogTail
{
public:
    /// "<base>.log" and, when that was put aside, "<base>.1.log".
    explicit LogTail(const QString& base);

    /// Those that were written since the last call.
    QStringList take();

private:
    static QByteArray read(const QString& file, qint64 from);

    QString name;
    QString nameBefore;
    qint64 place = 0;
};

} // namespace soak
