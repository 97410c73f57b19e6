#include "qelLaserWelding.h"

namespace qelplugin {

void qelLaserWelding::initPhysicalButton() {}

} // namespace qelplugin
