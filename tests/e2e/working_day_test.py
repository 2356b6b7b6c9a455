"""Whole days of an operator, from the first launch to a crash."""

import unittest
from itertools import cycle

from support import desktop
from support.batch_list import BatchList
from support.cases import DeviceTest
from support.items import RATES, SYNC_TYPES, Item, items_in
from support.jack import MidiMonitor
from support.preferences import Preferences
from support.waiting import eventually
from support.window import Window
from support.wire import STOP, play, run, stripe

FPS_30 = 2  # the mode code with MTC


def setUpModule():
    desktop.start()


class TheFirstDay(DeviceTest):
    def test_a_destination_is_chosen_a_reel_striped_and_the_choice_remembered(self):
        tape_room = MidiMonitor("tape-room")
        self.addCleanup(tape_room.stop)

        def expect_in_tape_room(*messages):
            self.assertEqual([m for _, m in tape_room.take(len(messages))], list(messages))

        window = self.open_window()
        panel = Preferences(window)
        panel.open()
        panel.change(delay="5", destination=1)
        window.await_shown("MIDI destination", "tape-room:input")
        panel.close("Return")
        expect_in_tape_room(STOP)
        window.type_time("Start time", "10:00:00:00")
        window.type_time("Stop time", "10:00:01:00")
        window.keys("F6")
        expect_in_tape_room(*play(10, 0, 0, 0, FPS_30), STOP, STOP)
        window.await_on("Stop")
        self.assertEqual(window.shown("Current time"), "10:00:01:00")
        window.keys("ctrl+q")
        self.assertEqual(window.program.wait(), 0)

        window = Window("--midi", "jack")
        self.addCleanup(window.close)
        expect_in_tape_room(STOP, STOP)  # one on finding it, one at start-up
        panel = Preferences(window)
        panel.open()
        self.assertEqual(panel.shown(), ("5", "tape-room:input", "30 fps", "MTC", True))
        panel.close("Escape")
        window.keys("F6", "F5")
        expect_in_tape_room(*play(1, 0, 0, 0, FPS_30), STOP)


class TenReels(DeviceTest):
    """The operator edits the list in the pauses, while walking to the machine."""

    REELS = [
        Item(n, f"reel {n}", f"{n:02}:00:00:00", f"{n:02}:00:00:10", rate, sync)
        for n, rate, sync in zip(range(1, 11), cycle(RATES), cycle(SYNC_TYPES))
    ]

    def setUp(self):
        super().setUp()
        self.write_settings(vexadelay=8)  # on a busy machine, an edit takes part of it
        self.window, self.batch, self.file = self.open_list(self.REELS)

    def row_of(self, reel):
        return [row[0] for row in self.batch.rows()].index(str(reel))

    def rename(self, reel, title):
        self.batch.rename(self.row_of(reel), title)

    def delete(self, reel):
        length = self.batch.length()
        self.batch.select(self.row_of(reel))
        self.window.keys("Delete")
        eventually("the list is shorter", lambda: self.batch.length() == length - 1)

    def undo(self):
        length = self.batch.length()
        self.window.keys("ctrl+z")
        eventually("the list is longer", lambda: self.batch.length() == length + 1)

    def test_each_is_striped_as_the_list_stands_when_its_turn_comes(self):
        # Has the rate and sync type of the reel that is striped just before it is added.
        encore = self.REELS[4 - 1]._replace(
            reel=11, title="encore", start="20:00:00:00", stop="20:00:00:08"
        )
        edits_after = {
            1: lambda: self.rename(3, "reel 3, second take"),
            2: lambda: self.delete(5),
            3: self.undo,
            4: lambda: self.batch.add(encore),
            5: lambda: self.delete(7),
        }
        striped = [item for item in self.REELS if item.reel != 7] + [encore]
        striped[2] = striped[2]._replace(title="reel 3, second take")
        self.window.type_time("Start time", encore.start)
        self.window.type_time("Stop time", encore.stop)
        self.window.press("Batch striping")
        self.window.keys("F6")
        self.expect_messages(STOP, *stripe(striped[0]))
        for before, item in zip(striped, striped[1:]):
            edits_after.get(before.reel, lambda: None)()
            self.window.await_alert(f"Please load reel {item.reel}, then hit Continue")
            self.window.press("Continue")
            self.window.await_shown("Current item", item.title)
            self.expect_messages(*stripe(item), *[STOP] * (item is striped[-1]))
        self.batch.await_items(striped)
        self.assertEqual(self.batch.marks(), ["Finished"] * 10)
        self.assertEqual(self.window.shown("Start time"), encore.start)
        self.assertEqual(self.window.shown("Stop time"), encore.stop)
        self.window.keys("ctrl+s")
        eventually("it is saved", lambda: items_in(self.file.read_bytes()) == striped)


