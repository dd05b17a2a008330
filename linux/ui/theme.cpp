#include "linux/ui/theme.h"

#include <QApplication>
#include <QWidget>

namespace voltmere {

namespace {

/// The colours of a scheme.
struct Colours {
    QColor window;
    QColor button;
    QColor base;
    QColor text;
    QColor disabledText;
    QColor placeholder;
    QColor accent;
    QColor disabledAccent;
    QColor link;
};

constexpr qreal secondaryWeight = 0.62;
constexpr qreal dividerWeight = 0.15;
constexpr qreal title3Scale = 15.0 / 13.0;

Colours lightColours()
{
    return {.window = QColor(0xF6, 0xF6, 0xF6),
            .button = QColor(0xFC, 0xFC, 0xFC),
            .base = QColor(0xFF, 0xFF, 0xFF),
            .text = QColor(0x1D, 0x1D, 0x1F),
            .disabledText = QColor(0x9A, 0x9A, 0x9E),
            .placeholder = QColor(0x70, 0x70, 0x75),
            .accent = QColor(0x0A, 0x66, 0xD6),
            .disabledAccent = QColor(0xB4, 0xB4, 0xB8),
            .link = QColor(0x06, 0x5A, 0xC4)};
}

Colours darkColours()
{
    return {.window = QColor(0x2A, 0x2A, 0x2C),
            .button = QColor(0x3C, 0x3C, 0x3F),
            .base = QColor(0x4E, 0x4E, 0x53),
            .text = QColor(0xF2, 0xF2, 0xF4),
            .disabledText = QColor(0x80, 0x80, 0x85),
            .placeholder = QColor(0xC0, 0xC0, 0xC5),
            .accent = QColor(0x1A, 0x6F, 0xDC),
            .disabledAccent = QColor(0x55, 0x55, 0x59),
            .link = QColor(0x6A, 0xB0, 0xFF)};
}

QPalette makePalette(const Colours& colours)
{
    QPalette palette(colours.button, colours.window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::BrightText, QPalette::ToolTipText}) {
        palette.setColor(role, colours.text);
    }
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
        palette.setColor(QPalette::Disabled, role, colours.disabledText);
    }
    palette.setColor(QPalette::Base, colours.base);
    palette.setColor(QPalette::AlternateBase, colours.window);
    palette.setColor(QPalette::ToolTipBase, colours.base);
    palette.setColor(QPalette::PlaceholderText, colours.placeholder);
    palette.setColor(QPalette::Highlight, colours.accent);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours.disabledAccent);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::HighlightedText, Qt::white);
    }
    palette.setColor(QPalette::Link, colours.link);
    palette.setColor(QPalette::LinkVisited, colours.link);
    return palette;
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::WindowText).lightness() >
        palette.color(QPalette::Active, QPalette::Window).lightness();
}

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

QPalette paletteFor(std::optional<ColourScheme> scheme)
{
    return makePalette(scheme == ColourScheme::dark ? darkColours() : lightColours());
}

void applyPalette(std::optional<ColourScheme> scheme)
{
    if (scheme && (scheme == ColourScheme::dark) != isDark(QApplication::palette())) {
        QApplication::setPalette(paletteFor(scheme));
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
