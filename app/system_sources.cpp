#include "app/system_sources.h"

#include "linux/bluez_name_source.h"
#include "linux/sysfs_battery_source.h"

namespace voltmere {

SystemSources makeSystemSources(const std::filesystem::path& root)
{
    return {"sysfs", std::make_unique<SysfsBatterySource>(root),
            std::make_unique<BluezNameSource>()};
}

} // namespace voltmere
