#include "app/system_sources.h"

namespace voltmere {

SystemSources makeSystemSources(const std::filesystem::path& /*root*/)
{
    return {};
}

} // namespace voltmere
