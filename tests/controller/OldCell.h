#pragma once

#include "SqlConnection.h"

#include <QStringList>

/// Runs the statements on the file, one after the other.
inline bool runSql(const QString& file, const QStringList& statements)
{
    pendant::SqlConnection connection;
    bool isDone = connection.open(file, pendant::SqlConnection::Access::ReadWrite);
    for (const QString& each : statements)
        isDone = isDone && connection.run(each);
    return isDone;
}

/// Makes a cell of the layout before there were programs, with the record {"n": 7} under "a".
inline bool makeOldCell(const QString& file)
{
    return runSql(file, {QStringLiteral("PRAGMA journal_mode=WAL"),
                         QStringLiteral("CREATE TABLE records"
                                        " (key TEXT PRIMARY KEY NOT NULL, value TEXT NOT NULL)"),
                         QStringLiteral("INSERT INTO records VALUES ('a', '{\"n\":7}')"),
                         QStringLiteral("PRAGMA application_id=%1").arg(0x514c5743),
                         QStringLiteral("PRAGMA user_version=1")});
}
