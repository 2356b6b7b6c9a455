"""The preferences panel: what it shows, applies and remembers."""

import os
import pathlib
import socket
import unittest

from support import desktop
from support.cases import DeviceTest
from support.jack import MidiMonitor
from support.preferences import Preferences
from support.waiting import eventually
from support.window import Window
from support.wire import STOP, play

FPS_30, DROP_FRAME_DTL = 2, 7  # mode codes
AT_FIRST = ("5", "midi-monitor:input", "30 fps", "MTC", True)
CHANGED = ("12", "studio-b:input", "30 df", "DTL", False)


def setUpModule():
    desktop.start()


class Panel(DeviceTest):
    def setUp(self):
        super().setUp()
        self.studio_b = MidiMonitor("studio-b")
        self.addCleanup(self.studio_b.stop)
        self.window = self.open_window()
        self.panel = Preferences(self.window)

    def await_destination(self, name):
        self.window.await_shown("MIDI destination", name)

    def change_everything(self):
        self.panel.change(delay="12", destination=1, rate=1, sync=1, pause=True)
        eventually("everything is changed", lambda: self.panel.shown() == CHANGED)

    def expect_at_studio_b(self, *messages):
        taken = [message for _, message in self.studio_b.take(len(messages))]
        self.assertEqual(taken, list(messages))

    def test_the_first_time(self):
        self.panel.open()
        self.assertEqual(self.panel.shown(), AT_FIRST)
        self.panel.close("Escape")

    def test_confirmed_unchanged(self):
        self.window.press("24 fps")
        self.window.press("FSK")
        self.panel.open()
        self.panel.close("Return")
        self.expect_messages(STOP)
        self.window.await_on("30 fps")
        self.assertTrue(self.window.is_on("MTC"))
        self.window.press("24 fps")
        self.window.await_on("24 fps")

    def test_cancelled(self):
        self.panel.open()
        self.change_everything()
        self.panel.close("Escape")
        self.panel.open()
        self.assertEqual(self.panel.shown(), AT_FIRST)
        self.panel.close("Escape")
        self.assertTrue(self.window.is_on("30 fps"))
        self.assertTrue(self.window.is_on("MTC"))

    def test_changed_and_remembered(self):
        self.panel.open()
        self.change_everything()
        self.panel.close("Return")
        self.expect_at_studio_b(STOP)
        self.window.await_on("30 df")
        self.assertTrue(self.window.is_on("DTL"))
        self.window.close()

        self.window = Window("--midi", "jack")
        self.addCleanup(self.window.close)
        self.panel = Preferences(self.window)
        self.expect_at_studio_b(STOP, STOP)
        self.assertTrue(self.window.is_on("30 df"))
        self.assertTrue(self.window.is_on("DTL"))
        self.panel.open()
        self.assertEqual(self.panel.shown(), CHANGED)
        self.panel.close("Escape")
        self.window.keys("F6")
        self.expect_at_studio_b(*play(1, 0, 0, 0, DROP_FRAME_DTL))
        self.window.keys("F5")
        self.expect_at_studio_b(STOP)

    def test_a_run_goes_on_while_the_panel_is_open(self):
        self.window.type_time("Stop time", "01:00:03:00")
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, FPS_30))
        self.panel.open()
        self.expect_messages(STOP, STOP)
        self.assertIn("Preferences", self.window.titles())
        self.assertEqual(self.window.shown("Current time"), "01:00:03:00")
        self.panel.close("Escape")

    def test_the_choice_stays_with_its_device(self):
        self.panel.open()
        self.monitor.stop()
        self.await_destination("")
        studio_c = MidiMonitor("studio-c")
        self.addCleanup(studio_c.stop)
        self.connect_monitor()
        self.await_destination("midi-monitor:input")
        self.panel.close("Return")
        self.expect_messages(STOP)
        self.assertEqual(studio_c.take(0) + self.studio_b.take(0), [])


class StoredSettings(DeviceTest):
    def open_panel(self):
        self.window = self.open_window()
        self.panel = Preferences(self.window)
        self.panel.open()

    def confirm(self):
        self.panel.close("Return")
        self.expect_messages(STOP)

    def change_and_confirm(self):
        """Confirms a change, which takes effect even if it cannot be stored."""
        self.panel.change(delay="12", rate=1)
        self.confirm()
        self.window.await_on("30 df")
        self.panel.open()
        self.assertEqual(self.panel.shown()[::2], ("12", "30 df", True))
        self.panel.close("Escape")

    def stored(self):
        lines = self.settings.read_text(errors="replace").splitlines()
        return dict(line.split("=") for line in lines if "=" in line)

    def await_stored_delay(self, delay):
        """Waits, as settings are written in the background."""
        eventually("it is stored", lambda: self.stored().get("vexadelay") == delay)

    def check_not_stored(self):
        before = self.settings.read_bytes()
        self.open_panel()
        self.change_and_confirm()
        self.window.close()  # after the last attempt to write
        self.assertEqual(self.settings.read_bytes(), before)

    def test_a_delay_of_part_of_a_second_is_cut_off(self):
        self.write_settings(vexadelay=7.9)
        self.open_panel()
        self.assertEqual(self.panel.shown()[0], "7")
        self.panel.close("Escape")
        self.assertEqual(self.stored(), {"vexadelay": "7.9"})
        self.panel.open()
        self.confirm()
        self.await_stored_delay("7")

    def test_values_of_wrong_kinds_are_taken_as_the_numbers_they_begin_with(self):
        self.write_settings(
            vexadelay="slow",
            vexadefaultrate="1.9",
            vexadefaulttype="2 or so",
            vexapauseforreel="perhaps",
            vexamididest="the box",
        )
        self.open_panel()
        self.assertEqual(self.panel.shown(), ("0", "midi-monitor:input", "25 fps", "FSK", False))
        self.panel.close("Escape")

    def test_a_file_of_garbage_counts_as_none_and_is_kept(self):
        garbage = bytes(range(256)) * 16
        self.write_settings()
        self.settings.write_bytes(garbage)
        self.open_panel()
        self.assertEqual(self.panel.shown(), AT_FIRST)
        self.change_and_confirm()
        self.await_stored_delay("12")
        self.assertEqual(self.settings.with_name("vexa-remote.ini~").read_bytes(), garbage)

    def test_a_file_that_may_only_be_read_stays(self):
        self.write_settings(vexadelay=3)
        self.settings.chmod(0o444)
        self.check_not_stored()

    def test_a_directory_that_may_only_be_read_stays(self):
        self.write_settings(vexadelay=3)
        with self.read_only(self.settings.parent):
            self.check_not_stored()

    def test_no_directory_can_be_made(self):
        with self.read_only(self.settings.parent.parent):
            self.open_panel()
            self.change_and_confirm()
            self.window.close()
        self.assertFalse(self.settings.exists())

    def test_another_program_that_is_writing_forever_holds_nobody_up(self):
        self.write_settings(vexadelay=3)
        lock = self.settings.with_name("vexa-remote.ini.lock")
        this_program = pathlib.Path("/proc/self/exe").readlink().name
        lock.write_text(f"{os.getpid()}\n{this_program}\n{socket.gethostname()}\n")
        self.check_not_stored()
        lock.unlink()
        self.open_panel()
        self.change_and_confirm()
        self.await_stored_delay("12")


if __name__ == "__main__":
    unittest.main()
