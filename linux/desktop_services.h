#pragma once

#include "app/platform.h"

#include <vector>

namespace voltmere {

/// The desktop's services that the program uses and whether each is there, for diagnosis. Waits for
/// their answers, a second at most for each.
std::vector<Finding> describeDesktopServices();

} // namespace voltmere
