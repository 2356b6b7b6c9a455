"""vexa-ltc, as its user has it: a list to sound files, and recordings against the list. Recordings
are damaged, and files are read, by programs that are not ours."""

import csv
import io
import pathlib
import signal
import subprocess
import tempfile
import unittest

from support import desktop, program
from support.cases import ProgramTest
from support.items import Item, list_file
from support.processes import Child
from support.studio import Recording, StudioTest
from support.waiting import eventually
from support.window import Window

VEXA_LTC = program.beside("vexa-ltc")
LIST = [
    Item(1, "Intro", "01:00:00:00", "01:00:03:00", "25 fps", "MTC"),
    Item(1, "Song/Part 2", "01:00:03:00", "01:00:06:12", "25 fps", "DTL"),
    Item(12, "", "00:00:58:00", "00:01:01:00", "30 df", "MTC"),
    Item(12, "Tone", "02:00:00:00", "02:00:01:00", "24 fps", "FSK"),
    Item(13, "Backwards", "03:00:00:00", "02:00:00:00", "30 fps", "MTC"),
    Item(13, "No such time", "00:01:00:00", "00:02:00:00", "30 df", "MTC"),
    Item(13, "Last", "23:59:57:00", "23:59:59:23", "24 fps", "MTC"),
]
GOOD = [item for item in LIST if item.title in ("Intro", "Song/Part 2", "", "Last")]
NAMES = ["01 Reel 1 - Intro.wav", "02 Reel 1 - Song_Part 2.wav", "03 Reel 12.wav",
         "07 Reel 13 - Last.wav"]


def run(*arguments):
    return program.run_beside("vexa-ltc", *arguments)


