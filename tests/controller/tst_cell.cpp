#include "Cell.h"
#include "FullDisk.h"
#include "OldCell.h"
#include "TestCase.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace pendant;

namespace {

const QString keyA = QStringLiteral("a");
const QString keyB = QStringLiteral("b");

Records defaults()
{
    return {{keyA, QJsonObject{{QStringLiteral("n"), 1}}}, {keyB, QJsonArray{1, 2}}};
}

/// Large enough for several pages of the file.
QJsonObject bigRecord()
{
    QJsonArray names;
    for (int number = 0; number < 5000; ++number)
        names.append(QStringLiteral("signal %1").arg(number));
    return {{QStringLiteral("names"), names}};
}

QByteArray bytesOf(const QString& file)
{
    QFile device(file);
    return device.open(QIODevice::ReadOnly) ? device.readAll() : QByteArray();
}

bool setBytes(const QString& file, const QByteArray& bytes)
{
    QFile device(file);
    return device.open(QIODevice::WriteOnly) && device.write(bytes) == bytes.size();
}

/// While it lives the process has the rights of nobody; nothing changes for a test that is not run
/// as root.
class Nobody
{
public:
    Nobody() { m_isChanged = geteuid() == 0 && seteuid(65534) == 0; }
    ~Nobody()
    {
        if (m_isChanged && seteuid(0) != 0)
            qFatal("the user could not be changed back");
    }
    Q_DISABLE_COPY(Nobody)

private:
    bool m_isChanged;
};

} // namespace

using Bytes = QByteArray (*)(const QByteArray& cell);
Q_DECLARE_METATYPE(Bytes)

class CellTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void makesNewCell();
    void emptyFileBecomesCell_data();
    void emptyFileBecomesCell();
    void markedForOthers();
    void storesAndReopens();
    void storesAllTypes();
    void addsMissingRecords();
    void keepsUnknownRecords();
    void oddNames_data();
    void oddNames();
    void refusesPlace_data();
    void refusesPlace();
    void refusesReadOnly_data();
    void refusesReadOnly();
    void refusesFile_data();
    void refusesFile();
    void refusesOtherDatabase_data();
    void refusesOtherDatabase();
    void refusesNewerVersion();
    void olderLayout();
    void olderLayoutRefused_data();
    void olderLayoutRefused();
    void olderLayoutOnFullDisk();
    void missingPrograms();
    void programsOfNewCell();
    void programBytes_data();
    void programBytes();
    void changesPrograms();
    void programsOnFullDisk();
    void refusesLocked();
    void recoversCrash();
    void refusesDamagedWithLeftovers();
    void fullDisk();

private:
    std::unique_ptr<Cell> open(const Records& records = defaults());
    void expectRefusal(const QString& word);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    Programs m_programs;
    QString m_error;
};

void CellTest::init()
{
    TestCase::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath(QStringLiteral("weld.cell"));
    m_error.clear();
    m_programs = {{QStringLiteral("first"), "LaserOff();\n"}};
}

std::unique_ptr<Cell> CellTest::open(const Records& records)
{
    return Cell::open(m_file, records, m_programs, &m_error);
}

/// The text names the file and holds the word, and the file is as it was.
void CellTest::expectRefusal(const QString& word)
{
    const QByteArray before = bytesOf(m_file);
    QVERIFY(!open());
    QVERIFY2(m_error.contains(m_file) && m_error.contains(word), qPrintable(m_error));
    QCOMPARE(bytesOf(m_file), before);
}

void CellTest::makesNewCell()
{
    const auto cell = open();
    QVERIFY2(cell, qPrintable(m_error));
    QCOMPARE(cell->fileName(), m_file);
    QVERIFY(QFile::exists(m_file));
    QCOMPARE(cell->record(keyA), defaults().value(keyA));
    QCOMPARE(cell->record(keyB), defaults().value(keyB));
    QVERIFY(cell->record(QStringLiteral("c")).isUndefined());
}

