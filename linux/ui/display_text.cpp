#include "linux/ui/display_text.h"

#include "texts/plain_text.h"

#include <QTextDocument>

namespace voltmere {

QString displayText(std::string_view text)
{
    return QString::fromStdString(plainText(text));
}

QString plainToolTip(const QString& text)
{
    return Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

} // namespace voltmere
