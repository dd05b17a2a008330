#pragma once

#include "ports/settings.h"

#include <string>

namespace voltmere {

/// The user's settings in the defaults database, in the domain of the bundle's identifier; of a
/// program without a bundle in the domain of its name. The system saves a change by itself.
class UserDefaults : public DefaultsStore {
public:
    std::optional<std::int64_t> integer(std::string_view key) const override;
    std::optional<bool> boolean(std::string_view key) const override;
    std::optional<std::string> text(std::string_view key) const override;

    void setInteger(std::string_view key, std::int64_t value) override;
    void setBoolean(std::string_view key, bool value) override;
};

/// The diagnosis of the user's settings: their domain, and those with a value of the wrong kind.
std::string describeUserDefaults();

} // namespace voltmere
