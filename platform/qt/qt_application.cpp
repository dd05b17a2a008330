#include "platform/qt/qt_application.h"

#include <QApplication>
#include <QWidget>

namespace voltmere {

void QtApplication::activate()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() != Qt::ToolTip) {
            window->raise();
            window->activateWindow();
        }
    }
}

} // namespace voltmere
