// AppKit, as far as this program uses it. See ../README.md.
#pragma once

#include <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@class NSBitmapImageRep;
@class NSEvent;
@class NSImage;
@class NSLayoutDimension;
@class NSLayoutXAxisAnchor;
@class NSLayoutYAxisAnchor;
@class NSScreen;
@class NSView;
@class NSWindow;

// Appearance

typedef NSString* NSAppearanceName;

// NSAppearanceName const NSAppearanceNameAqua; macOS 10.9. ...DarkAqua; macOS 10.14
extern "C" NSAppearanceName const NSAppearanceNameAqua;
extern "C" NSAppearanceName const NSAppearanceNameDarkAqua VOLTMERE_SINCE(10.14);

@interface NSAppearance : NSObject
// + (NSAppearance *)appearanceNamed:(NSAppearanceName)name; macOS 10.9
+ (nullable NSAppearance*)appearanceNamed:(NSAppearanceName)name;
// - (NSAppearanceName)bestMatchFromAppearancesWithNames:
//                         (NSArray<NSAppearanceName> *)appearances; macOS 10.14
- (nullable NSAppearanceName)bestMatchFromAppearancesWithNames:
    (NSArray<NSAppearanceName>*)appearances VOLTMERE_SINCE(10.14);
// - (void)performAsCurrentDrawingAppearance:(void (^)(void))block; macOS 11.0
- (void)performAsCurrentDrawingAppearance:(void (^)(void))block VOLTMERE_SINCE(11.0);
@end

// Drawing

@interface NSColor : NSObject
// The system's named colours, which follow the appearance in which they are drawn; macOS 10.10,
// whiteColor, blackColor and windowBackgroundColor 10.0
@property (class, strong, readonly) NSColor* whiteColor;
@property (class, strong, readonly) NSColor* blackColor;
@property (class, strong, readonly) NSColor* labelColor;
@property (class, strong, readonly) NSColor* secondaryLabelColor;
@property (class, strong, readonly) NSColor* systemRedColor;
@property (class, strong, readonly) NSColor* windowBackgroundColor;
// - (NSColor *)colorWithAlphaComponent:(CGFloat)alpha; macOS 10.0
- (NSColor*)colorWithAlphaComponent:(CGFloat)alpha;
// - (void)setFill; macOS 10.4
- (void)setFill;
@end

typedef CGFloat NSFontWeight;
// const NSFontWeight NSFontWeightBold; macOS 10.11
extern "C" const NSFontWeight NSFontWeightBold;
typedef NSString* NSFontTextStyle;
// NSFontTextStyle const NSFontTextStyleHeadline; macOS 11.0
extern "C" NSFontTextStyle const NSFontTextStyleHeadline VOLTMERE_SINCE(11.0);

@interface NSFont : NSObject
// + (NSFont *)systemFontOfSize:(CGFloat)fontSize; macOS 10.0
+ (NSFont*)systemFontOfSize:(CGFloat)size;
// + (NSFont *)boldSystemFontOfSize:(CGFloat)fontSize; macOS 10.0
+ (NSFont*)boldSystemFontOfSize:(CGFloat)size;
// + (NSFont *)systemFontOfSize:(CGFloat)fontSize weight:(NSFontWeight)weight; macOS 10.11
+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight VOLTMERE_SINCE(10.11);
// + (NSFont *)preferredFontForTextStyle:(NSFontTextStyle)style
//                options:(NSDictionary<NSFontTextStyleOptionKey, id> *)options; macOS 11.0
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style
                             options:(NSDictionary<NSString*, id>*)options VOLTMERE_SINCE(11.0);
@end

@interface NSBezierPath : NSObject
// + (NSBezierPath *)bezierPathWithRoundedRect:(NSRect)rect xRadius:(CGFloat)xRadius
//                                     yRadius:(CGFloat)yRadius; macOS 10.5
+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)rect xRadius:(CGFloat)x yRadius:(CGFloat)y;
// - (void)fill; macOS 10.0
- (void)fill;
@end

// NSCompositingOperationDestinationOver = 6; macOS 10.12
enum NSCompositingOperation : NSUInteger { NSCompositingOperationDestinationOver = 6 };
// void NSRectFillUsingOperation(NSRect rect, NSCompositingOperation op); in the fill colour;
// macOS 10.0
extern "C" void NSRectFillUsingOperation(NSRect rect, NSCompositingOperation operation);

