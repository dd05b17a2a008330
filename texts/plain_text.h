#pragma once

#include <string>
#include <string_view>

namespace voltmere {

// A name that came over the air may hold anything: line ends, what a terminal obeys, marks that
// nobody sees or that turn the reading direction of the text around them.

/// `text` as it is fit to be shown on one line, in UTF-8. Line ends and control characters become
/// one blank, and marks that nobody sees are left out, but for those that scripts and emoji need.
/// Bytes that are no UTF-8 become U+FFFD.
std::string plainText(std::string_view text);

/// A JSON document (UTF-8) with an escape in place of each character that `plainText` would change.
/// Its meaning stays as it was.
std::string escapedJson(std::string_view json);

} // namespace voltmere
