"""Child processes that always end with the test."""

import pathlib
import re
import signal
import subprocess

from support.waiting import PATIENCE


class Child:
    """A child process. The kernel ends it when this process ends; stop() ends it sooner."""

    def __init__(self, *command, **popen_arguments):
        popen_arguments.setdefault("stdin", subprocess.DEVNULL)
        # A write beyond the file size limit then fails, as on a full disk.
        popen_arguments.setdefault("restore_signals", False)
        self._process = subprocess.Popen(
            ["setpriv", "--pdeathsig", "TERM", *map(str, command)], text=True, **popen_arguments
        )

    @property
    def pid(self):
        return self._process.pid

    @property
    def stdin(self):
        return self._process.stdin

    @property
    def stdout(self):
        return self._process.stdout

    @property
    def stderr(self):
        return self._process.stderr

    def is_running(self):
        return self._process.poll() is None

    def is_stopped(self):
        """Whether a signal has stopped the process."""
        status = pathlib.Path(f"/proc/{self.pid}/stat").read_text(encoding="utf-8")
        return status.rpartition(")")[2].split()[0] == "T"

    def peak_memory(self):
        """The most that the process has had in memory, in MiB."""
        status = pathlib.Path(f"/proc/{self.pid}/status").read_text(encoding="utf-8")
        return int(re.search(r"VmHWM:\s+(\d+) kB", status)[1]) // 1024

    def send_signal(self, number):
        self._process.send_signal(number)

    def wait(self, seconds=PATIENCE):
        """The exit status; minus the signal's number, if a signal ended the process."""
        return self._process.wait(seconds)

    def stop(self, number=signal.SIGTERM):
        """Asks the process to end, and kills it if it does not."""
        self._process.send_signal(number)
        try:
            self._process.wait(5)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()

    def kill(self):
        self.stop(signal.SIGKILL)
