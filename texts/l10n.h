#pragma once

#include "ports/desktop.h"
#include "ports/settings.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

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

/// The texts of the windows, the icon, the notifications and the terminal's status line, by a key
/// such as "panel.quit" in the Chinese or the English table. The terminal's other texts are
/// English, in app/.
///
/// The whole process has one choice of language, which belongs to the main thread. Nothing is
/// cached: a change of `setting` takes effect at the next lookup.
class L10n {
public:
    using Table = std::map<std::string_view, std::string_view>;

    /// The raw value of the current AppLanguage. Any other text counts as "system".
    static std::string setting;

    /// The source of the user's languages for "system". Without a call the list is empty.
    /// `languages` must outlive every lookup; null removes it.
    static void usePreferredLanguages(const PreferredLanguages* languages);

    /// The text stored under "language"; "system" when no text is stored.
    static std::string storedSetting(const DefaultsStore& defaults);

    /// Sets `setting` to the stored choice.
    static void loadSetting(const DefaultsStore& defaults);

    /// The text for `key` in the current language; an unknown key is its own text.
    static std::string t(std::string_view key);

    /// The same for the texts that only this program's windows need, such as the languages' names.
    static std::string own(std::string_view key);

    /// A value for a placeholder: a text for "%@", an integer for "%1$d".
    using Argument = std::variant<std::string, std::int64_t>;

    /// Puts `argument` in the place of its placeholder in `format`, and "%" in the place of "%%".
    /// The argument is plain text and never read as a format.
    static std::string format(std::string_view format, const Argument& argument);

    // The tables of `t` and of `own`.
    static const Table& zh();
    static const Table& en();
    static const Table& ownZh();
    static const Table& ownEn();

private:
    static bool usesChinese();

    static const PreferredLanguages* preferredLanguages;
};

} // namespace voltmere
