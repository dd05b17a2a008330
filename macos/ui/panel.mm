#include "macos/ui/front_end.h"

#include "macos/text.h"
#include "macos/ui/controls.h"
#include "ui/panel.h"

#include <utility>
#include <vector>

namespace voltmere {

namespace {

constexpr CGFloat rowWidth = panelGeometry::width - 2 * panelGeometry::padding;

/// Takes the room that its row has left over.
NSView* makeSpacer()
{
    NSView* const spacer = [[NSView alloc] initWithFrame:NSZeroRect];
    spacer.translatesAutoresizingMaskIntoConstraints = NO;
    [spacer setContentHuggingPriority:1 forOrientation:NSLayoutConstraintOrientationHorizontal];
    return spacer;
}

/// A row across the whole panel.
NSStackView* makeRow(NSArray<NSView*>* views)
{
    NSStackView* const row = [NSStackView stackViewWithViews:views];
    row.distribution = NSStackViewDistributionFill;
    row.spacing = panelGeometry::rowSpacing;
    fixWidth(row, rowWidth);
    return row;
}

NSView* makeDivider()
{
    NSBox* const divider = [[NSBox alloc] initWithFrame:NSZeroRect];
    divider.boxType = NSBoxSeparator;
    fixWidth(divider, rowWidth);
    return divider;
}

NSStackView* makeColumn(NSArray<NSView*>* views)
{
    NSStackView* const column = [NSStackView stackViewWithViews:views];
    column.orientation = NSUserInterfaceLayoutOrientationVertical;
    column.alignment = NSLayoutAttributeLeading;
    column.spacing = panelGeometry::itemSpacing;
    return column;
}

NSFont* headlineFont()
{
    return [NSFont preferredFontForTextStyle:NSFontTextStyleHeadline options:@{}];
}

/// Empty without an image. The text beside it says the same.
NSView* makePicture(NSImage* image)
{
    NSImageView* const view = [[NSImageView alloc] initWithFrame:NSZeroRect];
    view.image = image;
    [view setAccessibilityElement:NO];
    return view;
}

NSView* makeSymbol(const std::string& name)
{
    NSView* const view = makePicture([NSImage imageWithSystemSymbolName:cocoaText(name)
                                               accessibilityDescription:nil]);
    fixWidth(view, panelGeometry::symbolSide);
    return view;
}

NSView* makeDeviceRow(const DeviceRow& device)
{
    constexpr CGFloat title3 = 15; // points, the size of that text style
    NSTextField* const level = [NSTextField labelWithString:cocoaText(device.level)];
    level.font = [NSFont systemFontOfSize:title3 weight:NSFontWeightBold];
    level.textColor = device.levelIsRed ? NSColor.systemRedColor : NSColor.labelColor;

    constexpr NSLayoutPriority givesWay = 250; // a name from outside may be longer than the row
    NSTextField* const name = [NSTextField labelWithString:cocoaText(device.name)];
    name.font = headlineFont();
    name.lineBreakMode = NSLineBreakByTruncatingMiddle;
    name.allowsExpansionToolTips = YES;
    [name setContentCompressionResistancePriority:givesWay
                                   forOrientation:NSLayoutConstraintOrientationHorizontal];
    return makeRow(@[ makeSymbol(device.symbol), name, makeSpacer(), level ]);
}

/// The rows and their controls.
class Rows {
public:
    Rows(BatteryModel& model, std::function<void()> quit, std::function<void()> resized)
        : model(model)
        , resized(std::move(resized))
        , redraws(redrawAfterChanges(model.objectWillChange, [this] { redraw(); }))
    {
        using Content = PanelContent;
        NSPopUpButton* const threshold = makePicker(&Content::threshold, model.threshold);
        fixWidth(threshold, panelGeometry::thresholdWidth);
        NSButton* const test = makeButton(&Content::testAlert, [&model] {
            const AlertPayload payload = model.alertPayload();
            model.showSnoozeAlert(payload.devices, payload.isLow);
        });
        stack = makeColumn(@[
            makeHeader(), makeDivider(), makeDevices(), makeDivider(), makeRow(@[
                makeText(&Content::warnBelow), threshold, makeText(&Content::warnSuffix),
                makeToggle(&Content::instantAlert, model.instantEnabled), makeSpacer()
            ]),
            makeToggle(&Content::dailyCheck, model.enabled), makeRow(@[
                makeText(&Content::checkTime), makeSpacer(),
                makePicker(&Content::checkHour, model.checkHour), makeText(&Content::timeSeparator),
                makePicker(&Content::checkMinute, model.checkMinute)
            ]),
            makeStatus(), test, makeToggle(&Content::launchAtLogin, model.launchAtLogin),
            makeDivider(), makeRow(@[
                makeButton(&Content::quit, std::move(quit)), makeSpacer(),
                makeText(&Content::languageLabel), makePicker(&Content::language, model.language)
            ])
        ]);
        constexpr CGFloat padding = panelGeometry::padding;
        stack.edgeInsets = NSEdgeInsetsMake(padding, padding, padding, padding);
        fixWidth(stack, panelGeometry::width);
        stack.translatesAutoresizingMaskIntoConstraints = YES; // its window places it
        redraw();
    }

