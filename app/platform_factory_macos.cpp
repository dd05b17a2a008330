#include "app/platform_factory.h"

#include "platform/macos/app_appearance.h"
#include "platform/macos/cocoa_application.h"
#include "platform/macos/cocoa_status_item.h"
#include "platform/macos/locale_languages.h"
#include "platform/macos/main_app_login_item.h"
#include "platform/macos/ns_log.h"
#include "platform/macos/running_instances.h"
#include "platform/macos/user_notifications.h"
#include "ui/menu_bar_label.h"

#include <QGuiApplication>
#include <QObject>
#include <QWidget>

#include <unistd.h>
#include <utility>

namespace voltmere {

namespace {

/// One instance of the application bundle. A second one starts only from a terminal; from Finder
/// the system brings the running one forward.
class BundleInstance : public SingleInstance {
public:
    Role start() override
    {
        const std::vector<RunningInstance> instances = runningInstances();
        if (instances.empty()) {
            return Role::alone;
        }
        if (givesWay(::getpid(), instances)) {
            requestPanel();
            return Role::later;
        }
        return Role::first;
    }

    void onActivation(std::function<void()> open) override
    {
        requests = std::make_unique<PanelRequests>(std::move(open));
    }

private:
    std::unique_ptr<PanelRequests> requests;
};

} // namespace

std::optional<std::string> displayProblem()
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || hasWindowServer()) {
        return std::nullopt;
    }
    return "there is no screen in this session; start it from a session with a desktop, or use "
           "--list";
}

std::unique_ptr<SingleInstance> makeSingleInstance(SystemLog& /*log*/)
{
    return std::make_unique<BundleInstance>();
}

std::unique_ptr<Appearance> makeAppearance()
{
    return std::make_unique<AppAppearance>();
}

std::unique_ptr<Application> makeApplication()
{
    return std::make_unique<CocoaApplication>();
}

std::unique_ptr<PreferredLanguages> makePreferredLanguages()
{
    return std::make_unique<LocaleLanguages>();
}

std::unique_ptr<SystemLog> makeSystemLog()
{
    return std::make_unique<NsLog>();
}

std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& /*runLoop*/,
                                                           const Clock& /*clock*/, SystemLog& log)
{
    return std::make_unique<UserNotifications>(log);
}

std::unique_ptr<LoginItemService> makeLoginItemService()
{
    return std::make_unique<MainAppLoginItem>();
}

std::unique_ptr<QObject> watchForTrayHost(std::function<void()> available)
{
    available(); // The menu bar is always there.
    return nullptr;
}

std::unique_ptr<ProgramIcon> makeIcon(BatteryModel& model, const Appearance& appearance,
                                      IconActions actions)
{
    return std::make_unique<MenuBarLabel>(model, appearance, std::make_unique<CocoaStatusItem>(),
                                          std::move(actions.toggle));
}

void keepAfloat(QWidget& window)
{
    // Qt's own level for windows on top is the one of modal panels, which cover more than they
    // should.
    if (QGuiApplication::platformName() == "cocoa") {
        setFloatingLevel(window.winId());
    }
}

} // namespace voltmere
