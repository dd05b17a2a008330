#include "macos/main_app_login_item.h"

#include "macos/cocoa_text.h"
#include "macos/login_item_status.h"

#import <ServiceManagement/ServiceManagement.h>

namespace voltmere {

namespace {

std::optional<std::string> failureOf(BOOL succeeded, NSError* error)
{
    return succeeded ? std::nullopt : std::optional(utf8Text(error.localizedDescription));
}

} // namespace

LoginItemService::Status MainAppLoginItem::status() const
{
    return loginItemStatus(SMAppService.mainAppService.status);
}

std::optional<std::string> MainAppLoginItem::registerItem()
{
    NSError* error = nil;
    const BOOL succeeded = [SMAppService.mainAppService registerAndReturnError:&error];
    return failureOf(succeeded, error);
}

std::optional<std::string> MainAppLoginItem::unregisterItem()
{
    NSError* error = nil;
    const BOOL succeeded = [SMAppService.mainAppService unregisterAndReturnError:&error];
    return failureOf(succeeded, error);
}

} // namespace voltmere
