#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A working directory of its own for as long as it lives, and with it a log of its own.
class LogFolder
{
public:
    LogFolder();
    ~LogFolder();

    QString path() const { return folder.path(); }
    /// Name of a tag's log file.
    static QString fileName(const QString& tag = QStringLiteral("qelLaserWelding"));
    /// The lines of a tag's log file; none when there is no file.
    static QStringList lines(const QString& tag = QStringLiteral("qelLaserWelding"));
    /// The same without their headers.
    static QStringList texts(const QString& tag = QStringLiteral("qelLaserWelding"));

private:
    Q_DISABLE_COPY(LogFolder)

    QString before;
    QTemporaryDir folder;
};

/// Takes what is written to the standard error output, each write by itself, for as long as it
/// lives.
class ConsoleCapture
{
public:
    ConsoleCapture();
    ~ConsoleCapture();

    /// What came since the last call, one entry for each write.
    QList<QByteArray> take();

private:
    Q_DISABLE_COPY(ConsoleCapture)

    int console;
    int reader;
};
