"""The Help menu: the guide opens in the desktop's viewer, wherever the program is installed."""

import os
import pathlib
import plistlib
import shutil
import tempfile
import unittest
import urllib.parse

from support import desktop, program
from support.cases import ProgramTest
from support.waiting import eventually
from support.window import Window

RESOURCES = pathlib.Path(__file__).parents[2] / "resources" / "vexa-remote"


def setUpModule():
    desktop.start()


class Help(ProgramTest):
    def setUp(self):
        super().setUp()
        folder = tempfile.TemporaryDirectory(prefix="vexa-e2e-help-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name) / "Place #1"
        self.folder.mkdir()
        self.log = self.folder / "opened"
        self.log.touch()
        viewer = pathlib.Path(folder.name) / "xdg-open"
        viewer.write_text(f'#!/bin/sh\nprintf "%s\\n" "$1" >> "{self.log}"\n')
        viewer.chmod(0o755)
        path = os.environ["PATH"]
        self.addCleanup(os.environ.__setitem__, "PATH", path)
        os.environ["PATH"] = f"{viewer.parent}:{path}"

    def install(self):
        """Installs the program and its resources in a folder of their own; returns the program's
        path."""
        installed = self.folder / "bin" / "vexa-remote"
        installed.parent.mkdir()
        shutil.copy(program.PATH, installed)
        shutil.copytree(RESOURCES, self.folder / "share" / "vexa-remote")
        return installed

    def open_window(self, path):
        self.window = Window("--midi", "none", path=path)
        self.addCleanup(self.window.close)

    def opened(self):
        """The files that the desktop was asked to open."""
        urls = map(urllib.parse.urlparse, self.log.read_text().splitlines())
        return [pathlib.Path(urllib.parse.unquote(url.path)) for url in urls]

    def test_the_guide_of_the_build_tree(self):
        self.open_window(program.PATH)
        self.window.keys("F1")
        eventually("the guide is opened", self.opened)
        (guide,) = self.opened()
        self.assertTrue(guide.samefile(RESOURCES / "en.lproj" / "user-guide.html"))

    def test_the_installed_guide_while_striping(self):
        self.open_window(self.install())
        self.window.keys("F6")
        self.window.await_on("Play")
        self.window.choose("Help", "User Guide")
        eventually("the guide is opened", self.opened)
        guide = self.folder / "share" / "vexa-remote" / "en.lproj" / "user-guide.html"
        self.assertEqual(self.opened(), [guide])

    def test_without_a_key_or_the_guide_nothing_happens(self):
        self.open_window(self.install())
        resources = self.folder / "share" / "vexa-remote"
        info, guide = resources / "Info.plist", resources / "en.lproj" / "user-guide.html"
        keys = plistlib.loads(info.read_bytes())
        for missing in keys:
            info.write_bytes(plistlib.dumps({k: v for k, v in keys.items() if k != missing}))
            self.window.choose("Help", "User Guide")
        info.unlink()
        self.window.choose("Help", "User Guide")
        info.write_bytes(plistlib.dumps(keys))
        guide.rename(resources / "elsewhere.html")
        self.window.choose("Help", "User Guide")
        (resources / "elsewhere.html").rename(guide)
        self.window.choose("Help", "User Guide")
        eventually("the guide is opened", self.opened)
        self.assertEqual(self.opened(), [guide], "opened more often than once")
        self.assertEqual(self.window.titles(), ["Vexa Remote: Untitled Batch List"])

    def test_about(self):
        self.open_window(program.PATH)
        self.window.choose("Help", "About")
        eventually("the box is shown", self.window.question)
        name, more, buttons = self.window.question()
        version = program.run("--version").stdout.split()[1]
        self.assertEqual(name, f"Vexa Remote {version}")
        self.assertIn("MIT licence", more)
        self.assertEqual(buttons, ["OK"])
        self.window.keys("Escape")
        eventually("the box is gone", lambda: not self.window.question())


if __name__ == "__main__":
    unittest.main()
