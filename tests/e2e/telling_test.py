"""What the window tells of a run: its run line, its status line and the big clock."""

import math
import re
import subprocess
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from support import desktop
from support.cases import DeviceTest
from support.items import Item
from support.waiting import eventually
from support.wire import STOP, play

FPS_25_MTC = 1  # a mode code
ITEMS = (
    Item(1, "Part one", "01:00:00:00", "01:00:02:00", "25 fps"),
    Item(1, "Part two", "02:00:00:00", "02:00:02:00", "25 fps"),
    Item(2, "Part three", "03:00:00:00", "03:10:00:00", "25 fps"),
)
LONG = Item(1, "Part one", "01:00:00:00", "01:10:00:00", "25 fps")
AT_REST = "3 items · 2 reels · 10:08"
NOT_TAKEN = "Stop time not taken: press Return"


def setUpModule():
    desktop.start()


def seconds(time):
    """Since the hour, at 25 frames."""
    return 60 * int(time[3:5]) + int(time[6:8]) + int(time[9:]) / 25


class Heard:
    """The changes that the accessibility bus tells of, from now on."""

    def __init__(self):
        self._texts = {}
        self._listener = Atspi.EventListener.new(self._note)
        self._listener.register("object:property-change:accessible-description")

    def _note(self, event):
        self._texts.setdefault(event.source.get_name(), []).append(event.any_data)

    def during(self, seconds):
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            GLib.MainContext.default().iteration(False)
            time.sleep(0.005)
        return self._texts

    def close(self):
        self._listener.deregister("object:property-change:accessible-description")


