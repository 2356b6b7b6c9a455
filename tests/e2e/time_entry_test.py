"""Times typed in the window with real key events, undone and sent."""

import signal
import unittest

from support import desktop
from support.cases import DeviceTest
from support.window import xdotool
from support.wire import STOP, play

START, STOP_TIME = "Start time", "Stop time"
AT_FIRST = "01:00:00:00"


def setUpModule():
    desktop.start()


class TimeEntry(DeviceTest):
    def setUp(self):
        super().setUp()
        self.window = self.open_window()

    def open_entry(self, name):
        self.window.click(name)
        self.window.await_on(name)

    def paste(self, text, check):
        """Keeps the copied text on the clipboard until the check is done."""
        with desktop.clipboard(text):
            self.window.keys("ctrl+v")
            check()

    def check_committed(self, text, name=START):
        self.window.await_on(name, False)
        self.window.await_shown(name, text)

    def check_next_play_carries(self, *time):
        self.window.keys("F6")
        self.expect_messages(*play(*time, 2))
        self.window.keys("F5")
        self.expect_messages(STOP)


class Typing(TimeEntry):
    def test_digits_come_in_from_the_right(self):
        self.open_entry(START)
        for key, shown in (
            ("1", "00:00:00:01"),
            ("2", "00:00:00:12"),
            ("KP_3", "00:00:01:23"),
            ("BackSpace", "00:00:00:12"),
            ("Delete", "00:00:00:01"),
            ("x", "00:00:00:01"),
            ("Escape", "00:00:00:01"),
            ("9", "00:00:00:19"),
        ):
            self.window.keys(key)
            self.window.await_shown(START, shown)
        self.window.keys("Return")
        self.check_committed("00:00:00:19")
        self.check_next_play_carries(0, 0, 0, 19)

    def test_each_way_to_end_an_entry_commits_it(self):
        for number, key in enumerate(("Return", "KP_Enter", "Tab"), start=1):
            with self.subTest(key=key):
                self.window.type_time(START, f"00:00:0{number}:00", end=key)
                self.check_committed(f"00:00:0{number}:00")
                self.assertTrue(self.window.has_focus(START))
                self.check_next_play_carries(0, 0, number, 0)

    def test_pressing_the_other_display_commits(self):
        self.open_entry(START)
        self.window.type("01020304")
        self.open_entry(STOP_TIME)
        self.check_committed("01:02:03:04")
        self.assertTrue(self.window.is_on("Set stop time"))
        self.window.type("01020400")
        self.open_entry(START)
        self.check_committed("01:02:04:00", STOP_TIME)
        self.window.keys("Return")
        self.window.keys("F6")
        self.expect_messages(*play(1, 2, 3, 4, 2), STOP, STOP)

    def test_a_time_that_does_not_exist_stays_in_entry(self):
        self.open_entry(START)
        for wrong, reason in (
            ("24:00:00:00", "no hour 24"),
            ("00:60:00:00", "no minute 60"),
            ("00:00:60:00", "no second 60"),
            ("00:00:00:30", "no frame 30 at 30 fps"),
        ):
            with self.subTest(time=wrong):
                self.window.type(wrong.replace(":", ""))
                self.window.keys("Return")
                self.window.await_shown(START, f"{wrong}, {reason}")
                self.assertTrue(self.window.is_on(START))
        self.window.click(STOP_TIME)
        self.window.await_on(STOP_TIME)
        self.assertTrue(self.window.is_on(START))
        self.window.click(START)
        self.check_next_play_carries(1, 0, 0, 0)
        self.window.type("00000029")
        self.window.keys("Return")
        self.check_committed("00:00:00:29")
        self.check_next_play_carries(0, 0, 0, 29)

    def test_a_refused_time_is_typed_afresh(self):
        self.window.keys("F4")
        self.window.type("5959")
        self.window.keys("Return")
        self.window.await_shown(STOP_TIME, "00:00:59:59, no frame 59 at 30 fps")
        self.window.keys("F4")
        self.window.type("1100000")
        self.window.await_shown(STOP_TIME, "01:10:00:00")
        self.window.keys("Return")
        self.check_committed("01:10:00:00", STOP_TIME)

    def test_a_click_elsewhere_takes_no_digits(self):
        self.open_entry(START)
        self.window.type("0200")
        for name in ("Set stop time", "DTL", "MTC"):
            self.window.click(name)
            self.window.await_on(name)
            self.assertTrue(self.window.has_focus(START))
        self.window.type("0000")
        self.window.keys("Return")
        self.check_committed("02:00:00:00")

    def test_a_dropped_frame_number_does_not_exist(self):
        self.window.press("30 df")
        self.open_entry(START)
        self.window.type("00010001")
        self.window.keys("Return")
        self.window.type("00010002")
        self.window.keys("Return")
        self.check_committed("00:01:00:02")

    def test_a_stop_time_before_the_start_is_moved_past_it(self):
        self.window.type_time(STOP_TIME, "00:59:00:00")
        self.check_committed("01:00:05:00", STOP_TIME)
        self.assertTrue(self.window.is_on("Set stop time"))


