// Stand-ins of Foundation, ServiceManagement and UserNotifications, of the queues, and of time.

#include "mac.h"
#include "runtime.h"
#include "texts/utf8.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <ctime>
#include <fstream>
#include <stdexcept>

namespace voltmere {

Mac mac;

NSString* string(const std::string& text)
{
    return [[NSString alloc] initWithBytes:text.data()
                                    length:text.size()
                                  encoding:NSUTF8StringEncoding];
}

std::string text(NSString* text)
{
    return text == nil ? "nil" : text.UTF8String;
}

std::string number(double value)
{
    char line[32];
    std::snprintf(line, sizeof line, "%g", value);
    return line;
}

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
{
    mac.calls.push_back(class_getName([receiver class]) + (" " + call));
}

void raise(const std::string& reason)
{
    @throw made(NSException.class, reason);
}

static void runFirst(std::deque<dispatch_block_t>& queue)
{
    @autoreleasepool {
        const dispatch_block_t block = queue.front();
        queue.pop_front();
        block();
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
            one.notify(made(NSNotification.class, one.name));
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

static const char mainQueue = 'm';
static const char globalQueue = 'g';

dispatch_queue_t dispatch_get_main_queue()
{
    return &mainQueue;
}

dispatch_queue_t dispatch_get_global_queue(intptr_t quality, uintptr_t /*flags*/)
{
    return quality == QOS_CLASS_UTILITY ? &globalQueue : nullptr;
}

void dispatch_async(dispatch_queue_t queue, dispatch_block_t block)
{
    if (queue == &mainQueue) {
        mac.mainQueue.push_back(block);
    } else if (queue == &globalQueue) {
        mac.background.push_back(block);
    } else {
        raise("no such queue");
    }
}

// Values

@implementation NSString // a literal is no longer than NSConstantString declares
- (instancetype)initWithBytes:(const void*)bytes
                       length:(NSUInteger)length
                     encoding:(NSStringEncoding)encoding
{
    summary(self).assign(static_cast<const char*>(bytes), length);
    return encoding == NSUTF8StringEncoding && isValidUtf8(summary(self)) ? self : nil;
}
ANSWERS(-(const char*)UTF8String, summary(self).c_str())
ANSWERS(-(BOOL)isEqualToString : (NSString*)other, text(self) == text(other))
ANSWERS(-(BOOL)isEqual
        : (id)other, [other isKindOfClass:NSString.class] && [self isEqualToString:other])
ANSWERS(-(id)copyWithZone : (struct _NSZone*)zone, self)
@end
@implementation NSConstantString
ANSWERS(-(const char*)UTF8String, _bytes)
@end

@implementation NSNumber {
    double _double;
    long long _integer;
}
+ (NSNumber*)numberWithLongLong:(long long)value
{
    NSNumber* const number = [[self alloc] init];
    number->_integer = value;
    number->_double = static_cast<double>(value);
    return number;
}
+ (NSNumber*)numberWithDouble:(double)value
{
    NSNumber* const number = [[self alloc] init];
    number->_double = value;
    number->_integer = value >= 9.3e18 ? INT64_MAX : static_cast<long long>(value);
    return number;
}
ANSWERS(+(NSNumber*)numberWithBool : (BOOL)value, [self numberWithLongLong:value])
ANSWERS(+(NSNumber*)numberWithInt : (int)value, [self numberWithLongLong:value])
ANSWERS(+(NSNumber*)numberWithLong : (long)value, [self numberWithLongLong:value])
ANSWERS(-(long long)longLongValue, _integer)
ANSWERS(-(BOOL)isEqualToNumber
        : (NSNumber*)other, _integer == other->_integer && _double == other->_double)
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
ANSWERS(-(NSUInteger)count, _items.size())
ANSWERS(-(id)firstObject, _items.empty() ? nil : _items.front())
ANSWERS(-(BOOL)isEqualToArray
        : (NSArray*)other,
          std::equal(_items.begin(), _items.end(), other->_items.begin(), other->_items.end(),
                     [](id one, id two) { return [one isEqual:two]; }))
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)length
{
    static unsigned long unchanged = 0;
    NSUInteger given = 0;
    for (; given < length && state->state < _items.size(); ++given) {
        buffer[given] = _items[state->state++];
    }
    state->itemsPtr = buffer;
    state->mutationsPtr = &unchanged;
    return given;
}
@end
@implementation NSMutableArray
ANSWERS(+(instancetype)array, [[self alloc] init])
ANSWERS(-(id)copy, [NSArray arrayWithObjects:_items.data() count:_items.size()])
- (void)addObject:(id)object
{
    if (object == nil) {
        raise("nil is added to an array");
    }
    _items.push_back(object);
}
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
- (id)objectForKey:(NSString*)key
{
    const auto found = _items.find(text(key));
    return found == _items.end() ? nil : found->second;
}
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
@implementation NSURL
ANSWERS(-(NSString*)path, string(summary(self)))
@end
@implementation NSDate
ANSWERS(+(NSDate*)distantFuture, shared(self))
@end
@implementation NSException
ANSWERS(-(NSString*)reason, string(summary(self)))
@end
@implementation NSError
ANSWERS(-(NSString*)localizedDescription, string(summary(self)))
@end

// The program and its user

@implementation NSBundle
ANSWERS(+(NSBundle*)mainBundle, shared(self))
ANSWERS(-(NSString*)bundleIdentifier, mac.hasBundle ? @"org.voltmere.Voltmere" : nil)
ANSWERS(-(NSString*)bundlePath, string(mac.bundlePath))
ANSWERS(-(NSString*)resourcePath, string(mac.bundlePath + "/Contents/Resources"))
- (NSURL*)URLForResource:(NSString*)name withExtension:(NSString*)extension
{
    const std::string file = text(name) + "." + text(extension);
    return mac.resources.count(file) != 0 ? made(NSURL.class, file) : nil;
}
@end

@implementation NSUserDefaults
ANSWERS(+(NSUserDefaults*)standardUserDefaults, shared(self))
- (id)objectForKey:(NSString*)key
{
    const auto found = mac.defaults.find(text(key));
    return found == mac.defaults.end() ? nil : found->second;
}
- (void)setInteger:(NSInteger)value forKey:(NSString*)key
{
    note(self, text(key) + " = " + std::to_string(value));
    mac.defaults[text(key)] = [NSNumber numberWithLong:value];
}
- (void)setBool:(BOOL)value forKey:(NSString*)key
{
    note(self, text(key) + " = " + (value ? "YES" : "NO"));
    mac.defaults[text(key)] = [NSNumber numberWithBool:value];
}
@end

NSArray<NSString*>* NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                        NSSearchPathDomainMask domains, BOOL)
{
    const bool isUsers = directory == NSApplicationSupportDirectory && domains == NSUserDomainMask;
    return isUsers ? @[ string(mac.supportDirectory) ] : @[];
}

@implementation NSLocale
+ (NSArray<NSString*>*)preferredLanguages
{
    NSMutableArray* const all = [NSMutableArray array];
    for (const std::string& tag : mac.languages) {
        [all addObject:string(tag)];
    }
    return all;
}
@end

@implementation NSProcessInfo
ANSWERS(+(NSProcessInfo*)processInfo, shared(self))
ANSWERS(-(NSString*)operatingSystemVersionString, @"Version 14.5 (Build 23F79)")
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason
{
    if (options != NSActivityUserInitiatedAllowingIdleSystemSleep) {
        raise("this activity would keep the Mac awake");
    }
    return *mac.activities.insert(made(NSNotification.class, text(reason))).first;
}
DOES(-(void)endActivity : (id<NSObject>)activity, mac.activities.erase(activity))
@end

CFDictionaryRef CGSessionCopyCurrentDictionary()
{
    return mac.isLoggedIn ? (__bridge_retained CFDictionaryRef)[[NSDictionary alloc] init]
                          : nullptr;
}

void CFRelease(CFTypeRef object)
{
    (void)(__bridge_transfer id)object;
}

/// A format other than "%@" would read a text as one, so it is written down as it is.
void NSLog(NSString* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const bool isPlain = text(format) == "%@";
    mac.log.push_back(isPlain ? text(va_arg(arguments, __unsafe_unretained NSString*))
                              : "format: " + text(format));
    va_end(arguments);
    mac.calls.push_back("NSLog " + mac.log.back());
}

// Notifications within the program and between programs

@implementation NSNotification
@end
@implementation NSOperationQueue
ANSWERS(+(NSOperationQueue*)mainQueue, shared(self))
@end
@implementation NSNotificationCenter
ANSWERS(+(NSNotificationCenter*)defaultCenter, shared(self))
- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)object
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block
{
    id const token = made(NSNotification.class, "observer");
    mac.observers.push_back({token, self, text(name), 0, block, nil});
    return token;
}
DOES(-(void)removeObserver
     : (id)observer,
       std::erase_if(mac.observers, [=](const Registration& one) { return one.token == observer; }))
