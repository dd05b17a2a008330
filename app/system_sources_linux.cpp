#include "app/system_sources.h"

#include "platform/linux/sysfs_battery_source.h"

namespace voltmere {

namespace {

/// The kernel's own names for the devices are the only ones that are known.
class NoNames : public NameSource {
public:
    NameMap readNames() override { return {}; }
};

} // namespace

SystemSources makeSystemSources(const std::filesystem::path& root)
{
    return {"sysfs", std::make_unique<SysfsBatterySource>(root), std::make_unique<NoNames>()};
}

} // namespace voltmere
