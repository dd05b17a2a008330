#!/usr/bin/python3
"""The program is killed in the middle of saving its settings, time and again."""

import json

from story import Story, tell
from virtual_desktop.file_watch import CREATED, DELETED, RENAMED, WRITTEN, FileWatch
from virtual_desktop.processes import Failure, wait_until

KILLS = 200
# Where the disk is fast, a save is rarely caught in the middle: then there are more kills.
MOST_KILLS = 1000
FEWEST_IN_THE_MIDDLE = 5
EVENTS = CREATED | WRITTEN | RENAMED | DELETED
DEFAULTS = {"threshold": 20, "hour": 22, "minute": 30, "enabled": True, "instant": True}


class KilledWhileSaving(Story):
    host = None

    def test_settings_file_is_always_whole_either_old_or_new(self):
        program = self.start("--panel")
        directory = program.settings_file.parent
        directory.mkdir(parents=True)
        program.settings_file.write_text(json.dumps(DEFAULTS))
        program.kill()
        outcomes = {"old": 0, "new": 0}
        self.leftovers = 0
        kills = 0
        while kills < KILLS or (self.leftovers < FEWEST_IN_THE_MIDDLE and kills < MOST_KILLS):
            before = json.loads(program.settings_file.read_text())
            program = self.start("--panel")
            key = "Down" if before["threshold"] < 50 else "Up"
            self.change_and_kill(program, directory, key, kills % 8)
            kills += 1
            outcomes[self.outcome(program, before)] += 1
            self.leftovers += sum(1 for path in directory.iterdir() if path.suffix != ".json")
            for path in directory.iterdir():
                if path.suffix != ".json":
                    path.unlink()
        print(f"\n{kills} kills: {outcomes}, {self.leftovers} files of unfinished saves")
        # Otherwise no kill came in the middle.
        self.assertGreater(outcomes["old"], 0)
        self.assertGreater(outcomes["new"], 0)
        self.assertGreaterEqual(self.leftovers, FEWEST_IN_THE_MIDDLE)

    def change_and_kill(self, program, directory, key, steps):
        """Changes the threshold and kills the program after some steps of the save."""
        wait_until(lambda: self.active_process() == str(program.process.pid), "the panel")
        watch = FileWatch(directory, EVENTS)
        events = self.first_events(watch, key)
        while events and len(events) <= steps and not any(kind & RENAMED for kind, _ in events):
            events += watch.events(20)
        program.kill()
        watch.close()

    def first_events(self, watch, key):
        """Presses a key until something is seen of a save: a window that has just got the keyboard
        may miss what is typed at that moment."""
        self.presses = 0
        while self.presses < 5:
            self.presses += 1
            # To the last control and on to the first, the threshold, from wherever the keyboard is.
            self.desktop.start(["xdotool", "key", "shift+Tab", "Tab", key])
            if events := watch.events(3):
                return events
        raise Failure("the change is not saved")

    def active_process(self):
        return self.desktop.run(["xdotool", "getactivewindow", "getwindowpid"]).strip()

    def outcome(self, program, before):
        after = json.loads(program.settings_file.read_text())
        if after == before:
            return "old"
        self.assertEqual(after | {"threshold": before["threshold"]}, before)
        self.assertLessEqual(abs(after["threshold"] - before["threshold"]), self.presses)
        return "new"


if __name__ == "__main__":
    tell()
