#include "linux/ui/icon.h"

#include "linux/ui/status_image.h"
#include "linux/ui/views.h"

#include <QAction>

#include <utility>

namespace voltmere {

QString menuText(QString text, MenuPainter painter)
{
    if (painter == MenuPainter::toolkit) {
        return text.replace('&', "&&");
    }
    // Hosts read "_" before a letter as Qt reads "&", and Qt turns the first "&", no other, into a
    // "_" for them. So a blank without width takes that one. Some hosts drop "__" from an entry
    // that has a marked letter: where a text has both, its "&" are of the wide form.
    static const QString taken = QStringLiteral("&\u200B");
    if (text.contains('_')) {
        return text.replace('&', QChar(0xFF06)).replace('_', "__");
    }
    return text.contains('&') ? taken + text : text;
}

StatusLabel::StatusLabel(BatteryModel& model, Actions givenActions)
    : model(model)
    , actions(std::move(givenActions))
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    connect(&icon, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) {
                    actions.toggle(place());
                }
            });
    icon.setContextMenu(&menu);
    redraw();
    icon.show();
}

void StatusLabel::redraw()
{
    // Whatever is set is sent to the desktop, which then asks for all of the icon, and a menu that
    // is open must not change under the pointer. Most redraws change nothing of either.
    const auto level = iconLevel(model.devices, model.threshold);
    if (icon.icon().isNull() || level != shownLevel) {
        shownLevel = level;
        icon.setIcon(makeTrayIcon(level));
    }
    const IconTexts texts = iconTexts(model.devices);
    if (texts != shownTexts) {
        shownTexts = texts;
        icon.setToolTip(asQt(texts.toolTip));
        fillMenu(texts);
    }
}

void StatusLabel::fillMenu(const IconTexts& texts)
{
    // The menu is native where the desktop takes it over D-Bus.
    const MenuPainter painter =
        menu.platformMenu() == nullptr ? MenuPainter::toolkit : MenuPainter::trayHost;
    const auto entry = [painter](const std::string& text) { return menuText(asQt(text), painter); };
    menu.clear();
    for (const std::string& device : texts.devices) {
        menu.addAction(entry(device))->setEnabled(false);
    }
    menu.addSeparator();
    menu.addAction(entry(texts.open), this, [this] { actions.open(place()); });
    menu.addAction(entry(texts.quit), this, [this] { actions.quit(); });
}

} // namespace voltmere
