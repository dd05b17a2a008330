#include "app/voltmere_app.h"

#include "app/platform_factory.h"
#include "linux/ui/panel.h"
#include "linux/ui/theme.h"

#include <QApplication>
#include <QEvent>
#include <QPixmapCache>
#include <QWidget>

#include <cstdlib>
#include <utility>

namespace voltmere {

namespace {

/// At login the panel of the desktop may start after the programs. Later than this there is none.
constexpr Seconds longestTrayStart{15};

/// Qt keeps every picture that an icon was ever asked for, up to this limit, by default 10 MiB. The
/// icon is drawn anew at each reading, so a small limit is what the old pictures may take.
constexpr int pictureCacheLimit = 256; // KiB

} // namespace

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
    QPixmapCache::setCacheLimit(pictureCacheLimit);
    followAppearance();
    services.appearance->onChange([this] { followAppearance(); });
    trayDeadline = services.runLoop.scheduleOnce(longestTrayStart, [this] { giveUpOnTray(); });
    trayWatch = watchForTrayHost([this] { showIcon(); });
    sharedModel();
    delegate.applicationDidFinishLaunching();
    if (opensPanel) {
        openPanel();
    }
    const int status = QApplication::exec();
    if (services.runLoop.isBusy()) {
        // A reading still uses most of what an ordinary end would destroy. So only the settings are
        // ended, which saves the last change.
        services.defaults.reset();
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

void VoltmereApp::openPanel()
{
    panel.open(icon ? icon->place() : QRect());
}

void VoltmereApp::giveUpOnTray()
{
    services.log->write("Voltmere: this desktop has no tray yet; the panel opens as a window, and "
                        "whenever the program is started again");
    panel.setOrdinaryWindow(true);
    panel.open();
}

void VoltmereApp::showIcon()
{
    trayDeadline.reset();
    panel.setOrdinaryWindow(false);
    icon = makeIcon(sharedModel(), *services.appearance,
                    {.toggle = [this](const QRect& place) { panel.toggle(place); },
                     .open = [this](const QRect& place) { panel.open(place); },
                     .quit = &QCoreApplication::quit});
}

void VoltmereApp::followAppearance() const
{
    applyPalette(services.appearance->bestMatch());
    // The desktop's own palette may have changed before the scheme was known: red differs still.
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        QEvent change(QEvent::PaletteChange);
        QApplication::sendEvent(window, &change);
    }
}

std::unique_ptr<QWidget> VoltmereApp::makePanel()
{
    auto view =
        std::make_unique<ContentView>(sharedModel(), *services.appearance, &QCoreApplication::quit);
    if (panel.isOrdinaryWindow()) {
        return std::make_unique<NoTrayPanel>(sharedModel(), std::move(view));
    }
    return view;
}

} // namespace voltmere
