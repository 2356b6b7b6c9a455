"""A screen, a window manager and an accessibility bus for this test process alone."""

import atexit
import contextlib
import functools
import os
import subprocess
import tempfile

from gi.repository import Gio, GLib

from support.processes import Child
from support.waiting import eventually

BUS_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


@functools.cache
def start():
    """Starts the desktop for as long as this process runs, and leads the process and those it
    starts to it. Once and no more: the accessibility library does not change buses."""
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
    screen = ["-screen", "0", "1800x1400x24", "-nolisten", "tcp", "-noreset"]
    # The server itself picks a display number that is free, and tells it when it is ready.
    display = _answer(lambda fd: child("Xvfb", "-displayfd", fd, *screen, pass_fds=[fd]))
    os.environ["DISPLAY"] = f":{display}"
    bus = ["dbus-daemon", "--session", "--nofork", "--nopidfile"]
    address = _answer(lambda fd: child(*bus, f"--print-address={fd}", pass_fds=[fd]))
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = address
    child(BUS_LAUNCHER, "--launch-immediately")
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    os.environ["QT_QPA_PLATFORM"] = "xcb"
    # Or the first program to ask for it would have another one started.
    eventually("the accessibility bus is there", _has_accessibility_bus)
    child("openbox")
    eventually("a window manager is there", _has_window_manager)


def accessibility_bus():
    """A connection to the bus of its own, for what the accessibility library does not do."""
    (address,) = _ask("org.a11y.Bus", "/org/a11y/bus", "GetAddress")
    flags = Gio.DBusConnectionFlags
    return Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None
    )


def x_windows(title, pid=None):
    """The windows with that title, of that process if given, by their X numbers."""
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
    """The line that a program writes to the descriptor that it is started with."""
    read_end, write_end = os.pipe()
    start(write_end)
    os.close(write_end)
    with os.fdopen(read_end) as answer:
        return answer.readline().strip()


def _has_window_manager():
    asked = subprocess.run(["xdotool", "get_num_desktops"], capture_output=True, check=False)
    return asked.returncode == 0


@contextlib.contextmanager
def clipboard(text):
    """Meanwhile, this is what another program has copied."""

    def is_held():
        asked = ["xclip", "-out", "-selection", "clipboard"]
        return subprocess.run(asked, capture_output=True, check=False).stdout == text.encode()

    with tempfile.NamedTemporaryFile(prefix="vexa-e2e-clipboard-") as file:
        file.write(text.encode())
        file.flush()
        copying = ["xclip", "-quiet", "-selection", "clipboard", file.name]
        owner = Child(*copying, stderr=subprocess.DEVNULL)
        try:
            eventually("the text is on the clipboard", is_held)
            yield
        finally:
            owner.stop()
