#pragma once

#include "devices/battery_device.h"

#include <QColor>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <vector>

class QLabel;

namespace voltmere {

class DeviceRow;

/// The panel's list of peripherals: one row for each, or one that says that there are none.
class DeviceList : public QWidget {
public:
    explicit DeviceList(QWidget* parent);
    ~DeviceList() override;

    /// Shows `devices` in their order, the level of each low one at `threshold` percent in
    /// `lowColour`. The rows are made anew only when the devices are others than before.
    void present(const std::vector<BatteryDevice>& devices, std::int64_t threshold,
                 const QColor& lowColour);

private:
    QWidget* makeEmptyRow();
    void rebuild(const std::vector<BatteryDevice>& devices);

    QLabel* noDevices = nullptr;
    QWidget* emptyRow;
    std::vector<BatteryDevice> shown;
    std::vector<std::unique_ptr<DeviceRow>> rows; ///< one for each of `shown`
};

} // namespace voltmere
