#include "linux/environment.h"

#include <algorithm>
#include <sstream>
#include <string_view>

namespace voltmere {

namespace {

std::string messageLocale()
{
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (std::string value = environmentVariable(name); !value.empty()) {
            return value;
        }
    }
    return "C";
}

/// "zh-CN" for a locale such as zh_CN.UTF-8@variant.
std::string tagOf(std::string_view locale)
{
    std::string tag(locale.substr(0, locale.find_first_of(".@")));
    std::replace(tag.begin(), tag.end(), '_', '-');
    return tag;
}

bool isUntranslated(std::string_view tag)
{
    return tag == "C" || tag == "POSIX";
}

} // namespace

std::filesystem::path userDirectory(const char* variable, const char* fallback)
{
    const std::filesystem::path chosen(environmentVariable(variable));
    return chosen.is_absolute()
        ? chosen
        : "/" / std::filesystem::path(environmentVariable("HOME")) / fallback;
}

std::vector<std::string> EnvironmentLanguages::tags() const
{
    const std::string locale = messageLocale();
    std::vector<std::string> tags;
    if (isUntranslated(locale)) {
        return tags;
    }
    std::istringstream list(environmentVariable("LANGUAGE"));
    for (std::string language; std::getline(list, language, ':');) {
        const std::string tag = tagOf(language);
        if (isUntranslated(tag)) {
            return tags;
        }
        if (!tag.empty()) {
            tags.push_back(tag);
        }
    }
    if (const std::string tag = tagOf(locale); tags.empty() && !isUntranslated(tag)) {
        tags.push_back(tag);
    }
    return tags;
}

} // namespace voltmere
