#include "linux/ui/tray_number.h"

#include <QFile>
#include <QPainterPathStroker>
#include <QRegularExpression>
#include <QString>
#include <QXmlStreamReader>

#include <algorithm>
#include <map>

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
        const auto point = [&numbers](int index) {
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
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"path") {
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

/// Where a character stands, and how thick its stems are. In pixels.
struct Cell {
    QRect bounds;
    int stem = 1;
};

/// The middle of the character's stems in `cell`. The drawing says where the lines are; here the
/// two outer stems and the three bars come to stand on whole pixels.
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
    pen.setMiterLimit(cell.bounds.height()); // spikes reach out of the cell and are cut off there
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

} // namespace voltmere
