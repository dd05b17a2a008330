// AppKit, as far as this program uses it. See ../README.md.
#pragma once

#include <Foundation/Foundation.h>

#include <sys/types.h>

#pragma clang assume_nonnull begin

typedef NSString* NSAppearanceName;

// NSAppearanceName const NSAppearanceNameAqua; macOS 10.9. ...DarkAqua; macOS 10.14
extern "C" NSAppearanceName const NSAppearanceNameAqua;
extern "C" NSAppearanceName const NSAppearanceNameDarkAqua VOLTMERE_SINCE(10.14);

@interface NSAppearance : NSObject
// - (NSAppearanceName)bestMatchFromAppearancesWithNames:
//                         (NSArray<NSAppearanceName> *)appearances; macOS 10.14
- (nullable NSAppearanceName)bestMatchFromAppearancesWithNames:
    (NSArray<NSAppearanceName>*)appearances VOLTMERE_SINCE(10.14);
@end

@interface NSResponder : NSObject
@end

@interface NSApplication : NSResponder
// @property (class, readonly, strong) __kindof NSApplication *sharedApplication; macOS 10.0
@property (class, readonly, strong) __kindof NSApplication* sharedApplication;
// @property (readonly, strong) NSAppearance *effectiveAppearance; observable by key value;
// macOS 10.14
@property (readonly, strong) NSAppearance* effectiveAppearance VOLTMERE_SINCE(10.14);
// - (void)activateIgnoringOtherApps:(BOOL)flag; macOS 10.0, deprecated from macOS 14
- (void)activateIgnoringOtherApps:(BOOL)flag;
@end

typedef NSInteger NSWindowLevel;

// NSWindowLevel NSFloatingWindowLevel, which is 3; macOS 10.0
enum : NSWindowLevel { NSFloatingWindowLevel = 3 };

@interface NSWindow : NSResponder
// @property NSWindowLevel level; macOS 10.0
@property NSWindowLevel level;
// @property (readonly) NSRect frame; in screen coordinates, the origin at the bottom left;
// macOS 10.0
@property (readonly) NSRect frame;
// - (NSRect)convertRectToScreen:(NSRect)rect; macOS 10.7
- (NSRect)convertRectToScreen:(NSRect)rect;
@end

@interface NSView : NSResponder
// @property (nullable, readonly, assign) NSWindow *window; macOS 10.0
@property (nullable, readonly, assign) NSWindow* window;
// @property NSRect bounds; macOS 10.0
@property NSRect bounds;
// @property (copy) NSString *toolTip; macOS 10.0
@property (copy, nullable) NSString* toolTip;
// - (NSRect)convertRect:(NSRect)rect toView:(NSView *)view; nil stands for the window; macOS 10.0
- (NSRect)convertRect:(NSRect)rect toView:(nullable NSView*)view;
// - (void)setAccessibilityLabel:(NSString *)accessibilityLabel, of NSAccessibility; macOS 10.10
- (void)setAccessibilityLabel:(nullable NSString*)label;
@end

@interface NSScreen : NSObject
// @property (class, readonly, copy) NSArray<NSScreen *> *screens; the first one has the origin of
// the screen coordinates; macOS 10.0
@property (class, readonly, copy) NSArray<NSScreen*>* screens;
// @property (readonly) NSRect frame; macOS 10.0
@property (readonly) NSRect frame;
@end

@interface NSImageRep : NSObject
// @property NSSize size; in points; macOS 10.0
@property NSSize size;
@end

@interface NSBitmapImageRep : NSImageRep
// + (instancetype)imageRepWithData:(NSData *)data; nil when no image can be made; macOS 10.0
+ (nullable instancetype)imageRepWithData:(NSData*)data;
@end

@interface NSImage : NSObject
// - (instancetype)initWithSize:(NSSize)size; macOS 10.0
- (instancetype)initWithSize:(NSSize)size;
// - (void)addRepresentation:(NSImageRep *)imageRep; macOS 10.0
- (void)addRepresentation:(NSImageRep*)representation;
// @property (getter=isTemplate) BOOL template; macOS 10.5. C++ has the word for itself, hence the
// setter by its own name.
- (void)setTemplate:(BOOL)isTemplate;
@end

// NSImageScaling NSImageScaleNone, which is 2; macOS 10.5
typedef NSUInteger NSImageScaling;
enum : NSImageScaling { NSImageScaleNone = 2 };

// NSEventMask NSEventMaskLeftMouseDown, which is bit 1, and NSEventMaskRightMouseDown, bit 3;
// macOS 10.12
typedef unsigned long long NSEventMask;
enum : NSEventMask {
    NSEventMaskLeftMouseDown = 1ULL << 1,
    NSEventMaskRightMouseDown = 1ULL << 3,
};

@interface NSControl : NSView
// @property (nullable, weak) id target; macOS 10.0
@property (nullable, weak) id target;
// @property (nullable) SEL action; macOS 10.0
@property (nullable) SEL action;
// - (NSInteger)sendActionOn:(NSEventMask)mask; macOS 10.0
- (NSInteger)sendActionOn:(NSEventMask)mask;
@end

@interface NSButton : NSControl
// @property (nullable, strong) NSImage *image; macOS 10.0
@property (nullable, strong) NSImage* image;
// @property NSImageScaling imageScaling; macOS 10.5
@property NSImageScaling imageScaling;
@end

// macOS 10.10
@interface NSStatusBarButton : NSButton
@end

// const CGFloat NSVariableStatusItemLength, which is -1; macOS 10.0
static const CGFloat NSVariableStatusItemLength = -1.0;

@interface NSStatusItem : NSObject
// @property (nullable, readonly, strong) NSStatusBarButton *button; macOS 10.10
@property (nullable, readonly, strong) NSStatusBarButton* button;
@end

@interface NSStatusBar : NSObject
// @property (class, readonly, strong) NSStatusBar *systemStatusBar; macOS 10.0
@property (class, readonly, strong) NSStatusBar* systemStatusBar;
// - (NSStatusItem *)statusItemWithLength:(CGFloat)length; the caller keeps it; macOS 10.0
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
// - (void)removeStatusItem:(NSStatusItem *)item; macOS 10.0
- (void)removeStatusItem:(NSStatusItem*)item;
@end

// NSNotificationName const NSWorkspaceDidWakeNotification, posted to the workspace's own centre;
// macOS 10.3
extern "C" NSNotificationName const NSWorkspaceDidWakeNotification;

@interface NSWorkspace : NSObject
// @property (class, readonly, strong) NSWorkspace *sharedWorkspace; macOS 10.0
@property (class, readonly, strong) NSWorkspace* sharedWorkspace;
// @property (readonly, strong) NSNotificationCenter *notificationCenter; macOS 10.0
@property (readonly, strong) NSNotificationCenter* notificationCenter;
@end

// macOS 10.6
@interface NSRunningApplication : NSObject
// + (NSArray<NSRunningApplication *> *)runningApplicationsWithBundleIdentifier:
//                                          (NSString *)bundleIdentifier; macOS 10.6
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:
    (NSString*)bundleIdentifier;
// @property (readonly) pid_t processIdentifier; macOS 10.6
@property (readonly) pid_t processIdentifier;
// @property (readonly, getter=isFinishedLaunching) BOOL finishedLaunching; macOS 10.6
@property (readonly, getter=isFinishedLaunching) BOOL finishedLaunching;
@end

#pragma clang assume_nonnull end
