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

/// A schedule likewise, under its key "LsData7".
QJsonObject runSchedule(int run);

/// The number of the schedule among all of "weld_param_config".
int runOfSchedule(const QJsonObject& schedules);

/// A matching record likewise, under its key "PowerData2". Numbers below 600 thousands are told
/// apart.
QJsonObject runMatching(int run);

/// The number of the record among all of "weld_param_match".
int runOfMatching(const QJsonObject& records);

/// A power curve likewise. Numbers below 30 millions are told apart.
QJsonObject runCurve(int run);

/// The number of the power curve in "weld_curve_config".
int runOfCurve(const QJsonObject& curves);

/// A program of some pages of the cell, whose lines and their number follow from one number.
QByteArray runProgram(int run);

/// The number of such a program; -1 when a line does not fit the others.
int runOf(const QByteArray& program);
