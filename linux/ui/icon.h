#pragma once

#include "linux/ui/program_icon.h"
#include "linux/ui/redraw_scheduler.h"
#include "model/battery_model.h"

#include <QIcon>
#include <QMenu>
#include <QStringList>
#include <QSystemTrayIcon>

#include <functional>

namespace voltmere {

/// The program's icon in a tray. It shows the model's devices and follows them; a
/// click opens the panel, and the context menu lists the devices for hosts that show no tooltip.
class StatusLabel : public ProgramIcon {
public:
    /// What the icon does and looks like.
    struct Behaviour {
        /// The icon for a list of devices in display order and a threshold in percent. One with
        /// the cache key of the icon before is taken to be that icon.
        std::function<QIcon(const std::vector<BatteryDevice>&, std::int64_t threshold)> picture;
        std::function<void(const QRect& icon)> toggle; ///< a click; the place may be empty
        std::function<void(const QRect& icon)> open;
        std::function<void()> quit;
    };

    /// Puts the icon into the tray, which must be there.
    StatusLabel(BatteryModel& model, Behaviour behaviour);

    QRect place() const override;

private:
    void redraw();
    void showPicture(const QIcon& picture);
    void showToolTip(const QString& text);
    void fillMenu(const QStringList& deviceLines);

    BatteryModel& model;
    Behaviour behaviour;
    QMenu menu;
    QStringList menuLines; ///< what the menu shows
    QSystemTrayIcon icon{this};
    RedrawScheduler redrawScheduler;
};

} // namespace voltmere
