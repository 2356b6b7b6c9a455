"""What the status line says of the destination, against what jack_midi_dump receives: every message
that is said to be sent arrives, and none arrives that is not."""

import subprocess
import unittest

from support import program
from support.cases import DeviceTest
from support.destination_words import claimed_messages
from support.processes import Child
from support.waiting import eventually
from support.wire import STOP, mode, setup_and_start

MODE = mode("25 fps", "DTL")


class DestinationWords(DeviceTest):
    def setUp(self):
        super().setUp()
        self.output = self.settings.parent.parent / "words"
        path = program.beside("destination_words")
        with self.output.open("w") as output:
            self.teller = Child(path, "jack", stdin=subprocess.PIPE, stdout=output)
        self.addCleanup(self.teller.stop)
        self.await_words("midi-monitor:input")
        self.arrived = []

    def ask(self, request):
        print(request, file=self.teller.stdin, flush=True)

    def lines(self):
        return self.output.read_text().splitlines()

    def words(self):
        return [line.split("\t")[1] for line in self.lines()]

    def await_words(self, beginning):
        """Waits until the words begin like this."""
        eventually(beginning, lambda: self.words() and self.words()[-1].startswith(beginning))

    def start(self, time):
        self.ask(f"start {time}")
        self.await_words(f"midi-monitor:input · start {time} · ")

    def take(self, count):
        self.arrived += [message for _, message in self.monitor.take(count)]

    def test_words_and_arrivals_agree_message_by_message(self):
        self.ask("stop")
        self.await_words("midi-monitor:input · stop · ")
        self.start("01:00:00:00")
        self.take(3)

        self.monitor.stop()
        self.await_words("midi-monitor:input is not there")
        self.ask("start 02:00:00:00")
        self.connect_monitor()
        self.await_words("midi-monitor:input · start 01:00:00:00 · ")
        self.start("03:00:00:00")
        self.take(2)

        self.server.kill()
        self.await_words("midi-monitor:input is not there")
        self.ask("stop")
        self.monitor.stop()
        self.server.start()
        self.connect_monitor()
        self.await_words("midi-monitor:input · start 03:00:00:00 · ")
        self.start("04:00:00:00")
        self.take(2)

        self.ask("destination")
        self.await_words("no destination")
        self.ask("stop")
        self.ask("destination midi-monitor:input")
        self.await_words("midi-monitor:input · stop · ")
        self.teller.stdin.close()
        self.assertEqual(self.teller.wait(), 0)
        self.take(1)

        starts = [setup_and_start(hour, 0, 0, 0, MODE) for hour in (1, 3, 4)]
        self.assertEqual(self.arrived, [STOP, *starts[0], *starts[1], *starts[2], STOP])
        self.assertEqual(list(claimed_messages(self.lines(), MODE)), self.arrived, self.words())


if __name__ == "__main__":
    unittest.main()
