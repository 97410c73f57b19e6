#include "ElfFile.h"
#include "TestCase.h"

#include <QFile>
#include <QTemporaryDir>

using namespace pendant;

namespace {

QByteArray goodLibrary()
{
    QFile file(QStringLiteral(SHELL_LIBRARIES "/good/libgood.so"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestElfFile : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aLibraryTellsItsNeeds();
    void aProgramFileThatIsMissing();
    void damaged_data();
    void damaged();
    void everyCutIsSurvived();
    void foreignMachine();

private:
    ElfFacts read(const QByteArray& content);
    QTemporaryDir folder;
};

ElfFacts TestElfFile::read(const QByteArray& content)
{
    QFile file(folder.filePath(QStringLiteral("libx.so")));
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write(content);
    file.close();
    return readElf(file.fileName());
}

void TestElfFile::aLibraryTellsItsNeeds()
{
    const ElfFacts facts = read(goodLibrary());
    QVERIFY(facts.isLibrary);
    QVERIFY(facts.isNative);
    QVERIFY(facts.needed.contains(QStringLiteral("libQt5Core.so.5")));
    QVERIFY(facts.needed.contains(QStringLiteral("libqelplugin.so.1")));
}

void TestElfFile::aProgramFileThatIsMissing()
{
    QVERIFY(!readElf(QStringLiteral("/nowhere/libx.so")).isLibrary);
}

void TestElfFile::damaged_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text")
        << QByteArray("a plain text that is longer than the head of a library\n").repeated(4);
    QTest::newRow("only the mark") << QByteArray("\177ELF");
    QTest::newRow("mark and zeroes") << QByteArray("\177ELF") + QByteArray(200, '\0');
}

void TestElfFile::damaged()
{
    QFETCH(QByteArray, content);
    const ElfFacts facts = read(content);
    QVERIFY(!facts.isLibrary);
    QVERIFY(facts.needed.isEmpty());
}

// Nothing is read beyond the end, and what is wild leads nowhere.
void TestElfFile::everyCutIsSurvived()
{
    const QByteArray whole = goodLibrary();
    for (int size = 0; size < 4096; size += 61)
        read(whole.left(size));
    QByteArray wild = whole;
    for (int place = 64; place < 1024; ++place)
        wild[place] = '\xff';
    const ElfFacts facts = read(wild);
    QVERIFY(facts.isLibrary);
    QVERIFY(facts.needed.isEmpty());
}

void TestElfFile::foreignMachine()
{
    QByteArray other = goodLibrary();
    other[18] = char(other[18] + 1); // the machine
    const ElfFacts facts = read(other);
    QVERIFY(facts.isLibrary);
    QVERIFY(!facts.isNative);
    QVERIFY(facts.needed.isEmpty());
}

LASERWELD_CORE_TEST_MAIN(TestElfFile)
#include "tst_elffile.moc"
