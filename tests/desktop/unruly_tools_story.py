#!/usr/bin/python3
"""The tool that tells the levels misbehaves in every way."""

import os
import signal

from program import ASKED_TO_END
from story import Story, tell
from virtual_desktop.processes import wait_until

# Synthetic, in the form of what the registry tool prints.
ENTRY = """+-o AppleDeviceManagementHIDEventService  <class AppleDeviceManagementHIDEventService>
    {{
      "BatteryPercent" = {level}
      "ProductID" = {product}
    }}
"""
MOUSE = 803
KEYBOARD = 805


def printing(text):
    return f"#!/bin/sh\ncat <<'END'\n{text}END\n"


class UnrulyTools(Story):
    def setUp(self):
        super().setUp()
        self.tools = self.home / "tools"
        self.tools.mkdir(exist_ok=True)

    def install(self, script):
        written = self.tools / "new"
        written.write_text(script)
        written.chmod(0o755)
        os.replace(written, self.tools / "ioreg")

    def install_right_one(self, level):
        self.install(printing(ENTRY.format(level=level, product=MOUSE)))

    def test_panel_answers_throughout_and_the_next_reading_is_right(self):
        self.install_right_one(58)
        self.program = self.start_with("--tools", str(self.tools))
        self.program.wait_for_lines("Magic Mouse 58%")

        self.install(f"#!/bin/sh\n: >'{self.home}/hanging'\nexec sleep 1000\n")
        panel = self.program.open_panel("58%")
        wait_until((self.home / "hanging").exists, "the start of the tool that hangs")
        self.assert_click_acts(panel)
        self.program.close_panel()
        self.assert_right_reading(57) # while the other one still hangs

        for garbage in ("dd if=/dev/urandom bs=1000 count=9 2>/dev/null", "exit 1", "kill -9 $$"):
            self.install(f"#!/bin/sh\n{garbage}\n")
            self.assert_reads("No peripherals found")
            self.assert_right_reading(56)

        noise = "x" * 89 + "\n"
        self.install(printing(ENTRY.format(level=55, product=MOUSE) + noise * (900 * 1024 // 90) +
                              ENTRY.format(level=33, product=KEYBOARD)))
        self.assert_reads("Magic Mouse", "55%", "Magic Keyboard", "33%")

        os.remove(self.tools / "ioreg")
        self.assert_reads("No peripherals found")
        self.assert_right_reading(54)
        self.assertEqual(self.program.end(), ASKED_TO_END)

    def test_a_change_at_the_very_end_is_saved_while_the_tool_hangs(self):
        self.install_right_one(58)
        program = self.start_with("--tools", str(self.tools))
        program.wait_for_lines("Magic Mouse 58%")
        program.open_panel("58%")
        program.tab_to("push button", "Quit")
        way = program.tab_to("combo box", "Threshold", key="shift+Tab")
        program.close_panel()
        self.install(f"#!/bin/sh\n: >'{self.home}/hangs'\nexec sleep 1000\n")
        program.open_panel()
        wait_until((self.home / "hangs").exists, "the start of the tool that hangs")
        program.tab_to("combo box", "Threshold")
        # All keys are there before the program sees the first one.
        program.process.send_signal(signal.SIGSTOP)
        self.desktop.keys("3", "5", *["Tab"] * way, "space")
        program.process.send_signal(signal.SIGCONT)
        self.assertEqual(program.end_by_itself(), 0)
        self.assertEqual(program.settings()["threshold"], 35)

    def assert_click_acts(self, panel):
        toggle = panel.all("check box", "Daily check")[0]
        self.desktop.click(*toggle.place())
        self.program.wait_for_panel(
            lambda panel: "checked" not in panel.all("check box", "Daily check")[0].states,
            "the effect of the click")
        wait_until(self.program.settings_file.exists, "the saving of the change")
        self.assertIs(self.program.settings()["enabled"], False)

    def assert_right_reading(self, level):
        self.install_right_one(level)
        self.assert_reads(f"{level}%")

    def assert_reads(self, *texts):
        self.program.open_panel(*texts)
        self.program.close_panel()


if __name__ == "__main__":
    tell()
