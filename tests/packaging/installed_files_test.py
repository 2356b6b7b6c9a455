"""Checks the installed files with the tools of the desktop and of the shell. BUILD is the build
tree, CMAKE its tool, ID the application ID."""

import os
import pathlib
import re
import shlex
import subprocess
import tempfile
import unittest

ID = os.environ["ID"]
TYPE = "application/x-vexa-batch-list"
PROGRAMS = ("vexa-remote", "vexa-generator", "vexa-ltc")


def run(*command):
    """The command's output on both streams; raises an error if the command fails."""
    done = subprocess.run(
        [str(word) for word in command],
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        check=False,
    )
    if done.returncode:
        raise AssertionError(f"{' '.join(map(str, command))}:\n{done.stdout}")
    return done.stdout


def options(text):
    return set(re.findall(r"--[a-z]+", text))


def values(help_text, option):
    """The values that an option's help lists after a colon."""
    listed = re.search(rf"{option} <[a-z]+>\s+[\w\s]+: ([^.]+)\.", help_text)[1]
    return {value.strip('"') for value in re.split(r",\s+|\s+or\s+", listed)}


class InstalledFiles(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        tree = tempfile.TemporaryDirectory(prefix="vexa-installed-")
        cls.addClassCleanup(tree.cleanup)
        cls.prefix = pathlib.Path(tree.name)
        cls.share = cls.prefix / "share"
        run(os.environ["CMAKE"], "--install", os.environ["BUILD"], "--prefix", cls.prefix)
        os.environ["XDG_DATA_DIRS"] = str(cls.share)
        os.environ["XDG_DATA_HOME"] = str(cls.prefix / "home")

    def test_desktop_entry(self):
        entry = self.share / "applications" / f"{ID}.desktop"
        self.assertEqual(run("desktop-file-validate", entry), "")
        self.assertIn(f"\nMimeType={TYPE};\n", entry.read_text())
        self.assertIn(f"\nIcon={ID}\n", entry.read_text())

    def test_metainfo(self):
        run("appstreamcli", "validate", "--no-net", self.share / "metainfo" / f"{ID}.metainfo.xml")

    def test_bus_service(self):
        service = (self.share / "dbus-1" / "services" / f"{ID}.service").read_text()
        self.assertIn(f"\nName={ID}\n", service)
        self.assertRegex(service, r"\nExec=/.*/bin/vexa-remote\n")

    def test_type_of_the_files(self):
        run("update-mime-database", self.share / "mime")
        for name in ("list.vexaB", "Take #1 100% Ω.vexaB"):
            file = self.prefix / name
            file.write_text("<plist/>")
            info = run("gio", "info", "-a", "standard::content-type", file)
            self.assertIn(f"standard::content-type: {TYPE}\n", info)

    def test_icons(self):
        icons = self.share / "icons" / "hicolor"
        small = icons / "48x48" / "apps" / f"{ID}.png"
        self.assertEqual(run("identify", "-format", "%wx%h", small), "48x48")
        self.assertIn("<svg", (icons / "scalable" / "apps" / f"{ID}.svg").read_text())

    def test_manual_pages(self):
        for program in PROGRAMS:
            with self.subTest(program=program):
                page = self.share / "man" / "man1" / f"{program}.1"
                formatted = run("man", "--warnings", "-E", "UTF-8", "-l", page)
                self.assertNotIn("warning", formatted)
                self.assertEqual(
                    options(formatted), options(run(self.prefix / "bin" / program, "--help"))
                )

    def test_completion(self):
        for program in PROGRAMS:
            with self.subTest(program=program):
                path = self.prefix / "bin" / program
                self.assertEqual(self.completions(program, "--"), options(run(path, "--help")))

    def test_values_in_the_help_are_in_the_manual_page_and_completed(self):
        help_text = run(self.prefix / "bin" / "vexa-remote", "--help")
        page = run("man", "-E", "UTF-8", "-l", self.share / "man" / "man1" / "vexa-remote.1")
        for option in ("--midi", "--rate", "--type"):
            with self.subTest(option=option):
                listed = values(help_text, option)
                self.assertGreater(len(listed), 2)
                self.assertEqual([value for value in listed if value not in page], [])
                self.assertEqual(
                    self.completions("vexa-remote", option, ""),
                    {value.replace(" ", "") for value in listed},
                )

    def test_completion_of_values(self):
        (self.prefix / "lists" / "older").mkdir(parents=True)
        for name in ("list.vexaB", "cues.csv"):
            (self.prefix / "lists" / name).touch()
        for program, option, values in (
            ("vexa-remote", "--progress", {"text", "json"}),
            ("vexa-remote", "--times", {"source", "record"}),
            ("vexa-remote", "--import", {"list.vexaB", "cues.csv", "older"}),
            ("vexa-remote", "--to", {"list.vexaB", "older"}),
            ("vexa-remote", "--tape", set()),
            ("vexa-generator", "--midi", {"alsa", "jack"}),
            ("vexa-generator", "--log", {"list.vexaB", "cues.csv", "older"}),
            ("vexa-ltc", "--bits", {"16", "24"}),
            ("vexa-ltc", "--to", {"older"}),
        ):
            with self.subTest(program=program, option=option):
                completed = self.completions(program, option, "", folder="lists")
                self.assertEqual(completed, values)

    def completions(self, program, *words, folder="."):
        """What the last word completes to in this folder of the installed tree."""
        file = self.share / "bash-completion" / "completions" / program
        line = [str(self.prefix / "bin" / program), *words]
        call = ["_vexa", line[0], line[-1], line[-2]]
        script = f"""compopt() {{ :; }}; source {file}; complete -p {program} >/dev/null || exit
            cd {self.prefix / folder} || exit
            COMP_WORDS=({shlex.join(line)}); COMP_CWORD={len(line) - 1}
            {shlex.join(call)}; echo "${{COMPREPLY[@]}}" """
        return set(run("bash", "-c", script).split())

    def test_samples(self):
        samples = self.share / "doc" / "vexa-remote" / "examples"
        self.assertIn("short.vexaB", [sample.name for sample in samples.iterdir()])


if __name__ == "__main__":
    unittest.main()
