#include "macos/ui/alert.h"

#include "macos/text.h"
#include "macos/ui/front_end.h"
#include "macos/ui/status_image.h"
#include "snooze/snooze_alert.h"

#include <dispatch/dispatch.h>

#include <utility>

namespace voltmere {

namespace {

// All in points.
constexpr CGFloat iconSide = 64;
constexpr CGFloat fontSize = 13;
constexpr CGFloat popUpWidth = 52;
constexpr CGFloat colonSpacing = 3; // on both sides

NSTextField* makeAlertLabel(const std::string& text, NSFont* font, NSColor* colour)
{
    NSTextField* const label = [NSTextField labelWithString:cocoaText(text)];
    label.font = font;
    label.alignment = NSTextAlignmentCenter;
    label.textColor = colour;
    [label.heightAnchor constraintEqualToConstant:alertGeometry::labelHeight].active = YES;
    return label;
}

/// A wide label moves the rows to the side, and a name from outside may have any length. It lies at
/// the start of the title, so the middle of a title that is too wide belongs to the name.
NSTextField* makeTitleLabel(const NamedText& title)
{
    NSTextField* const label =
        makeAlertLabel(title.whole(), [NSFont boldSystemFontOfSize:fontSize], NSColor.labelColor);
    if (!title.name.empty()) {
        label.lineBreakMode = NSLineBreakByTruncatingMiddle;
        label.allowsExpansionToolTips = YES;
        [label.widthAnchor constraintLessThanOrEqualToConstant:alertGeometry::width].active = YES;
    }
    return label;
}

void makeRowSized(NSView* view)
{
    view.translatesAutoresizingMaskIntoConstraints = NO;
    [NSLayoutConstraint activateConstraints:@[
        [view.widthAnchor constraintEqualToConstant:alertGeometry::width],
        [view.heightAnchor constraintEqualToConstant:alertGeometry::rowHeight],
    ]];
}

} // namespace

SnoozeAlert::SnoozeAlert(const AlertContent& content, const AlertActions& actions,
                         MacApplication& application)
    : application(application)
{
    alert.messageText = @"";
    alert.alertStyle = NSAlertStyleWarning;
    NSImage* const icon = AppIconAsset::appImage(iconSide);
    // Without an icon of its own an alert shows the application's.
    alert.icon = icon != nil ? icon : [[NSImage alloc] initWithSize:NSMakeSize(1, 1)];
    [alert addButtonWithTitle:cocoaText(content.cancelTitle)];
    connectCancelButton(actions);
    alert.accessoryView = makeAccessory(content, actions);
    [alert layout];
}

SnoozeAlert::~SnoozeAlert()
{
    orderOut();
    // The alert's button may be the caller, so the alert goes in the next turn.
    NSAlert* const kept = alert;
    dispatch_async(dispatch_get_main_queue(), ^{ (void)kept; });
}

void SnoozeAlert::show(RunLoop& runLoop)
{
    onScreen = true;
    NSWindow* const shown = alert.window;
    [shown center];
    shown.level = NSFloatingWindowLevel;
    shown.hidesOnDeactivate = NO;
    application.windowOpens();
    application.activate();
    [shown makeKeyAndOrderFront:nil];
    // The system may refuse the activation; the alert then floats without the keyboard.
    [shown orderFrontRegardless];
    // The alert appears while a person may be typing: no control must take the next key.
    [shown makeFirstResponder:nil];
    hoverPoller = std::make_unique<HoverPoller>(shown, hoverItems, runLoop);
}

void SnoozeAlert::bringToFront()
{
    [alert.window makeKeyAndOrderFront:nil];
}

void SnoozeAlert::orderOut()
{
    if (!std::exchange(onScreen, false)) {
        return;
    }
    hoverPoller->stop();
    hoverPoller.reset();
    [alert.window orderOut:nil];
    application.windowCloses();
}

/// Escape presses it, and Return presses nothing.
void SnoozeAlert::connectCancelButton(const AlertActions& actions)
{
    VoltmereActionTarget* const target = rowTargets.add(actions.cancel);
    alert.buttons.firstObject.target = target;
    alert.buttons.firstObject.action = @selector(fire);
    alert.buttons.firstObject.keyEquivalent = @"\x1b";
    alert.buttons.firstObject.keyEquivalentModifierMask = 0;
    if (NSButton* const cancel = alert.buttons.firstObject) {
        nativeHover = [[VoltmereNativeButtonHover alloc] init];
        nativeHover.button = cancel;
        hoverItems.push_back({cancel, nativeHover});
    }
}

NSView* SnoozeAlert::makeAccessory(const AlertContent& content, const AlertActions& actions)
{
    NSStackView* const stack = [NSStackView stackViewWithViews:@[]];
    stack.orientation = NSUserInterfaceLayoutOrientationVertical;
    stack.alignment = NSLayoutAttributeCenterX;
    stack.spacing = alertGeometry::spacing;

    NSFont* const font = [NSFont systemFontOfSize:fontSize];
    [stack addArrangedSubview:makeAlertLabel(content.applicationName, font, NSColor.labelColor)];
    [stack addArrangedSubview:makeTitleLabel(content.title)];
    [stack addArrangedSubview:makeAlertLabel(content.detail, font,
                                             content.detailIsRed ? NSColor.systemRedColor
                                                                 : NSColor.labelColor)];
    [stack addArrangedSubview:makeAlertLabel(content.prompt, font, NSColor.labelColor)];
    for (std::size_t index = 0; index < content.options.size(); ++index) {
        [stack addArrangedSubview:optionRow(
                                      cocoaText(content.options[index]),
                                      [choose = actions.chooseOption, index] { choose(index); })];
    }
    [stack addArrangedSubview:customTimeRow(content, actions)];

    stack.translatesAutoresizingMaskIntoConstraints = NO;
    NSView* const container = [[NSView alloc]
        initWithFrame:NSMakeRect(0, 0, alertGeometry::width, alertGeometry::height())];
    [container addSubview:stack];
    [NSLayoutConstraint activateConstraints:@[
        [stack.topAnchor constraintEqualToAnchor:container.topAnchor],
        [stack.leadingAnchor constraintEqualToAnchor:container.leadingAnchor],
    ]];
    return container;
}

NSView* SnoozeAlert::optionRow(NSString* title, std::function<void()> action)
{
    VoltmereHoverButton* const button =
        [VoltmereHoverButton buttonWithTitle:title
                                      target:rowTargets.add(std::move(action))
                                      action:@selector(fire)];
    button.controlSize = NSControlSizeLarge;
    makeRowSized(button);
    hoverItems.push_back({button, button});
    return button;
}

NSView* SnoozeAlert::customTimeRow(const AlertContent& content, const AlertActions& actions)
{
    NSView* const row = [[NSView alloc] initWithFrame:NSZeroRect];
    makeRowSized(row);
    VoltmereHoverPopUpButton* const hour = makePopUp(content.hour);
    VoltmereHoverPopUpButton* const minute = makePopUp(content.minute);
    VoltmereActionTarget* const target =
        rowTargets.add([hour, minute, choose = actions.chooseTime, hours = content.hour.values,
                        minutes = content.minute.values] {
            const auto hourChoice = selectedChoice(hour);
            const auto minuteChoice = selectedChoice(minute);
            if (hourChoice && minuteChoice) {
                choose(hours.at(*hourChoice), minutes.at(*minuteChoice));
            }
        });
    VoltmereHoverButton* const confirm =
        [VoltmereHoverButton buttonWithTitle:cocoaText(content.confirmTitle)
                                      target:target
                                      action:@selector(fire)];
    confirm.translatesAutoresizingMaskIntoConstraints = NO;
    hoverItems.insert(hoverItems.end(), {{hour, hour}, {minute, minute}, {confirm, confirm}});

    NSTextField* const colon = [NSTextField labelWithString:@":"];
    NSTextField* const caption = [NSTextField labelWithString:cocoaText(content.customTimeCaption)];
    NSStackView* const stack =
        [NSStackView stackViewWithViews:@[ caption, hour, colon, minute, confirm ]];
    stack.orientation = NSUserInterfaceLayoutOrientationHorizontal;
    stack.spacing = alertGeometry::spacing;
    stack.alignment = NSLayoutAttributeCenterY;
    stack.translatesAutoresizingMaskIntoConstraints = NO;
    [stack setCustomSpacing:colonSpacing afterView:hour];
    [stack setCustomSpacing:colonSpacing afterView:colon];
    [row addSubview:stack];
    [NSLayoutConstraint activateConstraints:@[
        [stack.centerXAnchor constraintEqualToAnchor:row.centerXAnchor],
        [stack.centerYAnchor constraintEqualToAnchor:row.centerYAnchor],
    ]];
    return row;
}

VoltmereHoverPopUpButton* SnoozeAlert::makePopUp(const PopUp<std::int64_t>& content)
{
    VoltmereHoverPopUpButton* const popUp =
        [[VoltmereHoverPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
    presentChoices(popUp, content.titles, content.selected);
    [popUp setAccessibilityLabel:cocoaText(content.name)];
    popUp.translatesAutoresizingMaskIntoConstraints = NO;
    [popUp.widthAnchor constraintEqualToConstant:popUpWidth].active = YES;
    return popUp;
}

} // namespace voltmere
