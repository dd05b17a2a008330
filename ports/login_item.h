#pragma once

#include <optional>
#include <string>

namespace voltmere {

/// The system's list of programs to start at login, as far as it concerns this program.
class LoginItemService {
public:
    virtual ~LoginItemService() = default;

    /// Whether the program starts at login: it is on the list, and the user allows it.
    virtual bool isEnabled() const = 0;

    /// Adds the program to the list. Returns the failure in the system's own words, or nothing.
    virtual std::optional<std::string> registerItem() = 0;

    /// Takes the program off the list. Returns the failure in the system's own words, or nothing.
    virtual std::optional<std::string> unregisterItem() = 0;
};

} // namespace voltmere
