#pragma once

#include "devices/battery_device.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace voltmere {

/// What the program's icon tells of each device: its name with its level, as plain text.
QStringList deviceLines(const std::vector<BatteryDevice>& devices);

/// Every device on a line of its own, below a first line without markup: what guesses whether a
/// tooltip is markup looks no further, so that names show as they stand.
QString toolTipText(const QStringList& deviceLines);

} // namespace voltmere
