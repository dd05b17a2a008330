#!/usr/bin/python3
"""A walk through everything that the program shows, without a pointer and without looking."""

from story import Story, tell
from virtual_desktop.processes import wait_until

SPEAKING = {"push button", "check box", "combo box", "label", "dialog", "frame"}
SILENT = {"filler", "separator"}  # containers, pictures and lines


class Accessibility(Story):
    def setUp(self):
        super().setUp()
        self.add_mouse(9)
        self.add_keyboard(58)
        self.program = self.start()
        self.program.wait_for_alert()

    def test_alert(self):
        alert = self.program.alert()
        self.assert_speaks(alert)
        self.assert_tab_reaches_everything()
        self.desktop.keys("Escape")
        self.program.wait_for_no_window()

    def test_panel(self):
        self.program.answer_alert("Cancel")
        self.program.wait_for_no_window()
        self.assert_speaks(self.program.open_panel("9%", "58%"))
        self.assert_tab_reaches_everything()
        self.program.close_panel()

    def test_menu(self):
        self.program.answer_alert("Cancel")
        self.program.wait_for_no_window()
        self.program.wait_for_lines("Mouse of Ann 9%", "Desk keyboard 58%")
        menu = self.program.item.menu()
        self.assertEqual([(entry.get("type", "item"), entry.get("label", ""),
                           entry.get("enabled", True)) for _, entry in menu],
                         [("item", "Mouse of Ann 9%", True), ("item", "Desk keyboard 58%", True),
                          ("separator", "", True), ("item", "Open", True), ("item", "Quit", True)])
        self.program.item.choose(menu[-2][0])
        self.program.wait_for_panel()
        self.program.item.choose(menu[-1][0])
        self.assertEqual(self.program.end_by_itself(), 0)

    def assert_speaks(self, window):
        for control in window.all():
            if "focusable" in control.states or control.role not in SILENT:
                self.assertIn(control.role, SPEAKING, str(control))
                self.assertNotEqual(control.label() or control.name, "", str(control))
            if control.role == "combo box":
                self.assertNotEqual(control.label(), "", str(control))

    def assert_tab_reaches_everything(self):
        """Tab goes through all controls in reading order, and then begins anew."""
        window = self.program.windows()[0]
        controls = [self.spoken(one) for one in window.all() if "focusable" in one.states]
        self.assertEqual(len(set(controls)), len(controls))
        reached = []
        for _ in range(len(controls) + 1):
            before = self.program.focused()
            self.desktop.keys("Tab")
            wait_until(lambda: self.program.keyboard_moved_from(before), "a move of the keyboard")
            reached.append(self.spoken(self.program.focused()))
        self.assertEqual(reached[-1], reached[0])
        start = controls.index(reached[0])
        self.assertEqual(reached[:-1], controls[start:] + controls[:start])

    def spoken(self, control):
        return f"{control.role} {control.label() or control.name}"


if __name__ == "__main__":
    tell()
