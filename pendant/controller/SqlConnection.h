#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QVariant>

namespace pendant {

/// A connection to one SQLite file, closed and forgotten at destruction.
class SqlConnection
{
public:
    enum class Access {
        ReadWrite, ///< makes the file when there is none
        ReadOnly,
        Frozen, ///< read only, without locks and files beside it: nobody else may write meanwhile
    };

    SqlConnection();
    ~SqlConnection();
    Q_DISABLE_COPY(SqlConnection)

    static bool hasDriver();

    bool open(const QString& file, Access access);
    /// Runs one statement; the values take the places of its question marks.
    bool run(const QString& sql, const QVariantList& values = {});
    /// The first column of the first row; invalid on an error or with no row.
    QVariant value(const QString& sql, const QVariantList& values = {});
    /// All rows of a statement that yields two columns; false on an error.
    bool pairs(const QString& sql, QList<QPair<QString, QByteArray>>* rows);

    const QSqlError& lastError() const { return m_error; }
    /// The number of SQLite's own that stands for the last error, without its extension.
    int lastCode() const;

private:
    QString m_name;
    QSqlDatabase m_database;
    QSqlError m_error;
};

} // namespace pendant
