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
#define Nil nullptr

extern "C" IMP objc_msg_lookup(id receiver, SEL selector);
extern "C" const char* class_getName(Class aClass);