class Telling(DeviceTest):
    def open_items(self, items=ITEMS, delay=2):
        self.write_settings(vexadelay=delay, vexapauseforreel="true")
        self.window, self.batch, self.file = self.open_list(items)
        self.window.press("Batch striping")
        self.window.await_on("Batch striping")

    def await_progress(self, pattern):
        said = lambda: re.fullmatch(pattern, self.window.shown("Progress"))  # noqa: E731
        eventually(f"the run line says {pattern}", said)

    def test_a_run_is_told_of_from_beginning_to_end(self):
        self.open_items()
        self.await_progress(f"ready: {AT_REST}")
        self.window.keys("F6")
        self.await_progress(
            "playing Part one · item 1 of 3 · reel 1 · 0:0[12] left of it"
            " · 10:0[78] of the run \\+ reel changes"
        )
        self.await_progress("next Part two in [12] s · item 2 of 3 · reel 1 · .*")
        self.await_progress("playing Part two · item 2 of 3 · reel 1 · .*")
        self.await_progress("LOAD REEL 2 · then Part three · .*")
        self.window.answer("Continue")
        self.await_progress(
            "playing Part three · item 3 of 3 · reel 2 · (10:00|9:..) left of it"
            " · (10:00|9:..) of the run, ends \\d\\d:\\d\\d"
        )
        self.window.keys("F5")
        self.await_progress(f"ready: {AT_REST}")
        self.batch.await_marks(["Finished", "Finished", "Stopped here"])
        first, second, third = (play(hour, 0, 0, 0, FPS_25_MTC) for hour in (1, 2, 3))
        self.expect_messages(*first, STOP, *second[1:], STOP, *third[1:], STOP)

    def test_the_time_left_is_that_of_the_clock(self):
        self.open_items([LONG])
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_25_MTC))
        self.await_progress("playing .*")
        for _ in range(20):
            before = self.window.shown("Current time")
            progress = self.window.shown("Progress")
            after = self.window.shown("Current time")
            minutes, of_minute = re.search(r"(\d+):(\d\d) left", progress).groups()
            left = 60 * int(minutes) + int(of_minute)
            self.assertIn(left, [math.ceil(600 - seconds(clock)) for clock in (before, after)])
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_a_screen_reader_hears_of_each_state_once_and_of_the_clock_once_a_second(self):
        self.open_items([LONG])
        heard = Heard()
        self.addCleanup(heard.close)
        self.window.keys("F6")
        texts = heard.during(4)
        self.assertTrue(1 <= len(texts["Current time"]) <= 5, texts)
        self.assertEqual(len(texts["Progress"]), 1, texts)
        self.assertLessEqual(len(texts["Destination"]), 3, texts)  # of messages, not of their age
        self.window.keys("F5")
        texts = heard.during(0.5)
        self.assertEqual(len(texts["Progress"]), 2, texts)
        role = self.window.widget("Current time").get_role()
        self.assertEqual(role, Atspi.Role.LABEL)
        self.expect_messages(*play(1, 0, 0, 0, FPS_25_MTC), STOP)

    def test_the_status_line_tells_what_concerns_the_operator(self):
        self.open_items()
        window = self.window
        window.await_shown("Status", AT_REST)
        window.press("25 fps")
        window.keys("F4")
        window.type("1000059")
        window.await_shown("Status", NOT_TAKEN)
        window.keys("Return")
        window.await_shown("Status", "no frame 59 at 25 fps")
        window.keys("BackSpace", "BackSpace", "Return")
        window.await_shown("Status", AT_REST)
        window.press("Set stop time")
        window.press("Batch striping")
        window.await_shown("Status", "batch striping off: no stop time")

    def test_a_file_that_cannot_be_written_is_told_of_without_an_alert(self):
        self.open_items()
        self.window.press("Set stop time")
        self.batch.add(Item(3, "new", "01:00:00:00", "01:00:05:00"))
        with self.read_only(self.file.parent):
            self.window.keys("ctrl+s")
            self.window.await_shown("Status", f"{self.file.name} could not be written")
            self.assertEqual(len(self.window.titles()), 1)

    def test_a_run_of_selected_rows_that_takes_all_is_told_of(self):
        self.open_items([LONG, ITEMS[2]])
        self.batch.select(0)
        self.window.click("Selected")
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_25_MTC))
        self.window.click("All")
        self.window.await_shown("Status", "the run now takes all rows")
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_the_destination_is_named_with_what_was_sent_and_opens_the_preferences(self):
        self.open_items([LONG])
        name = "midi-monitor"
        eventually("it is named", lambda: name in self.window.shown("Destination"))
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_25_MTC))
        said = lambda: re.fullmatch(  # noqa: E731
            f".*{name}.* · start 01:00:00:00 · \\d+ (s|min) ago", self.window.shown("Destination")
        )
        eventually("what was sent is told", said)
        self.window.keys("F5")
        self.expect_messages(STOP)
        eventually("the stop is told", lambda: " · stop · " in self.window.shown("Destination"))
        self.window.press("Destination")
        self.window.await_title("Preferences")
        self.window.keys("Escape")
        self.window.await_title("Preferences", there=False)

    def test_a_cable_pulled_in_a_run_is_told_of_and_so_is_its_return(self):
        self.open_items([LONG])
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_25_MTC))
        eventually("the start is told", lambda: " · start " in self.window.shown("Destination"))
        name = self.window.shown("Destination").partition(" · ")[0]
        self.monitor.stop()
        self.window.await_shown("Destination", f"{name} is not there")
        self.assertEqual(self.window.titles(), ["Vexa Remote: Day 1"])
        self.await_progress("playing .*")
        self.connect_monitor()
        back = lambda: self.window.shown("Destination").startswith(f"{name} · start ")  # noqa: E731
        eventually("its return is told", back)
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_the_status_line_can_be_hidden_and_stays_so(self):
        self.open_items()
        self.window.choose("View", "Status Line")
        eventually("it is hidden", lambda: not self.window.is_shown("Status"))
        self.window.keys("ctrl+q")
        eventually("the program has ended", lambda: not self.window.program.is_running())
        window = self.open_window()
        self.assertFalse(window.is_shown("Status"))
        window.choose("View", "Status Line")
        eventually("it is shown", lambda: window.is_shown("Status"))

    def test_the_big_clock_takes_the_transport_keys_and_goes_by_escape(self):
        self.open_items([LONG])
        for leaves in ("Escape", "F11"):
            self.window.keys("F11")
            self.window.await_active("Big Clock")
            self.window.keys("F6")
            self.expect_messages(*play(1, 0, 0, 0, FPS_25_MTC))
            self.window.keys("F5")
            self.expect_messages(STOP)
            self.window.keys(leaves)
            self.window.await_title("Big Clock", there=False)

    def test_the_big_clock_takes_the_second_screen(self):
        screens = {"left": "1000/264x1400/370+0+0", "right": "800/212x1400/370+1000+0"}
        for name, place in screens.items():
            output = "screen" if name == "left" else "none"  # the server has only one
            set_up = ["xrandr", "--setmonitor", name, place, output]
            subprocess.run(set_up, stdout=subprocess.DEVNULL, check=True)
            self.addCleanup(subprocess.run, ["xrandr", "--delmonitor", name], check=True)
        self.open_items([LONG])
        x, *_ = self.geometry("Vexa Remote: Day 1")
        self.window.keys("F11")
        self.window.await_title("Big Clock")
        second = (1000, 0, 800, 1400) if x < 1000 else (0, 0, 1000, 1400)
        eventually("it fills the second screen", lambda: self.geometry("Big Clock") == second)

    @staticmethod
    def geometry(title):
        (number,) = eventually(f"{title} is there", lambda: desktop.x_windows(title))
        asked = ["xdotool", "getwindowgeometry", "--shell", number]
        lines = subprocess.run(asked, capture_output=True, text=True, check=True).stdout.split()
        values = dict(line.split("=") for line in lines)
        return tuple(int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))

    def test_the_reel_is_asked_for_over_the_big_clock(self):
        self.open_items([ITEMS[0], ITEMS[2]], delay=0)
        self.window.keys("F11")
        self.window.await_active("Big Clock")
        self.window.keys("F6")
        self.window.await_alert("Please load reel 2, then hit Continue")
        eventually("the question has the keyboard", lambda: self.window.has_focus("Continue"))
        self.window.answer("Continue")
        first, third = (play(hour, 0, 0, 0, FPS_25_MTC) for hour in (1, 3))
        self.expect_messages(*first, STOP, *third[1:])
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_striping_from_a_row_goes_on_where_a_run_stopped(self):
        middle = Item(1, "Part two", "02:00:00:00", "02:10:00:00", "25 fps")
        self.open_items([ITEMS[0], middle, ITEMS[2]], delay=0)
        self.window.keys("F6")
        first, second = (play(hour, 0, 0, 0, FPS_25_MTC) for hour in (1, 2))
        self.expect_messages(*first, STOP, *second[1:])
        self.window.keys("F5")
        self.expect_messages(STOP)
        self.batch.await_marks(["Finished", "Stopped here", ""])
        self.batch.select(1)
        self.window.choose("Batch List", "Stripe From This Row")
        self.assertEqual(self.batch.selected(), [1, 2])
        self.window.await_on("Selected")
        self.assertEqual(self.monitor.take(1, 0.5), [], "Play is the operator's")
        self.window.keys("F6")
        self.expect_messages(*play(2, 0, 0, 0, FPS_25_MTC))
        self.window.keys("F5")
        self.expect_messages(STOP)


if __name__ == "__main__":
    unittest.main()
