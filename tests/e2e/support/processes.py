"""Child processes that end with the test, whatever becomes of it."""

import signal
import subprocess


class Child:
    """A process of ours. The kernel ends it when we are gone; stop() ends it sooner."""

    def __init__(self, *command, **popen_arguments):
        popen_arguments.setdefault("stdin", subprocess.DEVNULL)
        self._process = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", *map(str, command)], text=True, **popen_arguments
        )

    @property
    def pid(self):
        return self._process.pid

    @property
    def stdout(self):
        return self._process.stdout

    def is_running(self):
        return self._process.poll() is None

    def send_signal(self, number):
        self._process.send_signal(number)

    def wait(self, seconds=10):
        """The exit status; of a process ended by a signal, minus the signal's number."""
        return self._process.wait(seconds)

    def kill(self):
        self._process.kill()
        self._close()

    def stop(self, number=signal.SIGTERM):
        """Asks it to end, and insists when it does not."""
        self._process.send_signal(number)
        try:
            self._process.wait(5)
        except subprocess.TimeoutExpired:
            self._process.kill()
        self._close()

    def _close(self):
        self._process.wait()
        if self._process.stdout:
            self._process.stdout.close()
