#include "LogFolder.h"
#include "TestCase.h"
#include "logfile.h"
#include "qelplugin.h"

#include <QDir>
#include <QFile>
#include <QPoint>
#include <QScopeGuard>

#include <csignal>
#include <functional>
#include <thread>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>

using qelplugin::QFLog;
using qelplugin::QLog;

static_assert(sizeof(QLog) == sizeof(QDebug));
static_assert(sizeof(QFLog) == 2 * sizeof(QDebug) + sizeof(QFile));

namespace {

using Items = std::function<void(QFLog&)>;

const QString Colour = QStringLiteral("\x1b[36m");
const QString Header = QStringLiteral("[I|test]");
const QString Base = QStringLiteral("./log/tag/tag");
const QString Extension = QStringLiteral("log");
const QString Path = QStringLiteral("./log/tag/tag.log");
constexpr char Note[] = "qelplugin: no log in ";

void write(const QString& text, const QString& base = Base)
{
    QFLog(Colour, Header, QString(), base, Extension) << text;
}

QByteArray inConsole(const QByteArray& body)
{
    return "\x1b[36m" + body + "\x1b[0m\n";
}

QByteArray content(const QString& path = Path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// How many descriptors of the process are this file's.
int timesOpen(const QString& path)
{
    const QString wanted = QFileInfo(path).canonicalFilePath();
    int count = 0;
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    const auto links = descriptors.entryInfoList(QDir::Files | QDir::System);
    for (const QFileInfo& link : links)
        count += link.symLinkTarget() == wanted ? 1 : 0;
    return count;
}

} // namespace

Q_DECLARE_METATYPE(Items)

class TestLog : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void cleanupTestCase();

    void line_data();
    void line();
    void trailer();
    void consoleOnly();
    void takesAllThatQDebugTakes();
    void lineWithinALine();
    void twoTagsTwoFiles();
    void staysOpen();
    void rotation_data();
    void rotation();
    void lineLongerThanTheLimit();
    void continuesAFile();
    void noticesTheRemovedFile();
    void noticesTheRemovedFolder();
    void noticesAnotherWorkingDirectory();
    void folderThatIsAFile();
    void workingDirectoryIsGone();
    void fullDisk();
    void tornLine();
    void threads();
    void keepsNoNames();

private:
    /// The lines on the console since the last call. The note of a missing log is only counted.
    QList<QByteArray> console();

    std::unique_ptr<LogFolder> folder;
    std::unique_ptr<ConsoleCapture> capture;
    qelplugin::LogLimits before{};
    int notes = 0;
};

void TestLog::init()
{
    TestCase::init();
    folder = std::make_unique<LogFolder>();
    capture = std::make_unique<ConsoleCapture>();
    before = qelplugin::setLogLimits({1024 * 1024, 3});
}

void TestLog::cleanup()
{
    console();
    capture.reset();
    folder.reset();
    qelplugin::setLogLimits(before);
    TestCase::cleanup();
}

// Several tests had no log; the console was told once.
void TestLog::cleanupTestCase()
{
    QCOMPARE(notes, 1);
}

QList<QByteArray> TestLog::console()
{
    QList<QByteArray> lines;
    const auto writes = capture->take();
    for (const QByteArray& each : writes) {
        if (each.startsWith(Note))
            ++notes;
        else
            lines << each;
    }
    return lines;
}

void TestLog::line_data()
{
    QTest::addColumn<Items>("items");
    QTest::addColumn<QByteArray>("text");

    const auto row = [](const char* name, const Items& items, const QByteArray& text) {
        QTest::newRow(name) << items << text;
    };
    row(
        "none", [](QFLog&) {}, "");
    row(
        "text", [](QFLog& log) { log << QStringLiteral("a text"); }, " a text");
    row(
        "empty text", [](QFLog& log) { log << QString() << 1; }, "  1");
    row(
        "characters", [](QFLog& log) { log << "qelLaserWelding::init()"; },
        " qelLaserWelding::init()");
    row(
        "characters of UTF-8", [](QFLog& log) { log << "Schwei\u00df"; }, " Schwei\u00df");
    row(
        "no characters", [](QFLog& log) { log << static_cast<const char*>(nullptr) << 1; }, "  1");
    row(
        "character", [](QFLog& log) { log << 'x'; }, " x");
    row(
        "number", [](QFLog& log) { log << -12; }, " -12");
    row(
        "true", [](QFLog& log) { log << true; }, " true");
    row(
        "false", [](QFLog& log) { log << false; }, " false");
    row(
        "quotation marks", [](QFLog& log) { log << QStringLiteral("\"a\""); }, " \"a\"");
    row(
        "several", [](QFLog& log) { log << "failed. " << QStringLiteral("set") << ':' << 7; },
        " failed.  set : 7");
}

