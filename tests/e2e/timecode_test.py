"""The signals of the software generator, driven by the window, and recorded and decoded by
independent programs."""

import itertools
import math
import re
import unittest

import mido

from support import desktop
from support.studio import RATES, Recording, StudioTest, words
from support.waiting import eventually
from support.window import Window

STARTS = ["00:00:58:00", "00:09:58:00", "23:59:58:00", "01:02:03:07"]


def setUpModule():
    desktop.start()


class MidiTimecode(StudioTest):
    """Quarter frames, recorded with their samples and decoded by mido."""

    SECOND = 48000
    BITS = {"24 fps": 0, "25 fps": 1, "30 df": 2, "30 fps": 3}

    def recorded(self, seconds, events):
        self.play(int(seconds * self.SECOND), events)
        for line in (self.folder / "mtc").read_text().splitlines():
            sample, _, message = line.partition(" ")
            yield int(sample), mido.Message.from_hex(message)

    def check(self, rate, code, interval):
        """Checks a second from 00:00:59:15, set up and started at samples without common
        divisors."""
        frame = "F0 7D 42 00 00 3B 0F {} F7".format
        setup, *quarters = self.recorded(
            1.5, [f"1013 {frame(code)}", f"9973 {frame('7F')}",
                  "57973 F0 7D 42 00 00 00 00 00 F7"])
        self.assertEqual(setup[0], 1013)
        hours = self.BITS[rate] << 5
        self.assertEqual(setup[1].data, (0x7F, 0x7F, 1, 1, hours, 0, 59, 15))

        # 15 is odd, so they begin a frame later. The first word begins 24 samples after the start.
        begin = 9973 + 24 + interval
        read, times = [0] * 8, []
        for number, (sample, message) in enumerate(quarters):
            self.assertEqual((message.type, message.frame_type), ("quarter_frame", number % 8))
            self.assertLess(abs(sample - (begin + number * interval / 4)), 1)
            read[number % 8] = message.frame_value
            if number % 8 == 7:
                self.assertEqual(read[7] >> 1, self.BITS[rate])
                low, high = read[::2], read[1::2]
                frames, seconds, minutes, _ = (l + 16 * h for l, h in zip(low, high))
                times.append(f"00:{minutes:02}:{seconds:02}:{frames:02}")
        everyone = itertools.islice((w[:11] for w in words("00:00:59:15", "", rate)), 1, None, 2)
        self.assertEqual(times, list(itertools.islice(everyone, len(times))))
        self.assertEqual(len(quarters), math.ceil((57973 - begin) / (interval / 4)))

    def test_is_read_at_its_samples(self):
        self.open_generator(self.SECOND, 256)
        self.check("24 fps", "00", self.SECOND / 24)
        self.check("25 fps", "01", self.SECOND / 25)
        self.check("30 fps", "02", self.SECOND / 30)
        self.check("30 df", "03", self.SECOND * 1001 / 30000)


class LinearTimecode(StudioTest):
    """LTC, recorded by jack_rec and decoded by libltc."""

    def open(self, sample_rate, period):
        self.open_generator(sample_rate, period)
        self.window = Window("--midi", "jack", "--destination", "Vexa Generator")
        self.addCleanup(self.window.close)

    def run_once(self, start, rate, until):
        """Makes one run. Returns its start, the last number that the generator reports, and the
        rate."""
        self.window.press(rate)
        self.window.type_time("Start time", start)
        runs = self.text().count("stop at")
        self.window.press("Play")
        self.window.await_clock(until, no_later_than="20:00:00:00")  # not before midnight
        self.window.press("Stop")
        eventually("the generator has stopped", lambda: self.text().count("stop at") > runs)
        return start, re.findall(r"stop at (\S+)", self.text())[-1], rate

    def check(self, sample_rate, period, turn):
        """Makes a run at each rate; the turn decides which start goes with which rate."""
        self.open(sample_rate, period)
        recording = Recording("Vexa Generator:LTC", self.folder / "recording.wav")
        runs = []
        for number, rate in enumerate(RATES):
            start = STARTS[(number + turn) % len(STARTS)]
            hours, minutes, seconds, _ = (int(pair) for pair in start.split(":"))
            end = (hours * 3600 + minutes * 60 + seconds + 2) % 86400
            until = f"{end // 3600:02}:{end // 60 % 60:02}:{end % 60:02}:05"
            runs.append(self.run_once(start, rate, until))
        expected = [word for run in runs for word in words(*run)]
        self.assertEqual(recording.words(), expected, self.text())

    def test_is_read_frame_for_frame_at_44100(self):
        self.check(44100, 256, turn=0)

    def test_is_read_frame_for_frame_at_48000(self):
        self.check(48000, 512, turn=1)

    def test_is_read_frame_for_frame_at_96000(self):
        self.check(96000, 1024, turn=2)


if __name__ == "__main__":
    unittest.main()
