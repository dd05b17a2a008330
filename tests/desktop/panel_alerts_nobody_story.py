#!/usr/bin/python3
"""Opening the panel is no alert."""

from story import MOUSE_ADDRESS, Story, tell


class PanelAlertsNobody(Story):
    def test_panel_shows_a_newly_low_device_without_an_alert(self):
        self.add_mouse(50)
        program = self.start()
        program.wait_for_lines("Mouse of Ann 50%")
        self.sysfs.set_level(MOUSE_ADDRESS, 9)
        # What is on screen was judged before, and a judgement raises its alert at once.
        panel = program.open_panel_by_icon(
            lambda panel: "Low battery: Mouse of Ann 9%" in panel.texts(), "the low level")
        self.assertIsNone(program.alert())
        self.assertEqual(program.log(), [])
        # The same panel shows the alert when it is asked to.
        program.press(panel, "push button", "Enable / test alert")
        self.assertIn("Battery at 9%. Please charge.", program.wait_for_alert().texts())


if __name__ == "__main__":
    tell()
