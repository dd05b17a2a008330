#!/usr/bin/python3
"""A user who has no pointer sets everything in the panel."""

from story import Story, tell

SETTINGS = {"threshold": 35, "hour": 7, "minute": 45, "enabled": False, "instant": False}


class SettingsByKeyboard(Story):
    def test_keyboard_sets_everything_and_the_next_start_has_it(self):
        self.add_mouse(58)
        program = self.start("--panel")
        program.wait_for_panel(lambda panel: "58%" in panel.texts(), "the level in the panel")
        self.choose(program, "Threshold", "3", "5", name="35%")
        self.toggle(program, "Immediately")
        self.toggle(program, "Daily check")
        self.choose(program, "Hour", "0", "7", name="07")
        self.choose(program, "Minute", "4", "5", name="45")
        self.choose(program, "Language", "Down", name="简体中文")
        program.wait_for_panel(lambda panel: "续航哨兵" in panel.texts(), "the panel in Chinese")
        program.tab_to("push button", "退出")
        self.desktop.keys("space")
        self.assertEqual(program.end_by_itself(), 0)
        self.assert_saved(program)
        self.assert_next_start_has_it()

    def choose(self, program, label, *keys, name):
        program.tab_to("combo box", label)
        self.desktop.keys(*keys)
        program.wait_for_panel(
            lambda panel: name in [one.name for one in panel.all("combo box")], f"the choice {name}")

    def toggle(self, program, name):
        program.tab_to("check box", name)
        self.desktop.keys("space")
        program.wait_for_panel(
            lambda panel: "checked" not in panel.all("check box", name)[0].states, f"{name}, off")

    def assert_saved(self, program):
        settings = program.settings()
        self.assertEqual(settings, SETTINGS)
        for name, value in SETTINGS.items():
            self.assertIs(type(settings[name]), type(value), name)

    def assert_next_start_has_it(self):
        program = self.start("--panel")
        panel = program.wait_for_panel(lambda panel: "58%" in panel.texts())
        self.assertEqual([(one.label(), one.name) for one in panel.all("combo box")],
                         [("Threshold", "35%"), ("Hour", "07"), ("Minute", "45"),
                          ("Language", "System")])
        self.assertEqual({one.name: "checked" in one.states for one in panel.all("check box")},
                         {"Immediately": False, "Daily check": False, "Launch at login": False})


if __name__ == "__main__":
    tell()
