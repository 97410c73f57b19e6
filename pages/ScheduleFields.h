#pragma once

#include "ui_WeldParameterPage.h"

#include <QVector>

/// One value of a process schedule and the widget of the detail view that holds it. One of the four
/// editors is set.
struct ScheduleField
{
    using Form = Ui_WeldParameterPage;

    /// How the record becomes the editor's value and back.
    enum class Rule {
        Plain,     ///< a missing value reads as 0 or off; an editor takes the nearest of its range
        Ramp,      ///< always 2, "Time", both ways
        ZeroFirst, ///< the first entry for 0, the second for all else and for a missing value
        OneSecond, ///< the second entry for 1, the first for all else
    };

    const char* key;
    QSpinBox* Form::*spinBox;
    QComboBox* Form::*comboBox;
    EnableButton* Form::*toggle;
    QLineEdit* Form::*text;
    int reset; ///< value for a record that does not exist; switches 0 for off
    Rule rule;
};

/// All values of a schedule but its own key, in the order of the record.
const QVector<ScheduleField>& scheduleFields();
