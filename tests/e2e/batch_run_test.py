"""A batch list striped in the window, from its file to the last stop."""

import signal
import time
import unittest

from support import desktop
from support.cases import DeviceTest
from support.items import Item
from support.waiting import eventually
from support.wire import STOP, play

FPS_30_MTC = 2  # a mode code


def setUpModule():
    desktop.start()


THIRD_OF_A_SECOND = "00:10"
THREE_SECONDS = "03:00"
REEL_QUESTION = "Please load reel 2, then hit Continue"
TITLES_AND_REELS = (("one", 1), ("two", 1), ("three", 2))


class BatchRun(DeviceTest):
    def open_three_items(self, delay, length=THIRD_OF_A_SECOND):
        """Opens the window with the three items, batch striping on, and other settings of the
        operator."""
        self.write_settings(vexadelay=delay)
        self.window, self.batch, _ = self.open_list(
            Item(reel, title, f"0{hour}:00:00:00", f"0{hour}:00:{length}")
            for hour, (title, reel) in enumerate(TITLES_AND_REELS, start=1)
        )
        self.window.type_time("Start time", "05:00:00:00")
        self.window.press("DTL")
        self.window.press("Batch striping")
        self.window.await_on("Batch striping")

    def expect_item(self, hour, *end):
        """Expects the messages of a later item, which starts without a stop before it, and its
        end."""
        return self.expect_messages(*play(hour, 0, 0, 0, FPS_30_MTC)[1:], *end)

    def expect_two_items(self):
        """Expects the messages of the first two items in a run without a delay."""
        first, second = play(1, 0, 0, 0, FPS_30_MTC), play(2, 0, 0, 0, FPS_30_MTC)
        return self.expect_messages(*first, STOP, *second[1:], STOP)

    def expect_settings_back(self):
        self.window.await_on("Stop")
        self.window.await_on("DTL")
        self.assertEqual(self.window.shown("Start time"), "05:00:00:00")
        self.assertEqual(self.window.shown("Current item"), "")

    def test_stripes_item_after_item_and_asks_for_the_second_reel(self):
        self.open_three_items(delay=4)
        before = time.monotonic()
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_30_MTC), STOP)
        for name in ("Pause", "Play", "Pause"):  # they blink
            self.window.await_on(name)
        end_of_second = self.expect_item(2, STOP)[-1]
        self.assertGreaterEqual(end_of_second - before, 1 / 3 + 4 + 1 / 3)
        self.window.await_alert(REEL_QUESTION)
        self.assertEqual(self.monitor.take(1, 0.5), [], "sent while the reel is asked for")
        self.window.press("Continue")
        self.expect_item(3, STOP, STOP)
        self.expect_settings_back()
        self.assertEqual(len(self.window.titles()), 1)

    def test_stripes_without_a_delay(self):
        self.open_three_items(delay=0)
        self.window.keys("F6")
        first, second = play(1, 0, 0, 0, FPS_30_MTC), play(2, 0, 0, 0, FPS_30_MTC)
        self.expect_messages(*first, STOP, *second[1:], STOP)
        self.window.await_alert(REEL_QUESTION)
        self.window.press("Continue")
        self.expect_item(3, STOP, STOP)
        self.expect_settings_back()

    def strike_until_answered(self, key):
        """Repeats the key: keys count only after there was time to read the question."""

        def is_answered():
            self.window.keys(key)
            return self.window.question() is None

        eventually("the alert is answered", is_answered)

    def test_a_key_held_down_since_before_loads_no_reel(self):
        self.open_three_items(delay=0)
        self.window.keys("F6")
        self.window.hold_key("Return", lambda: self.window.await_alert(REEL_QUESTION))
        self.expect_two_items()
        self.assertEqual(self.monitor.take(1, 0.5), [], "the third item has begun")
        self.strike_until_answered("Return")
        self.expect_item(3, STOP, STOP)

    def test_a_click_on_the_window_brings_the_question_back(self):
        self.open_three_items(delay=0)
        self.window.keys("F6")
        self.window.await_alert(REEL_QUESTION)
        self.expect_two_items()
        for behind in ("Batch striping", "Stop"):
            self.window.click(behind)
            eventually("it has the keyboard", lambda: self.window.has_focus("Continue"))
        self.assertTrue(self.window.is_on("Batch striping"))
        self.strike_until_answered("Return")
        self.expect_item(3, STOP, STOP)

    def test_stop_in_the_pause_ends_the_run(self):
        self.open_three_items(delay=4)
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_30_MTC), STOP)
        self.window.await_on("Pause")
        self.window.keys("F5")
        self.expect_messages(STOP)
        self.assertEqual(self.monitor.take(1, 5), [], "sent after the stop")
        self.window.await_on("Stop")

    def test_pause_and_play_begin_again_at_the_first_item(self):
        self.open_three_items(delay=1, length=THREE_SECONDS)
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_30_MTC), STOP)
        self.expect_messages(*play(2, 0, 0, 0, FPS_30_MTC)[1:])
        self.window.keys("F7")
        self.expect_messages(STOP)
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_30_MTC))
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_what_waited_for_a_run_that_has_begun_is_not_done(self):
        for overtaken in ("ctrl+n", "ctrl+o"):
            with self.subTest(overtaken=overtaken):
                self.open_three_items(delay=1, length=THREE_SECONDS)
                self.window.program.send_signal(signal.SIGSTOP)
                self.window.keys(overtaken, "F6")
                self.window.program.send_signal(signal.SIGCONT)
                self.expect_messages(*play(1, 0, 0, 0, FPS_30_MTC))
                self.window.keys("F5")
                self.expect_messages(STOP)
                self.assertEqual(self.batch.length(), 3)
                self.assertEqual(len(self.window.titles()), 1)
                self.window.close()


if __name__ == "__main__":
    unittest.main()
