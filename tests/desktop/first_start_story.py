#!/usr/bin/python3
"""The first start, by a user without settings and without peripherals."""

from program import ASKED_TO_END
from story import Story, tell


class FirstStart(Story):
    def test_first_start_shows_icon_and_empty_panel_and_writes_nothing(self):
        program = self.start()
        program.wait_for_icon()
        files = self.files()
        panel = program.open_panel_by_icon(
            lambda panel: panel.texts().count("No peripherals found") == 2,
            "“No peripherals found” in the list and in the status line")
        self.assertIn("Cellsentry", panel.texts())
        program.close_panel()
        self.assertEqual(program.end(), ASKED_TO_END)
        self.assertEqual(program.log(), [])
        self.assertEqual(self.files(), files)
        self.assertEqual([file for file in files if "voltmere" in file], [])

    def files(self):
        """What is in the user's directories, but for the desktop's own files."""
        return sorted(str(path.relative_to(self.home)) for part in ("config", "data", "state")
                      for path in (self.home / part).rglob("*") if "xfce4" not in path.parts)


if __name__ == "__main__":
    tell()
