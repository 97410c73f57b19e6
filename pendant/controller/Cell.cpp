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

std::unique_ptr<Cell> Cell::open(const QString& file, const Records& defaults, QString* error)
{
    *error = cellfile::inspect(file);
    if (!error->isEmpty())
        return nullptr;
    auto connection = cellfile::claim(file, error);
    if (!connection)
        return nullptr;
    std::unique_ptr<Cell> cell(new Cell(file, std::move(connection)));
    if (!cell->load(error))
        return nullptr;
    // Not before all has been read: a cell that is refused stays as it is.
    *error = cellfile::proveWritable(file, *cell->m_connection);
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
    *error = QStringLiteral("the cell %1 could not be written (%2); free some space on the disk "
                            "or check it")
                 .arg(m_file, m_connection->lastError().databaseText());
    m_connection->run(QStringLiteral("ROLLBACK"));
    return false;
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
