#include "fakes/platform.h"

#include "fakes/fake_sources.h"
#include "posix/memory_defaults.h"

namespace voltmere {

namespace {

FakePlatform* present = nullptr;

class PlatformLog : public SystemLog {
public:
    void write(std::string_view line) override { present->logged.emplace_back(line); }
};

class EnglishOnly : public PreferredLanguages {
public:
    std::vector<std::string> tags() const override { return {"en"}; }
};

} // namespace

FakePlatform::FakePlatform()
{
    present = this;
}

FakePlatform::~FakePlatform()
{
    present = nullptr;
}

std::unique_ptr<MainLoop> makeMainLoop()
{
    return std::make_unique<FakeMainLoop>();
}

int runFrontEnd(const CommandLine& /*commandLine*/, char** /*words*/)
{
    return 0;
}

std::unique_ptr<SystemLog> makeSystemLog()
{
    return std::make_unique<PlatformLog>();
}

std::unique_ptr<PreferredLanguages> makePreferredLanguages()
{
    return std::make_unique<EnglishOnly>();
}

std::unique_ptr<DefaultsStore> openUserSettings(SettingsUse use, SystemLog& /*log*/)
{
    present->settingsOpened.push_back(use);
    return std::make_unique<MemoryDefaults>();
}

std::unique_ptr<LoginItemService> makeLoginItemService()
{
    ++present->loginItemServices;
    return std::make_unique<FakeLoginItems>();
}

std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& /*runLoop*/,
                                                           const Clock& /*clock*/,
                                                           SystemLog& /*log*/)
{
    ++present->notificationCentres;
    return std::make_unique<FakeNotificationCentre>();
}

SystemSources makeSystemSources(const std::filesystem::path& /*root*/)
{
    return {"sysfs", std::make_unique<FakeBatterySource>(), std::make_unique<FakeNameSource>()};
}

std::string demoToolsDirectory()
{
    return "/nonexistent";
}

std::vector<Finding> describeSystem(bool /*verbose*/)
{
    return {};
}

std::shared_ptr<void> watchForClosedOutput(std::function<void()> /*action*/)
{
    return nullptr;
}

} // namespace voltmere