class Slips(TimeEntry):
    def test_a_double_click_changes_no_time(self):
        self.window.click(START, times=2)
        self.check_committed(AT_FIRST)
        self.window.type("5")
        self.check_next_play_carries(1, 0, 0, 0)
        self.assertEqual(self.window.shown(START), AT_FIRST)

    def test_a_digit_held_down_can_be_corrected(self):
        self.open_entry(START)
        self.window.hold_key("5", lambda: self.window.await_shown(START, "55:55:55:55"))
        self.window.keys("Return")
        self.window.type("00000700")
        self.window.keys("Return")
        self.check_committed("00:00:07:00")

    def test_return_held_down_commits_once(self):
        self.window.keys("F6")
        self.open_entry(START)
        self.window.type("00000700")
        self.window.hold_key("Return", lambda: self.window.await_clock("01:00:02:00"))
        self.check_committed("00:00:07:00")
        self.window.keys("F5")
        self.expect_messages(*play(1, 0, 0, 0, 2), STOP)
        self.window.keys("ctrl+z")
        self.check_committed(AT_FIRST)
        self.assertEqual(self.window.menu("Edit")[0], "(Undo)")


class Pasting(TimeEntry):
    def test_a_time_is_taken_as_if_it_were_typed(self):
        self.open_entry(START)
        self.paste("01:02:03:04", lambda: self.window.await_shown(START, "01:02:03:04"))
        self.assertTrue(self.window.is_on(START))
        self.window.keys("Return")
        self.check_committed("01:02:03:04")
        self.check_next_play_carries(1, 2, 3, 4)

    def test_anything_else_is_not_taken(self):
        self.open_entry(START)

        def type_on(digit, shown):
            self.window.type(digit)
            self.window.await_shown(START, shown)

        for rubbish, digit, shown in (
            ("rubbish", "1", "00:00:00:01"),
            ("1:2:3", "2", "00:00:00:12"),
            ("01:02:03:04:05", "3", "00:00:01:23"),
            ("０１:02:03:04", "4", "00:00:12:34"),
            ("\n", "5", "00:01:23:45"),
        ):
            with self.subTest(text=rubbish):
                self.paste(rubbish, lambda: type_on(digit, shown))

    def test_outside_an_entry_one_begins_and_nothing_is_committed(self):
        self.window.type_time(START, "00:00:07:00")
        self.paste("01:02:03:04", lambda: self.window.await_shown(START, "01:02:03:04"))
        self.assertTrue(self.window.is_on(START))
        self.check_next_play_carries(0, 0, 7, 0)


