"""Work on lists in the terminal: rows imported from files, and a check."""

import os
import tempfile
import unittest

from support import program

CUES = """Reel;Title;In;Out;Rate;Sync
7;Part one;01:00:00:00;01:10:00:00;25;MTC
7;Part two;01:05:00:00;01:20:00:00;25;MTC
;;soon;;;
"""
EDITS = """TITLE: Evening
001  TAPE7 V C 01:00:00:00 01:10:00:00 00:00:00:00 00:10:00:00
* FROM CLIP NAME: Opening
"""


class Lists(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.list = self.path("list.vexaB")

    def path(self, name):
        return os.path.join(self.folder, name)

    def file(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)
        return self.path(name)

    def run_import(self, path, *options):
        return program.run("--import", path, "--to", self.list, *options)

    def test_rows_become_a_list_that_can_be_checked(self):
        done = self.run_import(self.file("cues.csv", CUES))
        self.assertEqual((done.returncode, done.stdout),
                         (1, "Rows added: 2; lines skipped: 1\n"))
        self.assertEqual(done.stderr, "vexa-remote: line 4: “soon” is not a time: soon\n")
        done = program.run("--check", self.list)
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        self.assertEqual(done.stdout, "row 2, reel 7, Part two: overlaps “Part one”, which ends at "
                                      "01:10:00:00\nreel 7: items 2, 25:00 in all\n")

    def test_an_endless_edit_list_is_refused(self):
        endless = self.file("endless.edl", "TITLE: x\n")
        os.truncate(endless, 1 << 30)
        done = self.run_import(endless, "--rate", "25 fps")
        self.assertEqual((done.returncode, done.stderr),
                         (2, f'vexa-remote: "{endless}": it is longer than 64 MiB\n'))
        self.assertFalse(os.path.exists(self.list))

    def test_a_good_list_passes_the_check(self):
        good = CUES.replace("01:05:00:00", "01:10:00:00").replace(";;soon;;;\n", "")
        done = self.run_import(self.file("cues.csv", good))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(program.run("--check", self.list).returncode, 0)
        done = program.run("--check", self.list, "--tape", "19")
        self.assertEqual(done.returncode, 1)
        self.assertIn("Part two: runs past the end of reel 7's tape\n", done.stdout)

    def test_rows_are_added_to_those_there_are(self):
        cues = self.file("cues.csv", CUES)
        self.run_import(cues)
        self.run_import(cues)
        self.assertIn("items 4", program.run("--check", self.list).stdout)

    def test_an_edit_list_does_not_tell_its_rate(self):
        edits = self.file("evening.edl", EDITS)
        done = self.run_import(edits)
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertIn("it does not state the frame rate; add --rate\n", done.stderr)
        self.assertFalse(os.path.exists(self.list))
        self.assertEqual(self.run_import(edits, "--rate", "24", "--times", "record").returncode, 0)
        self.assertEqual(program.run("--check", self.list).stdout, "reel 7: items 1, 10:00 in all\n")

    def test_what_is_no_list_stays_as_it_is(self):
        other = self.file("notes.txt", "mine")
        done = program.run("--import", self.file("cues.csv", CUES), "--to", other)
        self.assertEqual(done.returncode, 2)
        with open(other, encoding="utf-8") as file:
            self.assertEqual(file.read(), "mine")

    def test_files_that_are_none_are_refused_in_one_line(self):
        with open(self.path("long.csv"), "wb") as file:
            file.truncate(1 << 30)
        for path, fault in [(self.path("none.csv"), "there is no such file"),
                            (self.folder, "it is not a regular file"),
                            (self.path("long.csv"), "it is longer than 64 MiB")]:
            done = self.run_import(path)
            self.assertEqual((done.returncode, done.stderr),
                             (2, f'vexa-remote: "{path}": {fault}\n'))
        done = program.run("--check", self.path("none.vexaB"))
        self.assertEqual(done.returncode, 2)
