// Stand-ins of Foundation, ServiceManagement and UserNotifications, of the queues, and of time.

#include "mac.h"
#include "runtime.h"
#include "texts/plain_text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <stdexcept>

namespace voltmere {

Mac mac;

std::string text(NSString* text) RETURNS(text == nil ? "nil" : text.UTF8String);

std::string text(NSRect rect) RETURNS(number(rect.origin.x) + " " + number(rect.origin.y) + " " +
                                      number(rect.size.width) + " " + number(rect.size.height));

std::string number(double value)
{
    char line[32];
    std::snprintf(line, sizeof line, "%g", value);
    return line;
}

NSArray* array(const std::vector<id>& items) RETURNS([NSArray arrayWithObjects:items.data()
                                                                         count:items.size()]);

std::string& summary(id object)
{
    static std::map<const void*, std::string> all; // an address is never used again
    return all[(__bridge void*)object];
}

id made(id itsClass, const std::string& text)
{
    id const object = [(NSObject*)[itsClass alloc] init];
    summary(object) = text;
    return object;
}

id shared(id itsClass, const std::string& name)
{
    static std::map<std::string, id> all;
    __strong id& one = all[class_getName((Class)itsClass) + name];
    if (one == nil) {
        one = made(itsClass, name);
        --objc::liveObjects()[class_getName((Class)itsClass)];
    }
    return one;
}

void note(id receiver, const std::string& call)
    DOES(mac.calls.push_back(class_getName([receiver class]) + (" " + call)));
void raise(const std::string& reason) DOES(throw std::runtime_error(reason));

/// Writes down the messages whose order tests look at.
void objc::noteMessage(const std::string& className, const std::string& selector)
{
    static const std::string noted =
        " activateIgnoringOtherApps: center hide: layout layoutSubtreeIfNeeded makeFirstResponder: "
        "makeKeyAndOrderFront: orderFrontRegardless orderOut: registerAndReturnError: "
        "removeAllItems removeStatusItem: run setImage: setLevel: setToolTip: "
        "statusItemWithLength: unhideWithoutActivation ";
    if (noted.find(" " + selector + " ") != noted.npos) {
        mac.calls.push_back(className + " " + selector);
    }
}

static void runFirst(std::deque<dispatch_block_t>& queue)
{
    @autoreleasepool {
        const dispatch_block_t block = queue.front();
        queue.pop_front();
        block();
        ++mac.blocks;
    }
}

int drainMainQueue()
{
    int ran = 0;
    for (; !mac.mainQueue.empty(); ++ran) {
        runFirst(mac.mainQueue);
    }
    return ran;
}

void settle()
{
    while (drainMainQueue() > 0 || !mac.background.empty()) {
        if (!mac.background.empty()) {
            runFirst(mac.background);
        }
    }
}

void post(NSNotificationCenter* centre, NSString* name)
{
    const auto observers = mac.observers;
    for (const Registration& one : observers) {
        if (one.centre == centre && one.name == text(name)) {
            one.block(made(NSNotification.class, one.name));
        }
    }
}

void sleepFor(double seconds)
{
    mac.asleep += seconds;
    post(NSWorkspace.sharedWorkspace.notificationCenter, NSWorkspaceDidWakeNotification);
    settle();
}

} // namespace voltmere

using namespace voltmere;

// The queues

dispatch_queue_t dispatch_get_main_queue() RETURNS(&mac.mainQueue);
dispatch_queue_t dispatch_get_global_queue(intptr_t quality, uintptr_t /*flags*/)
    RETURNS(quality == QOS_CLASS_UTILITY ? &mac.background : nullptr);
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block) DOES(queue->push_back(block));

// Values

/// A class with one object, and a class whose summary can be asked.
#define ONE(Class, accessor)                                                                       \
    @implementation Class                                                                          \
    +(id)accessor RETURNS(shared(self)) @end
#define TEXT(Class, accessor)                                                                      \
    @implementation Class                                                                          \
    -(NSString*)accessor RETURNS(cocoaText(summary(self))) @end

