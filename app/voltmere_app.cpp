#include "app/voltmere_app.h"

#include "alerting/notifications.h"
#include "model/battery_model.h"
#include "texts/l10n.h"

namespace voltmere {

void AppDelegate::applicationDidFinishLaunching() const
{
    L10n::loadSetting(defaults);
    NotificationSetup::registerCategories(notifications, notificationDelegate);
    BatteryModel::launchSettled = true;
}

VoltmereApp::VoltmereApp(const CommandLine& commandLine, MainLoop& mainLoop, FrontEnd& frontEnd)
    : frontEnd(frontEnd)
    , services(commandLine, Services::Reach::everything, mainLoop, frontEnd.application(),
               frontEnd.alerts())
    , model(services.forModel())
    , delegate{*services.defaults, *services.notifications, services.notificationDelegate}
    , opensPanel(commandLine.openPanel)
{
}

void VoltmereApp::start()
{
    scene = frontEnd.show(model);
    delegate.applicationDidFinishLaunching();
    if (opensPanel) {
        openPanel();
    }
}

int VoltmereApp::run()
{
    return services.runMainLoop();
}

} // namespace voltmere
