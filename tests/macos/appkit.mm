// Stand-ins of AppKit.

#include "mac.h"

#include <algorithm>
#include <utility>

using namespace voltmere;

// Appearance

NSAppearanceName const NSAppearanceNameAqua = @"light";
NSAppearanceName const NSAppearanceNameDarkAqua = @"dark";
static std::string drawnIn; ///< the appearance

@implementation NSAppearance
+ (NSAppearance*)appearanceNamed:(NSAppearanceName)name RETURNS(made(self, text(name)));
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

// Drawing. Each step is written down.

static std::string fillColour;

@implementation NSColor
+ (NSColor*)whiteColor RETURNS(shared(self, "white"));
+ (NSColor*)blackColor RETURNS(shared(self, "black"));
+ (NSColor*)labelColor RETURNS(shared(self, "label"));
+ (NSColor*)secondaryLabelColor RETURNS(shared(self, "secondary"));
+ (NSColor*)systemRedColor RETURNS(shared(self, "red"));
+ (NSColor*)windowBackgroundColor RETURNS(shared(self, "background"));
- (void)setFill DOES(fillColour = summary(self));
- (NSColor*)colorWithAlphaComponent:(CGFloat)alpha
    RETURNS(made(NSColor.class, summary(self) + " " + number(alpha)));
@end

const NSFontWeight NSFontWeightBold = 0.4;
NSFontTextStyle const NSFontTextStyleHeadline = @"headline";

@implementation NSFont
+ (NSFont*)systemFontOfSize:(CGFloat)size RETURNS(made(self, "regular " + number(size)));
+ (NSFont*)boldSystemFontOfSize:(CGFloat)size RETURNS(made(self, "bold " + number(size)));
+ (NSFont*)systemFontOfSize:(CGFloat)size
                     weight:(NSFontWeight)weight
    RETURNS(made(self, (weight == NSFontWeightBold ? "bold " : "regular ") + number(size)));
+ (NSFont*)preferredFontForTextStyle:(NSFontTextStyle)style
                             options:(NSDictionary*)options RETURNS(made(self, text(style)));
@end

@implementation NSBezierPath
+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)rect
                                   xRadius:(CGFloat)x
                                   yRadius:(CGFloat)y
    RETURNS(made(self, text(rect) + " rounded " + number(x) + " " + number(y)));
- (void)fill DOES(mac.drawn.push_back("fill " + summary(self) + " " + fillColour));
@end

/// The context of a bitmap is the bitmap itself.
@implementation NSGraphicsContext
static id currentBitmap;
+ (NSGraphicsContext*)currentContext RETURNS(currentBitmap);
+ (void)setCurrentContext:(NSGraphicsContext*)context DOES(currentBitmap = context);
+ (void)saveGraphicsState DOES();
+ (void)restoreGraphicsState DOES(currentBitmap = nil);
+ (NSGraphicsContext*)graphicsContextWithBitmapImageRep:(id)bitmap RETURNS(bitmap);
@end

void NSRectFillUsingOperation(NSRect rect, NSCompositingOperation operation)
{
    const bool isBelow = operation == NSCompositingOperationDestinationOver;
    summary(currentBitmap) += (isBelow ? "on " : "under ") + drawnIn + fillColour + "\n";
}

NSAttributedStringKey const NSFontAttributeName = @"font";
NSAttributedStringKey const NSForegroundColorAttributeName = @"colour";

EMPTY(NSImageRep)
@implementation NSBitmapImageRep
- (NSData*)representationUsingType:(NSBitmapImageFileType)type
                        properties:(NSDictionary*)properties
    RETURNS(made(NSData.class, (type == NSBitmapImageFileTypePNG ? "PNG " : "") + summary(self)));
@end

