#include "linux/wayland_display.h"

#include "posix/file_descriptor.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace voltmere {

namespace {

std::string socketPath()
{
    const char* const named = std::getenv("WAYLAND_DISPLAY");
    const char* const directory = std::getenv("XDG_RUNTIME_DIR");
    const char* const display = named == nullptr ? "wayland-0" : named;
    if (*display == '/') {
        return display;
    }
    return directory == nullptr ? "" : std::string(directory) + '/' + display;
}

} // namespace

bool canReachWaylandDisplay()
{
    const std::string path = socketPath();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) {
        return false;
    }
    std::memcpy(address.sun_path, path.data(), path.size());
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    // A pointer to the general form of an address is what the socket functions take.
    const auto* const general = static_cast<const sockaddr*>(static_cast<const void*>(&address));
    return socket && ::connect(socket.get(), general, sizeof address) == 0;
}

} // namespace voltmere
