"""A story: one test on a desktop of its own, with a picture of the screen when it fails."""

import json
import os
import pathlib
import shutil
import signal
import sys
import tempfile
import unittest

from virtual_desktop.desktop import Desktop
from virtual_desktop.peripherals import KEYBOARD, MOUSE, TRACKPAD, Sysfs
from virtual_desktop.processes import Failure, become_parent_of_orphans, end_all_children

MOUSE_ADDRESS = "02:00:5e:00:53:01"
KEYBOARD_ADDRESS = "02:00:5e:00:53:02"
TRACKPAD_ADDRESS = "02:00:5e:00:53:03"
LONGEST = 280  # seconds; CTest would leave the processes behind
PROGRAMS = ("Xvfb", "dbus-daemon", "dbus-send", "dunst", "import", "openbox", "setpriv", "trayer",
            "xdotool", "xfce4-panel", "xprop")
NOT_RUN = 77  # the status for which CTest says that the test did not run


class Story(unittest.TestCase):
    """Its tests share one desktop, since a process can talk to one accessibility bus only."""

    host = "xfce4-panel"  # the tray, or None

    @classmethod
    def setUpClass(cls):
        cls.home = pathlib.Path(tempfile.mkdtemp(prefix="voltmere-story-"))
        cls.addClassCleanup(shutil.rmtree, cls.home, ignore_errors=True)
        cls.addClassCleanup(end_all_children)
        cls.desktop = Desktop(cls.home)
        cls.start_session()
        os.environ.update(cls.desktop.environment)
        from virtual_desktop import accessibility
        accessibility.start()

    @classmethod
    def start_session(cls):
        cls.desktop.start_window_manager()
        cls.desktop.start_accessibility()
        if cls.host:
            cls.tray = cls.desktop.start_tray(cls.host)

    def setUp(self):
        for path in (self.desktop.environment["XDG_CONFIG_HOME"] + "/voltmere",
                     self.desktop.environment["XDG_STATE_HOME"] + "/voltmere",
                     self.home / "sys"):
            shutil.rmtree(path, ignore_errors=True)
        self.sysfs = Sysfs(self.home / "sys")

    def start(self, *options, **more):
        """Starts the program among the simulated peripherals."""
        return self.start_with("--sysfs", str(self.sysfs.root), *options, **more)

    def start_with(self, *options, **more):
        from program import Program
        program = Program(self.desktop, *options, **more)
        self.addCleanup(program.end)
        return program

    def write_settings(self, **settings):
        path = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"], "voltmere/settings.json")
        path.parent.mkdir(parents=True)
        path.write_text(json.dumps(settings))

    def add_mouse(self, level, name="Mouse of Ann"):
        self.sysfs.add(MOUSE_ADDRESS, MOUSE, name, level)

    def add_keyboard(self, level, name="Desk keyboard"):
        self.sysfs.add(KEYBOARD_ADDRESS, KEYBOARD, name, level)

    def add_trackpad(self, level, name="Trackpad"):
        self.sysfs.add(TRACKPAD_ADDRESS, TRACKPAD, name, level)


class PictureResult(unittest.TextTestResult):
    def addError(self, test, error):
        super().addError(test, error)
        self.keep_evidence(test)

    def addFailure(self, test, error):
        super().addFailure(test, error)
        self.keep_evidence(test)

    def keep_evidence(self, test):
        desktop = getattr(test, "desktop", None)
        if desktop is None:
            return
        picture = PICTURES / f"{test.id()}.png"
        desktop.save_picture(picture)
        print(f"The screen at that moment: {picture}", file=sys.stderr)
        for log in sorted(desktop.home.glob("voltmere-*.log")):
            print(f"{log.name}:\n{log.read_text()}", file=sys.stderr)


PICTURES = pathlib.Path(os.environ.get("VOLTMERE_PICTURES", tempfile.gettempdir()))


def tell(*more_programs):
    """Runs the stories of the script that calls, where the programs of a desktop are installed."""
    missing = [program for program in PROGRAMS + more_programs if shutil.which(program) is None]
    if missing:
        print(f"not run: these programs are not installed: {', '.join(missing)}")
        sys.exit(NOT_RUN)
    def too_long(*_):
        raise Failure(f"the story is not at its end after {LONGEST} s")
    signal.signal(signal.SIGALRM, too_long)
    signal.alarm(LONGEST)
    become_parent_of_orphans()
    PICTURES.mkdir(parents=True, exist_ok=True)
    unittest.main(module="__main__", verbosity=2, testRunner=unittest.TextTestRunner(
        verbosity=2, resultclass=PictureResult))
