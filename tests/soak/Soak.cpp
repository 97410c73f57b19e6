#include "Soak.h"

#include "Checks.h"
#include "Controller.h"
#include "RecordKeys.h"

#include <cstdio>

namespace soak {

namespace keys = pendant::keys;

namespace {

constexpr int StepsTold = 20;
constexpr int DecksInASession = 3;

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
    for (const QString& name : machine.programs()) {
        QByteArray text;
        machine.readProgram(name, &text);
        scene.model.programs[name] = text;
    }
}

} // namespace

// Equal to equal: connected, nothing wrong or held, in English and light, at the first page.
void tidyUp(Scene& scene)
{
    scene.leavePanels();
    scene.showPages();
    if (!scene.model.connected)
        scene.turnConnection();
}

Soak::Soak(const pendant::Options& options, quint32 theSeed)
    : seed(theSeed)
    , scene(options, theSeed)
    , deck(allCards())
{}

bool Soak::isOver(const Length& length) const
{
    if (length.steps > 0)
        return number >= length.steps;
    return static_cast<double>(time.elapsed()) >= length.minutes * 60000;
}

bool Soak::run(const Length& length)
{
    QString failure;
    time.start();
    try {
        start();
        while (!isOver(length)) {
            scene.chance.shuffle(deck);
            for (std::size_t card = 0; card < deck.size() && !isOver(length); ++card)
                play(deck[card]);
            if (!isOver(length))
                putInOrder();
        }
        failure = fresh.growth();
    } catch (const Failure& each) {
        failure = each.reason;
    }
    report(failure);
    return failure.isEmpty();
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

void Soak::play(const Action& action)
{
    step(QString::fromLatin1(action.name), action.perform);
}

void Soak::putInOrder()
{
    if (++decks % DecksInASession != 0)
        return;
    step(QStringLiteral("reopen"), [](Scene& on) { on.reopen(); });
    fresh.add(static_cast<double>(time.elapsed()) / 1000, measure());
}

void Soak::report(const QString& failure) const
{
    print(QStringLiteral("\n%1 steps in %2 s, seed %3\n\n")
              .arg(number)
              .arg(static_cast<double>(time.elapsed()) / 1000, 0, 'f', 1)
              .arg(seed));
    for (auto each = counts.begin(); each != counts.end(); ++each)
        print(QStringLiteral("%1%2\n").arg(each.key(), -28).arg(each.value(), 6));
    print(QStringLiteral("\n") + fresh.table());
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