@implementation NSImage {
    BOOL _isTemplate;
    BOOL (^_handler)(NSRect);
}
- (instancetype)initWithSize:(NSSize)size DOES(_size = size; return self);
- (instancetype)initWithContentsOfURL:(NSURL*)url
{
    summary(self) = summary(url);
    return mac.noImages.count(summary(url)) == 0 ? self : nil;
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
    RETURNS(mac.noImages.count(text(name)) == 0 ? made(self, text(name)) : nil);
- (BOOL)isTemplate RETURNS(_isTemplate);
- (void)setTemplate:(BOOL)isTemplate DOES(_isTemplate = isTemplate);
- (void)drawInRect:(NSRect)rect
{
    if (_handler == nil) {
        mac.drawn.push_back(summary(self) + " in " + text(rect));
    } else if (!_handler(rect)) {
        mac.drawn.push_back("failed");
    }
}
@end

std::vector<std::string> voltmere::drawing(id shown)
{
    mac.drawn.clear();
    if ([shown isKindOfClass:NSImage.class]) {
        [(NSImage*)shown drawInRect:{{0, 0}, [(NSImage*)shown size]}];
    } else {
        [(NSView*)shown drawRect:[(NSView*)shown bounds]];
    }
    return mac.drawn;
}

// Layout

static NSRect moved(NSRect rect, NSPoint by)
    RETURNS({{rect.origin.x + by.x, rect.origin.y + by.y}, rect.size});
static NSView* root(NSView* view) RETURNS(view.superview == nil ? view : root(view.superview));

@implementation NSLayoutConstraint {
@public
    __weak NSView* _view;
    __weak NSView* _other;
}
- (void)setActive:(BOOL)active
{
    if (_other != nil && root(_view) != root(_other)) {
        raise("the views of a constraint have no common ancestor");
    }
    if (active) {
        [_view constraints].push_back(summary(self));
    }
}
@end

@implementation NSLayoutAnchor {
    __weak NSView* _view;
}
static id anchor(id itsClass, NSView* view, const char* name)
{
    NSLayoutAnchor* const anchor = made(itsClass, name);
    anchor->_view = view;
    return anchor;
}
static id constraint(NSLayoutAnchor* anchor, std::string relation, NSLayoutAnchor* other = nil)
{
    if (other != nil) {
        relation += other->_view == anchor->_view.superview ? "superview " : "another's ";
        relation += summary(other);
    }
    NSLayoutConstraint* const one = made(NSLayoutConstraint.class, summary(anchor) + relation);
    one->_view = anchor->_view;
    one->_other = other == nil ? nil : other->_view;
    return one;
}
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor*)other
    RETURNS(constraint(self, " = ", other));
@end
EMPTY(NSLayoutXAxisAnchor)
EMPTY(NSLayoutYAxisAnchor)
@implementation NSLayoutDimension
- (NSLayoutConstraint*)constraintEqualToConstant:(CGFloat)constant
    RETURNS(constraint(self, " = " + number(constant)));
- (NSLayoutConstraint*)constraintLessThanOrEqualToConstant:(CGFloat)constant
    RETURNS(constraint(self, " <= " + number(constant)));
@end

// Events

/// Where the monitors of other programs' events wait, by the mask of these events.
static NSNotificationCenter* events() RETURNS(shared(NSNotificationCenter.class, "events"));

@implementation NSEvent
+ (NSPoint)mouseLocation RETURNS(mac.pointer);
+ (NSUInteger)pressedMouseButtons RETURNS(mac.pressedButtons);
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent*))handler
    RETURNS([events() addObserverForName:cocoaText(std::to_string(mask))
                                  object:nil
                                   queue:nil
                              usingBlock:(id)handler]);
+ (void)removeMonitor:(id)monitor DOES([events()removeObserver:monitor]);
+ (NSEvent*)otherEventWithType:(NSEventType)type
                      location:(NSPoint)location
                 modifierFlags:(NSEventModifierFlags)flags
                     timestamp:(NSTimeInterval)time
                  windowNumber:(NSInteger)window
                       context:(id)context
                       subtype:(short)subtype
                         data1:(NSInteger)data1
                         data2:(NSInteger)data2 RETURNS(made(self, "event"));
@end

void voltmere::clickElsewhere()
    DOES(post(events(),
              cocoaText(std::to_string(NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown))));

@implementation NSResponder
- (void)mouseUp:(NSEvent*)event DOES();
- (void)cancelOperation:(id)sender DOES();
@end

// The application

__kindof NSApplication* NSApp;

@implementation NSApplication
+ (NSApplication*)sharedApplication RETURNS(NSApp = shared(self));
- (BOOL)isActive RETURNS(mac.isActive);
- (NSAppearance*)effectiveAppearance
    RETURNS(_appearance != nil || mac.appearance == nil
                ? _appearance
                : [NSAppearance appearanceNamed:mac.appearance]);
