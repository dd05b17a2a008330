#pragma once

#include <QString>

#include <string>

namespace voltmere {

/// What a report says of the settings file at `path`: how large it is, or why it is not in force,
/// which settings in it have no value of the right kind, and whether damaged ones are kept beside
/// it. Leaves the file as it is.
std::string describeSettingsFile(const QString& path);

} // namespace voltmere