class TapeTest(ProgramTest):
    def setUp(self):
        super().setUp()
        folder = tempfile.TemporaryDirectory(prefix="vexa-e2e-tape-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.list = self.folder / "Day 1.vexaB"
        self.list.write_bytes(list_file(GOOD))
        self.tapes = self.folder / "tapes"
        self.tapes.mkdir()

    def render(self, *arguments, status=0):
        done = run("render", *arguments)
        self.assertEqual(done.returncode, status, done.stderr)
        return done

    def check(self, *arguments, status=0):
        done = run("check", *arguments)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done.stdout

    def files(self):
        return sorted(path.name for path in self.tapes.iterdir())


class Rendering(TapeTest):
    def test_rows_without_timecode_are_named_and_the_rest_is_done(self):
        self.list.write_bytes(list_file(LIST))
        done = self.render(self.list, "--to", self.tapes, status=1)
        self.assertEqual(self.files(), NAMES)
        self.assertEqual(done.stderr.splitlines(), [
            'vexa-ltc: row 4 "Tone" is not rendered: FSK has no form in software',
            'vexa-ltc: row 5 "Backwards" is not rendered: the stop time 02:00:00:00 is not after '
            "the start time 03:00:00:00",
            'vexa-ltc: row 6 "No such time" is not rendered: start time 00:01:00:00: no frame 0 in '
            "second 0 of minute 1 at 30 df",
        ])
        self.assertIn("01 Reel 1 - Intro.wav: 01:00:00:00 to 01:00:02:24, 25 fps\n", done.stdout)

    def test_files_say_what_they_are(self):
        self.render(self.list, "--to", self.tapes)
        file = self.tapes / "03 Reel 12.wav"
        told = subprocess.run(["sndfile-metadata-get", "--all", file], capture_output=True,
                              text=True, check=True).stdout
        self.assertRegex(told, r"Description *: Reel 12, 00:00:58:00, 30 df\n")
        self.assertRegex(told, r"Origination date *: *\n")
        told = subprocess.run(["sndfile-info", "--broadcast", file], capture_output=True,
                              text=True, check=True).stdout
        self.assertRegex(told, r"Time ref *: 0x0*2a85e0 ")  # 58 * 30 frames of 1601.6
        info = subprocess.run(["soxi", file], capture_output=True, text=True, check=True).stdout
        self.assertIn("24-bit Signed Integer PCM", info)
        self.assertIn("48000", info)

    def test_the_same_list_gives_the_same_bytes(self):
        self.render(self.list, "--to", self.tapes)
        before = {name: (self.tapes / name).read_bytes() for name in self.files()}
        self.render(self.list, "--to", self.tapes, "--force")
        self.assertEqual(before, {name: (self.tapes / name).read_bytes() for name in self.files()})

    def test_nothing_is_replaced_unless_it_may(self):
        kept = self.tapes / NAMES[0]
        kept.write_text("another's")
        done = self.render(self.list, "--to", self.tapes, status=1)
        self.assertEqual(done.stderr, f'vexa-ltc: "{kept}" exists already\n')
        self.assertEqual(kept.read_text(), "another's")
        self.assertEqual(len(self.files()), 4)
        self.render(self.list, "--to", self.tapes, "--force")
        self.assertNotEqual(kept.read_bytes(), b"another's")

    def test_a_reel_has_the_pause_of_the_preferences_between_its_rows(self):
        self.write_settings(vexadelay=2)
        self.render(self.list, "--to", self.tapes, "--reels")
        self.assertEqual(self.files(), ["Reel 1.wav", "Reel 12.wav", "Reel 13.wav"])
        report = self.check(self.tapes / "Reel 1.wav")
        self.assertIn("\n0:00:05.000  01:00:03:00  01:00:06:11", report)
        self.check(self.list, *(self.tapes / name for name in self.files()))

    def test_an_interrupt_leaves_no_half_file(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            child = Child(VEXA_LTC, "render", "--start", "00:00:00:00", "--stop", "23:00:00:00",
                          self.tapes / "long.wav", stderr=subprocess.DEVNULL)
            eventually("it is being written", self.files)
            child.send_signal(number)
            self.assertEqual(child.wait(), 130)
            self.assertEqual(self.files(), [])

    def test_a_full_disk_is_one_line(self):
        done = subprocess.run(
            ["prlimit", "--fsize=100000", VEXA_LTC, "render", self.list, "--to", self.tapes,
             "--rows", "1"], capture_output=True, text=True, check=False, restore_signals=False,
            preexec_fn=lambda: signal.signal(signal.SIGXFSZ, signal.SIG_IGN))
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertEqual(done.stderr,
                         f'vexa-ltc: cannot write "{self.tapes / NAMES[0]}": File too large\n')
        self.assertEqual(self.files(), [])

    def test_misuse_is_told(self):
        for arguments, message in (
            ((), "render or check? See --help"),
            (("render", self.folder / "none", "--to", "."), "does not exist"),
            (("render", "/dev/null", "--to", "."), "is not a batch list, or is empty"),
            (("render", self.list, "--to", ".", "--rows", "9"), "there is no row 9"),
            (("render", self.list, "--to", self.folder / "none"), "is not a folder"),
            (("check", self.folder / "none.wav"), "No such file or directory"),
        ):
            done = run(*arguments)
            self.assertEqual(done.returncode, 2)
            self.assertIn(message, done.stderr)
            self.assertEqual(done.stderr.count("\n"), 1)


class Checking(TapeTest):
    """Ten seconds from 01:00:00:00 at 25 frames, and what sox makes of them."""

    def setUp(self):
        super().setUp()
        self.clean = self.folder / "clean.wav"
        self.render("--start", "01:00:00:00", "--stop", "01:00:10:00", "--rate", "25", self.clean)

    def sox(self, *arguments, name="made.wav", inputs=None):
        made = self.folder / name
        subprocess.run(["sox", "-D", *(inputs or [self.clean]), made, *map(str, arguments)],
                       check=True)
        return made

    def faults(self, recording):
        """The place and the text of each fault."""
        rows = list(csv.DictReader(io.StringIO(run("check", "--csv", recording).stdout)))
        return [(row["place"], row["text"]) for row in rows if row["kind"] == "fault"]

    def stretches(self, recording):
        rows = list(csv.DictReader(io.StringIO(run("check", "--csv", recording).stdout)))
        return [row for row in rows if row["kind"] == "stretch"]

    def test_a_clean_one_passes(self):
        self.check(self.clean)

    def test_what_does_no_harm_passes(self):
        for name, *effect in (
            ("inverted.wav", "vol", "-1"),
            ("quiet.wav", "vol", "-22dB"),
            ("loud.wav", "vol", "17dB"),
            ("direct current.wav", "dcshift", "0.2"),
            ("44100.wav", "rate", "44100"),
            ("dull.wav", "lowpass", "6000"),
            ("tape.flac", "channels", "2"),
            ("tape.aiff", "vol", "1"),
        ):
            with self.subTest(name):
                made = self.sox(*effect, name=name)
                self.check(made)
                (stretch,) = self.stretches(made)
                self.assertEqual((stretch["first"], stretch["last"], stretch["frames"]),
                                 ("01:00:00:00", "01:00:09:24", "250"))

    def test_hum_does_no_harm(self):
        hum = self.sox("synth", "11", "sine", "50", "vol", "0.06", name="hum.wav",
                       inputs=["-n", "-r", "48000", "-b", "24"])
        made = self.sox(inputs=["-m", "-v", "1", hum, "-v", "1", self.clean])
        (stretch,) = self.stretches(made)
        self.assertEqual((stretch["last"], stretch["text"]), ("01:00:09:24", "0 unread"))

    def test_a_cut_is_named(self):
        parts = [self.sox("trim", 0, 4.123, name="a.wav"), self.sox("trim", 4.423, name="b.wav")]
        made = self.sox(inputs=parts)
        self.assertEqual(self.faults(made),
                         [("0:00:04.120", "8 frames missing, 01:00:04:03 to 01:00:04:10")])
        self.check(made, status=1)

    def test_a_second_recording_joined_is_named(self):
        other = self.folder / "other.wav"
        self.render("--start", "02:00:00:00", "--stop", "02:00:05:00", "--rate", "25", other)
        made = self.sox(inputs=[self.clean, other])
        self.assertEqual(self.faults(made),
                         [("0:00:10.000", "89750 frames missing, 01:00:10:00 to 01:59:59:24")])

    def test_a_repeat_is_named(self):
        parts = [self.sox("trim", 0, 5, name="a.wav"), self.sox("trim", 4, name="b.wav")]
        self.assertEqual(self.faults(self.sox(inputs=parts)),
                         [("0:00:05.000", "back by 25 frames, to 01:00:04:00")])

    def test_a_pause_is_named(self):
        parts = [self.sox("trim", 0, 5, "pad", 0, 0.3, name="a.wav"),
                 self.sox("trim", 5, name="b.wav")]
        self.assertEqual(self.faults(self.sox(inputs=parts)),
                         [("0:00:04.960",
                           "stands still for 0.300 s before 01:00:05:00, without 1 frame")])

    def test_a_drop_out_is_named(self):
        parts = [self.sox("trim", 0, 5.013, "pad", 0, 0.004, name="a.wav"),
                 self.sox("trim", 5.017, name="b.wav")]
        self.assertEqual(self.faults(self.sox(inputs=parts)),
                         [("0:00:05.000", "1 frame unread, 01:00:05:00")])

    def test_a_wrong_speed_is_named(self):
        for speed, text in (("1.01", "1.000 % too fast"), ("0.999", "0.100 % too slow"),
                            ("1.1", "10.000 % too fast"), ("0.9", "10.000 % too slow")):
            with self.subTest(speed):
                made = self.sox("speed", speed)
                self.assertEqual(self.faults(made), [("0:00:00.000", text)])
                self.assertEqual(self.stretches(made)[0]["frames"], "250")

    def test_a_start_in_mid_word_is_told(self):
        (stretch,) = self.stretches(self.sox("trim", 2.017))
        self.assertEqual((stretch["place"], stretch["first"]), ("0:00:00.023", "01:00:02:01"))

    def test_rows_are_found_whole_with_faults_or_missing(self):
        self.render(self.list, "--to", self.tapes)
        files = [self.tapes / name for name in self.files()]
        self.check(self.list, *files)
        cut = self.sox("trim", 0, 1, name="cut.wav", inputs=[files[1]])
        report = self.check(self.list, files[0], cut, self.clean, files[3], status=1)
        self.assertRegex(report, r"\n1 +1 +Intro .* whole ")
        self.assertRegex(report, r"\n2 +1 +Song/Part 2 .* FAULTS ")
        self.assertRegex(report, r"\n3 +12 +00:00:58:00 .* MISSING\n")
        self.assertRegex(report, r"\n4 +13 +Last .* whole ")
        self.assertIn("On no row:\n", report)

    def test_what_is_no_timecode_is_no_proof(self):
        tone = self.sox("synth", "5", "sine", "1000", name="tone.wav",
                        inputs=["-n", "-r", "48000", "-b", "16"])
        self.assertIn("no timecode", self.check(tone, status=1))


class ADayInTheStudio(StudioTest):
    @classmethod
    def setUpClass(cls):
        desktop.start()

    def test_a_list_striped_from_the_window_is_on_the_tape(self):
        self.write_settings(vexadelay=2, vexapauseforreel=0)
        self.open_generator(48000, 512)
        items = self.folder / "Day 1.vexaB"
        items.write_bytes(list_file(GOOD))
        tape = self.folder / "tape.wav"
        recording = Recording("Vexa Generator:LTC", tape)
        window = Window("--midi", "jack", "--destination", "Vexa Generator", str(items))
        self.addCleanup(window.close)
        eventually("the generator is reached", lambda: "  stop" in self.text())
        window.press("Batch striping")
        window.press("Play")
        eventually("the list is striped", lambda: self.text().count("stop at") >= len(GOOD),
                   seconds=60)
        recording.end()
        self.check_recording(items, tape)

    def listen_to_a_stripe(self):
        """Returns a check that has heard a whole stripe and goes on listening."""
        self.open_generator(48000, 512)
        listening = Child(VEXA_LTC, "check", "--jack", "--connect", "Vexa Generator:LTC",
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(listening.stop)
        self.addCleanup(listening.stdout.close)
        self.addCleanup(listening.stderr.close)
        self.assertIn("listening at vexa-ltc:LTC", listening.stderr.readline())
        program.run("--midi", "jack", "--destination", "Vexa Generator", "--stripe", "--start",
                    "00:59:59:00", "--stop", "01:00:01:00", "--rate", "25 fps")
        eventually("the generator has stopped", lambda: "stop at" in self.text())
        return listening

    def test_a_tape_is_checked_while_it_plays(self):
        listening = self.listen_to_a_stripe()
        listening.stop(signal.SIGINT)
        self.assertRegex(listening.stdout.read(), r"00:59:59:00  01:00:0\d:\d\d .* 25 fps  -18\.0")
        self.assertEqual(listening.wait(), 0)

    def test_a_server_that_crashes_ends_the_check(self):
        listening = self.listen_to_a_stripe()
        self.server.kill()
        self.assertEqual(listening.wait(), 1)
        self.assertIn("incomplete: the JACK server has ended\n", listening.stdout.read())


if __name__ == "__main__":
    unittest.main()
