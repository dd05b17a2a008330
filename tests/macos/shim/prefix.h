// Included before everything else: the class of @"..." must be known before the first one.
#ifdef __OBJC__
@class NSConstantString;
#define __unused __attribute__((unused)) // the system's headers define it
#endif
