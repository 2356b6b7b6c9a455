"""The operator is called to load a reel while another window is in front; dunst, which is not ours,
shows the notifications."""

import subprocess
import unittest

from gi.repository import Gio, GLib

from support import desktop
from support.cases import DeviceTest
from support.items import Item
from support.processes import Child
from support.waiting import eventually
from support.wire import STOP, play

FPS_30_MTC = 2  # a mode code
DUNST = "org.dunstproject.cmd0"
REEL_QUESTION = "Please load reel 2, then hit Continue"


def setUpModule():
    desktop.start()


class ReelCall(DeviceTest):
    def setUp(self):
        super().setUp()
        dunst = Child("dunst", "-conf", "/dev/null", stderr=subprocess.DEVNULL)
        self.addCleanup(dunst.stop)
        eventually("dunst is there", self.is_dunst_there)
        self.write_settings(vexadelay=1)
        self.window, _, _ = self.open_list(
            [Item(reel, "", f"0{reel}:00:00:00", f"0{reel}:00:01:00") for reel in (1, 2)]
        )
        self.window.press("Batch striping")
        self.window.await_on("Batch striping")

    @staticmethod
    def is_dunst_there():
        try:
            return ReelCall.shown() == 0
        except GLib.GError:
            return False

    @staticmethod
    def shown(which="displayed"):
        """How many notifications are on the screen; with "history", how many have been."""
        wanted = GLib.Variant("(ss)", (DUNST, which + "Length"))
        name, path = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
        # Otherwise the bus may start a second one, which would outlive the test.
        flags = Gio.DBusCallFlags.NO_AUTO_START
        call = "org.freedesktop.DBus.Properties", "Get", wanted, None, flags, -1
        (count,) = Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(name, path, *call, None)
        return count

    def reach_the_reel(self):
        self.expect_messages(*play(1, 0, 0, 0, FPS_30_MTC), STOP)
        self.window.await_alert(REEL_QUESTION)

    def go_on(self):
        self.window.press("Continue")
        self.expect_messages(*play(2, 0, 0, 0, FPS_30_MTC)[1:], STOP, STOP)

    def test_a_window_in_the_background_calls_once_until_the_run_goes_on(self):
        self.window.keys("F6")
        self.window.minimize()
        self.reach_the_reel()
        eventually("one is shown", lambda: self.shown() == 1)
        self.go_on()
        eventually("it is withdrawn", lambda: self.shown() == 0)
        self.assertEqual(self.shown("history"), 1)

    def test_an_active_window_does_not_call(self):
        self.window.keys("F6")
        self.reach_the_reel()
        self.assertEqual(self.shown(), 0)
        self.go_on()
        self.assertEqual((self.shown(), self.shown("history")), (0, 0))


if __name__ == "__main__":
    unittest.main()
