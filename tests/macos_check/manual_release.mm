// must fail: 'release' is unavailable: not available in automatic reference counting mode
#import <Foundation/Foundation.h>
void drop(NSString* text)
{
    [text release];
}
