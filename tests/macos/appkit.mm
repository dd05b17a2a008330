// Stand-ins of AppKit.

#include "mac.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>

using namespace voltmere;

std::string voltmere::text(NSRect rect)
{
    return number(rect.origin.x) + " " + number(rect.origin.y) + " " + number(rect.size.width) +
        " " + number(rect.size.height);
}

// Appearance

NSAppearanceName const NSAppearanceNameAqua = @"light";
NSAppearanceName const NSAppearanceNameDarkAqua = @"dark";

static std::string drawnIn; ///< the appearance

@implementation NSAppearance
+ (NSAppearance*)appearanceNamed:(NSAppearanceName)name
{
    return made(self, text(name));
}
- (NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray<NSAppearanceName>*)names
{
    for (NSAppearanceName const name in names) {
        if (text(name) == summary(self)) {
            return name;
        }
    }
    return nil;
}
- (void)performAsCurrentDrawingAppearance:(void (^)(void))block
{
    drawnIn = summary(self) + " ";
    block();
    drawnIn.clear();
}
@end

void voltmere::setAppearance(NSString* name)
{
    mac.appearance = name;
    const auto observers = mac.appearanceObservers;
    for (const KeyValueObserver& one : observers) {
        [one.observer observeValueForKeyPath:string(one.path)
                                    ofObject:NSApp
                                      change:nil
                                     context:one.context];
    }
}

// Drawing. Each step is written down.

static std::string fillColour;

@interface NSGraphicsContext ()
@property (strong) NSBitmapImageRep* bitmap;
@end

@implementation NSColor
ANSWERS(+(NSColor*)whiteColor, shared(self, "white"))
ANSWERS(+(NSColor*)blackColor, shared(self, "black"))
ANSWERS(+(NSColor*)labelColor, shared(self, "label"))
ANSWERS(+(NSColor*)secondaryLabelColor, shared(self, "secondary"))
ANSWERS(+(NSColor*)systemRedColor, shared(self, "red"))
ANSWERS(+(NSColor*)windowBackgroundColor, shared(self, "background"))
DOES(-(void)setFill, fillColour = summary(self))
- (NSColor*)colorWithAlphaComponent:(CGFloat)alpha
{
    return made(NSColor.class, summary(self) + " " + number(alpha));
}
@end

const NSFontWeight NSFontWeightBold = 0.4;
NSFontTextStyle const NSFontTextStyleHeadline = @"headline";

@implementation NSFont
+ (NSFont*)systemFontOfSize:(CGFloat)size
{
    return made(self, "regular " + number(size));
}
+ (NSFont*)boldSystemFontOfSize:(CGFloat)size
{
    return made(self, "bold " + number(size));
}
+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight
{
    return made(self, (weight == NSFontWeightBold ? "bold " : "regular ") + number(size));
}
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style options:(NSDictionary*)options
{
    return made(self, text(style));
}
@end

@implementation NSBezierPath
+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)rect xRadius:(CGFloat)x yRadius:(CGFloat)y
{
    return made(self, text(rect) + " rounded " + number(x) + " " + number(y));
}
DOES(-(void)fill, mac.drawn.push_back("fill " + summary(self) + " " + fillColour))
@end

@implementation NSGraphicsContext
static NSGraphicsContext* currentContext;
static NSGraphicsContext* savedContext;
ANSWERS(+(NSGraphicsContext*)currentContext, currentContext)
DOES(+(void)saveGraphicsState, savedContext = currentContext)
DOES(+(void)restoreGraphicsState, currentContext = savedContext)
+ (void)setCurrentContext:(NSGraphicsContext*)context
{
    currentContext = context;
}
+ (NSGraphicsContext*)graphicsContextWithBitmapImageRep:(NSBitmapImageRep*)bitmap
{
    NSGraphicsContext* const context = [[self alloc] init];
    context.bitmap = bitmap;
    return context;
}
@end

void NSRectFillUsingOperation(NSRect rect, NSCompositingOperation operation)
{
    const bool isBelow = operation == NSCompositingOperationDestinationOver;
    summary(currentContext.bitmap) += (isBelow ? "on " : "under ") + drawnIn + fillColour + "\n";
}

NSAttributedStringKey const NSFontAttributeName = @"font";
NSAttributedStringKey const NSForegroundColorAttributeName = @"colour";