@interface NSGraphicsContext : NSObject
// @property (class, strong) NSGraphicsContext *currentContext; macOS 10.0
@property (class, nullable, strong) NSGraphicsContext* currentContext;
// + (NSGraphicsContext *)graphicsContextWithBitmapImageRep:(NSBitmapImageRep *)bitmapRep;
// macOS 10.4
+ (nullable NSGraphicsContext*)graphicsContextWithBitmapImageRep:(NSBitmapImageRep*)bitmap;
// + (void)saveGraphicsState, + (void)restoreGraphicsState; macOS 10.0
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end

// Attributes of drawn text; macOS 10.0
typedef NSString* NSAttributedStringKey;
extern "C" NSAttributedStringKey const NSFontAttributeName;
extern "C" NSAttributedStringKey const NSForegroundColorAttributeName;

@interface NSString (NSStringDrawing)
// - (NSSize)sizeWithAttributes:(NSDictionary<NSAttributedStringKey, id> *)attrs; macOS 10.0
- (NSSize)sizeWithAttributes:(nullable NSDictionary<NSAttributedStringKey, id>*)attributes;
// - (void)drawAtPoint:(NSPoint)point
//      withAttributes:(NSDictionary<NSAttributedStringKey, id> *)attrs; in an unflipped context the
// point is the lower left corner; macOS 10.0
- (void)drawAtPoint:(NSPoint)point
     withAttributes:(nullable NSDictionary<NSAttributedStringKey, id>*)attributes;
@end

// Images

@interface NSImageRep : NSObject
@end

// NSBitmapImageFileTypePNG = 4; macOS 10.12
enum NSBitmapImageFileType : NSUInteger { NSBitmapImageFileTypePNG = 4 };

@interface NSBitmapImageRep : NSImageRep
// - (NSData *)representationUsingType:(NSBitmapImageFileType)storageType
//                          properties:(NSDictionary<NSBitmapImageRepPropertyKey, id> *)properties;
// macOS 10.0
- (nullable NSData*)representationUsingType:(NSBitmapImageFileType)type
                                 properties:(NSDictionary<NSString*, id>*)properties;
@end

@interface NSImage : NSObject
// - (instancetype)initWithSize:(NSSize)size; macOS 10.0
- (instancetype)initWithSize:(NSSize)size;
// - (instancetype)initWithContentsOfURL:(NSURL *)url; nil when it cannot be read; macOS 10.0
- (nullable instancetype)initWithContentsOfURL:(NSURL*)url;
// + (NSImage *)imageWithSize:(NSSize)size
// flipped:(BOOL)drawingHandlerShouldBeCalledWithFlippedContext
//             drawingHandler:(BOOL (^)(NSRect dstRect))drawingHandler; the handler is copied and
// called at each drawing, on the thread that draws; macOS 10.8
+ (NSImage*)imageWithSize:(NSSize)size
                  flipped:(BOOL)flipped
           drawingHandler:(BOOL (^)(NSRect destination))handler;
// + (instancetype)imageWithSystemSymbolName:(NSString *)name
//                  accessibilityDescription:(NSString *)description; nil for an unknown name;
// macOS 11.0
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name
                          accessibilityDescription:(nullable NSString*)description
    VOLTMERE_SINCE(11.0);
// @property NSSize size; in points; macOS 10.0
@property NSSize size;
// @property (getter=isTemplate) BOOL template; macOS 10.5. C++ has the word for itself, hence the
// setter by its own name.
- (BOOL)isTemplate;
- (void)setTemplate:(BOOL)isTemplate;
// - (void)drawInRect:(NSRect)rect; macOS 10.9
- (void)drawInRect:(NSRect)rect;
@end

// Layout

typedef float NSLayoutPriority;
enum NSLayoutConstraintOrientation : NSInteger {
    NSLayoutConstraintOrientationHorizontal = 0,
    NSLayoutConstraintOrientationVertical = 1,
};

// NSLayoutAttribute; macOS 10.7
enum NSLayoutAttribute : NSInteger {
    NSLayoutAttributeLeading = 5,
    NSLayoutAttributeCenterX = 9,
    NSLayoutAttributeCenterY = 10,
};

