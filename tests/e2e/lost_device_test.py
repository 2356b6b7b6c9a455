"""The JACK server crashes or hangs, or the receiver goes away, during a run. The run goes on,
nothing is shown, and later messages arrive again."""

import time
import unittest

from support import desktop, program
from support.cases import DeviceTest
from support.window import Window
from support.wire import STOP, play


def setUpModule():
    desktop.start()


class LostDevice(DeviceTest):
    def start_run_of(self, seconds):
        """Starts a run in the window. Returns the window and a moment before which the run cannot
        end."""
        window = self.open_window()
        window.type_time("Stop time", f"01:00:{seconds:02}:00")
        end = time.monotonic() + seconds
        window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, 2))
        return window, end

    def check_end_of_run(self, window, end):
        window.await_on("Stop")
        self.assertGreaterEqual(time.monotonic(), end)
        self.assertEqual(window.titles(), ["Vexa Remote: Untitled Batch List"])

    def check_stops(self, end):
        """Checks that the messages of a run's end arrive, and not too early."""
        self.assertGreaterEqual(self.expect_messages(STOP, STOP)[0], end)

    def check_next_play(self, window):
        window.keys("F8")
        window.await_on("Set stop time", False)
        window.keys("F6")
        self.expect_messages(*play(0, 0, 0, 0, 0))
        window.keys("F5")
        self.expect_messages(STOP)

    def test_server_back_after_the_run(self):
        window, end = self.start_run_of(seconds=2)
        self.server.kill()
        self.check_end_of_run(window, end)
        self.monitor.stop()
        self.server.start()
        self.connect_monitor()
        self.check_next_play(window)

    def test_server_back_during_the_run(self):
        window, end = self.start_run_of(seconds=10)
        self.replace_server()
        self.check_stops(end)
        self.check_next_play(window)

    def test_receiver_back_after_the_run(self):
        window, end = self.start_run_of(seconds=2)
        self.monitor.stop()
        self.check_end_of_run(window, end)
        self.connect_monitor()
        self.check_next_play(window)

    def test_receiver_back_during_the_run(self):
        window, end = self.start_run_of(seconds=10)
        self.monitor.stop()
        self.connect_monitor()
        self.check_stops(end)
        self.check_next_play(window)

    def test_play_and_stop_without_a_server(self):
        window = self.open_window()
        self.server.kill()
        window.keys("F6")
        window.await_clock("01:00:00:05")
        window.keys("F5")
        window.await_on("Stop")
        self.assertEqual(len(window.titles()), 1)
        self.monitor.stop()
        self.server.start()
        self.connect_monitor()
        window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, 2))
        window.keys("F5")
        self.expect_messages(STOP)

    def test_a_server_that_hangs_holds_up_no_clock(self):
        window = self.open_window()
        with self.server.hung():
            window.keys("F6")
            window.await_clock("01:00:01:00")
        self.expect_messages(*play(1, 0, 0, 0, 2))
        window.keys("F5")
        self.expect_messages(STOP)

    def test_the_window_does_not_wait_for_a_server_that_hangs(self):
        """A window that waited would come up with an empty list of destinations, and its messages
        would reach nobody."""
        with self.server.hung():
            window = Window("--midi", "jack")
            self.addCleanup(window.close)
        self.expect_messages(STOP)

    def check_quits(self, window):
        window.keys("ctrl+q")
        self.assertEqual(window.program.wait(), 0)

    def test_quits_while_the_server_hangs(self):
        window = self.open_window()
        with self.server.hung():
            window.keys("F6")
            window.await_clock("01:00:00:10")
            self.check_quits(window)
        # The messages are lost, unless a period was still running.
        self.monitor.stop()
        arrived = [message for _, message in self.monitor.take(0)]
        self.assertIn(arrived, ([], play(1, 0, 0, 0, 2)))

    def test_quits_without_a_server(self):
        window = self.open_window()
        window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, 2))
        self.server.kill()
        self.check_quits(window)

    def test_terminal_stripe_outlives_the_server(self):
        stripe = ["--stripe", "--start", "01:00:00:00", "--stop", "01:00:10:00", "--rate", "30 fps"]
        end = time.monotonic() + 10
        running = program.start("--midi", "jack", *stripe)
        self.addCleanup(running.stop)
        self.expect_messages(STOP, *play(1, 0, 0, 0, 2))
        self.replace_server()
        self.assertEqual(running.wait(), 0)
        self.check_stops(end)


if __name__ == "__main__":
    unittest.main()
