"""Faults around a working program: cables, disks and sessions. The program shows nothing; a run
goes on and ends in time."""

import resource
import signal
import threading
import time
import unittest

from support import desktop
from support.batch_list import BatchList
from support.cases import DeviceTest
from support.items import Item, items_in
from support.preferences import Preferences
from support.waiting import eventually
from support.wire import STOP, play, run, stripe

FPS_30 = 2  # the mode code with MTC

ONE_SECOND = Item(1, "first", "01:00:00:00", "01:00:01:00")
SECOND = Item(1, "second", "02:00:00:00", "02:00:01:00")
ON_REEL_2 = Item(2, "third", "03:00:00:00", "03:00:01:00")
REELS = [ONE_SECOND, SECOND, ON_REEL_2]
REEL_2_ALERT = "Please load reel 2, then hit Continue"


def setUpModule():
    desktop.start()


def check_one_second_since(test, pressed):
    """Checks that a stripe of one second had time to end."""
    test.assertGreaterEqual(time.monotonic() - pressed, 1)


class LostInABatch(DeviceTest):
    """The cable is pulled, or the JACK server crashes, between two stripes."""

    def setUp(self):
        super().setUp()
        self.write_settings(vexadelay=3)
        self.window, self.batch, _ = self.open_list(REELS)
        self.window.press("Batch striping")
        self.window.keys("F6")
        self.expect_messages(*run(REELS)[:3])

    def pull(self):
        self.monitor.stop()

    def crash(self):
        self.server.kill()
        self.monitor.stop()

    def put_back(self):
        self.connect_monitor()

    def restart(self):
        self.server.start()
        self.connect_monitor()

    def check_in_the_pause(self, lose, give_back):
        self.expect_messages(STOP)
        lose()
        self.window.await_shown("Current item", "second")
        self.window.await_alert(REEL_2_ALERT)
        give_back()
        self.window.press("Continue")
        self.expect_messages(*stripe(ON_REEL_2), STOP)
        self.batch.await_marks(["Finished"] * 3)

    def test_pulled_in_the_pause(self):
        self.check_in_the_pause(self.pull, self.put_back)

    def test_crashed_in_the_pause(self):
        self.check_in_the_pause(self.crash, self.restart)

    def check_while_the_reel_is_asked_for(self, lose, give_back):
        self.expect_messages(STOP, *stripe(SECOND))
        self.window.await_alert(REEL_2_ALERT)
        lose()
        pressed = time.monotonic()
        self.window.press("Continue")
        self.batch.await_marks(["Finished"] * 3)
        check_one_second_since(self, pressed)
        give_back()
        self.window.keys("F6")
        self.expect_messages(*run(REELS)[:4])

    def test_pulled_while_the_reel_is_asked_for(self):
        self.check_while_the_reel_is_asked_for(self.pull, self.put_back)

    def test_crashed_while_the_reel_is_asked_for(self):
        self.check_while_the_reel_is_asked_for(self.crash, self.restart)

    def test_pulled_right_before_the_stop_time(self):
        self.window.await_clock("01:00:00:24", no_later_than="01:00:01:00")
        self.pull()
        self.batch.await_marks(["Finished", "", ""])
        self.assertIn(self.monitor.take(0), ([], [STOP]))
        self.put_back()
        self.expect_messages(*stripe(SECOND))


class LostAtPlay(DeviceTest):
    def setUp(self):
        super().setUp()
        self.window = self.open_window()

    def stripe_into_nothing(self):
        self.window.type_time("Stop time", "01:00:01:00")
        pressed = time.monotonic()
        self.window.keys("F6")
        self.window.await_on("Play")
        self.window.await_on("Stop")
        check_one_second_since(self, pressed)

    def test_pulled_before_play(self):
        self.monitor.stop()
        self.stripe_into_nothing()
        self.connect_monitor()
        self.window.keys("F8", "F6", "F5")
        self.expect_messages(*play(0, 0, 0, 0, 0), STOP)

    def test_pulled_while_play_is_being_sent(self):
        sent = [*play(1, 0, 0, 0, FPS_30), STOP]
        for _ in range(8):
            pulling = threading.Thread(target=self.monitor.stop)
            pulling.start()
            self.window.keys("F6", "F5")
            pulling.join()
            arrived = [message for _, message in self.monitor.take(0)]
            self.assertEqual(arrived, sent[: len(arrived)])
            self.window.await_on("Stop")
            self.connect_monitor()
            self.window.keys("F6", "F5")
            self.expect_messages(*sent)


