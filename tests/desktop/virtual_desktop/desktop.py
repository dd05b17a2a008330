"""A desktop: a virtual X server, a session bus, a system bus and a home directory; on request a
window manager, a tray, notifications, assistive technology and Bluetooth."""

import os
import pathlib
import signal
import subprocess

from .processes import Failure, find_program, wait_until
from .x_display import XWatch

SYSTEM_BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
  </policy>
</busconfig>
"""

TRAY_HOSTS = {
    "trayer": ["--edge", "top", "--align", "left", "--SetDockType", "true", "--expand", "true",
               "--widthtype", "request"],
    "xfce4-panel": ["--disable-wm-check"]}

# A panel with nothing in it but the tray, so that nothing else changes on the screen.
XFCE_PANEL = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="26"/>
      <property name="icon-size" type="uint" value="22"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray">
      <property name="square-icons" type="bool" value="true"/>
    </property>
  </property>
</channel>
"""

SWAY = """output X11-1 resolution 1280x800
output * bg #000000 solid_color
default_border none
"""

WAYBAR = """{"height": 26, "modules-left": ["tray"], "tray": {"icon-size": 22}}"""

WAYBAR_STYLE = "* {min-height: 0; margin: 0; padding: 0; border: none; font-size: 9px}"

# The only icon stands in the corner of the screen, in both trays.
ICON = (12, 12)

NOTIFICATIONS = "org.freedesktop.Notifications"
PYTHON = "/usr/bin/python3"  # the distribution's, which has the packages


