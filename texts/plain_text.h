#pragma once

#include <string>
#include <string_view>

namespace voltmere {

// A name that came over the air may hold anything: line ends, terminal commands, invisible marks,
// and marks that turn the reading direction of the text around them.

/// `text` cleaned for display on one line, in UTF-8. Line ends and control characters become one
/// blank. Invisible marks are left out, except those that scripts and emoji need. Invalid bytes
/// become U+FFFD.
std::string plainText(std::string_view text);

/// A JSON document (UTF-8) with an escape in place of each character that `plainText` would change.
/// Its meaning stays as it was.
std::string escapedJson(std::string_view json);

} // namespace voltmere
