// The pendant with the plugin beside the pendant without it: from the start of the process to the
// first frame, a change of the page, and memory. Each round is a process of its own.

#include "MainWindow.h"
#include "Options.h"
#include "PageBench.h"
#include "Ratio.h"
#include "Resident.h"
#include "Session.h"
#include "Theme.h"

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QToolButton>
#include <QVector>

#include <algorithm>
#include <array>

namespace {

constexpr int Rounds = 9;
constexpr int Turns = 5; ///< through all pages; the least counts

// What the plugin may make of it. A pendant is started once a day, and its pages are changed all
// day.
constexpr double StartBound = 6;
constexpr double MemoryBound = 2;
constexpr double Frame = 1e6 / 60; ///< microseconds

struct Round
{
    double start = 1e300;      ///< microseconds from main() to the first frame
    double change = 1e300;     ///< microseconds of the slowest change of a page, once all were seen
    double memory = 1e300;     ///< KiB after the first frame
    double memorySeen = 1e300; ///< KiB after all pages
};

constexpr std::array<double Round::*, 4> Figures{&Round::start, &Round::change, &Round::memory,
                                                 &Round::memorySeen};

void settle()
{
    for (int turn = 0; turn < 5; ++turn)
        QApplication::processEvents();
}

double click(QAbstractButton* button)
{
    return Ratio::microseconds([button] {
        button->click();
        settle();
    });
}

/// The robot programs and back; with the plugin all its pages too.
QVector<QAbstractButton*> changes(pendant::Session& session)
{
    auto* programs = session.window().findChild<QAbstractButton*>(QLatin1String("button_program"));
    QVector<QAbstractButton*> buttons{programs, programs};
    if (auto* navigation = session.window().findChild<QWidget*>(QLatin1String("wgtNav"))) {
        const auto entries = navigation->findChildren<QToolButton*>();
        for (QToolButton* each : entries)
            buttons << each;
    }
    return buttons;
}

double slowestChange(pendant::Session& session)
{
    const auto buttons = changes(session);
    for (QAbstractButton* each : buttons)
        click(each);
    QVector<double> least(buttons.size(), 1e300);
    for (int turn = 0; turn < Turns; ++turn) {
        for (int index = 0; index < buttons.size(); ++index)
            least[index] = std::min(least.at(index), click(buttons.at(index)));
    }
    return *std::max_element(least.begin(), least.end());
}

/// One round, in the working directory.
int runRound(const QString& plugins)
{
    pendant::Options options;
    options.cellFile = QDir::current().filePath(QLatin1String("cell.sqlite"));
    options.pluginFolder = plugins;
    options.userLevel = 3;
    options.trackingDelay = -1;
    QString error;
    std::unique_ptr<pendant::Session> session;
    Round round;
    round.start = Ratio::microseconds([&] {
        pendant::Theme::apply(*qApp);
        session = pendant::Session::open(options, &error);
        if (!session)
            qFatal("%s", qPrintable(error));
        PageBench::showUntilPainted(&session->window());
    });
    round.memory = residentKiB();
    // Without a plugin it says so over the page.
    session->window().findChild<QWidget*>(QLatin1String("drawer"))->hide();
    round.change = slowestChange(*session);
    round.memorySeen = residentKiB();
    for (const auto figure : Figures)
        std::printf("%.1f ", round.*figure);
    return 0;
}

void addRound(Round& least, const QString& plugins)
{
    const QTemporaryDir folder;
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(), {plugins});
    process.waitForFinished(60000);
    const QList<QByteArray> fields =
        process.readAllStandardOutput().trimmed().split('\n').last().split(' ');
    if (fields.size() != int(Figures.size()))
        qFatal("a round gave nothing");
    for (std::size_t index = 0; index < Figures.size(); ++index) {
        double& figure = least.*Figures[index];
        figure = std::min(figure, fields.at(int(index)).toDouble());
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc > 1)
        return runRound(QString::fromLocal8Bit(argv[1]));
    const QTemporaryDir empty;
    Round with;
    Round without;
    for (int round = 0; round < Rounds; ++round) {
        addRound(with, QLatin1String(PLUGIN_FOLDER));
        addRound(without, empty.path());
    }
    const auto figures = [&](double Round::*figure) {
        return Ratio::Figures{with.*figure, without.*figure};
    };
    bool holds = Ratio::report("pendant, start to first frame / without the plugin",
                               figures(&Round::start), StartBound);
    holds &= Ratio::report("pendant, slowest change of the page / a frame of 60 in a second",
                           {with.change, Frame}, 1);
    Ratio::note("pendant, slowest change of the page / programs and back without the plugin",
                figures(&Round::change), "us");
    holds &= Ratio::report("pendant, memory after the first frame / without the plugin",
                           figures(&Round::memory), MemoryBound, "KiB");
    holds &= Ratio::report("pendant, memory after all pages / without the plugin",
                           figures(&Round::memorySeen), MemoryBound, "KiB");
    return holds ? 0 : 1;
}
