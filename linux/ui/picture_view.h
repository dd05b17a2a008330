#pragma once

#include "linux/ui/drawn_image.h"

#include <QColor>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

namespace voltmere {

/// Shows a square image at the resolution of the screen that it is on, and in the text's colour
/// where the image takes one. Stays empty where there is no image.
class PictureView : public QWidget {
public:
    using Picture = std::function<std::optional<DrawnImage>(const QColor& textColour)>;

    /// `side` is in points.
    PictureView(int side, Picture picture, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture picture;
};

/// Shows the symbol called `name` in the text's colour, at the size that the panel's rows have.
PictureView* makeSymbolView(const QString& name, QWidget* parent);

} // namespace voltmere
