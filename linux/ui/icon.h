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

/// Who draws a context menu of the icon.
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
    /// What the icon does. The place of the icon on the desktop is empty where it is not known.
    struct Actions {
        std::function<void(const QRect& icon)> toggle; ///< a click
        std::function<void(const QRect& icon)> open;
        std::function<void()> quit;
    };

    /// Puts the icon into the tray, which must be there.
    StatusLabel(BatteryModel& model, Actions actions);

    /// Where the icon is on the desktop; empty where that is not known.
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
