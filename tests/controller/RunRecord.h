#pragma once

#include <QJsonObject>

/// A "weld_setting_config" whose every field follows from one number, so that a record that was
/// put together from two saves gives itself away. Numbers from 0 to 20 millions are told apart.
QJsonObject runRecord(int run);

/// The number of such a record; -1 when a field does not fit the others.
int runOf(const QJsonObject& record);
