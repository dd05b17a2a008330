#include "macos/notifications.h"

#include "macos/text.h"

#include <dispatch/dispatch.h>

static_assert(voltmere::authorisation::sound == UNAuthorizationOptionSound);
static_assert(voltmere::authorisation::alert == UNAuthorizationOptionAlert);
static_assert(voltmere::presentation::sound == UNNotificationPresentationOptionSound);
static_assert(voltmere::presentation::banner == UNNotificationPresentationOptionBanner);

/// Passes the centre's calls, which come on any thread, to the delegate in C++ on the main thread.
@interface VoltmereNotificationDelegate : NSObject <UNUserNotificationCenterDelegate>
@property (nonatomic) voltmere::NotificationCentre* owner;
@property (nonatomic) voltmere::NotificationCentreDelegate* receiver; // null once the owner is gone
@end

@implementation VoltmereNotificationDelegate

- (void)userNotificationCenter:(UNUserNotificationCenter*)__unused center
       willPresentNotification:(UNNotification*)__unused notification
         withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))handler
{
    dispatch_async(dispatch_get_main_queue(), ^{
        if (self.receiver == nullptr) {
            handler(0);
        } else {
            self.receiver->willPresent([handler](std::uint32_t options) { handler(options); });
        }
    });
}

- (void)userNotificationCenter:(UNUserNotificationCenter*)__unused center
    didReceiveNotificationResponse:(UNNotificationResponse*)response
             withCompletionHandler:(void (^)(void))handler
{
    dispatch_async(dispatch_get_main_queue(), ^{
        if (self.receiver == nullptr) {
            handler();
        } else {
            self.receiver->didReceive(*self.owner, voltmere::utf8Text(response.actionIdentifier),
                                      [handler] { handler(); });
        }
    });
}

@end

namespace voltmere {

namespace {

UNUserNotificationCenter* currentCentre(SystemLog& log)
{
    @try {
        return [UNUserNotificationCenter currentNotificationCenter];
    } @catch (NSException* exception) {
        log.write("Voltmere: notifications need the application bundle; none are posted (" +
                  utf8Text(exception.reason) + ")");
        return nil;
    }
}

UNNotificationCategory* cocoaCategory(const NotificationCategory& category)
{
    NSMutableArray<UNNotificationAction*>* const actions = [NSMutableArray array];
    for (const NotificationAction& action : category.actions) {
        [actions
            addObject:[UNNotificationAction actionWithIdentifier:cocoaText(action.identifier)
                                                           title:cocoaText(action.title)
                                                         options:action.foreground
                                                             ? UNNotificationActionOptionForeground
                                                             : UNNotificationActionOptionNone]];
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

/// Nil means at once. The system raises an exception for an interval of zero or below.
UNNotificationTrigger* cocoaTrigger(const std::optional<Seconds>& delay)
{
    if (!delay || !(*delay > Seconds::zero())) {
        return nil;
    }
    return [UNTimeIntervalNotificationTrigger triggerWithTimeInterval:delay->count() repeats:NO];
}

} // namespace

UserNotifications::UserNotifications(SystemLog& log)
    : centre(currentCentre(log))
    , delegate([[VoltmereNotificationDelegate alloc] init])
{
    delegate.owner = this;
}

UserNotifications::~UserNotifications()
{
    setDelegate(nullptr);
}

void UserNotifications::requestAuthorisation(std::uint32_t options)
{
    [centre requestAuthorizationWithOptions:options completionHandler:^(BOOL, NSError*){}];
}

void UserNotifications::setDelegate(NotificationCentreDelegate* receiver)
{
    delegate.receiver = receiver;
    centre.delegate = receiver == nullptr ? nil : delegate;
}

void UserNotifications::setCategories(std::vector<NotificationCategory> categories)
{
    NSMutableArray<UNNotificationCategory*>* const list = [NSMutableArray array];
    for (const NotificationCategory& category : categories) {
        [list addObject:cocoaCategory(category)];
    }
    [centre setNotificationCategories:[NSSet setWithArray:list]];
}

void UserNotifications::add(NotificationRequest request)
{
    [centre addNotificationRequest:[UNNotificationRequest
                                       requestWithIdentifier:cocoaText(request.identifier)
                                                     content:cocoaContent(request.content)
                                                     trigger:cocoaTrigger(request.delay)]
             withCompletionHandler:nil];
}

} // namespace voltmere
