#include "texts/app_language.h"

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

} // namespace voltmere
