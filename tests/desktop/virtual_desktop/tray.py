"""What the icon of a program offers the tray (StatusNotifierItem)."""

from gi.repository import Gio, GLib

ITEM = "org.kde.StatusNotifierItem"
WATCHER = "org.kde.StatusNotifierWatcher"
BUS = "org.freedesktop.DBus"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"


class StatusItem:
    def __init__(self, desktop, process):
        self.process = process
        self.bus = Gio.DBusConnection.new_for_address_sync(
            desktop.environment["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
            Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)

    def call(self, service, path, interface, method, *arguments):
        """The answer to a call with texts, or nothing for an error."""
        parameters = GLib.Variant(f"({'s' * len(arguments)})", arguments)
        answer = self.call_with(service, path, interface, method, parameters)
        return answer and answer[0]

    def call_with(self, service, path, interface, method, parameters):
        try:
            return self.bus.call_sync(service, path, interface, method, parameters, None,
                                      Gio.DBusCallFlags.NO_AUTO_START, 2000, None).unpack()
        except GLib.Error:
            return None

    def owner(self):
        """The connection of the program to the bus on which its icon is registered."""
        items = self.call(WATCHER, "/StatusNotifierWatcher", PROPERTIES, "Get", WATCHER,
                          "RegisteredStatusNotifierItems")
        for item in items or []:
            connection = item.partition("/")[0]
            if self.call(BUS, "/org/freedesktop/DBus", BUS, "GetConnectionUnixProcessID",
                         connection) == self.process:
                return connection
        return None

    def read(self, name):
        owner = self.owner()
        return owner and self.call(owner, "/StatusNotifierItem", PROPERTIES, "Get", ITEM, name)

    def lines(self):
        """The lines of the tooltip below the program's name: one for each peripheral."""
        tooltip = self.read("ToolTip")
        return tooltip[2].split("\n")[1:] if tooltip else None

    def menu(self):
        """The entries of the menu that the tray draws, each its number and its properties."""
        answer = self.call_with(self.owner(), self.read("Menu"), MENU, "GetLayout",
                                GLib.Variant("(iias)", (0, -1, [])))
        return [(number, properties) for number, properties, _ in answer[1][2]] if answer else []

    def choose(self, number):
        """Tells the program that an entry of its menu was chosen."""
        self.call_with(self.owner(), self.read("Menu"), MENU, "Event",
                       GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("s", ""), 0)))

    def picture(self, side):
        """The pixels of the picture in one size, each (alpha, red, green, blue)."""
        for width, height, pixels in self.read("IconPixmap") or []:
            if (width, height) == (side, side):
                data = bytes(pixels)
                return [tuple(data[at:at + 4]) for at in range(0, len(data), 4)]
        return None


def is_red(picture):
    """Whether most of what is drawn is red: no other picture of the program has much of it."""
    drawn = [pixel for pixel in picture if pixel[0] > 128]
    red = [pixel for pixel in drawn if pixel[1] > 150 and pixel[2] < 90 and pixel[3] < 90]
    return len(red) > len(drawn) / 3
