#include "snooze/window/hover_poller.h"

#include <QEvent>

#include <utility>

namespace voltmere {

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
        const QPointF point = item.view->mapFromGlobal(QPointF(position->x, position->y));
        item.hover->setHovering(QRectF(item.view->rect()).contains(point));
    }
}

} // namespace voltmere
