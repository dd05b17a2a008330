#include "platform/linux/x_display.h"

#include <xcb/xcb.h>

namespace voltmere {

bool canOpenXDisplay()
{
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool opened = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return opened;
}

} // namespace voltmere
