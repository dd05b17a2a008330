#include "macos/ui/status_image.h"

#include "macos/text.h"
#include "ui/icon.h"

namespace voltmere {

namespace {

/// The image of the bundle's resource; nil where it is missing or cannot be read.
NSImage* resourceImage(NSString* name, NSString* extension)
{
    NSURL* const url = [NSBundle.mainBundle URLForResource:name withExtension:extension];
    return url == nil ? nil : [[NSImage alloc] initWithContentsOfURL:url];
}

/// `image`, which may be nil, as a square of `side` points in its own colours.
NSImage* square(NSImage* image, CGFloat side)
{
    NSImage* const drawn = [NSImage imageWithSize:NSMakeSize(side, side)
                                          flipped:NO
                                   drawingHandler:^BOOL(NSRect destination) {
                                       [image drawInRect:destination];
                                       return YES;
                                   }];
    [drawn setTemplate:NO];
    return drawn;
}

NSImage* chosenStatusIcon()
{
    // A StatusIcon.png that cannot be read does not make way for StatusIcon.icns.
    const bool hasPng = [NSBundle.mainBundle URLForResource:@"StatusIcon"
                                              withExtension:@"png"] != nil;
    NSImage* const statusIcon = resourceImage(@"StatusIcon", hasPng ? @"png" : @"icns");
    if (statusIcon != nil) {
        return statusIcon;
    }
    NSImage* const appIcon = resourceImage(@"AppIcon", @"icns");
    return appIcon != nil ? appIcon : NSApp.applicationIconImage;
}

NSColor* inkFor(LabelColour colour)
{
    switch (colour) {
    case LabelColour::black:
        return NSColor.blackColor;
    case LabelColour::white:
        return NSColor.whiteColor;
    case LabelColour::red:
        return NSColor.systemRedColor;
    }
}

} // namespace

NSImage* AppIconAsset::statusImage()
{
    static NSImage* const image = square(chosenStatusIcon(), IconShape::iconSide);
    return image;
}

NSImage* AppIconAsset::appImage(CGFloat side)
{
    NSImage* const image = resourceImage(@"AppIcon", @"icns");
    return image == nil ? nil : square(image, side);
}

NSImage* StatusImage::make(const std::vector<BatteryDevice>& devices, std::int64_t threshold,
                           std::optional<ColourScheme> scheme)
{
    NSFont* const font = [NSFont systemFontOfSize:IconShape::fontSize];
    const auto measure = [font](const std::string& label) {
        const NSSize size = [cocoaText(label) sizeWithAttributes:@{NSFontAttributeName : font}];
        return TextSize{size.width, size.height};
    };
    const IconShape shape = iconShape(iconLevel(devices, threshold), scheme, measure);

    // The handler runs on whichever thread draws, so it holds nothing but values.
    NSImage* const icon = AppIconAsset::statusImage();
    NSString* const label = cocoaText(shape.label);
    const NSPoint labelPlace = NSMakePoint(shape.labelX, shape.labelY);
    NSDictionary<NSAttributedStringKey, id>* const attributes =
        @{NSFontAttributeName : font, NSForegroundColorAttributeName : inkFor(shape.colour)};
    const bool hasLabel = !shape.label.empty();
    NSImage* const image =
        [NSImage imageWithSize:NSMakeSize(shape.width, IconShape::height)
                       flipped:NO
                drawingHandler:^BOOL(NSRect) {
                    [icon drawInRect:NSMakeRect(0, IconShape::iconY, IconShape::iconSide,
                                                IconShape::iconSide)];
                    if (hasLabel) {
                        [label drawAtPoint:labelPlace withAttributes:attributes];
                    }
                    return YES;
                }];
    [image setTemplate:NO];
    return image;
}

} // namespace voltmere
