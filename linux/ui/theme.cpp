#include "linux/ui/theme.h"

#include <QApplication>
#include <QFontInfo>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace voltmere {

namespace {

constexpr qreal secondaryWeight = 0.62;
constexpr qreal dividerWeight = 0.15;
constexpr qreal edgeWeight = 0.4;
constexpr qreal leastContrast = 4.5;
constexpr int measuredTextSize = 13; // pixels
constexpr qreal title3Scale = 15.0 / 13.0;

struct Colour {
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

/// Qt derives the other colours from those of the window and of a button.
constexpr Colour colours[]{
    {QPalette::All, QPalette::WindowText, 0x1D1D1F, 0xF2F2F4},
    {QPalette::All, QPalette::Text, 0x1D1D1F, 0xF2F2F4},
    {QPalette::All, QPalette::ButtonText, 0x1D1D1F, 0xF2F2F4},
    {QPalette::All, QPalette::ToolTipText, 0x1D1D1F, 0xF2F2F4},
    {QPalette::Disabled, QPalette::WindowText, 0x9A9A9E, 0x808085},
    {QPalette::Disabled, QPalette::Text, 0x9A9A9E, 0x808085},
    {QPalette::Disabled, QPalette::ButtonText, 0x9A9A9E, 0x808085},
    {QPalette::All, QPalette::Base, 0xFFFFFF, 0x4E4E53},
    {QPalette::All, QPalette::ToolTipBase, 0xFFFFFF, 0x4E4E53},
    {QPalette::All, QPalette::Highlight, 0x0A66D6, 0x1A6FDC},
    {QPalette::All, QPalette::HighlightedText, 0xFFFFFF, 0xFFFFFF},
};

/// `weight` of `front`, and `back` for the rest.
QColor mixed(const QColor& front, const QColor& back, qreal weight)
{
    const auto mix = [weight](int one, int other) {
        return qRound(one * weight + other * (1 - weight));
    };
    return {mix(front.red(), back.red()), mix(front.green(), back.green()),
            mix(front.blue(), back.blue())};
}

/// The mix of text and background colour with `weight` of the text's, as in an active window: the
/// caller asks before the window becomes active, and some themes have pale texts until then.
QColor blended(const QPalette& palette, qreal weight)
{
    return mixed(palette.color(QPalette::Active, QPalette::WindowText),
                 palette.color(QPalette::Active, QPalette::Window), weight);
}

/// The part of the brightest light that a colour gives back. Source: Web Content Accessibility
/// Guidelines 2, "relative luminance".
qreal luminance(const QColor& colour)
{
    const auto linear = [](qreal part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
        0.0722 * linear(colour.blueF());
}

qreal contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// Whether the style paints controls in the colours of the palette that it is given.
bool stylePaintsInColoursOfPalette()
{
    const QString name = QApplication::style()->name();
    return name == "fusion" || name == "windows" || name == "breeze";
}

} // namespace

QColor systemRed(std::optional<ColourScheme> scheme)
{
    return scheme == ColourScheme::dark ? QColor(0xFF, 0x45, 0x3A) : QColor(0xFF, 0x3B, 0x30);
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::WindowText).lightness() >
        palette.color(QPalette::Active, QPalette::Window).lightness();
}

QPalette paletteFor(ColourScheme scheme)
{
    const bool dark = scheme == ColourScheme::dark;
    QPalette palette(QColor(dark ? 0x3C3C3F : 0xFCFCFC), QColor(dark ? 0x2A2A2C : 0xF6F6F6));
    for (const Colour& colour : colours) {
        palette.setColor(colour.group, colour.role, dark ? colour.dark : colour.light);
    }
    return palette;
}

void applyPalette(std::optional<ColourScheme> scheme)
{
    QPalette palette = QApplication::palette();
    if (scheme && (scheme == ColourScheme::dark) != isDark(palette) &&
        stylePaintsInColoursOfPalette()) {
        palette = paletteFor(*scheme);
    }
    const QPalette::ColorGroup active = QPalette::Active;
    for (const auto& [text, ground] : {std::pair(QPalette::WindowText, QPalette::Window),
                                       std::pair(QPalette::Text, QPalette::Base),
                                       std::pair(QPalette::ButtonText, QPalette::Button)}) {
        const QColor colour =
            readableOn(palette.color(active, ground), palette.color(active, text));
        for (const auto group : {active, QPalette::Inactive}) {
            if (palette.color(group, text) != colour) {
                palette.setColor(group, text, colour);
            }
        }
    }
    if (palette != QApplication::palette()) {
        QApplication::setPalette(palette);
    }
}

QColor readableOn(const QColor& ground, const QColor& wanted)
{
    constexpr int steps = 64;
    const QColor end =
        contrast(ground, Qt::black) > contrast(ground, Qt::white) ? Qt::black : Qt::white;
    QColor colour = wanted;
    for (int step = 1; step <= steps && contrast(ground, colour) < leastContrast; ++step) {
        colour = mixed(end, wanted, static_cast<qreal>(step) / steps);
    }
    return colour;
}

namespace {

/// On an inactive window too, which some styles give another ground.
QColor readableOnWindows(const QPalette& palette, const QColor& wanted)
{
    return readableOn(palette.color(QPalette::Inactive, QPalette::Window),
                      readableOn(palette.color(QPalette::Active, QPalette::Window), wanted));
}

} // namespace

QColor warningTextColour(const QPalette& palette, std::optional<ColourScheme> scheme)
{
    return readableOnWindows(palette, systemRed(scheme));
}

QColor secondaryTextColour(const QPalette& palette)
{
    return readableOnWindows(palette, blended(palette, secondaryWeight));
}

QColor dividerColour(const QPalette& palette)
{
    return blended(palette, dividerWeight);
}

QColor edgeColour(const QPalette& palette)
{
    return blended(palette, edgeWeight);
}

void setTextColour(QWidget& widget, std::optional<QColor> colour)
{
    QPalette palette;
    if (colour) {
        palette.setColor(QPalette::WindowText, *colour);
    }
    widget.setPalette(palette);
}

int scaledTo(const QFont& font, int points)
{
    return std::max(points, qRound(points * QFontInfo(font).pixelSize() / qreal{measuredTextSize}));
}

QFont headlineFont(QFont body)
{
    body.setBold(true);
    return body;
}

QFont title3Font(QFont body)
{
    body.setBold(true);
    if (body.pointSizeF() > 0) {
        body.setPointSizeF(body.pointSizeF() * title3Scale);
    } else {
        body.setPixelSize(qRound(body.pixelSize() * title3Scale));
    }
    return body;
}

} // namespace voltmere
