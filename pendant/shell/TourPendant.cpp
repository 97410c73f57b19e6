#include "TourChapters.h"

#include "MainWindow.h"
#include "Session.h"

#include <QLabel>

#include <algorithm>

namespace pendant {

namespace {

struct Panel
{
    const char* name;
    const char* title;
    std::vector<const char*> buttons; ///< pressed one after the other
};

const Panel Panels[] = {
    {"messages", "The message history", {"button_messages"}},
    {"messages-cleared", "It is cleared", {"button_clearMessages"}},
    {"faults", "The fault panel", {"button_faults"}},
    {"io-monitor", "The process signals at the controller", {"button_io"}},
    {"controller-log", "The controller's own log", {"button_log"}},
    {"plugins", "The list of plugins", {"button_plugins"}},
    {"users", "The users", {"button_closeDrawer", "button_user"}},
    {"user", "One of them logs in", {"button_level3"}},
};

bool pressAll(TourStage& stage, const Panel& panel)
{
    return std::all_of(panel.buttons.begin(), panel.buttons.end(),
                       [&](const char* name) { return stage.clickName(latin(name)); });
}

// What the first entry of the plugin opens says at its top.
bool expectTitle(TourStage& stage)
{
    const QString text = shown("LaserWeldPage", "Parmeter Setting");
    const auto isThere = [&] {
        const auto* title = stage.window().findChild<QLabel*>(latin("lblTitle"));
        return title && title->isVisible() && title->text() == text;
    };
    return stage.clickTool("Weld Setup") &&
           stage.expect(Hand::waitFor(isThere),
                        QStringLiteral("the page is not titled \"%1\"").arg(text));
}

bool turnLanguage(TourStage& stage)
{
    const Language before = stage.pendant().language();
    const auto isOther = [&] { return stage.pendant().language() != before; };
    return stage.clickName(latin("button_language")) &&
           stage.expect(Hand::waitFor(isOther), latin("the language does not change")) &&
           expectTitle(stage);
}

bool turnTheme(TourStage& stage)
{
    const Theme::Shade before = Theme::shade();
    return stage.clickName(latin("button_theme")) &&
           stage.expect(Theme::shade() != before, latin("the theme does not change"));
}

} // namespace

TourChapter pendantChapter()
{
    TourChapter chapter;
    for (const Panel& panel : Panels) {
        chapter.push_back({latin(panel.name), latin(panel.title),
                           [&panel](TourStage& stage) { return pressAll(stage, panel); }});
    }
    chapter.push_back(step("language", "The other language, without a restart", turnLanguage));
    chapter.push_back(step("language-back", "And back", turnLanguage));
    chapter.push_back(step("theme", "The other theme", turnTheme));
    chapter.push_back(step("theme-back", "And back", turnTheme));
    return chapter;
}

} // namespace pendant
