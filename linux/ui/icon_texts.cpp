#include "linux/ui/icon_texts.h"

#include "devices/battery_device.h"
#include "linux/ui/display_text.h"
#include "texts/l10n.h"

namespace voltmere {

QStringList deviceLines(const std::vector<BatteryDevice>& devices)
{
    QStringList lines;
    for (const BatteryDevice& device : devices) {
        lines.append(QString::fromStdString(shownNameWithLevel(device)));
    }
    return lines;
}

QString toolTipText(const QStringList& deviceLines)
{
    return (QStringList(displayText(L10n::t("app.name"))) + deviceLines).join('\n');
}

} // namespace voltmere
