#include "LogFolder.h"
#include "RlLaserWeldDefine.h"
#include "ScriptedHost.h"
#include "TestCase.h"
#include "rlregistry.h"

#include <QApplication>
#include <QEvent>
#include <QFile>

#include <memory>

#include <malloc.h>

using qelplugin::RlInstruction;
using qelplugin::RlRegistry;

namespace {

constexpr int Times = 1'000;

/// Bytes that the process has taken from the heap and not given back.
qint64 heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks) + static_cast<qint64>(info.hblkhd);
}

/// Bytes of the process that are in memory.
qint64 residentSize()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * 4096;
}

void makeAndDestroy(const qelplugin::RLManager::Factory& factory, int times)
{
    for (int time = 0; time < times; ++time)
        delete factory();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

/// Editors that are made and destroyed all day long leave nothing behind.
class EditorGrowthTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void doesNotGrow_data();
    void doesNotGrow();
};

void EditorGrowthTest::cleanup()
{
    RlRegistry::instance().clear();
    TestCase::cleanup();
}

void EditorGrowthTest::doesNotGrow_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("isInsert");
    for (const char* key : {"LaserOn", "LaserOff", "LsParaSet", "LsMoveL", "LsMoveC", "LsMoveCF"}) {
        QTest::addRow("%s, insert", key) << QString::fromLatin1(key) << true;
        QTest::addRow("%s, property", key) << QString::fromLatin1(key) << false;
    }
}

void EditorGrowthTest::doesNotGrow()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer keeps what is given back, and finds leaks itself.");
#endif
    QFETCH(QString, key);
    QFETCH(bool, isInsert);
    ScriptedHost host;
    host.speedNames = host.zoneNames = host.toolNames = QStringList{QStringLiteral("one")};
    const RlLaserWeldDefine define(nullptr);
    const RlInstruction& instruction = RlRegistry::instance().instruction(key);
    const auto factory = isInsert ? instruction.insertEditor : instruction.propertyEditor;
    // The host notes each call.
    const auto run = [&](int times) {
        for (; times > 0; times -= 100) {
            makeAndDestroy(factory, 100);
            host.forgetCalls();
            host.calls.squeeze();
        }
    };
    run(100);
    const qint64 heap = heapInUse();
    const qint64 resident = residentSize();
    run(Times);
    const qint64 grown = heapInUse() - heap;
    const qint64 residentGrown = residentSize() - resident;
    qInfo("%d times: heap %+lld bytes, resident %+lld KiB", Times, grown, residentGrown / 1024);
    // Caches fill up over the first thousands of editors with style sheets and then stop; a widget
    // that is left behind takes more.
    QVERIFY2(grown < 128 * Times, qPrintable(QString::number(grown)));
    QVERIFY2(residentGrown < 1024 * 1024, qPrintable(QString::number(residentGrown)));
}

LASERWELD_TEST_MAIN(EditorGrowthTest)
#include "tst_editorgrowth.moc"
