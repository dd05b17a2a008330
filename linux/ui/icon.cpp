#include "linux/ui/icon.h"

#include "devices/device_listing.h"
#include "linux/ui/display_text.h"
#include "linux/ui/icon_texts.h"
#include "linux/ui/menu_text.h"
#include "texts/l10n.h"

#include <QAction>

#include <utility>

namespace voltmere {

namespace {

/// The icon's menu is native where the desktop takes it over D-Bus.
MenuPainter menuPainter(QMenu& menu)
{
    return menu.platformMenu() == nullptr ? MenuPainter::toolkit : MenuPainter::trayHost;
}

} // namespace

StatusLabel::StatusLabel(BatteryModel& model, Behaviour givenBehaviour)
    : model(model)
    , behaviour(std::move(givenBehaviour))
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    connect(&icon, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) {
                    behaviour.toggle(place());
                }
            });
    icon.setContextMenu(&menu);
    redraw();
    icon.show();
}

QRect StatusLabel::place() const
{
    return icon.geometry();
}

void StatusLabel::redraw()
{
    std::vector<BatteryDevice> devices = model.devices;
    sortForDisplay(devices);
    const QStringList lines = deviceLines(devices);
    showPicture(behaviour.picture(devices, model.threshold));
    showToolTip(toolTipText(lines));
    fillMenu(lines);
}

// Whatever is set is sent to the desktop, which then asks for all of the icon. Most redraws change
// nothing of it.

void StatusLabel::showPicture(const QIcon& picture)
{
    if (picture.cacheKey() != icon.icon().cacheKey()) {
        icon.setIcon(picture);
    }
}

void StatusLabel::showToolTip(const QString& text)
{
    if (text != icon.toolTip()) {
        icon.setToolTip(text);
    }
}

void StatusLabel::fillMenu(const QStringList& deviceLines)
{
    // A menu that is open must not change under the pointer without need.
    const QStringList lines = deviceLines +
        QStringList{displayText(L10n::own("menu.open")), displayText(L10n::t("panel.quit"))};
    if (lines == menuLines) {
        return;
    }
    menuLines = lines;
    menu.clear();
    const MenuPainter painter = menuPainter(menu);
    for (const QString& line : deviceLines) {
        menu.addAction(menuText(line, painter))->setEnabled(false);
    }
    menu.addSeparator();
    menu.addAction(menuText(lines.at(lines.size() - 2), painter), this,
                   [this] { behaviour.open(place()); });
    menu.addAction(menuText(lines.constLast(), painter), this, [this] { behaviour.quit(); });
}

} // namespace voltmere
