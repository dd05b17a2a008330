#pragma once

#include <string>

namespace voltmere {

/// A new random UUID (RFC 9562, version 4) in upper case with hyphens, 36 characters. May be called
/// on any thread.
std::string randomUuid();

} // namespace voltmere