- (NSImage*)applicationIconImage RETURNS(made(NSImage.class, "own icon"));
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy
    RETURNS(mac.isAgent = policy == NSApplicationActivationPolicyAccessory);
- (void)activateIgnoringOtherApps:(BOOL)flag DOES(mac.isActive = flag);
- (void)hide:(id)sender DOES(mac.isActive = false; mac.isHidden = true);
- (void)unhideWithoutActivation DOES(mac.isHidden = false);
- (void)run
{
    mac.isStopping = mac.hasEvent = false;
    [self.delegate applicationDidFinishLaunching:made(NSNotification.class, "launched")];
    if (mac.whileRunning) {
        mac.whileRunning();
    }
    while (!mac.hasEvent) {
        [NSRunLoop.mainRunLoop runMode:NSDefaultRunLoopMode beforeDate:NSDate.distantFuture];
    }
}
- (void)stop:(id)sender DOES(mac.isStopping = true);
- (void)postEvent:(NSEvent*)event atStart:(BOOL)atStart DOES(mac.hasEvent = mac.isStopping);
@end

// Windows

@implementation NSScreen
static NSScreen* screen(NSRect frame, NSRect visible)
{
    NSScreen* const one = [[NSScreen alloc] init];
    one.frame = frame;
    one.visibleFrame = visible;
    return one;
}
+ (NSScreen*)mainScreen RETURNS(screen(mac.screen, mac.visibleScreen));
+ (NSArray<NSScreen*>*)screens
{
    std::vector<id> all{self.mainScreen};
    for (const NSRect& other : mac.otherScreens) {
        all.push_back(screen(other, other));
    }
    return array(all);
}
- (BOOL)isEqual:(id)other RETURNS(text(_frame) == text(((NSScreen*)other).frame));
@end

@implementation NSWindow {
    std::vector<NSButton*> _standardButtons;
}
- (instancetype)initWithContentRect:(NSRect)rect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defer
{
    _frame = rect;
    _styleMask = style;
    _hidesOnDeactivate = [self isKindOfClass:NSPanel.class];
    _movable = YES;
    _standardButtons = {[[NSButton alloc] init], [[NSButton alloc] init], [[NSButton alloc] init]};
    mac.windows.push_back(self);
    mac.panel = (style & NSWindowStyleMaskNonactivatingPanel) != 0 ? self : mac.panel;
    self.contentView = [[NSView alloc] initWithFrame:{{0, 0}, rect.size}];
    return self;
}
- (void)setContentView:(NSView*)view DOES(_contentView = view; view.ownWindow = self);
- (NSScreen*)screen RETURNS(NSIntersectsRect(mac.screen, _frame) ? NSScreen.mainScreen : nil);
- (BOOL)isVisible RETURNS(_visible && !mac.isHidden);
- (BOOL)canBecomeKeyWindow RETURNS((_styleMask & NSWindowStyleMaskTitled) != 0);
- (NSView*)standardWindowButton:(NSWindowButton)button RETURNS(_standardButtons[button]);
- (NSRect)convertRectToScreen:(NSRect)rect RETURNS(moved(rect, _frame.origin));
- (NSPoint)convertPointFromScreen:(NSPoint)point
    RETURNS(NSMakePoint(point.x - _frame.origin.x, point.y - _frame.origin.y));
- (void)setContentSize:(NSSize)size
{
    _frame.size = size;
    _contentView.frame = {{0, 0}, size};
}
- (void)setFrameTopLeftPoint:(NSPoint)point
    DOES(_frame.origin = NSMakePoint(point.x, point.y - _frame.size.height));
- (void)center DOES();
- (void)makeKeyAndOrderFront:(id)sender
{
    _visible = YES;
    if (self.canBecomeKeyWindow && mac.keyWindow != self) {
        NSWindow* const old = mac.keyWindow;
        mac.keyWindow = self;
        [old.delegate windowDidResignKey:made(NSNotification.class, "resigned")];
    }
}
- (void)orderFrontRegardless DOES(_visible = YES);
- (void)orderOut:(id)sender
{
    _visible = NO;
    if (mac.keyWindow == self) {
        mac.keyWindow = nil;
        [self.delegate windowDidResignKey:made(NSNotification.class, "resigned")];
    }
}
- (BOOL)makeFirstResponder:(NSResponder*)responder RETURNS(responder == nil);
@end
EMPTY(NSPanel)

