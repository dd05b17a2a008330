#include "app/platform.h"

#include "macos/text.h"

#import <UserNotifications/UserNotifications.h>

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
            self.receiver->willPresent(handler);
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
                                      handler);
        }
    });
}

@end

namespace voltmere {

namespace {

/// The notification centre of macOS. It knows programs by their bundle: in a process without one
/// the log says so once, and nothing is posted. The system keeps delayed notifications, so they
/// survive the program's end.
class UserNotifications : public NotificationCentre {
public:
    explicit UserNotifications(SystemLog& log)
    {
        delegate.owner = this;
        try {
            centre = [UNUserNotificationCenter currentNotificationCenter];
        } catch (...) { // an exception of Objective-C
            log.write("Voltmere: notifications need the application bundle; none are posted");
        }
    }

    ~UserNotifications() override { setDelegate(nullptr); }

    void requestAuthorisation(std::uint32_t options) override
    {
        [centre requestAuthorizationWithOptions:options completionHandler:^(BOOL, NSError*){}];
    }

    void setDelegate(NotificationCentreDelegate* receiver) override
    {
        delegate.receiver = receiver;
        centre.delegate = receiver == nullptr ? nil : delegate;
    }

    void setCategories(std::vector<NotificationCategory> categories) override
    {
        NSMutableArray<UNNotificationCategory*>* const list = [NSMutableArray array];
        for (const NotificationCategory& category : categories) {
            NSMutableArray<UNNotificationAction*>* const actions = [NSMutableArray array];
            for (const auto& [identifier, title, foreground] : category.actions) {
                const auto options = foreground ? UNNotificationActionOptionForeground
                                                : UNNotificationActionOptionNone;
                [actions addObject:[UNNotificationAction actionWithIdentifier:cocoaText(identifier)
                                                                        title:cocoaText(title)
                                                                      options:options]];
            }
            [list addObject:[UNNotificationCategory
                                categoryWithIdentifier:cocoaText(category.identifier)
                                               actions:actions
                                     intentIdentifiers:@[]
                                               options:UNNotificationCategoryOptionNone]];
        }
        [centre setNotificationCategories:[NSSet setWithArray:list]];
    }

    void add(NotificationRequest request) override
    {
        UNMutableNotificationContent* const content = [[UNMutableNotificationContent alloc] init];
        content.title = cocoaText(request.content.title);
        content.body = cocoaText(request.content.body);
        content.sound = request.content.defaultSound ? UNNotificationSound.defaultSound : nil;
        content.categoryIdentifier = cocoaText(request.content.category);
        // Without a trigger the system posts at once; a trigger without a delay is an exception.
        UNNotificationTrigger* const trigger = request.delay > Seconds::zero()
            ? [UNTimeIntervalNotificationTrigger triggerWithTimeInterval:request.delay->count()
                                                                 repeats:NO]
            : nil;
        NSString* const identifier = cocoaText(request.identifier);
        [centre addNotificationRequest:[UNNotificationRequest requestWithIdentifier:identifier
                                                                            content:content
                                                                            trigger:trigger]
                 withCompletionHandler:nil];
    }

private:
    UNUserNotificationCenter* centre = nil; ///< nil where the system has none for this process
    VoltmereNotificationDelegate* const delegate = [[VoltmereNotificationDelegate alloc] init];
};

} // namespace

std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& /*runLoop*/,
                                                           const Clock& /*clock*/, SystemLog& log)
{
    return std::make_unique<UserNotifications>(log);
}

} // namespace voltmere
