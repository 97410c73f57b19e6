// The window: pages, panels, language and theme, and the pendant as a whole.

#include "Actions.h"
#include "MainWindow.h"
#include "Scene.h"
#include "Session.h"

namespace soak {

namespace {

void openPage(Scene& scene)
{
    const int entry = scene.chance.below(PageCount);
    scene.note = QString::number(entry);
    scene.goTo(static_cast<Page>(entry));
}

void openPanel(Scene& scene)
{
    constexpr const char* panels[] = {"messages", "faults", "io", "log", "plugins"};
    const QString name = latin(scene.chance.of(panels));
    scene.note = name;
    scene.leavePanels();
    scene.click(latin("button_") + name);
    demand(scene.isVisible(latin("panel_") + name), latin("the panel does not open"));
}

void clearMessages(Scene& scene)
{
    scene.leavePanels();
    scene.click(latin("button_messages"));
    scene.click(latin("button_clearMessages"));
    demand(scene.stage.window().messages().rowCount() == 0, latin("messages are left"));
}

void turnTheme(Scene& scene)
{
    using Shade = pendant::Theme::Shade;
    scene.click(latin("button_theme"));
    scene.model.shade = scene.model.shade == Shade::Light ? Shade::Dark : Shade::Light;
}

void turnLanguage(Scene& scene)
{
    using pendant::Language;
    Model& model = scene.model;
    model.releaseKeys();
    model.language = model.language == Language::English ? Language::Chinese : Language::English;
    scene.click(latin("button_language"));
    demand(
        pendant::Hand::waitFor([&] { return scene.stage.pendant().language() == model.language; }),
        latin("the language does not change"));
    model.pluginMade();
    scene.pagesAreNew();
    if (!scene.isVisible(latin("programPage")))
        scene.pageRead();
}

void reopen(Scene& scene)
{
    scene.reopen();
}

} // namespace

Actions windowActions()
{
    return {
        {"window: page", 10, openPage},
        {"window: panel", 4, openPanel},
        {"window: clear messages", 1, clearMessages},
        {"window: theme", 3, turnTheme},
        {"window: language", 2, turnLanguage},
        {"window: reopen", 1, reopen},
    };
}

} // namespace soak
