"""vexa-remote, started as from a shell."""

import os
import pathlib
import subprocess

from support.processes import Child

PATH = os.environ.get(
    "VEXA_REMOTE", pathlib.Path(__file__).parents[3] / "build" / "dev" / "bin" / "vexa-remote"
)


def beside(name):
    """The path of another program, which is built or installed beside this one."""
    return pathlib.Path(PATH).with_name(name)


# Root may write anywhere; the programs may not, whoever runs the tests.
AS_OPERATOR = (
    ["setpriv", "--bounding-set=-dac_override,-dac_read_search"] if os.geteuid() == 0 else []
)


def run(*arguments, answers=None, seconds=60, folder=None):
    """Runs the program to its end in that folder. Returns a CompletedProcess with texts."""
    return _run(PATH, arguments, input=answers, timeout=seconds, cwd=folder)


def run_beside(name, *arguments):
    """Runs another program to its end. Returns a CompletedProcess with texts."""
    return _run(beside(name), arguments, timeout=120)


def _run(path, arguments, **options):
    command = [*AS_OPERATOR, path, *arguments]
    return subprocess.run(command, **options, capture_output=True, text=True, check=False)


def start(*arguments, path=PATH, stderr=None):
    """Starts the program. Its errors go to the test's output unless redirected."""
    command = [*AS_OPERATOR, path, *arguments]
    return Child(*command, stdout=subprocess.DEVNULL, stderr=stderr)
