#pragma once

#include "ports/settings.h"
#include "texts/l10n.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace voltmere {

/// A setting as it is stored.
template<typename Value>
struct Setting {
    std::string_view key;
    Value initial; ///< for a user who never changed it
};

namespace settings {
inline constexpr Setting<std::int64_t> threshold{"threshold", 20}; ///< percent
inline constexpr Setting<std::int64_t> checkHour{"hour", 22};
inline constexpr Setting<std::int64_t> checkMinute{"minute", 30};
inline constexpr Setting<bool> enabled{"enabled", true};
inline constexpr Setting<bool> instantEnabled{"instant", true};
} // namespace settings

/// The stored value of `setting`; its initial value where no value of the right type is stored.
inline std::int64_t stored(const DefaultsStore& defaults, const Setting<std::int64_t>& setting)
{
    return defaults.integer(setting.key).value_or(setting.initial);
}

/// The same for a setting that is on or off.
inline bool stored(const DefaultsStore& defaults, const Setting<bool>& setting)
{
    return defaults.boolean(setting.key).value_or(setting.initial);
}

/// The settings that are stored with a value of the wrong kind, with commas between them.
inline std::string unusableSettings(const DefaultsStore& defaults,
                                    const std::function<bool(std::string_view key)>& isStored)
{
    std::string found;
    const auto note = [&](std::string_view key, bool usable) {
        if (!usable && isStored(key)) {
            found += (found.empty() ? "" : ", ") + std::string(key);
        }
    };
    for (const auto& setting : {settings::threshold, settings::checkHour, settings::checkMinute}) {
        note(setting.key, defaults.integer(setting.key).has_value());
    }
    for (const auto& setting : {settings::enabled, settings::instantEnabled}) {
        note(setting.key, defaults.boolean(setting.key).has_value());
    }
    note(languageKey, appLanguage(defaults.text(languageKey).value_or("")).has_value());
    return found;
}

} // namespace voltmere
