#!/usr/bin/python3
"""A status bar reads what `--watch` prints, under a clock that goes too fast."""

import json
import os
import queue
import subprocess
import threading

from program import INSTALLED, clock
from story import MOUSE_ADDRESS, Story, tell
from virtual_desktop.file_watch import CLOSED_UNWRITTEN, FileWatch

LATEST = 60  # seconds; much later than anything here is due


class Watch(Story):
    host = None

    def setUp(self):
        super().setUp()
        self.add_mouse(58)
        self.process = subprocess.Popen(
            [INSTALLED, "--watch", "--sysfs", str(self.sysfs.root)], stdout=subprocess.PIPE,
            env=self.desktop.environment | clock("2026-03-02 10:00:00", 300), text=True)
        self.addCleanup(self.process.wait)
        self.addCleanup(self.process.kill)
        self.lines = queue.Queue()
        threading.Thread(target=self.read, daemon=True).start()

    def read(self):
        for line in self.process.stdout:
            self.lines.put(json.loads(line))

    def wait_for_readings(self, number):
        """Waits until the level was read that often."""
        watch = FileWatch(self.sysfs.entry(MOUSE_ADDRESS), CLOSED_UNWRITTEN)
        self.addCleanup(watch.close)
        seen = 0
        while seen < number:
            events = watch.events(LATEST)
            self.assertTrue(events, "no further reading")
            seen += sum(name == "capacity" for _, name in events)

    def levels(self):
        return [device["level"] for device in self.lines.get(timeout=LATEST)["devices"]]

    def test_a_line_now_and_after_every_change_and_none_between(self):
        self.assertEqual(self.levels(), [58])
        self.wait_for_readings(3)
        self.assertTrue(self.lines.empty())
        self.sysfs.set_level(MOUSE_ADDRESS, 57)
        self.assertEqual(self.levels(), [57])
        os.remove(self.sysfs.capacity(MOUSE_ADDRESS))
        self.assertEqual(self.levels(), [])


if __name__ == "__main__":
    tell()
