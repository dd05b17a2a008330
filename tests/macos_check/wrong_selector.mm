// must fail: no known class method for selector 'mainAppServices'
#import <ServiceManagement/ServiceManagement.h>
SMAppService* item()
{
    return [SMAppService mainAppServices];
}
