#!/usr/bin/python3
"""A Wayland desktop: sway, with a bar that shows the tray."""

import time

from program import clock
from story import MOUSE_ADDRESS, Story, tell
from virtual_desktop.processes import wait_until

RATE = 120  # 20 minutes in 10 seconds
DESKTOP = (20, 780)  # a place that no window covers


class Wayland(Story):
    @classmethod
    def start_session(cls):
        cls.desktop.start_accessibility()
        cls.desktop.start_sway()

    def test_icon_panel_alert_and_snooze(self):
        # No alert comes by itself.
        self.write_settings(instant=False, enabled=False)
        self.add_mouse(58)
        program = self.start(variables=clock("2026-03-02 10:00:00", RATE))
        program.settle()
        self.sysfs.set_level(MOUSE_ADDRESS, 9)
        panel = program.open_panel_by_icon(lambda panel: "9%" in panel.texts(), "the panel")
        self.desktop.click(*DESKTOP)
        program.wait_for_no_window()

        panel = program.open_panel_by_icon(lambda panel: "9%" in panel.texts(), "the panel")
        program.press(panel, "push button", "Enable / test alert")
        self.assert_alert(program)
        chosen = time.monotonic()
        program.answer_alert("In 20 minutes")
        program.wait_for_no_window()
        self.assert_alert(program)
        self.assertGreaterEqual(time.monotonic() - chosen, 20 * 60 / RATE)
        self.desktop.keys("Escape")
        program.wait_for_no_window()
        expected = ("Voltmere: this desktop has no tray yet", "qt.accessibility")
        self.assertEqual([line for line in program.log() if not line.startswith(expected)], [])

    def assert_alert(self, program):
        alert = program.wait_for_alert(60)
        self.assertEqual((alert.name, alert.description),
                         ("Mouse of Ann battery alert", "Battery at 9%. Please charge."))


if __name__ == "__main__":
    tell("sway", "waybar")
