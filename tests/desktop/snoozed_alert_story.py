#!/usr/bin/python3
"""A user snoozes an alert, cancels it, and snoozes it again."""

import time

from program import clock
from story import KEYBOARD_ADDRESS, MOUSE_ADDRESS, Story, tell
from virtual_desktop.processes import wait_until

RATE = 120  # 20 minutes in 10 seconds
MINUTE = 60 / RATE  # seconds of the test
LATEST = 60  # seconds; much later than anything here is due


class SnoozedAlert(Story):
    def setUp(self):
        super().setUp()
        # No alert comes by itself.
        self.write_settings(instant=False, enabled=False)
        self.add_mouse(50)
        self.add_keyboard(58)
        self.program = self.start(variables=clock("2026-03-02 10:00:00", RATE))
        self.program.settle()

    def test_alert_returns_with_what_is_low_then(self):
        self.sysfs.set_level(MOUSE_ADDRESS, 9)
        self.show_alert("9%", "58%")
        self.assert_alert("Mouse of Ann battery alert", "Battery at 9%. Please charge.")
        chosen = time.monotonic()
        self.program.answer_alert("In 20 minutes")
        self.sysfs.set_level(MOUSE_ADDRESS, 8)
        self.sysfs.set_level(KEYBOARD_ADDRESS, 15)
        self.assert_alert("Peripheral battery alert", "Mouse8%, Keyboard15%. Please charge.")
        self.assertGreaterEqual(time.monotonic() - chosen, 20 * MINUTE)
        self.program.answer_alert("Cancel")
        self.program.wait_for_no_window()

    def test_alert_at_a_clock_time_replaces_an_earlier_choice(self):
        self.sysfs.set_level(MOUSE_ADDRESS, 9)
        self.show_alert("9%", "58%")
        first_choice = time.monotonic()
        self.program.answer_alert("In 1 hour")
        self.program.wait_for_no_window()
        self.show_alert("9%", "58%")
        self.choose_clock_time_before_the_hour_is_over()
        self.sysfs.set_level(MOUSE_ADDRESS, 7)
        self.assert_alert("Mouse of Ann battery alert", "Battery at 7%. Please charge.")
        self.assertLess(time.monotonic() - first_choice, 60 * MINUTE)
        self.program.answer_alert("Cancel")
        self.program.wait_for_no_window()
        # No alert comes at the end of the hour that was chosen first.
        wait_until(lambda: self.program.alert() or
                   time.monotonic() > first_choice + 70 * MINUTE, "70 minutes", LATEST)
        self.assertIsNone(self.program.alert())

    def show_alert(self, *levels):
        panel = self.program.open_panel(*levels)
        self.program.press(panel, "push button", "Enable / test alert")

    def assert_alert(self, title, detail):
        alert = self.program.wait_for_alert(LATEST)
        self.assertEqual((alert.name, alert.description), (title, detail))
        self.assertEqual(alert.texts()[1:3], [title, detail])

    def choose_clock_time_before_the_hour_is_over(self):
        """The pickers stand an hour ahead; the hour before and some minutes more is soon."""
        self.program.tab_to("combo box", "Hour")
        self.desktop.keys("Up")
        self.program.tab_to("combo box", "Minute")
        self.desktop.keys("Down", "Down", "Down", "Down")
        self.program.answer_alert("OK")
        self.program.wait_for_no_window()


if __name__ == "__main__":
    tell()
