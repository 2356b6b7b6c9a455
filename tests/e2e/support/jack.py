"""A JACK server without sound hardware, and a receiver on it that is not ours."""

import contextlib
import fcntl
import os
import pathlib
import re
import shutil
import signal
import subprocess
import threading
import time

from support.processes import Child
from support.waiting import PATIENCE, eventually


@contextlib.contextmanager
def alone():
    """Meanwhile, no other test that shares /dev/shm starts or stops a server: two that do so at the
    same moment may both be lost."""
    with open("/dev/shm/vexa-tests.lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        yield


def _forget_locks():
    """A server that was killed may have locked a database of all servers for good, at which the
    next one hangs. What others share stays."""
    if "VEXA_OWN_SHM" in os.environ:
        shutil.rmtree(f"/dev/shm/jack_db-{os.getuid()}", ignore_errors=True)


class JackServer:
    """A server of this test process's own, for all programs that it starts from now on."""

    def __init__(self, sample_rate=48000, period=256):
        self._clock = ["-r", str(sample_rate), "-p", str(period)]
        self._name = f"vexa-e2e-{os.getpid()}"
        os.environ["JACK_DEFAULT_SERVER"] = self._name
        os.environ["JACK_NO_AUDIO_RESERVATION"] = "1"
        os.environ["JACK_NO_START_SERVER"] = "1"
        self._server = None

    def start(self):
        with alone():
            eventually("the server is up", self._is_up, seconds=2 * PATIENCE)

    def _is_up(self):
        """Once more, should it have given up: the system has room for eight servers only, and those
        of other tests come and go."""
        if not self._server or not self._server.is_running():
            _forget_locks()
            # Synchronous: a receiver that comes late on a busy machine still gets its period.
            self._server = Child(
                *["jackd", "-n", self._name, "-r", "-S", "-d", "dummy", *self._clock],
                stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL,
            )
        return listed_ports()

    def kill(self):
        """As when it crashes: its clients are told nothing."""
        self._server.kill()

    @contextlib.contextmanager
    def hung(self):
        """Meanwhile, it answers nobody."""
        self._server.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self._server.send_signal(signal.SIGCONT)

    def stop(self):
        """The system lists eight servers at most, and strikes off only those that end in order: one
        that was killed, or that a lost client ended, is started once more, to do so."""
        self._end()
        while self._server.wait() != 0:
            self.start()
            self._end()
        for left_over in pathlib.Path("/dev/shm").glob(f"jack_*{self._name}_*"):
            left_over.unlink()

    def _end(self):
        with alone():
            self._server.stop()


def listed_ports():
    """The full names of the server's ports; none when there is no server."""
    asked = subprocess.run(["jack_lsp"], capture_output=True, text=True, check=False)
    return asked.stdout.splitlines() if asked.returncode == 0 else []


class MidiMonitor:
    """jack_midi_dump: prints what arrives at the port "midi-monitor:input"."""

    def __init__(self, name="midi-monitor"):
        self._name = name
        self._arrivals = []
        self._child = None
        eventually("the receiver takes part", self._is_there)

    def _is_there(self):
        """Once more, should it have given up: a busy server may refuse it, after five seconds."""
        if not self._child or not self._child.is_running():
            self._child = Child(
                *["stdbuf", "-oL", "jack_midi_dump", self._name],
                stdout=subprocess.PIPE,
                stderr=subprocess.DEVNULL,
            )
            self._reader = threading.Thread(target=self._read, daemon=True)
            self._reader.start()
        return self._takes_part()

    def _takes_part(self):
        """Its port is listed, and can be connected, before anything gets through to it: that is
        when the server wakes its last thread, the fourth, once a period."""
        tasks = pathlib.Path(f"/proc/{self._child.pid}/task")
        try:
            threads = os.listdir(tasks)
            newest = max(threads, key=int)
            status = (tasks / newest / "status").read_text()
        except OSError:  # it has given up
            return False
        waits = int(re.search(r"^voluntary_ctxt_switches:\s*(\d+)", status, re.MULTILINE)[1])
        return len(threads) == 4 and waits >= 8

    def _read(self):
        with self._child.stdout as lines:
            for line in lines:
                _, colon, message = line.partition(":")
                if colon:
                    self._arrivals.append((time.monotonic(), bytes.fromhex(message)))

    def take(self, count, seconds=PATIENCE):
        """The next messages in order, as pairs of monotonic time and bytes: as many as asked for,
        or those that come in time, and any that came too many."""
        deadline = time.monotonic() + seconds
        while len(self._arrivals) < count and time.monotonic() < deadline:
            time.sleep(0.01)
        taken = list(self._arrivals)
        del self._arrivals[: len(taken)]
        return taken

    def stop(self):
        """Lets it leave the server in order: one that is killed holds the server up."""
        self._child.stop(signal.SIGINT)
        self._reader.join()
