#pragma once

#include <cstddef>
#include <string_view>

namespace voltmere {

/// The number of columns that a terminal takes for `text` (UTF-8): ideographs take two each,
/// combining marks none.
std::size_t terminalWidth(std::string_view text);

} // namespace voltmere
