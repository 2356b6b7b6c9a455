"""A JACK server without sound hardware, and an independent receiver on it."""

import contextlib
import fcntl
import os
import pathlib
import shutil
import signal
import subprocess
import threading
import time

from support import program
from support.processes import Child
from support.waiting import PATIENCE, eventually


@contextlib.contextmanager
def alone():
    """Keeps other tests that share /dev/shm from starting or stopping a server meanwhile. Two that
    do so at the same time may both be lost."""
    with open("/dev/shm/vexa-tests.lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        yield


def _forget_locks():
    """Removes locks of killed servers. A killed server may leave a database of all servers locked,
    which would hang the next one. A shared database is left alone."""
    if "VEXA_OWN_SHM" in os.environ:
        shutil.rmtree(f"/dev/shm/jack_db-{os.getuid()}", ignore_errors=True)


class JackServer:
    """A server for this test process and all programs that it starts from now on."""

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
        """Whether the server is up. Restarts it if it has given up, as the system has room for only
        eight servers, including those of other tests."""
        if not self._server or not self._server.is_running():
            _forget_locks()
            # Synchronous, so a receiver that is late on a busy machine still gets its period.
            self._server = Child(
                *["jackd", "-n", self._name, "-r", "-S", "-d", "dummy", *self._clock],
                stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL,
            )
        return listed_ports()

    def kill(self):
        """Kills the server without notice to its clients, as in a crash."""
        self._server.kill()

    @contextlib.contextmanager
    def hung(self):
        """Stops the server from answering meanwhile."""
        self._server.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self._server.send_signal(signal.SIGCONT)

    def stop(self):
        """Ends the server in order. The system lists at most eight servers, and forgets only those
        that end in order. So a server that was killed, or ended by a lost client, is started again
        first, once: it may not end in order either."""
        self._end()
        if self._server.wait() != 0:
            self.start()
            self._end()
        for left_over in pathlib.Path("/dev/shm").glob(f"jack_*{self._name}_*"):
            left_over.unlink()

    def _end(self):
        with alone():
            self._server.stop()


def listed_ports():
    """The full names of the server's ports; empty if there is no server, or none that answers."""
    try:
        asked = subprocess.run(["jack_lsp"], capture_output=True, text=True, check=False,
                               timeout=PATIENCE)
    except subprocess.TimeoutExpired:
        return []
    return asked.stdout.splitlines() if asked.returncode == 0 else []


class MidiMonitor:
    """Runs jack_midi_dump, which prints what arrives at the port "midi-monitor:input"."""

    _PROBE = bytes([0xFE])  # active sensing, which the program never sends

    def __init__(self, name="midi-monitor"):
        self._name = name
        self._arrivals = []
        self._is_heard = threading.Event()
        self._child = None
        eventually("the receiver takes part", self._takes_part)

    def _takes_part(self):
        """Whether messages reach the receiver, as a first one shows. That begins later than its port
        is listed and can be connected. Restarts a receiver that a busy server refused, after five
        seconds."""
        if not self._child or not self._child.is_running():
            self._start()
        # The server lists ports in the order of the numbers that are free when they come, so the
        # sender's must not come between two receivers'.
        port = f"{self._name}:input"
        if port not in listed_ports():
            return False
        sent = subprocess.run([program.beside("jack_send"), port, self._PROBE.hex()],
                              stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False)
        return sent.returncode == 0 and self._is_heard.wait(1)

    def _start(self):
        self._child = Child(
            *["stdbuf", "-oL", "jack_midi_dump", self._name],
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
        )
        self._reader = threading.Thread(target=self._read, args=[self._child.stdout], daemon=True)
        self._reader.start()

    def _read(self, output):
        with output as lines:
            for line in lines:
                _, colon, message = line.partition(":")
                if colon:
                    self._note(bytes.fromhex(message))

    def _note(self, message):
        if message == self._PROBE:
            self._is_heard.set()
        else:
            self._arrivals.append((time.monotonic(), message))

    def take(self, count, seconds=PATIENCE):
        """The messages since the last call, as pairs of monotonic time and bytes. Waits for that
        many; there may be fewer after the time is up, or more."""
        deadline = time.monotonic() + seconds
        while len(self._arrivals) < count and time.monotonic() < deadline:
            time.sleep(0.01)
        taken = list(self._arrivals)
        del self._arrivals[: len(taken)]
        return taken

    def stop(self):
        """Lets the receiver leave the server in order, as a killed client delays the server."""
        self._child.stop(signal.SIGINT)
        self._reader.join()
