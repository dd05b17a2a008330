#include "linux/ui/front_end.h"

#include "linux/activation_token.h"
#include "linux/ui/icon.h"
#include "linux/ui/panel.h"
#include "linux/ui/panel_controller.h"
#include "linux/ui/theme.h"
#include "linux/ui/tray_host_watcher.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QPixmapCache>
#include <QWidget>

#include <algorithm>

namespace voltmere {

void QtApplication::activate()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() != Qt::ToolTip) {
            window->raise();
            window->activateWindow();
        }
    }
    // A token counts for one activation. Qt clears a token after use, but uses no token on X11.
    activationToken::drop();
}

std::optional<PointerPosition> QtPointer::position() const
{
    if (QGuiApplication::platformName().startsWith("wayland")) {
        return std::nullopt;
    }
    const QPoint point = QCursor::pos();
    return PointerPosition{static_cast<double>(point.x()), static_cast<double>(point.y())};
}

namespace {

/// At login the desktop's tray may start after the program, which waits for it this long.
constexpr Seconds longestTrayStart{15};

/// Qt keeps every picture of an icon up to this limit, by default 10 MiB. The program draws the
/// icon anew at each reading, so a small limit bounds the old pictures.
constexpr int pictureCacheLimit = 256; // KiB

QWidget* alertOnScreen()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto alert = std::ranges::find_if(windows, [](const QWidget* window) {
        return window->isVisible() && dynamic_cast<const SnoozeAlertWindow*>(window) != nullptr;
    });
    return alert == windows.end() ? nullptr : *alert;
}

/// The icon, made when a tray appears, and the panel. The panel opens at the icon, or without a
/// tray as a window, which waits until an alert was answered, since it might cover the alert.
class QtScene : public Scene {
public:
    QtScene(BatteryModel& model, const Appearance& appearance, MainLoop& mainLoop, SystemLog& log)
        : model(model)
        , appearance(appearance)
        , mainLoop(mainLoop)
        , log(log)
        , panel([this] { return makePanel(); })
        , trayDeadline(mainLoop.scheduleOnce(longestTrayStart, [this] { giveUpOnTray(); }))
        , trayWatch([this] { showIcon(); })
    {
    }

    void openPanel() override { panel.open(icon ? icon->place() : QRect()); }

private:
    void quit() { mainLoop.stop(0); }

    void giveUpOnTray()
    {
        if (const QWidget* const alert = alertOnScreen()) {
            QObject::connect(alert, &QObject::destroyed, &panel, [this] { giveUpOnTray(); });
            return;
        }
        if (icon) {
            return;
        }
        log.write("Voltmere: this desktop has no tray yet; the panel opens as a window, and "
                  "whenever the program is started again");
        panel.setOrdinaryWindow(true);
        panel.open();
    }

    void showIcon()
    {
        trayDeadline.reset();
        panel.setOrdinaryWindow(false);
        icon = std::make_unique<StatusLabel>(
            model,
            StatusLabel::Actions{.toggle = [this](const QRect& place) { panel.toggle(place); },
                                 .open = [this](const QRect& place) { panel.open(place); },
                                 .menu = [this] { panel.keepForMenu(); },
                                 .quit = [this] { quit(); }});
    }

    std::unique_ptr<QWidget> makePanel()
    {
        auto view = std::make_unique<ContentView>(model, appearance, [this] { quit(); });
        if (panel.isOrdinaryWindow()) {
            view->addNoTrayNotice();
        }
        return view;
    }

    BatteryModel& model;
    const Appearance& appearance;
    MainLoop& mainLoop;
    SystemLog& log;
    PanelController panel;
    std::unique_ptr<Timer> trayDeadline;
    TrayHostWatcher trayWatch;
    std::unique_ptr<StatusLabel> icon;
};

} // namespace

QtFrontEnd::QtFrontEnd(MainLoop& mainLoop, SystemLog& log)
    : mainLoop(mainLoop)
    , log(log)
    , presenter(appearance, pointer, mainLoop)
{
    QPixmapCache::setCacheLimit(pictureCacheLimit);
    appearance.onChange([this] { followAppearance(); });
}

std::unique_ptr<Scene> QtFrontEnd::show(BatteryModel& model)
{
    return std::make_unique<QtScene>(model, appearance, mainLoop, log);
}

void QtFrontEnd::followAppearance() const
{
    applyPalette(appearance.bestMatch());
    // Qt tells nothing where the palette was right already, but the views' red follows the scheme.
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        QEvent change(QEvent::PaletteChange);
        QApplication::sendEvent(window, &change);
    }
}

} // namespace voltmere
