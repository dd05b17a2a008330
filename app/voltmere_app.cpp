#include "app/voltmere_app.h"

#include "app/platform_factory.h"
#include "ui/content_view.h"
#include "ui/theme.h"
#include "ui/tray_image.h"

#include <QApplication>

#include <cstdlib>

namespace voltmere {

VoltmereApp::VoltmereApp(const CommandLine& commandLine)
    : services(commandLine)
    , delegate(*services.defaults, *services.notifications, services.notificationDelegate)
    , panel([this] { return makePanel(); })
    , opensPanel(commandLine.openPanel)
{
}

VoltmereApp::~VoltmereApp() = default;

int VoltmereApp::run()
{
    followAppearance();
    services.appearance->onChange([this] { followAppearance(); });
    trayWatch = watchForTrayHost([this] { showIcon(); });
    sharedModel();
    delegate.applicationDidFinishLaunching();
    if (opensPanel) {
        panel.open();
    }
    const int status = QApplication::exec();
    if (services.runLoop.isBusy()) {
        // A reading still uses what an ordinary end would destroy. Nothing is left to save.
        std::_Exit(status);
    }
    return status;
}

BatteryModel& VoltmereApp::sharedModel()
{
    if (!model) {
        model = std::make_unique<BatteryModel>(services.forModel());
    }
    return *model;
}

void VoltmereApp::showIcon()
{
    label = std::make_unique<StatusLabel>(
        sharedModel(),
        StatusLabel::Behaviour{.picture = makeTrayIcon,
                               .toggle = [this](const QRect& icon) { panel.toggle(icon); },
                               .open = [this](const QRect& icon) { panel.open(icon); },
                               .quit = &QCoreApplication::quit});
}

void VoltmereApp::followAppearance()
{
    applyPalette(services.appearance->bestMatch());
}

std::unique_ptr<QWidget> VoltmereApp::makePanel()
{
    return std::make_unique<ContentView>(sharedModel(), *services.appearance,
                                         &QCoreApplication::quit);
}

} // namespace voltmere
