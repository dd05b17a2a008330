#include "linux/ui/device_row.h"

#include "linux/ui/display_text.h"
#include "linux/ui/elided_label.h"
#include "linux/ui/panel_metrics.h"
#include "linux/ui/picture_view.h"
#include "linux/ui/theme.h"

#include <QHBoxLayout>

namespace voltmere {

DeviceRow::DeviceRow(const BatteryDevice& device, QWidget* parent)
    : QWidget(parent)
    , name(new ElidedLabel(this))
    , level(new QLabel(this))
{
    setObjectName(QString("device-%1").arg(device.id));
    auto* const symbol = makeSymbolView(QString::fromStdString(device.symbol), this);
    name->setObjectName("deviceName");
    name->setFont(headlineFont(font()));
    name->setFullText(QString::fromStdString(shownName(device)));
    level->setObjectName("deviceLevel");
    level->setTextFormat(Qt::PlainText);
    level->setFont(title3Font(font()));
    level->setText(QString("%1%").arg(device.level));

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(panelMetrics::rowSpacing);
    row->addWidget(symbol);
    row->addWidget(name, 1);
    row->addWidget(level);
}

void DeviceRow::colourLevel(std::optional<QColor> colour)
{
    setTextColour(*level, colour);
}

} // namespace voltmere
