#pragma once

#include <string>

namespace voltmere {

/// The directory of the tools that play simulated peripherals: beside the program where it is
/// installed, or in the tree in which it was built.
std::string demoToolsDirectory();

} // namespace voltmere
