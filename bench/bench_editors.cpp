// Every instruction editor made and destroyed ten thousand times, through the registered factories
// as the host does it: what is left on the heap after the first hundred, which is to be nothing.

#include "LiveHeap.h"
#include "PageBench.h"
#include "Ratio.h"
#include "RlLaserWeldDefine.h"
#include "rlregistry.h"

#include <QApplication>
#include <QEvent>

namespace {

constexpr int First = 100; ///< in which Qt sets up what it keeps
constexpr int Times = 10000;

/// A cell with points and lists for the motions.
class RobotHost : public PageBench::CellHost
{
public:
    QStringList speeds() override { return names("v"); }
    QStringList zones() override { return names("z"); }
    QStringList tools() override { return names("tool"); }
    QStringList workObjects() override { return names("wobj"); }
    QStringList pointNames() override { return names("p"); }
    QString currentTool() override { return QLatin1String("tool1"); }
    QString currentWorkObject() override { return QLatin1String("wobj1"); }

private:
    static QStringList names(const char* prefix)
    {
        QStringList all;
        for (int index = 0; index < 10; ++index)
            all << QLatin1String(prefix) + QString::number(index);
        return all;
    }
};

void makeAndDestroy(const qelplugin::RLManager::Factory& factory, int times)
{
    for (int time = 0; time < times; ++time)
        delete factory();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// False when anything is left.
bool measure(const QString& key, const char* which, const qelplugin::RLManager::Factory& factory)
{
    makeAndDestroy(factory, First);
    const LiveHeap::Count before = LiveHeap::now();
    makeAndDestroy(factory, Times);
    const LiveHeap::Count left = LiveHeap::now() - before;
    return Ratio::reportNone(key.toStdString() + which + ", left by 10000 of them",
                             left.bytes != 0 ? left.bytes : left.blocks, "B");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const RobotHost host;
    const RlLaserWeldDefine define(nullptr);
    bool holds = true;
    const auto& instructions = qelplugin::RlRegistry::instance().instructions;
    for (const qelplugin::RlInstruction& instruction : instructions) {
        if (!instruction.insertEditor)
            continue;
        holds &= measure(instruction.key, " (insert)", instruction.insertEditor);
        holds &= measure(instruction.key, " (property)", instruction.propertyEditor);
    }
    return holds ? 0 : 1;
}