@end
@implementation NSDistributedNotificationCenter
ANSWERS(+(NSDistributedNotificationCenter*)defaultCenter, shared(self))
/// AppKit holds back a notification for a program that is not active.
- (void)postNotificationName:(NSNotificationName)name
                      object:(NSString*)object
                    userInfo:(NSDictionary*)userInfo
          deliverImmediately:(BOOL)deliverImmediately
{
    note(self, "post" + std::string(deliverImmediately ? " at once" : ""));
    if (deliverImmediately) {
        post(self, name);
    }
}
@end

@implementation NSObject (NSKeyValueObserving)
- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context
{
    raise("nobody handles the change of " + text(keyPath));
}
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(void*)context
{
    mac.appearanceObservers.push_back({observer, text(keyPath), context});
}
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath context:(void*)context
{
    std::erase_if(mac.appearanceObservers, [&](const KeyValueObserver& one) {
        return one.observer == observer && one.path == text(keyPath) && one.context == context;
    });
}
@end

// Time

NSRunLoopMode const NSDefaultRunLoopMode = @"default";
NSRunLoopMode const NSRunLoopCommonModes = @"common";

@implementation NSTimer {
@public
    double _due;
    double _interval;
    bool _repeats;
    bool _isCommon;
    void (^_block)(NSTimer*);
}
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                          repeats:(BOOL)repeats
                            block:(void (^)(NSTimer*))block
{
    NSTimer* const timer = [[NSTimer alloc] init];
    timer->_interval = interval;
    timer->_repeats = repeats;
    timer->_block = block;
    return timer;
}
- (void)invalidate
{
    _block = nil;
    std::erase(mac.timers, self);
}
@end

