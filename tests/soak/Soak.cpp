#include "Soak.h"

#include "Checks.h"
#include "Controller.h"
#include "RecordKeys.h"

#include <algorithm>
#include <cstdio>

namespace soak {

namespace keys = pendant::keys;

namespace {

constexpr int StepsTold = 20;
constexpr int FirstRounds = 2; // in which all is made that is made once
constexpr int MoreRounds = 4;

void print(const QString& text)
{
    std::fputs(qPrintable(text), stdout);
    std::fflush(stdout);
}

Actions allCards()
{
    Actions cards;
    for (const auto& actions : {settingActions, ioActions, curveActions, dataActions, keyActions,
                                cellActions, windowActions, programActions}) {
        for (const Action& each : actions())
            cards.insert(cards.end(), static_cast<std::size_t>(each.weight), each);
    }
    return cards;
}

// What a new cell holds.
void readCell(Scene& scene)
{
    for (const QLatin1String& key : {keys::weldSetting, keys::weldIo, keys::weldSchedules,
                                     keys::weldMatching, keys::weldCurves})
        scene.model.records[key] = scene.stored(key);
    const pendant::Controller& machine = scene.stage.controller();
    const QStringList names = machine.programs();
    for (const QString& name : names) {
        QByteArray text;
        machine.readProgram(name, &text);
        scene.model.programs[name] = text;
    }
}

} // namespace

Soak::Soak(const pendant::Options& options, quint32 theSeed)
    : seed(theSeed)
    , scene(options, theSeed)
    , deck(allCards())
{}

bool Soak::isOver(const Length& length) const
{
    return length.steps > 0 ? number >= length.steps : seconds() >= length.minutes * 60;
}

bool Soak::run(const Length& length)
{
    QString failure;
    time.start();
    deck.erase(std::remove_if(deck.begin(), deck.end(),
                              [&](const Action& each) {
                                  const QString name = QString::fromLatin1(each.name);
                                  return !name.contains(length.only) &&
                                         !name.endsWith(QLatin1String("reopen"));
                              }),
               deck.end());
    try {
        start();
        play(length);
        goRounds();
        failure = fresh.growth();
        if (failure.isEmpty())
            failure = rounds.growth();
    } catch (const Failure& each) {
        failure = each.reason;
    }
    report(failure);
    return failure.isEmpty();
}

void Soak::play(const Length& length)
{
    while (!isOver(length)) {
        scene.chance.shuffle(deck);
        for (std::size_t card = 0; card < deck.size() && !isOver(length); ++card) {
            const int opened = scene.timesOpened;
            step(QString::fromLatin1(deck[card].name), deck[card].perform);
            if (scene.timesOpened != opened)
                fresh.add(seconds(), measure());
        }
    }
}

void Soak::goRounds()
{
    step(QStringLiteral("last reopen"), [](Scene& on) { on.reopen(); });
    fresh.add(seconds(), measure());
    for (int round = 0; round < FirstRounds + MoreRounds; ++round) {
        step(QStringLiteral("round"), goRound);
        if (round >= FirstRounds - 1)
            rounds.add(seconds(), measure());
    }
}

void Soak::start()
{
    step(QStringLiteral("open"), [](Scene& on) {
        demand(on.stage.open(), on.stage.trouble());
        readCell(on);
        on.stage.close();
        on.reopen();
    });
}

void Soak::step(const QString& name, void (*perform)(Scene& scene))
{
    ++number;
    ++counts[name];
    scene.note.clear();
    scene.witness.forget();
    scene.model.beginStep();
    lastSteps << QStringLiteral("%1 %2").arg(number, 6).arg(name);
    if (lastSteps.size() > StepsTold)
        lastSteps.removeFirst();
    try {
        perform(scene);
        pendant::Hand::waitFor([turns = 0]() mutable { return ++turns > 1; });
        checkAll(scene);
    } catch (...) {
        lastSteps.last() += QStringLiteral("  ") + scene.note;
        throw;
    }
    lastSteps.last() += QStringLiteral("  ") + scene.note;
}

void Soak::report(const QString& failure) const
{
    print(QStringLiteral("\n%1 steps in %2 s, seed %3\n\n")
              .arg(number)
              .arg(seconds(), 0, 'f', 1)
              .arg(seed));
    for (auto each = counts.begin(); each != counts.end(); ++each)
        print(QStringLiteral("%1%2\n").arg(each.key(), -28).arg(each.value(), 6));
    print(QStringLiteral("\njust opened:\n%1\nround after round:\n%2")
              .arg(fresh.table(), rounds.table()));
    if (failure.isEmpty())
        return;
    print(QStringLiteral("\nlast steps:\n%1\n\nFAILED at step %2 of seed %3: %4\n"
                         "again: soak --seed %3 --steps %2\n")
              .arg(lastSteps.join(QLatin1Char('\n')))
              .arg(number)
              .arg(seed)
              .arg(failure));
}

} // namespace soak