    NSStackView* stack;

private:
    NSView* makeHeader()
    {
        NSTextField* const name = makeText(&PanelContent::applicationName);
        name.font = headlineFont();
        NSImage* const icon = AppIconAsset::appImage(panelGeometry::iconSide);
        NSView* const picture = makePicture(icon);
        picture.hidden = icon == nil;
        NSView* const before = makeSpacer();
        NSView* const after = makeSpacer();
        NSView* const header = makeRow(@[ before, picture, name, after ]);
        [before.widthAnchor constraintEqualToAnchor:after.widthAnchor].active = YES;
        return header;
    }

    NSView* makeDevices()
    {
        NSStackView* const list = makeColumn(@[]);
        updates.emplace_back([this, list, shown = PanelContent()]() mutable {
            // An unchanged row stays: assistive technology may be reading it.
            if (shown.devices == content.devices && shown.emptyText == content.emptyText) {
                return;
            }
            shown = content;
            for (NSView* const row in list.arrangedSubviews) {
                [row removeFromSuperview];
            }
            for (const DeviceRow& device : content.devices) {
                [list addArrangedSubview:makeDeviceRow(device)];
            }
            if (content.devices.empty()) {
                NSView* const text = [NSTextField labelWithString:cocoaText(content.emptyText)];
                NSView* const symbol = makeSymbol(content.emptySymbol);
                [list addArrangedSubview:makeRow(@[ symbol, text, makeSpacer() ])];
            }
        });
        return list;
    }

    NSView* makeStatus()
    {
        NSTextField* const line = [NSTextField wrappingLabelWithString:@""];
        line.selectable = NO;
        line.preferredMaxLayoutWidth = rowWidth;
        fixWidth(line, rowWidth);
        updates.emplace_back([this, line] {
            line.stringValue = cocoaText(content.status);
            line.textColor =
                content.statusIsRed ? NSColor.systemRedColor : NSColor.secondaryLabelColor;
        });
        return line;
    }

    /// An empty text takes no room.
    NSTextField* makeText(std::string PanelContent::*text)
    {
        NSTextField* const label = [NSTextField labelWithString:@""];
        updates.emplace_back([this, label, text] {
            label.stringValue = cocoaText(content.*text);
            label.hidden = (content.*text).empty();
        });
        return label;
    }

    NSButton* makeButton(std::string PanelContent::*title, std::function<void()> action)
    {
        NSButton* const button = [NSButton buttonWithTitle:@"" target:nil action:nil];
        connect(button, rowTargets, std::move(action));
        updates.emplace_back([this, button, title] { button.title = cocoaText(content.*title); });
        return button;
    }

    NSButton* makeToggle(Toggle PanelContent::*toggle, Published<bool>& setting)
    {
        NSButton* const box = [NSButton checkboxWithTitle:@"" target:nil action:nil];
        connect(box, rowTargets, [box, &setting] { setting = box.state == NSControlStateValueOn; });
        updates.emplace_back([this, box, toggle] {
            box.title = cocoaText((content.*toggle).title);
            box.state = (content.*toggle).isOn ? NSControlStateValueOn : NSControlStateValueOff;
        });
        return box;
    }

    template<typename Value>
    NSPopUpButton* makePicker(PopUp<Value> PanelContent::*popUp, Published<Value>& setting)
    {
        NSPopUpButton* const picker = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
        connect(picker, rowTargets, [this, picker, popUp, &setting] {
            if (const auto choice = chosenValue(picker, content.*popUp)) {
                setting = *choice;
            }
        });
        updates.emplace_back([this, picker, popUp] { showChoices(picker, content.*popUp); });
        return picker;
    }

    void redraw()
    {
        content = panelContent(model);
        for (const auto& update : updates) {
            update();
        }
        resized();
    }

    BatteryModel& model;
    const std::function<void()> resized;
    PanelContent content; ///< as it is shown
    RowTargets rowTargets;
    std::vector<std::function<void()>> updates; ///< each brings a control in line with `content`
    Subscription redraws;
};

} // namespace

ContentView makeContentView(BatteryModel& model, std::function<void()> quit,
                            std::function<void()> resized)
{
    const auto rows = std::make_shared<Rows>(model, std::move(quit), std::move(resized));
    return {rows->stack, rows};
}

} // namespace voltmere
