#!/usr/bin/python3
"""The switch that starts the program at login."""

import shutil

from program import INSTALLED
from story import Story, tell
from virtual_desktop.processes import wait_until


class LaunchAtLogin(Story):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.notifications = cls.desktop.start_notifications()
        cls.entry = cls.home / "config/autostart/org.voltmere.Voltmere.desktop"

    def setUp(self):
        super().setUp()
        shutil.rmtree(self.entry.parent, ignore_errors=True)
        self.notifications.write_text("")
        self.program = self.start()
        self.program.wait_for_icon()

    def test_switch_makes_an_entry_and_removes_it(self):
        self.switch(True)
        self.assertIn(f"Exec={INSTALLED}", self.entry.read_text().replace('"', ""))
        self.program.close_panel()
        # A panel that opens later reads the real state.
        self.program.open_panel()
        self.assertTrue(self.is_on())
        self.switch(False)
        self.assertFalse(self.entry.exists())
        self.assertEqual(self.notifications.read_text(), "")

    def test_switch_snaps_back_and_a_notification_says_why(self):
        directory = self.entry.parent
        directory.mkdir(exist_ok=True)
        directory.chmod(0o500)
        self.addCleanup(directory.chmod, 0o700)
        self.press()
        shown = wait_until(self.notifications.read_text, "the notification")
        self.assertRegex(shown, rf"^Launch at login\|{directory}[^\n]*: Permission denied\n$")
        wait_until(lambda: not self.is_on(), "the switch snapping back")
        self.assertEqual(list(directory.iterdir()), [])
        self.assertEqual(self.program.log(), ["voltmere: Voltmere: 设置开机启动失败 " +
                                              shown.strip().partition("|")[2]])

    def press(self):
        panel = self.program.panel() or self.program.open_panel()
        self.program.press(panel, "check box", "Launch at login")

    def switch(self, on):
        self.press()
        wait_until(lambda: self.is_on() == on and self.entry.exists() == on, f"the switch at {on}")

    def is_on(self):
        panel = self.program.panel()
        return panel and "checked" in panel.all("check box", "Launch at login")[0].states


if __name__ == "__main__":
    tell()
