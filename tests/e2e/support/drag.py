"""Drag and drop between the program and another."""

import functools
import pathlib
import queue
import subprocess
import sys
import threading

from support import desktop
from support.processes import Child
from support.waiting import PATIENCE, eventually
from support.window import xdotool


class DragSource:
    """A window in the corner of the screen, as a source for drags."""

    def __init__(self, thing):
        script = pathlib.Path(__file__).with_name("drag_source.py")
        silent = {"stderr": subprocess.DEVNULL}
        self._child = Child(sys.executable, script, thing, stdout=subprocess.PIPE, **silent)
        windows = functools.partial(desktop.x_windows, "Drag source", self._child.pid)
        self._x_window = eventually("the source is there", windows)[0]
        self._lines = queue.Queue()
        threading.Thread(target=self._listen, daemon=True).start()
        self.activate()

    def activate(self):
        xdotool("windowactivate", "--sync", self._x_window)

    def drag_to(self, x, y):
        """Drags to a point on the screen and holds there."""
        eventually("the drag has begun", lambda: self._begins_towards(x, y))
        xdotool("mousemove", x, y)
        xdotool("mousemove_relative", 1, 0)

    def _begins_towards(self, x, y):
        """Whether the drag has begun. A press that comes too early for the window begins none."""
        xdotool("mousemove", "--window", self._x_window, 60, 60, "mousedown", 1)
        # Moves in steps, as a hand does: a drag begins some distance from the press.
        for step in range(1, 11):
            xdotool("mousemove", 60 + (x - 60) * step // 10, 60 + (y - 60) * step // 10)
        if self._said(within=2) == "begun":
            return True
        xdotool("mouseup", 1)
        return False

    def await_welcome(self):
        """Checks that the target under the pointer accepts the drag."""
        if self._said() != "welcome":
            raise AssertionError("refused before it was dropped")

    def drop(self):
        """Drops, and returns the outcome: "copied", "moved" or "refused"."""
        xdotool("mouseup", 1)
        return self._said()

    def _said(self, within=PATIENCE):
        """The next line, or None if none comes within that many seconds."""
        try:
            return self._lines.get(timeout=within)
        except queue.Empty:
            return None

    def _listen(self):
        for line in self._child.stdout:
            self._lines.put(line.strip())

    def close(self):
        self._child.stop()
