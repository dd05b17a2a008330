#!/usr/bin/python3
"""The daily check and the refresh every five minutes, under a clock that goes too fast."""

import time

from program import clock
from story import MOUSE_ADDRESS, Story, tell

START = "2026-03-02 10:00:00"
LATEST = 60  # seconds; much later than anything here is due


class CheckCycle(Story):
    def start_at_ten(self, rate):
        self.add_mouse(50)
        program = self.start(variables=clock(START, rate))
        program.settle()
        program.wait_for_lines("Mouse of Ann 50%")
        return program

    def test_daily_check_alerts_in_its_minute(self):
        self.write_settings(hour=10, minute=4, enabled=True, instant=False)
        rate = 30
        before = time.monotonic()
        program = self.start_at_ten(rate)
        self.sysfs.set_level(MOUSE_ADDRESS, 9)
        alert = program.wait_for_alert(LATEST)
        self.assertGreaterEqual((time.monotonic() - before) * rate, 4 * 60)
        self.assertEqual(alert.description, "Battery at 9%. Please charge.")
        self.assertEqual(program.instant_alerts(), [])
        program.wait_for_lines("Mouse of Ann 9%")

    def test_no_daily_check_when_it_is_off(self):
        self.write_settings(hour=10, minute=4, enabled=False, instant=False)
        program = self.start_at_ten(30)
        self.sysfs.set_level(MOUSE_ADDRESS, 9)
        # The refresh after five minutes reads the level; the fourth minute has passed then.
        program.wait_for_lines("Mouse of Ann 9%")
        self.assertIsNone(program.alert())

    def test_refresh_alerts_once_per_low_episode(self):
        self.write_settings(enabled=False)
        program = self.start_at_ten(100)
        self.sysfs.set_level(MOUSE_ADDRESS, 20)
        self.assert_alert(program, 20)
        for quiet in (9, 21):
            self.sysfs.set_level(MOUSE_ADDRESS, quiet)
            program.wait_for_lines(f"Mouse of Ann {quiet}%")
            self.assertIsNone(program.alert())
        self.sysfs.set_level(MOUSE_ADDRESS, 19)
        self.assert_alert(program, 19)
        self.assertEqual(program.instant_alerts(), ["Mouse of Ann 20%", "Mouse of Ann 19%"])

    def assert_alert(self, program, level):
        alert = program.wait_for_alert(LATEST)
        self.assertEqual(alert.description, f"Battery at {level}%. Please charge.")
        program.answer_alert("Cancel")
        program.wait_for_no_window()


if __name__ == "__main__":
    tell()
