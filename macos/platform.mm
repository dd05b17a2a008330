#include "app/platform.h"

#include "macos/notifications.h"
#include "macos/run_loop.h"
#include "macos/settings.h"
#include "macos/text.h"
#include "macos/ui/front_end.h"
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

/// The application itself among the system's login items. The system answers for the bundle only.
class MainAppLoginItem : public LoginItemService {
public:
    Status status() const override
    {
        switch (SMAppService.mainAppService.status) {
        case SMAppServiceStatusEnabled:
            return Status::enabled;
        case SMAppServiceStatusNotRegistered:
            return Status::notRegistered;
        case SMAppServiceStatusRequiresApproval:
            return Status::requiresApproval;
        default: // a later system may have more
            return Status::notFound;
        }
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

bool isOutputClosed()
{
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    return ::poll(&output, 1, 0) > 0 && (output.revents & (POLLHUP | POLLERR)) != 0;
}

} // namespace

std::unique_ptr<MainLoop> makeMainLoop()
{
    return std::make_unique<MacRunLoop>();
}

int runFrontEnd(const CommandLine& commandLine, char** /*words*/)
{
    return runWindows(commandLine);
}

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

std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& /*runLoop*/,
                                                           const Clock& /*clock*/, SystemLog& log)
{
    return std::make_unique<UserNotifications>(log);
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
    const bool bundled = NSBundle.mainBundle.bundleIdentifier != nil;
    const std::filesystem::path bundle = utf8Text(NSBundle.mainBundle.bundlePath);
    return {{"system", "macOS " + utf8Text(version)},
            {"bundle",
             !bundled      ? "none: no notifications, no launch at login"
                 : verbose ? bundle.string()
                           : bundle.filename().string()},
            {"settings", describeUserDefaults()}};
}

std::shared_ptr<void> watchForClosedOutput(std::function<void()> action)
{
    // The system's events for a writable output come without end.
    constexpr Seconds interval{5};
    return MacRunLoop().scheduleRepeating(interval, [action = std::move(action)] {
        if (isOutputClosed()) {
            action();
        }
    });
}

} // namespace voltmere
