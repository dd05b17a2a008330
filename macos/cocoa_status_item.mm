#include "macos/cocoa_status_item.h"

#include "macos/cocoa_text.h"
#include "macos/screen_coordinates.h"

#import <AppKit/AppKit.h>

#include <utility>

/// Takes the clicks of the item's button, which holds it weakly.
@interface VoltmereStatusItemTarget : NSObject
- (void)setAction:(std::function<void(const voltmere::ScreenRectangle&)>)action;
- (void)click:(NSStatusBarButton*)button;
@end

@implementation VoltmereStatusItemTarget {
    std::function<void(const voltmere::ScreenRectangle&)> _action;
}

- (void)setAction:(std::function<void(const voltmere::ScreenRectangle&)>)action
{
    _action = std::move(action);
}

- (void)click:(NSStatusBarButton*)button
{
    const NSRect place = [button.window convertRectToScreen:[button convertRect:button.bounds
                                                                         toView:nil]];
    if (_action) {
        _action(voltmere::fromTopLeft(
            {place.origin.x, place.origin.y, place.size.width, place.size.height},
            NSScreen.screens.firstObject.frame.size.height));
    }
}

@end

namespace voltmere {

namespace {

NSImage* cocoaImage(const StatusItemPicture& picture)
{
    const NSSize size{picture.width, picture.height};
    NSImage* const image = [[NSImage alloc] initWithSize:size];
    for (const std::string& png : picture.bitmaps) {
        NSData* const data = [NSData dataWithBytes:png.data() length:png.size()];
        if (NSBitmapImageRep* const bitmap = [NSBitmapImageRep imageRepWithData:data]) {
            bitmap.size = size;
            [image addRepresentation:bitmap];
        }
    }
    [image setTemplate:NO];
    return image;
}

} // namespace

struct CocoaStatusItem::Cocoa {
    NSStatusItem* item;
    VoltmereStatusItemTarget* target;
};

CocoaStatusItem::CocoaStatusItem()
    : cocoa(std::make_unique<Cocoa>(
          [NSStatusBar.systemStatusBar statusItemWithLength:NSVariableStatusItemLength],
          [[VoltmereStatusItemTarget alloc] init]))
{
    NSStatusBarButton* const button = cocoa->item.button;
    button.imageScaling = NSImageScaleNone;
    button.target = cocoa->target;
    button.action = @selector(click:);
    [button sendActionOn:NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown];
}

CocoaStatusItem::~CocoaStatusItem()
{
    [NSStatusBar.systemStatusBar removeStatusItem:cocoa->item];
}

void CocoaStatusItem::setPicture(const StatusItemPicture& picture)
{
    cocoa->item.button.image = cocoaImage(picture);
}

void CocoaStatusItem::setDescription(const std::string& text)
{
    cocoa->item.button.toolTip = cocoaText(text);
    [cocoa->item.button setAccessibilityLabel:cocoaText(text)];
}

void CocoaStatusItem::onClick(std::function<void(const ScreenRectangle& place)> action)
{
    [cocoa->target setAction:std::move(action)];
}

} // namespace voltmere