@interface NSLayoutConstraint : NSObject
// @property (getter=isActive) BOOL active; macOS 10.10
@property (getter=isActive) BOOL active;
@end

// NSLayoutAnchor and its kinds; macOS 10.11
@interface NSLayoutAnchor<AnchorType> : NSObject
// - (NSLayoutConstraint *)constraintEqualToAnchor:(NSLayoutAnchor<AnchorType> *)anchor;
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor<AnchorType>*)anchor;
@end
@interface NSLayoutXAxisAnchor : NSLayoutAnchor <NSLayoutXAxisAnchor*>
@end
@interface NSLayoutYAxisAnchor : NSLayoutAnchor <NSLayoutYAxisAnchor*>
@end
@interface NSLayoutDimension : NSLayoutAnchor <NSLayoutDimension*>
// - (NSLayoutConstraint *)constraintEqualToConstant:(CGFloat)c;
- (NSLayoutConstraint*)constraintEqualToConstant:(CGFloat)constant;
// - (NSLayoutConstraint *)constraintLessThanOrEqualToConstant:(CGFloat)c;
- (NSLayoutConstraint*)constraintLessThanOrEqualToConstant:(CGFloat)constant;
@end

// Events

// NSEventType of an event that a program makes for itself; macOS 10.12
enum NSEventType : NSUInteger { NSEventTypeApplicationDefined = 15 };
typedef NSUInteger NSEventModifierFlags;

// NSEventMask NSEventMaskLeftMouseDown, which is bit 1, and NSEventMaskRightMouseDown, bit 3;
// macOS 10.12
typedef unsigned long long NSEventMask;
enum : NSEventMask {
    NSEventMaskLeftMouseDown = 1ULL << 1,
    NSEventMaskRightMouseDown = 1ULL << 3,
};

@interface NSEvent : NSObject
// @property (class, readonly) NSPoint mouseLocation; in screen coordinates; macOS 10.0
@property (class, readonly) NSPoint mouseLocation;
// @property (class, readonly) NSUInteger pressedMouseButtons; macOS 10.6
@property (class, readonly) NSUInteger pressedMouseButtons;
// + (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask
//                                     handler:(void (^)(NSEvent *event))block; sees the events of
// other programs only; macOS 10.6
+ (nullable id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask
                                             handler:(void (^)(NSEvent* event))block;
// + (void)removeMonitor:(id)eventMonitor; macOS 10.6
+ (void)removeMonitor:(id)monitor;
// + (NSEvent *)otherEventWithType:(NSEventType)type location:(NSPoint)location
//                   modifierFlags:(NSEventModifierFlags)flags timestamp:(NSTimeInterval)time
//                    windowNumber:(NSInteger)wNum context:(NSGraphicsContext *)unused
//                         subtype:(short)subtype data1:(NSInteger)d1 data2:(NSInteger)d2;
// macOS 10.0
+ (nullable NSEvent*)otherEventWithType:(NSEventType)type
                               location:(NSPoint)location
                          modifierFlags:(NSEventModifierFlags)flags
                              timestamp:(NSTimeInterval)time
                           windowNumber:(NSInteger)window
                                context:(nullable id)context
                                subtype:(short)subtype
                                  data1:(NSInteger)data1
                                  data2:(NSInteger)data2;
@end

@interface NSResponder : NSObject
// - (void)mouseUp:(NSEvent *)event; macOS 10.0
- (void)mouseUp:(NSEvent*)event;
// - (void)cancelOperation:(id)sender; Escape or Command-period; macOS 10.3
- (void)cancelOperation:(nullable id)sender;
@end

// The application

// NSApplicationActivationPolicyAccessory = 1; macOS 10.6
enum NSApplicationActivationPolicy : NSInteger { NSApplicationActivationPolicyAccessory = 1 };

@class NSApplication;

// The system declares the methods of both delegates as optional. Here they are required, so that a
// misspelt one of this program does not compile.
@protocol NSApplicationDelegate <NSObject>
// - (void)applicationDidFinishLaunching:(NSNotification *)notification; macOS 10.0
- (void)applicationDidFinishLaunching:(NSNotification*)notification;
// - (BOOL)applicationShouldHandleReopen:(NSApplication *)sender
//                     hasVisibleWindows:(BOOL)flag; macOS 10.0
- (BOOL)applicationShouldHandleReopen:(NSApplication*)sender hasVisibleWindows:(BOOL)flag;
// - (BOOL)applicationSupportsSecureRestorableState:(NSApplication *)app; macOS 12.0
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)application;
@end

