#include "CellFile.h"

#include <QFileInfo>

namespace pendant::cellfile {
namespace {

using Access = SqlConnection::Access;

QString notACell(const QString& file)
{
    return QStringLiteral("The file %1 is not a weld cell. It was left as it is. Choose another "
                          "file, or move it away to begin with a new cell.")
        .arg(file);
}

QString newer(const QString& file, int version)
{
    return QStringLiteral("The cell %1 was written by a newer pendant (version %2, this one knows "
                          "%3). It was left as it is. Update the pendant, or choose another cell.")
        .arg(file)
        .arg(version)
        .arg(Cell::version);
}

QString readOnly(const QString& file)
{
    return QStringLiteral("The cell %1 cannot be written. Give write permission for the file and "
                          "its folder, or choose another file.")
        .arg(file);
}

QString locked(const QString& file)
{
    return QStringLiteral("The cell %1 is open in another pendant. Close that one, or choose "
                          "another file.")
        .arg(file);
}

QString unopened(const QString& file, const QString& detail)
{
    return QStringLiteral("The cell %1 could not be opened (%2). Check the disk and the "
                          "permissions, or choose another file.")
        .arg(file, detail);
}

/// What the folder says before anything is opened. SQLite needs it writable for its journal.
QString inspectPlace(const QFileInfo& info)
{
    const QString file = info.filePath();
    if (!SqlConnection::hasDriver())
        return QStringLiteral("The cell %1 could not be opened: Qt has no SQLite driver. Install "
                              "the package libqt5sql5-sqlite.")
            .arg(file);
    if (info.fileName().isEmpty() || (info.exists() && !info.isFile()))
        return QStringLiteral("The cell \"%1\" is not a file. Choose the name of a file.")
            .arg(file);
    const QFileInfo folder(info.exists() ? QFileInfo(info.canonicalFilePath()).path()
                                         : info.path());
    if (!folder.isDir())
        return QStringLiteral("The cell %1 has no folder. Make the folder %2, or choose another "
                              "file.")
            .arg(file, folder.filePath());
    if (!folder.isWritable() || (info.exists() && !info.isWritable()))
        return readOnly(file);
    return {};
}

/// Each layout has one table more than the one before.
QString inspectTables(SqlConnection& connection, const QString& file, int version)
{
    const QVariant tables = connection.value(
        QStringLiteral("SELECT count(*) FROM sqlite_master WHERE name IN ('records', 'programs')"));
    if (!tables.isValid())
        return explain(file, connection);
    return tables.toInt() < version ? damaged(file, QStringLiteral("a table is missing"))
                                    : QString();
}

/// Whose file it is. A file of SQLite's with nothing in it and no mark was left by a pendant that
/// was killed while it made the cell, and counts as empty.
QString inspectMark(SqlConnection& connection, const QString& file)
{
    const QVariant mark = connection.value(QStringLiteral("PRAGMA application_id"));
    const QVariant tables = connection.value(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    if (!mark.isValid() || !tables.isValid())
        return explain(file, connection);
    if (mark.toInt() == 0 && tables.toInt() == 0)
        return {};
    if (mark.toInt() != Cell::applicationId)
        return notACell(file);
    const int version = connection.value(QStringLiteral("PRAGMA user_version")).toInt();
    return version > Cell::version ? newer(file, version)
                                   : inspectTables(connection, file, version);
}

QString inspectWhole(SqlConnection& connection, const QString& file)
{
    const QVariant check = connection.value(QStringLiteral("PRAGMA quick_check(1)"));
    if (!check.isValid())
        return explain(file, connection);
    return check.toString() == QLatin1String("ok") ? QString() : damaged(file, check.toString());
}

bool prepare(SqlConnection& connection)
{
    const bool isEmpty = connection.value(QStringLiteral("PRAGMA page_count")).toInt() == 0;
    // The first page needs no rollback journal, which a kill would leave beside a file that a
    // read-only look then could not judge.
    return (!isEmpty || connection.run(QStringLiteral("PRAGMA journal_mode=OFF"))) &&
           connection.run(QStringLiteral("PRAGMA journal_mode=WAL")) &&
           connection.run(QStringLiteral("PRAGMA synchronous=FULL")) &&
           connection.run(QStringLiteral("PRAGMA locking_mode=EXCLUSIVE"));
}

bool addPrograms(SqlConnection& connection, const Programs& programs)
{
    const QString sql = QStringLiteral("INSERT INTO programs (name, text) VALUES (?, ?)");
    bool isDone = true;
    for (auto each = programs.begin(); isDone && each != programs.end(); ++each)
        isDone = connection.run(sql, {each.key(), each.value()});
    return isDone;
}

/// From the version, 0 for an empty file, to the present one; within the caller's transaction.
bool layOut(SqlConnection& connection, int version, const Programs& programs)
{
    const QString records = QStringLiteral("CREATE TABLE records"
                                           " (key TEXT PRIMARY KEY NOT NULL, value TEXT NOT NULL)");
    const QString texts = QStringLiteral("CREATE TABLE programs"
                                         " (name TEXT PRIMARY KEY NOT NULL, text BLOB NOT NULL)");
    if (version < 1 && !connection.run(records))
        return false;
    if (version < 2 && !(connection.run(texts) && addPrograms(connection, programs)))
        return false;
    return connection.run(
               QStringLiteral("PRAGMA application_id=%1").arg(int(Cell::applicationId))) &&
           connection.run(QStringLiteral("PRAGMA user_version=%1").arg(int(Cell::version)));
}

bool layOutEmpty(SqlConnection& connection, const Programs& programs)
{
    const QVariant tables = connection.value(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    return tables.isValid() && (tables.toInt() > 0 || layOut(connection, 0, programs));
}

} // namespace

QString inspect(const QString& file)
{
    const QFileInfo info(file);
    const QString place = inspectPlace(info);
    if (!place.isEmpty() || info.size() == 0)
        return place;
    // Less than SQLite's smallest page; a single byte would even pass as an empty file.
    if (info.size() < 512)
        return notACell(file);
    // What a killed pendant left behind can only be read together with the file, which needs
    // locks; otherwise the look leaves no trace.
    const bool isLeft = QFileInfo(info.canonicalFilePath() + QLatin1String("-wal")).size() > 0;
    SqlConnection connection;
    if (!connection.open(file, isLeft ? Access::ReadOnly : Access::Frozen))
        return explain(file, connection);
    const QString mark = inspectMark(connection, file);
    return mark.isEmpty() ? inspectWhole(connection, file) : mark;
}

std::unique_ptr<SqlConnection> claim(const QString& file, const Programs& programs, QString* error)
{
    auto connection = std::make_unique<SqlConnection>();
    // The first write in exclusive mode takes the lock that is held until the end.
    if (connection->open(file, Access::ReadWrite) && prepare(*connection) &&
        connection->run(QStringLiteral("BEGIN IMMEDIATE")) && layOutEmpty(*connection, programs) &&
        connection->run(QStringLiteral("COMMIT")))
        return connection;
    *error = explain(file, *connection);
    return nullptr;
}

QString bringUpToDate(const QString& file, const Programs& programs, SqlConnection& connection)
{
    const QString versionOf = QStringLiteral("PRAGMA user_version");
    // Without the right to write SQLite opens a file to be read, and says so at the first write.
    if (connection.run(QStringLiteral("BEGIN IMMEDIATE")) &&
        layOut(connection, qMax(1, connection.value(versionOf).toInt()), programs) &&
        connection.run(QStringLiteral("COMMIT")))
        return {};
    const QString reason = explain(file, connection);
    connection.run(QStringLiteral("ROLLBACK"));
    return reason;
}

QString explain(const QString& file, const SqlConnection& connection)
{
    // SQLite's result codes.
    constexpr int busy = 5, lockedTable = 6, readonly = 8, corrupt = 11, noAccess = 14,
                  notADatabase = 26;
    const QString detail = connection.lastError().databaseText();
    switch (connection.lastCode()) {
    case busy:
    case lockedTable:
        return locked(file);
    case readonly:
    case noAccess:
        return readOnly(file);
    case corrupt:
        return damaged(file, detail);
    case notADatabase:
        return notACell(file);
    default:
        return unopened(file, detail);
    }
}

QString damaged(const QString& file, const QString& detail)
{
    return QStringLiteral("The cell %1 is damaged (%2). It was left as it is. Bring back a copy, "
                          "or move it away to begin with a new cell.")
        .arg(file, detail.simplified());
}

} // namespace pendant::cellfile
