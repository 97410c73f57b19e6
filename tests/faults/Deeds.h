#pragma once

#include <QPair>
#include <QString>
#include <QVector>

#include <memory>
#include <vector>

class FaultBench;

/// One thing that an operator does and that sends a command, with what can be seen of its outcome.
class Deed
{
public:
    virtual ~Deed() = default;

    /// Brings page, keys and cell to where the deed changes something.
    virtual void prepare(FaultBench& bench) = 0;
    virtual void act(FaultBench& bench) = 0;
    /// What the page, or the indicator, shows behind it.
    virtual QString shown(FaultBench& bench) = 0;
    /// What the controller holds behind it.
    virtual QString held(FaultBench& bench) = 0;
    /// Whether what is opened anew shows what the controller holds.
    virtual bool showsTruth(FaultBench& bench) = 0;

    QString group; ///< deeds that are told in one table
    QString name;
    QString command;
    /// What stands for the words in which the deeds of a group differ: first the word in the
    /// tables, then this deed's own.
    QVector<QPair<QString, QString>> words;
};

/// All deeds; those of a group stand together.
std::vector<std::unique_ptr<Deed>> allDeeds();