void CellTest::emptyFileBecomesCell_data()
{
    QTest::addColumn<QStringList>("statements");
    QTest::newRow("no bytes") << QStringList();
    QTest::newRow("first page only") << QStringList{QStringLiteral("PRAGMA journal_mode=OFF"),
                                                    QStringLiteral("PRAGMA journal_mode=WAL")};
}

void CellTest::emptyFileBecomesCell()
{
    QFETCH(QStringList, statements);
    QVERIFY(setBytes(m_file, {}));
    QVERIFY(runSql(m_file, statements));
    QVERIFY2(open(), qPrintable(m_error));
}

void CellTest::markedForOthers()
{
    QVERIFY(open());
    const QByteArray header = bytesOf(m_file).left(100);
    QCOMPARE(header.left(16), QByteArray("SQLite format 3", 16));
    QCOMPARE(header.mid(60, 4), QByteArray("\0\0\0\2", 4)); // the version
    QCOMPARE(header.mid(68, 4), QByteArray("QLWC"));        // the mark
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void CellTest::storesAndReopens()
{
    const Records changes{{keyA, QJsonObject{{QStringLiteral("n"), 2}}}, {keyB, bigRecord()}};
    {
        const auto cell = open();
        QVERIFY(cell->store(changes, &m_error));
        QCOMPARE(cell->record(keyB), changes.value(keyB));
    }
    const auto cell = open();
    QVERIFY2(cell, qPrintable(m_error));
    QCOMPARE(cell->record(keyA), changes.value(keyA));
    QCOMPARE(cell->record(keyB), changes.value(keyB));
}

void CellTest::storesAllTypes()
{
    const QJsonObject record{{QStringLiteral("text"), QString::fromUtf8("\u6fc0\u5149 \" \\ \n")},
                             {QStringLiteral("number"), 0.1},
                             {QStringLiteral("large"), 1e300},
                             {QStringLiteral("bool"), true},
                             {QStringLiteral("null"), QJsonValue()},
                             {QString(), QJsonArray{QJsonObject(), QJsonArray()}}};
    QVERIFY(open()->store({{keyA, record}}, &m_error));
    QCOMPARE(open()->record(keyA), QJsonValue(record));
}

void CellTest::addsMissingRecords()
{
    const QJsonObject stored{{QStringLiteral("n"), 7}};
    QVERIFY(open({{keyA, stored}}));
    const auto cell = open();
    QCOMPARE(cell->record(keyA), QJsonValue(stored));
    QCOMPARE(cell->record(keyB), defaults().value(keyB));
}

void CellTest::keepsUnknownRecords()
{
    QVERIFY(open());
    QCOMPARE(open({})->record(keyB), defaults().value(keyB));
}

void CellTest::oddNames_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"a b.cell", "50%.cell", "a?immutable=0#x.cell", "file:x.cell",
                             ":memory:", "\u6fc0\u5149.cell", "it's;QSQLITE_OPEN_READONLY.cell"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void CellTest::oddNames()
{
    QFETCH(QString, name);
    m_file = m_folder->path() + QLatin1Char('/') + name; // as it stands
    QVERIFY2(open(), qPrintable(m_error));
    QVERIFY2(open(), qPrintable(m_error));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList(name));
}

void CellTest::refusesPlace_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("word");
    const QString file = QStringLiteral("a file");
    QTest::newRow("folder") << QString() << file;
    QTest::newRow("no name") << QStringLiteral("sub/") << file;
    QTest::newRow("no folder") << QStringLiteral("none/weld.cell")
                               << QStringLiteral("Make the folder");
    QTest::newRow("pipe") << QStringLiteral("pipe") << file;
    QTest::newRow("device") << QStringLiteral("/dev/null") << file;
    QTest::newRow("read-only file")
        << QStringLiteral("/proc/version") << QStringLiteral("write permission");
    QTest::newRow("read-only folder")
        << QStringLiteral("/proc/weld.cell") << QStringLiteral("write permission");
}