@implementation NSString (NSStringDrawing)
/// In the system's font of 13 points a character takes 6 points, and a line 16.
- (NSSize)sizeWithAttributes:(NSDictionary<NSAttributedStringKey, id>*)attributes
{
    const bool isUsual = summary([attributes objectForKey:NSFontAttributeName]) == "regular 13";
    return {(isUsual ? 6.0 : 11.0) * static_cast<double>(text(self).size()), isUsual ? 16.0 : 9.0};
}
- (void)drawAtPoint:(NSPoint)point withAttributes:(NSDictionary*)attributes
{
    mac.drawn.push_back(text(self) + " at " + number(point.x) + " " + number(point.y) + " " +
                        summary([attributes objectForKey:NSFontAttributeName]) + " " +
                        summary([attributes objectForKey:NSForegroundColorAttributeName]));
}
@end

@implementation NSImageRep
@end
@implementation NSBitmapImageRep
- (NSData*)representationUsingType:(NSBitmapImageFileType)type properties:(NSDictionary*)properties
{
    return made(NSData.class, (type == NSBitmapImageFileTypePNG ? "PNG " : "") + summary(self));
}
@end

@implementation NSImage {
    BOOL _isTemplate;
    BOOL (^_handler)(NSRect);
}
- (instancetype)initWithSize:(NSSize)size
{
    _size = size;
    return self;
}
- (instancetype)initWithContentsOfURL:(NSURL*)url
{
    _size = {512, 512};
    summary(self) = summary(url);
    return mac.damagedResources.count(summary(url)) == 0 ? self : nil;
}
+ (NSImage*)imageWithSize:(NSSize)size
                  flipped:(BOOL)flipped
           drawingHandler:(BOOL (^)(NSRect))handler
{
    NSImage* const image = made(self, flipped ? "flipped" : "drawn");
    image->_size = size;
    image->_handler = handler;
    image->_isTemplate = YES; // so that a test sees it being turned off
    return image;
}
+ (instancetype)imageWithSystemSymbolName:(NSString*)name
                 accessibilityDescription:(NSString*)description
{
    return mac.unknownSymbols.count(text(name)) == 0 ? made(self, text(name)) : nil;
}
ANSWERS(-(BOOL)isTemplate, _isTemplate)
- (void)setTemplate:(BOOL)isTemplate
{
    _isTemplate = isTemplate;
}
- (void)drawInRect:(NSRect)rect
{
    if (_handler == nil) {
        mac.drawn.push_back(summary(self) + " in " + text(rect));
    } else if (!_handler(rect)) {
        mac.drawn.push_back("failed");
    }
}
@end

std::vector<std::string> voltmere::drawing(NSImage* image)
{
    mac.drawn.clear();
    [image drawInRect:{{0, 0}, image.size}];
    return mac.drawn;
}

std::vector<std::string> voltmere::drawing(NSView* view)
{
    mac.drawn.clear();
    [view drawRect:view.bounds];
    return mac.drawn;
}

// Layout

static NSView* root(NSView* view)
{
    while (view.superview != nil) {
        view = view.superview;
    }
    return view;
}

@implementation NSLayoutConstraint {
@public
    __weak NSView* _view;
    __weak NSView* _other;
}
+ (void)activateConstraints:(NSArray<NSLayoutConstraint*>*)constraints
{
    for (NSLayoutConstraint* const constraint in constraints) {
        constraint.active = YES;
    }
}
- (void)setActive:(BOOL)active
{
    if (active && _other != nil && root(_view) != root(_other)) {
        raise("the views of a constraint have no common ancestor");
    }
    _active = active;
    auto& all = [_view constraints];
    active ? all.push_back(summary(self)) : (void)std::erase(all, summary(self));
}
@end

@implementation NSLayoutAnchor {
@public
    __weak NSView* _view;
}
static id anchor(id itsClass, NSView* view, const char* name)
{
    NSLayoutAnchor* const anchor = made(itsClass, name);
    anchor->_view = view;
    return anchor;
}
static NSLayoutConstraint* constraint(NSLayoutAnchor* anchor, const std::string& relation,
                                      NSLayoutAnchor* other = nil)
{
    NSLayoutConstraint* const one = made(NSLayoutConstraint.class, summary(anchor) + relation);
    one->_view = anchor->_view;
    if (other != nil) {
        one->_other = other->_view;
        const bool isSuperview = other->_view == anchor->_view.superview;
        summary(one) += (isSuperview ? "superview " : "another's ") + summary(other);
    }
    return one;
}
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor*)other
{
    return constraint(self, " = ", other);
}
@end
@implementation NSLayoutXAxisAnchor
@end
@implementation NSLayoutYAxisAnchor
@end
@implementation NSLayoutDimension
- (NSLayoutConstraint*)constraintEqualToConstant:(CGFloat)constant
{
    return constraint(self, " = " + number(constant));
}
- (NSLayoutConstraint*)constraintLessThanOrEqualToConstant:(CGFloat)constant
{
    return constraint(self, " <= " + number(constant));
}
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutDimension*)other constant:(CGFloat)constant
{
    return constraint(self, " = " + number(constant) + " + ", other);
}
@end