@protocol NSWindowDelegate <NSObject>
// - (void)windowDidResignKey:(NSNotification *)notification; macOS 10.0
- (void)windowDidResignKey:(NSNotification*)notification;
@end

@interface NSApplication : NSResponder
// @property (class, readonly, strong) __kindof NSApplication *sharedApplication; macOS 10.0
@property (class, readonly, strong) __kindof NSApplication* sharedApplication;
// @property (nullable, weak) id<NSApplicationDelegate> delegate; macOS 10.0
@property (nullable, weak) id<NSApplicationDelegate> delegate;
// @property (nullable, strong) NSAppearance *appearance; nil follows the system; macOS 10.14
@property (nullable, strong) NSAppearance* appearance VOLTMERE_SINCE(10.14);
// @property (readonly, strong) NSAppearance *effectiveAppearance; macOS 10.14
@property (readonly, strong) NSAppearance* effectiveAppearance VOLTMERE_SINCE(10.14);
// @property (null_resettable, strong) NSImage *applicationIconImage; macOS 10.0
@property (null_resettable, strong) NSImage* applicationIconImage;
// @property (readonly, getter=isActive) BOOL active; macOS 10.0
@property (readonly, getter=isActive) BOOL active;
// - (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy; macOS 10.6
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
// - (void)activateIgnoringOtherApps:(BOOL)flag; macOS 10.0, only a request from macOS 14 on
- (void)activateIgnoringOtherApps:(BOOL)flag;
// - (void)hide:(id)sender; macOS 10.0
- (void)hide:(nullable id)sender;
// - (void)unhideWithoutActivation; macOS 10.0
- (void)unhideWithoutActivation;
// - (void)run; until `stop:`; macOS 10.0
- (void)run;
// - (void)stop:(id)sender; ends `run` after the next event; macOS 10.0
- (void)stop:(nullable id)sender;
// - (void)postEvent:(NSEvent *)event atStart:(BOOL)flag; macOS 10.0
- (void)postEvent:(NSEvent*)event atStart:(BOOL)atStart;
@end

// NSApplication *NSApp; nil before the first `sharedApplication`; macOS 10.0
extern "C" __kindof NSApplication* _Null_unspecified NSApp;

// Windows

typedef NSInteger NSWindowLevel;
// NSFloatingWindowLevel, which is 3, and NSStatusWindowLevel, 25; macOS 10.0
static const NSWindowLevel NSFloatingWindowLevel = 3;
static const NSWindowLevel NSStatusWindowLevel = 25;

typedef NSUInteger NSWindowStyleMask;
enum : NSWindowStyleMask {
    NSWindowStyleMaskBorderless = 0,
    NSWindowStyleMaskTitled = 1 << 0,
    NSWindowStyleMaskNonactivatingPanel = 1 << 7,
    NSWindowStyleMaskFullSizeContentView = 1 << 15,
};
// NSBackingStoreBuffered = 2; macOS 10.0
enum NSBackingStoreType : NSUInteger { NSBackingStoreBuffered = 2 };
// NSWindowTitleHidden = 1; macOS 10.10
enum NSWindowTitleVisibility : NSInteger { NSWindowTitleVisible = 0, NSWindowTitleHidden = 1 };
// NSWindowButton; macOS 10.2
enum NSWindowButton : NSUInteger {
    NSWindowCloseButton = 0,
    NSWindowMiniaturizeButton = 1,
    NSWindowZoomButton = 2,
};
typedef NSUInteger NSWindowCollectionBehavior;
enum : NSWindowCollectionBehavior {
    NSWindowCollectionBehaviorMoveToActiveSpace = 1 << 1,
    NSWindowCollectionBehaviorTransient = 1 << 3,
    NSWindowCollectionBehaviorIgnoresCycle = 1 << 6,
    NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8,
};

