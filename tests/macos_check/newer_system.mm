// must fail: 'SMAppService' is only available on macOS 13.0 or newer
// compile for: macos.12.0
#import <ServiceManagement/ServiceManagement.h>
long status()
{
    return SMAppService.mainAppService.status;
}
