#pragma once

#include <QString>

class QTabWidget;
class QWidget;

/// The look of all scroll bars; not yet passed through UiScale::styleSheet().
QString scrollBarStyleSheet();
/// The combo-box sheet; not yet passed through UiScale::styleSheet(). Sizes in pixels; a radius
/// below 1 becomes 10 and an arrow width below 1 becomes 30.
QString comboStyleSheet(QWidget* widget, int height, int radius, int arrowWidth, bool fixedHeight);
/// The look of tabs; not yet passed through UiScale::styleSheet().
QString tabStyleSheet();
/// Gives a tab widget its style sheet, and lets what is within it leave the frame alone.
void applyTabStyle(QTabWidget* tabs);
/// Gives a configuration frame its whole style sheet.
void applyConfigFrameStyle(QWidget* frame);
/// Gives a configuration page its common style sheet.
void applyBaseSheet(QWidget* widget);
/// Gives a configuration page its common style sheet and tunes the popups of its combo boxes.
void applyBaseStyle(QWidget* widget);
