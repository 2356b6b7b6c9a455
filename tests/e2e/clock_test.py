"""The clock when time itself goes wrong: it counts ticks, ignores the time of day, and does not
catch up."""

import os
import pathlib
import signal
import subprocess
import time
import unittest
import unittest.mock

from support import desktop
from support.cases import DeviceTest
from support.wire import STOP, play

FPS_30 = 2  # the mode code with MTC
A_FEW_TICKS = 0.1  # s


def setUpModule():
    desktop.start()


class Clock(DeviceTest):
    def start_stripe(self, stop_time):
        """Starts a stripe. Returns the window and a moment just before the start."""
        window = self.open_window()
        window.type_time("Stop time", stop_time)
        before = time.monotonic()
        window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_30))
        return window, before

    def check_end(self, window, stop_time, no_sooner_than):
        self.assertGreaterEqual(self.expect_messages(STOP, STOP)[0], no_sooner_than)
        window.await_on("Stop")
        self.assertEqual(window.shown("Current time"), stop_time)

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
            window, before = self.start_stripe("01:00:03:00")
            for step, clock in (("+3600", "01:00:00:20"), ("-3600", "01:00:01:20")):
                window.await_clock(clock)
                offset.write_text(step)
                date = subprocess.run(["date", "+%s"], capture_output=True, check=True).stdout
                self.assertAlmostEqual(int(date), time.time() + int(step), delta=60)
            self.check_end(window, "01:00:03:00", no_sooner_than=before + 3)
        window.close()
        for left_over in pathlib.Path("/dev/shm").glob(f"*faketime_*_{window.program.pid}"):
            left_over.unlink()

    def test_a_stopped_program_falls_behind_by_as_long_as_it_was_stopped(self):
        window, before = self.start_stripe("01:00:02:00")
        window.await_clock("01:00:00:10")
        window.program.send_signal(signal.SIGSTOP)
        stopped = time.monotonic()
        self.assertEqual(self.monitor.take(1, seconds=3), [])
        away = time.monotonic() - stopped
        window.program.send_signal(signal.SIGCONT)
        # The missed ticks count as one, and the clock does not catch up.
        self.check_end(window, "01:00:02:00", no_sooner_than=before + 2 + away - A_FEW_TICKS)


if __name__ == "__main__":
    unittest.main()