// Events

@implementation NSEvent
ANSWERS(+(NSPoint)mouseLocation, mac.pointer)
ANSWERS(+(NSUInteger)pressedMouseButtons, mac.pressedButtons)
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent*))handler
{
    mac.monitors.push_back({made(self, "monitor"), nil, "", mask, nil, handler});
    return mac.monitors.back().token;
}
+ (void)removeMonitor:(id)monitor
{
    std::erase_if(mac.monitors, [&](const Registration& one) { return one.token == monitor; });
}
+ (NSEvent*)otherEventWithType:(NSEventType)type
                      location:(NSPoint)location
                 modifierFlags:(NSEventModifierFlags)flags
                     timestamp:(NSTimeInterval)time
                  windowNumber:(NSInteger)window
                       context:(id)context
                       subtype:(short)subtype
                         data1:(NSInteger)data1
                         data2:(NSInteger)data2
{
    return made(self, "event");
}
@end

void voltmere::clickElsewhere()
{
    const auto monitors = mac.monitors;
    for (const Registration& one : monitors) {
        one.handle(made(NSEvent.class, "click"));
    }
}

@implementation NSResponder
- (void)mouseUp:(NSEvent*)event
{
}
- (void)cancelOperation:(id)sender
{
}
@end

// The application

NSNotificationName const NSApplicationDidChangeScreenParametersNotification = @"screens";
__kindof NSApplication* NSApp;

@implementation NSApplication
ANSWERS(+(NSApplication*)sharedApplication, NSApp = shared(self))
ANSWERS(-(BOOL)isActive, mac.isActive)
- (NSAppearance*)effectiveAppearance
{
    return _appearance != nil || mac.appearance == nil
        ? _appearance
        : made(NSAppearance.class, text(mac.appearance));
}
- (NSImage*)applicationIconImage
{
    return _applicationIconImage != nil ? _applicationIconImage : made(NSImage.class, "own icon");
}
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy
{
    note(self, policy == NSApplicationActivationPolicyAccessory ? "accessory" : "in the Dock");
    return YES;
}
- (void)activateIgnoringOtherApps:(BOOL)flag
{
    note(self, flag ? "activate ignoring others" : "activate");
    mac.isActive = true;
}
- (void)hide:(id)sender
{
    note(self, "hide");
    mac.isActive = false;
    mac.isHidden = true;
}
- (void)unhideWithoutActivation
{
    note(self, "unhide");
    mac.isHidden = false;
}
- (void)run
{
    note(self, "run");
    mac.isStopping = mac.hasEvent = false;
    [self.delegate applicationDidFinishLaunching:made(NSNotification.class, "launched")];
    if (mac.whileRunning) {
        mac.whileRunning();
    }
    while (!mac.hasEvent) {
        [NSRunLoop.mainRunLoop runMode:NSDefaultRunLoopMode beforeDate:NSDate.distantFuture];
    }
}
DOES(-(void)stop : (id)sender, mac.isStopping = true)
DOES(-(void)postEvent : (NSEvent*)event atStart : (BOOL)atStart, mac.hasEvent = mac.isStopping)
@end

// Windows

@implementation NSScreen {
    NSRect _frame;
    NSRect _visibleFrame;
}
static NSScreen* screen(NSRect frame, NSRect visible)
{
    NSScreen* const one = [[NSScreen alloc] init];
    one->_frame = frame;
    one->_visibleFrame = visible;
    return one;
}
ANSWERS(+(NSScreen*)mainScreen, screen(mac.screen, mac.visibleScreen))
+ (NSArray<NSScreen*>*)screens
{
    NSMutableArray* const all = [NSMutableArray array];
    [all addObject:self.mainScreen];
    for (const NSRect& other : mac.otherScreens) {
        [all addObject:screen(other, other)];
    }
    return all;
}
ANSWERS(-(NSRect)frame, _frame)
ANSWERS(-(NSRect)visibleFrame, _visibleFrame)
- (BOOL)isEqual:(id)other
{
    return text(_frame) == text(((NSScreen*)other).frame);
}
@end

