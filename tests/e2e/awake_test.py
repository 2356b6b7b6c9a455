"""During a run, the machine neither sleeps nor locks its screen. Every service that can ensure it
is a python-dbusmock object, on the test's own buses."""

import os
import signal
import unittest

from support import program
from support.services import ServicesTest
from support.waiting import eventually

STRIPE = ["--midi", "none", "--stripe", "--start", "01:00:00:00"]
# A signal could end the program before it has read a promise.
TWO_SECONDS = ["--stop", "01:00:02:00"]
REASON = "Timecode is being striped"


class Awake(ServicesTest):
    def setUp(self):
        self.start_session_bus()
        super().setUp()

    def start(self, *options):
        running = program.start(*STRIPE, *options)
        self.addCleanup(running.stop)
        return running

    def calls(self, mock, count):
        """The methods called, once there are that many; calls to the mock itself do not count."""
        eventually(f"{count} calls", lambda: len(mock.GetCalls()) >= count)
        return [(str(method), *map(str, arguments[:2])) for _, method, arguments in mock.GetCalls()]

    def test_the_portal_is_asked_first_and_told_when_it_is_over(self):
        portal, screen_saver, inhibitors = self.portal(), self.screen_saver(), self.logind()
        self.start(*TWO_SECONDS)
        self.assertEqual(self.calls(portal, 1), [("Inhibit", "", "12")])
        ((_, _, (_, _, options)),) = portal.GetCalls()
        self.assertEqual(options["reason"], REASON)
        self.assertEqual(self.calls(self.portal_request(), 1), [("Close",)])
        self.assertEqual((len(screen_saver.GetCalls()), len(inhibitors())), (0, 0))

    def test_the_screen_saver_is_asked_where_no_portal_is_or_it_refuses(self):
        screen_saver = self.screen_saver()
        for refusing in False, True:
            with self.subTest(refusing=refusing):
                if refusing:
                    self.portal("raise dbus.exceptions.DBusException('no')")
                screen_saver.ClearCalls()
                self.start(*TWO_SECONDS)
                promised = ("Inhibit", "Vexa Remote", REASON)
                self.assertEqual(self.calls(screen_saver, 2), [promised, ("UnInhibit", "7")])

    def test_logind_is_asked_where_there_is_no_desktop(self):
        inhibitors = self.logind()
        for number in signal.SIGTERM, signal.SIGKILL:
            with self.subTest(number.name):
                running = self.start()
                (promise,) = eventually("it is asked", inhibitors)
                asked = [str(field) for field in promise[:4]]
                self.assertEqual(asked, ["idle:sleep", "Vexa Remote", REASON, "block"])
                running.stop(number)
                eventually("it is given back", lambda: not inhibitors())

    def test_a_program_that_is_killed_is_off_the_bus_by_which_services_take_back(self):
        screen_saver = self.screen_saver()
        before = self.callers()
        running = self.start()
        self.calls(screen_saver, 1)
        self.assertEqual(len(self.callers() - before), 1)
        running.kill()
        eventually("it has left", lambda: self.callers() == before)

    def test_no_service_and_no_bus_hold_a_stripe_up(self):
        stripe = [*STRIPE, "--stop", "01:00:00:05"]
        self.portal("import time; time.sleep(60)")
        self.screen_saver("import time; time.sleep(60)")
        for address in os.environ["DBUS_SESSION_BUS_ADDRESS"], "unix:path=/nowhere":
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = address
            done = program.run(*stripe, seconds=10)
            self.assertEqual((done.returncode, done.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
