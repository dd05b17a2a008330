#include "ui/menu_text.h"

namespace voltmere {

QString menuText(QString text, MenuPainter painter)
{
    if (painter == MenuPainter::toolkit) {
        return text.replace('&', "&&");
    }
    // Hosts read "_" before a letter as Qt reads "&", and Qt turns the first "&", no other, into a
    // "_" for them. So a blank without width takes that one.
    static const QString taken = QStringLiteral("&\u200B");
    return text.contains('&') ? taken + text.replace('_', "__") : text.replace('_', "__");
}

} // namespace voltmere
