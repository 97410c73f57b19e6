// Feeds one text, as a style sheet to UiScale::scaleStyleSheet() at several scales and as the JSON
// sheet of a plugin to the pendant's PluginSheet.
//
// A scaled sheet is what the rule of the two expressions says, worked out here one match at a time.
// A factor of 1 changes nothing, and what carries no size is left alone. A plugin's sheet has as
// many rules as it has braces, whatever its JSON holds.

#include "Harness.h"
#include "LeaksOfQt.h"
#include "PluginSheet.h"
#include "UiScale.h"

#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace {

constexpr double Factors[] = {0.75, 0.9995, 1.0, 1.0005, 1.25, 1.5, 2.0, 3.0, 1e-9, 1e9};

QString multiplied(const QString& digits, double factor)
{
    const double size = std::round(digits.toInt() * factor);
    constexpr double Largest = std::numeric_limits<int>::max();
    return QString::number(static_cast<int>(std::min(std::max(size, 1.0), Largest)));
}

// Goes on behind the new number after each replacement.
QString scaled(QString css, const QRegularExpression& expression, double factor)
{
    int from = 0;
    for (;;) {
        const auto match = expression.match(css, from);
        if (!match.hasMatch())
            return css;
        const QString number = multiplied(match.captured(1), factor);
        css.replace(match.capturedStart(1), match.capturedLength(1), number);
        from = match.capturedStart(1) + number.size();
    }
}

void feedSheet(const QString& css)
{
    static const QRegularExpression points(QStringLiteral("(\\d+)pt"));
    static const QRegularExpression pixels(QStringLiteral("font-size\\s*:\\s*(\\d+)px"),
                                           QRegularExpression::CaseInsensitiveOption);
    for (const double factor : Factors) {
        const QString result = UiScale::scaleStyleSheet(css, factor);
        const bool isUnchanged = css.isEmpty() || std::abs(factor - 1.0) < 0.001;
        const QString expected =
            isUnchanged ? css : scaled(scaled(css, points, factor), pixels, factor);
        Fuzz::demand(result == expected, "the sheet is scaled by the rule");
        Fuzz::demand(UiScale::scaleStyleSheet(result, 1.0) == result, "a factor of 1 is none");
    }
}

std::optional<QString> themeHas(const QString& kind, const QString& token)
{
    if (kind == QLatin1String("color") && token.size() < 8)
        return QStringLiteral("#102030");
    return std::nullopt;
}

void feedPluginSheet(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const LeaksOfQt leaks;
    const pendant::PluginSheet sheet(bytes, themeHas);
    const QString& text = sheet.text();
    Fuzz::demand(text.count(QLatin1Char('{')) == text.count(QLatin1Char('}')),
                 "each rule is closed");
    Fuzz::demand(text.isEmpty() || text.endsWith(QLatin1String(" }\n")), "the last rule is whole");
    Fuzz::demand(!text.contains(QLatin1String("/*")), "no rule begins a comment");
    for (const QString& complaint : sheet.complaints())
        Fuzz::demand(!complaint.isEmpty(), "a complaint has a text");
}

} // namespace

QStringList Fuzz::words()
{
    return QStringLiteral(
               "name,color,border,border-bottom,font,QLabel,QPushButton:hover,#id,$color$text,"
               "$color$longertoken,$icon$text,$,1px solid red,/*,*/,a{b}")
        .split(QLatin1Char(','));
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    feedSheet(Fuzz::text(data, size));
    feedPluginSheet(data, size);
    return 0;
}