void CellTest::refusesPlace()
{
    QFETCH(QString, file);
    QFETCH(QString, word);
    m_file = file.startsWith(QLatin1Char('/')) ? file : m_folder->filePath(file);
    if (file == QLatin1String("pipe"))
        QCOMPARE(mkfifo(qPrintable(m_file), 0600), 0);
    QVERIFY(!open());
    QVERIFY2(m_error.contains(m_file) && m_error.contains(word), qPrintable(m_error));
}

void CellTest::refusesReadOnly_data()
{
    QTest::addColumn<int>("fileMode");
    QTest::addColumn<int>("folderMode");
    QTest::newRow("file") << 0444 << 0777;
    QTest::newRow("folder") << 0666 << 0555;
}

void CellTest::refusesReadOnly()
{
    QFETCH(int, fileMode);
    QFETCH(int, folderMode);
    QVERIFY(open());
    QCOMPARE(chmod(qPrintable(m_file), static_cast<mode_t>(fileMode)), 0);
    QCOMPARE(chmod(qPrintable(m_folder->path()), static_cast<mode_t>(folderMode)), 0);
    {
        const Nobody nobody;
        expectRefusal(QStringLiteral("write permission"));
    }
    QCOMPARE(chmod(qPrintable(m_folder->path()), 0700), 0);
}

void CellTest::refusesFile_data()
{
    QTest::addColumn<Bytes>("bytes");
    QTest::addColumn<QString>("word");
    const auto row = [](const char* name, const char* word, Bytes bytes) {
        QTest::newRow(name) << bytes << QString(QLatin1String(word));
    };
    const char* const foreign = "is not a weld cell";
    const char* const damaged = "is damaged";
    row("one byte", foreign, [](const QByteArray&) { return QByteArray("x"); });
    row("short text", foreign, [](const QByteArray&) { return QByteArray("a note\n"); });
    row("less than a page", foreign, [](const QByteArray&) { return QByteArray(1000, 'x'); });
    row("text", foreign, [](const QByteArray&) { return QByteArray("notes\n").repeated(1000); });
    row("zeros", foreign, [](const QByteArray&) { return QByteArray(8192, '\0'); });
    row("no magic", foreign, [](const QByteArray& cell) { return 'X' + cell.mid(1); });
    row("half", damaged, [](const QByteArray& cell) { return cell.left(cell.size() / 2); });
    row("first page only", damaged, [](const QByteArray& cell) { return cell.left(4096); });
    row("header only", foreign, [](const QByteArray& cell) { return cell.left(100); });
    row("no list of tables", damaged, [](const QByteArray& cell) {
        return cell.left(100) + QByteArray(4096 - 100, '\xff') + cell.mid(4096);
    });
    row("a page of zeros", damaged, [](const QByteArray& cell) {
        return cell.left(4096) + QByteArray(4096, '\0') + cell.mid(8192);
    });
    row("no JSON", damaged,
        [](const QByteArray& cell) { return QByteArray(cell).replace("[1,2]", "[1,2}"); });
    row("a bare value", damaged,
        [](const QByteArray& cell) { return QByteArray(cell).replace("[1,2]", " 1.25"); });
}

