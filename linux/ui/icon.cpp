#include "linux/ui/icon.h"

#include "linux/ui/views.h"

#include <QAction>
#include <QFile>
#include <QPainter>
#include <QPainterPathStroker>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace voltmere {

namespace {

/// `data` of an SVG path, of which it takes the absolute M, L, C and Z.
QPainterPath pathFrom(const QString& data)
{
    static const QRegularExpression steps("([MLCZ])([^MLCZ]*)");
    QPainterPath path;
    for (auto step = steps.globalMatch(data); step.hasNext();) {
        const QRegularExpressionMatch match = step.next();
        const QStringList numbers = match.captured(2).split(' ', Qt::SkipEmptyParts);
        const auto point = [&numbers](qsizetype index) {
            return QPointF(numbers.at(2 * index).toDouble(), numbers.at(2 * index + 1).toDouble());
        };
        switch (match.captured(1).front().toLatin1()) {
        case 'M':
            path.moveTo(point(0));
            break;
        case 'L':
            path.lineTo(point(0));
            break;
        case 'C':
            path.cubicTo(point(0), point(1), point(2));
            break;
        default:
            path.closeSubpath();
        }
    }
    return path;
}

/// The paths of the drawing, by their identifiers.
std::map<QString, QPainterPath> readDrawing()
{
    std::map<QString, QPainterPath> paths;
    QFile file(QStringLiteral(":/voltmere/digits.svg"));
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement) {
            paths.emplace(xml.attributes().value("id").toString(),
                          pathFrom(xml.attributes().value("d").toString()));
        }
    }
    return paths;
}

QPainterPath drawnLine(QChar character)
{
    static const std::map<QString, QPainterPath> drawing = readDrawing();
    return drawing.at(character == '-' ? QString("minus") : QString("digit-") + character);
}

/// The place of a character and the thickness of its stems, in pixels.
struct Cell {
    QRect bounds;
    int stem{};
};

/// The middle of the character's stems in `cell`. Moves the drawing's two outer stems and three
/// bars to whole pixels.
QPainterPath centreLine(QChar character, const Cell& cell)
{
    // In the drawing.
    constexpr qreal first = 1; // the left stem and the upper bar
    constexpr qreal middleBar = 5;
    constexpr qreal lowerBar = 10;
    const qreal rightStem = character == '1' ? 3 : 5;

    const qreal half = cell.stem / 2.0;
    const QRectF box = QRectF(cell.bounds).adjusted(half, half, -half, -half);
    const int toMiddle = (cell.bounds.height() - cell.stem) / 2; // whole pixels
    const qreal fromMiddle = box.height() - toMiddle;
    QPainterPath line = drawnLine(character);
    for (int index = 0; index < line.elementCount(); ++index) {
        const QPointF drawn = line.elementAt(index);
        const qreal x = (drawn.x() - first) / (rightStem - first) * box.width();
        const qreal y = drawn.y() < middleBar
            ? (drawn.y() - first) / (middleBar - first) * toMiddle
            : toMiddle + (drawn.y() - middleBar) / (lowerBar - middleBar) * fromMiddle;
        line.setElementPositionAt(index, box.left() + x, box.top() + y);
    }
    return line;
}

QPainterPath characterOutline(QChar character, const Cell& cell)
{
    QPainterPathStroker pen;
    pen.setWidth(cell.stem);
    pen.setCapStyle(Qt::SquareCap);
    pen.setJoinStyle(Qt::MiterJoin);
    QPainterPath bounds;
    bounds.addRect(cell.bounds);
    return pen.createStroke(centreLine(character, cell)).simplified() & bounds;
}

/// The widths of the characters of a number and the space between them, in pixels.
struct Spacing {
    int digit;
    int one; ///< the digit 1, which is narrower
    int gap;

    int width(QChar character) const { return character == '1' ? one : digit; }

    int width(const QString& number) const
    {
        int sum = -gap;
        for (const QChar character : number) {
            sum += width(character) + gap;
        }
        return sum;
    }
};

Spacing spacingFor(const QString& number, const QSize& area)
{
    constexpr qreal oneToOther = 0.6;
    constexpr qreal widest = 0.62; // of the height; a wider digit looks squashed
    const auto count = static_cast<int>(number.size());
    const auto ones = static_cast<int>(number.count('1'));
    const int gap = std::max(1, area.width() / (count > 2 ? 20 : 11));
    const int margins = std::max(1, area.width() / 8 - 1);
    const int free = area.width() - margins - gap * (count - 1);
    const int fitting = static_cast<int>(free / (count - ones + ones * oneToOther));
    const int digit = std::max(1, std::min(fitting, static_cast<int>(area.height() * widest)));
    return {digit, qRound(digit * oneToOther), gap};
}

} // namespace

QPainterPath numberOutline(std::int64_t number, const QRect& area)
{
    const QString digits = QString::number(number);
    const Spacing spacing = spacingFor(digits, area.size());
    const int stem = std::max(1, qRound(spacing.digit * 0.31));
    int left = area.left() + (area.width() - spacing.width(digits)) / 2;
    QPainterPath outline;
    for (const QChar character : digits) {
        const int width = spacing.width(character);
        outline.addPath(
            characterOutline(character, {QRect(left, area.top(), width, area.height()), stem}));
        left += width + spacing.gap;
    }
    return outline;
}

