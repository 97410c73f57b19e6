#pragma once

#include "Scene.h"

#include <QJsonObject>

namespace soak {

/// Types a number into a field of the page, mostly one in its range, and looks what becomes of it.
void enterNumber(Scene& scene, QWidget* field);
/// Chooses any entry of the box.
void chooseAny(Scene& scene, QComboBox* box);
/// Of the widgets of the names those that can be seen.
QList<QWidget*> visibleOf(QWidget* page, const QStringList& names);
/// A save was pressed and passed the page's own checks: what the controller made of it, and what
/// it holds then if it did.
void finishSave(Scene& scene, const QString& command, const QString& record,
                const QJsonObject& ifDone, const char* context);
/// "Cancel" was pressed.
void tellCancelled(Scene& scene, const char* context);
/// The record with the values of the other one in it.
QJsonObject merged(QJsonObject record, const QJsonObject& added);
bool isFree(const QWidget* widget);

} // namespace soak