@implementation NSRunLoop
ANSWERS(+(NSRunLoop*)mainRunLoop, shared(self))
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode
{
    timer->_isCommon = mode == NSRunLoopCommonModes;
    timer->_due = mac.awake + std::max(timer->_interval, 0.0001);
    mac.timers.push_back(timer);
}
- (BOOL)runMode:(NSRunLoopMode)mode beforeDate:(NSDate*)limit
{
    if (!mac.mainQueue.empty()) {
        runFirst(mac.mainQueue);
    } else if (!mac.background.empty()) {
        runFirst(mac.background);
    } else if (!mac.timers.empty() && ++mac.idleTurns < 1000) {
        advance(60);
    } else {
        throw std::runtime_error("this run loop waits for ever");
    }
    return YES;
}
@end

static NSTimer* nextTimer(double end)
{
    NSTimer* next = nil;
    for (NSTimer* const timer : mac.timers) {
        if ((timer->_isCommon || !mac.isTracking) && timer->_due <= end &&
            (next == nil || timer->_due < next->_due)) {
            next = timer;
        }
    }
    return next;
}

void voltmere::advance(double seconds)
{
    const double end = mac.awake + seconds;
    settle();
    while (NSTimer* const timer = nextTimer(end)) {
        mac.awake = std::max(mac.awake, timer->_due);
        timer->_due += timer->_interval;
        void (^const block)(NSTimer*) = timer->_block;
        if (!timer->_repeats) {
            [timer invalidate];
        }
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
ANSWERS(+(SMAppService*)mainAppService, shared(self))
ANSWERS(-(SMAppServiceStatus)status, mac.loginItem)
- (BOOL)registerAndReturnError:(NSError**)error
{
    note(self, "register");
    return setLoginItem(mac.loginItemAfterRegistration, error);
}
- (BOOL)unregisterAndReturnError:(NSError**)error
{
    note(self, "unregister");
    return setLoginItem(SMAppServiceStatusNotRegistered, error);
}
@end

// The user's notifications

NSString* const UNNotificationDefaultActionIdentifier =
    @"com.apple.UNNotificationDefaultActionIdentifier";
NSString* const UNNotificationDismissActionIdentifier =
    @"com.apple.UNNotificationDismissActionIdentifier";

@implementation UNNotificationAction
+ (instancetype)actionWithIdentifier:(NSString*)identifier
                               title:(NSString*)title
                             options:(UNNotificationActionOptions)options
{
    return made(self, text(identifier) + "=" + text(title) + "/" + std::to_string(options));
}
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
@implementation UNNotificationSound
ANSWERS(+(UNNotificationSound*)defaultSound, shared(self))
@end
@implementation UNNotificationContent
@end
@implementation UNMutableNotificationContent
@end
@implementation UNNotificationTrigger
@end
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
@implementation UNNotificationResponse
ANSWERS(-(NSString*)actionIdentifier, string(summary(self)))
@end

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
DOES(-(void)setNotificationCategories
     : (NSSet*)categories, note(self, "categories " + summary(categories)))
- (void)addNotificationRequest:(UNNotificationRequest*)request
         withCompletionHandler:(void (^)(NSError*))handler
{
    note(self, "add " + summary(request));
    if (handler != nil) {
        handler(made(NSError.class, "refused"));
    }
}
@end
