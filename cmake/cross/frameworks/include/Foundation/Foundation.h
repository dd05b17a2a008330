// Foundation, as far as this program uses it. See ../README.md.
#pragma once

#include <CoreGraphics/CoreGraphics.h>

#include <objc/NSObject.h>
#include <objc/objc.h>

#define VOLTMERE_SINCE(version) __attribute__((availability(macos, introduced = version)))

#pragma clang assume_nonnull begin

@class NSArray<ObjectType>;
@class NSDate;
@class NSDictionary<KeyType, ObjectType>;
@class NSOperationQueue;
@class NSString;

typedef CGPoint NSPoint;
typedef CGRect NSRect;
typedef CGSize NSSize;
typedef double NSTimeInterval;
typedef NSUInteger NSStringEncoding;

// const NSRect NSZeroRect; macOS 10.0
static const NSRect NSZeroRect = {{0, 0}, {0, 0}};

// NSPoint NSMakePoint(CGFloat x, CGFloat y) and its like; macOS 10.0
static inline NSPoint NSMakePoint(CGFloat x, CGFloat y)
{
    return {x, y};
}
static inline NSSize NSMakeSize(CGFloat width, CGFloat height)
{
    return {width, height};
}
static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height)
{
    return {{x, y}, {width, height}};
}
static inline CGFloat NSMinX(NSRect rect)
{
    return rect.origin.x;
}
static inline CGFloat NSMinY(NSRect rect)
{
    return rect.origin.y;
}
static inline CGFloat NSMidX(NSRect rect)
{
    return rect.origin.x + rect.size.width / 2;
}
static inline CGFloat NSMaxX(NSRect rect)
{
    return rect.origin.x + rect.size.width;
}
static inline CGFloat NSMaxY(NSRect rect)
{
    return rect.origin.y + rect.size.height;
}
static inline CGFloat NSHeight(NSRect rect)
{
    return rect.size.height;
}
// NSRect NSInsetRect(NSRect aRect, CGFloat dX, CGFloat dY); macOS 10.0
static inline NSRect NSInsetRect(NSRect rect, CGFloat x, CGFloat y)
{
    return NSMakeRect(rect.origin.x + x, rect.origin.y + y, rect.size.width - 2 * x,
                      rect.size.height - 2 * y);
}
// BOOL NSPointInRect(NSPoint aPoint, NSRect aRect); with the lower edges, without the upper ones;
// macOS 10.0
static inline BOOL NSPointInRect(NSPoint point, NSRect rect)
{
    return point.x >= NSMinX(rect) && point.x < NSMaxX(rect) && point.y >= NSMinY(rect) &&
        point.y < NSMaxY(rect);
}
// BOOL NSIsEmptyRect(NSRect aRect); macOS 10.0
static inline BOOL NSIsEmptyRect(NSRect rect)
{
    return !(rect.size.width > 0 && rect.size.height > 0);
}
// BOOL NSIntersectsRect(NSRect aRect, NSRect bRect); NO when one of them is empty; macOS 10.0
static inline BOOL NSIntersectsRect(NSRect one, NSRect other)
{
    return !NSIsEmptyRect(one) && !NSIsEmptyRect(other) && NSMinX(one) < NSMaxX(other) &&
        NSMinX(other) < NSMaxX(one) && NSMinY(one) < NSMaxY(other) && NSMinY(other) < NSMaxY(one);
}

// struct NSEdgeInsets and its maker; macOS 10.7
typedef struct NSEdgeInsets {
    CGFloat top;
    CGFloat left;
    CGFloat bottom;
    CGFloat right;
} NSEdgeInsets;
static inline NSEdgeInsets NSEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom,
                                            CGFloat right)
{
    return {top, left, bottom, right};
}

// NSStringEncoding NSUTF8StringEncoding = 4; macOS 10.0
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

// void NSLog(NSString *format, ...); macOS 10.0
extern "C" void NSLog(NSString* format, ...) __attribute__((format(__NSString__, 1, 2)));

// @protocol NSCopying; macOS 10.0
@protocol NSCopying
- (id)copyWithZone:(nullable struct _NSZone*)zone;
@end

// @protocol NSFastEnumeration; macOS 10.5
typedef struct {
    unsigned long state;
    id __unsafe_unretained _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)length;
@end

// The compiler calls this for a fast enumeration; macOS 10.5
extern "C" void objc_enumerationMutation(id object);

@interface NSString : NSObject <NSCopying>
// - (instancetype)initWithBytes:(const void *)bytes length:(NSUInteger)len
//                      encoding:(NSStringEncoding)encoding; nil when the bytes are not of that
// encoding; macOS 10.0
- (nullable instancetype)initWithBytes:(const void*)bytes
                                length:(NSUInteger)length
                              encoding:(NSStringEncoding)encoding;
