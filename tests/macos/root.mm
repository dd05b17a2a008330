// The root class, without automatic reference counting.

#include <objc/NSObject.h>

extern "C" bool voltmere_responds(id object, SEL selector);
extern "C" bool voltmere_isKind(id object, Class wanted);
extern "C" id voltmere_allocate(Class aClass);
extern "C" void voltmere_destroy(id object);
extern "C" id objc_retain(id object);

@implementation NSObject
+ (instancetype)alloc
{
    return voltmere_allocate(static_cast<Class>(self));
}

+ (instancetype)new
{
    return [[self alloc] init];
}

+ (Class)class
{
    return static_cast<Class>(self);
}

- (instancetype)init
{
    return self;
}

- (void)dealloc
{
    voltmere_destroy(self);
}

/// The framework classes of this program never change after a copy, but for those with a method of
/// their own.
- (id)copy
{
    return objc_retain(self);
}

- (instancetype)self
{
    return self;
}

- (Class)class
{
    return *reinterpret_cast<Class*>(self);
}

- (BOOL)isEqual:(id)object
{
    return self == object;
}

- (NSUInteger)hash
{
    return reinterpret_cast<NSUInteger>(self);
}

- (BOOL)isKindOfClass:(Class)aClass
{
    return voltmere_isKind(self, aClass);
}

- (BOOL)respondsToSelector:(SEL)selector
{
    return voltmere_responds(self, selector);
}
@end
