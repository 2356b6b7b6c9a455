"""A batch list striped in the terminal, from its file to the last stop."""

import csv
import itertools
import json
import os
import pathlib
import signal
import subprocess
import unittest
from datetime import datetime

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
                "01:00:00:00  0:01 left, 0:04 of the run + reel changes"
                "  item 1 of 3: one  01:00:00:00 to 01:00:00:10, 30 fps, MTC",
                pause,
                "02:00:00:00  0:01 left, 0:02 of the run + reel changes"
                "  item 2 of 3: (no title)  02:00:00:00 to 02:00:00:10, 25 fps, DTL",
                pause,
                REEL_QUESTION,
                "03:00:00:00  0:01 left, 0:01 of the run"
                "  item 3 of 3: three  03:00:00:00 to 03:00:00:10, 30 fps, MTC",
            ],
        )
        self.expect_messages(STOP, *run([ONE, UNTITLED, THREE]))

    def test_tells_scripts_of_its_progress_an_object_a_line(self):
        self.write_settings(vexadelay=1)
        self.stripe_list("--progress", "json", answers="\n")
        self.assertEqual((self.done.returncode, self.done.stderr), (0, ""))
        told = [json.loads(line) for line in self.done.stdout.splitlines()]
        states = ["playing", "between items", "playing", "between items", "reel due", "playing"]
        changes = [state for state, _ in itertools.groupby(line["state"] for line in told)]
        self.assertEqual(changes, [*states, "stopped"])
        first = told[0]
        self.assertAlmostEqual(first.pop("runLeft"), 10 / 30 + 1 + 10 / 25 + 1 + 10 / 30)
        self.assertAlmostEqual(first.pop("itemLeft"), 10 / 30)
        self.assertEqual(
            {key: value for key, value in first.items() if key != "sent"},
            {
                **{"state": "playing", "time": "01:00:00:00", "title": "one", "type": "MTC"},
                **{"start": "01:00:00:00", "stop": "01:00:00:10", "rate": "30 fps"},
                **{"item": 1, "items": 3, "reel": 1, "reelChanges": 1},
                **{"destination": "midi-monitor:input", "destinationThere": True},
            },
        )
        (due,) = (line for line in told if line["state"] == "reel due")
        self.assertEqual((due["item"], due["reel"], due["title"]), (3, 2, "three"))
        self.assertEqual(due["sent"], "stop")
        self.expect_messages(STOP, *run([ONE, UNTITLED, THREE]))

    def test_logs_each_row_as_it_ends(self):
        self.write_settings(vexadelay=0)
        log = pathlib.Path(self.file.parent, "run.csv")
        self.stripe_list("--rows", "1,3", "--log", str(log), answers="")
        self.assertEqual(self.done.returncode, 130)
        with log.open(newline="", encoding="utf-8") as file:
            heading, *rows = csv.reader(file)
        self.assertEqual(heading[:3], ["row", "reel", "title"])
        times = ["01:00:00:00", "01:00:00:10"]
        ((*fields, began, ended, how),) = rows
        self.assertEqual((fields, how), (["1", "1", "one", *times, *times], "complete"))
        seconds = datetime.fromisoformat(ended) - datetime.fromisoformat(began)
        self.assertAlmostEqual(seconds.total_seconds(), 10 / 30, delta=5)
        self.expect_messages(STOP, STOP, *stripe(ONE), STOP)

    def test_a_log_that_cannot_be_written_does_not_hold_the_run_up(self):
        self.write_settings(vexadelay=0)
        for log, fault in ("/dev/full", "No space left"), (str(self.file.parent), "directory"):
            with self.subTest(log):
                self.stripe_list("--rows", "1,2", "--log", log, answers="")
                self.assertEqual(self.done.returncode, 0)
                self.assertEqual(len(self.done.stderr.splitlines()), 1)
                self.assertIn(fault, self.done.stderr)
                self.expect_messages(STOP, *run([ONE, UNTITLED]))

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
            next(line for line in lines if ONE.title in line)
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
