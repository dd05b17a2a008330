#include "linux/ui/qt_application.h"

#include "linux/activation_token.h"

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
    // A token counts for one activation. Qt clears the one that it used, and uses none on X11.
    activationToken::drop();
}

} // namespace voltmere
