"""vexa-remote, as started from a shell."""

import os
import pathlib
import subprocess

from support.processes import Child

PATH = os.environ.get(
    "VEXA_REMOTE", pathlib.Path(__file__).parents[3] / "build" / "dev" / "bin" / "vexa-remote"
)
# Root could write anywhere; the programs may not, whoever runs the tests.
WITHOUT_PRIVILEGES = ["setpriv", "--bounding-set=-dac_override,-dac_read_search"]
COMMAND = [*WITHOUT_PRIVILEGES, PATH] if os.geteuid() == 0 else [PATH]


def run(*arguments, answers=None, seconds=30, folder=None):
    """Runs to the end, in that folder: a CompletedProcess with texts."""
    streams = {"input": answers, "capture_output": True, "text": True}
    return subprocess.run(
        [*COMMAND, *arguments], **streams, timeout=seconds, check=False, cwd=folder
    )


def start(*arguments, stderr=None):
    """Runs on. What it complains about is seen in the test's own output, unless led elsewhere."""
    return Child(*COMMAND, *arguments, stdout=subprocess.DEVNULL, stderr=stderr)
