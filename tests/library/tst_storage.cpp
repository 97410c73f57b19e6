// How the library stores its resources: one tree, registered when it is loaded and taken out when
// it is unloaded; pictures plain, since they are compressed already, the rest compressed.

#include "TestCase.h"

#include <QDirIterator>
#include <QLibrary>
#include <QResource>

#include <dlfcn.h>

namespace {

/// Format versions of the trees that were registered, and how many were taken out again.
struct Registrations
{
    QVector<int> versions;
    int removed = 0;
};

Registrations& registrations()
{
    static Registrations seen;
    return seen;
}

using Registrar = bool (*)(int, const unsigned char*, const unsigned char*, const unsigned char*);

Registrar next(const char* symbol)
{
    return reinterpret_cast<Registrar>(dlsym(RTLD_NEXT, symbol));
}

QStringList filesBelow(const QString& root)
{
    QStringList files;
    QDirIterator all(root, QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext())
        files << all.next();
    files.sort();
    return files;
}

QStringList expectedFiles()
{
    QStringList files{QStringLiteral(":/png/LaserSwitchReal.png"),
                      QStringLiteral(":/png/LaserSwitchSimu.png"),
                      QStringLiteral(":/qelLaserWelding/language/qelLaserWelding_cn.qm"),
                      QStringLiteral(":/qelLaserWelding/png/arrow/down_arrow_white.png"),
                      QStringLiteral(":/qelLaserWelding/render/sub_page.json")};
    for (const char* name :
         {"DeviceSetting", "IO", "CharacteristicCurve", "ProcessSetting", "WeaveFunction"})
        files << QStringLiteral(":/png/meanlist/LaserWeld%1.png").arg(QLatin1String(name));
    for (const char* name : {"switchMode", "feedWire", "gas", "pullWire", "redLight", "monitor"}) {
        for (const char* state : {"Pressed", "Unpressed"})
            files << QStringLiteral(":/png/phybutton/%1%2.png")
                         .arg(QLatin1String(name), QLatin1String(state));
    }
    files.sort();
    return files;
}

} // namespace

// The library finds these before Qt's own.
#define EXPORTED __attribute__((visibility("default")))
EXPORTED bool qRegisterResourceData(int, const unsigned char*, const unsigned char*,
                                    const unsigned char*);
EXPORTED bool qUnregisterResourceData(int, const unsigned char*, const unsigned char*,
                                      const unsigned char*);

bool qRegisterResourceData(int version, const unsigned char* tree, const unsigned char* name,
                           const unsigned char* data)
{
    registrations().versions << version;
    return next("_Z21qRegisterResourceDataiPKhS0_S0_")(version, tree, name, data);
}

bool qUnregisterResourceData(int version, const unsigned char* tree, const unsigned char* name,
                             const unsigned char* data)
{
    ++registrations().removed;
    return next("_Z23qUnregisterResourceDataiPKhS0_S0_")(version, tree, name, data);
}

class TestStorage : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void oneTreeOfTheThirdFormat();
    void holdsTheseFiles();
    void compression();
    void cleanupTestCase();

private:
    QLibrary library{QStringLiteral(PLUGIN_LIBRARY)};
};

void TestStorage::initTestCase()
{
    QCOMPARE(filesBelow(QStringLiteral(":/png")), QStringList());
    registrations() = {};
    QVERIFY2(library.load(), qPrintable(library.errorString()));
}

void TestStorage::oneTreeOfTheThirdFormat()
{
    QCOMPARE(registrations().versions, QVector<int>{3});
}

void TestStorage::holdsTheseFiles()
{
    QStringList files = filesBelow(QStringLiteral(":/png"));
    files << filesBelow(QStringLiteral(":/qelLaserWelding"));
    QCOMPARE(files, expectedFiles());
}

void TestStorage::compression()
{
    const QStringList files = expectedFiles();
    for (const QString& file : files) {
        const auto stored = QResource(file).compressionAlgorithm();
        const bool isPicture = file.endsWith(QLatin1String(".png"));
        QVERIFY2(stored == (isPicture ? QResource::NoCompression : QResource::ZlibCompression),
                 qPrintable(file));
    }
}

void TestStorage::cleanupTestCase()
{
    QVERIFY(library.unload());
    QCOMPARE(registrations().removed, 1);
    QCOMPARE(filesBelow(QStringLiteral(":/png")), QStringList());
}

LASERWELD_TEST_MAIN(TestStorage)
#include "tst_storage.moc"
