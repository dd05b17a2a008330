#include "macos/ui/front_end.h"

#include "macos/text.h"
#include "macos/ui/controls.h"
#include "snooze/snooze_alert.h"

#include <dispatch/dispatch.h>

#include <utility>
#include <vector>

namespace voltmere {

namespace {

constexpr CGFloat fontSize = 13; // points

void fixHeight(NSView* view, CGFloat height)
{
    [view.heightAnchor constraintEqualToConstant:height].active = YES;
}

NSTextField* makeAlertLabel(const std::string& text, NSColor* colour = NSColor.labelColor)
{
    NSTextField* const label = [NSTextField labelWithString:cocoaText(text)];
    label.font = [NSFont systemFontOfSize:fontSize];
    label.alignment = NSTextAlignmentCenter;
    label.textColor = colour;
    fixHeight(label, alertGeometry::labelHeight);
    return label;
}

/// A wide label moves the rows to the side, and a name from outside may have any length. It lies at
/// the start of the title, so the middle of a title that is too wide belongs to the name.
NSTextField* makeTitleLabel(const NamedText& title)
{
    NSTextField* const label = makeAlertLabel(title.whole());
    label.font = [NSFont boldSystemFontOfSize:fontSize];
    if (!title.name.empty()) {
        label.lineBreakMode = NSLineBreakByTruncatingMiddle;
        label.allowsExpansionToolTips = YES;
        [label.widthAnchor constraintLessThanOrEqualToConstant:alertGeometry::width].active = YES;
    }
    return label;
}

class NativeSnoozeAlert : public SnoozeAlert {
public:
    NativeSnoozeAlert(const AlertContent& content, const AlertActions& actions)
    {
        constexpr CGFloat iconSide = 64; // points
        alert.messageText = @"";
        alert.alertStyle = NSAlertStyleWarning;
        NSImage* const icon = AppIconAsset::appImage(iconSide);
        // Without an icon of its own an alert shows the application's.
        alert.icon = icon != nil ? icon : [[NSImage alloc] initWithSize:NSMakeSize(1, 1)];
        addCancel(content.cancelTitle, actions);
        alert.accessoryView = makeAccessory(content, actions);
        [alert layout];
    }

    ~NativeSnoozeAlert() override
    {
        orderOut();
        // The alert's button may be the caller, so the alert goes in the next turn.
        NSAlert* const kept = alert;
        dispatch_async(dispatch_get_main_queue(), ^{ (void)kept; });
    }

    bool isVisible() const override { return alert.window.visible; }

    void bringToFront() override
    {
        NSWindow* const window = alert.window;
        if (hoverPoller != nullptr) {
            [window makeKeyAndOrderFront:nil];
            return;
        }
        [window center];
        window.level = NSFloatingWindowLevel;
        window.hidesOnDeactivate = NO;
        windowOpens();
        [NSApp activateIgnoringOtherApps:YES];
        [window makeKeyAndOrderFront:nil];
        // The system may refuse the activation; the alert then floats without the keyboard.
        [window orderFrontRegardless];
        // The alert appears while a person may be typing: no control must take the next key.
        [window makeFirstResponder:nil];
        hoverPoller = std::make_unique<HoverPoller>(window, hoverItems);
    }

    void orderOut() override
    {
        if (hoverPoller == nullptr) {
            return; // it is not on screen
        }
        hoverPoller->stop();
        hoverPoller.reset();
        [alert.window orderOut:nil];
        windowCloses();
    }

private:
    /// Escape presses it, and Return presses nothing.
    void addCancel(const std::string& title, const AlertActions& actions)
    {
        NSButton* const cancel = [alert addButtonWithTitle:cocoaText(title)];
        connect(cancel, rowTargets, actions.cancel);
        cancel.keyEquivalent = @"\x1b";
        cancel.keyEquivalentModifierMask = 0;
        VoltmereNativeButtonHover* const nativeHover = [[VoltmereNativeButtonHover alloc] init];
        nativeHover.button = cancel;
        hoverItems.push_back({cancel, nativeHover});
    }

