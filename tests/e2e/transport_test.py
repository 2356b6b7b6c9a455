"""Play, Stop and Pause in the window, by hand, keyboard and screen reader."""

import time
import unittest

from support import desktop
from support.cases import DeviceTest
from support.wire import STOP, play

FPS_24, FPS_30 = 0, 2  # mode codes with MTC
FIRST_START = (1, 0, 0, 0)
# Two hundred runs, in rounds that fit the receiver's queue of 128 messages, which a busy machine
# reads late.
ROUNDS = 8
TIMES_A_ROUND = 25


def setUpModule():
    desktop.start()


def fields(text):
    return [int(pair) for pair in text.split(":")]


class Transport(DeviceTest):
    def setUp(self):
        super().setUp()
        self.window = self.open_window()

    def check_play_pause_play_stop(self, stop, run, pause):
        self.assertTrue(self.window.is_on("Stop"))
        run()
        self.expect_messages(*play(*FIRST_START, FPS_30))
        self.assertTrue(self.window.is_on("Play"))
        self.window.await_clock("01:00:00:10")
        pause()
        self.expect_messages(STOP)
        self.window.await_on("Pause")
        paused_at = fields(self.window.shown("Current time"))
        self.assertGreaterEqual(paused_at, [1, 0, 0, 10])
        run()
        self.expect_messages(*play(*paused_at, FPS_30))
        self.window.await_on("Play")
        stop()
        self.expect_messages(STOP)
        self.window.await_on("Stop")
        run()
        self.expect_messages(*play(*FIRST_START, FPS_30))
        stop()
        self.expect_messages(STOP)

    def test_by_screen_reader(self):
        press = self.window.press
        self.check_play_pause_play_stop(
            lambda: press("Stop"), lambda: press("Play"), lambda: press("Pause")
        )

    def test_by_keyboard(self):
        keys = self.window.keys
        self.check_play_pause_play_stop(lambda: keys("F5"), lambda: keys("F6"), lambda: keys("F7"))

    def test_by_mouse(self):
        click = self.window.click
        self.check_play_pause_play_stop(
            lambda: click("Stop"), lambda: click("Play"), lambda: click("Pause")
        )

    def test_from_the_menu(self):
        self.assertEqual(self.window.menu("Stripe"), ["(Stop)", "Play", "Pause"])
        self.window.choose("Stripe", "Play")
        self.expect_messages(*play(*FIRST_START, FPS_30))
        self.assertEqual(self.window.menu("Stripe"), ["Stop", "(Play)", "Pause"])
        self.window.choose("Stripe", "Stop")
        self.expect_messages(STOP)
        self.window.await_on("Stop")

    def check_none_lost(self, run_and_stop_often):
        for _ in range(ROUNDS):
            run_and_stop_often()
            self.expect_messages(*[*play(*FIRST_START, FPS_30), STOP] * TIMES_A_ROUND)

    def test_two_hundred_in_a_row_by_screen_reader(self):
        def run_and_stop_often():
            for _ in range(TIMES_A_ROUND):
                self.window.press("Play")
                self.window.press("Stop")

        self.check_none_lost(run_and_stop_often)

    def test_two_hundred_in_a_row_by_keyboard(self):
        self.check_none_lost(lambda: self.window.keys(*["F6", "F5"] * TIMES_A_ROUND))

    def test_a_key_that_is_held_down_plays_once(self):
        self.window.hold_key("F6", lambda: self.window.await_clock("01:00:01:15"))
        self.expect_messages(*play(*FIRST_START, FPS_30))
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_ends_by_itself_at_the_stop_time(self):
        self.window.press("25 fps")
        self.window.type_time("Start time", "00:59:59:20")
        self.window.type_time("Stop time", "01:00:01:00")
        self.assertTrue(self.window.is_on("Set stop time"))
        self.window.keys("F6")
        self.expect_messages(*play(0, 59, 59, 20, 1), STOP, STOP)
        self.window.await_on("Stop")
        self.assertEqual(self.window.shown("Current time"), "01:00:01:00")

    def test_after_the_stop_time_everything_is_as_at_the_last_batch_run(self):
        self.window.press("DTL")
        self.window.type_time("Stop time", "01:00:00:05")
        self.window.keys("F6")
        self.expect_messages(*play(*FIRST_START, 6), STOP, STOP)
        # No batch run came before, so everything is zero.
        self.window.await_on("24 fps")
        self.assertTrue(self.window.is_on("MTC"))
        self.assertEqual(self.window.shown("Start time"), "00:00:00:00")
        self.assertEqual(self.window.shown("Stop time"), "00:00:00:00")
        self.window.press("Set stop time")
        self.window.await_on("Set stop time", False)
        self.window.keys("F6")
        self.expect_messages(*play(0, 0, 0, 0, FPS_24))
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_runs_on_without_a_stop_time(self):
        self.window.type_time("Start time", "23:59:59:15")
        self.window.keys("F6")
        self.expect_messages(*play(23, 59, 59, 15, FPS_30))
        self.window.await_clock("00:00:00:15", no_later_than="00:10:00:00")
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_the_clock_is_never_fast_and_ends_where_it_was_stopped(self):
        pressed = time.monotonic()
        self.window.keys("F6")
        self.expect_messages(*play(*FIRST_START, FPS_30))
        self.window.await_clock("01:00:03:00")
        self.window.keys("F5")
        ended = self.expect_messages(STOP)[0]
        self.window.await_on("Stop")
        _, _, seconds, frames = fields(self.window.shown("Current time"))
        self.assertLessEqual(seconds + frames / 30, ended - pressed)


if __name__ == "__main__":
    unittest.main()
