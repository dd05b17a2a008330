#include "texts/l10n.h"

namespace voltmere {

std::string_view rawValue(AppLanguage language)
{
    switch (language) {
    case AppLanguage::system:
        return "system";
    case AppLanguage::zh:
        return "zh";
    case AppLanguage::en:
        return "en";
    }
    return {};
}

std::optional<AppLanguage> appLanguage(std::string_view raw)
{
    for (const AppLanguage language : allAppLanguages) {
        if (rawValue(language) == raw) {
            return language;
        }
    }
    return std::nullopt;
}

namespace {

std::string lookUp(const L10n::Table& table, std::string_view key)
{
    const auto found = table.find(key);
    return std::string(found == table.end() ? key : found->second);
}

} // namespace

std::string L10n::setting{"system"};
const PreferredLanguages* L10n::preferredLanguages = nullptr;

void L10n::usePreferredLanguages(const PreferredLanguages* languages)
{
    preferredLanguages = languages;
}

std::string L10n::storedSetting(const DefaultsStore& defaults)
{
    return defaults.text(languageKey).value_or(std::string(rawValue(AppLanguage::system)));
}

void L10n::loadSetting(const DefaultsStore& defaults)
{
    setting = storedSetting(defaults);
}

std::string L10n::t(std::string_view key)
{
    return lookUp(usesChinese() ? zh() : en(), key);
}

std::string L10n::own(std::string_view key)
{
    return lookUp(usesChinese() ? ownZh() : ownEn(), key);
}

bool L10n::usesChinese()
{
    const AppLanguage chosen = appLanguage(setting).value_or(AppLanguage::system);
    if (chosen != AppLanguage::system) {
        return chosen == AppLanguage::zh;
    }
    if (preferredLanguages == nullptr) {
        return false;
    }
    const auto tags = preferredLanguages->tags();
    return !tags.empty() && tags.front().starts_with("zh");
}

std::string L10n::format(std::string_view format, const Argument& argument)
{
    const auto* const text = std::get_if<std::string>(&argument);
    const std::string_view placeholder = text != nullptr ? "%@" : "%1$d";
    const std::string value =
        text != nullptr ? *text : std::to_string(std::get<std::int64_t>(argument));
    std::string filled;
    while (!format.empty()) {
        if (format.starts_with(placeholder)) {
            filled += value;
            format.remove_prefix(placeholder.size());
        } else {
            filled += format.front();
            format.remove_prefix(format.starts_with("%%") ? 2 : 1);
        }
    }
    return filled;
}

} // namespace voltmere
