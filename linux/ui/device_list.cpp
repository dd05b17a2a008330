#include "linux/ui/device_list.h"

#include "linux/ui/device_row.h"
#include "linux/ui/display_text.h"
#include "linux/ui/panel_metrics.h"
#include "linux/ui/picture_view.h"
#include "texts/l10n.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <optional>

namespace voltmere {

DeviceList::DeviceList(QWidget* parent)
    : QWidget(parent)
    , emptyRow(makeEmptyRow())
{
    setObjectName("deviceList");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(panelMetrics::itemSpacing);
    column->addWidget(emptyRow);
}

DeviceList::~DeviceList() = default;

void DeviceList::present(const std::vector<BatteryDevice>& devices, std::int64_t threshold,
                         const QColor& lowColour)
{
    noDevices->setText(displayText(L10n::t("status.noDevice")));
    if (devices != shown) {
        rebuild(devices);
    }
    for (std::size_t index = 0; index < rows.size(); ++index) {
        rows[index]->colourLevel(isLow(shown[index], threshold) ? std::optional(lowColour)
                                                                : std::nullopt);
    }
}

QWidget* DeviceList::makeEmptyRow()
{
    auto* const widget = new QWidget(this);
    noDevices = new QLabel(widget);
    noDevices->setObjectName("noDevices");
    noDevices->setTextFormat(Qt::PlainText);

    auto* const row = new QHBoxLayout(widget);
    row->setContentsMargins({});
    row->setSpacing(panelMetrics::rowSpacing);
    row->addWidget(makeSymbolView("questionmark.circle", widget));
    row->addWidget(noDevices, 1);
    return widget;
}

void DeviceList::rebuild(const std::vector<BatteryDevice>& devices)
{
    rows.clear();
    for (const BatteryDevice& device : devices) {
        rows.push_back(std::make_unique<DeviceRow>(device, this));
        layout()->addWidget(rows.back().get());
        rows.back()->show();
    }
    emptyRow->setVisible(devices.empty());
    shown = devices;
}

} // namespace voltmere
