// UserNotifications, as far as this program uses it. The framework is there since macOS 10.14; what
// came later says so. See ../README.md.
#pragma once

#include <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@class UNNotification;
@class UNNotificationRequest;
@class UNUserNotificationCenter;

// Options of - requestAuthorizationWithOptions:completionHandler:
typedef NSUInteger UNAuthorizationOptions;
enum : UNAuthorizationOptions {
    UNAuthorizationOptionBadge = 1 << 0,
    UNAuthorizationOptionSound = 1 << 1,
    UNAuthorizationOptionAlert = 1 << 2,
};

// How to present a notification while the program is in front. List and banner since macOS 11.
typedef NSUInteger UNNotificationPresentationOptions;
enum : UNNotificationPresentationOptions {
    UNNotificationPresentationOptionBadge = 1 << 0,
    UNNotificationPresentationOptionSound = 1 << 1,
    UNNotificationPresentationOptionList VOLTMERE_SINCE(11.0) = 1 << 3,
    UNNotificationPresentationOptionBanner VOLTMERE_SINCE(11.0) = 1 << 4,
};

typedef NSUInteger UNNotificationActionOptions;
enum : UNNotificationActionOptions {
    UNNotificationActionOptionNone = 0,
    UNNotificationActionOptionAuthenticationRequired = 1 << 0,
    UNNotificationActionOptionDestructive = 1 << 1,
    UNNotificationActionOptionForeground = 1 << 2,
};

typedef NSUInteger UNNotificationCategoryOptions;
enum : UNNotificationCategoryOptions { UNNotificationCategoryOptionNone = 0 };

// NSString *const UNNotificationDefaultActionIdentifier, UNNotificationDismissActionIdentifier
extern "C" NSString* const UNNotificationDefaultActionIdentifier;
extern "C" NSString* const UNNotificationDismissActionIdentifier;

@interface UNNotificationAction : NSObject
// + (instancetype)actionWithIdentifier:(NSString *)identifier title:(NSString *)title
//                              options:(UNNotificationActionOptions)options;
+ (instancetype)actionWithIdentifier:(NSString*)identifier
                               title:(NSString*)title
                             options:(UNNotificationActionOptions)options;
@end

@interface UNNotificationCategory : NSObject
// + (instancetype)categoryWithIdentifier:(NSString *)identifier
//                                actions:(NSArray<UNNotificationAction *> *)actions
//                      intentIdentifiers:(NSArray<NSString *> *)intentIdentifiers
//                                options:(UNNotificationCategoryOptions)options;
+ (instancetype)categoryWithIdentifier:(NSString*)identifier
                               actions:(NSArray<UNNotificationAction*>*)actions
                     intentIdentifiers:(NSArray<NSString*>*)intentIdentifiers
                               options:(UNNotificationCategoryOptions)options;
@end

@interface UNNotificationSound : NSObject
// @property (class, readonly, copy) UNNotificationSound *defaultSound;
@property (class, readonly, copy) UNNotificationSound* defaultSound;
@end

@interface UNNotificationContent : NSObject
@end

@interface UNMutableNotificationContent : UNNotificationContent
// @property (copy) NSString *title;
@property (copy) NSString* title;
// @property (copy) NSString *body;
@property (copy) NSString* body;
// @property (nullable, copy) UNNotificationSound *sound;
@property (nullable, copy) UNNotificationSound* sound;
// @property (copy) NSString *categoryIdentifier;
@property (copy) NSString* categoryIdentifier;
@end

@interface UNNotificationTrigger : NSObject
@end

@interface UNTimeIntervalNotificationTrigger : UNNotificationTrigger
// + (instancetype)triggerWithTimeInterval:(NSTimeInterval)timeInterval repeats:(BOOL)repeats;
// the interval must be above 0, and at least 60 for one that repeats, else it throws
+ (instancetype)triggerWithTimeInterval:(NSTimeInterval)timeInterval repeats:(BOOL)repeats;
@end

@interface UNNotificationRequest : NSObject
// + (instancetype)requestWithIdentifier:(NSString *)identifier
//                               content:(UNNotificationContent *)content
//                               trigger:(UNNotificationTrigger *)trigger; no trigger means at once
+ (instancetype)requestWithIdentifier:(NSString*)identifier
                              content:(UNNotificationContent*)content
                              trigger:(nullable UNNotificationTrigger*)trigger;
@end

@interface UNNotificationResponse : NSObject
// @property (readonly, copy) NSString *actionIdentifier;
@property (readonly, copy) NSString* actionIdentifier;
@end

// The system declares both as optional. Here they are required, so that a misspelt one of this
// program does not compile.
@protocol UNUserNotificationCenterDelegate <NSObject>
// - (void)userNotificationCenter:(UNUserNotificationCenter *)center
//        willPresentNotification:(UNNotification *)notification
//          withCompletionHandler:
//              (void (^)(UNNotificationPresentationOptions options))completionHandler;
- (void)userNotificationCenter:(UNUserNotificationCenter*)center
       willPresentNotification:(UNNotification*)notification
         withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))handler;
// - (void)userNotificationCenter:(UNUserNotificationCenter *)center
// didReceiveNotificationResponse:(UNNotificationResponse *)response
//          withCompletionHandler:(void (^)(void))completionHandler;
- (void)userNotificationCenter:(UNUserNotificationCenter*)center
    didReceiveNotificationResponse:(UNNotificationResponse*)response
             withCompletionHandler:(void (^)(void))handler;
@end

@interface UNUserNotificationCenter : NSObject
// + (UNUserNotificationCenter *)currentNotificationCenter; throws in a process without a bundle
+ (UNUserNotificationCenter*)currentNotificationCenter;
// @property (weak, nullable) id<UNUserNotificationCenterDelegate> delegate;
@property (weak, nullable) id<UNUserNotificationCenterDelegate> delegate;
// - (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options
//                       completionHandler:
//                           (void (^)(BOOL granted, NSError *error))completionHandler;
- (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options
                      completionHandler:(void (^)(BOOL granted, NSError* _Nullable error))handler;
// - (void)setNotificationCategories:(NSSet<UNNotificationCategory *> *)categories;
- (void)setNotificationCategories:(NSSet<UNNotificationCategory*>*)categories;
// - (void)addNotificationRequest:(UNNotificationRequest *)request
//          withCompletionHandler:(void (^)(NSError *error))completionHandler;
- (void)addNotificationRequest:(UNNotificationRequest*)request
         withCompletionHandler:(nullable void (^)(NSError* _Nullable error))handler;
@end

#pragma clang assume_nonnull end
