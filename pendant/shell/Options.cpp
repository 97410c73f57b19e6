#include "Options.h"

#include "FaultTable.h"

#include <QCommandLineParser>

namespace pendant {

namespace {

/// One switch: its name, its value for the help or null, what it does, and its reader, which
/// returns what is wrong with the value.
struct Row
{
    const char* name;
    const char* value;
    const char* description;
    QString (*read)(Options& options, const QString& value);
};

QString readNumber(const QString& text, int minimum, int maximum, int* number)
{
    bool isNumber = false;
    const int read = text.toInt(&isNumber);
    if (!isNumber || read < minimum || read > maximum)
        return QStringLiteral("takes a number from %1 to %2").arg(minimum).arg(maximum);
    *number = read;
    return {};
}

QString readPath(const QString& text, QString* path)
{
    if (text.isEmpty())
        return QStringLiteral("takes a path");
    *path = text;
    return {};
}

QString readDpi(Options& options, const QString& text)
{
    static const QStringList known{QStringLiteral("96"), QStringLiteral("144"),
                                   QStringLiteral("192")};
    if (!known.contains(text))
        return QStringLiteral("takes 96, 144 or 192");
    options.dpi = text.toInt();
    return {};
}

// The range is that in which the plugins follow the zoom.
QString readZoom(Options& options, const QString& text)
{
    bool isNumber = false;
    const double zoom = text.toDouble(&isNumber);
    if (!isNumber || !(zoom >= 0.75 && zoom <= 3.0))
        return QStringLiteral("takes a number from 0.75 to 3");
    options.zoom = zoom;
    return {};
}

QString readSize(Options& options, const QString& text)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    int width = 0;
    int height = 0;
    if (sides.size() != 2 || !readNumber(sides[0], 480, 16384, &width).isEmpty() ||
        !readNumber(sides[1], 320, 16384, &height).isEmpty())
        return QStringLiteral("takes a size in pixels like 1024x768, at least 480x320");
    options.windowSize = QSize(width, height);
    return {};
}

QString readTracking(Options& options, const QString& text)
{
    if (text == QLatin1String("now") || text == QLatin1String("never")) {
        options.trackingDelay = text == QLatin1String("now") ? 0 : -1;
        return {};
    }
    return readNumber(text, 0, 3600, &options.trackingDelay).isEmpty()
               ? QString()
               : QStringLiteral("takes now, never or a number of seconds from 0 to 3600");
}

/// One of two words.
template<typename Value>
QString readWord(const QString& text, const char* first, const char* second, Value* value,
                 Value ofFirst, Value ofSecond)
{
    const bool isFirst = text == QLatin1String(first);
    if (!isFirst && text != QLatin1String(second))
        return QStringLiteral("takes %1 or %2")
            .arg(QString::fromLatin1(first), QString::fromLatin1(second));
    *value = isFirst ? ofFirst : ofSecond;
    return {};
}

QString readLanguage(Options& options, const QString& text)
{
    return readWord(text, "en", "zh", &options.language, Language::English, Language::Chinese);
}

QString readTheme(Options& options, const QString& text)
{
    return readWord(text, "light", "dark", &options.shade, Theme::Shade::Light, Theme::Shade::Dark);
}

const std::vector<Row>& rows()
{
    using Text = const QString&;
    static const std::vector<Row> all{
        {"plugins", "DIR",
         "Folder whose lib*.so are loaded as plugins. Default: that of the build or installation.",
         [](Options& o, Text t) { return readPath(t, &o.pluginFolder); }},
        {"cell", "FILE",
         "The controller's cell; made new when it does not exist. Default: cell.sqlite in the data "
         "folder; for a tour a cell that is thrown away.",
         [](Options& o, Text t) { return readPath(t, &o.cellFile); }},
        {"home", "DIR",
         "Working directory; plugins write their logs to ./log below it. Default: the data folder.",
         [](Options& o, Text t) { return readPath(t, &o.home); }},
        {"level", "N", "Log in a user of level 0 to 4 at the start. Default: 0.",
         [](Options& o, Text t) { return readNumber(t, 0, MaximumLevel, &o.userLevel); }},
        {"ports", "N", "A new cell gets N ports of each kind. Default: 128.",
         [](Options& o, Text t) { return readNumber(t, 0, 100000, &o.cellSize.ports); }},
        {"registers", "M", "A new cell gets M registers. Default: 160.",
         [](Options& o, Text t) { return readNumber(t, 0, 100000, &o.cellSize.registers); }},
        {"tour", "DIR",
         "Perform the main job without a hand on it, leave a numbered picture of each step in DIR, "
         "and end.",
         [](Options& o, Text t) { return readPath(t, &o.tourFolder); }},
        {"dpi", "N", "Draw for a screen of 96, 144 or 192 dots per inch. Default: the screen's.",
         readDpi},
        {"zoom", "Z", "Font zoom that the plugins are told, 0.75 to 3. Default: 1.", readZoom},
        {"language", "L",
         "Start in English or Chinese: en or zh. The pendant and its plugins follow; a button of "
         "the top bar changes it. Default: en.",
         readLanguage},
        {"theme", "T",
         "Start with a light or a dark theme: light or dark; a button of the top bar changes it. "
         "Default: light.",
         readTheme},
        {"size", "WxH", "Size of the window in pixels. Default: 1024x768 at 96 dots per inch.",
         readSize},
        {"tracking", "WHEN",
         "When the seam-tracking plugin comes: now, never, or after a number of seconds. Default: "
         "now.",
         readTracking},
        {"powered", nullptr, "Start with the robot powered.",
         [](Options& o, Text) { return o.powered = true, QString(); }},
        {"disconnected", nullptr, "Start without a connection to the controller.",
         [](Options& o, Text) { return o.disconnected = true, QString(); }},
        {"fault", "NAME", "Turn a fault on, as NAME or NAME=VALUE; may be repeated.",
         [](Options& o, Text t) { return applyFault(t, &o.faults); }},
        {"help", nullptr, "Print this and end.",
         [](Options& o, Text) { return o.help = true, QString(); }},
        {"version", nullptr, "Print the version and end.",
         [](Options& o, Text) { return o.version = true, QString(); }},
    };
    return all;
}

QCommandLineOption optionOf(const Row& row)
{
    return {QString::fromLatin1(row.name), QString::fromLatin1(row.description),
            QString::fromLatin1(row.value)};
}

QString readRow(const Row& row, const QCommandLineParser& parser, Options* options)
{
    const QString name = QString::fromLatin1(row.name);
    if (!parser.isSet(name))
        return {};
    if (!row.value)
        return row.read(*options, QString());
    const QStringList values = parser.values(name);
    for (const QString& value : values) {
        const QString wrong = row.read(*options, value);
        if (!wrong.isEmpty())
            return QStringLiteral("--%1 %2: %3").arg(name, value, wrong);
    }
    return {};
}

QString readAll(const QCommandLineParser& parser, Options* options)
{
    for (const Row& row : rows()) {
        const QString wrong = readRow(row, parser, options);
        if (!wrong.isEmpty())
            return wrong;
    }
    const QStringList rest = parser.positionalArguments();
    return rest.isEmpty() ? QString() : QStringLiteral("unexpected argument: %1").arg(rest.first());
}

// One paragraph, its lines broken before `width` and indented.
QString wrapped(const QString& text, int width, int indent)
{
    QString result;
    int used = 0;
    const QStringList words = text.split(QLatin1Char(' '));
    for (const QString& word : words) {
        if (used > 0 && used + 1 + word.size() > width) {
            result += QLatin1Char('\n') + QString(indent, QLatin1Char(' '));
            used = 0;
        }
        if (used > 0)
            result += QLatin1Char(' ');
        result += word;
        used += word.size() + (used > 0 ? 1 : 0);
    }
    return result;
}

QString optionHelp()
{
    QString text;
    for (const Row& row : rows()) {
        const QString head = QStringLiteral("--%1 %2").arg(QString::fromLatin1(row.name),
                                                           QString::fromLatin1(row.value));
        text +=
            QStringLiteral("  %1%2\n")
                .arg(head.leftJustified(19), wrapped(QString::fromLatin1(row.description), 76, 21));
    }
    return text;
}

QString faultHelp()
{
    QString text;
    for (const FaultRow& row : faultRows()) {
        QString hint = QString::fromLatin1(row.hint);
        if (row.number)
            hint += QStringLiteral("; takes %1").arg(faultRange(row));
        text += QStringLiteral("  %1%2\n")
                    .arg(QString::fromLatin1(row.name).leftJustified(19), wrapped(hint, 76, 21));
    }
    return text;
}

} // namespace

std::optional<Options> parseOptions(const QStringList& arguments, QString* error)
{
    QCommandLineParser parser;
    for (const Row& row : rows())
        parser.addOption(optionOf(row));
    if (!parser.parse(arguments)) {
        *error = parser.errorText();
        return std::nullopt;
    }
    Options options;
    *error = readAll(parser, &options);
    if (!error->isEmpty())
        return std::nullopt;
    return options;
}

QString helpText()
{
    return QStringLiteral("usage: pendant [OPTIONS]\n\n"
                          "The teach pendant of a simulated robot cell, for work at a desk: loads "
                          "the plugins of a folder\nand drives them as the robot's own pendant "
                          "does. Without a display it takes a tour instead.\n\n"
                          "Options:\n%1\nFaults:\n%2\n"
                          "Exit codes:\n"
                          "  0                  success\n"
                          "  1                  a step of the tour failed\n"
                          "  2                  the command line is not understood\n"
                          "  3                  the cell file cannot be opened\n")
        .arg(optionHelp(), faultHelp());
}

} // namespace pendant