void CellTest::refusesFile()
{
    QFETCH(Bytes, bytes);
    QFETCH(QString, word);
    QVERIFY(open()->store({{QStringLiteral("big"), bigRecord()}}, &m_error));
    QVERIFY(setBytes(m_file, bytes(bytesOf(m_file))));
    expectRefusal(word);
    QVERIFY(m_error.contains(QLatin1String("move it away")));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void CellTest::refusesOtherDatabase_data()
{
    QTest::addColumn<QStringList>("statements");
    const QString table = QStringLiteral("CREATE TABLE notes (text)");
    const QString records = QStringLiteral("CREATE TABLE records (key, value)");
    const QString mark = QStringLiteral("PRAGMA application_id=4711");
    const QString wal = QStringLiteral("PRAGMA journal_mode=WAL");
    QTest::newRow("table") << QStringList{table};
    QTest::newRow("our table, no mark") << QStringList{records};
    QTest::newRow("mark") << QStringList{mark};
    QTest::newRow("mark, WAL") << QStringList{wal, mark, table};
}

void CellTest::refusesOtherDatabase()
{
    QFETCH(QStringList, statements);
    QVERIFY(runSql(m_file, statements));
    expectRefusal(QStringLiteral("is not a weld cell"));
}

void CellTest::refusesNewerVersion()
{
    QVERIFY(open());
    QVERIFY(runSql(m_file, {QStringLiteral("PRAGMA user_version=3")}));
    expectRefusal(QStringLiteral("version 3, this one knows 2"));
    QVERIFY(m_error.contains(QLatin1String("Update the pendant")));
}

void CellTest::olderLayout()
{
    QVERIFY(makeOldCell(m_file));
    {
        const auto cell = open();
        QVERIFY2(cell, qPrintable(m_error));
        QCOMPARE(cell->record(keyA), QJsonValue(QJsonObject{{QStringLiteral("n"), 7}}));
        QCOMPARE(cell->record(keyB), defaults().value(keyB));
        QCOMPARE(cell->programs(), QStringList{QStringLiteral("first")});
        QVERIFY(cell->removeProgram(QStringLiteral("first"), &m_error));
    }
    QCOMPARE(bytesOf(m_file).mid(60, 4), QByteArray("\0\0\0\2", 4));
    // What was removed from the present layout does not come back.
    QVERIFY(open()->programs().isEmpty());
}

void CellTest::olderLayoutRefused_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("no JSON") << QStringLiteral("UPDATE records SET value = '{'");
    QTest::newRow("foreign table") << QStringLiteral("CREATE TABLE programs (notes)");
}

/// A cell that cannot be opened is not brought up to the present layout either.
void CellTest::olderLayoutRefused()
{
    QFETCH(QString, statement);
    QVERIFY(makeOldCell(m_file));
    QVERIFY(runSql(m_file, {statement}));
    const QByteArray before = bytesOf(m_file);
    QVERIFY(!open());
    QVERIFY2(m_error.contains(m_file), qPrintable(m_error));
    QCOMPARE(bytesOf(m_file), before);
}

void CellTest::olderLayoutOnFullDisk()
{
    QVERIFY(makeOldCell(m_file));
    const QByteArray before = bytesOf(m_file);
    m_programs.insert(QStringLiteral("big"), QByteArray(1 << 20, 'x'));
    {
        const FullDisk full(64 * 1024);
        QVERIFY(!open());
    }
    QVERIFY2(m_error.contains(m_file), qPrintable(m_error));
    QCOMPARE(bytesOf(m_file), before);
    const auto cell = open();
    QVERIFY2(cell, qPrintable(m_error));
    QCOMPARE(cell->programs().size(), 2);
}

void CellTest::missingPrograms()
{
    QVERIFY(open());
    QVERIFY(runSql(m_file, {QStringLiteral("DROP TABLE programs")}));
    expectRefusal(QStringLiteral("a table is missing"));
}

void CellTest::programsOfNewCell()
{
    QByteArray text;
    QVERIFY(open()->readProgram(QStringLiteral("first"), &text));
    QCOMPARE(text, QByteArray("LaserOff();\n"));
    QVERIFY(!open()->readProgram(QStringLiteral("second"), &text));
}

void CellTest::programBytes_data()
{
    QTest::addColumn<QByteArray>("text");
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    QTest::newRow("null") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("every byte") << all;
    QTest::newRow("line ends") << QByteArray("a\r\nb\nc\rd");
    QTest::newRow("no UTF-8") << QByteArray("\xff\xfe\x80");
    QTest::newRow("looks like a number") << QByteArray("0012");
}

void CellTest::programBytes()
{
    QFETCH(QByteArray, text);
    const QString name = QString::fromUtf8("\u6fc0\u5149 'a'; %1");
    QVERIFY2(open()->storeProgram(name, text, &m_error), qPrintable(m_error));
    QByteArray read("before");
    QVERIFY(open()->readProgram(name, &read));
    QCOMPARE(read, text);
}