namespace {

constexpr std::array traySides{16, 22, 24, 32, 44, 48, 64};

/// White keeps a contrast of 5 to 1 or more on both plates; on the system red it would have 3.5.
struct PlateColours {
    QColor plate;
    QColor bar;
};

PlateColours coloursFor(bool low)
{
    return low ? PlateColours{{0xD7, 0x00, 0x15}, Qt::white}
               : PlateColours{{0x1B, 0x3C, 0x5A}, {0x36, 0xD6, 0x93}};
}

/// The places of the parts, in whole pixels.
struct TrayLayout {
    QRect number;
    QRect bar;
};

TrayLayout layoutFor(int side)
{
    const int margin = side / 16;
    const int barHeight = std::max(2, side / 10);
    const int barInset = side / 8;
    const int barTop = side - barHeight - side / 12;
    const int numberTop = side / 11;
    return {QRect(0, numberTop, side, barTop - margin - numberTop),
            QRect(barInset, barTop, side - 2 * barInset, barHeight)};
}

/// The left part of the bar for `level` percent: at least a trace for any charge, at most the whole
/// bar.
QRect filledPart(const QRect& bar, std::int64_t level)
{
    const auto percent = static_cast<int>(std::clamp<std::int64_t>(level, 0, 100));
    return {bar.topLeft(), QSize((bar.width() * percent + 99) / 100, bar.height())};
}

void drawBar(QPainter& painter, const QRect& bar, std::int64_t level, const QColor& colour)
{
    const qreal radius = bar.height() / 2.0;
    const QColor track(255, 255, 255, 72);
    painter.setBrush(track);
    painter.drawRoundedRect(bar, radius, radius);
    painter.setClipRect(filledPart(bar, level));
    painter.setBrush(colour);
    painter.drawRoundedRect(bar, radius, radius);
}

void drawLevel(QPainter& painter, const IconLevel& level, int side)
{
    const TrayLayout layout = layoutFor(side);
    const PlateColours colours = coloursFor(level.low);
    const qreal radius = side * 0.19;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.plate);
    painter.drawRoundedRect(0, 0, side, side, radius, radius);
    painter.fillPath(numberOutline(level.percent, layout.number), Qt::white);
    drawBar(painter, layout.bar, level.percent, colours.bar);
}

/// From the vector form, since the bitmaps are made for 20 points only.
void drawStatusIcon(QPainter& painter, int side)
{
    QSvgRenderer(QStringLiteral(":/voltmere/StatusIcon.svg"))
        .render(&painter, QRectF(0, 0, side, side));
}

} // namespace

QImage trayImage(const std::optional<IconLevel>& level, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (level) {
        drawLevel(painter, *level, side);
    } else {
        drawStatusIcon(painter, side);
    }
    return image;
}

QIcon makeTrayIcon(const std::optional<IconLevel>& level)
{
    QIcon icon;
    for (const int side : traySides) {
        icon.addPixmap(QPixmap::fromImage(trayImage(level, side)));
    }
    return icon;
}

QString menuText(QString text, MenuPainter painter)
{
    if (painter == MenuPainter::toolkit) {
        return text.replace('&', "&&");
    }
    // A tray host reads "_x" as a mnemonic, and Qt sends the first "&" of a text as "_". So a text
    // with "&" begins with another one and a space without width: the space is the mnemonic, and
    // nothing shows. Some hosts fail on "__" beside a mnemonic, so in a text with "_" each "&"
    // becomes full-width.
    static const QString taken = QStringLiteral("&\u200B");
    if (text.contains('_')) {
        return text.replace('&', QChar(0xFF06)).replace('_', "__");
    }
    return text.contains('&') ? taken + text : text;
}

StatusLabel::StatusLabel(BatteryModel& model, Actions givenActions)
    : model(model)
    , actions(std::move(givenActions))
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    connect(&icon, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) {
                    actions.toggle(place());
                }
            });
    connect(&menu, &QMenu::aboutToShow, this, [this] { actions.menu(); });
    icon.setContextMenu(&menu);
    redraw();
    icon.show();
}

void StatusLabel::redraw()
{
    // A desktop fetches all sizes of an icon that is set, and an open menu must not change under
    // the pointer. Most redraws change neither the level nor the texts.
    const auto level = iconLevel(model.devices, model.threshold);
    if (icon.icon().isNull() || level != shownLevel) {
        shownLevel = level;
        icon.setIcon(makeTrayIcon(level));
    }
    const IconTexts texts = iconTexts(model.devices);
    if (texts != shownTexts) {
        shownTexts = texts;
        icon.setToolTip(asQt(texts.toolTip));
        fillMenu(texts);
    }
}

void StatusLabel::fillMenu(const IconTexts& texts)
{
    // Where the desktop reads the menu over D-Bus, it draws the menu itself.
    const MenuPainter painter =
        menu.platformMenu() == nullptr ? MenuPainter::toolkit : MenuPainter::trayHost;
    const auto entry = [painter](const std::string& text) { return menuText(asQt(text), painter); };
    menu.clear();
    for (const std::string& device : texts.devices) {
        // Not disabled: hosts draw disabled entries too pale to read.
        menu.addAction(entry(device), this, [this] { actions.open(place()); });
    }
    menu.addSeparator();
    menu.addAction(entry(texts.open), this, [this] { actions.open(place()); });
    menu.addAction(entry(texts.quit), this, [this] { actions.quit(); });
}

} // namespace voltmere
