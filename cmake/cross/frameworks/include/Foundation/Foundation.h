// Foundation, as far as this program uses it. See ../README.md.
#pragma once

#include <CoreGraphics/CoreGraphics.h>

#include <objc/NSObject.h>
#include <objc/objc.h>

#define VOLTMERE_SINCE(version) __attribute__((availability(macos, introduced = version)))

#pragma clang assume_nonnull begin

@class NSArray<ObjectType>;
@class NSDictionary<KeyType, ObjectType>;
@class NSOperationQueue;
@class NSString;

typedef CGRect NSRect;
typedef CGSize NSSize;
typedef double NSTimeInterval;
typedef NSUInteger NSStringEncoding;

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

@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration>
// The literal @[...] calls it: + (instancetype)arrayWithObjects:(const ObjectType [])objects
//                                                         count:(NSUInteger)cnt; macOS 10.0
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nullable])objects
                           count:(NSUInteger)count;
// @property (readonly) NSUInteger count; macOS 10.0
@property (readonly) NSUInteger count;
// @property (nullable, readonly) ObjectType firstObject; macOS 10.6
@property (nullable, readonly) ObjectType firstObject;
@end

@interface NSMutableArray<ObjectType> : NSArray <ObjectType>
// + (instancetype)array; macOS 10.0
+ (instancetype)array;
// - (void)addObject:(ObjectType)anObject; macOS 10.0
- (void)addObject:(ObjectType)object;
@end

@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject
@end

@interface NSSet<__covariant ObjectType> : NSObject
// + (instancetype)setWithArray:(NSArray<ObjectType> *)array; macOS 10.0
+ (instancetype)setWithArray:(NSArray<ObjectType>*)array;
@end

@interface NSData : NSObject
// + (instancetype)dataWithBytes:(const void *)bytes length:(NSUInteger)length; macOS 10.0
+ (instancetype)dataWithBytes:(nullable const void*)bytes length:(NSUInteger)length;
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
@end

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

@interface NSOperationQueue : NSObject
// @property (class, readonly, strong) NSOperationQueue *mainQueue; macOS 10.6
@property (class, readonly, strong) NSOperationQueue* mainQueue;
@end

// Key-value observing; macOS 10.3
typedef NSString* NSKeyValueChangeKey;
typedef NSUInteger NSKeyValueObservingOptions;

@interface NSObject (NSKeyValueObserving)
// - (void)observeValueForKeyPath:(NSString *)keyPath ofObject:(id)object
//                         change:(NSDictionary<NSKeyValueChangeKey, id> *)change
//                        context:(void *)context;
- (void)observeValueForKeyPath:(nullable NSString*)keyPath
                      ofObject:(nullable id)object
                        change:(nullable NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(nullable void*)context;
// - (void)addObserver:(NSObject *)observer forKeyPath:(NSString *)keyPath
//             options:(NSKeyValueObservingOptions)options context:(void *)context;
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(nullable void*)context;
// - (void)removeObserver:(NSObject *)observer forKeyPath:(NSString *)keyPath
//                context:(void *)context; macOS 10.7
- (void)removeObserver:(NSObject*)observer
            forKeyPath:(NSString*)keyPath
               context:(nullable void*)context;
@end

@interface NSAppleEventDescriptor : NSObject
@end

// Apple events: an event is named by two four-character codes. Declared for the C interface in
// CoreServices; macOS 10.0
typedef unsigned int AEEventClass;
typedef unsigned int AEEventID;
enum : AEEventClass { kCoreEventClass = 'aevt' };
enum : AEEventID { kAEReopenApplication = 'rapp' };

@interface NSAppleEventManager : NSObject
// + (NSAppleEventManager *)sharedAppleEventManager; macOS 10.0
+ (NSAppleEventManager*)sharedAppleEventManager;
// - (void)setEventHandler:(id)handler andSelector:(SEL)handleEventSelector
//           forEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID; the selector
//           takes
// the event and the reply, both NSAppleEventDescriptor; macOS 10.0
- (void)setEventHandler:(id)handler
            andSelector:(SEL)selector
          forEventClass:(AEEventClass)eventClass
             andEventID:(AEEventID)eventID;
// - (void)removeEventHandlerForEventClass:(AEEventClass)eventClass
//                              andEventID:(AEEventID)eventID; macOS 10.0
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
@end

#pragma clang assume_nonnull end
