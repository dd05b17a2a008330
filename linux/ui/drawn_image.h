#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSize>
#include <QString>

#include <functional>

namespace voltmere {

/// An image without pixels of its own: a size, and a routine that draws it sharply at any scale.
struct DrawnImage {
    /// Fills `destination`, in the painter's coordinates. May leave the painter's state changed.
    using Drawing = std::function<void(QPainter& painter, const QRectF& destination)>;

    QSize size; ///< points
    Drawing draw;

    /// The image on a transparent background, with `devicePixelRatio` pixels for each point.
    QImage rendered(qreal devicePixelRatio) const;
};

/// How many pixels of the painter's device `destination` is wide, rounded up.
int pixelWidth(const QPainter& painter, const QRectF& destination);

/// Fills `place`, whose corners are round.
void fillRounded(QPainter& painter, const QRectF& place, qreal radius, const QColor& colour);

/// The symbol of that name, such as "magicmouse", in one colour, as a square of `side` points.
/// Empty for an unknown name.
DrawnImage symbolImage(const QString& name, int side, const QColor& colour);

} // namespace voltmere