void voltmere::pressEscape()
{
    NSWindow* const window = mac.keyWindow;
    for (NSButton* const button : viewsIn(window.contentView, NSButton.class)) {
        if (text(button.keyEquivalent) == "\x1b" && button.keyEquivalentModifierMask == 0) {
            press(button);
            return;
        }
    }
    [window cancelOperation:nil];
}

// Views

@implementation NSView {
    __weak NSView* _parent;
    std::vector<id> _children;
    std::vector<std::string> _constraints;
    BOOL _isSpacer;
@protected
    BOOL _givesWay;
}
- (instancetype)init RETURNS([self initWithFrame:NSZeroRect]);
- (instancetype)initWithFrame:(NSRect)frame
{
    _frame = frame;
    _translatesAutoresizingMaskIntoConstraints = YES;
    _accessibilityElement = YES;
    return self;
}
- (NSView*)superview RETURNS(_parent);
- (std::vector<std::string>&)constraints RETURNS(_constraints);
- (NSWindow*)window RETURNS(_parent != nil ? _parent.window : _ownWindow);
- (NSRect)bounds RETURNS(NSMakeRect(0, 0, _frame.size.width, _frame.size.height));
- (NSArray*)subviews RETURNS(array(_children));
- (void)addSubview:(NSView*)view
{
    [view removeFromSuperview];
    _children.push_back(view);
    view->_parent = self;
}
- (void)removeFromSuperview
{
    if (NSView* const parent = _parent) {
        _parent = nil;
        std::erase(parent->_children, self);
    }
}
- (void)drawRect:(NSRect)dirty DOES(mac.drawn.push_back("the view itself"));
- (void)layoutSubtreeIfNeeded DOES();
- (NSSize)fittingSize RETURNS(mac.fittingSize);
- (NSPoint)placeInWindow
    RETURNS(_parent == nil ? _frame.origin : moved(_frame, [_parent placeInWindow]).origin);
- (NSRect)convertRect:(NSRect)rect toView:(NSView*)view RETURNS(moved(rect, [self placeInWindow]));
- (NSPoint)convertPoint:(NSPoint)point fromView:(NSView*)view
{
    const NSPoint place = [self placeInWindow];
    return {point.x - place.x, point.y - place.y};
}
- (NSBitmapImageRep*)bitmapImageRepForCachingDisplayInRect:(NSRect)rect
    RETURNS(made(NSBitmapImageRep.class, ""));
- (void)cacheDisplayInRect:(NSRect)rect
          toBitmapImageRep:(NSBitmapImageRep*)bitmap
    DOES(summary(bitmap) += text(rect) + "\n" + [self seen] + "\n");
- (std::string)seen
{
    const bool isColumn = [self isKindOfClass:NSStackView.class] &&
        ((NSStackView*)self).orientation == NSUserInterfaceLayoutOrientationVertical;
    std::string all = _isSpacer ? "~" : "";
    for (NSView* const child : _children) {
        std::string part = child.hidden ? "" : [child seen];
        for (const std::string& constraint : [child constraints]) {
            part += "{" + constraint + "}";
        }
        part += child.gapAfter == 0 ? "" : "{gap " + number(child.gapAfter) + "}";
        // A label takes what its stack gives.
        const bool isFree = [child isKindOfClass:NSTextField.class] ||
            ([child class] != NSView.class && [child constraints].empty());
        part += isFree || !child.translatesAutoresizingMaskIntoConstraints ? "" : "{autoresized}";
        all += (all.empty() || part.empty() ? "" : isColumn ? "\n" : " ") + part;
    }
    return all;
}
- (void)setContentHuggingPriority:(NSLayoutPriority)priority
                   forOrientation:(NSLayoutConstraintOrientation)orientation
    DOES(_isSpacer = priority == 1 && orientation == NSLayoutConstraintOrientationHorizontal);
- (void)setContentCompressionResistancePriority:(NSLayoutPriority)priority
                                 forOrientation:(NSLayoutConstraintOrientation)orientation
    DOES(_givesWay = priority == 250 && orientation == NSLayoutConstraintOrientationHorizontal);
