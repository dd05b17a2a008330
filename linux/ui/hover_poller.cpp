#include "linux/ui/hover_poller.h"

#include <QEvent>

#include <utility>

namespace voltmere {

namespace {

/// A rectangle holds its left and upper edge and not the other two, where the next pixel begins.
bool holds(const QWidget& view, const QPointF& onScreen)
{
    const QPointF point = view.mapFromGlobal(onScreen);
    return point.x() >= 0 && point.y() >= 0 && point.x() < view.width() &&
        point.y() < view.height();
}

} // namespace

HoverPoller::HoverPoller(QWidget* window, std::vector<Item> givenItems, const Pointer& pointer,
                         RunLoop& runLoop)
    : window(window)
    , items(std::move(givenItems))
    , pointer(pointer)
{
    if (pointer.position()) {
        timer = runLoop.scheduleRepeating(interval, [this] { refresh(); });
        refresh();
        return;
    }
    for (const Item& item : items) {
        item.view->installEventFilter(this);
    }
}

void HoverPoller::stop()
{
    timer.reset();
    for (const Item& item : items) {
        item.view->removeEventFilter(this);
        item.hover->setHovering(false);
    }
}

bool HoverPoller::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        for (const Item& item : items) {
            if (item.view == watched) {
                item.hover->setHovering(event->type() == QEvent::Enter);
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

void HoverPoller::refresh()
{
    if (window == nullptr || !window->isVisible()) {
        return;
    }
    const auto position = pointer.position();
    if (!position) {
        return;
    }
    for (const Item& item : items) {
        item.hover->setHovering(holds(*item.view, QPointF(position->x, position->y)));
    }
}

} // namespace voltmere
