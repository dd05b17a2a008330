// must fail: undefined symbol: _OBJC_CLASS_\$_NSMissing
#import <Foundation/Foundation.h>
@interface NSMissing : NSObject
@end
int main()
{
    return [[NSMissing alloc] init] != nil;
}
