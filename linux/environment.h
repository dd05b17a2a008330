#pragma once

#include <cstdlib>
#include <string>

namespace voltmere {

/// The value of a variable of the environment; empty also when there is none.
inline std::string environmentVariable(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

} // namespace voltmere
