// A second show of a page whose record has not changed, beside its first show. Both run from the
// call of show() to the painted frame. Each round is a process of its own: a page has one first
// show in the life of a pendant.

#include "PageBench.h"
#include "Ratio.h"
#include "WeldSettingPage.h"

#include <QApplication>
#include <QProcess>
#include <QVBoxLayout>

#include <algorithm>

using PageBench::CellHost;
using PageBench::showUntilPainted;

namespace {

constexpr int Rounds = 15;
constexpr double Limit = 0.2;
constexpr QSize WindowSize(800, 600);

/// Shows the page twice in a window that is open, and prints the microseconds of both.
int runRound()
{
    const CellHost host;
    QWidget window;
    window.resize(WindowSize);
    auto* layout = new QVBoxLayout(&window);
    showUntilPainted(&window);
    auto* page = new WeldSettingPage(&window);
    layout->addWidget(page);
    page->hide();
    page->applyPageStyle();
    const Ratio::Work show = [page] { showUntilPainted(page); };
    const double first = Ratio::microseconds(show);
    QApplication::processEvents();
    page->hide();
    QApplication::processEvents();
    const double second = Ratio::microseconds(show);
    std::printf("%.1f %.1f\n", first, second);
    return 0;
}

Ratio::Figures startRound()
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String("round")});
    process.waitForFinished(60000);
    const QList<QByteArray> times = process.readAllStandardOutput().trimmed().split(' ');
    if (times.size() != 2)
        qFatal("a round gave nothing");
    return {times.at(1).toDouble(), times.at(0).toDouble()};
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QFont::insertSubstitution(QLatin1String("Microsoft YaHei UI"),
                              QLatin1String("Noto Sans CJK SC"));
    if (argc > 1)
        return runRound();
    Ratio::Figures least{1e300, 1e300};
    for (int round = 0; round < Rounds; ++round) {
        const Ratio::Figures figures = startRound();
        least.ours = std::min(least.ours, figures.ours);
        least.peer = std::min(least.peer, figures.peer);
    }
    return Ratio::report("second show of Weld Setup / its first show", least, Limit) ? 0 : 1;
}
