#include "Theme.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QFont>
#include <QPalette>
#include <QRegularExpression>
#include <QScreen>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

#include <algorithm>

// The sheet lies in a static library, whose resources do not register themselves.
static void registerResources()
{
    Q_INIT_RESOURCE(shell);
}

namespace pendant {

namespace {

// What the plugins ask for is a font of the pendant's maker; this one has all its characters.
constexpr const char* PendantFont = "Microsoft YaHei UI";
constexpr const char* FreeFont = "Noto Sans CJK SC";
constexpr int FontPoints = 10;
// The smallest window in which the shell leaves room for a page, for 96 dots per inch.
constexpr double LeastWidth = 750;
constexpr double LeastHeight = 540;

/// What the sizes of the shell are multiplied with, on top of the scale of the screen: at most 1.
double shrink = 1;

double pluginZoom = 1;

/// A colour by the name that the sheet has for it.
struct Paint
{
    const char* name;
    QRgb light;
    QRgb dark;
};

constexpr Paint Paints[Theme::ColourCount] = {
    {"ink", 0xff1d2733, 0xffe6ebf0},      {"mutedInk", 0xff5b6b7a, 0xffa3b0bd},
    {"line", 0xffcfd6dd, 0xff3c4855},     {"ground", 0xffe9edf1, 0xff161c23},
    {"card", 0xffffffff, 0xff212a34},     {"keys", 0xffdde3e9, 0xff1b232c},
    {"button", 0xfff3f5f7, 0xff2c3742},   {"pressed", 0xffd5dfe8, 0xff3a4958},
    {"accent", 0xff1f5f8b, 0xff3d8fc6},   {"accentPressed", 0xff174a6d, 0xff2f77a8},
    {"onAccent", 0xffffffff, 0xffffffff}, {"good", 0xff2e8b57, 0xff4fbf83},
    {"warning", 0xffc77700, 0xfff0a63a},  {"bad", 0xffc0392b, 0xffef7163},
    {"off", 0xff9aa7b3, 0xff6f7e8c},      {"faint", 0xffd9dfe5, 0xff35404b},
    {"handle", 0xffb4bfc9, 0xff56646f},   {"modified", 0xffa35f00, 0xfff0b45c},
    {"goodTint", 0xffe6f4ec, 0xff1d3a2b}, {"warningTint", 0xfffdf1dd, 0xff43331a},
    {"badTint", 0xfffbe6e3, 0xff472522},
};

// What the shell has put on a widget, and puts on it again when the shade changes.
constexpr const char* Dressed = "dressedByTheShell";
constexpr const char* Grounded = "groundedByTheShell";

Theme::Shade current = Theme::Shade::Light;

QColor paint(Theme::Colour which, Theme::Shade shade)
{
    const Paint& paint = Paints[which];
    return QColor(shade == Theme::Shade::Light ? paint.light : paint.dark);
}

QPalette palette(Theme::Shade shade)
{
    const auto colour = [shade](Theme::Colour which) { return paint(which, shade); };
    QPalette colours{colour(Theme::Card), colour(Theme::Ground)};
    const QColor ink = colour(Theme::Ink);
    const QColor off = colour(Theme::Off);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colours.setColor(role, ink);
        colours.setColor(QPalette::Disabled, role, off);
    }
    colours.setColor(QPalette::Base, colour(Theme::Card));
    colours.setColor(QPalette::AlternateBase, colour(Theme::Ground));
    colours.setColor(QPalette::Highlight, colour(Theme::Accent));
    colours.setColor(QPalette::HighlightedText, colour(Theme::OnAccent));
    return colours;
}

// As it stands after the "@" in the sheet.
QString sheetValue(const QString& name)
{
    if (name == QLatin1String("shade"))
        return current == Theme::Shade::Light ? QStringLiteral("light") : QStringLiteral("dark");
    const auto* const found = std::find_if(std::begin(Paints), std::end(Paints), [&](const Paint& each) {
        return name == QLatin1String(each.name);
    });
    return found == std::end(Paints)
               ? QString()
               : QColor(current == Theme::Shade::Light ? found->light : found->dark).name();
}

// Sizes in the sheet are written as "12dp", for 96 dots per inch, and as "9pt"; "@ink" is a colour.
QString sheetText(const QRegularExpressionMatch& match)
{
    const int number = match.captured(1).toInt();
    if (match.captured(2) == QLatin1String("dp"))
        return QStringLiteral("%1px").arg(Theme::px(number));
    if (match.captured(2) == QLatin1String("pt"))
        return QStringLiteral("%1pt").arg(Theme::points(number));
    return sheetValue(match.captured(3));
}

QString shellSheet()
{
    registerResources();
    QFile file(QStringLiteral(":/shell/shell.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    static const QRegularExpression mark(QStringLiteral("(\\d+)(dp|pt)|@(\\w+)"));
    QString result;
    int copied = 0;
    for (auto each = mark.globalMatch(text); each.hasNext();) {
        const auto match = each.next();
        result += text.midRef(copied, match.capturedStart() - copied) + sheetText(match);
        copied = match.capturedEnd();
    }
    return result + text.midRef(copied);
}

} // namespace

void Theme::apply(QApplication& application)
{
    QFont::insertSubstitution(QString::fromLatin1(PendantFont), QString::fromLatin1(FreeFont));
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(palette(Shade::Light));
    application.setFont(QFont(QString::fromLatin1(PendantFont), FontPoints));
}

double Theme::screenScale()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInch() / 96.0 : 1.0;
}

void Theme::fit(const QSize& window)
{
    const double room = qMin(window.width() / LeastWidth, window.height() / LeastHeight);
    shrink = qMin(1.0, room / screenScale());
}

void Theme::setZoom(double zoom)
{
    pluginZoom = zoom;
}

double Theme::zoom()
{
    return pluginZoom;
}

void Theme::mark(QWidget* widget, const char* property, bool on)
{
    widget->setProperty(property, on);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

int Theme::px(int size)
{
    return qRound(size * screenScale() * shrink);
}

double Theme::points(double size)
{
    return size * shrink;
}

QFont Theme::font()
{
    QFont font = QApplication::font();
    font.setPointSizeF(points(FontPoints));
    return font;
}

void Theme::dress(QWidget* widget)
{
    widget->setProperty(Dressed, true);
    widget->setStyleSheet(shellSheet());
}

QColor Theme::colour(Colour which)
{
    return paint(which, current);
}

Theme::Shade Theme::shade()
{
    return current;
}

void Theme::ground(QWidget* window)
{
    window->setProperty(Grounded, true);
    window->setPalette(palette(current));
}

// The palette of the application stays light: a widget with a style sheet takes it from there and
// not from its parent, and those of the plugins count on it.
void Theme::setShade(Shade shade)
{
    current = shade;
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget* each : all) {
        if (each->property(Grounded).toBool())
            ground(each);
        if (each->property(Dressed).toBool())
            dress(each);
    }
}

bool Theme::isChange(const QEvent& event)
{
    return event.type() == QEvent::PaletteChange || event.type() == QEvent::StyleChange;
}

QPalette Theme::pluginPalette()
{
    return palette(Shade::Light);
}

Severity severityOf(int level)
{
    const auto named = [](const char* name) {
        return QCoreApplication::translate("Severity", name);
    };
    using Theme::colour;
    switch (level) {
    case 0:
        return {named(QT_TRANSLATE_NOOP("Severity", "Information")), colour(Theme::Good),
                colour(Theme::GoodTint)};
    case 1:
        return {named(QT_TRANSLATE_NOOP("Severity", "Warning")), colour(Theme::Warning),
                colour(Theme::WarningTint)};
    case 2:
        return {named(QT_TRANSLATE_NOOP("Severity", "Error")), colour(Theme::Bad),
                colour(Theme::BadTint)};
    default:
        return {named(QT_TRANSLATE_NOOP("Severity", "Level %1")).arg(level),
                colour(Theme::MutedInk), colour(Theme::Ground)};
    }
}

} // namespace pendant
