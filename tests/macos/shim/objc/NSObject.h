// The root class, as far as the program and the framework classes use it.
#pragma once

#include <objc/objc.h>

@protocol NSObject
- (BOOL)isEqual:(id)object;
- (Class)class;
- (BOOL)isKindOfClass:(Class)aClass;
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    Class isa;
}
+ (instancetype)alloc;
+ (Class)class;
- (instancetype)init;
- (void)dealloc;
@end
