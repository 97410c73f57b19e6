#pragma once

#include <QColor>
#include <QString>

class QApplication;
class QFont;
class QSize;
class QWidget;

namespace pendant {

/// The look of the shell: dark on light. It dresses the shell's own widgets only; what a plugin
/// hands over keeps the style sheets that it brings.
namespace Theme {

constexpr QRgb Ink = 0xff1d2733;      ///< text
constexpr QRgb MutedInk = 0xff5b6b7a; ///< captions
constexpr QRgb Line = 0xffcfd6dd;     ///< borders
constexpr QRgb Ground = 0xffe9edf1;   ///< behind everything
constexpr QRgb Card = 0xffffffff;     ///< keys, bars, panels
constexpr QRgb Pressed = 0xffd5dfe8;
constexpr QRgb Accent = 0xff1f5f8b;
constexpr QRgb Good = 0xff2e8b57;
constexpr QRgb Warning = 0xffc77700;
constexpr QRgb Bad = 0xffc0392b;
constexpr QRgb Off = 0xff9aa7b3;

/// Font, palette and style of the application.
void apply(QApplication& application);
/// Of the screen: 1 at 96 dots per inch.
double screenScale();
/// To be called before anything is built in a window of the size in pixels: the shell is drawn
/// smaller where it would fill the window at the size for the screen, and leave no page.
void fit(const QSize& window);
/// Pixels of the shell for a size given for 96 dots per inch.
int px(int size);
/// Size of a font of the shell, in points.
double points(double size);
/// The font of the shell's texts.
QFont font();
/// Gives the widget the shell's style sheet.
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
