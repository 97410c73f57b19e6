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
};

/// A pendant that is worked at random. The same seed takes the same steps, whatever the time.
///
/// The actions are a deck of cards: each lies in it as often as its weight says, and when all have
/// been played the pendant is put in order and measured, and the deck is shuffled anew.
class Soak
{
public:
    Soak(const pendant::Options& options, quint32 seed);

    /// True when nothing went wrong. Prints what did, the figures and the steps by action.
    bool run(const Length& length);

private:
    bool isOver(const Length& length) const;
    void start();
    void play(const Action& action);
    void putInOrder();
    void step(const QString& name, void (*perform)(Scene& scene));
    void report(const QString& failure) const;

    quint32 seed;
    Scene scene;
    Actions deck;
    QElapsedTimer time;
    Course fresh; ///< just opened
    Course used;  ///< before it is closed, when it has been worked for as long each time
    int number = 0;
    int decks = 0;
    QStringList lastSteps;
    QMap<QString, int> counts;
};

} // namespace soak