class Desktop:
    def __init__(self, home):
        self.home = pathlib.Path(home)
        self.environment = {
            "PATH": os.environ["PATH"], "LANG": "C.UTF-8", "HOME": str(self.home),
            "XDG_CONFIG_HOME": str(self.home / "config"), "XDG_DATA_HOME": str(self.home / "data"),
            "XDG_CACHE_HOME": str(self.home / "cache"), "XDG_STATE_HOME": str(self.home / "state"),
            "XDG_RUNTIME_DIR": str(self.home / "runtime"), "XDG_SESSION_TYPE": "x11"}
        self.environment |= {name: value for name, value in os.environ.items()
                             if name.startswith("VOLTMERE_MUTANT")}
        for name, directory in self.environment.items():
            if name.endswith(("_HOME", "_DIR")):
                os.makedirs(directory, mode=0o700, exist_ok=True)
        self.clients = {}  # variables for programs, which the helpers of this desktop do without
        self.log = open(self.home / "log", "wb")
        self.start_display()
        self.start_buses()

    def start(self, command, **options):
        options = {"stdout": self.log, "env": self.environment} | options
        return subprocess.Popen(command, stdin=subprocess.DEVNULL,
                                stderr=self.log, **options)

    def start_and_read_line(self, command):
        """Starts a server that writes its address, as a line, into the file that is appended.
        Returns the process and the line."""
        reading, writing = os.pipe()
        process = self.start([*command, str(writing)], pass_fds=[writing])
        os.close(writing)
        with open(reading, encoding="utf-8") as answer:
            line = answer.readline().strip()
        if not line:
            raise Failure(f"{command[0]} does not start; its messages:\n{self.messages()}")
        return process, line

    def start_display(self):
        _, number = self.start_and_read_line(
            [find_program("Xvfb", "xvfb"), "-screen", "0", "1280x800x24", "-nolisten", "tcp",
             "-noreset", "-maxclients", "256", "-displayfd"])
        self.environment["DISPLAY"] = f":{number}"
        self.x = XWatch(f":{number}")

    def start_buses(self):
        daemon = find_program("dbus-daemon", "dbus-daemon")
        self.buses = {}
        configuration = self.home / "system-bus.conf"
        configuration.write_text(SYSTEM_BUS)
        for name, option in (("DBUS_SYSTEM_BUS_ADDRESS", f"--config-file={configuration}"),
                             ("DBUS_SESSION_BUS_ADDRESS", "--session")):
            self.buses[name], self.environment[name] = self.start_and_read_line(
                [daemon, option, "--nofork", "--print-address"])

    def kill_session_bus(self):
        bus = self.buses["DBUS_SESSION_BUS_ADDRESS"]
        bus.send_signal(signal.SIGKILL)
        bus.wait()

    def run(self, command, **options):
        """Runs a helper of this desktop to its end. Returns what it prints, empty for a failure."""
        answer = subprocess.run(command, env=self.environment, capture_output=True, text=True,
                                check=False, **options)
        return answer.stdout if answer.returncode == 0 else ""

    def call(self, bus, destination, path, method, *arguments):
        """Calls a method on a bus. Returns the printed answer, empty for an error."""
        return self.run([find_program("dbus-send", "dbus-bin"), f"--{bus}", "--print-reply",
                         f"--dest={destination}", path, method, *arguments])

    def has_service(self, bus, name):
        answer = self.call(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                           "org.freedesktop.DBus.NameHasOwner", f"string:{name}")
        return "boolean true" in answer

    def start_window_manager(self):
        self.start([find_program("openbox", "openbox")])
        wait_until(lambda: "_NET_SUPPORTING_WM_CHECK(WINDOW)" in
                   self.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]),
                   "the start of the window manager")

    def start_sway(self):
        """Starts a Wayland compositor as a window on the X server, which gives it a pointer and a
        keyboard, with a bar that has nothing but the tray. Programs see no X server then."""
        for program, name, text in (("sway", "config", SWAY), ("waybar", "config", WAYBAR),
                                    ("waybar", "style.css", WAYBAR_STYLE)):
            directory = self.home / "config" / program
            directory.mkdir(exist_ok=True)
            (directory / name).write_text(text)
        self.environment |= {"WLR_BACKENDS": "x11", "WLR_RENDERER": "pixman"}
        sway = [find_program("sway", "sway")]
        # Before version 1.8 it does not start for the administrator.
        as_user = ["unshare", "--user", "--map-user=1000"] if os.geteuid() == 0 else []
        self.start([*as_user, *sway] if self.run([*as_user, "echo", "possible"]) else sway)
        runtime = pathlib.Path(self.environment["XDG_RUNTIME_DIR"])
        socket = wait_until(lambda: next(runtime.glob("wayland-?"), None), "the start of sway")
        self.clients |= {"WAYLAND_DISPLAY": socket.name, "DISPLAY": "",
                         "XDG_SESSION_TYPE": "wayland", "XDG_CURRENT_DESKTOP": "sway"}
        self.start([find_program("waybar", "waybar")], env=self.environment | self.clients)
        wait_until(self.has_status_notifier_host, "the start of the StatusNotifier host")

    def start_tray(self, host):
        if host == "xfce4-panel":
            channels = self.home / "config/xfce4/xfconf/xfce-perchannel-xml"
            channels.mkdir(parents=True, exist_ok=True)
            (channels / "xfce4-panel.xml").write_text(XFCE_PANEL)
        tray = self.start([find_program(host, host), *TRAY_HOSTS[host]])
        if host == "xfce4-panel":
            wait_until(self.has_status_notifier_host, "the start of the StatusNotifier host")
        wait_until(self.x.tray_owner, f"the start of {host}'s tray")
        return tray

    def kill_tray(self, tray):
        """Ends a tray as a crash does."""
        tray.send_signal(signal.SIGKILL)
        tray.wait()
        wait_until(lambda: not self.x.tray_owner() and not self.has_status_notifier_host(),
                   "the end of the tray")

    def has_status_notifier_host(self):
        watcher = "org.kde.StatusNotifierWatcher"
        answer = self.call("session", watcher, "/StatusNotifierWatcher",
                           "org.freedesktop.DBus.Properties.Get", f"string:{watcher}",
                           "string:IsStatusNotifierHostRegistered")
        return "boolean true" in answer

    def start_mock(self, bus, template):
        if not self.run([PYTHON, "-c", "import dbusmock; print(dbusmock.__name__)"]):
            raise Failure("dbusmock is not installed: apt-get install python3-dbusmock")
        return self.start([PYTHON, "-m", "dbusmock", f"--{bus}", "--template", template])

    def start_accessibility(self):
        launcher = "/usr/libexec/at-spi-bus-launcher"
        if not os.access(launcher, os.X_OK):
            raise Failure("assistive technology is not installed: apt-get install at-spi2-core")
        self.start([launcher, "--launch-immediately"])
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        wait_until(lambda: self.has_service("session", "org.a11y.Bus"),
                   "the start of the accessibility bus")

    def start_notifications(self):
        """Starts dunst and has it write down every notification that it shows. Its menu of actions
        is a program, which finds the choice to make in a file."""
        shown = self.home / "shown-notifications"
        shown.touch()
        script = self.home / "write-down"
        script.write_text('#!/bin/sh\nprintf "%s|%s\\n" "$DUNST_SUMMARY" "$DUNST_BODY" '
                          f">>'{shown}'\n")
        script.chmod(0o755)
        menu = self.home / "choose"
        menu.write_text(f"#!/bin/sh\ngrep -F -f '{self.home}/choice'\n")
        menu.chmod(0o755)
        rules = self.home / "dunstrc"
        rules.write_text(f'[global]\ndmenu = {menu}\n'
                         f'[every]\nsummary = "*"\nscript = {script}\ntimeout = 0\n')
        self.start([find_program("dunst", "dunst"), "-config", str(rules)])
        wait_until(lambda: self.has_service("session", NOTIFICATIONS),
                   "the start of the notification daemon")
        return shown

    def choose_action(self, name):
        """Chooses an action of the notifications on screen, from the daemon's menu."""
        (self.home / "choice").write_text(name + "\n")
        self.run([find_program("dunstctl", "dunst"), "context"])

    def start_bluetooth(self, names):
        """Starts a BlueZ that knows devices: their names by their addresses."""
        service, mock = "org.bluez", "org.bluez.Mock"
        self.start_mock("system", "bluez5")
        wait_until(lambda: self.has_service("system", service), "the start of BlueZ")
        if not self.call("system", service, "/org/bluez", mock + ".AddAdapter", "string:hci0",
                         "string:this-computer"):
            raise Failure("the simulated BlueZ takes no adapter")
        for address, name in names.items():
            if not self.call("system", service, "/org/bluez", mock + ".AddDevice", "string:hci0",
                             f"string:{address.upper()}", f"string:{name}"):
                raise Failure("the simulated BlueZ takes no device")

    def has_window_titled(self, part):
        """Whether a window has that in its title, seen without assistive technology."""
        return bool(self.run([find_program("xdotool", "xdotool"), "search", "--onlyvisible",
                              "--name", part]))

    def keys(self, *keys):
        """Types on the keyboard, into whatever window has the focus."""
        self.run([find_program("xdotool", "xdotool"), "key", "--delay", "30", *keys])

    def click(self, x, y, button=1):
        self.run([find_program("xdotool", "xdotool"), "mousemove", str(x), str(y), "click",
                  str(button)])

    def screen(self):
        """The screen as a picture: its width, and three bytes for each pixel."""
        picture = subprocess.run(
            [find_program("import", "imagemagick"), "-window", "root", "-depth", "8", "ppm:-"],
            env=self.environment, capture_output=True, check=True).stdout
        kind, size, depth, pixels = picture.split(b"\n", 3)
        if (kind, depth) != (b"P6", b"255"):
            raise Failure("the screen cannot be read")
        return int(size.split()[0]), pixels

    def shows_icon(self, screen=None):
        """Whether there is a picture where the icon stands, and not only a tray's even ground."""
        width, pixels = screen or self.screen()
        colours = {pixels[(y * width + x) * 3:(y * width + x) * 3 + 3]
                   for y in range(2 * ICON[1]) for x in range(2 * ICON[0])}
        return len(colours) > 20

    def shows_icon_at_rest(self):
        """Whether the icon is there and the tray no longer moves it about."""
        screen = self.screen()
        return self.shows_icon(screen) and self.screen() == screen

    def click_icon(self, button=1):
        wait_until(self.shows_icon_at_rest, "the icon on the screen")
        self.click(*ICON, button)

    def save_picture(self, path):
        self.run([find_program("import", "imagemagick"), "-window", "root", str(path)])

    def messages(self):
        self.log.flush()
        return (self.home / "log").read_text(errors="replace")[-2000:]