@implementation NSString // a literal is no longer than NSConstantString declares
- (instancetype)initWithBytes:(const void*)bytes
                       length:(NSUInteger)length
                     encoding:(NSStringEncoding)encoding
{
    summary(self).assign(static_cast<const char*>(bytes), length);
    return encoding == NSUTF8StringEncoding && isValidUtf8(summary(self)) ? self : nil;
}
- (const char*)UTF8String RETURNS(summary(self).c_str());
- (BOOL)isEqualToString:(NSString*)other RETURNS(text(self) == text(other));
- (BOOL)isEqual:(id)other RETURNS([self isEqualToString:other]);
- (id)copyWithZone:(struct _NSZone*)zone RETURNS(self);
/// In the system's font of 13 points a character takes 6 points, and a line 16.
- (NSSize)sizeWithAttributes:(NSDictionary<NSAttributedStringKey, id>*)attributes
{
    const bool isUsual = summary([attributes objectForKey:NSFontAttributeName]) == "regular 13";
    return NSMakeSize((isUsual ? 6.0 : 11.0) * static_cast<double>(text(self).size()), 16);
}
- (void)drawAtPoint:(NSPoint)point withAttributes:(NSDictionary*)attributes
{
    if (!text(self).empty()) {
        mac.drawn.push_back(text(self) + " at " + number(point.x) + " " + number(point.y) + " " +
                            summary([attributes objectForKey:NSFontAttributeName]) + " " +
                            summary([attributes objectForKey:NSForegroundColorAttributeName]));
    }
}
@end
@implementation NSConstantString
- (const char*)UTF8String RETURNS(_bytes);
@end

@implementation NSNumber {
    long double _value; // wide enough for each integer of 64 bits
}
static NSNumber* boxed(long double value)
{
    NSNumber* const number = [[NSNumber alloc] init];
    number->_value = value;
    return number;
}
+ (NSNumber*)numberWithBool:(BOOL)value RETURNS(boxed(value));
+ (NSNumber*)numberWithInt:(int)value RETURNS(boxed(value));
+ (NSNumber*)numberWithLong:(long)value RETURNS(boxed(value));
+ (NSNumber*)numberWithLongLong:(long long)value RETURNS(boxed(value));
+ (NSNumber*)numberWithDouble:(double)value RETURNS(boxed(value));
- (long long)longLongValue RETURNS(_value >= 9.2e18L ? INT64_MAX : static_cast<long long>(_value));
- (BOOL)isEqualToNumber:(NSNumber*)other RETURNS(_value == other->_value);
@end

@implementation NSArray {
@protected
    std::vector<id> _items;
}
+ (instancetype)arrayWithObjects:(const id[])objects count:(NSUInteger)count
{
    NSArray* const array = [[self alloc] init];
    array->_items.assign(objects, objects + count);
    return array;
}
- (NSUInteger)count RETURNS(_items.size());
- (id)firstObject RETURNS(_items.empty() ? nil : _items.front());
- (BOOL)isEqualToArray:(NSArray*)other
{
    return std::ranges::equal(_items, other->_items,
                              [](id one, id two) { return [one isEqual:two]; });
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)length
{
    state->itemsPtr = reinterpret_cast<id __unsafe_unretained*>(_items.data());
    state->mutationsPtr = &state->extra[0];
    return state->state++ == 0 ? _items.size() : 0;
}
@end
@implementation NSMutableArray
+ (instancetype)array RETURNS([[self alloc] init]);
- (void)addObject:(id)object DOES(_items.push_back(object));
@end

@implementation NSDictionary {
    std::map<std::string, id> _items;
}
+ (instancetype)dictionaryWithObjects:(const id[])objects
                              forKeys:(const id<NSCopying>[])keys
                                count:(NSUInteger)count
{
    NSDictionary* const dictionary = [[self alloc] init];
    for (NSUInteger i = 0; i < count; ++i) {
        dictionary->_items[text((NSString*)keys[i])] = objects[i];
    }
    return dictionary;
}
- (id)objectForKey:(NSString*)key RETURNS(_items[text(key)]);
@end
@implementation NSSet
+ (instancetype)setWithArray:(NSArray*)array
{
    std::string all;
    for (id const item in array) {
        all += summary(item);
    }
    return made(self, all);
}
@end
@implementation NSData
- (BOOL)writeToFile:(NSString*)path atomically:(BOOL)atomically
{
    std::ofstream file(text(path), std::ios::binary);
    file << summary(self);
    return file.good();
}
@end
EMPTY(NSURL)
ONE(NSDate, distantFuture)
TEXT(NSError, localizedDescription)

// The program and its user

@implementation NSBundle
+ (NSBundle*)mainBundle RETURNS(shared(self));
- (NSString*)bundleIdentifier RETURNS(mac.hasBundle ? @"org.voltmere.Voltmere" : nil);
- (NSString*)bundlePath RETURNS(cocoaText(mac.bundlePath));
- (NSString*)resourcePath RETURNS(cocoaText(mac.bundlePath + "/Contents/Resources"));
- (NSURL*)URLForResource:(NSString*)name withExtension:(NSString*)extension
{
    const std::string file = text(name) + "." + text(extension);
    return mac.resources.count(file) != 0 ? made(NSURL.class, file) : nil;
}
@end

