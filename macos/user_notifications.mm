#include "macos/user_notifications.h"

#include "macos/cocoa_text.h"
#include "macos/notification_rules.h"

#import <UserNotifications/UserNotifications.h>

#include <dispatch/dispatch.h>

static_assert(voltmere::authorisation::sound == UNAuthorizationOptionSound);
static_assert(voltmere::authorisation::alert == UNAuthorizationOptionAlert);
static_assert(voltmere::presentation::sound == UNNotificationPresentationOptionSound);
static_assert(voltmere::presentation::banner == UNNotificationPresentationOptionBanner);

/// Hands what the centre says, on whatever thread, to the delegate in C++ on the main thread.
@interface VoltmereNotificationDelegate : NSObject <UNUserNotificationCenterDelegate>
- (instancetype)initWithOwner:(voltmere::NotificationCentre*)owner;
- (void)setReceiver:(voltmere::NotificationCentreDelegate*)receiver;
@end

@implementation VoltmereNotificationDelegate {
    voltmere::NotificationCentre* _owner;
    voltmere::NotificationCentreDelegate* _receiver; // null once the owner is gone
}

- (instancetype)initWithOwner:(voltmere::NotificationCentre*)owner
{
    self = [super init];
    if (self != nil) {
        _owner = owner;
    }
    return self;
}

- (void)setReceiver:(voltmere::NotificationCentreDelegate*)receiver
{
    _receiver = receiver;
}

- (void)userNotificationCenter:(UNUserNotificationCenter*)__unused center
       willPresentNotification:(UNNotification*)__unused notification
         withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))handler
{
    dispatch_async(dispatch_get_main_queue(), ^{
        if (self->_receiver == nullptr) {
            handler(0);
        } else {
            self->_receiver->willPresent(
                [handler](std::uint32_t presentation) { handler(presentation); });
        }
    });
}

- (void)userNotificationCenter:(UNUserNotificationCenter*)__unused center
    didReceiveNotificationResponse:(UNNotificationResponse*)response
             withCompletionHandler:(void (^)(void))handler
{
    NSString* const identifier = response.actionIdentifier;
    dispatch_async(dispatch_get_main_queue(), ^{
        if (self->_receiver == nullptr) {
            handler();
        } else {
            self->_receiver->didReceive(*self->_owner, voltmere::utf8Text(identifier),
                                        [handler] { handler(); });
        }
    });
}

@end

namespace voltmere {

namespace {

UNUserNotificationCenter* currentCentre(SystemLog& log)
{
    if (NSBundle.mainBundle.bundleIdentifier == nil) {
        log.write("Voltmere: notifications need the application bundle; none are posted");
        return nil;
    }
    return [UNUserNotificationCenter currentNotificationCenter];
}

UNNotificationAction* cocoaAction(const NotificationAction& action)
{
    return [UNNotificationAction
        actionWithIdentifier:cocoaText(action.identifier)
                       title:cocoaText(action.title)
                     options:action.foreground ? UNNotificationActionOptionForeground
                                               : UNNotificationActionOptionNone];
}

UNNotificationCategory* cocoaCategory(const NotificationCategory& category)
{
    NSMutableArray<UNNotificationAction*>* const actions = [NSMutableArray array];
    for (const NotificationAction& action : category.actions) {
        [actions addObject:cocoaAction(action)];
    }
    return [UNNotificationCategory categoryWithIdentifier:cocoaText(category.identifier)
                                                  actions:actions
                                        intentIdentifiers:@[]
                                                  options:UNNotificationCategoryOptionNone];
}

UNNotificationContent* cocoaContent(const NotificationContent& content)
{
    UNMutableNotificationContent* const result = [[UNMutableNotificationContent alloc] init];
    result.title = cocoaText(content.title);
    result.body = cocoaText(content.body);
    result.sound = content.defaultSound ? UNNotificationSound.defaultSound : nil;
    result.categoryIdentifier = cocoaText(content.category);
    return result;
}

UNNotificationTrigger* cocoaTrigger(const NotificationRequest& request)
{
    const std::optional<double> interval = triggerInterval(request);
    return interval
        ? [UNTimeIntervalNotificationTrigger triggerWithTimeInterval:*interval repeats:NO]
        : nil;
}

} // namespace

struct UserNotifications::Cocoa {
    UNUserNotificationCenter* centre;
    VoltmereNotificationDelegate* delegate; // the centre holds it weakly
};

UserNotifications::UserNotifications(SystemLog& log)
    : cocoa(std::make_unique<Cocoa>(currentCentre(log),
                                    [[VoltmereNotificationDelegate alloc] initWithOwner:this]))
{
}

UserNotifications::~UserNotifications()
{
    setDelegate(nullptr);
}

void UserNotifications::requestAuthorisation(std::uint32_t options)
{
    [cocoa->centre requestAuthorizationWithOptions:options completionHandler:^(BOOL, NSError*){}];
}

void UserNotifications::setDelegate(NotificationCentreDelegate* delegate)
{
    [cocoa->delegate setReceiver:delegate];
    cocoa->centre.delegate = delegate == nullptr ? nil : cocoa->delegate;
}

void UserNotifications::setCategories(std::vector<NotificationCategory> categories)
{
    NSMutableArray<UNNotificationCategory*>* const list = [NSMutableArray array];
    for (const NotificationCategory& category : categories) {
        [list addObject:cocoaCategory(category)];
    }
    [cocoa->centre setNotificationCategories:[NSSet setWithArray:list]];
}

void UserNotifications::add(NotificationRequest request)
{
    [cocoa->centre addNotificationRequest:[UNNotificationRequest
                                              requestWithIdentifier:cocoaText(request.identifier)
                                                            content:cocoaContent(request.content)
                                                            trigger:cocoaTrigger(request)]
                    withCompletionHandler:nil];
}

} // namespace voltmere
