#include "linux/ui/tray_number.h"

#include <QLineF>
#include <QPainterPathStroker>
#include <QString>

#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

namespace voltmere {

namespace {

/// The strokes of a character, along the middle of the stem, through these points:
///
///     a   t   b
///     p       q
///     c s     d
///     r
///     e z u   f
///
/// A small letter is a rounded corner, a capital a sharp one. `g` is the tip of the flag of 1, left
/// of the cell.
std::vector<std::string_view> strokesOf(QChar character)
{
    static const std::map<char, std::vector<std::string_view>> strokes{
        {'0', {"tbfeat"}},         {'1', {"gBf"}},       {'2', {"pabdcEf"}},
        {'3', {"pabds", "sdfer"}}, {'4', {"aCd", "bf"}}, {'5', {"bACdfer"}},
        {'6', {"qbaefdc"}},        {'7', {"aBz"}},       {'8', {"tbdcat", "uecdfu"}},
        {'9', {"refbacd"}},        {'-', {"cd"}},
    };
    return strokes.at(character.toLatin1());
}

/// Where a character stands, and how thick its stems are. In pixels.
struct Cell {
    QRect bounds;
    int stem = 1;
};

std::map<char, QPointF> pointsOf(const Cell& cell)
{
    const qreal half = cell.stem / 2.0;
    const QRectF box = QRectF(cell.bounds).adjusted(half, half, -half, -half);
    // A whole number of pixels, so that the middle bar is as sharp as the others.
    const int middleBar = (cell.bounds.height() - cell.stem) / 2;
    const qreal middle = box.top() + middleBar;
    // Short enough that the square end of a hook does not close the digit.
    const qreal hook = (middle - box.top() - cell.stem) * 0.35;
    return {
        {'a', box.topLeft()},
        {'b', box.topRight()},
        {'c', {box.left(), middle}},
        {'d', {box.right(), middle}},
        {'e', box.bottomLeft()},
        {'f', box.bottomRight()},
        {'g', {box.left() - cell.stem, box.top() + box.width() + cell.stem}},
        {'p', {box.left(), box.top() + hook}},
        {'q', {box.right(), box.top() + hook}},
        {'r', {box.left(), box.bottom() - hook}},
        {'s', {box.left() + box.width() * 0.45, middle}},
        {'t', {box.center().x(), box.top()}},
        {'u', {box.center().x(), box.bottom()}},
        {'z', {box.left() + box.width() * 0.25, box.bottom()}},
    };
}

/// The point on the way from `from` to `to` after `length`, but at most half the way.
QPointF alongLine(const QPointF& from, const QPointF& to, qreal length)
{
    const QLineF line(from, to);
    return line.pointAt(line.length() > 2 * length ? length / line.length() : 0.5);
}

void addRoundedCorner(QPainterPath& path, const QPointF& before, const QPointF& corner,
                      const QPointF& after, qreal radius)
{
    constexpr qreal circle = 0.5523; // how far a cubic's handles reach for a quarter of a circle
    const QPointF start = alongLine(corner, before, radius);
    const QPointF end = alongLine(corner, after, radius);
    path.lineTo(start);
    path.cubicTo(start + (corner - start) * circle, end + (corner - end) * circle, end);
}

QPainterPath centreLine(std::string_view stroke, const Cell& cell)
{
    const std::map<char, QPointF> points = pointsOf(cell);
    const auto at = [&](std::size_t i) { return points.at(QChar(stroke[i]).toLower().toLatin1()); };
    const qreal radius = (cell.bounds.width() - cell.stem) / 2.0;
    QPainterPath path(at(0));
    for (std::size_t i = 1; i + 1 < stroke.size(); ++i) {
        if (QChar(stroke[i]).isUpper()) {
            path.lineTo(at(i));
        } else {
            addRoundedCorner(path, at(i - 1), at(i), at(i + 1), radius);
        }
    }
    path.lineTo(at(stroke.size() - 1));
    if (stroke.front() == stroke.back()) {
        path.closeSubpath();
    }
    return path;
}

QPainterPath characterOutline(QChar character, const Cell& cell)
{
    QPainterPathStroker pen;
    pen.setWidth(cell.stem);
    pen.setCapStyle(Qt::SquareCap);
    pen.setJoinStyle(Qt::MiterJoin);
    pen.setMiterLimit(cell.bounds.height()); // spikes reach out of the cell and are cut off there
    QPainterPath outline;
    for (const std::string_view stroke : strokesOf(character)) {
        outline |= pen.createStroke(centreLine(stroke, cell)).simplified();
    }
    QPainterPath bounds;
    bounds.addRect(cell.bounds);
    return outline & bounds;
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
