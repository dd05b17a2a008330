#pragma once

#include "linux/ui/views.h"
#include "model/battery_model.h"
#include "ui/icon.h"

#include <QIcon>
#include <QImage>
#include <QMenu>
#include <QPainterPath>
#include <QRect>
#include <QString>
#include <QSystemTrayIcon>

#include <cstdint>
#include <functional>
#include <optional>

namespace voltmere {

/// The outline of `number` in decimal digits, as high as `area` and centred in its width, both in
/// pixels. resources/digits.svg has the digits' form. The stems stand on whole pixels, so that the
/// digits stay sharp at 16 pixels, where a font blurs. They look the same with any fonts.
QPainterPath numberOutline(std::int64_t number, const QRect& area);

/// The icon for the square slots of a Linux tray, `side` pixels wide and high: the number of the
/// level on a plate, with a bar for the level below it; the plate is red for a low level. With no
/// level, the status icon. The program cannot know a panel's colour: the number stands out
/// against the plate on any panel.
QImage trayImage(const std::optional<IconLevel>& level, int side);

/// The tray's icon in the sizes of usual panels, in pixels, at one and two pixels to a point.
QIcon makeTrayIcon(const std::optional<IconLevel>& level);

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
