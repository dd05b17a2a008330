#include "macos/ui/panel.h"

#include "macos/text.h"
#include "macos/ui/redraw_scheduler.h"
#include "macos/ui/status_image.h"

#include <optional>
#include <utility>

namespace voltmere {

namespace {

constexpr CGFloat rowWidth = panelGeometry::width - 2 * panelGeometry::padding;
constexpr CGFloat levelFontSize = 15; // the system's "title 3"

/// Takes the room that its row has left over.
NSView* makeSpacer()
{
    NSView* const spacer = [[NSView alloc] initWithFrame:NSZeroRect];
    spacer.translatesAutoresizingMaskIntoConstraints = NO;
    [spacer setContentHuggingPriority:1 forOrientation:NSLayoutConstraintOrientationHorizontal];
    return spacer;
}

void fixWidth(NSView* view, CGFloat width)
{
    view.translatesAutoresizingMaskIntoConstraints = NO;
    [view.widthAnchor constraintEqualToConstant:width].active = YES;
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

NSStackView* makeColumn()
{
    NSStackView* const column = [NSStackView stackViewWithViews:@[]];
    column.orientation = NSUserInterfaceLayoutOrientationVertical;
    column.alignment = NSLayoutAttributeLeading;
    column.spacing = panelGeometry::itemSpacing;
    return column;
}

NSFont* headlineFont()
{
    return [NSFont preferredFontForTextStyle:NSFontTextStyleHeadline options:@{}];
}

/// Stays empty for a symbol that this system does not know. The text beside it says the same.
NSView* makeSymbolView(const std::string& name)
{
    NSImage* const symbol = [NSImage imageWithSystemSymbolName:cocoaText(name)
                                      accessibilityDescription:nil];
    NSImageView* const view =
        [NSImageView imageViewWithImage:symbol != nil ? symbol : [[NSImage alloc] init]];
    fixWidth(view, panelGeometry::symbolSide);
    [view setAccessibilityElement:NO];
    return view;
}

/// A name from outside may be longer than the row.
NSTextField* makeNameLabel(const std::string& name)
{
    constexpr NSLayoutPriority lowerThanTheLevels = 250;
    NSTextField* const label = [NSTextField labelWithString:cocoaText(name)];
    label.font = headlineFont();
    label.lineBreakMode = NSLineBreakByTruncatingMiddle;
    label.allowsExpansionToolTips = YES;
    [label setContentCompressionResistancePriority:lowerThanTheLevels
                                    forOrientation:NSLayoutConstraintOrientationHorizontal];
    return label;
}

NSView* makeDeviceRow(const DeviceRow& device)
{
    NSTextField* const level = [NSTextField labelWithString:cocoaText(device.level)];
    level.font = [NSFont systemFontOfSize:levelFontSize weight:NSFontWeightBold];
    level.textColor = device.levelIsRed ? NSColor.systemRedColor : NSColor.labelColor;
    return makeRow(
        @[ makeSymbolView(device.symbol), makeNameLabel(device.name), makeSpacer(), level ]);
}

NSView* makeEmptyRow(const PanelContent& content)
{
    return makeRow(@[
        makeSymbolView(content.emptySymbol),
        [NSTextField labelWithString:cocoaText(content.emptyText)], makeSpacer()
    ]);
}

} // namespace

ContentView::ContentView(BatteryModel& model, std::function<void()> quit,
                         std::function<void()> resized)
    : model(model)
    , resized(std::move(resized))
    , content(panelContent(model))
    , stack(makeColumn())
    , redraws(redrawAfterChanges(model.objectWillChange, [this] { redraw(); }))
{
    constexpr CGFloat padding = panelGeometry::padding;
    stack.edgeInsets = NSEdgeInsetsMake(padding, padding, padding, padding);
    fixWidth(stack, panelGeometry::width);

    using Content = PanelContent;
    NSPopUpButton* const threshold = makePicker(&Content::threshold, model.threshold);
    fixWidth(threshold, panelGeometry::thresholdWidth);
    for (NSView* const row in @[
             makeHeader(), makeDivider(), makeDevices(), makeDivider(), makeRow(@[
                 makeText(&Content::warnBelow), threshold, makeText(&Content::warnSuffix),
                 makeToggle(&Content::instantAlert, model.instantEnabled), makeSpacer()
             ]),
             makeToggle(&Content::dailyCheck, model.enabled), makeRow(@[
                 makeText(&Content::checkTime), makeSpacer(),
                 makePicker(&Content::checkHour, model.checkHour),
                 makeText(&Content::timeSeparator),
                 makePicker(&Content::checkMinute, model.checkMinute)
             ]),
             makeStatus(),
             makeButton(&Content::testAlert,
                        [&model] {
                            const AlertPayload payload = model.alertPayload();
                            model.showSnoozeAlert(payload.devices, payload.isLow);
                        }),
             makeToggle(&Content::launchAtLogin, model.launchAtLogin), makeDivider(), makeRow(@[
                 makeButton(&Content::quit, std::move(quit)), makeSpacer(),
                 makeText(&Content::languageLabel), makePicker(&Content::language, model.language)
             ])
         ]) {
        [stack addArrangedSubview:row];
    }
    redraw();
}

void ContentView::appeared()
{
    model.refreshLaunchAtLogin();
    model.refresh(false);
}

NSView* ContentView::makeHeader()
{
    NSTextField* const name = makeText(&PanelContent::applicationName);
    name.font = headlineFont();
    NSView* const before = makeSpacer();
    NSView* const after = makeSpacer();
    NSImage* const icon = AppIconAsset::appImage(panelGeometry::iconSide);
    NSMutableArray<NSView*>* const views = [NSMutableArray array];
    [views addObject:before];
    if (icon != nil) {
        NSImageView* const picture = [NSImageView imageViewWithImage:icon];
        [picture setAccessibilityElement:NO];
        [views addObject:picture];
    }
    [views addObject:name];
    [views addObject:after];
    NSView* const row = makeRow(views);
    [before.widthAnchor constraintEqualToAnchor:after.widthAnchor].active = YES;
    return row;
}

NSView* ContentView::makeDevices()
{
    NSStackView* const list = makeColumn();
    updates.emplace_back([this, list, shown = std::optional<PanelContent>()]() mutable {
        // An unchanged row stays: assistive technology may be reading it.
        if (shown && shown->devices == content.devices && shown->emptyText == content.emptyText) {
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
            [list addArrangedSubview:makeEmptyRow(content)];
        }
    });
    return list;
}

NSView* ContentView::makeStatus()
{
    NSTextField* const line = [NSTextField wrappingLabelWithString:@""];
    line.selectable = NO;
    line.preferredMaxLayoutWidth = rowWidth;
    fixWidth(line, rowWidth);
    updates.emplace_back([this, line] {
        line.stringValue = cocoaText(content.status);
        line.textColor = content.statusIsRed ? NSColor.systemRedColor : NSColor.secondaryLabelColor;
    });
    return line;
}

/// An empty text takes no room.
NSTextField* ContentView::makeText(std::string PanelContent::*text)
{
    NSTextField* const label = [NSTextField labelWithString:@""];
    updates.emplace_back([this, label, text] {
        label.stringValue = cocoaText(content.*text);
        label.hidden = (content.*text).empty();
    });
    return label;
}

NSButton* ContentView::makeButton(std::string PanelContent::*title, std::function<void()> action)
{
    NSButton* const button = [NSButton buttonWithTitle:@""
                                                target:targets.add(std::move(action))
                                                action:@selector(fire)];
    updates.emplace_back([this, button, title] { button.title = cocoaText(content.*title); });
    return button;
}

NSButton* ContentView::makeToggle(Toggle PanelContent::*toggle, Published<bool>& setting)
{
    NSButton* const box = [NSButton checkboxWithTitle:@"" target:nil action:@selector(fire)];
    box.target = targets.add([box, &setting] { setting = box.state == NSControlStateValueOn; });
    updates.emplace_back([this, box, toggle] {
        box.title = cocoaText((content.*toggle).title);
        box.state = (content.*toggle).isOn ? NSControlStateValueOn : NSControlStateValueOff;
    });
    return box;
}

template<typename Value>
NSPopUpButton* ContentView::makePicker(PopUp<Value> PanelContent::*popUp, Published<Value>& setting)
{
    NSPopUpButton* const picker = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
    picker.target = targets.add([this, picker, popUp, &setting] {
        if (const auto choice = selectedChoice(picker)) {
            setting = (content.*popUp).values.at(*choice);
        }
    });
    picker.action = @selector(fire);
    updates.emplace_back([this, picker, popUp] {
        const PopUp<Value>& present = content.*popUp;
        presentChoices(picker, present.titles, present.selected);
        [picker setAccessibilityLabel:cocoaText(present.name)];
    });
    return picker;
}

void ContentView::redraw()
{
    content = panelContent(model);
    for (const auto& update : updates) {
        update();
    }
    resized();
}

} // namespace voltmere
