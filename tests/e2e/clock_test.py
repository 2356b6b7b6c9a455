"""The clock where time itself goes wrong: it is a count of ticks, and neither follows the time of
day nor catches up."""

import os
import pathlib
import signal
import subprocess
import sys
import time
import unittest
import unittest.mock

from support import desktop
from support.cases import DeviceTest
from support.processes import Child
from support.wire import STOP, play

FPS_30 = 2  # the mode code with MTC
ALLOWED_LATENESS = 0.2  # s


def setUpModule():
    desktop.start()


class Clock(DeviceTest):
    def start_stripe(self, seconds):
        window = self.open_window()
        window.type_time("Stop time", f"01:00:{seconds:02}:00")
        window.keys("F6")
        return window, self.expect_messages(*play(1, 0, 0, 0, FPS_30))[-1]

    def await_length(self, began, patience):
        return self.expect_messages(STOP, STOP, seconds=patience)[0] - began

    def check_length(self, began, seconds):
        length = self.await_length(began, patience=10)
        self.assertAlmostEqual(length, seconds, delta=ALLOWED_LATENESS)

    def test_a_step_of_the_system_clock_changes_no_stripe(self):
        offset = self.settings.parent.parent / "offset"
        offset.write_text("+0")
        faked = {
            "LD_PRELOAD": "/usr/$LIB/faketime/libfaketimeMT.so.1",
            "FAKETIME_TIMESTAMP_FILE": str(offset),
            "FAKETIME_NO_CACHE": "1",
            "FAKETIME_DONT_FAKE_MONOTONIC": "1",
        }
        with unittest.mock.patch.dict(os.environ, faked):
            window, began = self.start_stripe(seconds=3)
            for step, clock in (("+3600", "01:00:00:20"), ("-3600", "01:00:01:20")):
                window.await_clock(clock)
                offset.write_text(step)
                date = subprocess.run(["date", "+%s"], capture_output=True, check=True).stdout
                self.assertAlmostEqual(int(date), time.time() + int(step), delta=60)
            self.check_length(began, 3)
        window.close()
        for left_over in pathlib.Path("/dev/shm").glob(f"*faketime_*_{window.program.pid}"):
            left_over.unlink()

    def test_a_stopped_program_falls_behind_by_as_long_as_it_was_stopped(self):
        window, began = self.start_stripe(seconds=2)
        window.await_clock("01:00:00:10")
        window.program.send_signal(signal.SIGSTOP)
        stopped = time.monotonic()
        self.assertEqual(self.monitor.take(1, seconds=3), [])
        window.program.send_signal(signal.SIGCONT)
        # The ticks of that time are one tick, and the clock does not catch up.
        away = time.monotonic() - stopped
        self.check_length(began, 2 + away)
        window.await_on("Stop")
        self.assertEqual(window.shown("Current time"), "01:00:02:00")

    def test_a_starved_processor_costs_few_ticks(self):
        for _ in range(os.cpu_count()):
            self.addCleanup(Child("sh", "-c", "while :; do :; done").kill)
        _, began = self.start_stripe(seconds=20)
        lost = (self.await_length(began, patience=40) - 20) * 30
        print(f"\nticks lost of 600 beside busy processors: {lost:.2f}", file=sys.stderr)
        self.assertLess(lost, 60)


if __name__ == "__main__":
    unittest.main()
