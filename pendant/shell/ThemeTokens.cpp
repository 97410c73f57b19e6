#include "ThemeTokens.h"

#include "Theme.h"

#include <QFont>

#include <algorithm>
#include <vector>

namespace pendant {

namespace {

struct Token
{
    const char* kind;
    const char* name;
    const char* light;
    const char* dark;
};

// The sheets say "white" for many grounds, and what plugins hand over has a light palette in both
// shades: the dark one is deeper, and has its accents as the shell has them.
const Token Values[] = {
    {"color", "btn_bkg", "#1f5f8b", "#2a6d9c"},
    {"color", "btn_text", "#1d2733", "#14202c"},
    {"color", "btn_light_bkg", "#f3f5f7", "#d3dae1"},
    {"color", "btn_hover", "#dbe8f2", "#bfd3e4"},
    {"color", "btn_pressed", "#174a6d", "#1b4f74"},
    {"color", "btn_disable", "#6b7a88", "#5b6b7a"},
    {"color", "btn_bkg_disable", "#d9dfe5", "#b9c3cc"},
    {"color", "topic", "#1f5f8b", "#1b5680"},
    {"color", "center_bkg", "#e9edf1", "#cdd5dc"},
    {"color", "slider_groove", "#cfd6dd", "#a9b5c0"},
    {"color", "tbl_grid", "#cfd6dd", "#a9b5c0"},
    {"color", "tbl_header_bkg", "#224d75", "#2c3742"},
    {"color", "lst_item_bkg", "#ffffff", "#f1f4f7"},
    {"color", "lst_item_bkg_alternate", "#f3f5f7", "#e2e7ec"},
    {"color", "lst_item_bkg_selected", "#1f5f8b", "#2a6d9c"},
    {"color", "wgt_bkg_light", "#f8f9fb", "#e6ebf0"},
    {"color", "bar_text", "#1d2733", "#14202c"},
    {"color", "bar_bkg", "#e9edf1", "#cdd5dc"},
    {"color", "bar_select_text", "#ffffff", "#ffffff"},
    {"color", "bar_select_bkg", "#224d75", "#2c3742"},
    {"border", "input", "1px solid #9aa7b3", "1px solid #6f7e8c"},
    {"border", "input_focus", "2px solid #1f5f8b", "2px solid #2a6d9c"},
    {"border", "input_hover", "1px solid #1f5f8b", "1px solid #2a6d9c"},
    {"border", "btn", "1px solid #cfd6dd", "1px solid #8996a3"},
    {"border", "btn_hover", "1px solid #1f5f8b", "1px solid #2a6d9c"},
    {"border", "btn_pressed", "1px solid #174a6d", "1px solid #1b4f74"},
    {"border", "tbl_frame", "1px solid #cfd6dd", "1px solid #8996a3"},
};

/// Sizes for a zoom of 1, in points.
struct Font
{
    const char* name;
    double points;
    const char* weight;
};

const Font Fonts[] = {{"default", 10, "normal"}, {"h2", 14, "bold"}, {"h3", 11, "bold"}};

// Drawn for light grounds, which they stand on in both shades.
const char* const Images[] = {
    "chb_unchecked", "chb_checked",   "rdb_unchecked", "rdb_checked",  "cmb_dropdown",
    "slider_top",    "slider_bottom", "slider_left",   "slider_right", "handle",
    "handle_hover",  "handle_pressed", "branch_fold",  "branch_expand",
};

std::optional<QString> fontValue(const QString& name)
{
    for (const Font& each : Fonts) {
        if (name == QLatin1String(each.name))
            return QStringLiteral("%1 %2pt \"%3\"")
                .arg(QLatin1String(each.weight))
                .arg(Theme::points(each.points) * Theme::zoom())
                .arg(Theme::font().family());
    }
    return std::nullopt;
}

std::optional<QString> imageValue(const QString& name)
{
    for (const char* each : Images) {
        if (name == QLatin1String("widget/") + QLatin1String(each))
            return QStringLiteral("url(:/shell/theme/%1.svg)").arg(name);
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> themeValue(const QString& kind, const QString& token)
{
    if (kind == QLatin1String("font"))
        return fontValue(token);
    if (kind == QLatin1String("image"))
        return imageValue(token);
    const auto* const found =
        std::find_if(std::begin(Values), std::end(Values), [&](const Token& each) {
            return kind == QLatin1String(each.kind) && token == QLatin1String(each.name);
        });
    if (found == std::end(Values))
        return std::nullopt;
    return QString::fromLatin1(Theme::shade() == Theme::Shade::Light ? found->light : found->dark);
}

} // namespace pendant
