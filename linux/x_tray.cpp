#include "linux/x_tray.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <string_view>

namespace voltmere {

bool hasXTray()
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), &xcb_disconnect);
    if (xcb_connection_has_error(connection.get()) != 0) {
        return false;
    }
    const std::string_view name = xTraySelection;
    const auto atom = owned(xcb_intern_atom_reply(
        connection.get(),
        xcb_intern_atom(connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    const auto selection = owned(xcb_get_selection_owner_reply(
        connection.get(),
        xcb_get_selection_owner(connection.get(), atom ? atom->atom : xcb_atom_t{XCB_ATOM_NONE}),
        nullptr));
    return selection && selection->owner != XCB_WINDOW_NONE;
}

} // namespace voltmere
