"""Drag and drop between the program and another."""

import functools
import pathlib
import subprocess
import sys

from support import desktop
from support.processes import Child
from support.waiting import eventually
from support.window import xdotool


class DragSource:
    """A window in the corner of the screen from which something can be dragged."""

    def __init__(self, thing):
        script = pathlib.Path(__file__).with_name("drag_source.py")
        silent = {"stderr": subprocess.DEVNULL}
        self._child = Child(sys.executable, script, thing, stdout=subprocess.PIPE, **silent)
        windows = functools.partial(desktop.x_windows, "Drag source", self._child.pid)
        self._x_window = eventually("the source is there", windows)[0]
        self.activate()

    def activate(self):
        xdotool("windowactivate", "--sync", self._x_window)

    def drag_to(self, x, y):
        """Drags to a place of the screen, and holds on there."""
        xdotool("mousemove", "--window", self._x_window, 60, 60, "mousedown", 1)
        # In steps, as a hand does: a drag begins some way from the press.
        for step in range(1, 11):
            xdotool("mousemove", 60 + (x - 60) * step // 10, 60 + (y - 60) * step // 10)
        xdotool("mousemove_relative", 1, 0)

    def await_welcome(self):
        """What is under the pointer would take what is dragged there."""
        if self._said() != "welcome":
            raise AssertionError("refused before it was dropped")

    def drop(self):
        """What became of it: "copied", "moved" or "refused"."""
        xdotool("mouseup", 1)
        return self._said()

    def _said(self):
        return self._child.stdout.readline().strip()

    def close(self):
        self._child.stop()
        self._child.stdout.close()