@interface NSScreen : NSObject
// @property (class, readonly, copy) NSArray<NSScreen *> *screens; the first one has the origin of
// the screen coordinates; macOS 10.0
@property (class, readonly, copy) NSArray<NSScreen*>* screens;
// @property (class, nullable, readonly, strong) NSScreen *mainScreen; the one with the key window;
// macOS 10.0
@property (class, nullable, readonly, strong) NSScreen* mainScreen;
// @property (readonly) NSRect frame; macOS 10.0
@property (readonly) NSRect frame;
// @property (readonly) NSRect visibleFrame; without menu bar and Dock; macOS 10.0
@property (readonly) NSRect visibleFrame;
@end

@interface NSWindow : NSResponder
// - (instancetype)initWithContentRect:(NSRect)contentRect styleMask:(NSWindowStyleMask)style
//                             backing:(NSBackingStoreType)backingStoreType defer:(BOOL)flag;
// macOS 10.0
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defer;
// macOS 10.0 where nothing else is said
@property (copy) NSString* title;
@property NSWindowTitleVisibility titleVisibility; // 10.10
@property BOOL titlebarAppearsTransparent;         // 10.10
@property (getter=isMovable) BOOL movable;         // 10.6
@property BOOL hidesOnDeactivate;
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior; // 10.5
@property (nullable, weak) id<NSWindowDelegate> delegate;
@property (nullable, strong) NSView* contentView;
@property (nullable, readonly, strong) NSScreen* screen;
@property (readonly, getter=isVisible) BOOL visible;
@property (readonly) BOOL canBecomeKeyWindow;
// @property (readonly) NSRect frame; in screen coordinates, the origin at the bottom left
@property (readonly) NSRect frame;
// - (NSButton *)standardWindowButton:(NSWindowButton)b; macOS 10.2
- (nullable __kindof NSView*)standardWindowButton:(NSWindowButton)button;
// - (NSRect)convertRectToScreen:(NSRect)rect; macOS 10.7
- (NSRect)convertRectToScreen:(NSRect)rect;
// - (NSPoint)convertPointFromScreen:(NSPoint)point; macOS 10.12
- (NSPoint)convertPointFromScreen:(NSPoint)point;
// macOS 10.0
- (void)setContentSize:(NSSize)size;
- (void)setFrameTopLeftPoint:(NSPoint)point;
- (void)center;
- (void)makeKeyAndOrderFront:(nullable id)sender;
- (void)orderFrontRegardless;
- (void)orderOut:(nullable id)sender;
- (BOOL)makeFirstResponder:(nullable NSResponder*)responder;
@end

@interface NSPanel : NSWindow
@end

// Views

@interface NSView : NSResponder
// macOS 10.0 where nothing else is said
- (instancetype)initWithFrame:(NSRect)frame;
@property (nullable, readonly, assign) NSWindow* window;
@property (nullable, readonly, assign) NSView* superview;
@property (copy) NSArray<__kindof NSView*>* subviews;
@property NSRect frame;
@property NSRect bounds;
@property (getter=isHidden) BOOL hidden; // 10.3
@property BOOL needsDisplay;
@property (copy, nullable) NSString* toolTip;
@property BOOL translatesAutoresizingMaskIntoConstraints; // 10.7
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (void)drawRect:(NSRect)dirty;
- (void)layoutSubtreeIfNeeded;           // 10.7
@property (readonly) NSSize fittingSize; // 10.7
- (NSRect)convertRect:(NSRect)rect toView:(nullable NSView*)view;
- (NSPoint)convertPoint:(NSPoint)point fromView:(nullable NSView*)view;
// - (NSBitmapImageRep *)bitmapImageRepForCachingDisplayInRect:(NSRect)rect; macOS 10.4
- (nullable NSBitmapImageRep*)bitmapImageRepForCachingDisplayInRect:(NSRect)rect;
// - (void)cacheDisplayInRect:(NSRect)rect toBitmapImageRep:(NSBitmapImageRep *)bitmapImageRep;
// macOS 10.4
- (void)cacheDisplayInRect:(NSRect)rect toBitmapImageRep:(NSBitmapImageRep*)bitmap;
// - (void)setContentHuggingPriority:(NSLayoutPriority)priority
//                    forOrientation:(NSLayoutConstraintOrientation)orientation; macOS 10.7
- (void)setContentHuggingPriority:(NSLayoutPriority)priority
                   forOrientation:(NSLayoutConstraintOrientation)orientation;
