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
    // A tray host reads "_x" as a mnemonic, and Qt sends the first "&" of a text as "_". So a text
    // with "&" begins with another one and a space without width: the space is the mnemonic, and
    // nothing shows. Some hosts fail on "__" beside a mnemonic, so in a text with "_" each "&"
    // becomes full-width.
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
    connect(&menu, &QMenu::aboutToShow, this, [this] { actions.menu(); });
    icon.setContextMenu(&menu);
    redraw();
    icon.show();
}

void StatusLabel::redraw()
{
    // A desktop fetches all sizes of an icon that is set, and an open menu must not change under
    // the pointer. Most redraws change neither the level nor the texts.
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
    // Where the desktop reads the menu over D-Bus, it draws the menu itself.
    const MenuPainter painter =
        menu.platformMenu() == nullptr ? MenuPainter::toolkit : MenuPainter::trayHost;
    const auto entry = [painter](const std::string& text) { return menuText(asQt(text), painter); };
    menu.clear();
    for (const std::string& device : texts.devices) {
        // Not disabled: hosts draw disabled entries too pale to read.
        menu.addAction(entry(device), this, [this] { actions.open(place()); });
    }
    menu.addSeparator();
    menu.addAction(entry(texts.open), this, [this] { actions.open(place()); });
    menu.addAction(entry(texts.quit), this, [this] { actions.quit(); });
}

} // namespace voltmere
