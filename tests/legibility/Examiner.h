#pragma once

#include <QString>
#include <QVector>

class QWidget;

/// What is wrong with one widget.
struct Finding
{
    QString view;      ///< such as "io/output"
    QString widget;    ///< object name, or class and nearest name
    QString what;      ///< "cut", "elided", "outside", "unreachable" or "over" with another widget
    QString text;      ///< what is drawn
    double pixels = 0; ///< that are missing, for the report

    QString line() const;
};

/// Looks through all that is visible of the widget's descendants, the widget included.
///
/// A number field is judged by the longest value that it can show, a choice by all its entries.
QVector<Finding> examine(const QString& view, QWidget* root);
