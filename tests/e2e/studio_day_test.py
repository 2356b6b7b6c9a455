"""A day in the studio: from somebody's spreadsheet to two reels, their sheets, and proof that the
timecode is on them."""

import csv
import datetime
import re
import subprocess
import unittest

from support import desktop, program
from support.batch_list import BatchList
from support.items import Item, items_in, list_file
from support.studio import Recording, StudioTest
from support.waiting import eventually
from support.window import Window
from support.wire import stripe

INTRO = Item(1, "Intro", "01:00:00:00", "01:00:02:00", "25 fps", "MTC")
SONG = Item(1, 'Song; "live"', "01:00:02:00", "01:00:04:00", "25 fps", "MTC")
DIALOGUE = Item(2, "Dialogue – Ä", "02:00:00:00", "02:00:02:12", "25 fps", "MTC")
STRIPED = [INTRO, SONG, DIALOGUE]
# The song begins too early here, and the dialogue is a little short.
IMPORTED = [INTRO, SONG._replace(start="01:00:01:00"), DIALOGUE._replace(stop="02:00:02:00")]
OVERLAP = f"Row 2, “{SONG.title}” overlaps “Intro”, which ends at 01:00:02:00"


def setUpModule():
    desktop.start()


def write_spreadsheet(path, items):
    """As a spreadsheet for Windows does it where the comma is the decimal sign."""
    with open(path, "w", encoding="utf-8-sig", newline="") as file:
        rows = csv.writer(file, delimiter=";")
        rows.writerow(["Tape", "Title", "In", "Out", "Rate", "Sync"])
        rows.writerows(item.row for item in items)
        rows.writerow([""] * len(Item._fields))  # emptied, not removed


class FromASpreadsheetToTheReels(StudioTest):
    def setUp(self):
        super().setUp()
        self.write_settings(vexadelay=3, vexapauseforreel="true")
        self.open_generator(48000, 512)
        self.window = Window("--midi", "jack", "--destination", "Vexa Generator")
        self.addCleanup(self.window.close)
        self.batch = BatchList(self.window)

    def test_is_imported_checked_striped_printed_and_proved(self):
        self.import_rows()
        self.correct_what_the_check_finds()
        file = self.folder / "Day 1.vexaB"
        self.window.choose("File", "Save As…")
        self.window.choose_file("Save Batch List", file)
        tape = self.folder / "tape.wav"
        began = datetime.datetime.now().replace(second=0, microsecond=0)
        self.stripe(tape)
        self.window.keys("ctrl+s")
        eventually("it is saved", lambda: items_in(file.read_bytes()) == STRIPED)
        self.check_sheets(began)
        self.check_recording(file, tape)

    def import_rows(self):
        cues = self.folder / "cues.csv"
        write_spreadsheet(cues, IMPORTED)
        self.window.choose("File", "Import…")
        self.window.choose_file("Import", cues)
        self.window.await_title("Import cues.csv")
        eventually("the panel has read", lambda: self.window.is_enabled("Add Rows"))
        self.window.keys("Return")
        self.batch.await_items(IMPORTED)

    def correct_what_the_check_finds(self):
        self.batch.set_up(SONG)
        self.window.choose("Batch List", "Check List…")
        eventually("the overlap is found", lambda: self.window.is_shown(OVERLAP))
        self.window.await_active("Check List")
        self.window.keys("Tab", "Down", "Return")
        eventually("its row is selected", lambda: self.batch.selected() == [1])
        self.window.choose("Batch List", "Replace Row by Settings")
        nothing = "Nothing to report."
        eventually("nothing is left to say", lambda: self.window.is_shown(nothing))
        self.window.keys("Escape")
        self.window.await_title("Check List", there=False)

    def stripe(self, tape):
        """Stripes the list and corrects its last row in the first pause."""
        # A row that begins brings its own rate and sync type to the settings.
        self.batch.set_up(DIALOGUE)
        self.window.press("Batch striping")
        recording = Recording("Vexa Generator:LTC", tape)
        self.window.keys("F6")
        eventually("the first row is striped",
                   lambda: self.window.shown("Progress").startswith("next Song"))
        self.batch.select(2)
        self.window.choose("Batch List", "Replace Row by Settings")
        self.batch.await_items(STRIPED)
        self.window.await_alert("Please load reel 2, then hit Continue")
        self.window.press("Continue")
        self.batch.await_marks(["Finished"] * 3)
        eventually("the signal ends", lambda: self.text().count("stop at") == 3)
        recording.end()

    def check_sheets(self, began):
        self.window.choose("File", "Export as PDF…")
        sheet = self.folder / "sheet.pdf"
        self.window.choose_file("Export as PDF", sheet)
        eventually("the file is written", sheet.exists)
        read = subprocess.run(["pdftotext", "-layout", sheet, "-"], capture_output=True,
                              encoding="utf-8", check=True)
        self.assertEqual(read.stdout.count("\f"), 2)
        text = " ".join(read.stdout.split())
        for _, *cells in (item.row for item in STRIPED):
            title, start, stop, rate, sync = map(re.escape, cells)
            row = rf"{title} {start} {stop} 0:0\d {rate} {sync} (\d{{4}}-\d\d-\d\d \d\d:\d\d)"
            self.assertRegex(text, row)
            striped = datetime.datetime.fromisoformat(re.search(row, text)[1])
            self.assertTrue(began <= striped <= datetime.datetime.now(), text)


class RenderedAndRecorded(StudioTest):
    """One list as files, and as the generator's signal."""

    SECOND = 48000
    FRAME = {"24 fps": 2000, "25 fps": 1920, "30 df": 1601.6}  # in samples
    LIST = [*STRIPED, Item(3, "Drop", "00:00:59:00", "00:01:01:00", "30 df", "DTL"),
            Item(3, "Film", "23:59:58:00", "23:59:59:23", "24 fps", "MTC")]
    FRAMES = [50, 50, 62, 58, 47]

    def setUp(self):
        super().setUp()
        self.open_generator(self.SECOND, 512)
        self.file = self.folder / "Day 1.vexaB"
        self.file.write_bytes(list_file(self.LIST))

    def record(self):
        """Records the list with every message at its sample, so that no xrun costs a frame."""
        events, sample = [], self.SECOND
        for item, frames in zip(self.LIST, self.FRAMES):
            setup, start, stop = (message.hex(" ") for message in stripe(item))
            end = sample + round(frames * self.FRAME[item.rate])
            events += [f"{sample} {setup}", f"{sample} {start}", f"{end} {stop}"]
            sample = end + self.SECOND
        self.play(sample, events)
        recording = self.folder / "recording.wav"
        subprocess.run(["sox", "-t", "f32", "-r", str(self.SECOND), "-c", "1",
                        self.folder / "ltc", "-b", "24", recording], check=True)
        return recording

    def check(self, *recordings):
        done = program.run_beside("vexa-ltc", "check", self.file, *recordings)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("\n5 rows: 5 whole, 0 with faults, 0 missing; 0 on no row\n", done.stdout)

    def test_both_are_the_list(self):
        rendered = self.folder / "rendered"
        rendered.mkdir()
        done = program.run_beside("vexa-ltc", "render", self.file, "--to", rendered)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.check(*rendered.iterdir())
        self.check(self.record())


if __name__ == "__main__":
    unittest.main()
