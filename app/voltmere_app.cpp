#include "app/voltmere_app.h"

namespace voltmere {

VoltmereApp::VoltmereApp(const CommandLine& commandLine, MainLoop& mainLoop, FrontEnd& frontEnd)
    : services(commandLine, Services::Reach::everything, mainLoop, frontEnd.application(),
               frontEnd.alerts())
    , model(services.forModel())
    , delegate(*services.defaults, *services.notifications, services.notificationDelegate)
    , scene(frontEnd.show(model))
    , opensPanel(commandLine.openPanel)
{
}

int VoltmereApp::run()
{
    delegate.applicationDidFinishLaunching();
    if (opensPanel) {
        openPanel();
    }
    const int status = services.mainLoop.run();
    services.endWhileBusy(status);
    return status;
}

} // namespace voltmere
