"""Child processes that end with the test, whatever becomes of it."""

import pathlib
import signal
import subprocess

from support.waiting import PATIENCE


class Child:
    """A process of ours. The kernel tells it to end when we are gone; stop() ends it sooner."""

    def __init__(self, *command, **popen_arguments):
        popen_arguments.setdefault("stdin", subprocess.DEVNULL)
        # A file that may not grow further then makes a write fail, as a full disk does.
        popen_arguments.setdefault("restore_signals", False)
        self._process = subprocess.Popen(
            ["setpriv", "--pdeathsig", "TERM", *map(str, command)], text=True, **popen_arguments
        )

    @property
    def pid(self):
        return self._process.pid

    @property
    def stdout(self):
        return self._process.stdout

    @property
    def stderr(self):
        return self._process.stderr

    def is_running(self):
        return self._process.poll() is None

    def is_stopped(self):
        """Whether a signal holds it up."""
        status = pathlib.Path(f"/proc/{self.pid}/stat").read_text(encoding="utf-8")
        return status.rpartition(")")[2].split()[0] == "T"

    def send_signal(self, number):
        self._process.send_signal(number)

    def wait(self, seconds=PATIENCE):
        """The exit status; of a process ended by a signal, minus the signal's number."""
        return self._process.wait(seconds)

    def stop(self, number=signal.SIGTERM):
        """Asks it to end, and insists when it does not."""
        self._process.send_signal(number)
        try:
            self._process.wait(5)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()

    def kill(self):
        self.stop(signal.SIGKILL)
