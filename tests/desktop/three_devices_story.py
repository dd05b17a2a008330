#!/usr/bin/python3
"""Three peripherals of which one is low, read in both languages."""

from story import KEYBOARD_ADDRESS, MOUSE_ADDRESS, TRACKPAD_ADDRESS, Story, tell
from virtual_desktop.processes import wait_until
from virtual_desktop.tray import is_red

NAMES = {MOUSE_ADDRESS: "Mouse of Ann", KEYBOARD_ADDRESS: "书桌键盘", TRACKPAD_ADDRESS: "Trackpad #2"}
LINES = ["Mouse of Ann 9%", "书桌键盘 58%", "Trackpad #2 91%"]
LIST = ["Mouse of Ann", "9%", "书桌键盘", "58%", "Trackpad #2", "91%"]


class ThreeDevices(Story):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.desktop.start_bluetooth(NAMES)

    def setUp(self):
        super().setUp()
        # Names come from BlueZ; what the kernel calls the devices is not seen.
        self.add_trackpad(91, "kernel's trackpad")
        self.add_keyboard(58, "kernel's keyboard")
        self.add_mouse(9, "kernel's mouse")

    def test_icon_is_red_and_shows_the_lowest_level_of_all(self):
        program = self.start()
        program.wait_for_lines(*LINES)
        picture = program.item.picture(22)
        self.assertTrue(is_red(picture))
        program.answer_alert("Cancel")

        self.sysfs.set_level(KEYBOARD_ADDRESS, 8)
        self.read_again(program, "8%")
        self.assertNotEqual(program.item.picture(22), picture)
        self.sysfs.set_level(KEYBOARD_ADDRESS, 9)
        self.sysfs.set_level(MOUSE_ADDRESS, 77)
        self.read_again(program, "77%")
        wait_until(lambda: program.item.picture(22) == picture, "the picture of the level 9")
        self.sysfs.set_level(KEYBOARD_ADDRESS, 21)
        self.read_again(program, "21%")
        wait_until(lambda: not is_red(program.item.picture(22)), "a picture that is not red")

    def read_again(self, program, level):
        """Opens the panel, which takes a reading, and closes it."""
        program.open_panel(level)
        program.close_panel()

    def test_every_text_in_english(self):
        self.read_texts(
            "en_US.UTF-8",
            alert=["Cellsentry", "Mouse of Ann battery alert", "Battery at 9%. Please charge.",
                   "Remind me again", "At a time", ":"],
            choices=["In 20 minutes", "In 30 minutes", "In 1 hour", "In 2 hours", "OK", "Cancel"],
            panel=["Cellsentry", *LIST, "Alert below", "Check time", ":",
                   "Low battery: Mouse of Ann 9%", "Language"],
            buttons=["Enable / test alert", "Quit"],
            toggles=["Immediately", "Daily check", "Launch at login"],
            pickers=[("Threshold", "20%"), ("Hour", "22"), ("Minute", "30"),
                     ("Language", "System")])

    def test_every_text_in_chinese(self):
        self.read_texts(
            "zh_CN.UTF-8",
            alert=["续航哨兵", "Mouse of Ann 电量提醒", "当前电量9%，请及时充电。", "选择再次提醒时间",
                   "指定时间", ":"],
            choices=["20 分钟后", "30 分钟后", "1 小时后", "2 小时后", "确定", "取消"],
            panel=["续航哨兵", *LIST, "电量低于", "提醒", "检查时间", ":", "电量偏低：Mouse of Ann 9%",
                   "语言"],
            buttons=["开启/测试通知", "退出"],
            toggles=["立即提醒", "每天定时检查", "开机自动启动"],
            pickers=[("阈值", "20%"), ("小时", "22"), ("分钟", "30"), ("语言", "跟随系统")])

    def read_texts(self, language, alert, choices, panel, buttons, toggles, pickers):
        program = self.start(variables={"LANG": language})
        program.wait_for_lines(*LINES)
        window = program.wait_for_alert()
        self.assertEqual((window.name, window.description), (alert[1], alert[2]))
        self.assertEqual(window.texts(), alert)
        self.assertEqual([one.name for one in window.all("push button")], choices)
        program.press(window, "push button", choices[-1])
        program.wait_for_no_window()

        window = program.open_panel_by_icon(lambda window: len(window.texts()) == len(panel))
        self.assertEqual(window.name, panel[0])
        self.assertEqual(window.texts(), panel)
        self.assertEqual([one.name for one in window.all("push button")], buttons)
        self.assertEqual([one.name for one in window.all("check box")], toggles)
        self.assertEqual([(one.label(), one.name) for one in window.all("combo box")], pickers)


if __name__ == "__main__":
    tell()
