#!/usr/bin/python3
"""Trays that come late, or die and come back; of both kinds."""

import time

from story import Story, tell
from virtual_desktop.processes import wait_until


class Tray(Story):
    host = None

    def test_status_notifier_host_that_starts_after_the_program(self):
        self.starts_late("xfce4-panel")

    def test_status_notifier_host_that_is_killed_and_restarted(self):
        self.dies_and_returns("xfce4-panel")

    def test_xembed_host_that_starts_after_the_program(self):
        self.starts_late("trayer")

    def test_xembed_host_that_is_killed_and_restarted(self):
        self.dies_and_returns("trayer")

    def test_menu_of_an_xembed_icon_by_keyboard(self):
        self.add_mouse(58)
        self.start_tray("trayer")
        program = self.start()
        self.open_menu()
        self.desktop.keys("Escape")
        wait_until(lambda: not self.menu_is_open(), "the end of the menu")
        self.open_menu()
        self.desktop.keys("Up", "Up", "Return")  # up from the end, as the pointer may be on the first
        program.wait_for_panel(lambda panel: "58%" in panel.texts(), "the panel of the menu")
        program.close_panel()
        self.open_menu()
        self.desktop.keys("Up", "Return")
        self.assertEqual(program.end_by_itself(), 0)

    def open_menu(self):
        """A click on an icon that has just come may go by, while the tray still settles. Then a
        person clicks again."""
        next_click = 0.0

        def opens():
            nonlocal next_click
            if not self.menu_is_open() and time.monotonic() > next_click:
                self.desktop.click_icon(button=3)
                next_click = time.monotonic() + 2
            return self.menu_is_open()

        wait_until(opens, "the menu")

    def menu_is_open(self):
        """Assistive technology gets menus by their events only, so the screen is looked at: below
        the icon there is nothing but the menu."""
        width, pixels = self.desktop.screen()
        return pixels[(60 * width + 60) * 3:(60 * width + 60) * 3 + 3] != b"\0\0\0"

    def starts_late(self, host):
        self.add_mouse(58)
        program = self.start()
        wait_until(lambda: self.desktop.has_service("session", "org.voltmere.Voltmere"),
                   "the start of the program")
        self.assertFalse(self.desktop.shows_icon())
        self.start_tray(host)
        self.assert_icon_opens_the_panel(program)

    def dies_and_returns(self, host):
        self.add_mouse(58)
        tray = self.start_tray(host)
        program = self.start()
        self.assert_icon_opens_the_panel(program)
        self.desktop.kill_tray(tray)
        wait_until(lambda: not self.desktop.shows_icon(), "the end of the icon")
        self.start_tray(host)
        self.assert_icon_opens_the_panel(program)

    def start_tray(self, host):
        tray = self.desktop.start_tray(host)
        self.addCleanup(lambda: tray.poll() is None and self.desktop.kill_tray(tray))
        return tray

    def assert_icon_opens_the_panel(self, program):
        program.open_panel_by_icon(lambda panel: "58%" in panel.texts(), "the panel of the icon")
        program.close_panel()


if __name__ == "__main__":
    tell()
