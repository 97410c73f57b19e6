#pragma once

#include <QStringList>

/// Lists of ports and registers for the boxes of the pages. Each call asks the host again; lists of
/// numeric registers ask it twice.
namespace JsonCommon {

/// Ports of one kind in natural order, duplicates kept.
QStringList aiList();
QStringList aoList();
QStringList diList();
QStringList doList();
QStringList giList();
QStringList goList();

/// Registers that hold a bit, an integer, or any number; in natural order, each name once.
QStringList readableBitRegisters();
QStringList writableBitRegisters();
QStringList readableIntRegisters();
QStringList writableIntRegisters();
QStringList readableNumericRegisters();
QStringList writableNumericRegisters();

/// Names of the registers whose type is one of `types` (blanks around them and their case do not
/// count) and whose access fits `rw`, in natural order, each name once.
///
/// Registers come with their facts under several keys, of which the first that is not blank counts.
/// What the host gives wrongly is left out; when it is no array, or no register has a type, an
/// access and a name, a warning says so on the console.
QStringList filterRegisters(const QStringList& types, const QString& rw);

/// Whether a register's access fits the filter `rw`: "r" or "w", or one of their other spellings.
/// Every access fits an empty or unknown filter. Read-write access fits the write filter only.
bool matchesAccess(const QString& access, const QString& rw);

/// naturallyLess(): an order of two names. Lists are sorted with naturallySorted().
bool naturalLess(const QString& a, const QString& b);

} // namespace JsonCommon
