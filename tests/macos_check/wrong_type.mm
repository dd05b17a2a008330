// must fail: cannot initialize a variable of type 'int' with an rvalue of type 'NSString
#import <Foundation/Foundation.h>
int name()
{
    int text = NSBundle.mainBundle.bundleIdentifier;
    return text;
}
