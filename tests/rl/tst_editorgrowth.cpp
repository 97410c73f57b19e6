#include "LiveHeap.h"
#include "RlLaserWeldDefine.h"
#include "ScriptedHost.h"
#include "TestCase.h"
#include "rlregistry.h"

#include <QApplication>
#include <QEvent>

#include <functional>
#include <memory>

using qelplugin::RlInstruction;
using qelplugin::RlRegistry;

namespace {

constexpr int First = 100; ///< in which Qt sets up what it keeps
constexpr int Times = 500;

/// What is left on the heap after the work has been done many times, the first hundred aside. The
/// host notes each call, and forgets them here.
LiveHeap::Count growth(ScriptedHost& host, const std::function<void()>& work)
{
    const auto repeat = [&](int times) {
        for (; times > 0; --times)
            work();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        host.forgetCalls();
        host.calls.squeeze();
    };
    repeat(First);
    const LiveHeap::Count before = LiveHeap::now();
    repeat(Times);
    return LiveHeap::now() - before;
}

} // namespace

/// Editors that are made and destroyed all day long leave nothing behind.
class EditorGrowthTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void leavesNothing_data();
    void leavesNothing();
    void findsWhatIsLeft();
};

void EditorGrowthTest::initTestCase()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer has a heap of its own, and finds leaks itself.");
#endif
}

void EditorGrowthTest::cleanup()
{
    RlRegistry::instance().clear();
    TestCase::cleanup();
}

void EditorGrowthTest::leavesNothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("isInsert");
    for (const char* key :
         {"LaserOn", "LaserOff", "LsParaSet", "LsParaMatchOff", "LsMoveL", "LsMoveC", "LsMoveCF"}) {
        QTest::addRow("%s, insert", key) << QString::fromLatin1(key) << true;
        QTest::addRow("%s, property", key) << QString::fromLatin1(key) << false;
    }
}

void EditorGrowthTest::leavesNothing()
{
    QFETCH(QString, key);
    QFETCH(bool, isInsert);
    ScriptedHost host;
    host.speedNames = host.zoneNames = host.toolNames = QStringList{QStringLiteral("one")};
    const RlLaserWeldDefine define(nullptr);
    const RlInstruction& instruction = RlRegistry::instance().instruction(key);
    const auto factory = isInsert ? instruction.insertEditor : instruction.propertyEditor;
    const LiveHeap::Count left = growth(host, [&factory] { delete factory(); });
    QCOMPARE(left.blocks, 0);
    QCOMPARE(left.bytes, 0);
}

// One block in each turn shows.
void EditorGrowthTest::findsWhatIsLeft()
{
    ScriptedHost host;
    QVector<std::shared_ptr<int>> kept(First + Times);
    auto next = kept.begin();
    const LiveHeap::Count left = growth(host, [&next] { *next++ = std::make_shared<int>(); });
    QCOMPARE(left.blocks, Times);
    QVERIFY(left.bytes >= Times * int(sizeof(int)));
}

LASERWELD_TEST_MAIN(EditorGrowthTest)
#include "tst_editorgrowth.moc"
