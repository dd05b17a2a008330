#include "app/settings_report.h"

#include <QFileInfo>

namespace voltmere {

// Only the system itself reads and writes the user defaults database, and keeps it whole.
std::string describeSettingsFile(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() ? std::to_string(file.size()) + " bytes" : "not there, defaults are used";
}

} // namespace voltmere
