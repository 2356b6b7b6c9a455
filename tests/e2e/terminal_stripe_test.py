"""A stripe in the terminal, seen by a receiver on a JACK server."""

import os
import signal
import time
import unittest

from support import program
from support.cases import DeviceTest, ProgramTest
from support.jack import MidiMonitor
from support.wire import STOP, play


def stripe(start, stop, rate, sync_type, midi="jack"):
    return [
        *["--midi", midi, "--stripe", "--start", start, "--stop", stop],
        *["--rate", rate, "--type", sync_type],
    ]


class TerminalStripe(DeviceTest):
    def test_sends_the_frames_in_order_and_runs_no_shorter_than_its_timecode(self):
        before = time.monotonic()
        done = program.run(*stripe("01:00:00:00", "01:00:02:00", "25 fps", "DTL"))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        moments = self.expect_messages(STOP, *play(1, 0, 0, 0, 5), STOP, STOP)
        self.assertGreaterEqual(moments[4] - before, 2)

    def test_writes_a_line_a_second_where_no_terminal_is(self):
        done = program.run(*stripe("23:59:57:10", "23:59:59:00", "24 fps", "FSK"))
        line = " left  23:59:57:10 to 23:59:59:00, 24 fps, FSK"
        times = ["23:59:57:10  0:02", "23:59:58:00  0:01", "23:59:59:00  0:00"]
        destination, *lines = done.stdout.splitlines()
        self.assertEqual(destination, "Destination: midi-monitor:input")
        self.assertEqual(lines, [time + line for time in times])
        self.expect_messages(STOP, *play(23, 59, 57, 10, 8), STOP, STOP)

    def test_skips_the_dropped_frames(self):
        done = program.run(*stripe("00:00:59:00", "00:01:01:02", "30 df", "MTC"))
        times = [line.split()[0] for line in done.stdout.splitlines()[1:]]
        self.assertEqual(times[:3], ["00:00:59:00", "00:01:00:02", "00:01:01:00"])
        self.expect_messages(STOP, *play(0, 0, 59, 0, 3), STOP, STOP)

    def test_the_last_time_is_one_of_the_stripes_own_rate(self):
        done = program.run(*stripe("00:00:00:20", "00:00:01:29", "30 fps", "MTC"))
        times = [line.split()[0] for line in done.stdout.splitlines()[1:]]
        self.assertEqual(times, ["00:00:00:20", "00:00:01:00"])
        self.expect_messages(STOP, *play(0, 0, 0, 20, 2), STOP, STOP)

    def test_goes_to_the_destination_that_is_named(self):
        other = MidiMonitor("Tape Room")
        self.addCleanup(other.stop)
        stripe_there = stripe("10:00:00:00", "10:00:00:05", "30 fps", "MTC")
        listed = program.run("--midi", "jack", "--destinations").stdout.splitlines()
        (identifier,) = (line.split("\t")[1] for line in listed if "Tape Room" in line)
        for name in ("tape", identifier):
            with self.subTest(name):
                done = program.run(*stripe_there, "--destination", name)
                self.assertEqual(done.returncode, 0)
                self.assertTrue(done.stdout.startswith("Destination: Tape Room:input\n"))
                received = [message for _, message in other.take(7)]
                # One extra stop, as a newly chosen generator is stopped first.
                self.assertEqual(received, [STOP, STOP, *play(10, 0, 0, 0, 2), STOP, STOP])
        self.expect_messages()

    def test_a_time_that_does_not_exist_sends_nothing(self):
        done = program.run(*stripe("00:00:00:24", "00:00:01:00", "24 fps", "MTC"))
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.expect_messages()

    def test_interrupted_stops_the_generator_before_it_ends(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(signal=number.name):
                running = program.start("--midi", "jack", "--stripe", "--start", "02:00:00:00")
                self.addCleanup(running.stop)
                self.expect_messages(STOP, *play(2, 0, 0, 0, 2))
                running.send_signal(number)
                self.assertEqual(running.wait(), 130)
                self.expect_messages(STOP)


class TerminalStripeWithoutMidi(ProgramTest):
    def test_runs_to_its_end(self):
        done = program.run(*stripe("00:59:59:20", "01:00:00:00", "25 fps", "MTC", midi="none"))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        lines = done.stdout.splitlines()
        self.assertEqual(lines[0], "Destination: none")
        self.assertEqual(lines[-1].split()[0], "01:00:00:00")

    def test_says_that_nothing_is_sent_where_no_destination_is(self):
        os.environ["JACK_DEFAULT_SERVER"] = "vexa-none"
        done = program.run(*stripe("00:59:59:20", "01:00:00:00", "25 fps", "MTC"))
        self.assertEqual(done.returncode, 3)
        no_destination = "vexa-remote: there is no MIDI destination: nothing will be sent\n"
        self.assertEqual(done.stderr, no_destination)
        self.assertEqual(done.stdout.splitlines()[-1].split()[0], "01:00:00:00")


if __name__ == "__main__":
    unittest.main()
