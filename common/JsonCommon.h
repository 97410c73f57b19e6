#pragma once

#include <QStringList>

/// Lists of ports and registers for the boxes of the pages, read from the host at each call.
namespace JsonCommon {

/// Ports of one kind in natural order, duplicates kept.
QStringList aiList();
QStringList aoList();
QStringList diList();
QStringList doList();
QStringList giList();
QStringList goList();

/// Registers that hold a bit, an integer, or any number; in natural order, each once.
QStringList readableBitRegisters();
QStringList writableBitRegisters();
QStringList readableIntRegisters();
QStringList writableIntRegisters();
QStringList readableNumericRegisters();
QStringList writableNumericRegisters();

/// Names of the registers whose type is one of `types` and whose access fits `rw` ("r" or "w"), in
/// natural order, each once. A fault of the host's data is told on the console and shortens the
/// list.
QStringList filterRegisters(const QStringList& types, const QString& rw);

/// Whether a register's access fits the filter. Read-write access fits the write filter only.
bool matchesAccess(const QString& access, const QString& rw);

/// Pairwise natural order: runs of digits compare as numbers, everything else as text, and what is
/// neither a letter nor a digit is passed over. Not transitive where a run of digits is too long
/// for an int, so lists are sorted with naturallySorted().
bool naturalLess(const QString& a, const QString& b);

} // namespace JsonCommon
