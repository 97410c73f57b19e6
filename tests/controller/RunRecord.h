#pragma once

#include <QByteArray>
#include <QJsonObject>

/// A "weld_setting_config" whose every field follows from one number, so that a record that was
/// put together from two saves gives itself away. Numbers from 0 to 20 millions are told apart.
QJsonObject runRecord(int run);

/// The number of such a record; -1 when a field does not fit the others.
int runOf(const QJsonObject& record);

/// A "weld_io_config" likewise, on the ports of a usual cell. Numbers below 2 millions are told
/// apart.
QJsonObject runMapping(int run);

/// The number of such a mapping; -1 when a port does not fit the others.
int runOfMapping(const QJsonObject& record);

/// A program of some pages of the cell, whose lines and their number follow from one number.
QByteArray runProgram(int run);

/// The number of such a program; -1 when a line does not fit the others.
int runOf(const QByteArray& program);
