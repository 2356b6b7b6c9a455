"""vexa-remote, as started from a shell."""

import os
import pathlib
import subprocess

from support.processes import Child

PATH = os.environ.get(
    "VEXA_REMOTE", pathlib.Path(__file__).parents[3] / "build" / "dev" / "bin" / "vexa-remote"
)


def run(*arguments, seconds=30):
    """Runs to the end: a CompletedProcess with texts."""
    return subprocess.run(
        [PATH, *arguments], capture_output=True, text=True, timeout=seconds, check=False
    )


def start(*arguments):
    """Runs on. What it complains about is seen in the test's own output."""
    return Child(PATH, *arguments, stdout=subprocess.DEVNULL)