class DisksThatTakeNothing(DeviceTest):
    def setUp(self):
        super().setUp()
        self.window, self.batch, self.file = self.open_list(REELS)
        self.old = self.file.read_bytes()
        self.window.press("Set stop time")
        self.window.await_shown("Stop time", "01:00:05:00")

    def add(self, title):
        self.batch.add(Item(9, title, "01:00:00:00", "01:00:05:00"))
        self.assertIn("Save", self.window.menu("File"))

    def save(self):
        """Saves; the list counts as saved, whatever the outcome."""
        self.window.keys("ctrl+s")
        eventually("it counts as saved", lambda: "(Save)" in self.window.menu("File"))
        self.assertEqual(self.window.titles(), ["Vexa Remote: Day 1"])

    def check_nothing_is_lost(self):
        self.assertEqual(self.file.read_bytes(), self.old)
        leftovers = [file.name for file in self.file.parent.glob("*Day*")]
        self.assertEqual(leftovers, [self.file.name])

    def check_saves_again(self):
        self.add("later")
        self.save()
        titles = [item.title for item in items_in(self.file.read_bytes())]
        self.assertEqual(titles, ["first", "second", "third", "later", "new"])

    def fill_disk(self, room=200):
        """Limits the size of the files that the program writes from now on."""
        self.limit_files(room)
        self.addCleanup(self.limit_files, resource.RLIM_INFINITY)

    def limit_files(self, size):
        limits = (size, resource.RLIM_INFINITY)
        if self.window.program.is_running():
            resource.prlimit(self.window.program.pid, resource.RLIMIT_FSIZE, limits)

    def test_a_list_in_a_directory_that_may_only_be_read(self):
        self.add("new")
        with self.read_only(self.file.parent):
            self.save()
            self.check_nothing_is_lost()
        self.check_saves_again()

    def test_a_list_on_a_full_disk(self):
        self.add("new")
        self.fill_disk()
        self.save()
        self.check_nothing_is_lost()
        self.limit_files(resource.RLIM_INFINITY)
        self.check_saves_again()

    def save_as(self, path):
        self.window.choose("File", "Save As…")
        self.window.await_title("Save Batch List")
        self.window.write(str(path))
        self.window.keys("Return")
        self.window.await_title("Save Batch List", there=False)

    def test_another_name_in_a_directory_that_may_only_be_read(self):
        self.add("new")
        other = self.file.with_name("Day 2.vexaB")
        with self.read_only(self.file.parent):
            self.save_as(other)
            self.window.await_title("Vexa Remote: Day 2")
            self.assertIn("(Save)", self.window.menu("File"))
            self.assertFalse(other.exists())
        self.assertEqual(self.file.read_bytes(), self.old)
        self.add("later")
        self.window.keys("ctrl+s")
        eventually("it is saved", other.exists)
        self.assertEqual(len(items_in(other.read_bytes())), 5)

    def export(self, title, name):
        path = self.file.with_name(name)
        self.window.choose("File", f"{title}…")
        self.window.choose_file(title, path)
        return path

    def test_exports_on_a_full_disk(self):
        for title, name, message in (
            ("Export", "out.csv", "“{}” could not be written."),
            ("Export as PDF", "out.pdf", "The reel sheet could not be made."),
        ):
            with self.subTest(title):
                self.limit_files(size=50)
                path = self.export(title, name)
                self.window.await_alert(message.format(path))
                self.window.answer("OK")
                self.assertEqual(list(path.parent.glob(f"*{name}*")), [])
                self.limit_files(resource.RLIM_INFINITY)
                self.export(title, name)
                eventually("it is written", path.exists)

    def change_preferences_on_a_full_disk(self):
        self.fill_disk(room=500)
        panel = Preferences(self.window)
        panel.open()
        panel.change(delay="12")
        panel.close("Return")
        self.expect_messages(STOP)
        return panel

    def test_preferences_on_a_full_disk(self):
        self.write_settings(vexadelay=3, other="x" * 1000)
        old = self.settings.read_bytes()
        panel = self.change_preferences_on_a_full_disk()
        panel.open()
        self.assertEqual(panel.shown()[0], "12")
        panel.close("Escape")
        self.window.close()  # after the last attempt to write
        self.assertEqual(self.settings.read_bytes(), old)

    def test_preferences_after_a_full_disk(self):
        self.write_settings(vexadelay=3, other="x" * 1000)
        panel = self.change_preferences_on_a_full_disk()
        self.limit_files(resource.RLIM_INFINITY)
        panel.open()
        panel.close("Return")
        self.expect_messages(STOP)
        eventually("it is stored", lambda: "vexadelay=12" in self.settings.read_text())


class Termination(DeviceTest):
    """The end of a session, when nobody can answer questions."""

    def check_ends(self, window):
        window.program.send_signal(signal.SIGTERM)
        self.assertEqual(window.program.wait(), 0)

    def test_with_a_list_that_was_never_saved(self):
        window = self.open_window()
        batch = BatchList(window)
        batch.set_up(ONE_SECOND)
        batch.add(ONE_SECOND)
        self.check_ends(window)

    def test_while_the_reel_is_asked_for(self):
        self.write_settings(vexadelay=0)
        window, _, _ = self.open_list([ONE_SECOND, ON_REEL_2])
        window.press("Batch striping")
        window.keys("F6")
        window.await_alert(REEL_2_ALERT)
        self.check_ends(window)
        self.expect_messages(*run([ONE_SECOND]))


if __name__ == "__main__":
    unittest.main()
