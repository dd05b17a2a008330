#include "macos/ui/alert.h"

#include "macos/text.h"
#include "macos/ui/front_end.h"
#include "macos/ui/hover_controls.h"
#include "macos/ui/status_image.h"
#include "snooze/snooze_alert.h"

#include <dispatch/dispatch.h>

#include <utility>
#include <vector>

namespace voltmere {

namespace {

constexpr CGFloat fontSize = 13; // points

NSTextField* makeAlertLabel(const std::string& text, NSFont* font, bool isRed)
{
    NSTextField* const label = [NSTextField labelWithString:cocoaText(text)];
    label.font = font;
    label.alignment = NSTextAlignmentCenter;
    label.textColor = isRed ? NSColor.systemRedColor : NSColor.labelColor;
    [label.heightAnchor constraintEqualToConstant:alertGeometry::labelHeight].active = YES;
    return label;
}

/// A wide label moves the rows to the side, and a name from outside may have any length. It lies at
/// the start of the title, so the middle of a title that is too wide belongs to the name.
NSTextField* makeTitleLabel(const NamedText& title)
{
    NSTextField* const label =
        makeAlertLabel(title.whole(), [NSFont boldSystemFontOfSize:fontSize], false);
    if (!title.name.empty()) {
        label.lineBreakMode = NSLineBreakByTruncatingMiddle;
        label.allowsExpansionToolTips = YES;
        [label.widthAnchor constraintLessThanOrEqualToConstant:alertGeometry::width].active = YES;
    }
    return label;
}

void makeRowSized(NSView* view)
{
    fixWidth(view, alertGeometry::width);
    [view.heightAnchor constraintEqualToConstant:alertGeometry::rowHeight].active = YES;
}

class NativeSnoozeAlert : public SnoozeAlert {
public:
    NativeSnoozeAlert(const AlertContent& content, const AlertActions& actions,
                      MacApplication& application)
        : application(application)
    {
        constexpr CGFloat iconSide = 64; // points
        alert.messageText = @"";
        alert.alertStyle = NSAlertStyleWarning;
        NSImage* const icon = AppIconAsset::appImage(iconSide);
        // Without an icon of its own an alert shows the application's.
        alert.icon = icon != nil ? icon : [[NSImage alloc] initWithSize:NSMakeSize(1, 1)];
        [alert addButtonWithTitle:cocoaText(content.cancelTitle)];
        connectCancel(alert.buttons.firstObject, actions);
        alert.accessoryView = makeAccessory(content, actions);
        [alert layout];
    }

    NativeSnoozeAlert(const NativeSnoozeAlert&) = delete;
    NativeSnoozeAlert& operator=(const NativeSnoozeAlert&) = delete;

    ~NativeSnoozeAlert() override
    {
        orderOut();
        // The alert's button may be the caller, so the alert goes in the next turn.
        NSAlert* const kept = alert;
        dispatch_async(dispatch_get_main_queue(), ^{ (void)kept; });
    }

    void show(RunLoop& runLoop) override
    {
        [window() center];
        window().level = NSFloatingWindowLevel;
        window().hidesOnDeactivate = NO;
        application.windowOpens();
        application.activate();
        [window() makeKeyAndOrderFront:nil];
        // The system may refuse the activation; the alert then floats without the keyboard.
        [window() orderFrontRegardless];
        // The alert appears while a person may be typing: no control must take the next key.
        [window() makeFirstResponder:nil];
        hoverPoller = std::make_unique<HoverPoller>(window(), hoverItems, runLoop);
    }

    NSWindow* window() const override { return alert.window; }

    bool isVisible() const override { return window().visible; }

    void bringToFront() override { [window() makeKeyAndOrderFront:nil]; }

    void orderOut() override
    {
        if (hoverPoller == nullptr) {
            return; // it is not on screen
        }
        hoverPoller->stop();
        hoverPoller.reset();
        [window() orderOut:nil];
        application.windowCloses();
    }

private:
    /// Escape presses it, and Return presses nothing.
    void connectCancel(NSButton* cancel, const AlertActions& actions)
    {
        cancel.target = rowTargets.add(actions.cancel);
        cancel.action = @selector(fire);
        cancel.keyEquivalent = @"\x1b";
        cancel.keyEquivalentModifierMask = 0;
        if (cancel != nil) {
            nativeHover = [[VoltmereNativeButtonHover alloc] init];
            nativeHover.button = cancel;
            hoverItems.push_back({cancel, nativeHover});
        }
    }

