"""The program on the desktop: a second launch, calls on the session bus, files dropped on the
window, and the end of the session."""

import os
import pathlib
import signal
import subprocess
import tempfile
import unittest

from gi.repository import Gio, GLib

from support import desktop, program
from support.batch_list import TITLE, BatchList
from support.cases import DeviceTest, ProgramTest
from support.drag import DragSource
from support.items import Item, items_in, list_file
from support.session_manager import SessionManager
from support.startup import StartupMessages
from support.waiting import eventually
from support.window import Window, center
from support.wire import STOP, play

ID = "io.github.vexaremote.VexaRemote"
PATH = "/" + ID.replace(".", "/")
UNTITLED = "Vexa Remote: Untitled Batch List"
ODD_NAME = "Tag #1 – 100% für Ωmega 磁带 %41"
ADDED = Item(1, "added", "01:00:00:00", "01:00:01:00")


def setUpModule():
    desktop.start()


def call(method, *arguments, platform_data=None):
    """Calls the application as other programs do."""
    signatures = {"Activate": "(a{sv})", "Open": "(asa{sv})", "ActivateAction": "(sava{sv})"}
    Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
        ID,
        PATH,
        "org.freedesktop.Application",
        method,
        GLib.Variant(signatures[method], (*arguments, platform_data or {})),
        None,
        Gio.DBusCallFlags.NO_AUTO_START,
        5000,
        None,
    )


def await_window_of(running, title):
    """For programs that the accessibility bus does not know or cannot reach."""
    eventually("it has a window", lambda: desktop.x_windows(title, running.pid))


class DyingProgram:
    """Owns the program's name on the bus, and ends instead of answering."""

    INTERFACE = """<node><interface name="org.freedesktop.Application"><method name="Open">
        <arg type="as" direction="in"/><arg type="a{sv}" direction="in"/>
        </method></interface></node>"""

    def __init__(self):
        flags = Gio.DBusConnectionFlags
        self._bus = Gio.DBusConnection.new_for_address_sync(
            os.environ["DBUS_SESSION_BUS_ADDRESS"],
            flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION,
            None,
            None,
        )
        interface = Gio.DBusNodeInfo.new_for_xml(self.INTERFACE).interfaces[0]
        self._bus.register_object(PATH, interface, lambda *_: self._bus.close_sync(), None, None)
        name = ("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName")
        wanted = GLib.Variant("(su)", (ID, 0))
        self._bus.call_sync(*name, wanted, None, Gio.DBusCallFlags.NONE, -1, None)

    def is_gone(self):
        GLib.MainContext.default().iteration(False)
        return self._bus.is_closed()


