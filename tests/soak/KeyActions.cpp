// The hardware keys, one or several at once.

#include "Actions.h"
#include "Scene.h"

namespace soak {

namespace {

std::vector<Key> keysThatAre(const Scene& scene, bool held)
{
    std::vector<Key> all;
    for (int each = 0; each < KeyCount; ++each) {
        if (scene.model.held[static_cast<std::size_t>(each)] == held)
            all.push_back(static_cast<Key>(each));
    }
    return all;
}

void press(Scene& scene)
{
    const std::vector<Key> free = keysThatAre(scene, false);
    if (free.empty())
        return;
    const Key key = scene.chance.of(free);
    scene.note = latin(labelOf(key));
    scene.leavePanels();
    scene.model.press(key);
    demand(scene.stage.pressKey(labelOf(key)), scene.stage.hand().complaint());
}

void release(Scene& scene)
{
    const std::vector<Key> held = keysThatAre(scene, true);
    if (held.empty()) {
        press(scene);
        return;
    }
    const Key key = scene.chance.of(held);
    scene.note = latin(labelOf(key));
    scene.model.release(key);
    demand(scene.stage.releaseKey(labelOf(key)), scene.stage.hand().complaint());
}

void pressAndRelease(Scene& scene)
{
    const std::vector<Key> held = keysThatAre(scene, true);
    if (!held.empty())
        release(scene);
    press(scene);
    if (held.empty())
        release(scene);
}

} // namespace

Actions keyActions()
{
    return {{"key: press", 10, press},
            {"key: release", 8, release},
            {"key: press and release", 5, pressAndRelease}};
}

} // namespace soak
