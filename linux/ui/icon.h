#pragma once

#include "linux/ui/redraw_scheduler.h"
#include "model/battery_model.h"
#include "ui/icon.h"

#include <QMenu>
#include <QRect>
#include <QString>
#include <QSystemTrayIcon>

#include <functional>
#include <optional>

namespace voltmere {

/// The process that draws the icon's context menu.
enum class MenuPainter {
    toolkit,  ///< this process
    trayHost, ///< the host of the tray, which gets the menu over D-Bus (com.canonical.dbusmenu)
};

/// A menu entry that shows `text` as it stands, without a letter for the keyboard in it.
QString menuText(QString text, MenuPainter painter);

/// The program's icon in a tray, from construction to destruction. It shows the model's devices and
/// follows them; a click opens the panel, and the context menu lists the devices for hosts that
/// show no tooltip.
class StatusLabel : public QObject {
public:
    /// The icon's actions. Their argument is the icon's place on the desktop; empty where unknown.
    struct Actions {
        std::function<void(const QRect& icon)> toggle; ///< a click
        std::function<void(const QRect& icon)> open;
        std::function<void()> menu; ///< the menu is about to open
        std::function<void()> quit;
    };

    /// Puts the icon into the tray, which must be there.
    StatusLabel(BatteryModel& model, Actions actions);

    /// The icon's place on the desktop; empty where unknown.
    QRect place() const { return icon.geometry(); }

private:
    void redraw();
    void fillMenu(const IconTexts& texts);

    BatteryModel& model;
    Actions actions;
    QMenu menu;
    std::optional<IconLevel> shownLevel;
    std::optional<IconTexts> shownTexts;
    QSystemTrayIcon icon{this};
    RedrawScheduler redrawScheduler;
};

} // namespace voltmere
