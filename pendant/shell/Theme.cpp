#include "Theme.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QPalette>
#include <QRegularExpression>
#include <QScreen>
#include <QStyleFactory>
#include <QWidget>

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

QPalette palette()
{
    QPalette colours{QColor(Theme::Card), QColor(Theme::Ground)};
    const QColor ink(Theme::Ink);
    const QColor off(Theme::Off);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colours.setColor(role, ink);
        colours.setColor(QPalette::Disabled, role, off);
    }
    colours.setColor(QPalette::Base, QColor(Theme::Card));
    colours.setColor(QPalette::AlternateBase, QColor(Theme::Ground));
    colours.setColor(QPalette::Highlight, QColor(Theme::Accent));
    colours.setColor(QPalette::HighlightedText, QColor(Theme::Card));
    return colours;
}

// Sizes in the sheet are written as "12dp", for 96 dots per inch, and as "9pt".
QString scaledSheet()
{
    registerResources();
    QFile file(QStringLiteral(":/shell/shell.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    static const QRegularExpression size(QStringLiteral("(\\d+)(dp|pt)"));
    QString result;
    int copied = 0;
    for (auto each = size.globalMatch(text); each.hasNext();) {
        const auto match = each.next();
        result += text.midRef(copied, match.capturedStart() - copied);
        const int number = match.captured(1).toInt();
        result += match.captured(2) == QLatin1String("dp")
                      ? QStringLiteral("%1px").arg(Theme::px(number))
                      : QStringLiteral("%1pt").arg(Theme::points(number));
        copied = match.capturedEnd();
    }
    return result + text.midRef(copied);
}

} // namespace

void Theme::apply(QApplication& application)
{
    QFont::insertSubstitution(QString::fromLatin1(PendantFont), QString::fromLatin1(FreeFont));
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(palette());
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
    widget->setStyleSheet(scaledSheet());
}

Severity severityOf(int level)
{
    switch (level) {
    case 0:
        return {QStringLiteral("Information"), QColor(Theme::Good), QColor(0xe6, 0xf4, 0xec)};
    case 1:
        return {QStringLiteral("Warning"), QColor(Theme::Warning), QColor(0xfd, 0xf1, 0xdd)};
    case 2:
        return {QStringLiteral("Error"), QColor(Theme::Bad), QColor(0xfb, 0xe6, 0xe3)};
    default:
        return {QStringLiteral("Level %1").arg(level), QColor(Theme::MutedInk),
                QColor(Theme::Ground)};
    }
}

} // namespace pendant
