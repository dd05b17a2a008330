#pragma once

#include "ports/login_item.h"

namespace voltmere {

/// What a raw SMAppServiceStatus means; a value that no documented version has is as good as no
/// item. Source: ServiceManagement, SMAppService.Status.
inline LoginItemService::Status loginItemStatus(long rawStatus)
{
    switch (rawStatus) {
    case 0:
        return LoginItemService::Status::notRegistered;
    case 1:
        return LoginItemService::Status::enabled;
    case 2:
        return LoginItemService::Status::requiresApproval;
    default:
        return LoginItemService::Status::notFound;
    }
}

} // namespace voltmere
