#!/usr/bin/python3
"""The end of the session bus, and with it of assistive technology and notifications."""

from program import ASKED_TO_END, clock
from story import MOUSE_ADDRESS, Story, tell
from virtual_desktop.processes import wait_until


class SessionBusEnds(Story):
    host = None  # a tray would end with the bus

    def test_program_goes_on_reads_and_alerts(self):
        self.add_mouse(50)
        program = self.start(variables=clock("2026-03-02 10:00:00", 30))
        wait_until(lambda: self.desktop.has_window_titled("^Cellsentry$"), "the panel as a window")
        self.desktop.kill_session_bus()
        self.sysfs.set_level(MOUSE_ADDRESS, 9)
        wait_until(lambda: self.desktop.has_window_titled("Mouse of Ann battery alert"),
                   "the snooze alert", 60)
        self.assertEqual(program.instant_alerts(), ["Mouse of Ann 9%"])
        self.assertEqual(program.end(), ASKED_TO_END)


if __name__ == "__main__":
    tell()
