"""The times left that the window and the terminal tell, against the frames that the clock still has
to count, and against the messages that a receiver gets."""

import json
import math
import re
import unittest

from support import desktop, program
from support.cases import DeviceTest
from support.items import RATES, Item, list_file, seconds_of
from support.waiting import PATIENCE, eventually
from support.wire import STOP, run, stripe

ITEMS = (
    Item(1, "night", "23:59:58:00", "23:59:59:23", "24 fps"),  # to the day's last frame
    Item(1, "part", "01:00:00:05", "01:00:02:10", "25 fps"),
    Item(1, "turn", "23:59:58:00", "00:00:02:00", "30 fps"),  # one frame: its stop is earlier
    Item(1, "drop", "00:00:59:00", "00:01:01:02", "30 df"),  # through numbers that are dropped
)
REMOVED = Item(1, "gone", "02:00:00:00", "02:00:03:00", "25 fps")
A_FRAME = 0.05  # s, or less
FEW = 2  # readings of each item, seconds of each pause; a busy machine gets not many more

PLAYING = r"playing (?P<title>\w+) · .* (?P<item>\S+) left of it · (?P<run>\S+) of the run, .*"
BETWEEN = r"next (?P<title>\w+) in (?P<pause>\d+) s · .* (?P<run>\S+) of the run, .*"


def setUpModule():
    desktop.start()


def shown_seconds(text):
    minutes, seconds = text.split(":")
    return 60 * int(minutes) + int(seconds)


def displayed(seconds):
    return math.ceil(seconds - 1e-6)


def left_of(item, clock):
    """Of the item, in seconds, when the clock shows this."""
    return seconds_of(item._replace(start=clock))


class TimesLeft(DeviceTest):
    pause = 7.5  # s

    def after(self, item, items):
        """What follows the item in the run, in seconds, with the pauses."""
        following = items[items.index(item) + 1 :]
        return sum(self.pause + seconds_of(one) for one in following)

    def read(self):
        """Reads the clock before and after the run line. Tells whether the run is over."""
        before, line = self.clock.get_description(), self.progress.get_description()
        self.readings.append((before, line, self.clock.get_description()))
        return line.startswith("ready")

    def test_of_the_window_are_those_of_the_clock_and_of_the_receiver(self):
        self.write_settings(vexadelay=self.pause)
        window, batch, _ = self.open_list([*ITEMS, REMOVED])
        window.press("Batch striping")
        window.await_on("Batch striping")
        self.clock, self.progress = window.widget("Current time"), window.widget("Progress")
        self.readings = []
        window.keys("F6")
        self.expect_messages(STOP, *stripe(ITEMS[0]))
        batch.select(len(ITEMS))
        window.keys("Delete")
        batch.await_items(ITEMS)
        eventually("the run is over", self.read, 2 * PATIENCE)
        self.expect_messages(*run(ITEMS)[4:])
        self.check_playing()
        self.check_pauses()

    def check_playing(self):
        checked = dict.fromkeys((item.title for item in ITEMS), 0)
        for before, line, later in self.readings:
            told = re.fullmatch(PLAYING, line)
            item = next((item for item in ITEMS if told and item.title == told["title"]), None)
            if not item or not item.start <= before <= later < item.stop:
                continue  # between two items
            checked[item.title] += 1
            rest = self.after(item, ITEMS)
            for claim, more in (told["item"], 0), (told["run"], rest):
                true = {displayed(left_of(item, clock) + more) for clock in (before, later)}
                self.assertIn(shown_seconds(claim), true, (line, before, later))
        self.assertGreater(min(checked["part"], checked["drop"]), FEW, checked)

    def check_pauses(self):
        """The run has left what the pause has, and the items and pauses after it."""
        checked = {item.title: set() for item in ITEMS[1:]}
        for _, line, _ in self.readings:
            told = re.fullmatch(BETWEEN, line)
            if not told:
                continue
            item = next(item for item in ITEMS if item.title == told["title"])
            pause = int(told["pause"])
            checked[item.title].add(pause)
            rest = seconds_of(item) + self.after(item, ITEMS)
            # The pause shows seconds that have begun.
            true = range(displayed(pause - 1 + rest), displayed(pause + rest) + 1)
            self.assertIn(shown_seconds(told["run"]), true, line)
        self.assertGreater(min(map(len, checked.values())), FEW, checked)

    def test_of_the_terminal_are_those_of_the_clock_and_of_the_receiver(self):
        self.check_terminal(ITEMS)

    def test_of_the_day_s_last_seconds_and_through_midnight_are_true_at_each_rate(self):
        self.pause = 0.5
        last = {"24 fps": "23", "25 fps": "24"}
        self.check_terminal([
            Item(1, f"{rate} to {stop}", "23:59:58:00", stop, rate)
            for rate in RATES
            for stop in (f"23:59:59:{last.get(rate, '29')}", "00:00:02:00")
        ])

    def check_terminal(self, items):
        self.write_settings(vexadelay=self.pause)
        file = self.settings.parent.parent / "Day 1.vexaB"
        file.write_bytes(list_file(items))
        done = program.run("--midi", "jack", "--stripe", str(file), "--progress", "json")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        *told, _ = (json.loads(line) for line in done.stdout.splitlines())
        self.assertEqual({line["title"] for line in told}, {item.title for item in items})
        for line in told:
            item = next(item for item in items if item.title == line["title"])
            if line["state"] == "playing":
                left = left_of(item, line["time"])
                self.assertAlmostEqual(line["itemLeft"], left, msg=line)
            else:
                left = line["pauseLeft"] + seconds_of(item)
            self.assertAlmostEqual(
                line["runLeft"], left + self.after(item, items), places=3, msg=line
            )
        moments = self.expect_messages(STOP, *run(items))
        # A busy machine is late, but counts no frame less.
        self.assertLess(told[0]["runLeft"] - A_FRAME, moments[-1] - moments[2])


if __name__ == "__main__":
    unittest.main()