// - (void)setContentCompressionResistancePriority:(NSLayoutPriority)priority
//                                  forOrientation:(NSLayoutConstraintOrientation)orientation;
// macOS 10.7
- (void)setContentCompressionResistancePriority:(NSLayoutPriority)priority
                                 forOrientation:(NSLayoutConstraintOrientation)orientation;
// @property (readonly, strong) NSLayoutXAxisAnchor *leadingAnchor, and its like; macOS 10.11
@property (readonly, strong) NSLayoutXAxisAnchor* leadingAnchor;
@property (readonly, strong) NSLayoutXAxisAnchor* centerXAnchor;
@property (readonly, strong) NSLayoutYAxisAnchor* topAnchor;
@property (readonly, strong) NSLayoutYAxisAnchor* centerYAnchor;
@property (readonly, strong) NSLayoutDimension* widthAnchor;
@property (readonly, strong) NSLayoutDimension* heightAnchor;
// - (void)setAccessibilityLabel:(NSString *)accessibilityLabel, of NSAccessibility; macOS 10.10
- (void)setAccessibilityLabel:(nullable NSString*)label;
// - (void)setAccessibilityElement:(BOOL)accessibilityElement, of NSAccessibility; macOS 10.10
- (void)setAccessibilityElement:(BOOL)element;
@end

// NSBoxSeparator = 2; macOS 10.0
enum NSBoxType : NSUInteger { NSBoxSeparator = 2 };
@interface NSBox : NSView
@property NSBoxType boxType;
@end

enum NSUserInterfaceLayoutOrientation : NSInteger {
    NSUserInterfaceLayoutOrientationHorizontal = 0,
    NSUserInterfaceLayoutOrientationVertical = 1,
};
// NSStackViewDistributionFill = 0; macOS 10.11
enum NSStackViewDistribution : NSInteger { NSStackViewDistributionFill = 0 };

// macOS 10.9
@interface NSStackView : NSView
// + (instancetype)stackViewWithViews:(NSArray<NSView *> *)views; horizontal, without autoresizing
// translation
+ (instancetype)stackViewWithViews:(NSArray<NSView*>*)views;
@property NSUserInterfaceLayoutOrientation orientation;
@property NSLayoutAttribute alignment;
@property NSStackViewDistribution distribution; // 10.11
@property CGFloat spacing;
@property NSEdgeInsets edgeInsets;
// @property (readonly, copy) NSArray<__kindof NSView *> *arrangedSubviews; macOS 10.11
@property (readonly, copy) NSArray<__kindof NSView*>* arrangedSubviews;
// - (void)addArrangedSubview:(NSView *)view; macOS 10.11
- (void)addArrangedSubview:(NSView*)view;
// - (void)setCustomSpacing:(CGFloat)spacing afterView:(NSView *)aView; raises for a view that is
// not in the stack; macOS 10.9
- (void)setCustomSpacing:(CGFloat)spacing afterView:(NSView*)view;
@end

// Controls

// NSControlSizeLarge = 3; macOS 11.0
enum NSControlSize : NSUInteger {
    NSControlSizeRegular = 0,
    NSControlSizeLarge VOLTMERE_SINCE(11.0) = 3,
};
// NSTextAlignmentCenter, which is 1 on Apple silicon and 2 on Intel; macOS 10.0
enum NSTextAlignment : NSInteger {
#if defined(__x86_64__)
    NSTextAlignmentCenter = 2,
#else
    NSTextAlignmentCenter = 1,
#endif
};
// NSLineBreakByTruncatingMiddle = 5; macOS 10.0
enum NSLineBreakMode : NSUInteger { NSLineBreakByTruncatingMiddle = 5 };

@interface NSControl : NSView
// macOS 10.0 where nothing else is said
@property (nullable, weak) id target;
@property (nullable) SEL action;
@property (copy) NSString* stringValue;
@property (nullable, strong) NSFont* font;
@property NSTextAlignment alignment;
@property NSLineBreakMode lineBreakMode; // 10.10
@property BOOL allowsExpansionToolTips;  // 10.8
@property NSControlSize controlSize;     // 10.10
// - (NSInteger)sendActionOn:(NSEventMask)mask; macOS 10.0
- (NSInteger)sendActionOn:(NSEventMask)mask;
@end

