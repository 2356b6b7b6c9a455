"""Checks for the compiler flags that end the program on memory errors, including those that Debian
requires of its packages. Checks a build by hand, and one with Debian's flags. SOURCE is the project,
CMAKE its tool."""

import os
import platform
import re
import shlex
import subprocess
import tempfile
import unittest

PROGRAMS = ("vexa-remote", "vexa-generator", "vexa-ltc")
ALWAYS = {"-fstack-clash-protection"}
if platform.machine() == "x86_64":
    ALWAYS.add("-fcf-protection")
# They name folders and dates, or control debugging and speed.
NO_PROTECTION = re.compile(r"-g|-O\d|-ffile-prefix-map=.*|-Wdate-time|-f(no-)?omit-.*|-mno-omit-.*")


def output(*command, **variables):
    done = subprocess.run(
        command, stdout=subprocess.PIPE, text=True, check=True, env={**os.environ, **variables}
    )
    return done.stdout


def of_debian(*variables):
    """Debian's flags of these names, with all protections."""
    flags = set()
    for name in variables:
        text = output("dpkg-buildflags", "--get", name, DEB_BUILD_MAINT_OPTIONS="hardening=+all")
        flags.update(text.split())
    return {flag for flag in flags if not NO_PROTECTION.fullmatch(flag)}


def commands(build_type):
    """The commands that compile and link the programs: two lists of sets of words."""
    with tempfile.TemporaryDirectory(prefix="vexa-hardening-") as build:
        options = (f"CMAKE_BUILD_TYPE={build_type}", "VEXA_TESTS=OFF", "VEXA_BENCHMARKS=OFF")
        output(
            *(os.environ["CMAKE"], "-S", os.environ["SOURCE"], "-B", build, "-G", "Ninja"),
            *(f"-D{option}" for option in options),
            **dict.fromkeys(("CXXFLAGS", "CPPFLAGS", "LDFLAGS"), ""),
        )
        lines = output("ninja", "-C", build, "-t", "commands", *PROGRAMS)
    words = [set(shlex.split(line)) for line in lines.splitlines()]
    compiling = [line for line in words if "-c" in line]
    linking = [line for line in words if {f"bin/{program}" for program in PROGRAMS} & line]
    return compiling, linking


class Hardening(unittest.TestCase):
    def assert_in_each(self, flags, lines):
        self.assertGreater(len(lines), 1)
        for line in lines:
            self.assertEqual(flags - line, set(), " ".join(sorted(line)))

    def test_release(self):
        compiling, linking = commands("Release")
        wanted = of_debian("CXXFLAGS", "CPPFLAGS")
        self.assertIn("-fstack-protector-strong", wanted)
        self.assert_in_each(wanted | ALWAYS, compiling)
        linker_flags = of_debian("LDFLAGS")
        self.assertIn("-Wl,-z,now", linker_flags)
        self.assert_in_each(linker_flags | {"-pie"}, linking)

    def test_package(self):
        compiling, _ = commands("None")
        self.assert_in_each(ALWAYS, compiling)


if __name__ == "__main__":
    unittest.main()
