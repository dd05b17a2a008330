// Included before everything else.
#ifdef __OBJC__
@class NSConstantString; // of @"..."

#define __unused __attribute__((unused)) // as in the system's headers
#endif

// The body of a function of one statement, and a class without methods of its own.
#define RETURNS(...)                                                                               \
    {                                                                                              \
        return __VA_ARGS__;                                                                        \
    }
#define DOES(...)                                                                                  \
    {                                                                                              \
        __VA_ARGS__;                                                                               \
    }
#define EMPTY(Class)                                                                               \
    @implementation Class                                                                          \
    @end
