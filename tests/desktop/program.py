"""The installed program under test, seen and used from outside."""

import contextlib
import glob
import json
import os
import pathlib
import re
import signal
import subprocess

from virtual_desktop.accessibility import windows_of
from virtual_desktop.processes import Failure, wait_until
from virtual_desktop.tray import StatusItem

INSTALLED = os.environ.get("VOLTMERE_PROGRAM", "")
ASKED_TO_END = -signal.SIGTERM
TITLES = ("Cellsentry", "续航哨兵")


def clock(start, rate):
    """Variables that make a program's clock begin at `start` and go `rate` times too fast."""
    libraries = glob.glob("/usr/lib/*/faketime/libfaketime.so.1")
    if not libraries:
        raise Failure("libfaketime is not installed: apt-get install libfaketime")
    return {"LD_PRELOAD": libraries[0], "FAKETIME": f"@{start} x{rate}", "TZ": "UTC"}


def as_ordinary_user():
    """The administrator may write everywhere, which a user may not: this makes root a user so far."""
    return ["setpriv", "--bounding-set=-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


class Program:
    started = 0

    def __init__(self, desktop, *options, variables=None):
        Program.started += 1
        self.desktop = desktop
        self.settings_file = pathlib.Path(desktop.environment["XDG_CONFIG_HOME"],
                                          "voltmere/settings.json")
        self.messages = desktop.home / f"voltmere-{Program.started}.log"
        with open(self.messages, "wb") as messages:
            self.process = subprocess.Popen(
                [*as_ordinary_user(), INSTALLED, *options], stdin=subprocess.DEVNULL,
                stdout=messages, stderr=messages,
                env=desktop.environment | desktop.clients | (variables or {}))
        self.item = StatusItem(desktop, self.process.pid)

    # Its life

    def end(self):
        """Ends it with SIGTERM. Returns its exit status: ASKED_TO_END if it was still running."""
        if self.process.poll() is None:
            self.process.terminate()
        return self.process.wait(20)

    def end_by_itself(self):
        return self.process.wait(20)

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def log(self):
        return self.messages.read_text().splitlines()

    def settings(self):
        return json.loads(self.settings_file.read_text())

    def instant_alerts(self):
        """The lines of its log that tell of immediate alerts, without their heading."""
        heading = "Voltmere: 立即提醒 "
        return [line.partition(heading)[2] for line in self.log() if heading in line]

    # Its icon

    def wait_for_icon(self):
        """For a tray that speaks StatusNotifier."""
        wait_until(lambda: self.item.read("IconPixmap"), "the icon in the tray")

    def wait_for_lines(self, *lines):
        wait_until(lambda: self.item.lines() == list(lines), f"the tooltip “{', '.join(lines)}”")

    def settle(self):
        """Waits for the icon. A clock that goes too fast may give up on the tray before, and then
        the panel opens as a window."""
        self.wait_for_icon()
        if any("this desktop has no tray yet" in line for line in self.log()):
            self.wait_for_panel()
            self.close_panel()

    # Its windows

    def windows(self):
        return windows_of(self.process.pid)

    def alert(self):
        return next((window for window in self.windows() if window.role == "dialog"), None)

    def panel(self):
        return next((window for window in self.windows() if window.name in TITLES), None)

    def wait_for_alert(self, seconds=20.0):
        return wait_until(self.alert, "the snooze alert", seconds)

    def wait_for_panel(self, holds=lambda panel: True, what="the panel",
                       seconds=20.0):
        """Waits until it has the keyboard, too: before that it may still be on its way to its
        place, and a key would not reach it."""
        def panel_that_holds():
            panel = self.panel()
            return panel if panel and "active" in panel.states and holds(panel) else None
        return wait_until(panel_that_holds, what, seconds)

    def open_panel_by_icon(self, holds=lambda panel: True, what="the panel"):
        """Clicks on the icon as a person does: again, when a tray that has just started was not
        ready for a click."""
        clicks = 0
        while self.panel() is None and clicks < 3:
            self.desktop.click_icon()
            clicks += 1
            with contextlib.suppress(Failure):
                wait_until(self.panel, what, 4)
        return self.wait_for_panel(holds, what)

    def wait_for_no_window(self):
        # Counted by the window manager: a window that assistive technology does not see counts.
        wait_until(lambda: not self.windows() and not self.has_x_window(), "the end of the window")

    def has_x_window(self):
        managed = self.desktop.run(["xprop", "-root", "_NET_CLIENT_LIST"])
        for window in re.findall(r"0x[0-9a-f]+", managed):
            owner = self.desktop.run(["xprop", "-id", window, "_NET_WM_PID"])
            if owner.strip().endswith(f" {self.process.pid}"):
                return True
        return False

    def open_panel(self, *texts):
        """Opens the panel by a second start and waits until it shows some texts."""
        self.open_by_second_start()
        return self.wait_for_panel(lambda panel: set(texts) <= set(panel.texts()),
                                   f"the panel with {', '.join(texts)}")

    def open_by_second_start(self, *options):
        """A window manager that still looks for a window to give the keyboard to, since another one
        has just closed, may take it from the panel, which closes then. A person starts again."""
        for _ in range(3):
            if Program(self.desktop, *options).end_by_itself() != 0:
                raise Failure("the second start fails")
            with contextlib.suppress(Failure):
                return self.wait_for_panel(seconds=5)
        raise Failure("a second start does not open the panel")

    def press(self, window, role, name):
        """Presses a control of a window that was read."""
        found = window.all(role, name)
        if len(found) != 1:
            raise Failure(f"there are {len(found)} controls {role} “{name}”")
        found[0].press()

    def close_panel(self):
        self.desktop.keys("Escape")
        self.wait_for_no_window()

    def answer_alert(self, choice):
        self.press(self.wait_for_alert(), "push button", choice)
        wait_until(lambda: self.alert() is None, "the end of the snooze alert")

    def tab_to(self, role, name, key="Tab"):
        """Presses Tab until a control has the keyboard, known by its name or its label. Returns how
        often that was."""
        for presses in range(20):
            control = self.focused()
            if control and control.role == role and name in (control.name, control.label()):
                return presses
            self.desktop.keys(key)
            wait_until(lambda: self.keyboard_moved_from(control), "a move of the keyboard")
        raise Failure(f"Tab does not reach the {role} “{name}”")

    def keyboard_moved_from(self, control):
        now = self.focused()
        return now and (not control or now.accessible != control.accessible)

    def focused(self):
        """The control that has the keyboard."""
        for window in self.windows():
            for control in window.walk():
                if "focused" in control.states and control is not window:
                    return control
        return None