@interface NSTextField : NSControl
// + (instancetype)labelWithString:(NSString *)stringValue; macOS 10.12
+ (instancetype)labelWithString:(NSString*)text;
// + (instancetype)wrappingLabelWithString:(NSString *)stringValue; selectable; macOS 10.12
+ (instancetype)wrappingLabelWithString:(NSString*)text;
@property (nullable, copy) NSColor* textColor;
@property (getter=isSelectable) BOOL selectable;
@property CGFloat preferredMaxLayoutWidth; // 10.8
@end

typedef NSInteger NSControlStateValue;
// NSControlStateValueOff and ...On; macOS 10.13
static const NSControlStateValue NSControlStateValueOff = 0;
static const NSControlStateValue NSControlStateValueOn = 1;
// NSImageOnly = 1; macOS 10.0
enum NSCellImagePosition : NSUInteger { NSNoImage = 0, NSImageOnly = 1 };

@interface NSButton : NSControl
// + (instancetype)buttonWithTitle:(NSString *)title target:(id)target action:(SEL)action;
// macOS 10.12
+ (instancetype)buttonWithTitle:(NSString*)title
                         target:(nullable id)target
                         action:(nullable SEL)action;
// + (instancetype)checkboxWithTitle:(NSString *)title target:(id)target action:(SEL)action;
// macOS 10.12
+ (instancetype)checkboxWithTitle:(NSString*)title
                           target:(nullable id)target
                           action:(nullable SEL)action;
@property (copy) NSString* title;
@property NSControlStateValue state;
@property (copy) NSString* keyEquivalent;
@property NSEventModifierFlags keyEquivalentModifierMask;
@property (nullable, strong) NSImage* image;
@property NSCellImagePosition imagePosition;
// - (void)highlight:(BOOL)flag; macOS 10.0
- (void)highlight:(BOOL)highlight;
@end

@interface NSPopUpButton : NSButton
// - (instancetype)initWithFrame:(NSRect)buttonFrame pullsDown:(BOOL)flag; macOS 10.0
- (instancetype)initWithFrame:(NSRect)frame pullsDown:(BOOL)pullsDown;
// - (void)addItemsWithTitles:(NSArray<NSString *> *)itemTitles; an equal title is removed first;
// macOS 10.0
- (void)addItemsWithTitles:(NSArray<NSString*>*)titles;
- (void)removeAllItems;
// - (void)selectItemAtIndex:(NSInteger)index; -1 for none; macOS 10.0
- (void)selectItemAtIndex:(NSInteger)index;
@property (readonly) NSInteger indexOfSelectedItem;
@property (readonly, copy) NSArray<NSString*>* itemTitles;
@end

@interface NSImageView : NSControl
// + (instancetype)imageViewWithImage:(NSImage *)image; macOS 10.12
+ (instancetype)imageViewWithImage:(NSImage*)image;
@property (nullable, strong) NSImage* image;
@end

// The alert

// NSAlertStyleWarning = 0; macOS 10.12
enum NSAlertStyle : NSUInteger { NSAlertStyleWarning = 0 };

@interface NSAlert : NSObject
// macOS 10.0 where nothing else is said
@property (copy) NSString* messageText;
@property (null_resettable, strong) NSImage* icon; // nil stands for the application's own
@property (readonly, copy) NSArray<NSButton*>* buttons;
@property NSAlertStyle alertStyle;
@property (nullable, strong) NSView* accessoryView; // 10.5
@property (readonly, strong) NSWindow* window;
- (NSButton*)addButtonWithTitle:(NSString*)title;
- (void)layout; // 10.5
@end

// The menu bar

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

// Both are posted to the workspace's own centre; macOS 10.3, ...ActiveSpaceDidChange... 10.6
extern "C" NSNotificationName const NSWorkspaceDidWakeNotification;
extern "C" NSNotificationName const NSWorkspaceActiveSpaceDidChangeNotification;

@interface NSWorkspace : NSObject
// @property (class, readonly, strong) NSWorkspace *sharedWorkspace; macOS 10.0
@property (class, readonly, strong) NSWorkspace* sharedWorkspace;
// @property (readonly, strong) NSNotificationCenter *notificationCenter; macOS 10.0
@property (readonly, strong) NSNotificationCenter* notificationCenter;
@end

#pragma clang assume_nonnull end
