#include "Cell.h"

#include "CellFile.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace pendant {
namespace {

QByteArray toText(const QJsonValue& record)
{
    const QJsonDocument document =
        record.isArray() ? QJsonDocument(record.toArray()) : QJsonDocument(record.toObject());
    return document.toJson(QJsonDocument::Compact);
}

QJsonValue fromText(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (document.isArray())
        return document.array();
    return document.isObject() ? QJsonValue(document.object()) : QJsonValue(QJsonValue::Undefined);
}

} // namespace

std::unique_ptr<Cell> Cell::open(const QString& file, const Records& defaults,
                                 const Programs& programs, QString* error)
{
    *error = cellfile::inspect(file);
    if (!error->isEmpty())
        return nullptr;
    auto connection = cellfile::claim(file, programs, error);
    if (!connection)
        return nullptr;
    std::unique_ptr<Cell> cell(new Cell(file, std::move(connection)));
    if (!cell->load(error))
        return nullptr;
    // Not before all has been read: a cell that is refused stays as it is.
    *error = cellfile::bringUpToDate(file, programs, *cell->m_connection);
    return error->isEmpty() && cell->addMissing(defaults, error) ? std::move(cell) : nullptr;
}

Cell::Cell(const QString& file, std::unique_ptr<SqlConnection> connection)
    : m_file(file)
    , m_connection(std::move(connection))
{}

Cell::~Cell() = default;

QJsonValue Cell::record(const QString& key) const
{
    return m_records.value(key, QJsonValue(QJsonValue::Undefined));
}

bool Cell::store(const Records& changes, QString* error)
{
    if (write(changes)) {
        for (auto each = changes.begin(); each != changes.end(); ++each)
            m_records.insert(each.key(), each.value());
        return true;
    }
    *error = notWritten();
    m_connection->run(QStringLiteral("ROLLBACK"));
    return false;
}

QStringList Cell::programs() const
{
    QList<QPair<QString, QByteArray>> rows;
    m_connection->pairs(
        QStringLiteral("SELECT name, NULL FROM programs ORDER BY name COLLATE NOCASE, name"),
        &rows);
    QStringList names;
    for (const auto& row : std::as_const(rows))
        names.append(row.first);
    return names;
}

bool Cell::readProgram(const QString& name, QByteArray* text) const
{
    const QVariant value =
        m_connection->value(QStringLiteral("SELECT text FROM programs WHERE name = ?"), {name});
    *text = value.toByteArray();
    return value.isValid();
}

bool Cell::storeProgram(const QString& name, const QByteArray& text, QString* error)
{
    // A null array would be stored as NULL.
    return change(QStringLiteral("INSERT INTO programs (name, text) VALUES (?, ?)"
                                 " ON CONFLICT (name) DO UPDATE SET text = excluded.text"),
                  {name, text.isNull() ? QByteArray("") : text}, error);
}

bool Cell::renameProgram(const QString& from, const QString& to, QString* error)
{
    return change(QStringLiteral("UPDATE programs SET name = ? WHERE name = ?"), {to, from}, error);
}

bool Cell::removeProgram(const QString& name, QString* error)
{
    return change(QStringLiteral("DELETE FROM programs WHERE name = ?"), {name}, error);
}

/// One statement is one transaction.
bool Cell::change(const QString& sql, const QVariantList& values, QString* error)
{
    const bool isDone = m_connection->run(sql, values);
    if (!isDone)
        *error = notWritten();
    return isDone;
}

QString Cell::notWritten() const
{
    return QStringLiteral("the cell %1 could not be written (%2); free some space on the disk or "
                          "check it")
        .arg(m_file, m_connection->lastError().databaseText());
}

bool Cell::load(QString* error)
{
    QList<QPair<QString, QByteArray>> rows;
    if (!m_connection->pairs(QStringLiteral("SELECT key, value FROM records"), &rows)) {
        *error = cellfile::explain(m_file, *m_connection);
        return false;
    }
    for (const auto& [key, text] : std::as_const(rows)) {
        const QJsonValue record = fromText(text);
        if (record.isUndefined()) {
            *error =
                cellfile::damaged(m_file, QStringLiteral("the record \"%1\" is no JSON").arg(key));
            return false;
        }
        m_records.insert(key, record);
    }
    return true;
}

bool Cell::addMissing(const Records& defaults, QString* error)
{
    Records missing;
    for (auto each = defaults.begin(); each != defaults.end(); ++each) {
        if (!m_records.contains(each.key()))
            missing.insert(each.key(), each.value());
    }
    return missing.isEmpty() || store(missing, error);
}

bool Cell::write(const Records& changes)
{
    const QString sql = QStringLiteral("INSERT INTO records (key, value) VALUES (?, ?)"
                                       " ON CONFLICT (key) DO UPDATE SET value = excluded.value");
    bool isWritten = m_connection->run(QStringLiteral("BEGIN IMMEDIATE"));
    for (auto each = changes.begin(); isWritten && each != changes.end(); ++each)
        isWritten = m_connection->run(sql, {each.key(), QString::fromUtf8(toText(each.value()))});
    return isWritten && m_connection->run(QStringLiteral("COMMIT"));
}

} // namespace pendant
