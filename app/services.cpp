#include "app/services.h"

#include "posix/memory_defaults.h"
#include "texts/l10n.h"

#include <unistd.h>

#include <cstdlib>

namespace voltmere {

namespace {

/// Ports that do nothing, for runs that reach less than everything.
class NoDesktop : public Application,
                  public AlertPresenter,
                  public LoginItemService,
                  public NotificationCentre,
                  public SystemLog {
public:
    void activate() override { }
    std::unique_ptr<Alert> present(AlertContent /*content*/, AlertActions /*actions*/) override
    {
        return nullptr;
    }
    bool isEnabled() const override { return false; }
    std::optional<std::string> registerItem() override { return std::nullopt; }
    std::optional<std::string> unregisterItem() override { return std::nullopt; }
    void requestAuthorisation(std::uint32_t /*options*/) override { }
    void setDelegate(NotificationCentreDelegate* /*delegate*/) override { }
    void setCategories(std::vector<NotificationCategory> /*categories*/) override { }
    void add(NotificationRequest /*request*/) override { }
    void write(std::string_view /*line*/) override { }
};

NoDesktop noDesktop; // it has no state

template<typename Port>
std::unique_ptr<Port> none()
{
    return std::make_unique<NoDesktop>();
}

std::string toolsDirectory(const CommandLine& commandLine, const std::string& systemTools)
{
    if (commandLine.demo) {
        return demoToolsDirectory();
    }
    return commandLine.toolsDirectory.value_or(systemTools);
}

bool actsOutside(const CommandLine& commandLine, Services::Reach reach)
{
    return reach == Services::Reach::everything && !commandLine.demo;
}

} // namespace

std::string missingDemoTools()
{
    std::string missing;
    for (const char* const tool : {"ioreg", "system_profiler"}) {
        if (::access((demoToolsDirectory() + '/' + tool).c_str(), X_OK) != 0) {
            missing += std::string(missing.empty() ? "" : " and ") + tool;
        }
    }
    return missing;
}

Peripherals::Peripherals(const CommandLine& commandLine, SystemLog& log,
                         const std::string& systemTools)
    : toolsOnly(commandLine.demo || commandLine.toolsDirectory)
    , systemOnly(commandLine.sysfsRoot.has_value())
    , processes(log)
    , registry(processes, toolsDirectory(commandLine, systemTools))
    , profiler(processes, toolsDirectory(commandLine, systemTools))
    , system(makeSystemSources(commandLine.sysfsRoot.value_or("/sys")))
{
}

PeripheralSources Peripherals::choose()
{
    if (usesTools()) {
        return {"tools", &registry, &profiler};
    }
    return {system.label, system.batteries.get(), system.names.get()};
}

bool Peripherals::usesTools() const
{
    if (toolsOnly || system.batteries == nullptr) {
        return true;
    }
    return !systemOnly && registry.isAvailable();
}

Services::Services(const CommandLine& commandLine, Reach reach, MainLoop& mainLoop)
    : Services(commandLine, reach, mainLoop, noDesktop, noDesktop)
{
}

Services::Services(const CommandLine& commandLine, Reach reach, MainLoop& mainLoop,
                   Application& application, AlertPresenter& alerts)
    : commandLine(commandLine)
    , reach(reach)
    , mainLoop(mainLoop)
    , log(makeSystemLog())
    , modelLog(reach == Reach::settings ? none<SystemLog>() : makeSystemLog())
    , languages(makePreferredLanguages())
    , defaults(openSettings(*log))
    , loginItems(actsOutside(commandLine, reach) ? makeLoginItemService()
                                                 : none<LoginItemService>())
    , notificationDelegate(mainLoop, application)
    , notifications(actsOutside(commandLine, reach) ? makeNotificationCentre(mainLoop, clock, *log)
                                                    : none<NotificationCentre>())
    , alerts(alerts)
    , peripherals(commandLine, *log)
    , reader(std::make_shared<DeviceReader>([this] { return peripherals.choose(); }, clock))
{
    L10n::usePreferredLanguages(languages.get());
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

int Services::runMainLoop() const
{
    const int status = mainLoop.run();
    if (mainLoop.isBusy()) {
        std::_Exit(status);
    }
    return status;
}

} // namespace voltmere