// @property (readonly) const char *UTF8String; macOS 10.0
@property (readonly, nullable) const char* UTF8String;
// - (BOOL)isEqualToString:(NSString *)aString; macOS 10.0
- (BOOL)isEqualToString:(NSString*)other;
@end

@interface NSNumber : NSObject
// The literals @(...), @1, @YES and @1.5 call these; macOS 10.0, ...WithInteger: 10.5
+ (NSNumber*)numberWithBool:(BOOL)value;
+ (NSNumber*)numberWithInt:(int)value;
+ (NSNumber*)numberWithLong:(long)value;
+ (NSNumber*)numberWithLongLong:(long long)value;
+ (NSNumber*)numberWithDouble:(double)value;
// @property (readonly) long long longLongValue; macOS 10.0
@property (readonly) long long longLongValue;
// - (BOOL)isEqualToNumber:(NSNumber *)number; compares values of any type; macOS 10.0
- (BOOL)isEqualToNumber:(NSNumber*)number;
@end

@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration>
// The literal @[...] calls it: + (instancetype)arrayWithObjects:(const ObjectType [])objects
//                                                         count:(NSUInteger)cnt; macOS 10.0
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nullable])objects
                           count:(NSUInteger)count;
// @property (readonly) NSUInteger count; macOS 10.0
@property (readonly) NSUInteger count;
// @property (nullable, readonly) ObjectType firstObject; macOS 10.6
@property (nullable, readonly) ObjectType firstObject;
// - (BOOL)isEqualToArray:(NSArray<ObjectType> *)otherArray; macOS 10.0
- (BOOL)isEqualToArray:(NSArray<ObjectType>*)other;
@end

@interface NSMutableArray<ObjectType> : NSArray <ObjectType>
// + (instancetype)array; macOS 10.0
+ (instancetype)array;
// - (void)addObject:(ObjectType)anObject; macOS 10.0
- (void)addObject:(ObjectType)object;
@end

@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject
// The literal @{...} calls it: + (instancetype)dictionaryWithObjects:(const ObjectType [])objects
//     forKeys:(const KeyType<NSCopying> [])keys count:(NSUInteger)cnt; macOS 10.0
+ (instancetype)dictionaryWithObjects:(const ObjectType _Nonnull[_Nullable])objects
                              forKeys:(const KeyType<NSCopying> _Nonnull[_Nullable])keys
                                count:(NSUInteger)count;
@end

@interface NSSet<__covariant ObjectType> : NSObject
// + (instancetype)setWithArray:(NSArray<ObjectType> *)array; macOS 10.0
+ (instancetype)setWithArray:(NSArray<ObjectType>*)array;
@end

@interface NSData : NSObject
// - (BOOL)writeToFile:(NSString *)path atomically:(BOOL)useAuxiliaryFile; macOS 10.0
- (BOOL)writeToFile:(NSString*)path atomically:(BOOL)atomically;
@end

@interface NSURL : NSObject
@end

@interface NSDate : NSObject
// @property (class, readonly, copy) NSDate *distantFuture; macOS 10.0
@property (class, readonly, copy) NSDate* distantFuture;
@end

@interface NSError : NSObject
// @property (readonly, copy) NSString *localizedDescription; macOS 10.0
@property (readonly, copy) NSString* localizedDescription;
@end

@interface NSBundle : NSObject
// @property (class, readonly, strong) NSBundle *mainBundle; macOS 10.0
@property (class, readonly, strong) NSBundle* mainBundle;
// @property (nullable, readonly, copy) NSString *bundleIdentifier; macOS 10.0
@property (nullable, readonly, copy) NSString* bundleIdentifier;
// @property (readonly, copy) NSString *bundlePath; of a program without a bundle the directory of
// its file; macOS 10.0
@property (readonly, copy) NSString* bundlePath;
// @property (nullable, readonly, copy) NSString *resourcePath; macOS 10.0
@property (nullable, readonly, copy) NSString* resourcePath;
// - (NSURL *)URLForResource:(NSString *)name withExtension:(NSString *)ext; nil when there is none;
// macOS 10.6
- (nullable NSURL*)URLForResource:(nullable NSString*)name
                    withExtension:(nullable NSString*)extension;
@end

@interface NSUserDefaults : NSObject
// @property (class, readonly, strong) NSUserDefaults *standardUserDefaults; macOS 10.0
@property (class, readonly, strong) NSUserDefaults* standardUserDefaults;
// - (id)objectForKey:(NSString *)defaultName; macOS 10.0
- (nullable id)objectForKey:(NSString*)key;
// - (void)setInteger:(NSInteger)value forKey:(NSString *)defaultName; macOS 10.0
- (void)setInteger:(NSInteger)value forKey:(NSString*)key;
// - (void)setBool:(BOOL)value forKey:(NSString *)defaultName; macOS 10.0
- (void)setBool:(BOOL)value forKey:(NSString*)key;
@end

