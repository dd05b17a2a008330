#include "macos/locale_languages.h"

#include "macos/cocoa_text.h"

namespace voltmere {

std::vector<std::string> LocaleLanguages::tags() const
{
    std::vector<std::string> tags;
    for (NSString* const tag in NSLocale.preferredLanguages) {
        tags.push_back(utf8Text(tag));
    }
    return tags;
}

} // namespace voltmere
