#pragma once

#include <vector>

namespace soak {

class Scene;

/// Something that an operator, a tester or the cell may do, and how often among the others.
struct Action
{
    const char* name;
    int weight; ///< times in a deck
    void (*perform)(Scene& scene);
};

using Actions = std::vector<Action>;

// By what they work on; each in a file of its own.
Actions settingActions();
Actions ioActions();
Actions curveActions();
Actions dataActions();
Actions keyActions();
Actions cellActions();
Actions windowActions();
Actions programActions();

/// A round through all of the pendant that leaves it as it was: what is more after it than before
/// has leaked.
void goRound(Scene& scene);

} // namespace soak
