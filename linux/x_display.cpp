#include "linux/x_display.h"

#include "linux/xcb_reply.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <string_view>

namespace voltmere {

namespace {

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

/// Never null, as one that failed is an object too.
Connection connectToDisplay()
{
    return {xcb_connect(nullptr, nullptr), &xcb_disconnect};
}

} // namespace

bool canOpenXDisplay()
{
    return xcb_connection_has_error(connectToDisplay().get()) == 0;
}

bool hasXTray()
{
    const Connection connection = connectToDisplay();
    if (xcb_connection_has_error(connection.get()) != 0) {
        return false;
    }
    const std::string_view name = xTraySelection;
    const auto atom = owned(xcb_intern_atom_reply(
        connection.get(),
        xcb_intern_atom(connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    if (!atom) {
        return false;
    }
    const auto selection = owned(xcb_get_selection_owner_reply(
        connection.get(), xcb_get_selection_owner(connection.get(), atom->atom), nullptr));
    return selection && selection->owner != XCB_WINDOW_NONE;
}

} // namespace voltmere
