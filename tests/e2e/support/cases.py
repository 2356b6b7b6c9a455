"""Base classes for tests of the program."""

import contextlib
import os
import pathlib
import tempfile
import unittest

from support.batch_list import BatchList
from support.items import list_file
from support.jack import JackServer, MidiMonitor
from support.waiting import PATIENCE
from support.window import Window
from support.wire import STOP


class ProgramTest(unittest.TestCase):
    """Gives the programs started here their own settings and recent files."""

    def setUp(self):
        settings = tempfile.TemporaryDirectory(prefix="vexa-e2e-settings-")
        self.addCleanup(settings.cleanup)
        os.environ["XDG_CONFIG_HOME"] = settings.name
        os.environ["XDG_DATA_HOME"] = settings.name
        self.settings = pathlib.Path(settings.name) / "vexa-remote" / "vexa-remote.ini"

    def write_settings(self, **settings):
        lines = [f"{key}={value}" for key, value in settings.items()]
        self.settings.parent.mkdir(exist_ok=True)
        self.settings.write_text("\n".join(["[General]", *lines, ""]))

    @contextlib.contextmanager
    def read_only(self, directory):
        """Prevents changes to the directory meanwhile."""
        directory.chmod(0o555)
        try:
            yield
        finally:
            directory.chmod(0o755)


class DeviceTest(ProgramTest):
    """A JACK server, with a receiver in place of the timecode generator."""

    def setUp(self):
        super().setUp()
        self.server = JackServer()
        self.server.start()
        self.addCleanup(self.server.stop)
        self.connect_monitor()
        self.addCleanup(self._expect_nothing_more)

    def connect_monitor(self):
        self.monitor = MidiMonitor()

    def replace_server(self):
        """Kills the server and starts it again, with a new receiver."""
        self.server.kill()
        self.monitor.stop()
        self.server.start()
        self.connect_monitor()

    def expect_messages(self, *messages, seconds=PATIENCE):
        """Expects exactly these messages since the last call, and waits for them. Returns the times
        of their arrival."""
        taken = self.monitor.take(len(messages), seconds)
        self.assertEqual([m.hex(" ") for _, m in taken], [m.hex(" ") for m in messages])
        return [moment for moment, _ in taken]

    def _expect_nothing_more(self):
        self.monitor.stop()
        self.assertEqual(self.monitor.take(0), [], "came after the last message expected")

    def open_window(self, *arguments):
        """Opens the window and takes its start-up message."""
        window = Window("--midi", "jack", *arguments)
        self.addCleanup(window.close)
        self.expect_messages(STOP)
        return window

    def open_list(self, items):
        """Opens a window with a list file of these items. Returns the window, its list and the
        file."""
        file = self.settings.parent.parent / "Day 1.vexaB"
        file.write_bytes(list_file(items))
        window = self.open_window(str(file))
        return window, BatchList(window), file