void TestLog::line()
{
    QFETCH(Items, items);
    QFETCH(QByteArray, text);
    {
        QFLog log(Colour, Header, QString(), Base, Extension);
        items(log);
        QVERIFY(console().isEmpty());
        QVERIFY(content().isEmpty());
    }
    const QByteArray body = "[I|test]" + text;
    QCOMPARE(console(), QList<QByteArray>{inConsole(body)});
    QCOMPARE(content(), body + '\n');
}

void TestLog::trailer()
{
    QFLog(Colour, Header, QStringLiteral(" <end>"), Base, Extension) << "text";
    QLog(Colour, Header, QStringLiteral(" <end>")) << "text";
    const QByteArray body = "[I|test] text <end>";
    QCOMPARE(console(), (QList<QByteArray>{inConsole(body), inConsole(body)}));
    QCOMPARE(content(), body + '\n');
}

void TestLog::consoleOnly()
{
    QLog(Colour, Header, QString()) << QStringLiteral("one") << "two" << 3;
    QCOMPARE(console(), QList<QByteArray>{inConsole("[I|test] one two 3")});
    QVERIFY(!QFile::exists(QStringLiteral("log")));
}

void TestLog::takesAllThatQDebugTakes()
{
    QLog(Colour, Header, QString()) << 1.5 << QPoint(1, 2) << QStringList{QStringLiteral("a")};
    QCOMPARE(console(), QList<QByteArray>{inConsole("[I|test] 1.5 QPoint(1,2) (a)")});
}

void TestLog::lineWithinALine()
{
    const auto inner = [] {
        write(QStringLiteral("inner"));
        return 1;
    };
    QFLog(Colour, Header, QString(), Base, Extension) << "outer" << inner();
    QCOMPARE(console(),
             (QList<QByteArray>{inConsole("[I|test] inner"), inConsole("[I|test] outer 1")}));
    QCOMPARE(content(), QByteArray("[I|test] inner\n[I|test] outer 1\n"));
}

void TestLog::twoTagsTwoFiles()
{
    write(QStringLiteral("one"));
    write(QStringLiteral("two"), QStringLiteral("./log/other/other"));
    write(QStringLiteral("three"));
    QCOMPARE(content(), QByteArray("[I|test] one\n[I|test] three\n"));
    QCOMPARE(content(QStringLiteral("./log/other/other.log")), QByteArray("[I|test] two\n"));
}

void TestLog::staysOpen()
{
    for (int i = 0; i < 100; ++i)
        write(QString::number(i));
    QCOMPARE(timesOpen(Path), 1);
    QCOMPARE(content().count('\n'), 100);
}

void TestLog::rotation_data()
{
    QTest::addColumn<int>("oldFiles");
    QTest::newRow("none is kept") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("three") << 3;
}

void TestLog::rotation()
{
    QFETCH(int, oldFiles);
    constexpr int Limit = 200;
    constexpr int LineLength = 20;
    qelplugin::setLogLimits({Limit, oldFiles});
    QByteArray all;
    for (int i = 1000; i < 1055; ++i) {
        write(QStringLiteral("line %1 ").arg(i));
        all += QByteArray("[I|test] line ") + QByteArray::number(i) + " \n";
    }
    QByteArray kept;
    for (int number = oldFiles; number > 0; --number) {
        const QByteArray old = content(QStringLiteral("./log/tag/tag.%1.log").arg(number));
        QCOMPARE(old.size(), Limit / LineLength * LineLength);
        kept += old;
    }
    kept += content();
    QVERIFY(all.endsWith(kept));
    QCOMPARE(content().size(), 5 * LineLength);
    QCOMPARE(QDir(QStringLiteral("./log/tag")).entryList(QDir::Files).size(), oldFiles + 1);
    QCOMPARE(timesOpen(Path), 1);
}

void TestLog::lineLongerThanTheLimit()
{
    qelplugin::setLogLimits({50, 3});
    const QString text(100, QLatin1Char('x'));
    write(text);
    write(text);
    QCOMPARE(content(), "[I|test] " + text.toUtf8() + '\n');
    QCOMPARE(content(QStringLiteral("./log/tag/tag.1.log")), content());
}

