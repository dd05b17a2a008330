#include "ui/icon.h"

#include "texts/l10n.h"

#include <cmath>

namespace voltmere {

namespace {

constexpr int iconToLabel = 5; // points

LabelColour labelColour(const IconLevel& level, std::optional<ColourScheme> scheme)
{
    if (level.low) {
        return LabelColour::red;
    }
    return scheme == ColourScheme::dark ? LabelColour::white : LabelColour::black;
}

} // namespace

std::optional<IconLevel> iconLevel(const std::vector<BatteryDevice>& devices,
                                   std::int64_t threshold)
{
    const auto weakest = weakestDevice(devices);
    return weakest ? std::optional(IconLevel{weakest->level, isLow(*weakest, threshold)})
                   : std::nullopt;
}

IconTexts iconTexts(const std::vector<BatteryDevice>& devices)
{
    IconTexts texts;
    texts.toolTip = L10n::t("app.name");
    texts.accessible = texts.toolTip;
    for (const BatteryDevice& device : devices) {
        const std::string line = shownNameWithLevel(device);
        texts.devices.push_back(line);
        texts.toolTip += '\n' + line;
        texts.accessible += L10n::t("listSeparator") + line;
    }
    texts.open = L10n::own("menu.open");
    texts.quit = L10n::t("panel.quit");
    return texts;
}

IconShape iconShape(const std::optional<IconLevel>& level, std::optional<ColourScheme> scheme,
                    const std::function<TextSize(const std::string& label)>& measure)
{
    IconShape shape;
    if (level) {
        shape.label = std::to_string(level->percent) + '%';
        const TextSize label = measure(shape.label);
        shape.labelX = IconShape::iconSide + iconToLabel;
        shape.labelY = (IconShape::height - label.height) / 2;
        shape.width = static_cast<int>(std::ceil(shape.labelX + label.width));
        shape.colour = labelColour(*level, scheme);
    }
    return shape;
}

} // namespace voltmere
