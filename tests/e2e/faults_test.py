"""What goes wrong around the program, in the middle of everything."""

import signal
import unittest

from support import desktop
from support.batch_list import BatchList
from support.cases import DeviceTest
from support.items import Item
from support.wire import run

ONE_SECOND = Item(1, "one second", "01:00:00:00", "01:00:01:00")


def setUpModule():
    desktop.start()


class Termination(DeviceTest):
    """A session that ends has nobody to answer questions."""

    def check_ends(self, window):
        window.program.send_signal(signal.SIGTERM)
        self.assertEqual(window.program.wait(seconds=3), 0)

    def test_with_a_list_that_was_never_saved(self):
        window = self.open_window()
        batch = BatchList(window)
        batch.set_up(ONE_SECOND)
        batch.add(ONE_SECOND)
        self.check_ends(window)

    def test_while_the_reel_is_asked_for(self):
        self.write_settings(vexadelay=0)
        items = [ONE_SECOND._replace(reel=reel, stop="01:00:00:01") for reel in (1, 2)]
        window, _, _ = self.open_list(items)
        window.press("Batch striping")
        window.keys("F6")
        window.await_alert("Please load reel 2, then hit Continue")
        self.check_ends(window)
        self.expect_messages(*run(items[:1]))


if __name__ == "__main__":
    unittest.main()