@implementation NSUserDefaults
+ (NSUserDefaults*)standardUserDefaults RETURNS(shared(self));
- (id)objectForKey:(NSString*)key
    RETURNS(mac.defaults.count(text(key)) == 0 ? nil : mac.defaults[text(key)]);
static void set(NSString* key, NSNumber* value, const std::string& shown)
{
    note(NSUserDefaults.standardUserDefaults, text(key) + " = " + shown);
    mac.defaults[text(key)] = value;
}
- (void)setInteger:(NSInteger)value
            forKey:(NSString*)key DOES(set(key, boxed(value), std::to_string(value)));
- (void)setBool:(BOOL)value
         forKey:(NSString*)key DOES(set(key, boxed(value), value ? "YES" : "NO"));
@end

NSArray<NSString*>* NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                        NSSearchPathDomainMask domains, BOOL)
{
    const bool isUsers = directory == NSApplicationSupportDirectory && domains == NSUserDomainMask;
    return isUsers ? @[ cocoaText(mac.supportDirectory) ] : @[];
}

@implementation NSLocale
+ (NSArray<NSString*>*)preferredLanguages RETURNS(array(mac.languages));
@end

@implementation NSProcessInfo
+ (NSProcessInfo*)processInfo RETURNS(shared(self));
- (NSString*)operatingSystemVersionString RETURNS(@"Version 14.5 (Build 23F79)");
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason
{
    if (options != NSActivityUserInitiatedAllowingIdleSystemSleep) {
        raise("this activity would keep the Mac awake");
    }
    return *mac.activities.insert(made(NSNotification.class, text(reason))).first;
}
- (void)endActivity:(id<NSObject>)activity DOES(mac.activities.erase(activity));
@end

CFDictionaryRef CGSessionCopyCurrentDictionary()
{
    return mac.isLoggedIn ? (__bridge_retained CFDictionaryRef) @{} : nullptr;
}

/// A format other than "%@" would read a text as one, so it is written down as it is.
void NSLog(NSString* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    NSString* const line = va_arg(arguments, __unsafe_unretained NSString*);
    mac.calls.push_back("NSLog " + text(text(format) == "%@" ? line : format));
    va_end(arguments);
}

// Notifications within the program and between programs

EMPTY(NSNotification)
@implementation NSNotificationCenter
- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)object
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block
{
    mac.observers.push_back({made(NSNotification.class, ""), self, text(name), (id)block});
    return mac.observers.back().token;
}
- (void)removeObserver:(id)observer
{
    std::erase_if(mac.observers, [&](const Registration& one) { return one.token == observer; });
}
@end
@implementation NSDistributedNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter RETURNS(shared(self));
/// AppKit holds back a notification for a program that is not active.
- (void)postNotificationName:(NSNotificationName)name
                      object:(NSString*)object
                    userInfo:(NSDictionary*)userInfo
          deliverImmediately:(BOOL)deliverImmediately
{
    if (deliverImmediately) {
        post(self, name);
    }
}
@end

// Time

NSRunLoopMode const NSDefaultRunLoopMode = @"default";
NSRunLoopMode const NSRunLoopCommonModes = @"common";

@interface NSTimer ()
@property double due;
@property BOOL isCommon;
@property (copy) void (^block)(NSTimer*);
@end
@implementation NSTimer
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                          repeats:(BOOL)repeats
                            block:(void (^)(NSTimer*))block
{
    NSTimer* const timer = [[NSTimer alloc] init];
    timer.due = mac.awake + std::max(interval, 0.0001);
    timer.block = repeats ? ^(NSTimer*) { raise("a timer repeats"); } : block;
    return timer;
}
- (void)invalidate DOES(self.block = nil; std::erase(mac.timers, self));
@end

@implementation NSRunLoop
+ (NSRunLoop*)mainRunLoop RETURNS(shared(self));
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode
{
    timer.isCommon = mode == NSRunLoopCommonModes;
    mac.timers.push_back(timer);
}
/// A timer alone does not make it return.
- (BOOL)runMode:(NSRunLoopMode)mode beforeDate:(NSDate*)limit
{
    for (const int before = mac.blocks; mac.blocks == before;) {
        if (!mac.mainQueue.empty() || !mac.background.empty()) {
            runFirst(mac.mainQueue.empty() ? mac.background : mac.mainQueue);
        } else if (!mac.timers.empty() && ++mac.idleTurns < 50) {
            advance(60);
        } else {
            throw std::runtime_error("this run loop waits for ever");
        }
    }
    return YES;
}
@end

/// The timer that is due first, among those that run now.
static NSTimer* nextTimer()
{
    NSTimer* next = nil;
    for (NSTimer* const timer : mac.timers) {
        const bool runs = timer.isCommon || !mac.isTracking;
        next = runs && (next == nil || timer.due < next.due) ? timer : next;
    }
    return next;
}