class ADayOfUndo(DeviceTest):
    LIST = [Item(n, f"item {n}", f"0{n}:00:00:00", f"0{n}:00:05:00") for n in range(1, 4)]

    def setUp(self):
        super().setUp()
        self.window, self.batch, _ = self.open_list(self.LIST)

    def state(self):
        """Everything that an edit can change, and the title of the Undo item."""
        times = [self.window.shown(name) for name in ("Start time", "Stop time")]
        return self.window.all_on(), times, self.batch.rows(), self.window.menu("Edit")[0]

    def await_state(self, wanted):
        eventually(f"everything is {wanted}", lambda: self.state() == wanted)

    def test_undone_all_the_way_and_redone_all_the_way(self):
        def time(name, text):
            self.window.type_time(name, text)
            self.window.await_on(name, False)

        def add(reel):
            self.batch.add(Item(reel, f"added to {reel}", "", ""))

        def check(name, on, press):
            press(name)
            self.window.await_on(name, on)

        def delete(rows, how):
            length = self.batch.length()
            self.batch.select(*rows)
            how()
            eventually("they are gone", lambda: self.batch.length() == length - len(rows))

        def stripe_selected():
            self.batch.select(0)
            choose("Selected")

        def choose(name):
            self.window.press(name)
            self.window.await_on(name)

        def f8(on):
            check("Set stop time", on, lambda _: self.window.keys("F8"))

        def ctrl_b(on):
            check("Batch striping", on, lambda _: self.window.keys("ctrl+b"))

        edits = [
            ("Change Start Time", lambda: time("Start time", "02:00:00:00")),
            ("Change Stop Time", lambda: time("Stop time", "02:00:10:00")),
            ("Change Frame Rate", lambda: choose("25 fps")),
            ("Change Sync Type", lambda: choose("DTL")),
            ("Add to Batch List", lambda: add(7)),
            ("Change Start Time", lambda: time("Start time", "03:00:00:00")),
            ("Set Stop Time", lambda: f8(False)),
            ("Set Stop Time", lambda: f8(True)),
            ("Change Sync Type", lambda: choose("FSK")),
            ("Add to Batch List", lambda: add(2)),
            ("Delete Selected Rows", lambda: delete([0, 3], lambda: self.window.keys("Delete"))),
            ("Turn On Batch Striping", lambda: ctrl_b(True)),
            ("Change Sync Type", lambda: choose("MTC")),
            ("Change Frame Rate", lambda: choose("24 fps")),
            ("Turn Off Batch Striping", lambda: ctrl_b(False)),
            ("Turn On Batch Striping", lambda: ctrl_b(True)),
            (
                "Delete Selected Rows",
                lambda: delete([1], lambda: self.window.click("Remove selected items")),
            ),
            ("Stripe Selected", stripe_selected),
        ]
        self.batch.rename(0, "renamed for good")
        states = [self.state()]
        for name, edit in edits:
            edit()
            states.append(self.state())
            self.assertEqual(states[-1][-1], f"Undo {name}")
        for state, (name, _) in zip(reversed(states[:-1]), reversed(edits)):
            self.window.keys("ctrl+z")
            if name == "Change Stop Time":
                # Pressing the stop time commits the unchanged start time, as a separate step.
                self.window.keys("ctrl+z")
            self.await_state(state)
        self.assertEqual(states[0][-1], "(Undo)")
        for state, (name, _) in zip(states[1:], edits):
            self.window.keys("ctrl+shift+z")
            if name == "Change Stop Time":
                self.window.keys("ctrl+shift+z")
            self.await_state(state)
        self.assertEqual(self.window.menu("Edit")[1], "(Redo)")


class ADayOfCrashes(DeviceTest):
    LIST = ADayOfUndo.LIST

    def setUp(self):
        super().setUp()
        self.window, self.batch, self.file = self.open_list(self.LIST)

    def add(self, title):
        """Adds an item and returns the new list."""
        if not self.window.is_on("Set stop time"):
            self.window.press("Set stop time")
            self.window.await_shown("Stop time", "01:00:05:00")
        new = Item(9, title, "01:00:00:00", "01:00:05:00")
        before = items_in(self.file.read_bytes())
        self.batch.add(new)
        return [*before, new]

    def crash(self):
        self.window.program.kill()
        self.replace_server()  # the server waits for a killed client

    def reopen(self):
        self.window = self.open_window(str(self.file))
        self.batch = BatchList(self.window)

    def test_what_was_not_saved_is_not_in_the_file(self):
        self.add("lost")
        self.crash()
        self.reopen()
        self.batch.await_items(self.LIST)

    def test_what_was_saved_is_in_the_file(self):
        changed = self.add("kept")
        self.window.keys("ctrl+s")
        eventually("it is saved", lambda: "(Save)" in self.window.menu("File"))
        self.crash()
        self.reopen()
        self.batch.await_items(changed)
        self.window.press("Batch striping")
        self.window.keys("F6")
        self.expect_messages(*run(changed)[:3])
        self.window.keys("F5")
        self.expect_messages(STOP)

    def test_a_save_that_is_cut_off_leaves_the_old_list_or_the_new_one(self):
        old = self.LIST
        for attempt in range(5):
            new = self.add(f"attempt {attempt}")
            self.window.keys("ctrl+s")
            self.crash()
            saved = items_in(self.file.read_bytes())
            self.assertIn(saved, (old, new))
            self.reopen()
            self.batch.await_items(saved)
            old = saved


if __name__ == "__main__":
    unittest.main()
