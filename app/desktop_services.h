#pragma once

#include <string>
#include <utility>
#include <vector>

namespace voltmere {

/// The desktop's services that the program uses and whether each is there, as pairs of a name and a
/// finding, for diagnosis. Waits for their answers, a second at most for each.
std::vector<std::pair<std::string, std::string>> describeDesktopServices();

} // namespace voltmere
