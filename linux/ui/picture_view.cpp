#include "linux/ui/picture_view.h"

#include "linux/ui/panel_metrics.h"
#include "linux/ui/symbol.h"

#include <QPainter>

#include <utility>

namespace voltmere {

PictureView::PictureView(int side, Picture picture, QWidget* parent)
    : QWidget(parent)
    , picture(std::move(picture))
{
    setFixedSize(side, side);
}

void PictureView::paintEvent(QPaintEvent* /*event*/)
{
    if (const auto image = picture(palette().color(foregroundRole()))) {
        QPainter(this).drawImage(rect(), image->rendered(devicePixelRatioF()));
    }
}

PictureView* makeSymbolView(const QString& name, QWidget* parent)
{
    constexpr int side = panelMetrics::symbolSide;
    auto* const view = new PictureView(
        side, [name](const QColor& colour) { return symbolImage(name, side, colour); }, parent);
    view->setObjectName("symbol-" + name);
    return view;
}

} // namespace voltmere
