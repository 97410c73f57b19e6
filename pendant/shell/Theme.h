#pragma once

#include <QColor>
#include <QString>

class QApplication;
class QEvent;
class QFont;
class QPalette;
class QSize;
class QWidget;

namespace pendant {

/// The look of the shell, light or dark. It dresses the shell's own widgets only; what a plugin
/// hands over keeps the style sheets that it brings, and the light palette that these count on.
namespace Theme {

enum class Shade { Light, Dark };

enum Colour {
    Ink,           ///< text
    MutedInk,      ///< captions
    Line,          ///< borders
    Ground,        ///< behind everything
    Card,          ///< keys, bars, panels
    Keys,          ///< behind the keys
    Button,        ///< and the headers of tables
    Pressed,       ///< and a line that is selected
    Accent,        ///< what is chosen
    AccentPressed, ///< an accented button under the finger
    OnAccent,      ///< text on the accent
    Good,
    Warning,
    Bad,
    Off,    ///< what is not in use, and the borders of fields
    Faint,  ///< borders of what is disabled
    Handle, ///< of scroll bars
    Modified,
    GoodTint, ///< behind a text: information
    WarningTint,
    BadTint,
    ColourCount
};

/// The colour in the shade that is in force.
QColor colour(Colour which);
Shade shade();
/// Dresses all anew that is dressed already. What keeps a colour of its own hears of it in
/// changeEvent().
void setShade(Shade shade);
/// Whether the shade may have changed; for changeEvent().
bool isChange(const QEvent& event);
/// The palette of what plugins hand over, whatever the shade.
QPalette pluginPalette();

/// Font, palette and style of the application.
void apply(QApplication& application);
/// Of the screen: 1 at 96 dots per inch.
double screenScale();
/// Sets a property that the style sheet looks at.
void mark(QWidget* widget, const char* property, bool on);
/// To be called before anything is built in a window of the size in pixels: the shell is drawn
/// smaller where it would fill the window at the size for the screen, and leave no page.
void fit(const QSize& window);
/// Font zoom that the plugins are told.
void setZoom(double zoom);
double zoom();
/// Pixels of the shell for a size given for 96 dots per inch.
int px(int size);
/// Size of a font of the shell, in points.
double points(double size);
/// The font of the shell's texts.
QFont font();
/// Gives the window the palette of the shade, and the next ones as the shade changes.
void ground(QWidget* window);
/// Gives the widget the shell's style sheet, and the next ones as the shade changes.
void dress(QWidget* widget);

} // namespace Theme

/// How a message of one severity looks.
struct Severity
{
    QString name;
    QColor colour;
    QColor tint; ///< behind its text
};

/// 0 information, 1 warning, 2 error; any other level has its number for a name.
Severity severityOf(int level);

} // namespace pendant