// NSArray<NSString *> *NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
//     NSSearchPathDomainMask domainMask, BOOL expandTilde);
// NSApplicationSupportDirectory = 14, macOS 10.6; NSUserDomainMask = 1; macOS 10.0
enum NSSearchPathDirectory : NSUInteger { NSApplicationSupportDirectory = 14 };
typedef NSUInteger NSSearchPathDomainMask;
enum : NSSearchPathDomainMask { NSUserDomainMask = 1 };
extern "C" NSArray<NSString*>* NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                                   NSSearchPathDomainMask domains,
                                                                   BOOL expandTilde);

@interface NSLocale : NSObject
// @property (class, readonly, copy) NSArray<NSString *> *preferredLanguages; macOS 10.5
@property (class, readonly, copy) NSArray<NSString*>* preferredLanguages;
@end

// enum NSActivityOptions : uint64_t; NSActivityUserInitiatedAllowingIdleSystemSleep =
// NSActivityUserInitiated & ~NSActivityIdleSystemSleepDisabled; macOS 10.9
typedef uint64_t NSActivityOptions;
enum : NSActivityOptions {
    NSActivityIdleSystemSleepDisabled = 1ULL << 20,
    NSActivityUserInitiated = 0x00FFFFFFULL | NSActivityIdleSystemSleepDisabled,
    NSActivityUserInitiatedAllowingIdleSystemSleep =
        NSActivityUserInitiated & ~NSActivityIdleSystemSleepDisabled,
};

@interface NSProcessInfo : NSObject
// @property (readonly, copy) NSString *operatingSystemVersionString; macOS 10.2
@property (readonly, copy) NSString* operatingSystemVersionString;
// @property (class, readonly, strong) NSProcessInfo *processInfo; macOS 10.0
@property (class, readonly, strong) NSProcessInfo* processInfo;
// - (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options
//                                   reason:(NSString *)reason; macOS 10.9
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options
                                  reason:(NSString*)reason VOLTMERE_SINCE(10.9);
// - (void)endActivity:(id<NSObject>)activity; macOS 10.9
- (void)endActivity:(id<NSObject>)activity VOLTMERE_SINCE(10.9);
@end

typedef NSString* NSNotificationName;

@interface NSNotification : NSObject
@end

@interface NSNotificationCenter : NSObject
// - (id<NSObject>)addObserverForName:(NSNotificationName)name object:(id)obj
//                              queue:(NSOperationQueue *)queue
//                         usingBlock:(void (^)(NSNotification *note))block; macOS 10.6
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name
                            object:(nullable id)object
                             queue:(nullable NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block;
// - (void)removeObserver:(id)observer; macOS 10.0
- (void)removeObserver:(id)observer;
@end

@interface NSDistributedNotificationCenter : NSNotificationCenter
// + (NSDistributedNotificationCenter *)defaultCenter; macOS 10.0
+ (NSDistributedNotificationCenter*)defaultCenter;
// - (void)postNotificationName:(NSNotificationName)name object:(NSString *)object
//                     userInfo:(NSDictionary *)userInfo
//           deliverImmediately:(BOOL)deliverImmediately; macOS 10.0
- (void)postNotificationName:(NSNotificationName)name
                      object:(nullable NSString*)object
                    userInfo:(nullable NSDictionary*)userInfo
          deliverImmediately:(BOOL)deliverImmediately;
@end

typedef NSString* NSRunLoopMode;

// NSRunLoopMode const NSDefaultRunLoopMode; macOS 10.0. ...NSRunLoopCommonModes; macOS 10.5
extern "C" NSRunLoopMode const NSDefaultRunLoopMode;
extern "C" NSRunLoopMode const NSRunLoopCommonModes;

@interface NSTimer : NSObject
// + (NSTimer *)timerWithTimeInterval:(NSTimeInterval)interval repeats:(BOOL)repeats
//                              block:(void (^)(NSTimer *timer))block; in no run loop yet;
// macOS 10.12
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                          repeats:(BOOL)repeats
                            block:(void (^)(NSTimer* timer))block VOLTMERE_SINCE(10.12);
// - (void)invalidate; macOS 10.0
- (void)invalidate;
@end

@interface NSRunLoop : NSObject
// @property (class, readonly, strong) NSRunLoop *mainRunLoop; macOS 10.5
@property (class, readonly, strong) NSRunLoop* mainRunLoop;
// - (void)addTimer:(NSTimer *)timer forMode:(NSRunLoopMode)mode; macOS 10.0
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode;
// - (BOOL)runMode:(NSRunLoopMode)mode beforeDate:(NSDate *)limitDate; returns after one source
// other than a timer was handled, the main queue included; NO without any source; macOS 10.0
- (BOOL)runMode:(NSRunLoopMode)mode beforeDate:(NSDate*)limit;
@end

#pragma clang assume_nonnull end
