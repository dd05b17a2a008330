// The root class, without automatic reference counting.

#include <objc/NSObject.h>

extern "C" bool voltmere_isKind(id object, Class wanted);
extern "C" id voltmere_allocate(Class aClass);
extern "C" void voltmere_destroy(id object);

@implementation NSObject
+ (instancetype)alloc RETURNS(voltmere_allocate(static_cast<Class>(self)));
+ (Class)class RETURNS(static_cast<Class>(self));
- (instancetype)init RETURNS(self);
- (void)dealloc DOES(voltmere_destroy(self));
- (Class)class RETURNS(*reinterpret_cast<Class*>(self));
- (BOOL)isEqual:(id)object RETURNS(self == object);
- (BOOL)isKindOfClass:(Class)aClass RETURNS(voltmere_isKind(self, aClass));
@end
