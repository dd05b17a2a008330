#include "app/services.h"

#include "posix/memory_defaults.h"
#include "texts/l10n.h"

#include <cstdlib>

namespace voltmere {

namespace {

// Ports without effect. Each keeps its contract with its callers and does nothing.

class NullLog : public SystemLog {
public:
    void write(std::string_view /*line*/) override { }
};

/// Reports that the program does not start at login, and changes nothing.
class NullLoginItems : public LoginItemService {
public:
    Status status() const override { return Status::notRegistered; }
    std::optional<std::string> registerItem() override { return std::nullopt; }
    std::optional<std::string> unregisterItem() override { return std::nullopt; }
};

class NullNotifications : public NotificationCentre {
public:
    void requestAuthorisation(std::uint32_t /*options*/) override { }
    void setDelegate(NotificationCentreDelegate* /*delegate*/) override { }
    void setCategories(std::vector<NotificationCategory> /*categories*/) override { }
    void add(NotificationRequest /*request*/) override { }
};

class NullAlerts : public AlertPresenter {
public:
    std::unique_ptr<Alert> present(AlertContent /*content*/, AlertActions /*actions*/) override
    {
        return nullptr;
    }
};

class NullApplication : public Application {
public:
    void activate() override { }
};

NullApplication nullApplication;
NullAlerts nullAlerts;

bool actsOutside(const CommandLine& commandLine, Services::Reach reach)
{
    return reach == Services::Reach::everything && !commandLine.demo;
}

std::unique_ptr<SystemLog> openModelLog(Services::Reach reach)
{
    if (reach == Services::Reach::settings) {
        return std::make_unique<NullLog>();
    }
    return makeSystemLog();
}

std::unique_ptr<LoginItemService> openLoginItems(bool outside)
{
    if (!outside) {
        return std::make_unique<NullLoginItems>();
    }
    return makeLoginItemService();
}

std::unique_ptr<NotificationCentre> openNotifications(bool outside, RunLoop& runLoop,
                                                      const Clock& clock, SystemLog& log)
{
    if (!outside) {
        return std::make_unique<NullNotifications>();
    }
    return makeNotificationCentre(runLoop, clock, log);
}

} // namespace

Services::Services(const CommandLine& commandLine, Reach reach, MainLoop& mainLoop)
    : Services(commandLine, reach, mainLoop, nullApplication, nullAlerts)
{
}

Services::Services(const CommandLine& commandLine, Reach reach, MainLoop& mainLoop,
                   Application& application, AlertPresenter& alerts)
    : commandLine(commandLine)
    , reach(reach)
    , mainLoop(mainLoop)
    , log(makeSystemLog())
    , modelLog(openModelLog(reach))
    , languages(makePreferredLanguages())
    , defaults(openSettings(*log))
    , loginItems(openLoginItems(actsOutside(commandLine, reach)))
    , notificationDelegate(mainLoop, application)
    , notifications(openNotifications(actsOutside(commandLine, reach), mainLoop, clock, *log))
    , alerts(alerts)
    , peripherals(commandLine, *log)
    , reader(std::make_shared<DeviceReader>([this] { return peripherals.choose(); }, clock))
{
    L10n::usePreferredLanguages(languages.get());
}

Services::~Services()
{
    L10n::usePreferredLanguages(nullptr);
}

ModelServices Services::forModel()
{
    return {
        *defaults, mainLoop,  clock, calendar, *loginItems, *notifications, notificationDelegate,
        alerts,    *modelLog, reader};
}

std::unique_ptr<DefaultsStore> Services::openSettings(SystemLog& log) const
{
    if (commandLine.demo || reach == Reach::nothing) {
        return std::make_unique<MemoryDefaults>();
    }
    return openUserSettings(
        reach == Reach::everything ? SettingsUse::readAndWrite : SettingsUse::readOnly, log);
}

void Services::endWhileBusy(int status) const
{
    if (mainLoop.isBusy()) {
        std::_Exit(status);
    }
}

} // namespace voltmere
