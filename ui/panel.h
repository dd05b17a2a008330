#pragma once

#include "model/battery_model.h"
#include "ports/desktop.h"

#include <cstdint>
#include <string>
#include <vector>

namespace voltmere {

/// The measures of the settings panel, in points.
namespace panelGeometry {
inline constexpr int width = 320;
inline constexpr int padding = 16;
inline constexpr int itemSpacing = 12; ///< between the rows of the panel
inline constexpr int rowSpacing = 8;   ///< within a row
inline constexpr int iconSide = 22;
inline constexpr int symbolSide = 20;
inline constexpr int thresholdWidth = 80; ///< at least
} // namespace panelGeometry

/// One peripheral in the panel.
struct DeviceRow {
    std::int64_t id;    ///< the device's
    std::string symbol; ///< name of the symbol image
    std::string name;
    std::string level;
    bool levelIsRed;

    bool operator==(const DeviceRow&) const = default;
};

/// A switch with its title.
struct Toggle {
    std::string title;
    bool isOn = false;

    bool operator==(const Toggle&) const = default;
};

/// The panel's content from top to bottom, each row from left to right. A front end turns it into
/// controls and passes the user's choices to the model.
struct PanelContent {
    std::string applicationName;

    std::vector<DeviceRow> devices;
    std::string emptySymbol; ///< with `emptyText`, the row shown while there are no devices
    std::string emptyText;

    std::string warnBelow;
    PopUp<std::int64_t> threshold; ///< percent
    std::string warnSuffix;        ///< empty in English
    Toggle instantAlert;
    Toggle dailyCheck;
    std::string checkTime;
    PopUp<std::int64_t> checkHour;
    std::string timeSeparator;
    PopUp<std::int64_t> checkMinute;
    std::string status;
    bool statusIsRed = false; ///< else in the secondary colour
    std::string testAlert;
    Toggle launchAtLogin;

    std::string quit;
    std::string languageLabel;
    PopUp<std::string> language; ///< raw values of AppLanguage

    bool operator==(const PanelContent&) const = default;
};

/// The panel of `model` at this moment, in the present language.
PanelContent panelContent(const BatteryModel& model);

} // namespace voltmere