- (NSLayoutXAxisAnchor*)leadingAnchor RETURNS(anchor(NSLayoutXAxisAnchor.class, self, "leading"));
- (NSLayoutXAxisAnchor*)centerXAnchor RETURNS(anchor(NSLayoutXAxisAnchor.class, self, "centreX"));
- (NSLayoutYAxisAnchor*)topAnchor RETURNS(anchor(NSLayoutYAxisAnchor.class, self, "top"));
- (NSLayoutYAxisAnchor*)centerYAnchor RETURNS(anchor(NSLayoutYAxisAnchor.class, self, "centreY"));
- (NSLayoutDimension*)widthAnchor RETURNS(anchor(NSLayoutDimension.class, self, "width"));
- (NSLayoutDimension*)heightAnchor RETURNS(anchor(NSLayoutDimension.class, self, "height"));
@end

std::vector<id> voltmere::viewsIn(NSView* view, id itsClass)
{
    std::vector<id> all;
    for (NSView* const child in view.subviews) {
        if ([child isKindOfClass:itsClass]) {
            all.push_back(child);
        }
        std::ranges::copy(viewsIn(child, itsClass), std::back_inserter(all));
    }
    return all;
}

@implementation NSBox
- (std::string)seen RETURNS(_boxType == NSBoxSeparator ? "---" : "box");
@end

/// Shows its subviews in their order.
@implementation NSStackView
- (std::string)seen
{
    const bool isFilled = _distribution == NSStackViewDistributionFill;
    const bool isRow = _orientation == NSUserInterfaceLayoutOrientationHorizontal;
    const std::string insets =
        text(NSMakeRect(_edgeInsets.top, _edgeInsets.left, _edgeInsets.bottom, _edgeInsets.right));
    return [super seen] + (_spacing == 8 ? "" : "{spacing " + number(_spacing) + "}") +
        (_alignment == NSLayoutAttributeLeading       ? "{leading}"
             : _alignment == NSLayoutAttributeCenterX ? "{centreX}"
             : _alignment == NSLayoutAttributeCenterY ? "{centreY}"
                                                      : "") +
        (isRow && !isFilled ? "{gravity}" : "") +
        (insets == "0 0 0 0" ? "" : "{insets " + insets + "}");
}
+ (instancetype)stackViewWithViews:(NSArray<NSView*>*)views
{
    NSStackView* const stack = [[self alloc] init];
    stack.distribution = static_cast<NSStackViewDistribution>(-1); // gravity areas
    stack.spacing = 8;
    stack.translatesAutoresizingMaskIntoConstraints = NO;
    for (NSView* const view in views) {
        [stack addArrangedSubview:view];
    }
    return stack;
}
- (NSArray*)arrangedSubviews RETURNS(self.subviews);
- (void)addArrangedSubview:(NSView*)view DOES([self addSubview:view]);
- (void)setCustomSpacing:(CGFloat)spacing afterView:(NSView*)view
{
    if (view.superview != self) {
        raise("the view is not in the stack");
    }
    view.gapAfter = spacing;
}
@end

// Controls

@implementation NSControl
- (NSInteger)sendActionOn:(NSEventMask)mask
    RETURNS(static_cast<NSInteger>(std::exchange(_eventMask, mask)));
- (void)sendAction
{
    id const target = self.target;
    if (target != nil) {
        const IMP body = objc_msg_lookup(target, self.action);
        reinterpret_cast<void (*)(id, SEL, id)>(body)(target, self.action, self);
    }
}
@end

@implementation NSTextField
- (std::string)seen
{
    const bool isCut =
        self.lineBreakMode == NSLineBreakByTruncatingMiddle && self.allowsExpansionToolTips;
    const std::string width = number(_preferredMaxLayoutWidth);
    return (text(self.stringValue).empty() ? "nothing" : text(self.stringValue)) +
        (self.font == nil ? "" : " " + summary(self.font)) +
        (_textColor == nil ? "" : " " + summary(_textColor)) +
        (self.alignment == NSTextAlignmentCenter ? " centred" : "") + (isCut ? " cut" : "") +
        (_givesWay ? " first" : "") + (_selectable ? " selectable" : "") +
        (width == "0" ? "" : " over " + width);
}
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
- (std::string)seen
{
    const char* const mark = _state == NSControlStateValueOn ? "x " : "o ";
    return (self.controlSize == NSControlSizeLarge ? "large [" : "[") +
        std::string(_isCheckBox ? mark : "") + text(_title) + "]";
}
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
- (void)highlight:(BOOL)highlight DOES(_isHighlighted = highlight);
- (void)mouseUp:(NSEvent*)event DOES([self highlight:NO]; [self sendAction]);
@end