void TestLog::continuesAFile()
{
    QDir().mkpath(QStringLiteral("log/tag"));
    QFile file(Path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("from before\n");
    file.close();
    write(QStringLiteral("one"));
    QCOMPARE(content(), QByteArray("from before\n[I|test] one\n"));
}

// No later than a tick of the coarse clock.
void TestLog::noticesTheRemovedFile()
{
    write(QStringLiteral("one"));
    QVERIFY(QFile::remove(Path));
    QTRY_VERIFY((write(QStringLiteral("two")), QFile::exists(Path)));
    QVERIFY(content().startsWith("[I|test] two\n"));
    QCOMPARE(timesOpen(Path), 1);
}

void TestLog::noticesTheRemovedFolder()
{
    write(QStringLiteral("one"));
    QVERIFY(QDir(QStringLiteral("log")).removeRecursively());
    QTRY_VERIFY((write(QStringLiteral("two")), QFile::exists(Path)));
}

void TestLog::noticesAnotherWorkingDirectory()
{
    write(QStringLiteral("one"));
    const QTemporaryDir other;
    QDir::setCurrent(other.path());
    QTRY_VERIFY((write(QStringLiteral("two")), QFile::exists(Path)));
    QDir::setCurrent(folder->path());
    QVERIFY(content().startsWith("[I|test] one\n"));
}

void TestLog::folderThatIsAFile()
{
    QFile obstacle(QStringLiteral("log"));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    write(QStringLiteral("one"));
    write(QStringLiteral("two"));
    QCOMPARE(console(), (QList<QByteArray>{inConsole("[I|test] one"), inConsole("[I|test] two")}));
    QVERIFY(obstacle.remove());
    QTRY_VERIFY((write(QStringLiteral("three")), QFile::exists(Path)));
}

void TestLog::workingDirectoryIsGone()
{
    QVERIFY(QDir().rmdir(folder->path()));
    write(QStringLiteral("one"));
    QCOMPARE(console(), QList<QByteArray>{inConsole("[I|test] one")});
}

void TestLog::fullDisk()
{
    QDir().mkpath(QStringLiteral("log/tag"));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), Path));
    write(QStringLiteral("one"));
    write(QStringLiteral("two"));
    QCOMPARE(console(), (QList<QByteArray>{inConsole("[I|test] one"), inConsole("[I|test] two")}));
}

// A line that found room for its beginning alone does not spoil the one behind it.
void TestLog::tornLine()
{
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &old), 0);
    rlimit small = old;
    small.rlim_cur = 12;
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
    write(QStringLiteral("first"));
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    write(QStringLiteral("second"));
    QCOMPARE(content(), QByteArray("[I|test] fir\n[I|test] second\n"));
}

void TestLog::threads()
{
    constexpr int Threads = 4;
    constexpr int Lines = 200;
    qelplugin::setLogLimits({4000, 100});
    std::vector<std::thread> all;
    all.reserve(Threads);
    for (int thread = 0; thread < Threads; ++thread) {
        all.emplace_back([thread] {
            for (int i = 0; i < Lines; ++i)
                QFLog(Colour, Header, QString(), Base, Extension) << thread << "says" << i;
        });
    }
    for (std::thread& thread : all)
        thread.join();
    QByteArray written;
    const QDir logs(QStringLiteral("./log/tag"));
    const auto names = logs.entryList(QDir::Files);
    for (const QString& name : names)
        written += content(logs.filePath(name));
    QCOMPARE(written.count('\n'), Threads * Lines);
    for (int thread = 0; thread < Threads; ++thread) {
        const QByteArray last = "[I|test] " + QByteArray::number(thread) + " says 199\n";
        QCOMPARE(written.count(last), 1);
    }
}

// As from a library that is unloaded behind the line: its constants are gone.
void TestLog::keepsNoNames()
{
    QString memory(Base.constData(), Base.size());
    {
        const QString constant = QString::fromRawData(memory.constData(), memory.size());
        write(QStringLiteral("one"), constant);
    }
    memory.fill(QLatin1Char('?'));
    write(QStringLiteral("two"));
    QCOMPARE(content(), QByteArray("[I|test] one\n[I|test] two\n"));
    QCOMPARE(timesOpen(Path), 1);
}

LASERWELD_CORE_TEST_MAIN(TestLog)
#include "tst_log.moc"
