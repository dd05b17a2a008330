#include "linux/ui/qt_pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace voltmere {

std::optional<PointerPosition> QtPointer::position() const
{
    if (QGuiApplication::platformName().startsWith("wayland")) {
        return std::nullopt;
    }
    const QPoint point = QCursor::pos();
    return PointerPosition{static_cast<double>(point.x()), static_cast<double>(point.y())};
}

} // namespace voltmere
