#include "app/platform.h"

#include "macos/text.h"
#include "texts/plain_text.h"

#import <ServiceManagement/ServiceManagement.h>

#include <poll.h>
#include <unistd.h>

namespace voltmere {

namespace {

/// The unified log of macOS, with a copy on standard error.
class NsLog : public SystemLog {
public:
    void write(std::string_view line) override
    {
        NSLog(@"%@", cocoaText(plainText(std::string(line))));
    }
};

/// The languages of the system settings, in the user's order.
class LocaleLanguages : public PreferredLanguages {
public:
    std::vector<std::string> tags() const override
    {
        std::vector<std::string> tags;
        for (NSString* const tag in NSLocale.preferredLanguages) {
            tags.push_back(utf8Text(tag));
        }
        return tags;
    }
};

/// The user's settings in the defaults database, in the domain of the bundle's identifier; of a
/// program without a bundle in the domain of its name. The system saves a change by itself. The
/// typed getters of NSUserDefaults convert texts and cut fractions off, hence none of them here.
class UserDefaults : public DefaultsStore {
public:
    std::optional<std::int64_t> integer(std::string_view key) const override
    {
        NSNumber* const number = [store objectForKey:cocoaText(key)];
        if (![number isKindOfClass:NSNumber.class] ||
            ![number isEqualToNumber:@(number.longLongValue)]) {
            return std::nullopt;
        }
        return number.longLongValue;
    }

    std::optional<std::string> text(std::string_view key) const override
    {
        const id object = [store objectForKey:cocoaText(key)];
        return [object isKindOfClass:NSString.class] ? std::optional(utf8Text(object))
                                                     : std::nullopt;
    }

    void setInteger(std::string_view key, std::int64_t value) override
    {
        [store setInteger:static_cast<NSInteger>(value) forKey:cocoaText(key)];
    }

    void setBoolean(std::string_view key, bool value) override
    {
        [store setBool:value forKey:cocoaText(key)];
    }

private:
    NSUserDefaults* const store = NSUserDefaults.standardUserDefaults;
};

/// The application itself among the system's login items. The system answers for the bundle only.
class MainAppLoginItem : public LoginItemService {
public:
    bool isEnabled() const override
    {
        return SMAppService.mainAppService.status == SMAppServiceStatusEnabled;
    }

    std::optional<std::string> registerItem() override
    {
        NSError* error = nil;
        const bool succeeded = [SMAppService.mainAppService registerAndReturnError:&error];
        return succeeded ? std::nullopt : std::optional(utf8Text(error.localizedDescription));
    }

    std::optional<std::string> unregisterItem() override
    {
        NSError* error = nil;
        const bool succeeded = [SMAppService.mainAppService unregisterAndReturnError:&error];
        return succeeded ? std::nullopt : std::optional(utf8Text(error.localizedDescription));
    }
};

} // namespace

std::unique_ptr<SystemLog> makeSystemLog()
{
    return std::make_unique<NsLog>();
}

std::unique_ptr<PreferredLanguages> makePreferredLanguages()
{
    return std::make_unique<LocaleLanguages>();
}

std::unique_ptr<DefaultsStore> openUserSettings(SettingsUse /*use*/, SystemLog& /*log*/)
{
    return std::make_unique<UserDefaults>(); // reading repairs nothing, so it changes nothing
}

std::unique_ptr<LoginItemService> makeLoginItemService()
{
    return std::make_unique<MainAppLoginItem>();
}

SystemSources makeSystemSources(const std::filesystem::path& /*root*/)
{
    return {};
}

std::string demoToolsDirectory()
{
    return utf8Text(NSBundle.mainBundle.resourcePath) + "/demo";
}

std::vector<Finding> describeSystem(bool verbose)
{
    NSString* const version = NSProcessInfo.processInfo.operatingSystemVersionString;
    const std::filesystem::path path = utf8Text(NSBundle.mainBundle.bundlePath);
    const std::string bundle = verbose ? path.string() : path.filename().string();
    const bool bundled = NSBundle.mainBundle.bundleIdentifier != nil;
    return {{"system", "macOS " + utf8Text(version)},
            {"bundle", bundled ? bundle : "none: no notifications, no launch at login"}};
}

std::shared_ptr<void> watchForClosedOutput(std::function<void()> action)
{
    constexpr Seconds interval{5}; // the system's events for a writable output come without end
    return makeMainLoop()->scheduleRepeating(interval, [action = std::move(action)] {
        pollfd output{STDOUT_FILENO, POLLOUT, 0};
        if (::poll(&output, 1, 0) > 0 && (output.revents & (POLLHUP | POLLERR)) != 0) {
            action();
        }
    });
}

} // namespace voltmere
