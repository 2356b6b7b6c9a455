"""The preferences panel: what it shows, applies and remembers."""

import unittest

from support import desktop
from support.cases import DeviceTest
from support.jack import MidiMonitor
from support.waiting import eventually
from support.window import Window
from support.wire import STOP, play

FPS_30, DROP_FRAME_DTL = 2, 7  # mode codes
AT_FIRST = ("5", "midi-monitor:input", "30 fps", "MTC", True)
CHANGED = ("12", "studio-b:input", "30 df", "DTL", False)


def setUpModule():
    desktop.start()


class Preferences(DeviceTest):
    def setUp(self):
        super().setUp()
        self.studio_b = MidiMonitor("studio-b")
        self.addCleanup(self.studio_b.stop)
        self.window = self.open_window()

    def open_panel(self):
        self.window.choose("Edit", "Preferences…")
        eventually(
            "the panel is there",
            lambda: "Preferences" in self.window.titles()
            and self.window.has_focus("Delay between items"),
        )

    def close_panel(self, key):
        self.window.keys(key)
        eventually("the panel is gone", lambda: "Preferences" not in self.window.titles())

    def panel(self):
        return (
            self.window.text("Delay between items"),
            self.window.shown("MIDI destination"),
            self.window.shown("Default frame rate"),
            self.window.shown("Default sync type"),
            self.window.is_on("Pause for reel change"),
        )

    def await_destination(self, name):
        self.window.await_shown("MIDI destination", name)

    def change_everything(self):
        self.window.keys("1", "2", *["Tab", "Tab", "Down"], *["Tab", "Down"] * 2, "Tab", "space")
        eventually("everything is changed", lambda: self.panel() == CHANGED)

    def expect_at_studio_b(self, *messages):
        taken = [message for _, message in self.studio_b.take(len(messages))]
        self.assertEqual(taken, list(messages))

    def test_the_first_time(self):
        self.open_panel()
        self.assertEqual(self.panel(), AT_FIRST)
        self.close_panel("Escape")

    def test_confirmed_unchanged(self):
        self.window.press("24 fps")
        self.window.press("FSK")
        self.open_panel()
        self.close_panel("Return")
        self.expect_messages(STOP)
        self.window.await_on("30 fps")
        self.assertTrue(self.window.is_on("MTC"))
        self.window.press("24 fps")
        self.window.await_on("24 fps")

    def test_cancelled(self):
        self.open_panel()
        self.change_everything()
        self.close_panel("Escape")
        self.open_panel()
        self.assertEqual(self.panel(), AT_FIRST)
        self.close_panel("Escape")
        self.assertTrue(self.window.is_on("30 fps"))
        self.assertTrue(self.window.is_on("MTC"))

    def test_changed_and_remembered(self):
        self.open_panel()
        self.change_everything()
        self.close_panel("Return")
        self.expect_at_studio_b(STOP)
        self.window.await_on("30 df")
        self.assertTrue(self.window.is_on("DTL"))
        self.window.close()

        self.window = Window("--midi", "jack")
        self.addCleanup(self.window.close)
        self.expect_at_studio_b(STOP, STOP)
        self.assertTrue(self.window.is_on("30 df"))
        self.assertTrue(self.window.is_on("DTL"))
        self.open_panel()
        self.assertEqual(self.panel(), CHANGED)
        self.close_panel("Escape")
        self.window.keys("F6")
        self.expect_at_studio_b(*play(1, 0, 0, 0, DROP_FRAME_DTL))
        self.window.keys("F5")
        self.expect_at_studio_b(STOP)

    def test_a_run_goes_on_while_the_panel_is_open(self):
        self.window.type_time("Stop time", "01:00:03:00")
        self.window.keys("F6")
        began = self.expect_messages(*play(1, 0, 0, 0, FPS_30))[-1]
        self.open_panel()
        ended = self.expect_messages(STOP, STOP)[0]
        self.assertAlmostEqual(ended - began, 3, delta=0.3)
        self.assertIn("Preferences", self.window.titles())
        self.assertEqual(self.window.shown("Current time"), "01:00:03:00")
        self.close_panel("Escape")

    def test_the_choice_stays_with_its_device(self):
        self.open_panel()
        self.monitor.stop()
        self.await_destination("")
        studio_c = MidiMonitor("studio-c")
        self.addCleanup(studio_c.stop)
        self.connect_monitor()
        self.await_destination("midi-monitor:input")
        self.close_panel("Return")
        self.expect_messages(STOP)
        self.assertEqual(studio_c.take(0) + self.studio_b.take(0), [])


if __name__ == "__main__":
    unittest.main()
