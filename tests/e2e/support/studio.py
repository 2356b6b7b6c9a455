"""The software generator on a JACK server, and a recorder for its signal."""

import itertools
import os
import pathlib
import signal
import subprocess
import tempfile
import wave

from support import program
from support.cases import ProgramTest
from support.jack import JackServer, listed_ports
from support.processes import Child
from support.waiting import eventually


RATES = {"24 fps": 24, "25 fps": 25, "30 fps": 30, "30 df": 30}


def words(first, last, rate):
    """All words on the wire from one time to another, as ltc_read prints them."""
    hours, minutes, seconds, frames = (int(pair) for pair in first.split(":"))
    for second in itertools.count(hours * 3600 + minutes * 60 + seconds):
        for frame in range(frames, RATES[rate]):
            dropped = rate == "30 df" and second % 60 == 0 and second // 60 % 10 and frame < 2
            time = f"{second // 3600 % 24:02}:{second // 60 % 60:02}:{second % 60:02}:{frame:02}"
            if not dropped:
                yield time + (" df" if rate == "30 df" else "")
            if time == last:
                return
        frames = 0


class Recording:
    """A recording of a port by jack_rec."""

    def __init__(self, port, path):
        self._path = path
        self._raw = f"{path}.unfinished"
        command = ["jack_rec", "-f", self._raw, "-d", "36000", "-B", "480000", "-b", "16", port]
        self._child = Child(*command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        eventually("the recording runs", lambda: any("jackrec" in p for p in listed_ports()))

    def end(self):
        """Ends the recording once it is past what has been played: jack_rec drops what it has not yet
        written. The length is missing from its header."""
        enough = os.path.getsize(self._raw) + 200_000  # a second or more
        eventually("all is written", lambda: os.path.getsize(self._raw) >= enough)
        self._child.stop(signal.SIGINT)
        repair = ["sox", "-V1", "--ignore-length", "-t", "wav", self._raw, "-D", self._path]
        subprocess.run(repair, check=True)

    def words(self):
        """Ends the recording, and returns the words that libltc decodes from it."""
        self.end()
        with wave.open(str(self._path)) as file:
            samples, rate = file.readframes(file.getnframes()), file.getframerate()
        reader = program.beside("ltc_read")
        read = subprocess.run([reader, str(rate)], input=samples, capture_output=True, check=True)
        return read.stdout.decode().splitlines()


class StudioTest(ProgramTest):
    def open_generator(self, sample_rate, period):
        self.server = JackServer(sample_rate, period)
        self.server.start()
        self.addCleanup(self.server.stop)
        folder = tempfile.TemporaryDirectory(prefix="vexa-e2e-studio-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.log = self.folder / "log"
        path = program.beside("vexa-generator")
        command = [path, "--midi", "jack", "--log", self.log]
        self.generator = Child(*command, stdout=subprocess.DEVNULL)
        self.addCleanup(self.generator.stop)
        eventually("the generator is ready", lambda: "ready" in self.text())

    def play(self, samples, events):
        """Sends the events to the generator at their samples, and leaves what it played in the
        folder, in the files "ltc" and "mtc"."""
        studio = [program.beside("jack_studio"), self.folder, str(samples), *events]
        subprocess.run(studio, input="", text=True, check=True, stdout=subprocess.DEVNULL,
                       timeout=120)

    def check_recording(self, items, recording):
        """Checks that vexa-ltc finds the list whole on a recording. On a busy machine, xruns cost
        frames, which the generator must have counted."""
        done = program.run_beside("vexa-ltc", "check", items, recording)
        if done.returncode != 0:
            self.assertRegex(self.text(), r"stop at \S+ after \d+ xrun", done.stdout)

    def text(self):
        return self.log.read_text() if os.path.exists(self.log) else ""