class RunningProgram:
    """Mixed into a case: adds its window, files to open, and a change to the list."""

    def setUp(self):
        super().setUp()
        folder = tempfile.TemporaryDirectory(prefix="vexa-e2e-lists-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def list_file(self, name):
        """A list of one item, with the file's name as its title."""
        file = self.folder / f"{name}.vexaB"
        file.write_bytes(list_file([Item(1, name, "01:00:00:00", "02:00:00:00")]))
        return file

    def launch_again(self, *arguments, **options):
        done = program.run(*map(str, arguments), **options)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def expect_opened(self, name):
        eventually(f"{name} is open", lambda: self.window.titles() == [f"Vexa Remote: {name}"])
        batch = BatchList(self.window)
        eventually("its item is shown", lambda: [row[TITLE] for row in batch.rows()] == [name])

    def change_list(self):
        batch = BatchList(self.window)
        batch.set_up(ADDED)
        batch.add(ADDED)

    def items_saved(self):
        return len(items_in((self.folder / "first.vexaB").read_bytes()))

    def answer(self, button):
        self.end_question(lambda: self.window.press(button))

    def cancel_question(self):
        self.end_question(lambda: self.window.keys("Escape"))

    def end_question(self, end):
        eventually("the question is there", lambda: len(self.window.titles()) == 2)
        end()
        eventually("the question is gone", lambda: len(self.window.titles()) < 2)


class AtRest(RunningProgram, ProgramTest):
    def setUp(self):
        super().setUp()
        self.window = Window("--midi", "none", str(self.list_file("first")))
        self.addCleanup(self.window.close)

    def test_a_second_launch_hands_over_its_file(self):
        for number, to_argument in enumerate((str, pathlib.Path.as_uri, lambda file: file.name)):
            with self.subTest(number):
                name = f"{ODD_NAME} {number}"
                self.launch_again(to_argument(self.list_file(name)), folder=self.folder)
                self.expect_opened(name)

    def test_a_second_launch_brings_the_window_back(self):
        other = DragSource("something")
        self.addCleanup(other.close)
        self.window.minimize()
        self.launch_again()
        self.window.await_raised()
        other.activate()
        self.launch_again()
        self.window.await_raised()

    def test_the_list_is_saved_first(self):
        self.change_list()
        self.launch_again(self.list_file("second"))
        self.answer("Save")
        self.expect_opened("second")
        self.assertEqual(self.items_saved(), 2)

    def test_the_list_is_given_up(self):
        self.change_list()
        self.launch_again(self.list_file("second"))
        self.answer("Don't Save")
        self.expect_opened("second")
        self.assertEqual(self.items_saved(), 1)

    def test_the_list_is_kept(self):
        self.change_list()
        self.launch_again(self.list_file("second"))
        self.cancel_question()
        self.assertIn("Save", self.window.menu("File"))

    def test_files_wait_for_an_open_panel(self):
        batch = BatchList(self.window)
        batch.set_up(ADDED)
        batch.open_panel()
        self.launch_again(self.list_file("second"))
        self.launch_again(self.list_file("third"))
        self.assertIn("Vexa Remote: first", self.window.titles())
        batch.close_panel("Escape")
        self.expect_opened("third")

    def test_a_launch_with_midi_of_its_own_runs_on_its_own(self):
        with_its_own = Window("--midi", "none")
        self.assertEqual(with_its_own.titles(), [UNTITLED])
        with_its_own.close()
        self.expect_opened("first")

    def test_nobody_waits_long_for_a_program_that_hangs(self):
        self.window.program.send_signal(signal.SIGSTOP)
        self.addCleanup(self.window.program.send_signal, signal.SIGCONT)
        second = program.start(self.list_file("second"), stderr=subprocess.PIPE)
        self.addCleanup(second.stderr.close)
        self.addCleanup(second.stop)
        self.assertRegex(second.stderr.readline(), r"^vexa-remote: .* is not responding")
        await_window_of(second, "Vexa Remote: second")

    def test_other_programs_open_files(self):
        call("Open", [self.list_file(ODD_NAME).as_uri(), self.list_file("second").as_uri()])
        self.expect_opened(ODD_NAME)
        call("Open", ["https://example.org/x.vexaB", "nonsense", ""])
        call("Open", [])
        call("Activate")
        call("ActivateAction", "nonsense", [])
        call("Open", ["https://example.org/x.vexaB", self.list_file("third").as_uri()])
        self.expect_opened("third")

    def test_the_launch_of_a_second_time_ends(self):
        launches = StartupMessages()
        call("Activate", platform_data={"desktop-startup-id": GLib.Variant("s", 'x"_TIME0')})
        self.assertEqual(launches.next(), 'remove: ID="x\\"_TIME0"')

    def test_a_file_is_dropped(self):
        for target in ("Current time", "Batch stripe list"):
            with self.subTest(target=target):
                name = f"{ODD_NAME} {target}"
                self.drop(name, target)
                self.expect_opened(name)

    def test_the_list_is_saved_before_a_dropped_one_is_opened(self):
        self.change_list()
        self.drop("second")
        self.answer("Don't Save")
        self.expect_opened("second")

    def test_other_things_are_not_taken(self):
        for thing in ("words", "https://example.org/second.vexaB"):
            with self.subTest(thing=thing):
                source = self.drag(thing, "Current time")
                self.assertEqual(source.drop(), "refused")
                source.close()
        self.expect_opened("first")

    def drag(self, thing, target):
        source = DragSource(thing)
        self.addCleanup(source.close)
        source.drag_to(*center(self.window.widget(target)))
        return source

    def drop(self, name, target="Current time"):
        """Drops a list as a file manager does, which would rather move it than copy it."""
        source = self.drag(self.list_file(name).as_uri(), target)
        source.await_welcome()
        self.assertEqual(source.drop(), "copied")


class InPlaceOfAnother(RunningProgram, ProgramTest):
    def test_one_that_dies_when_it_is_asked_is_succeeded(self):
        dying = DyingProgram()
        second = program.start(self.list_file("second"), stderr=subprocess.PIPE)
        self.addCleanup(second.stderr.close)
        self.addCleanup(second.stop)
        eventually("it is asked", dying.is_gone)
        self.assertRegex(second.stderr.readline(), r"^vexa-remote: .* is not responding")
        await_window_of(second, "Vexa Remote: second")
        self.launch_again(self.list_file("third"))
        await_window_of(second, "Vexa Remote: third")


class WhileStriping(RunningProgram, DeviceTest):
    def setUp(self):
        super().setUp()
        self.window = self.open_window()

    def play(self):
        self.window.type_time("Stop time", "02:00:00:00")
        self.window.keys("F6")
        self.expect_messages(*play(1, 0, 0, 0, 2))

    def check_run_goes_on(self):
        clock = self.window.shown("Current time")
        eventually("the clock goes on", lambda: self.window.shown("Current time") > clock)
        self.assertEqual(self.window.titles(), [UNTITLED])
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_nothing_is_opened(self):
        self.play()
        self.launch_again(self.list_file("second"))
        self.check_run_goes_on()

    def test_the_question_comes_and_nothing_is_opened(self):
        self.change_list()
        self.play()
        self.launch_again(self.list_file("second"))
        self.answer("Don't Save")
        self.check_run_goes_on()


class LogOut(RunningProgram, ProgramTest):
    def setUp(self):
        super().setUp()
        self.session = SessionManager()
        self.addCleanup(self.session.close)
        self.window = Window("--midi", "none", str(self.list_file("first")))
        self.addCleanup(self.window.close)

    def expect_end(self):
        self.assertEqual(self.window.program.wait(), 0)
        self.session.await_end()

    def test_nothing_is_asked_without_changes(self):
        self.session.log_out()
        self.expect_end()

    def test_the_list_is_saved(self):
        self.change_list()
        self.session.log_out()
        self.answer("Save")
        self.expect_end()
        self.assertEqual(self.items_saved(), 2)

    def test_the_list_is_given_up(self):
        self.change_list()
        self.session.log_out()
        self.answer("Don't Save")
        self.expect_end()
        self.assertEqual(self.items_saved(), 1)

    def test_the_operator_stays_for_a_while(self):
        self.change_list()
        self.session.log_out()
        self.cancel_question()
        self.session.take_note_of_refusal()
        self.assertIn("Save", self.window.menu("File"))
        self.session.log_out()
        self.answer("Don't Save")
        self.expect_end()

    def test_nothing_is_asked_over_another_question(self):
        self.change_list()
        self.window.keys("ctrl+n")
        eventually("the question is there", lambda: len(self.window.titles()) == 2)
        self.session.log_out()
        self.session.take_note_of_refusal()
        self.assertEqual(len(self.window.titles()), 2)
        self.window.answer("Cancel")
        self.assertIn("Save", self.window.menu("File"))
        self.session.log_out()
        self.answer("Don't Save")
        self.expect_end()

    def test_nothing_is_asked_where_that_is_not_allowed(self):
        self.change_list()
        self.session.log_out_without_questions()
        self.expect_end()


class WithoutBus(ProgramTest):
    def test_the_program_runs(self):
        address = os.environ["DBUS_SESSION_BUS_ADDRESS"]
        self.addCleanup(os.environ.__setitem__, "DBUS_SESSION_BUS_ADDRESS", address)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent"
        running = program.start("--midi", "none")
        self.addCleanup(running.stop)
        await_window_of(running, UNTITLED)


if __name__ == "__main__":
    unittest.main()
