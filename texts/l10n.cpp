#include "texts/l10n.h"

#include "texts/app_language.h"

namespace voltmere {

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

} // namespace voltmere
