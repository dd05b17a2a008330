#include "macos/settings.h"

#include "macos/text.h"
#include "model/settings.h"

namespace voltmere {

namespace {

id storedObject(std::string_view key)
{
    return [NSUserDefaults.standardUserDefaults objectForKey:cocoaText(key)];
}

} // namespace

// The typed getters of NSUserDefaults convert texts and cut fractions off, hence none of them here.

std::optional<std::int64_t> UserDefaults::integer(std::string_view key) const
{
    const id object = storedObject(key);
    if (![object isKindOfClass:NSNumber.class]) {
        return std::nullopt;
    }
    NSNumber* const number = object;
    const long long value = number.longLongValue;
    return [number isEqualToNumber:@(value)] ? std::optional<std::int64_t>(value) : std::nullopt;
}

std::optional<bool> UserDefaults::boolean(std::string_view key) const
{
    return exactBoolean(integer(key));
}

std::optional<std::string> UserDefaults::text(std::string_view key) const
{
    const id object = storedObject(key);
    return [object isKindOfClass:NSString.class] ? std::optional(utf8Text(object)) : std::nullopt;
}

void UserDefaults::setInteger(std::string_view key, std::int64_t value)
{
    [NSUserDefaults.standardUserDefaults setInteger:static_cast<NSInteger>(value)
                                             forKey:cocoaText(key)];
}

void UserDefaults::setBoolean(std::string_view key, bool value)
{
    [NSUserDefaults.standardUserDefaults setBool:value forKey:cocoaText(key)];
}

std::string describeUserDefaults()
{
    NSString* const bundle = NSBundle.mainBundle.bundleIdentifier;
    const std::string domain = bundle == nil ? "Voltmere" : utf8Text(bundle);
    const std::string unusable = unusableSettings(
        UserDefaults(), [](std::string_view key) { return storedObject(key) != nil; });
    return domain + (unusable.empty() ? "" : ": no usable value, so the default: " + unusable);
}

} // namespace voltmere
