#!/usr/bin/python3
"""An action on a notification of the category LOW_BATTERY, which the program itself never posts: a
driver that links the program's own library does."""

import os
import subprocess

from program import clock
from story import Story, tell
from virtual_desktop.processes import wait_until

RATE = 60  # 20 minutes in 20 seconds
DELAYED = "Magic Mouse battery alert|Snoozed reminder: please charge your mouse."


class NotificationAction(Story):
    host = None

    def test_action_schedules_one_notification_and_it_arrives(self):
        shown = self.desktop.start_notifications()
        output = self.home / "driver.log"
        with open(output, "wb") as log:
            driver = subprocess.Popen(
                [DRIVER, "--post"], stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                env=self.desktop.environment |
                clock("2026-03-02 10:00:00", RATE))
        self.addCleanup(driver.kill)
        wait_until(lambda: len(shown.read_text().splitlines()) == 1, "the notification")
        self.assertTrue(shown.read_text().startswith("Low battery|"))
        self.desktop.choose_action("In 20 minutes")
        wait_until(lambda: "completed" in output.read_text(), "the answer")
        delayed = self.home / "state/voltmere/notifications.json"
        pending = delayed.read_text()
        self.assertEqual(pending.count('"snooze-'), 1, pending)
        wait_until(lambda: len(shown.read_text().splitlines()) == 2, "the delayed notification", 60)
        self.assertEqual(shown.read_text().splitlines()[1], DELAYED)
        self.assertNotIn("snooze-", delayed.read_text())
        lines = output.read_text().splitlines()
        self.assertEqual(lines.count("response SNOOZE_20"), 1, lines)
        added = [line for line in lines if line.startswith("add snooze-")]
        self.assertEqual(len(added), 1, lines)
        self.assertIn("after 1200.0", added[0])


DRIVER = os.environ["VOLTMERE_NOTIFICATION_DRIVER"]

if __name__ == "__main__":
    tell()
