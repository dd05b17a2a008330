#pragma once

#include "macos/text.h"

#import <AppKit/AppKit.h>
#import <ServiceManagement/ServiceManagement.h>
#import <UserNotifications/UserNotifications.h>
#include <dispatch/dispatch.h>

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

// The stand-ins of the framework classes implement what cmake/cross/frameworks declares. They do
// what Apple documents as far as the program relies on it, and write down what they are asked.

namespace voltmere {

/// A block in a notification centre.
struct Registration {
    id token;
    id centre;
    std::string name; ///< of the notification
    void (^block)(id);
};

/// A Mac around the program: what a test sets, and what the program did.
struct Mac {
    std::vector<std::string> calls; ///< "Class selector" of each noted message, in order
    std::vector<std::string> drawn;

    bool hasBundle = true;
    std::string bundlePath = "/Applications/Voltmere.app";
    std::set<std::string> resources{"StatusIcon.png", "StatusIcon.icns", "AppIcon.icns"};
    std::string supportDirectory = "/nonexistent";
    std::map<std::string, id> defaults;
    std::vector<id> languages{@"en-GB"};
    bool isLoggedIn = true; ///< a session with windows

    SMAppServiceStatus loginItem = SMAppServiceStatusNotRegistered;
    SMAppServiceStatus loginItemAfterRegistration = SMAppServiceStatusEnabled;
    std::string loginItemFailure;

    NSString* appearance = NSAppearanceNameAqua; ///< of the system
    std::set<std::string> noImages;              ///< damaged resources and unknown symbols
    NSRect screen{{0, 0}, {1440, 900}};
    NSRect visibleScreen{{0, 40}, {1440, 836}};
    std::vector<NSRect> otherScreens;
    NSPoint pointer{-1, -1};
    NSUInteger pressedButtons = 0;
    NSRect statusWindow{{1000, 876}, {60, 24}}; ///< of the menu bar's item
    NSSize fittingSize{320, 400};
    std::function<void()> whileRunning; ///< what happens while the event loop runs

    std::deque<dispatch_block_t> mainQueue;
    std::deque<dispatch_block_t> background;
    std::vector<NSTimer*> timers;
    bool isTracking = false; ///< a menu or a control tracks the mouse: only the common modes run
    double awake = 1000;     ///< seconds of the machine's uptime
    double asleep = 0;
    int blocks = 0;          ///< of the queues that have run
    int idleTurns = 0;       ///< of the run loop, where only timers were left
    std::set<id> activities; ///< that keep the program from napping
    std::vector<Registration> observers;

    std::vector<__weak NSWindow*> windows;
    __weak NSWindow* panel; ///< the last one that takes the keyboard without activation
    __weak NSAlert* alert;  ///< the last one
    __weak NSWindow* keyWindow;
    __weak NSStatusItem* statusItem;
    bool isAgent = false;
    bool isActive = false;
    bool isHidden = false;
    bool isStopping = false;
    bool hasEvent = false;
};

extern Mac mac;

std::string text(NSString* text);
std::string text(NSRect rect);
std::string number(double value);
NSArray* array(const std::vector<id>& items);

/// What an object is, in one line, where the program cannot ask: a colour's name, a font's name and
/// size, an image's file.
std::string& summary(id object);
/// An object with that summary.
id made(id itsClass, const std::string& summary);
/// The one object of a class or of a class and a name, which no test counts as left.
id shared(id itsClass, const std::string& name = {});
/// Writes down a call with its arguments.
void note(id receiver, const std::string& call);

[[noreturn]] void raise(const std::string& reason);
/// Runs what the main queue holds now and what that adds. Returns how many blocks ran.
int drainMainQueue();
/// Runs the work for the background and what it posts, until nothing is left.
void settle();
/// Lets time pass, and fires timers when they are due.
void advance(double seconds);
/// Lets the machine sleep, which timers do not notice, and wakes it.
void sleepFor(double seconds);

void post(NSNotificationCenter* centre, NSString* name);
/// A click, or a press of the space bar.
void press(NSButton* button);
/// A person's choice in the menu of a pop-up button.
void choose(NSPopUpButton* popUp, NSInteger index);
/// Escape in the key window.
void pressEscape();
/// A mouse down in another program.
void clickElsewhere();

/// What drawing puts on the screen, of an image or a view.
std::vector<std::string> drawing(id shown);
/// Every view of a class below `view`, in order.
std::vector<id> viewsIn(NSView* view, id itsClass);

} // namespace voltmere

// What the program only sets, and what it never sees.

@interface NSConstantString : NSString {
@public
    const char* _bytes;
    unsigned int _length;
}
@end
@interface NSDictionary (Test)
- (id)objectForKey:(NSString*)key;
@end
@interface NSView ()
@property (copy) NSString* accessibilityLabel;
@property (getter=isAccessibilityElement) BOOL accessibilityElement;
@property (weak) NSWindow* ownWindow;
@property CGFloat gapAfter;               ///< in a stack; 0 for the stack's own
- (std::vector<std::string>&)constraints; ///< the active ones, as texts
/// What a person sees of it, from left to right; the rows of a column on lines of their own.
- (std::string)seen;
@end
@interface NSControl ()
@property NSEventMask eventMask;
- (void)sendAction;
@end
@interface NSButton ()
@property BOOL isHighlighted;
@property BOOL isCheckBox;
@end
@interface NSScreen ()
@property NSRect frame;
@property NSRect visibleFrame;
@end
@interface NSWindow ()
@property (getter=isVisible) BOOL visible;
@property NSRect frame;
@property NSWindowStyleMask styleMask;
@end
@interface NSStatusItem ()
@property (readwrite, strong) NSStatusBarButton* button;
@property (strong) NSWindow* window; ///< nil once it is removed
@end
