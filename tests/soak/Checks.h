#pragma once

namespace soak {

class Scene;

/// After each step: that the screen, the controller, the log and the model agree. Throws a Failure
/// that says what does not.
void checkAll(Scene& scene);

} // namespace soak
