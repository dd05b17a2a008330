#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace voltmere {

/// The user's choice of interface language.
enum class AppLanguage { system, zh, en };

/// Every choice, in the order in which the panel offers them.
inline constexpr std::array allAppLanguages{AppLanguage::system, AppLanguage::zh, AppLanguage::en};

/// The setting that keeps the choice. The program reads it and never writes it.
inline constexpr std::string_view languageKey = "language";

/// The text as which a choice is stored: "system", "zh" or "en".
std::string_view rawValue(AppLanguage language);

/// The choice stored as `raw`; nothing for any other text.
std::optional<AppLanguage> appLanguage(std::string_view raw);

} // namespace voltmere
