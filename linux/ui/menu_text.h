#pragma once

#include <QString>

namespace voltmere {

/// Who draws a context menu of the icon.
enum class MenuPainter {
    toolkit,  ///< this process
    trayHost, ///< the host of the tray, which gets the menu over D-Bus (com.canonical.dbusmenu)
};

/// A menu entry that shows `text` as it stands, without a letter for the keyboard in it.
QString menuText(QString text, MenuPainter painter);

} // namespace voltmere
