#pragma once

#include <optional>
#include <string>
#include <vector>

namespace voltmere::reference {

/// The characters of a UTF-8 text; nothing when it is no UTF-8.
std::optional<std::u32string> decoded(const std::string& text);

/// The pieces of a text between the separators.
std::vector<std::string> split(const std::string& text, const std::string& separator);

/// ASCII letters in upper case. Addresses have no others.
std::string inUpperCase(const std::string& text);

} // namespace voltmere::reference
