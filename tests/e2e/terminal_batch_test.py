"""A batch list striped in the terminal, from its file to the last stop."""

import os
import pathlib
import signal
import subprocess
import unittest

from support import program
from support.cases import DeviceTest
from support.items import Item, list_file
from support.processes import Child
from support.wire import STOP, run, stripe

ONE = Item(1, "one", "01:00:00:00", "01:00:00:10")
UNTITLED = Item(1, "", "02:00:00:00", "02:00:00:10", "25 fps", "DTL")
THREE = Item(2, "three", "03:00:00:00", "03:00:00:10")
REEL_QUESTION = "Please load reel 2, then hit Enter: "


class TerminalBatch(DeviceTest):
    def setUp(self):
        super().setUp()
        self.file = pathlib.Path(self.settings.parent.parent, "Day 1.vexaB")
        self.file.write_bytes(list_file([ONE, UNTITLED, THREE]))

    def stripe_list(self, *arguments, answers):
        stripe_list = ["--midi", "jack", "--stripe", str(self.file), *arguments]
        self.done = program.run(*stripe_list, answers=answers)

    def test_shows_items_and_pauses_and_goes_on_with_the_next_reel_at_enter(self):
        self.write_settings(vexadelay=1)
        self.stripe_list(answers="\n")
        self.assertEqual((self.done.returncode, self.done.stderr), (0, ""))
        lines = self.done.stdout.splitlines()
        pause = "next item in 1 s"
        self.assertEqual(
            [line for position, line in enumerate(lines) if line != lines[position - 1]],
            [
                "Destination: midi-monitor:input",
                "one  01:00:00:00 to 01:00:00:10, 30 fps, MTC  01:00:00:00",
                pause,
                "(no title)  02:00:00:00 to 02:00:00:10, 25 fps, DTL  02:00:00:00",
                pause,
                REEL_QUESTION,
                "three  03:00:00:00 to 03:00:00:10, 30 fps, MTC  03:00:00:00",
            ],
        )
        self.expect_messages(STOP, *run([ONE, UNTITLED, THREE]))

    def test_stripes_the_rows_that_are_named(self):
        self.write_settings(vexadelay=0)
        self.stripe_list("--rows", "3,1", answers="\n")
        self.assertEqual(self.done.returncode, 0)
        self.expect_messages(STOP, *run([ONE, THREE]))

    def test_ends_where_nobody_answers_for_the_next_reel(self):
        self.write_settings(vexadelay=0)
        self.stripe_list(answers="")
        self.assertEqual(self.done.returncode, 130)
        self.assertEqual(self.done.stdout.splitlines()[-1], REEL_QUESTION)
        self.expect_messages(STOP, STOP, *stripe(ONE), *stripe(UNTITLED), STOP)

    def test_an_answer_is_one_line_of_a_pipe(self):
        self.write_settings(vexadelay=0)
        again = Item(3, "four", "04:00:00:00", "04:00:00:10")
        self.file.write_bytes(list_file([ONE, THREE, again]))
        self.stripe_list(answers="\n\n")
        self.assertEqual(self.done.returncode, 0)
        self.expect_messages(STOP, *run([ONE, THREE, again]))

    def test_enter_that_was_typed_before_the_question_is_no_answer(self):
        self.write_settings(vexadelay=0)
        self.file.write_bytes(list_file([ONE, THREE]))
        keyboard, terminal = os.openpty()
        command = [program.PATH, "--midi", "jack", "--stripe", self.file]
        running = Child(*command, stdin=terminal, stdout=subprocess.PIPE)
        self.addCleanup(running.stop)
        with running.stdout as lines, open(keyboard, "wb", buffering=0) as typed:
            next(line for line in lines if line.startswith(ONE.title))
            typed.write(b"\n")
            next(line for line in lines if line.startswith(REEL_QUESTION))
            running.send_signal(signal.SIGTERM)
            self.assertEqual(running.wait(), 130)
        os.close(terminal)
        self.expect_messages(STOP, STOP, *stripe(ONE), STOP, STOP)

    def test_a_title_cannot_write_to_the_terminal(self):
        self.file.write_bytes(list_file([ONE._replace(title="a\n\x9b2J\u202eb")]))
        self.stripe_list(answers="")
        self.assertIn(r"a\x0A\u009B2J\u202Eb  01:00:00:00 to", self.done.stdout)
        self.expect_messages(STOP, *run([ONE]))

    def test_a_list_that_cannot_be_striped_sends_nothing(self):
        arguments = [str(self.file), "--rows", "4"], ["nowhere.vexaB"]
        for wrong in arguments:
            done = program.run("--midi", "jack", "--stripe", *wrong)
            self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.expect_messages()


if __name__ == "__main__":
    unittest.main()
