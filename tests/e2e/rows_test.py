"""Rows as people work with them: cut, copied, pasted, imported, checked and printed."""

import subprocess
import unittest

from support import desktop
from support.cases import DeviceTest
from support.items import Item
from support.waiting import eventually

ONE = Item(1, "one", "01:00:00:00", "01:10:00:00", "25 fps", "MTC")
TWO = Item(2, 'say "hm", =1+1', "01:00:00:00", "01:10:00:00", "30 df", "FSK")
THREE = Item(3, "日本", "01:00:00:00", "01:10:00:00", "24 fps", "DTL")


def setUpModule():
    desktop.start()


class Rows(DeviceTest):
    def open_rows(self, *items):
        return self.open_list(items)

    def test_are_cut_pasted_and_taken_back(self):
        window, batch, _ = self.open_rows(ONE, TWO, THREE)
        batch.select(1)
        window.keys("ctrl+x")
        batch.await_items([ONE, THREE])
        eventually("the row is on the clipboard", lambda: 'say ""hm""' in desktop.copied_text())
        self.assertEqual(window.menu("Edit")[0], "Undo Cut")
        window.keys("ctrl+v")
        batch.await_items([ONE, TWO, THREE])
        self.assertEqual(window.menu("Edit")[0], "Undo Paste")
        window.keys("ctrl+z")
        batch.await_items([ONE, THREE])
        window.keys("ctrl+z")
        batch.await_items([ONE, TWO, THREE])
        window.keys("ctrl+a", "ctrl+d")
        batch.await_items([ONE, ONE, TWO, TWO, THREE, THREE])

    def test_come_from_a_spreadsheet(self):
        window, batch, _ = self.open_rows(ONE)
        batch.select(0)
        with desktop.clipboard("Title\tTape\tIn\tOut\tRate\tSync\n"
                               "日本\t3\t1:00:00:00\t1:10:00:00\t24\tdtl\n"):
            window.keys("ctrl+v")
            batch.await_items([ONE, THREE])

    def test_that_cannot_be_taken_are_named_and_the_rest_can_be_taken(self):
        window, batch, _ = self.open_rows(ONE)
        batch.select(0)
        with desktop.clipboard("soon\n3\t日本\t01:00:00:00\t01:10:00:00\t24\tDTL\n"):
            window.keys("ctrl+v")
            window.await_title("Paste")
            eventually("the panel has read", lambda: window.is_enabled("Add Rows"))
            window.keys("Escape")
            window.await_title("Paste", there=False)
            batch.await_items([ONE])
            window.keys("ctrl+v")
            window.await_title("Paste")
            eventually("the panel has read", lambda: window.is_enabled("Add Rows"))
            window.keys("Return")
            batch.await_items([ONE, THREE])

    def test_that_are_too_many_are_not_pasted(self):
        window, batch, _ = self.open_rows(ONE)
        batch.select(0)
        with desktop.clipboard("1\tone\t01:00:00:00\t01:10:00:00\n" * 3_000_000):
            window.keys("ctrl+v")
            window.await_alert("What is on the clipboard is too long for a list.")
        window.answer("OK")
        with desktop.clipboard("\t".join(THREE.row)):
            window.keys("ctrl+v")
            batch.await_items([ONE, THREE])

    def test_of_an_endless_edit_list_are_not_imported(self):
        window, batch, path = self.open_rows(ONE)
        edits = path.parent / "edits.edl"
        with open(edits, "w", encoding="ascii") as file:
            file.write("TITLE: x\n")
            file.truncate(1 << 30)
        before = window.program.peak_memory()
        window.choose("File", "Import…")
        window.choose_file("Import", edits)
        window.await_title("Import edits.edl")
        refusal = "Nothing can be read: it is longer than 64 MiB."
        eventually("it is refused", lambda: window.is_shown(refusal))
        self.assertFalse(window.is_enabled("Add Rows"))
        self.assertLess(window.program.peak_memory() - before, 64)
        window.press("Cancel")
        window.await_title("Import edits.edl", there=False)
        batch.await_items([ONE])

    def test_times_are_copied_and_pasted(self):
        window = self.open_window()
        window.focus("Start time")
        with desktop.clipboard("01020304"):
            window.keys("ctrl+v", "Return")
            window.await_shown("Start time", "01:02:03:04")
        window.keys("ctrl+c")
        eventually("the time is on the clipboard",
                   lambda: desktop.copied_text() == "01:02:03:04")

    def test_become_the_settings_and_settings_rows(self):
        window, batch, _ = self.open_rows(ONE, TWO)
        batch.select(0)
        window.choose("Batch List", "Take Settings from Row")
        window.await_shown("Stop time", "01:10:00:00")
        self.assertEqual(window.menu("Edit")[0], "Undo Take Settings from Row")
        batch.select(1)
        window.choose("Batch List", "Replace Row by Settings")
        batch.await_items([ONE, ONE._replace(reel=2, title=TWO.title)])
        window.keys("ctrl+z")
        batch.await_items([ONE, TWO])

    def test_come_from_a_file_and_go_to_one(self):
        window, batch, path = self.open_rows(ONE)
        cues = path.parent / "cues.csv"
        cues.write_text("Title;Tape;In;Out;Rate;Sync\n日本;3;01:00:00:00;01:10:00:00;24;DTL\n")
        window.choose("File", "Import…")
        window.choose_file("Import", cues)
        window.await_title("Import cues.csv")
        eventually("the panel has read", lambda: window.is_enabled("Add Rows"))
        window.keys("Return")
        window.await_title("Import cues.csv", there=False)
        batch.await_items([ONE, THREE])
        self.assertEqual(window.menu("Edit")[0], "Undo Import")
        window.choose("File", "Export…")
        written = path.parent / "out.csv"
        window.choose_file("Export", written)
        eventually("the file is written", written.exists)
        self.assertEqual(written.read_text(encoding="utf-8-sig").splitlines()[2],
                         "3,日本,01:00:00:00,01:10:00:00,24 fps,DTL")

    def test_are_printed_into_a_file(self):
        window, _, path = self.open_rows(ONE, THREE)
        window.choose("File", "Export as PDF…")
        written = path.parent / "sheet.pdf"
        window.choose_file("Export as PDF", written)
        eventually("the file is written", written.exists)
        text = subprocess.run(["pdftotext", written, "-"], capture_output=True, encoding="utf-8",
                              check=True).stdout
        for part in ("Reel 1", "Reel 3", "Page 2 of 2", "Day 1"):
            self.assertIn(part, text)

    def test_are_checked_while_the_list_changes(self):
        overlapping = ONE._replace(title="two", start="01:05:00:00", stop="01:20:00:00")
        window, batch, _ = self.open_rows(ONE, TWO)
        window.choose("Batch List", "Check List…")
        window.await_title("Check List")
        self.assertTrue(window.is_shown("Nothing to report."))
        window.await_active("Check List")
        with desktop.clipboard("\t".join(overlapping.row)):
            window.choose("Edit", "Paste")
            batch.await_items([ONE, overlapping, TWO])
        finding = "Row 2, “two” overlaps “one”, which ends at 01:10:00:00"
        eventually("the panel names it", lambda: window.is_shown(finding))
        window.keys("Tab", "Down", "Return")
        eventually("its row is selected", lambda: batch.selected() == [1])
        window.keys("Escape")
        window.await_title("Check List", there=False)


if __name__ == "__main__":
    unittest.main()
