#include "ui/menu_bar_label.h"

#include "devices/device_listing.h"
#include "ui/icon_texts.h"
#include "ui/status_image.h"

#include <QBuffer>
#include <QRectF>

#include <utility>

namespace voltmere {

namespace {

/// Pixels for each point, as screens have them.
constexpr qreal densities[] = {1.0, 2.0};

std::string pngOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes.toStdString();
}

StatusItemPicture pictureOf(const DrawnImage& image)
{
    StatusItemPicture picture{
        static_cast<double>(image.size.width()), static_cast<double>(image.size.height()), {}};
    for (const qreal density : densities) {
        picture.bitmaps.push_back(pngOf(image.rendered(density)));
    }
    return picture;
}

QRect rectangleOf(const ScreenRectangle& place)
{
    return QRectF(place.x, place.y, place.width, place.height).toAlignedRect();
}

} // namespace

MenuBarLabel::MenuBarLabel(BatteryModel& model, const Appearance& appearance,
                           std::unique_ptr<StatusItem> givenItem,
                           std::function<void(const QRect& icon)> toggle)
    : model(model)
    , appearance(appearance)
    , item(std::move(givenItem))
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    item->onClick(
        [toggle = std::move(toggle)](const ScreenRectangle& place) { toggle(rectangleOf(place)); });
    redraw();
}

void MenuBarLabel::redraw()
{
    std::vector<BatteryDevice> devices = model.devices;
    sortForDisplay(devices);
    item->setPicture(
        pictureOf(StatusImage::make(devices, model.threshold, appearance.bestMatch())));
    item->setDescription(toolTipText(deviceLines(devices)).toStdString());
}

} // namespace voltmere