@interface NSWindow ()
@property (getter=isVisible) BOOL visible;
@property NSRect frame;
@property (strong) NSMutableArray<NSButton*>* standardButtons;
@end
@implementation NSWindow
- (instancetype)initWithContentRect:(NSRect)rect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defer
{
    const bool isPanel = [self isKindOfClass:NSPanel.class];
    _frame = rect;
    _styleMask = style;
    _releasedWhenClosed = !isPanel;
    _hidesOnDeactivate = isPanel;
    _movable = YES;
    _standardButtons = [NSMutableArray array];
    for (int i = 0; i < 3; ++i) {
        [_standardButtons addObject:[[NSButton alloc] initWithFrame:NSZeroRect]];
    }
    mac.windows.push_back(self);
    self.contentView = [[NSView alloc] initWithFrame:{{0, 0}, rect.size}];
    return self;
}
- (void)setContentView:(NSView*)view
{
    _contentView.ownWindow = nil;
    _contentView = view;
    view.ownWindow = self;
}
- (NSScreen*)screen
{
    for (NSScreen* const one in NSScreen.screens) {
        if (NSIntersectsRect(one.frame, _frame)) {
            return one;
        }
    }
    return nil;
}
ANSWERS(-(BOOL)isVisible, _visible && !mac.isHidden)
ANSWERS(-(BOOL)isKeyWindow, mac.keyWindow == self)
ANSWERS(-(BOOL)canBecomeKeyWindow, (_styleMask & NSWindowStyleMaskTitled) != 0)
- (NSView*)standardWindowButton:(NSWindowButton)button
{
    NSUInteger index = 0;
    for (NSView* const one in _standardButtons) {
        if (index++ == button) {
            return one;
        }
    }
    return nil;
}
- (NSRect)convertRectToScreen:(NSRect)rect
{
    return NSMakeRect(rect.origin.x + _frame.origin.x, rect.origin.y + _frame.origin.y,
                      rect.size.width, rect.size.height);
}
- (NSPoint)convertPointFromScreen:(NSPoint)point
{
    return {point.x - _frame.origin.x, point.y - _frame.origin.y};
}
- (void)setLevel:(NSWindowLevel)level
{
    note(self, "level " + std::to_string(level));
    _level = level;
}
DOES(-(void)setContentSize : (NSSize)size, _frame.size = size)
DOES(-(void)setFrameTopLeftPoint
     : (NSPoint)point, _frame.origin = NSMakePoint(point.x, point.y - _frame.size.height))
DOES(-(void)center, note(self, "center"))
- (void)makeKeyAndOrderFront:(id)sender
{
    note(self, "key and front");
    _visible = YES;
    NSWindow* const old = mac.keyWindow;
    if (self.canBecomeKeyWindow && old != self) {
        mac.keyWindow = self;
        [old.delegate windowDidResignKey:made(NSNotification.class, "resigned")];
    }
}
- (void)orderFrontRegardless
{
    note(self, "front regardless");
    _visible = YES;
}
- (void)orderOut:(id)sender
{
    note(self, "out");
    _visible = NO;
    if (mac.keyWindow == self) {
        mac.keyWindow = nil;
        [self.delegate windowDidResignKey:made(NSNotification.class, "resigned")];
    }
}
- (BOOL)makeFirstResponder:(NSResponder*)responder
{
    note(self, responder == nil ? "no first responder" : "first responder");
    return YES;
}
@end
@implementation NSPanel
@end

void voltmere::pressEscape()
{
    NSWindow* const window = mac.keyWindow;
    for (NSView* const view : viewsIn(window.contentView)) {
        NSButton* const button = [view isKindOfClass:NSButton.class] ? (NSButton*)view : nil;
        if (text(button.keyEquivalent) == "\x1b" && button.keyEquivalentModifierMask == 0) {
            press(button);
            return;
        }
    }
    [window cancelOperation:nil];
}

// Views

