"""A screen, a window manager and an accessibility bus for this test process alone."""

import contextlib
import os
import subprocess
import tempfile

from gi.repository import Gio

from support.processes import Child
from support.waiting import eventually

BUS_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


def start():
    """Starts the desktop, and leads this process and those it starts to it. Once a process: the
    accessibility library does not change buses. Returns the call that takes it all down."""
    runtime = tempfile.TemporaryDirectory(prefix="vexa-e2e-runtime-")
    os.environ["XDG_RUNTIME_DIR"] = runtime.name
    children = []

    def stop():
        for child in reversed(children):
            child.stop()
        runtime.cleanup()

    def child(*command, **popen_arguments):
        for output in ("stdout", "stderr"):
            popen_arguments.setdefault(output, subprocess.DEVNULL)
        children.append(Child(*command, **popen_arguments))
        return children[-1]

    try:
        os.environ["DISPLAY"] = _start_screen(child)
        bus = child(
            *["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=1"],
            stdout=subprocess.PIPE,
        )
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        os.environ["QT_QPA_PLATFORM"] = "xcb"
        child(BUS_LAUNCHER, "--launch-immediately")
        child("openbox")
        eventually("a window manager is there", _has_window_manager)
    except BaseException:
        stop()
        raise
    return stop


def accessibility_bus():
    """A connection to the bus of its own, for what the accessibility library does not do."""
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    place = ("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")
    (address,) = session.call_sync(*place, None, None, Gio.DBusCallFlags.NONE, -1, None)
    flags = Gio.DBusConnectionFlags
    return Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None
    )


def _start_screen(child):
    """The server itself picks a display number that is free, and tells it when it is ready."""
    read_end, write_end = os.pipe()
    options = ["-screen", "0", "1800x1400x24", "-nolisten", "tcp", "-noreset"]
    child("Xvfb", "-displayfd", write_end, *options, pass_fds=[write_end])
    os.close(write_end)
    with os.fdopen(read_end) as answer:
        return ":" + answer.readline().strip()


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
