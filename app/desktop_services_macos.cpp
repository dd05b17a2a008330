#include "app/desktop_services.h"

namespace voltmere {

std::vector<std::pair<std::string, std::string>> describeDesktopServices()
{
    return {}; // They are part of the system.
}

} // namespace voltmere