class Undoing(TimeEntry):
    def setUp(self):
        super().setUp()
        # Pressing the stop time commits the unchanged start time: a separate step, below these.
        self.window.type_time(STOP_TIME, "02:00:00:00")
        self.window.type_time(START, "01:02:03:04")
        self.check_committed("01:02:03:04")

    def check_menu(self, undo, redo):
        self.assertEqual(self.window.menu("Edit")[:2], [undo, redo])

    def check_there_and_back(self, undo, redo):
        self.check_menu("Undo Change Start Time", "(Redo)")
        undo()
        self.check_committed(AT_FIRST)
        self.check_menu("Undo Change Stop Time", "Redo Change Start Time")
        undo()
        self.check_committed("00:00:00:00", STOP_TIME)
        self.assertFalse(self.window.is_on("Set stop time"))
        self.check_menu("Undo Change Start Time", "Redo Change Stop Time")
        self.check_next_play_carries(1, 0, 0, 0)
        redo()
        self.check_committed("02:00:00:00", STOP_TIME)
        redo()
        self.check_committed("01:02:03:04")
        self.check_menu("Undo Change Start Time", "(Redo)")
        self.check_next_play_carries(1, 2, 3, 4)

    def test_from_the_menu(self):
        self.check_there_and_back(
            lambda: self.window.choose("Edit", self.window.menu("Edit")[0]),
            lambda: self.window.choose("Edit", self.window.menu("Edit")[1]),
        )

    def test_by_keyboard(self):
        self.check_there_and_back(
            lambda: self.window.keys("ctrl+z"), lambda: self.window.keys("ctrl+shift+z")
        )


class QueuedEvents(TimeEntry):
    def queue_keys(self, *names):
        """Presses keys while the program is stopped, so it then finds them all at once."""
        self.window.program.send_signal(signal.SIGSTOP)
        self.window.keys(*names)
        self.window.program.send_signal(signal.SIGCONT)

    def test_two_entries_are_two_steps(self):
        self.open_entry(START)
        self.queue_keys(*"11111111", "Return", "space", *"12121212", "Return")
        self.check_committed("12:12:12:12")
        self.window.keys("ctrl+z")
        self.check_committed("11:11:11:11")
        self.window.keys("ctrl+z")
        self.check_committed(AT_FIRST)

    def check_stop_time_set_and_cleared(self):
        """Checks that this took two steps."""
        self.check_committed("01:00:05:00", STOP_TIME)
        self.window.await_on("Set stop time", False)
        self.window.keys("ctrl+z")
        self.window.await_on("Set stop time")
        self.window.keys("ctrl+z")
        self.window.await_on("Set stop time", False)
        self.window.await_shown(STOP_TIME, "00:00:00:00")

    def test_two_shortcuts_are_two_steps(self):
        self.queue_keys("F8", "F8")
        self.check_stop_time_set_and_cleared()

    def test_the_release_of_a_key_is_a_step_of_its_own(self):
        self.window.focus("Set stop time")
        xdotool("keydown", "space")
        self.window.program.send_signal(signal.SIGSTOP)
        self.window.keys("F8")
        xdotool("keyup", "space")
        self.window.program.send_signal(signal.SIGCONT)
        self.check_stop_time_set_and_cleared()

    def test_two_presses_by_assistive_technology_are_two_steps(self):
        self.window.press_at_once("25 fps", "DTL")
        self.window.await_on("DTL")
        self.assertTrue(self.window.is_on("25 fps"))
        self.window.keys("ctrl+z")
        self.window.await_on("MTC")
        self.assertTrue(self.window.is_on("25 fps"))
        self.window.keys("ctrl+z")
        self.window.await_on("30 fps")

    def test_play_takes_the_time_typed_before_it(self):
        self.open_entry(START)
        self.queue_keys(*"02030405", "Return", "F6", "F5")
        self.expect_messages(*play(2, 3, 4, 5, 2), STOP)


if __name__ == "__main__":
    unittest.main()
