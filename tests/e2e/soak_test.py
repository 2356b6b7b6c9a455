"""Batches of a thousand items without a pause, and long timecode: every message and every word
counts, and memory does not grow."""

import os
import re
import sys
import time
import unittest

from support import desktop, program
from support.cases import DeviceTest
from support.items import RATES, SYNC_TYPES, Item, list_file
from support.studio import Recording, StudioTest, words
from support.waiting import eventually
from support.window import Window
from support.wire import STOP, run

ITEMS_IN_TERMINAL = 1000
ITEMS_IN_WINDOW = int(os.environ.get("VEXA_SOAK_ITEMS", 500))
SECONDS_OF_TIMECODE = int(os.environ.get("VEXA_SOAK_SECONDS", 20))
WARM_UP = 100  # items until the program has allocated what it needs
ALLOWED_GROWTH = 1024  # KiB
PATIENCE = 60  # s


def setUpModule():
    desktop.start()


def item(number):
    """A stripe of one frame. Its minutes are multiples of ten, which drop no frames."""
    minute, second = divmod(number, 60)
    start = f"{minute // 6:02}:{minute % 6}0:{second:02}"
    rate, sync = RATES[number % len(RATES)], SYNC_TYPES[number % len(SYNC_TYPES)]
    return Item(number, f"item {number}", f"{start}:00", f"{start}:01", rate, sync)


def items(count):
    """That many items and a last one, which is long enough to examine the program while it runs."""
    last = item(count)
    return [*map(item, range(count)), last._replace(stop=last.start[:-5] + "59:00")]


def memory(process):
    """The process's resident memory, in KiB."""
    with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
        return next(int(line.split()[1]) for line in status if line.startswith("VmRSS"))


class Soak(DeviceTest):
    def setUp(self):
        super().setUp()
        self.write_settings(vexadelay=0, vexapauseforreel="false")

    def receive(self, count):
        """Receives at least that many messages."""
        received = []
        while len(received) < count:
            taken = self.monitor.take(1, PATIENCE)
            self.assertTrue(taken, f"only {len(received)} of {count} messages")
            received += taken
        return received

    def check_run(self, process, sent, items):
        """Checks that all messages up to the last item arrive in order, and that memory does not
        grow."""
        received = self.receive(3 * WARM_UP)
        before = memory(process)
        received += self.receive(len(sent) - len(received))
        growth = memory(process) - before
        self.assertEqual([message for _, message in received], sent)
        seconds = received[-1][0] - received[0][0]
        print(f"\n{items} items in {seconds:.1f} s; {before} KiB {growth:+}", file=sys.stderr)
        self.assertLess(growth, ALLOWED_GROWTH)

    def test_in_the_terminal(self):
        batch = items(ITEMS_IN_TERMINAL)
        file = self.settings.with_name("long.vexaB")
        file.write_bytes(list_file(batch))
        process = program.start("--midi", "jack", "--stripe", file)
        self.addCleanup(process.stop)
        self.check_run(process, [STOP, *run(batch)[:-2]], ITEMS_IN_TERMINAL)
        process.stop()
        self.expect_messages(STOP)

    def test_in_the_window(self):
        batch = items(ITEMS_IN_WINDOW)
        window, _, _ = self.open_list(batch)
        window.press("Batch striping")
        window.keys("F6")
        self.check_run(window.program, run(batch)[:-2], ITEMS_IN_WINDOW)
        window.keys("F5")
        self.expect_messages(STOP)


class LongTimecode(StudioTest):
    """A run through midnight from the window, made by the generator and recorded."""

    def test_every_word_is_read(self):
        self.open_generator(48000, 256)
        window = Window("--midi", "jack", "--destination", "Vexa Generator")
        self.addCleanup(window.close)
        recording = Recording("Vexa Generator:LTC", self.folder / "recording.wav")
        minutes, seconds = divmod(86400 - SECONDS_OF_TIMECODE // 2, 60)
        first = f"{minutes // 60:02}:{minutes % 60:02}:{seconds:02}:02"
        window.press("30 df")
        window.type_time("Start time", first)
        window.press("Play")
        programs = [window.program, self.generator]
        time.sleep(SECONDS_OF_TIMECODE / 4)
        before = [memory(process) for process in programs]
        time.sleep(SECONDS_OF_TIMECODE * 3 / 4)
        growth = [memory(process) - was for process, was in zip(programs, before)]
        window.press("Stop")
        eventually("the generator has stopped", lambda: "stop at" in self.text())
        last = re.search(r"stop at (\S+)", self.text())[1]
        read = recording.words()
        print(f"\n{len(read)} words from {first} to {last}; window and generator: {before} KiB, "
              f"{growth}", file=sys.stderr)
        self.assertEqual(read, list(words(first, last, "30 df")), self.text())
        self.assertLess(max(growth), ALLOWED_GROWTH)


if __name__ == "__main__":
    unittest.main()
