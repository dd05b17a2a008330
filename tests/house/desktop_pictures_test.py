"""What tools/desktop_pictures says of a machine that lacks desktops, seen by stand-ins of programs."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(sys.argv.pop(1), "tools/desktop_pictures")
TOOLS = ("Xvfb", "cmake", "convert", "dbus-daemon", "dbus-send",
         "dbus-update-activation-environment", "import", "xdotool", "xprop")


class DesktopPicturesTest(unittest.TestCase):
    def run_tool(self, programs, *desktops):
        with tempfile.TemporaryDirectory() as machine:
            for program in programs:
                pathlib.Path(machine, program).symlink_to("/bin/true")
            return subprocess.run(
                [sys.executable, "-B", TOOL, f"{machine}/pictures", *desktops],
                env={"PATH": machine}, capture_output=True, text=True, check=False)

    def test_every_absent_desktop_is_named_with_what_it_lacks(self):
        answer = self.run_tool((*TOOLS, "kded6", "plasmashell", "plasma-apply-colorscheme", "sway"))
        self.assertEqual(answer.returncode, 0, answer.stderr)
        heading, _, absent = answer.stdout.partition(": ")
        self.assertEqual(heading, "not there")
        self.assertIn("plasma-wayland (kwin_wayland)", absent)
        self.assertIn("sway-waybar (waybar, gsettings)", absent)
        for name in ("plasma-x11", "gnome", "gnome-appindicator", "xfce", "lxqt", "mate", "cinnamon",
                     "sway", "labwc-waybar"):
            self.assertIn(f"{name} (", absent)

    def test_a_machine_without_the_means_is_told_which(self):
        answer = self.run_tool(set(TOOLS) - {"xdotool"})
        self.assertEqual((answer.returncode, answer.stdout), (1, ""))
        self.assertIn("not installed: xdotool", answer.stderr)

    def test_a_name_that_is_no_desktop_is_refused(self):
        answer = self.run_tool(TOOLS, "plasma")
        self.assertEqual(answer.returncode, 2)
        self.assertIn("no such desktop: plasma", answer.stderr)


if __name__ == "__main__":
    unittest.main()
