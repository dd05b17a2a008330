#pragma once

#include "devices/battery_device.h"

#include <QColor>
#include <QWidget>

#include <optional>

class QLabel;

namespace voltmere {

class ElidedLabel;

/// One peripheral in the panel: its symbol, its name and, at the end of the row, its level.
class DeviceRow : public QWidget {
public:
    DeviceRow(const BatteryDevice& device, QWidget* parent);

    /// Draws the level in `colour`, or in the text's colour without one.
    void colourLevel(std::optional<QColor> colour);

private:
    // Made in the order in which a screen reader reads them.
    ElidedLabel* name;
    QLabel* level;
};

} // namespace voltmere
