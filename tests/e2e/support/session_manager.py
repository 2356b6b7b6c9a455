"""xsm, a session manager: it asks the programs started under it whether the operator may log
out."""

import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from support import desktop
from support.processes import Child
from support.waiting import eventually
from support.window import xdotool

# Mouse positions in its windows, in the font that every screen has.
LOOK = "XSm*font: fixed\n"
SHUTDOWN_MENU = (120, 38)
WITH_CHECKPOINT = (120, 58)
SHUTDOWN_BUTTON = (35, 105)
OK_BUTTON = (15, 70)


class SessionManager:
    """Manages the programs that start while it runs."""

    def __init__(self):
        self._home = pathlib.Path(tempfile.mkdtemp(prefix="vexa-e2e-session-"))
        address = self._home / "address"
        script = self._home / "startup"
        script.write_text(f'#!/bin/sh\necho "$SESSION_MANAGER" > {address}\n')
        script.chmod(0o700)
        (self._home / ".Xdefaults").write_text(LOOK)
        (self._home / ".xsmstartup").write_text(f"{script}\n")
        os.environ["ICEAUTHORITY"] = str(self._home / "authority")
        environment = {**os.environ, "HOME": str(self._home), "SM_SAVE_DIR": str(self._home)}
        silent = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self._child = Child("xsm", env=environment, **silent)
        eventually("the session is there", lambda: address.exists() and address.read_text())
        os.environ["SESSION_MANAGER"] = address.read_text().strip()

    def log_out(self):
        """Logs out by the menu; programs may ask the operator."""
        eventually("Shutdown can be chosen", self._choose_shutdown)
        xdotool("mousemove", "--window", self._x_window("Shutdown"), *SHUTDOWN_BUTTON)
        xdotool("type", "studio")  # the session needs a name
        xdotool("click", 1)

    def _choose_shutdown(self):
        """Tries to choose Shutdown; a menu that opens after the button is released chooses
        nothing."""
        window = self._x_window("xsm: .*")
        xdotool("mousemove", "--window", window, *SHUTDOWN_MENU, "mousedown", 1)
        xdotool("mousemove", "--window", window, *WITH_CHECKPOINT, "sleep", 0.1, "mouseup", 1)
        xdotool("sleep", 0.5)
        return desktop.x_windows("Shutdown")

    def log_out_without_questions(self):
        self._child.send_signal(signal.SIGTERM)

    def await_end(self):
        """Waits for the session to end."""
        self._child.wait()

    def take_note_of_refusal(self):
        """Confirms the message that names the program that refused to end."""
        title = "Save Failure"
        xdotool("mousemove", "--window", self._x_window(title), *OK_BUTTON, "click", 1)
        eventually(f"{title} is gone", lambda: not desktop.x_windows(title))

    def close(self):
        self._child.kill()
        del os.environ["SESSION_MANAGER"], os.environ["ICEAUTHORITY"]
        shutil.rmtree(self._home)

    @staticmethod
    def _x_window(title):
        window = eventually(f"{title} is shown", lambda: desktop.x_windows(title))
        xdotool("windowactivate", "--sync", window[0])
        return window[0]
