// The same way each time.

#include "Actions.h"
#include "Scene.h"

namespace soak {

namespace {

// Changes nothing: the picture and the light go there and back.
void pressAll(Scene& scene)
{
    for (int time = 0; time < 2; ++time) {
        for (const Key key : {Key::WorkMode, Key::Wiring, Key::RedLight, Key::ProtectGas}) {
            scene.model.press(key);
            demand(scene.stage.pressKey(labelOf(key)), scene.stage.hand().complaint());
            scene.model.release(key);
            demand(scene.stage.releaseKey(labelOf(key)), scene.stage.hand().complaint());
        }
    }
}

void dropConnection(Scene& scene)
{
    for (int time = 0; time < 2; ++time)
        scene.turnConnection();
}

// A program and the editor of an instruction, without a change.
void lookAtProgram(Scene& scene)
{
    scene.showPrograms();
    if (!scene.isVisible(latin("programView"))) {
        scene.clickRow(latin("list_programs"), 0);
        scene.click(latin("button_openProgram"));
    }
    for (const int row : {0, 1, 2, 3})
        scene.clickRow(latin("list_instructions"), row);
    scene.click(latin("button_programs"));
}

void openPanels(Scene& scene)
{
    for (const char* name : {"faults", "io", "log", "plugins", "messages"})
        scene.click(latin("button_") + latin(name));
    scene.click(latin("button_clearMessages"));
    scene.leavePanels();
}

} // namespace

void goRound(Scene& scene)
{
    scene.logIn(3);
    for (int entry = PageCount; entry-- > 0;)
        scene.goTo(static_cast<Page>(entry));
    pressAll(scene);
    dropConnection(scene);
    lookAtProgram(scene);
    scene.showPages();
    openPanels(scene);
    scene.logIn(0);
}

} // namespace soak
