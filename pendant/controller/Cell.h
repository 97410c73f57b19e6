#pragma once

#include <QJsonValue>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

namespace pendant {

class SqlConnection;

/// Records by their key; each is an object or an array.
using Records = QMap<QString, QJsonValue>;

/// Texts of robot programs by their name.
using Programs = QMap<QString, QByteArray>;

/// The records and robot programs of a weld cell, kept in one SQLite file.
///
/// One pendant at a time has a cell open. What a change answered with true is on the disk: it
/// survives a kill of the process and, as far as the disk keeps its word, the loss of power.
class Cell
{
public:
    /// The file's mark: "QLWC" in the header's application id.
    static constexpr int applicationId = 0x514c5743;
    /// The layout that this program writes. A file with a higher number is left alone, one with a
    /// lower number is brought up to it.
    /// 1: records. 2: programs too.
    static constexpr int version = 2;

    /// Opens the file, or makes it when it is missing or empty. A record of `defaults` that the
    /// cell lacks is added; `programs` go into a new cell and into one whose layout had none. On
    /// failure returns null, sets `error` to a text that names the file and
    /// the remedy, and has changed nothing in the file.
    static std::unique_ptr<Cell> open(const QString& file, const Records& defaults,
                                      const Programs& programs, QString* error);
    ~Cell();
    Q_DISABLE_COPY(Cell)

    QString fileName() const { return m_file; }

    /// Undefined when there is none.
    QJsonValue record(const QString& key) const;

    /// Stores all records or none; on failure `error` says why.
    bool store(const Records& changes, QString* error);

    /// The names in alphabetical order.
    QStringList programs() const;
    /// False when there is no such program or it could not be read.
    bool readProgram(const QString& name, QByteArray* text) const;
    // Each of these is done as a whole or not at all; on failure `error` says why.
    bool storeProgram(const QString& name, const QByteArray& text, QString* error);
    bool renameProgram(const QString& from, const QString& to, QString* error);
    bool removeProgram(const QString& name, QString* error);

private:
    Cell(const QString& file, std::unique_ptr<SqlConnection> connection);

    bool load(QString* error);
    bool addMissing(const Records& defaults, QString* error);
    bool write(const Records& changes);
    QString notWritten() const;
    bool change(const QString& sql, const QVariantList& values, QString* error);

    QString m_file;
    std::unique_ptr<SqlConnection> m_connection;
    Records m_records; ///< as in the file: nobody else writes it
};

} // namespace pendant
