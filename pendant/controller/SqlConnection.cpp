#include "SqlConnection.h"

#include <QSqlQuery>
#include <QUrl>
#include <QUuid>

namespace pendant {
namespace {

/// How long a statement waits for a lock that another process holds, in milliseconds.
constexpr int lockWait = 500;

const QLatin1String driverName("QSQLITE");

QString options(SqlConnection::Access access)
{
    QString text = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(lockWait);
    if (access != SqlConnection::Access::ReadWrite)
        text += QStringLiteral(";QSQLITE_OPEN_READONLY");
    if (access == SqlConnection::Access::Frozen)
        text += QStringLiteral(";QSQLITE_OPEN_URI");
    return text;
}

QString databaseName(const QString& file, SqlConnection::Access access)
{
    if (access != SqlConnection::Access::Frozen)
        return file;
    // A "?" or "#" of the file's own name must not end the path.
    return QString::fromLatin1("file:" + QUrl::toPercentEncoding(file, "/") + "?immutable=1");
}

bool execute(QSqlQuery& query, const QString& sql, const QVariantList& values)
{
    const bool isPrepared = query.prepare(sql);
    for (const QVariant& value : values)
        query.addBindValue(value);
    return isPrepared && query.exec();
}

} // namespace

SqlConnection::SqlConnection()
    : m_name(QUuid::createUuid().toString())
    , m_database(QSqlDatabase::addDatabase(driverName, m_name))
{}

SqlConnection::~SqlConnection()
{
    m_database.close();
    m_database = QSqlDatabase(); // the last copy must be gone before the name is
    QSqlDatabase::removeDatabase(m_name);
}

bool SqlConnection::hasDriver()
{
    return QSqlDatabase::isDriverAvailable(driverName);
}

bool SqlConnection::open(const QString& file, Access access)
{
    m_database.setConnectOptions(options(access));
    m_database.setDatabaseName(databaseName(file, access));
    const bool isOpen = m_database.open();
    m_error = m_database.lastError();
    return isOpen;
}

bool SqlConnection::run(const QString& sql, const QVariantList& values)
{
    QSqlQuery query(m_database);
    const bool isDone = execute(query, sql, values);
    m_error = query.lastError();
    return isDone;
}

QVariant SqlConnection::value(const QString& sql, const QVariantList& values)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    const bool isFound = execute(query, sql, values) && query.next();
    m_error = query.lastError();
    return isFound ? query.value(0) : QVariant();
}

bool SqlConnection::pairs(const QString& sql, QList<QPair<QString, QByteArray>>* rows)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    const bool isDone = query.exec(sql);
    while (isDone && query.next())
        rows->append({query.value(0).toString(), query.value(1).toByteArray()});
    m_error = query.lastError();
    return isDone && m_error.type() == QSqlError::NoError;
}

int SqlConnection::lastCode() const
{
    return m_error.nativeErrorCode().toInt() & 0xff;
}

} // namespace pendant
