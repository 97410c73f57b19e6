#pragma once

#include "Actions.h"
#include "Figures.h"
#include "Options.h"
#include "Scene.h"

#include <QElapsedTimer>
#include <QMap>
#include <QStringList>

namespace soak {

/// How long a run is: as many steps, or minutes when there is no number of them.
struct Length
{
    double minutes = 10;
    int steps = 0;
    QString only; ///< of the actions those whose names hold this, and "reopen"
};

/// A pendant that is worked at random. The same seed takes the same steps, whatever the time.
///
/// The actions are a deck of cards: each lies in it as often as its weight says, and when all have
/// been played they are shuffled anew. Whenever the pendant has been closed and opened again it is
/// measured; at the end it goes through the same rounds, and is measured once more.
class Soak
{
public:
    Soak(const pendant::Options& options, quint32 seed);

    /// True when nothing went wrong. Prints what did, the figures and the steps by action.
    bool run(const Length& length);

private:
    bool isOver(const Length& length) const;
    void start();
    void play(const Length& length);
    void goRounds();
    void step(const QString& name, void (*perform)(Scene& scene));
    double seconds() const { return static_cast<double>(time.elapsed()) / 1000; }
    void report(const QString& failure) const;

    quint32 seed;
    Scene scene;
    Actions deck;
    QElapsedTimer time;
    Course fresh;  ///< of pendants that have just been opened
    Course rounds; ///< of one that goes round
    int number = 0;
    QStringList lastSteps;
    QMap<QString, int> counts;
};

} // namespace soak
