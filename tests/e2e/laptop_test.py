"""A laptop that wants to sleep, and a desktop whose services hang or lie."""

import contextlib
import signal
import time
import unittest

from support import desktop
from support.batch_list import BatchList
from support.items import Item, list_file
from support.services import NOTIFICATIONS, PORTAL, SCREEN_SAVER, ServicesTest
from support.waiting import eventually
from support.window import Window

CALL_TIMEOUT = 25  # s, after which a caller that waits is released


def setUpModule():
    desktop.start()


class ALaptop(ServicesTest):
    def check_is_awake_while_it_plays(self, is_awake):
        """Returns the window, which plays."""
        window = Window("--midi", "none")
        self.addCleanup(window.close)
        for key, plays in (("F6", True), ("F7", False), ("F6", True), ("F5", False), ("F6", True)):
            window.keys(key)
            eventually(f"awake is {plays} after {key}", lambda: is_awake() == plays)
        return window

    def test_may_sleep_by_logind_unless_the_clock_runs(self):
        promises = self.logind()
        window = self.check_is_awake_while_it_plays(lambda: bool(promises()))
        window.program.kill()
        eventually("the promise is given back", lambda: not promises())

    def test_may_sleep_by_the_portal_unless_the_clock_runs(self):
        portal = self.portal()
        closed = self.portal_request()
        before = self.callers()
        window = self.check_is_awake_while_it_plays(
            lambda: len(portal.GetCalls()) == len(closed.GetCalls()) + 1)
        window.program.kill()
        eventually("it has left the bus", lambda: self.callers() == before)


class Services(ServicesTest):
    """A batch of two reels runs as if there were none."""

    def setUp(self):
        super().setUp()
        self.write_settings(vexadelay=0, vexapauseforreel="true")
        self.file = self.settings.parent.parent / "Day 1.vexaB"
        items = [Item(reel, "", f"0{reel}:00:00:00", f"0{reel}:00:00:10") for reel in (1, 2)]
        self.file.write_bytes(list_file(items))

    @contextlib.contextmanager
    def not_waiting(self):
        """Checks that nothing waits for a service meanwhile."""
        begin = time.monotonic()
        yield
        self.assertLess(time.monotonic() - begin, CALL_TIMEOUT)

    def stripe(self):
        window = Window("--midi", "none", str(self.file))
        self.addCleanup(window.close)
        batch = BatchList(window)
        window.press("Batch striping")
        window.minimize()  # so that the operator is called
        with self.not_waiting():
            window.press("Play")
            window.await_alert("Please load reel 2, then hit Continue")
            window.press("Continue")
            batch.await_marks(["Finished"] * 2)
        with self.not_waiting():
            window.program.send_signal(signal.SIGTERM)
            self.assertEqual(window.program.wait(), 0)

    def test_that_hang_hold_nothing_up(self):
        self.portal(), self.screen_saver(), self.notifications(), self.logind()
        for server in self.servers:
            server.send_signal(signal.SIGSTOP)
        self.stripe()

    def test_that_lie_are_passed_over(self):
        lie = "s", "ret = 'yes'"
        liars = [
            self.mock(*PORTAL, [("Inhibit", "sua{sv}", *lie)], "org.freedesktop.portal.Inhibit"),
            self.mock(*SCREEN_SAVER, [("Inhibit", "ss", *lie)]),
            self.mock(*NOTIFICATIONS, [("Notify", "susssasa{sv}i", *lie)]),
        ]
        self.stripe()
        for liar in liars:
            self.assertIn(liar.GetCalls()[0][1], ("Inhibit", "Notify"))


if __name__ == "__main__":
    unittest.main()
