#pragma once

#include <optional>
#include <string>

namespace voltmere {

/// The system's list of programs to start at login, as far as it concerns this program.
class LoginItemService {
public:
    enum class Status {
        enabled,          ///< starts at login
        notRegistered,    ///< not on the list, or switched off there
        requiresApproval, ///< on the list, but the user must allow it (macOS)
        notFound,         ///< the system does not know this program (macOS)
    };

    virtual ~LoginItemService() = default;

    virtual Status status() const = 0;

    /// Adds the program to the list. Returns the failure in the system's own words, or nothing.
    virtual std::optional<std::string> registerItem() = 0;

    /// Takes the program off the list. Returns the failure in the system's own words, or nothing.
    virtual std::optional<std::string> unregisterItem() = 0;
};

} // namespace voltmere