    NSView* makeAccessory(const AlertContent& content, const AlertActions& actions)
    {
        NSStackView* const stack = [NSStackView stackViewWithViews:@[
            makeAlertLabel(content.applicationName), makeTitleLabel(content.title),
            makeAlertLabel(content.detail,
                           content.detailIsRed ? NSColor.systemRedColor : NSColor.labelColor),
            makeAlertLabel(content.prompt)
        ]];
        stack.orientation = NSUserInterfaceLayoutOrientationVertical;
        stack.alignment = NSLayoutAttributeCenterX;
        stack.spacing = alertGeometry::spacing;
        for (std::size_t index = 0; index < content.options.size(); ++index) {
            NSButton* const row = makeButton(
                content.options[index], [choose = actions.chooseOption, index] { choose(index); });
            row.controlSize = NSControlSizeLarge;
            addRow(row, stack);
        }
        addRow(makeCustomTimeRow(content, actions), stack);

        NSView* const container = [[NSView alloc]
            initWithFrame:NSMakeRect(0, 0, alertGeometry::width, alertGeometry::height())];
        [container addSubview:stack];
        [stack.topAnchor constraintEqualToAnchor:container.topAnchor].active = YES;
        [stack.leadingAnchor constraintEqualToAnchor:container.leadingAnchor].active = YES;
        return container;
    }

    static void addRow(NSView* row, NSStackView* stack)
    {
        fixWidth(row, alertGeometry::width);
        fixHeight(row, alertGeometry::rowHeight);
        [stack addArrangedSubview:row];
    }

    NSView* makeCustomTimeRow(const AlertContent& content, const AlertActions& actions)
    {
        constexpr CGFloat besideColon = 3; // points
        NSPopUpButton* const hour = makePopUp(content.hour);
        NSPopUpButton* const minute = makePopUp(content.minute);
        NSButton* const confirm =
            makeButton(content.confirmTitle, [hour, minute, content, choose = actions.chooseTime] {
                const auto chosenHour = chosenValue(hour, content.hour);
                const auto chosenMinute = chosenValue(minute, content.minute);
                if (chosenHour && chosenMinute) {
                    choose(*chosenHour, *chosenMinute);
                }
            });
        NSView* const caption = [NSTextField labelWithString:cocoaText(content.customTimeCaption)];
        NSView* const colon = [NSTextField labelWithString:@":"];
        NSStackView* const stack =
            [NSStackView stackViewWithViews:@[ caption, hour, colon, minute, confirm ]];
        stack.spacing = alertGeometry::spacing;
        stack.alignment = NSLayoutAttributeCenterY;
        [stack setCustomSpacing:besideColon afterView:hour];
        [stack setCustomSpacing:besideColon afterView:colon];

        NSView* const row = [[NSView alloc] initWithFrame:NSZeroRect];
        [row addSubview:stack];
        [stack.centerXAnchor constraintEqualToAnchor:row.centerXAnchor].active = YES;
        [stack.centerYAnchor constraintEqualToAnchor:row.centerYAnchor].active = YES;
        return row;
    }

    NSButton* makeButton(const std::string& title, std::function<void()> action)
    {
        VoltmereHoverButton* const button = [VoltmereHoverButton buttonWithTitle:cocoaText(title)
                                                                          target:nil
                                                                          action:nil];
        connect(button, rowTargets, std::move(action));
        button.translatesAutoresizingMaskIntoConstraints = NO;
        hoverItems.push_back({button, button});
        return button;
    }

    NSPopUpButton* makePopUp(const PopUp<std::int64_t>& content)
    {
        constexpr CGFloat width = 52; // points
        VoltmereHoverPopUpButton* const popUp =
            [[VoltmereHoverPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
        showChoices(popUp, content);
        fixWidth(popUp, width);
        hoverItems.push_back({popUp, popUp});
        return popUp;
    }

    RowTargets rowTargets;
    std::vector<HoverPoller::Item> hoverItems;
    std::unique_ptr<HoverPoller> hoverPoller; ///< while the alert is on screen
};

} // namespace

std::unique_ptr<SnoozeAlert> makeSnoozeAlert(const AlertContent& content,
                                             const AlertActions& actions)
{
    return std::make_unique<NativeSnoozeAlert>(content, actions);
}

} // namespace voltmere