void voltmere::press(NSButton* button)
{
    if (button.isCheckBox) {
        button.state = NSControlStateValueOn - button.state;
    }
    [button sendAction];
}

@implementation NSPopUpButton {
    std::vector<id> _titles;
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
- (void)removeAllItems DOES(_titles.clear(); _selected = -1);
- (void)selectItemAtIndex:(NSInteger)index
{
    if (index < -1 || index >= static_cast<NSInteger>(_titles.size())) {
        raise("no such item");
    }
    _selected = index;
}
- (std::string)seen RETURNS(
    "<" + (_selected < 0 ? "" : text(_titles[static_cast<std::size_t>(_selected)])) + ">");
- (NSInteger)indexOfSelectedItem RETURNS(_selected);
- (NSArray*)itemTitles RETURNS(array(_titles));
@end

void voltmere::choose(NSPopUpButton* popUp, NSInteger index)
{
    [popUp selectItemAtIndex:index];
    [popUp sendAction];
}

@implementation NSImageView
- (std::string)seen RETURNS("(" +
                            (summary(_image) == "drawn" ? drawing(_image).back()
                                                        : summary(_image)) +
                            (self.isAccessibilityElement ? ", read out)" : ")"));
+ (instancetype)imageViewWithImage:(NSImage*)image
{
    if (image == nil) {
        raise("an image view needs an image");
    }
    NSImageView* const view = [[self alloc] init];
    view.image = image;
    return view;
}
@end

// The alert

@implementation NSAlert {
    std::vector<id> _all;
}
- (instancetype)init
{
    _window = [[NSPanel alloc] initWithContentRect:NSMakeRect(500, 300, 300, 400)
                                         styleMask:NSWindowStyleMaskTitled
                                           backing:NSBackingStoreBuffered
                                             defer:NO];
    mac.alert = self;
    return self;
}
- (NSImage*)icon RETURNS(_icon != nil ? _icon : NSApp.applicationIconImage);
- (NSArray*)buttons RETURNS(array(_all));
- (NSButton*)addButtonWithTitle:(NSString*)title
{
    NSButton* const button = [NSButton buttonWithTitle:title target:nil action:nullptr];
    button.frame = NSMakeRect(0, 0, 100, 28);
    button.keyEquivalent = _all.empty() ? @"\r" : @"";
    button.keyEquivalentModifierMask = 1; // so that a test sees it being cleared
    _all.push_back(button);
    return button;
}
- (void)layout
{
    [_window.contentView addSubview:_accessoryView];
    for (NSButton* const button : _all) {
        [_window.contentView addSubview:button];
    }
}
@end

// The menu bar

EMPTY(NSStatusBarButton)
EMPTY(NSStatusItem)

@implementation NSStatusBar
+ (NSStatusBar*)systemStatusBar RETURNS(shared(self));
- (NSStatusItem*)statusItemWithLength:(CGFloat)length
{
    NSStatusItem* const item = made(NSStatusItem.class, number(length));
    item.button = [[NSStatusBarButton alloc] initWithFrame:{{0, 0}, mac.statusWindow.size}];
    item.window = [[NSWindow alloc] initWithContentRect:mac.statusWindow
                                              styleMask:NSWindowStyleMaskBorderless
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
    [item.window.contentView addSubview:item.button];
    mac.statusItem = item;
    return item;
}
- (void)removeStatusItem:(NSStatusItem*)item DOES(item.window = nil);
@end

NSNotificationName const NSWorkspaceDidWakeNotification = @"wake";
NSNotificationName const NSWorkspaceActiveSpaceDidChangeNotification = @"space";

@implementation NSWorkspace
+ (NSWorkspace*)sharedWorkspace RETURNS(shared(self));
- (NSNotificationCenter*)notificationCenter RETURNS(shared(NSNotificationCenter.class,
                                                           "workspace"));
@end
