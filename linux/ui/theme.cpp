#include "linux/ui/theme.h"

#include <QApplication>
#include <QWidget>

namespace voltmere {

namespace {

constexpr qreal secondaryWeight = 0.62;
constexpr qreal dividerWeight = 0.15;
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

/// The mix of text and background colour with `weight` of the text's, as in an active window: the
/// caller asks before the window becomes active, and some themes have pale texts until then.
QColor blended(const QPalette& palette, qreal weight)
{
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor background = palette.color(QPalette::Active, QPalette::Window);
    const auto mix = [weight](int front, int back) {
        return qRound(front * weight + back * (1 - weight));
    };
    return {mix(text.red(), background.red()), mix(text.green(), background.green()),
            mix(text.blue(), background.blue())};
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
    if (scheme && (scheme == ColourScheme::dark) != isDark(QApplication::palette())) {
        QApplication::setPalette(paletteFor(*scheme));
    }
}

QColor secondaryTextColour(const QPalette& palette)
{
    return blended(palette, secondaryWeight);
}

QColor dividerColour(const QPalette& palette)
{
    return blended(palette, dividerWeight);
}

void setTextColour(QWidget& widget, std::optional<QColor> colour)
{
    QPalette palette;
    if (colour) {
        palette.setColor(QPalette::WindowText, *colour);
    }
    widget.setPalette(palette);
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
