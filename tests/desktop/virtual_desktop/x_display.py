"""What a client of the X server can see of the tray."""

import ctypes
import time

from .processes import Failure


class XReparentEvent(ctypes.Structure):
    _fields_ = [
        ("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
        ("display", ctypes.c_void_p), ("event", ctypes.c_ulong), ("window", ctypes.c_ulong),
        ("parent", ctypes.c_ulong), ("x", ctypes.c_int), ("y", ctypes.c_int),
        ("override_redirect", ctypes.c_int)]


class XEvent(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("reparent", XReparentEvent), ("pad", ctypes.c_long * 24)]


class XWatch:
    """Sees windows that the tray takes in (XEmbed). The X server reports each at once."""

    REPARENT_NOTIFY = 21
    SUBSTRUCTURE_NOTIFY_MASK = 1 << 19
    CLIENT_SHIFT = 21  # where a window's number names its client, for a server with 256 clients

    def __init__(self, display_name):
        try:
            self.x = ctypes.CDLL("libX11.so.6")
        except OSError:
            raise Failure("libX11 is not installed: apt-get install libx11-6") from None
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        for function in ("XDefaultRootWindow", "XInternAtom", "XGetSelectionOwner"):
            getattr(self.x, function).restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(display_name.encode()))
        if not self.display:
            raise Failure(f"the display {display_name} cannot be opened")
        self.tray = self.x.XInternAtom(self.display, b"_NET_SYSTEM_TRAY_S0", 0)
        root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.display))
        self.x.XSelectInput(self.display, root, ctypes.c_long(self.SUBSTRUCTURE_NOTIFY_MASK))
        self.x.XFlush(self.display)

    def fileno(self):
        return self.x.XConnectionNumber(self.display)

    def tray_owner(self):
        return self.x.XGetSelectionOwner(self.display, ctypes.c_ulong(self.tray))

    def icons(self):
        """The times at which icons arrived since the last call."""
        seen = time.time()
        parents = []
        while self.x.XPending(self.display):
            event = XEvent()
            self.x.XNextEvent(self.display, ctypes.byref(event))
            if event.type == self.REPARENT_NOTIFY:
                parents.append(event.reparent.parent)
        tray_client = self.tray_owner() >> self.CLIENT_SHIFT if parents else 0
        return [seen for parent in parents if parent >> self.CLIENT_SHIFT == tray_client]
