#pragma once

#include <string>
#include <string_view>

namespace voltmere {

// A name that came over the air may hold anything. What a terminal would obey rather than show are
// the control characters, the line and paragraph separators, and the marks that turn the reading
// direction. All texts here are UTF-8.

/// `text` as one line with U+FFFD in place of each such character.
std::string plainLine(std::string_view text);

/// A JSON document with each such character written as an escape, which leaves its meaning as it
/// was.
std::string escapedControls(std::string_view json);

} // namespace voltmere
