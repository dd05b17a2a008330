#pragma once

#include <string>
#include <string_view>

namespace voltmere {

/// One Unicode scalar at the start of a text and the number of bytes it takes there.
struct Utf8Scalar {
    char32_t value = 0;
    std::size_t length = 0; ///< 0 when the text is empty or does not start with valid UTF-8
};

/// The first scalar of `text`, by the strict rules of RFC 3629 (no surrogates, no overlong forms).
Utf8Scalar firstScalar(std::string_view text);

/// Whether all of `text` is valid UTF-8.
bool isValidUtf8(std::string_view text);

/// `text` with U+FFFD in place of every byte outside valid UTF-8.
std::string toValidUtf8(std::string_view text);

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
