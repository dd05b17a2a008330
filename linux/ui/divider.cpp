#include "linux/ui/divider.h"

#include "linux/ui/theme.h"

#include <QPainter>

namespace voltmere {

Divider::Divider(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(1);
}

void Divider::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), dividerColour(palette()));
}

} // namespace voltmere