void CellTest::changesPrograms()
{
    const QString name = QStringLiteral("b");
    m_programs = {{QStringLiteral("B"), "1"}, {QStringLiteral("a"), "2"}, {name, "3"}};
    {
        const auto cell = open();
        QCOMPARE(cell->programs().join(QLatin1Char(' ')), QStringLiteral("a B b"));
        QVERIFY(cell->storeProgram(name, "4", &m_error));
        QVERIFY(cell->renameProgram(name, QStringLiteral("c"), &m_error));
        QVERIFY(cell->removeProgram(QStringLiteral("a"), &m_error));
        // The name is taken, and nothing changes.
        QVERIFY(!cell->renameProgram(QStringLiteral("B"), QStringLiteral("c"), &m_error));
    }
    QByteArray text;
    QCOMPARE(open()->programs().join(QLatin1Char(' ')), QStringLiteral("B c"));
    QVERIFY(open()->readProgram(QStringLiteral("c"), &text));
    QCOMPARE(text, QByteArray("4"));
}

void CellTest::programsOnFullDisk()
{
    const QString name = QStringLiteral("first");
    const auto cell = open();
    {
        const FullDisk full(256 * 1024);
        QVERIFY(!cell->storeProgram(name, QByteArray(1 << 20, 'x'), &m_error));
    }
    QVERIFY2(m_error.contains(m_file), qPrintable(m_error));
    QByteArray text;
    QVERIFY2(cell->readProgram(name, &text), qPrintable(m_error));
    QCOMPARE(text, m_programs.value(name));
    QVERIFY(cell->storeProgram(name, "room again", &m_error));
}

void CellTest::refusesLocked()
{
    const auto first = open();
    QVERIFY(first);
    expectRefusal(QStringLiteral("open in another pendant"));
    // A refused look must not cost the first one its lock.
    QVERIFY(first->store({{keyA, QJsonObject()}}, &m_error));
    expectRefusal(QStringLiteral("open in another pendant"));
}

/// What a killed process leaves is the file and its journal as they stand at that moment.
void CellTest::recoversCrash()
{
    const QString copy = m_folder->filePath(QStringLiteral("copy.cell"));
    const QString journal = QStringLiteral("-wal");
    const auto cell = open();
    QVERIFY(cell->store({{keyA, bigRecord()}}, &m_error));
    QVERIFY(QFile::copy(m_file, copy));
    QVERIFY(QFile::copy(m_file + journal, copy + journal));
    m_file = copy;
    const auto recovered = open();
    QVERIFY2(recovered, qPrintable(m_error));
    QCOMPARE(recovered->record(keyA), QJsonValue(bigRecord()));
}

void CellTest::refusesDamagedWithLeftovers()
{
    const QString copy = m_folder->filePath(QStringLiteral("copy.cell"));
    const QString journal = QStringLiteral("-wal");
    QVERIFY(open({{keyB, bigRecord()}}));
    const auto cell = open();
    QVERIFY(cell->store({{keyA, QJsonObject()}}, &m_error));
    const QByteArray bytes = bytesOf(m_file);
    QVERIFY(setBytes(copy, bytes.left(8192) + QByteArray(bytes.size() - 8192, '\xff')));
    QVERIFY(QFile::copy(m_file + journal, copy + journal));
    m_file = copy;
    const QByteArray left = bytesOf(copy + journal);
    expectRefusal(QStringLiteral("is damaged"));
    QCOMPARE(bytesOf(copy + journal), left);
}

void CellTest::fullDisk()
{
    const auto cell = open();
    const Records changes{{keyA, QJsonObject()}, {keyB, bigRecord()}};
    {
        const FullDisk full(static_cast<rlim_t>(QFileInfo(m_file + QStringLiteral("-wal")).size()) +
                            8192);
        QVERIFY(!cell->store(changes, &m_error));
    }
    QVERIFY2(m_error.contains(m_file), qPrintable(m_error));
    QCOMPARE(cell->record(keyA), defaults().value(keyA));
    // Once there is room again, the same cell goes on.
    QVERIFY(cell->store({{keyB, QJsonObject()}}, &m_error));
    QCOMPARE(cell->record(keyA), defaults().value(keyA));
}

LASERWELD_CORE_TEST_MAIN(CellTest)
#include "tst_cell.moc"
