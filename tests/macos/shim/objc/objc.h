// The language's own types, as the compiler expects them.
#pragma once

#include <stddef.h>
#include <stdint.h>

typedef struct objc_class* Class;
typedef struct objc_object {
    Class isa;
} * id;
typedef const struct objc_selector* SEL;
typedef id (*IMP)(id, SEL, ...);
typedef bool BOOL;
typedef long NSInteger;
typedef unsigned long NSUInteger;
#define YES true
#define NO false
#define nil nullptr

extern "C" IMP objc_msg_lookup(id receiver, SEL selector);
extern "C" const char* class_getName(Class aClass);

// The body of a function of one statement, and a class without methods of its own.
#define RETURNS(...) DOES(return __VA_ARGS__)
#define DOES(...)                                                                                  \
    {                                                                                              \
        __VA_ARGS__;                                                                               \
    }
#define EMPTY(Class)                                                                               \
    @implementation Class                                                                          \
    @end

#ifdef __OBJC__
@class NSConstantString;                 // of @"...", before the first of them
#define __unused __attribute__((unused)) // as in the system's headers
#endif