@interface NSView ()
@property (nullable, readwrite, assign) NSView* superview;
@end
@implementation NSView {
    std::vector<NSView*> _children;
    std::vector<std::string> _constraints;
    std::map<std::string, float> _priorities;
}
- (instancetype)init
{
    return [self initWithFrame:NSZeroRect];
}
- (instancetype)initWithFrame:(NSRect)frame
{
    _frame = frame;
    _translatesAutoresizingMaskIntoConstraints = YES;
    _accessibilityElement = YES;
    return self;
}
- (void)dealloc
{
    for (NSView* const child : _children) {
        child.superview = nil;
    }
}
ANSWERS(-(std::vector<std::string>&)constraints, _constraints)
ANSWERS(-(std::map<std::string, float>&)priorities, _priorities)
ANSWERS(-(NSWindow*)window, _superview != nil ? _superview.window : _ownWindow)
ANSWERS(-(NSRect)bounds, NSMakeRect(0, 0, _frame.size.width, _frame.size.height))
DOES(-(void)setBounds : (NSRect)bounds, _frame.size = bounds.size)
ANSWERS(-(NSArray*)subviews, [NSArray arrayWithObjects:_children.data() count:_children.size()])
- (void)setSubviews:(NSArray<NSView*>*)subviews
{
    const auto old = _children;
    for (NSView* const view : old) {
        [view removeFromSuperview];
    }
    for (NSView* const view in subviews) {
        [self addSubview:view];
    }
}
- (void)addSubview:(NSView*)view
{
    [view removeFromSuperview];
    _children.push_back(view);
    view.superview = self;
}
- (void)removeFromSuperview
{
    NSView* const parent = _superview;
    _superview = nil;
    if (parent != nil) {
        std::erase(parent->_children, self);
    }
}
DOES(-(void)drawRect : (NSRect)dirty, mac.drawn.push_back("the view itself"))
DOES(-(void)layoutSubtreeIfNeeded, note(self, "layout"))
ANSWERS(-(NSSize)fittingSize, mac.fittingSize)
- (NSPoint)originInWindow
{
    const NSPoint outer = _superview == nil ? NSMakePoint(0, 0) : [_superview originInWindow];
    return {outer.x + _frame.origin.x, outer.y + _frame.origin.y};
}
- (NSRect)convertRect:(NSRect)rect toView:(NSView*)view
{
    const NSPoint origin = [self originInWindow];
    return {{rect.origin.x + origin.x, rect.origin.y + origin.y}, rect.size};
}
- (NSPoint)convertPoint:(NSPoint)point fromView:(NSView*)view
{
    const NSPoint origin = [self originInWindow];
    return {point.x - origin.x, point.y - origin.y};
}
- (NSBitmapImageRep*)bitmapImageRepForCachingDisplayInRect:(NSRect)rect
{
    return made(NSBitmapImageRep.class, "");
}
/// The picture holds the texts that a person would read in it.
- (void)cacheDisplayInRect:(NSRect)rect toBitmapImageRep:(NSBitmapImageRep*)bitmap
{
    auto views = viewsIn(self);
    views.push_back(self);
    for (NSView* const view : views) {
        if ([view isKindOfClass:NSButton.class]) {
            summary(bitmap) += text(((NSButton*)view).title) + "\n";
        } else if ([view isKindOfClass:NSTextField.class]) {
            summary(bitmap) += text(((NSTextField*)view).stringValue) + "\n";
        } else if ([view isKindOfClass:NSImageView.class]) {
            for (const std::string& step : drawing(((NSImageView*)view).image)) {
                summary(bitmap) += step + "\n";
            }
        }
    }
}
- (void)setContentHuggingPriority:(NSLayoutPriority)priority
                   forOrientation:(NSLayoutConstraintOrientation)orientation
{
    _priorities["hugging " + std::to_string(orientation)] = priority;
}
- (void)setContentCompressionResistancePriority:(NSLayoutPriority)priority
                                 forOrientation:(NSLayoutConstraintOrientation)orientation
{
    _priorities["resistance " + std::to_string(orientation)] = priority;
}
ANSWERS(-(NSLayoutXAxisAnchor*)leadingAnchor, anchor(NSLayoutXAxisAnchor.class, self, "leading"))
ANSWERS(-(NSLayoutXAxisAnchor*)trailingAnchor, anchor(NSLayoutXAxisAnchor.class, self, "trailing"))
ANSWERS(-(NSLayoutXAxisAnchor*)centerXAnchor, anchor(NSLayoutXAxisAnchor.class, self, "centreX"))
ANSWERS(-(NSLayoutYAxisAnchor*)topAnchor, anchor(NSLayoutYAxisAnchor.class, self, "top"))
ANSWERS(-(NSLayoutYAxisAnchor*)bottomAnchor, anchor(NSLayoutYAxisAnchor.class, self, "bottom"))
ANSWERS(-(NSLayoutYAxisAnchor*)centerYAnchor, anchor(NSLayoutYAxisAnchor.class, self, "centreY"))
ANSWERS(-(NSLayoutDimension*)widthAnchor, anchor(NSLayoutDimension.class, self, "width"))
ANSWERS(-(NSLayoutDimension*)heightAnchor, anchor(NSLayoutDimension.class, self, "height"))
@end

