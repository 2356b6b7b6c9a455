"""sequencer_test.py BINARIES WORK: the programs on the ALSA sequencer of a real kernel.

Scenarios (scenarios/*/*.sh) run in a virtual machine; those that need only a sequencer run on this
machine if it has one. Some run twice, as their results must survive a restart of the machine. This
test checks the results.
"""

import pathlib
import re
import shutil
import sys
import unittest

import machine

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "e2e"))
from support.destination_words import claimed_messages  # noqa: E402

STOP = "F0 7D 42 00 00 00 00 00 F7"
RUN_SECONDS = 560
RESTARTED = ["usb/order", "usb/same_serial_number", "usb/serial_number"]

binaries, work = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])


def run_frames(second=0):
    """The messages of a stripe at "25 fps", DTL, from 01:00:00:00 or a later second: stops when the
    destination is chosen, at start-up and at Play, then setup and start, and two stops at the end."""
    time = f"F0 7D 42 01 00 {second:02X} 00"
    return [STOP] * 3 + [f"{time} 05 F7", f"{time} 7F F7"] + [STOP] * 2


def read_time(pieces):
    """The time that eight quarter frames carry, at 30 drop-frame."""
    low, high = pieces[::2], pieces[1::2]
    frames, seconds, minutes, hours = ((h & 0xF) << 4 | l & 0xF for l, h in zip(low, high))
    assert hours >> 5 == 2, f"rate {hours >> 5}"
    return f"{hours & 0x1F:02}:{minutes:02}:{seconds:02}:{frames:02}"


class Result:
    """The results of a scenario."""

    def __init__(self, scenario, results="first"):
        self.folder = work / results / scenario
        ended = self.text("ended").strip()
        assert ended == "0", f"{scenario} ended with {ended}:\n{self.text('output')}"

    def text(self, name):
        return (self.folder / name).read_text()

    def number(self, name):
        return float(self.text(name))

    def frames(self, name="frames"):
        return re.findall(r"System exclusive +(.*\S)", self.text(name))

    def destinations(self, name="destinations"):
        """Names and IDs, in order."""
        lines = (line.split("\t") for line in self.text(name).splitlines())
        return [(name, int(identifier)) for _, identifier, name, *_ in lines]

    def names(self, name="destinations"):
        return [name for name, _ in self.destinations(name)]

    def box_ids(self, name):
        return [identifier for name, identifier in self.destinations(name) if "Box" in name]


