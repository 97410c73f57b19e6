#pragma once

#include "Harness.h"
#include "ScriptedHost.h"

#include <QJsonObject>
#include <QPointer>

class CharacteristicsCurvePage;
class WeldParameterPage;
class WeldSettingPage;
class WeldioPage;

/// The plugin on a scripted host, with its central page on show; made once for all inputs.
struct Pages
{
    Pages();
    Q_DISABLE_COPY(Pages)

    /// What the host plays back: the object has by key the service items, beside them "registers",
    /// "ports" by kind, the user's "level", whether the robot is "powered", and the font "zoom".
    void play(const QJsonObject& input);
    /// Opens the page in the navigation, modulo their number, and lets it be laid out and drawn.
    void open(int index);
    /// Shows the record of the number on both views of the weld data, from 1.
    void openRecords(int number);

    ScriptedHost host;
    WeldSettingPage* setting = nullptr;
    WeldioPage* io = nullptr;
    CharacteristicsCurvePage* curves = nullptr;
    /// One for schedules, one for matching records; that of the central page is a third.
    WeldParameterPage* schedules = nullptr;
    WeldParameterPage* matching = nullptr;
};
