"""A screen, a window manager and an accessibility bus for this test process alone."""

import atexit
import contextlib
import functools
import os
import subprocess
import tempfile

from gi.repository import Gio, GLib

from support.processes import Child
from support.waiting import PATIENCE, eventually

BUS_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


@functools.cache
def start(size="1800x1400"):
    """Starts a desktop for the rest of this process, and directs the process and its children to
    it. Starts only one, as the accessibility library cannot change buses."""
    runtime = tempfile.TemporaryDirectory(prefix="vexa-e2e-runtime-")
    os.environ["XDG_RUNTIME_DIR"] = runtime.name
    children = []

    def stop():
        for child in reversed(children):
            child.stop()
        runtime.cleanup()

    def child(*command, **popen_arguments):
        silent = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        children.append(Child(*command, **silent, **popen_arguments))

    atexit.register(stop)
    screen = ["-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset"]
    # The server picks a free display number, and reports it when ready.
    display = _answer(lambda fd: child("Xvfb", "-displayfd", fd, *screen, pass_fds=[fd]))
    os.environ["DISPLAY"] = f":{display}"
    bus = ["dbus-daemon", "--session", "--nofork", "--nopidfile"]
    address = _answer(lambda fd: child(*bus, f"--print-address={fd}", pass_fds=[fd]))
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = address
    child(BUS_LAUNCHER, "--launch-immediately")
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    os.environ["QT_QPA_PLATFORM"] = "xcb"
    # Otherwise, the first program to ask for it would start another one.
    eventually("the accessibility bus is there", _has_accessibility_bus)
    child("openbox")
    eventually("a window manager is there", _has_window_manager)


def accessibility_bus():
    """A separate connection to the bus, for what the accessibility library cannot do."""
    (address,) = _ask("org.a11y.Bus", "/org/a11y/bus", "GetAddress")
    flags = Gio.DBusConnectionFlags
    return Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None
    )


def x_windows(title, pid=None):
    """The X numbers of the windows with that title, optionally only those of a process."""
    of_process = ["--pid", str(pid)] if pid else []
    search = ["xdotool", "search", "--all", "--onlyvisible", *of_process, "--name", f"^{title}$"]
    return subprocess.run(search, capture_output=True, text=True, check=False).stdout.split()


def _has_accessibility_bus():
    name = GLib.Variant("(s)", ("org.a11y.Bus",))
    return _ask("org.freedesktop.DBus", "/org/freedesktop/DBus", "NameHasOwner", name)[0]


def _ask(name, path, method, arguments=None):
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    session.set_exit_on_close(False)
    return session.call_sync(
        name, path, name, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None
    )


def _answer(start):
    """The line that a program writes to the descriptor passed to it."""
    read_end, write_end = os.pipe()
    start(write_end)
    os.close(write_end)
    with os.fdopen(read_end) as answer:
        return answer.readline().strip()


def _has_window_manager():
    asked = subprocess.run(["xdotool", "get_num_desktops"], capture_output=True, check=False)
    return asked.returncode == 0


def copied_text():
    """What is on the clipboard."""
    asked = ["xclip", "-out", "-selection", "clipboard"]
    answer = subprocess.run(asked, capture_output=True, check=False, timeout=PATIENCE)
    return answer.stdout.decode()


@contextlib.contextmanager
def clipboard(text):
    """Makes this the text that another program has copied, meanwhile."""
    with tempfile.NamedTemporaryFile(prefix="vexa-e2e-clipboard-") as file:
        file.write(text.encode())
        file.flush()
        copying = ["xclip", "-quiet", "-selection", "clipboard", file.name]
        owner = Child(*copying, stderr=subprocess.DEVNULL)
        try:
            eventually("the text is on the clipboard", lambda: copied_text() == text)
            yield
        finally:
            owner.stop()
