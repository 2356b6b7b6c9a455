"""The software generator as the program's destination, as scripts/run starts it."""

import os
import re
import signal
import subprocess
import unittest

from support import program
from support.cases import ProgramTest
from support.jack import JackServer
from support.processes import Child
from support.waiting import eventually

STRIPE = ["--start", "00:00:59:20", "--stop", "00:01:00:10", "--rate", "30 df", "--type", "DTL"]
EVENT = re.compile(r"(?P<seconds>\d+\.\d{6})  (?P<bytes>[0-9A-F]{2}( [0-9A-F]{2})*)  (?P<text>.*)")


class Generator(ProgramTest):
    def setUp(self):
        super().setUp()
        self.server = JackServer()
        self.server.start()
        self.addCleanup(self.server.stop)
        path = program.beside("vexa-generator")
        self.log = self.settings.parent.parent / "events"
        self.generator = Child(path, "--midi", "jack", "--log", self.log, stdout=subprocess.DEVNULL)
        self.addCleanup(self.generator.stop)
        eventually("the generator is ready", lambda: "ready" in self.text())

    def text(self):
        return self.log.read_text() if os.path.exists(self.log) else ""

    def events(self, count):
        """Waits for that many events and returns them."""
        eventually("the events are there", lambda: self.text().count("\n") == count + 1)
        return [EVENT.fullmatch(line) for line in self.text().splitlines()[1:]]

    def test_counts_while_it_runs_and_understands_every_frame(self):
        arguments = ["--midi", "jack", "--destination", "generator", "--stripe", *STRIPE]
        self.assertEqual(program.run(*arguments).returncode, 0)
        events = self.events(7)
        texts = [event["text"] for event in events]
        self.assertEqual(
            texts[:5], ["stop"] * 3 + ["setup 00:00:59:20 30 df DTL", "start 00:00:59:20"]
        )
        # On a busy machine, xruns cost frames.
        self.assertRegex(texts[5], r"^stop at (00:01:00:(09|10|11)|\S+ after \d+ xruns?)$")
        self.assertEqual(texts[6], "stop")

    def test_outlives_a_server_that_crashes_while_the_signal_runs(self):
        def logged(pattern, after=0):
            return eventually(f"the log has {pattern}", lambda: re.search(pattern, self.text()[after:]))

        to_generator = ["--midi", "jack", "--destination", "generator", "--stripe"]
        running = program.start(*to_generator, "--start", "01:00:00:00")
        self.addCleanup(running.stop)
        logged("  start 01:00:00:00\n")
        self.server.kill()
        logged(r"  gone: JACK, and the signal with it at 01:00:\S+; waiting for its return\n")
        running.stop()
        self.server.start()
        back = logged('  ready: "Vexa Generator" on JACK again\n').end()
        self.assertEqual(program.run(*to_generator, *STRIPE).returncode, 0)
        logged(r"  setup 00:00:59:20 30 df DTL\n.*  start 00:00:59:20\n.*  stop at 00:0", after=back)

    def test_ends_at_an_interrupt(self):
        self.generator.send_signal(signal.SIGINT)
        self.assertEqual(self.generator.wait(), 0)


class WrongArguments(unittest.TestCase):
    def complaint(self, *arguments):
        path = program.beside("vexa-generator")
        done = subprocess.run([path, *arguments], capture_output=True, text=True, timeout=30)
        self.assertNotEqual(done.returncode, 0)
        return done.stderr

    def test_cannot_write_to_the_terminal(self):
        for arguments in (["--log", "/nowhere/\x1b]0;a\n"], ["\x1b]0;a\n"], ["--midi", "\x1b]0;a\n"]):
            with self.subTest(arguments):
                complaint = self.complaint(*arguments)
                self.assertIn(r"\x1B]0;a\x0A", complaint)
                self.assertNotIn("\x1b", complaint)
                self.assertEqual(complaint.count("\n"), 1)


if __name__ == "__main__":
    unittest.main()
