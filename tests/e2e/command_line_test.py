"""The command line as a shell sees it: output, errors and exit codes."""

import os
import tempfile
import unittest

from support import program
from support.cases import DeviceTest, ProgramTest

STRIPE = ["--midi", "none", "--stripe", "--start", "01:00:00:00"]


class CommandLine(ProgramTest):
    def test_refuses_wrong_arguments_in_one_line(self):
        for arguments in (
            ["--nonsense"],
            ["--midi", "usb"],
            ["--start", "01:00:00:00"],
            ["--stripe"],
            ["--stripe", "--start"],
            ["--stripe", "--start", "1:2:3:4"],
            ["--stripe", "--start", "01:02:03"],
            ["--midi", "none", "--stripe", "--start", "24:00:00:00"],
            ["--midi", "none", "--stripe", "--start", "00:01:00:00", "--rate", "30 df"],
            [*STRIPE, "--stop", "01:00:00:00"],
            [*STRIPE, "--stop", "01:00:00:25", "--rate", "25 fps"],
            [*STRIPE, "--rate", "29.97"],
            [*STRIPE, "--type", "LTC"],
            [*STRIPE, "--destination", "nobody"],
            [""],
            [b"caf\xe9.vexaB"],
            [tempfile.gettempdir()],
            ["--stripe", "\x1b]0;a\n"],
            ["--\x1b]0;a\n"],
            [*STRIPE, "--destination", "\x1b]0;a\n"],
        ):
            with self.subTest(arguments=arguments):
                done = program.run(*arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertRegex(done.stderr, r"\Avexa-remote: .+\n\Z")
                self.assertNotIn("\x1b", done.stderr)

    def test_keeps_its_arguments_to_itself(self):
        """An option's value is its own, even if it looks like an option of Qt."""
        os.environ["QT_QPA_PLATFORM"] = "offscreen"
        self.addCleanup(os.environ.pop, "QT_QPA_PLATFORM")
        done = program.run("--midi", "none", "--destination", "-platform", "nowhere.vexaB")
        self.assertEqual(done.returncode, 2)
        self.assertIn('vexa-remote: no MIDI destination matches "-platform"\n', done.stderr)

    def test_tells_its_version(self):
        done = program.run("--version")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertRegex(done.stdout, r"\Avexa-remote \d+\.\d+\.\d+\n\Z")

    def test_explains_every_option(self):
        done = program.run("--help")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        options = (
            "midi destination destinations stripe start stop rate type import to times check tape "
            "help version"
        )
        for option in options.split():
            self.assertIn(f"--{option}", done.stdout)

    def test_lists_no_destinations_without_midi(self):
        done = program.run("--midi", "none", "--destinations")
        self.assertEqual((done.returncode, done.stdout), (0, ""))
        self.assertEqual(done.stderr, "vexa-remote: there are no MIDI destinations\n")


class Destinations(DeviceTest):
    def test_are_listed_by_position_id_and_name(self):
        done = program.run("--midi", "jack", "--destinations")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertRegex(done.stdout, r"\A0\t-?\d+\tmidi-monitor:input\n\Z")

    def test_keep_their_ids(self):
        first = program.run("--midi", "jack", "--destinations")
        self.replace_server()
        second = program.run("--midi", "jack", "--destinations")
        self.assertEqual(first.stdout, second.stdout)
        self.assertNotEqual(first.stdout, "")


if __name__ == "__main__":
    unittest.main()