    NSView* makeAccessory(const AlertContent& content, const AlertActions& actions)
    {
        NSFont* const font = [NSFont systemFontOfSize:fontSize];
        NSStackView* const stack = [NSStackView stackViewWithViews:@[
            makeAlertLabel(content.applicationName, font, false), makeTitleLabel(content.title),
            makeAlertLabel(content.detail, font, content.detailIsRed),
            makeAlertLabel(content.prompt, font, false)
        ]];
        stack.orientation = NSUserInterfaceLayoutOrientationVertical;
        stack.alignment = NSLayoutAttributeCenterX;
        stack.spacing = alertGeometry::spacing;
        for (std::size_t index = 0; index < content.options.size(); ++index) {
            VoltmereHoverButton* const row = makeButton(
                content.options[index], [choose = actions.chooseOption, index] { choose(index); });
            row.controlSize = NSControlSizeLarge;
            makeRowSized(row);
            [stack addArrangedSubview:row];
        }
        [stack addArrangedSubview:makeCustomTimeRow(content, actions)];

        NSView* const container = [[NSView alloc]
            initWithFrame:NSMakeRect(0, 0, alertGeometry::width, alertGeometry::height())];
        [container addSubview:stack];
        [stack.topAnchor constraintEqualToAnchor:container.topAnchor].active = YES;
        [stack.leadingAnchor constraintEqualToAnchor:container.leadingAnchor].active = YES;
        return container;
    }

    NSView* makeCustomTimeRow(const AlertContent& content, const AlertActions& actions)
    {
        constexpr CGFloat besideColon = 3; // points
        VoltmereHoverPopUpButton* const hour = makePopUp(content.hour);
        VoltmereHoverPopUpButton* const minute = makePopUp(content.minute);
        VoltmereHoverButton* const confirm =
            makeButton(content.confirmTitle,
                       [hour, minute, choose = actions.chooseTime, hours = content.hour.values,
                        minutes = content.minute.values] {
                           const auto hourChoice = selectedChoice(hour);
                           const auto minuteChoice = selectedChoice(minute);
                           if (hourChoice && minuteChoice) {
                               choose(hours.at(*hourChoice), minutes.at(*minuteChoice));
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
        makeRowSized(row);
        [row addSubview:stack];
        [stack.centerXAnchor constraintEqualToAnchor:row.centerXAnchor].active = YES;
        [stack.centerYAnchor constraintEqualToAnchor:row.centerYAnchor].active = YES;
        return row;
    }

    VoltmereHoverButton* makeButton(const std::string& title, std::function<void()> action)
    {
        VoltmereHoverButton* const button =
            [VoltmereHoverButton buttonWithTitle:cocoaText(title)
                                          target:rowTargets.add(std::move(action))
                                          action:@selector(fire)];
        button.translatesAutoresizingMaskIntoConstraints = NO;
        hoverItems.push_back({button, button});
        return button;
    }

    VoltmereHoverPopUpButton* makePopUp(const PopUp<std::int64_t>& content)
    {
        constexpr CGFloat width = 52; // points
        VoltmereHoverPopUpButton* const popUp =
            [[VoltmereHoverPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
        presentPopUp(popUp, content);
        fixWidth(popUp, width);
        hoverItems.push_back({popUp, popUp});
        return popUp;
    }

    MacApplication& application;
    NSAlert* const alert = [[NSAlert alloc] init];
    RowTargets rowTargets;
    std::vector<HoverPoller::Item> hoverItems;
    VoltmereNativeButtonHover* nativeHover = nil;
    std::unique_ptr<HoverPoller> hoverPoller; ///< while the alert is on screen
};

} // namespace

std::unique_ptr<SnoozeAlert> makeSnoozeAlert(const AlertContent& content,
                                             const AlertActions& actions,
                                             MacApplication& application)
{
    return std::make_unique<NativeSnoozeAlert>(content, actions, application);
}

} // namespace voltmere