class SequencerTest(unittest.TestCase):
    maxDiff = None

    def assert_ended_on_time(self, result, seconds):
        """Checks a stripe of that many seconds. Allows nine more for a slow start on a busy machine
        and for closing a device; a program that waited for the device would take ten."""
        self.assertEqual(result.number("status"), 0)
        self.assertEqual(result.text("errors"), "")
        self.assertGreaterEqual(result.number("seconds"), seconds)
        self.assertLess(result.number("seconds"), seconds + 9)

    def test_a_virtual_port_is_listed_and_receives_all_frames_in_order(self):
        result = Result("sequencer/virtual_port")
        self.assertIn("aseqdump", result.names())
        self.assertEqual(result.frames(), run_frames())
        self.assert_ended_on_time(result, 0.4)

    def test_the_generator_understands_every_frame(self):
        result = Result("sequencer/generator")
        ready, *events = result.text("log").splitlines()
        self.assertEqual(ready, 'ready: "Vexa Generator" on ALSA')
        heard = [event.split("  ")[1:] for event in events]
        self.assertEqual([frame for frame, _ in heard], run_frames())
        self.assertEqual([meaning for _, meaning in heard[2:5]],
                         ["stop", "setup 01:00:00:00 25 fps DTL", "start 01:00:00:00"])
        self.assertRegex(heard[5][1], r"^stop at 01:00:00:\d\d$")

    def test_the_generator_puts_out_quarter_frames_of_what_it_runs(self):
        result = Result("sequencer/generator_mtc")
        heard = re.findall(r"(System exclusive|MTC quarter frame) +(.*[0-9A-Fa-f])",
                           result.text("mtc"))
        runs = []
        for kind, value in heard:
            if kind == "System exclusive":
                runs.append((value, []))
            else:
                runs[-1][1].append(int(value, 16))
        self.assertEqual([full for full, _ in runs],
                         [f"F0 7F 7F 01 01 40 00 3B {frame} F7" for frame in ("00", "0A")])
        log = re.findall(r"([\d.]+)  F0.*  (start|stop at)", result.text("log"))
        starts, stops = ([float(at) for at, what in log if what == kind]
                         for kind in ("start", "stop at"))
        for (_, pieces), first, start, stop in zip(runs, (0, 10), starts, stops, strict=True):
            self.assertAlmostEqual(len(pieces), (stop - start) * 4 * 29.97, delta=2)
            self.assertEqual([piece >> 4 for piece in pieces],
                             [count % 8 for count in range(len(pieces))])
            times = [read_time(pieces[at : at + 8]) for at in range(0, len(pieces) - 7, 8)]
            counted = [f"00:00:59:{frame:02}" for frame in range(first, 30, 2)]
            counted += [f"00:01:00:{frame:02}" for frame in range(2, 30, 2)]
            self.assertGreater(len(times), len(counted) - 2)
            self.assertEqual(times[: len(counted)], counted[: len(times)])

    def test_the_generator_tells_of_what_it_lost_and_goes_on(self):
        log = Result("sequencer/generator_overrun").text("log")
        self.assertEqual(log.count("lost: messages came faster than they could be read"), 1)
        self.assertRegex(log, r"(?s)lost: .*  setup 01:00:00:00 25 fps DTL\n.*  stop at 01:00:00")
        self.assertNotIn("malformed", log)

    def test_nothing_is_lost_in_many_runs_in_a_row(self):
        expected = [frame for second in range(10, 30) for frame in run_frames(second)]
        self.assertEqual(Result("sequencer/many_runs").frames(), expected)

    def test_midi_through_is_last_and_a_program_of_ours_is_not_listed(self):
        names = Result("sequencer/own_client").names()
        self.assertEqual(names[-1], "Midi Through Port-0")
        self.assertEqual([name for name in names if "Vexa" in name or "Output port" in name], [])

    def test_a_run_ends_on_time_when_its_receiver_goes_away(self):
        result = Result("sequencer/receiver_gone")
        self.assertEqual(result.frames(), run_frames()[:5])
        self.assert_ended_on_time(result, 3)

    def test_a_receiver_of_the_same_name_takes_nothing_from_the_chosen_one(self):
        result = Result("sequencer/twins")
        self.assertEqual(result.frames("frames-chosen"), run_frames()[:5])
        self.assertEqual(result.frames("frames-twin"), [])
        self.assertEqual(result.frames("frames-third"), [])

    def test_a_run_ends_on_time_when_its_receiver_takes_nothing_more(self):
        result = Result("sequencer/receiver_full")
        self.assertNotIn(run_frames()[3], result.frames())
        self.assert_ended_on_time(result, 1)

    def test_an_interrupted_run_sends_a_stop(self):
        result = Result("sequencer/interrupt")
        self.assertEqual(result.number("status"), 130)
        self.assertEqual(result.text("errors"), "")
        self.assertEqual(result.frames()[-2:], ["F0 7D 42 01 00 00 00 7F F7", STOP])

    def test_a_usb_interface_has_its_ports_by_their_names(self):
        result = Result("usb/ports")
        self.assertEqual(result.names(),
                         ["f_midi f_midi-0", "f_midi f_midi-1", "Timecode Box MIDI 1",
                          "Timecode Box MIDI 2", "Midi Through Port-0"])
        self.assertEqual(result.frames("frames-0"), run_frames())
        self.assertEqual(result.frames("frames-1"), run_frames())

    def test_a_usb_interface_that_comes_back_in_the_middle_of_a_run_gets_the_stop(self):
        result = Result("usb/replug")
        self.assertEqual(result.frames("frames-before"), run_frames()[:5])
        self.assertEqual(result.frames("frames-after"), [STOP] * 2)
        self.assert_ended_on_time(result, 5)

    def test_the_words_of_a_replugged_box_agree_with_what_it_received(self):
        result = Result("usb/status_words")
        before, after = result.frames("frames-before"), result.frames("frames-after")
        lines = result.text("words").splitlines()
        claimed = [message.hex(" ").upper() for message in claimed_messages(lines, mode=5)]
        self.assertEqual(claimed, before + after, lines)
        starts = [[f"F0 7D 42 {hour:02X} 00 00 00 {code} F7" for code in ("05", "7F")]
                  for hour in (1, 3)]
        self.assertEqual(before, [STOP, *starts[0]])
        self.assertEqual(after, [*starts[1], STOP])
        words = [line.split("\t")[1] for line in lines]
        self.assertEqual(words.count("Timecode Box MIDI 2 is not there"), 1)
        self.assertEqual(words.count("no destination"), 1)

    def test_ids_do_not_depend_on_the_order_of_plugging_in(self):
        for scenario in ("usb/order", "usb/same_serial_number"):
            result = Result(scenario)
            ids = result.box_ids("destinations-01")
            self.assertEqual(len(set(ids)), 4, scenario)
            self.assertEqual(result.box_ids("destinations-10"), ids[2:] + ids[:2], scenario)

    def test_ids_do_not_depend_on_the_order_in_which_buses_are_found(self):
        result = Result("usb/order")
        self.assertEqual(result.box_ids("destinations-buses"), result.box_ids("destinations-01"))

    def test_of_two_equal_interfaces_the_remembered_one_receives(self):
        self.assertEqual(Result("usb/order").frames(), run_frames())

    def test_an_id_finds_its_serial_number_in_another_socket(self):
        self.assertEqual(Result("usb/serial_number").frames(), run_frames())

    def test_an_id_is_the_same_with_a_twin_and_without(self):
        result = Result("usb/twins")
        alone = result.box_ids("destinations-alone")
        both = result.box_ids("destinations-both")
        self.assertEqual(both[:2], alone)
        self.assertEqual(len(set(both)), 4)

    def test_what_tells_twins_apart_is_listed(self):
        lines = Result("usb/twins").text("destinations-both").splitlines()
        places = [line.split("\t")[3] for line in lines if "Box" in line]
        self.assertEqual(places, ["serial number 0001, socket dummy_hcd.0-1"] * 2
                         + ["serial number 0001, socket dummy_hcd.1-1"] * 2)

    def test_a_twin_takes_nothing_from_the_chosen_one(self):
        result = Result("usb/twins")
        self.assertEqual(result.frames("frames-arrival"), run_frames())
        self.assertEqual(result.frames("frames-twin"), [])

    def test_the_remembered_one_is_found_in_another_socket(self):
        self.assertEqual(Result("usb/twins").frames("frames-moved"), run_frames())

    def test_ids_of_a_virtual_card_do_not_depend_on_other_cards(self):
        def ids(name):
            return [identifier for name, identifier in Result("usb/virtual_card").destinations(name)
                    if "VirMIDI" in name]
        self.assertEqual(len(set(ids("destinations-first"))), 4)
        self.assertEqual(ids("destinations-last"), ids("destinations-first"))

    def test_ids_are_the_same_at_the_next_start_of_the_machine(self):
        for scenario in RESTARTED:
            first, second = (Result(scenario, boot).folder for boot in ("first", "second"))
            for file in first.glob("destinations*"):
                self.assertEqual((second / file.name).read_text(), file.read_text(), file)


def setUpModule():
    for results in ("first", "second"):
        shutil.rmtree(work / results, ignore_errors=True)
    scenarios = machine.scenarios("usb")
    if machine.has_sequencer():
        machine.run_here(binaries, machine.scenarios("sequencer"), work / "first")
    else:
        scenarios += machine.scenarios("sequencer")
    programs = ("vexa-remote", "vexa-generator", "destination_words")
    machine.build_virtual(work, *(binaries / program for program in programs))
    machine.run_virtual(work, scenarios, work / "first", RUN_SECONDS)
    machine.run_virtual(work, RESTARTED, work / "second", RUN_SECONDS)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
