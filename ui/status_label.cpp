#include "ui/status_label.h"

#include "devices/device_listing.h"
#include "model/l10n.h"

#include <QAction>

#include <utility>

namespace voltmere {

namespace {

/// A menu takes "&" for a mnemonic; doubled it shows as it stands.
QString menuText(const std::string& text)
{
    return QString::fromStdString(text).replace('&', "&&");
}

std::string deviceLine(const BatteryDevice& device)
{
    return namesWithLevels({device}, {});
}

/// Every device on a line of its own. Some tray hosts read markup, so none may come through.
QString toolTipText(const std::vector<BatteryDevice>& devices)
{
    QStringList lines{QString::fromStdString(L10n::t("app.name"))};
    for (const BatteryDevice& device : devices) {
        lines.append(QString::fromStdString(deviceLine(device)).toHtmlEscaped());
    }
    return lines.join('\n');
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
                    behaviour.toggle(icon.geometry());
                }
            });
    icon.setContextMenu(&menu);
    redraw();
    icon.show();
}

void StatusLabel::redraw()
{
    std::vector<BatteryDevice> devices = model.devices;
    sortForDisplay(devices);
    icon.setIcon(behaviour.picture(devices, model.threshold));
    icon.setToolTip(toolTipText(devices));
    fillMenu();
}

void StatusLabel::fillMenu()
{
    menu.clear();
    for (const BatteryDevice& device : model.devices.get()) {
        menu.addAction(menuText(deviceLine(device)))->setEnabled(false);
    }
    menu.addSeparator();
    menu.addAction(menuText(L10n::own("menu.open")), this,
                   [this] { behaviour.open(icon.geometry()); });
    menu.addAction(menuText(L10n::t("panel.quit")), this, [this] { behaviour.quit(); });
}

} // namespace voltmere