void voltmere::advance(double seconds)
{
    const double end = mac.awake + seconds;
    settle();
    for (NSTimer* timer = nextTimer(); timer != nil && timer.due <= end; timer = nextTimer()) {
        mac.awake = timer.due;
        void (^const block)(NSTimer*) = timer.block;
        [timer invalidate];
        @autoreleasepool {
            block(timer);
        }
        settle();
    }
    mac.awake = end;
}

/// The linker puts this in place of the system's for the program: on a Mac this clock goes on while
/// the machine sleeps.
extern "C" int __real_clock_gettime(clockid_t clock, timespec* result);
extern "C" int __wrap_clock_gettime(clockid_t clock, timespec* result)
{
    if (clock != CLOCK_MONOTONIC) {
        return __real_clock_gettime(clock, result);
    }
    const double uptime = mac.awake + mac.asleep;
    result->tv_sec = static_cast<time_t>(uptime);
    result->tv_nsec = static_cast<long>((uptime - static_cast<double>(result->tv_sec)) * 1e9);
    return 0;
}

// Launch at login

static BOOL setLoginItem(SMAppServiceStatus status, NSError* __autoreleasing* error)
{
    if (mac.loginItemFailure.empty()) {
        mac.loginItem = status;
        return YES;
    }
    if (error != nullptr) {
        *error = made(NSError.class, mac.loginItemFailure);
    }
    return NO;
}
@implementation SMAppService
+ (SMAppService*)mainAppService RETURNS(shared(self));
- (SMAppServiceStatus)status RETURNS(mac.loginItem);
- (BOOL)registerAndReturnError:(NSError**)error
    RETURNS(setLoginItem(mac.loginItemAfterRegistration, error));
- (BOOL)unregisterAndReturnError:(NSError**)error
    RETURNS(setLoginItem(SMAppServiceStatusNotRegistered, error));
@end

// The user's notifications

@implementation UNNotificationAction
+ (instancetype)actionWithIdentifier:(NSString*)identifier
                               title:(NSString*)title
                             options:(UNNotificationActionOptions)options
    RETURNS(made(self, text(identifier) + "=" + text(title) + "/" + std::to_string(options)));
@end
@implementation UNNotificationCategory
+ (instancetype)categoryWithIdentifier:(NSString*)identifier
                               actions:(NSArray<UNNotificationAction*>*)actions
                     intentIdentifiers:(NSArray<NSString*>*)intents
                               options:(UNNotificationCategoryOptions)options
{
    std::string all = text(identifier) + (options == 0 && intents.count == 0 ? "" : " wrong");
    for (UNNotificationAction* const action in actions) {
        all += ", " + summary(action);
    }
    return made(self, all);
}
@end
ONE(UNNotificationSound, defaultSound)
EMPTY(UNNotificationContent)
EMPTY(UNMutableNotificationContent)
EMPTY(UNNotificationTrigger)
@implementation UNTimeIntervalNotificationTrigger
+ (instancetype)triggerWithTimeInterval:(NSTimeInterval)interval repeats:(BOOL)repeats
{
    if (!(interval > 0)) {
        raise("time interval must be greater than 0");
    }
    return made(self, (repeats ? "every " : "in ") + number(interval));
}
@end
@implementation UNNotificationRequest
+ (instancetype)requestWithIdentifier:(NSString*)identifier
                              content:(UNNotificationContent*)content
                              trigger:(UNNotificationTrigger*)trigger
{
    UNMutableNotificationContent* const all = (UNMutableNotificationContent*)content;
    return made(self,
                text(identifier) + "|" + text(all.title) + "|" + text(all.body) + "|" +
                    (all.sound != nil ? "sound" : "silent") + "|" + text(all.categoryIdentifier) +
                    "|" + (trigger == nil ? "at once" : summary(trigger)));
}
@end
TEXT(UNNotificationResponse, actionIdentifier)

@implementation UNUserNotificationCenter
+ (UNUserNotificationCenter*)currentNotificationCenter
{
    if (!mac.hasBundle) {
        raise("bundleProxyForCurrentProcess is nil");
    }
    return shared(self);
}
- (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options
                      completionHandler:(void (^)(BOOL, NSError*))handler
{
    note(self, "authorise " + std::to_string(options));
    handler(NO, made(NSError.class, "refused"));
}
- (void)setNotificationCategories:(NSSet*)categories
    DOES(note(self, "categories " + summary(categories)));
- (void)addNotificationRequest:(UNNotificationRequest*)request
         withCompletionHandler:(void (^)(NSError*))handler
    DOES(note(self, "add " + summary(request)));
@end
