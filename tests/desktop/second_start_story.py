#!/usr/bin/python3
"""A second start, and an end by the system."""

from program import ASKED_TO_END
from story import Story, tell


class SecondStart(Story):
    def test_second_start_opens_the_panel_of_the_first(self):
        self.add_mouse(58)
        program = self.start()
        program.wait_for_icon()
        program.open_by_second_start()
        program.wait_for_panel(lambda panel: "58%" in panel.texts(), "the panel of the first")
        program.close_panel()
        program.open_by_second_start("--panel")

    def test_terminated_program_has_saved_the_last_change(self):
        program = self.start("--panel")
        panel = program.wait_for_panel()
        for wanted in (False, True, False):
            program.press(panel, "check box", "Daily check")
            program.wait_for_panel(lambda panel: ("checked" in panel.all(
                "check box", "Daily check")[0].states) == wanted)
        self.assertEqual(program.end(), ASKED_TO_END)
        self.assertEqual(program.log(), [])
        self.assertEqual(program.settings(), {"threshold": 20, "hour": 22, "minute": 30,
                                              "enabled": False, "instant": True})
        self.assertEqual([file.name for file in program.settings_file.parent.iterdir()],
                         ["settings.json"])


if __name__ == "__main__":
    tell()
