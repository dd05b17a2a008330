#include "macos/ui/front_end.h"

#include "macos/text.h"
#include "ui/icon.h"

namespace voltmere {

namespace {

/// The place of the bundle's resource; nil where it is missing.
NSURL* resource(NSString* name, NSString* extension)
{
    return [NSBundle.mainBundle URLForResource:name withExtension:extension];
}

/// The image at `url`, which may be nil; nil where there is none, or it cannot be read.
NSImage* imageAt(NSURL* url)
{
    return url == nil ? nil : [[NSImage alloc] initWithContentsOfURL:url];
}

/// An image in its own colours. `draw` runs on whichever thread draws, so it holds nothing but
/// values.
NSImage* imageOf(CGFloat width, CGFloat height, BOOL (^draw)(NSRect destination))
{
    NSImage* const image = [NSImage imageWithSize:NSMakeSize(width, height)
                                          flipped:NO
                                   drawingHandler:draw];
    [image setTemplate:NO];
    return image;
}

/// `image`, which may be nil, as a square of `side` points.
NSImage* square(NSImage* image, CGFloat side)
{
    return imageOf(side, side, ^BOOL(NSRect destination) {
        [image drawInRect:destination];
        return YES;
    });
}

NSImage* chosenStatusIcon()
{
    // A StatusIcon.png that cannot be read does not make way for StatusIcon.icns.
    NSURL* const png = resource(@"StatusIcon", @"png");
    NSImage* const icon = imageAt(png != nil ? png : resource(@"StatusIcon", @"icns"));
    if (icon != nil) {
        return icon;
    }
    NSImage* const appIcon = imageAt(resource(@"AppIcon", @"icns"));
    return appIcon != nil ? appIcon : NSApp.applicationIconImage;
}

} // namespace

NSImage* AppIconAsset::statusImage()
{
    static NSImage* const image = square(chosenStatusIcon(), IconShape::iconSide);
    return image;
}

NSImage* AppIconAsset::appImage(CGFloat side)
{
    NSImage* const image = imageAt(resource(@"AppIcon", @"icns"));
    return image == nil ? nil : square(image, side);
}

NSImage* StatusImage::make(const std::vector<BatteryDevice>& devices, std::int64_t threshold)
{
    NSAppearanceName const match = [NSApp.effectiveAppearance
        bestMatchFromAppearancesWithNames:@[ NSAppearanceNameDarkAqua, NSAppearanceNameAqua ]];
    const bool isDark = [match isEqualToString:NSAppearanceNameDarkAqua];
    const ColourScheme scheme = isDark ? ColourScheme::dark : ColourScheme::light;
    NSFont* const font = [NSFont systemFontOfSize:IconShape::fontSize];
    const auto measure = [font](const std::string& label) {
        const NSSize size = [cocoaText(label) sizeWithAttributes:@{NSFontAttributeName : font}];
        return TextSize{size.width, size.height};
    };
    const IconShape shape = iconShape(iconLevel(devices, threshold), scheme, measure);
    NSImage* const icon = AppIconAsset::statusImage();
    const bool isWhite = shape.colour == LabelColour::white;
    NSColor* const plain = isWhite ? NSColor.whiteColor : NSColor.blackColor;
    NSColor* const ink = shape.colour == LabelColour::red ? NSColor.systemRedColor : plain;
    NSDictionary<NSAttributedStringKey, id>* const attributes =
        @{NSFontAttributeName : font, NSForegroundColorAttributeName : ink};
    return imageOf(shape.width, IconShape::height, ^BOOL(NSRect) {
        constexpr CGFloat side = IconShape::iconSide;
        [icon drawInRect:NSMakeRect(0, IconShape::iconY, side, side)];
        [cocoaText(shape.label) drawAtPoint:NSMakePoint(shape.labelX, shape.labelY)
                             withAttributes:attributes];
        return YES;
    });
}

} // namespace voltmere
