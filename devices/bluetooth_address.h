#pragma once

#include <string>
#include <string_view>

namespace voltmere {

/// `address` in upper case. Addresses are hexadecimal: only ASCII letters have a case here.
std::string upperCased(std::string_view address);

/// The form in which name maps hold an address: colons for hyphens, upper case.
std::string normalisedAddress(std::string_view address);

} // namespace voltmere
