#pragma once

#include <QFont>
#include <QString>

class QComboBox;
class QWidget;

/// Turns design numbers, made for a screen of 96 dots per inch, into what the widget's screen
/// needs.
///
/// Holds no state: the screen is that of the widget, or the primary one for null, and the font zoom
/// is read from the host at each call. Sizes are in pixels unless they say points.
namespace UiScale {

/// Logical dots per inch of the widget's screen over 96, confined to 0.75 .. 3.0.
double screenScale(QWidget* widget);
/// The host's font zoom, 0.75 .. 3.0; 1.0 when it is missing or outside.
double fontZoom();

/// A point size that grows by half of the screen's excess over 96 dpi only. Below 1: unchanged.
int pointSize(int pt, QWidget* widget);
/// The number itself, at least 1.
int pixels(int px, QWidget* widget);
/// The number times the zoom and the softened screen scale, at least 1.
int scaledPixels(int px, QWidget* widget);
/// Height of a table row.
int rowHeight(QWidget* widget);
/// Height of an input control: 28 scaled, or what its text needs.
int controlHeight(QWidget* widget);
/// Height of a field on a dense page, 20 to 26.
int fieldHeightCap(QWidget* widget);

/// The plugin's font family, at pointSize(pt, widget).
QFont font(int pt, QWidget* widget);
/// Sets font(pt, root) on all spin boxes and combo boxes below `root`.
void applyFonts(QWidget* root, int pt);
/// Size policy Expanding in both directions.
void expand(QWidget* widget);
/// Undoes the fixed limits of a generated form, so that a page of many small fields can shrink.
void relaxPageLimits(QWidget* root, QWidget* widget);

/// Width that the widest item of the box needs.
int comboContentWidth(QComboBox* combo, QWidget* widget);
/// Popup list of at most `maxVisible` rows of one height, scrolled row by row.
void tuneComboPopup(QComboBox* combo, int maxVisible);
/// Lets the style sheet's ::item rules draw the rows of the popup. The delegate that a combo box
/// comes with takes no notice of them.
void styleComboRows(QComboBox* combo);
/// Keeps the popup at its content's height, at most `maxRows` rows (10 for 0 or less), and right
/// under the box.
void fixComboPopupBelow(QComboBox* combo, int maxRows);
/// Keeps the popup at its content's height, at most `maxRows` rows (10 for 0 or less).
void fixComboPopupHeight(QComboBox* combo, int maxRows);

/// Multiplies the point sizes and the pixel font sizes of a style sheet, each at least 1 then. All
/// other lengths stay as they are.
QString scaleStyleSheet(const QString& css, double factor);
/// The style sheet for the widget's screen. Every sheet of the plugin goes through it.
QString styleSheet(const QString& css, QWidget* widget);
/// Sets a sheet that comes from styleSheet() on the widget, and nothing when it has it already.
void setScaledSheet(QWidget* widget, const QString& sheet);
/// Sets styleSheet(css, scaleOf) on the widget, and nothing when it has that sheet already.
void setStyleSheet(QWidget* widget, const QString& css, QWidget* scaleOf = nullptr);

} // namespace UiScale
