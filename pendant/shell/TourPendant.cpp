#include "TourChapters.h"

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

} // namespace

TourChapter pendantChapter()
{
    TourChapter chapter;
    for (const Panel& panel : Panels) {
        chapter.push_back({latin(panel.name), latin(panel.title),
                           [&panel](TourStage& stage) { return pressAll(stage, panel); }});
    }
    return chapter;
}

} // namespace pendant
