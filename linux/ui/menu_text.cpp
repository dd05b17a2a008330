#include "linux/ui/menu_text.h"

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

} // namespace voltmere