std::vector<NSView*> voltmere::viewsIn(NSView* view)
{
    std::vector<NSView*> all;
    for (NSView* const child in view.subviews) {
        all.push_back(child);
        const auto below = viewsIn(child);
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
}

@implementation NSVisualEffectView
@end
@implementation NSBox
@end

@implementation NSStackView {
    std::vector<NSView*> _arranged;
}
- (instancetype)initWithFrame:(NSRect)frame
{
    _spacing = 8;
    _distribution = NSStackViewDistributionGravityAreas;
    return [super initWithFrame:frame];
}
+ (instancetype)stackViewWithViews:(NSArray<NSView*>*)views
{
    NSStackView* const stack = [[self alloc] init];
    stack.translatesAutoresizingMaskIntoConstraints = NO;
    stack.alignment = NSLayoutAttributeCenterY;
    for (NSView* const view in views) {
        [stack addArrangedSubview:view];
    }
    return stack;
}
- (NSArray*)arrangedSubviews
{
    std::erase_if(_arranged, [self](NSView* view) { return view.superview != self; });
    return [NSArray arrayWithObjects:_arranged.data() count:_arranged.size()];
}
- (void)addArrangedSubview:(NSView*)view
{
    [self addSubview:view];
    _arranged.push_back(view);
}
- (void)setCustomSpacing:(CGFloat)spacing afterView:(NSView*)view
{
    if (std::find(_arranged.begin(), _arranged.end(), view) == _arranged.end()) {
        raise("the view is not in the stack");
    }
    view.gapAfter = spacing;
}
@end

// Controls

@implementation NSControl
- (NSInteger)sendActionOn:(NSEventMask)mask
{
    return static_cast<NSInteger>(std::exchange(_eventMask, mask));
}
- (void)sendAction
{
    id const target = self.target;
    if (target == nil || self.action == nullptr) {
        note(self, "has no target");
        return;
    }
    const IMP body = objc_msg_lookup(target, self.action);
    reinterpret_cast<void (*)(id, SEL, id)>(body)(target, self.action, self);
}
@end

@implementation NSTextField
+ (instancetype)labelWithString:(NSString*)text
{
    NSTextField* const label = [[self alloc] init];
    label.stringValue = text;
    return label;
}
+ (instancetype)wrappingLabelWithString:(NSString*)text
{
    NSTextField* const label = [self labelWithString:text];
    label.selectable = YES;
    return label;
}
@end

@implementation NSButton
+ (instancetype)buttonWithTitle:(NSString*)title target:(id)target action:(SEL)action
{
    NSButton* const button = [[self alloc] init];
    button.title = title;
    button.target = target;
    button.action = action;
    return button;
}
+ (instancetype)checkboxWithTitle:(NSString*)title target:(id)target action:(SEL)action
{
    NSButton* const button = [self buttonWithTitle:title target:target action:action];
    button.isCheckBox = YES;
    return button;
}
DOES(-(void)highlight : (BOOL)highlight, _isHighlighted = highlight)
- (void)mouseUp:(NSEvent*)event
{
    [self highlight:NO];
    [self sendAction];
}
@end

void voltmere::press(NSButton* button)
{
    if (button.isCheckBox) {
        button.state =
            button.state == NSControlStateValueOn ? NSControlStateValueOff : NSControlStateValueOn;
    }
    [button sendAction];
}

@implementation NSPopUpButton {
    std::vector<NSString*> _titles;
    NSInteger _selected;
}
- (instancetype)initWithFrame:(NSRect)frame pullsDown:(BOOL)pullsDown
{
    summary(self) = pullsDown ? "pull-down" : "pop-up";
    _selected = -1;
    return [super initWithFrame:frame];
}
- (void)addItemsWithTitles:(NSArray<NSString*>*)titles
{
    for (NSString* const title in titles) {
        std::erase_if(_titles, [&](NSString* old) { return [old isEqualToString:title]; });
        _titles.push_back(title);
        _selected = std::max(_selected, 0L);
    }
}
- (void)removeAllItems
{
    _titles.clear();
    _selected = -1;
}
- (void)selectItemAtIndex:(NSInteger)index
{
    if (index < -1 || index >= static_cast<NSInteger>(_titles.size())) {
        raise("no such item");
    }
    _selected = index;
}
ANSWERS(-(NSInteger)indexOfSelectedItem, _selected)
ANSWERS(-(NSArray*)itemTitles, [NSArray arrayWithObjects:_titles.data() count:_titles.size()])
@end

void voltmere::choose(NSPopUpButton* popUp, NSInteger index)
{
    [popUp selectItemAtIndex:index];
    [popUp sendAction];
}

@implementation NSImageView
+ (instancetype)imageViewWithImage:(NSImage*)image
{
    NSImageView* const view = [[self alloc] init];
    view.image = image;
    return view;
}
@end

// The alert

@interface NSAlert ()
@property (readwrite, copy) NSArray<NSButton*>* buttons;
@end
@implementation NSAlert
- (instancetype)init
{
    _buttons = @[];
    _messageText = @"Alert";
    _window = [[NSPanel alloc] initWithContentRect:NSMakeRect(500, 300, 300, 400)
                                         styleMask:NSWindowStyleMaskTitled
                                           backing:NSBackingStoreBuffered
                                             defer:NO];
    mac.alert = self;
    return self;
}
ANSWERS(-(NSImage*)icon, _icon != nil ? _icon : NSApp.applicationIconImage)
- (NSButton*)addButtonWithTitle:(NSString*)title
{
    NSMutableArray* const all = [NSMutableArray array];
    for (NSButton* const button in _buttons) {
        [all addObject:button];
    }
    NSButton* const button = [NSButton buttonWithTitle:title target:nil action:nullptr];
    button.frame = NSMakeRect(0, 0, 100, 28);
    button.keyEquivalent = all.count == 0 ? @"\r" : @"";
    [all addObject:button];
    self.buttons = all;
    return button;
}
- (void)layout
{
    note(self, "layout");
    if (_buttons.count == 0) {
        [self addButtonWithTitle:@"OK"];
    }
    [_window.contentView addSubview:_accessoryView];
    for (NSButton* const button in _buttons) {
        [_window.contentView addSubview:button];
    }
}
@end

// The menu bar

@implementation NSStatusBarButton
- (void)setImage:(NSImage*)image
{
    note(self, "image");
    super.image = image;
}
- (void)setToolTip:(NSString*)toolTip
{
    note(self, "tool tip");
    super.toolTip = toolTip;
}
@end

@interface NSStatusItem ()
@property (nullable, readwrite, strong) NSStatusBarButton* button;
@property (strong) NSWindow* window;
@end
@implementation NSStatusItem
@end

@implementation NSStatusBar
ANSWERS(+(NSStatusBar*)systemStatusBar, shared(self))
- (NSStatusItem*)statusItemWithLength:(CGFloat)length
{
    note(self, "item " + number(length));
    NSStatusItem* const item = [[NSStatusItem alloc] init];
    item.button = [[NSStatusBarButton alloc] initWithFrame:{{0, 0}, mac.statusWindow.size}];
    item.window = [[NSWindow alloc] initWithContentRect:mac.statusWindow
                                              styleMask:NSWindowStyleMaskBorderless
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
    [item.window.contentView addSubview:item.button];
    mac.statusItem = item;
    return item;
}
- (void)removeStatusItem:(NSStatusItem*)item
{
    note(self, item == mac.statusItem ? "remove" : "remove another's");
    mac.statusItem = nil;
}
@end

NSNotificationName const NSWorkspaceDidWakeNotification = @"wake";
NSNotificationName const NSWorkspaceActiveSpaceDidChangeNotification = @"space";

@implementation NSWorkspace
ANSWERS(+(NSWorkspace*)sharedWorkspace, shared(self))
ANSWERS(-(NSNotificationCenter*)notificationCenter, shared(NSNotificationCenter.class, "workspace"))
@end
