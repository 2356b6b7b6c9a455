"""The document commands in the window: every question with every answer, and files with any
name."""

import pathlib
import tempfile
import unittest

from support import desktop
from support.batch_list import BatchList
from support.cases import ProgramTest
from support.items import Item, items_in, list_file
from support.waiting import eventually
from support.window import Window

UNTITLED = "Vexa Remote: Untitled Batch List"
SAVE_BUTTONS = ["Save", "Don't Save", "Cancel"]
SAVE_NEW = (
    "Do you want to save the current batch list before proceeding?",
    "It has never been saved.",
    SAVE_BUTTONS,
)
ODD_NAME = "Плёнка 50% #1 – day & night.vexaB"


def setUpModule():
    desktop.start()


def save_changed(title):
    question = f"Do you want to save {title} before proceeding?"
    return (question, "It has changed since it was last saved.", SAVE_BUTTONS)


class Documents(ProgramTest):
    def setUp(self):
        super().setUp()
        folder = tempfile.TemporaryDirectory(prefix="vexa-e2e-lists-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def open_window(self, *arguments):
        self.window = Window("--midi", "none", *map(str, arguments))
        self.addCleanup(self.window.close)
        self.list = BatchList(self.window)

    def file(self, name, items):
        """A list file with that many items."""
        path = self.folder / name
        path.write_bytes(list_file([Item(1, "item", "01:00:00:00", "02:00:00:00")] * items))
        return path

    def items_in(self, path):
        return len(items_in(path.read_bytes()))

    def await_rows(self, count):
        eventually(f"there are {count} rows", lambda: self.list.length() == count)

    def add_item(self):
        before = self.list.length()
        if "(Add to Batch List…)" in self.window.menu("Batch List"):
            self.window.keys("F8")
            self.window.await_on("Set stop time")
        self.list.open_panel()
        self.list.close_panel("Return")
        self.await_rows(before + 1)

    def await_question(self, question):
        eventually("a question is asked", self.window.question)
        self.assertEqual(self.window.question(), question)

    def in_panel(self, title, path=None):
        """Enters a path in a file panel, or cancels the panel."""
        if path:
            self.window.choose_file(title, path)
        else:
            self.window.await_active(title)
            self.window.keys("Escape")
            self.window.await_title(title, there=False)

    def expect(self, title, rows, can_save):
        self.window.await_active(title)
        self.await_rows(rows)
        save = "Save" if can_save else "(Save)"
        eventually(f"the menu has {save}", lambda: save in self.window.menu("File"))

    def test_new(self):
        self.open_window()
        self.window.keys("ctrl+n")
        self.expect(UNTITLED, 0, can_save=False)

        self.add_item()
        self.window.keys("ctrl+n")
        self.await_question(SAVE_NEW)
        self.window.answer("Cancel")
        self.expect(UNTITLED, 1, can_save=True)

        self.window.keys("ctrl+n")
        self.await_question(SAVE_NEW)
        self.window.keys("Escape")
        eventually("the question is gone", lambda: not self.window.question())
        self.expect(UNTITLED, 1, can_save=True)

        self.window.keys("ctrl+n")
        self.await_question(SAVE_NEW)
        self.window.answer("Don't Save")
        self.expect(UNTITLED, 0, can_save=False)

        self.add_item()
        self.window.keys("ctrl+n")
        self.await_question(SAVE_NEW)
        self.window.keys("Return")
        self.in_panel("Save Batch List", self.folder / "Kept")
        self.expect(UNTITLED, 0, can_save=False)
        self.assertEqual(self.items_in(self.folder / "Kept.vexaB"), 1)

        self.add_item()
        self.window.keys("ctrl+n")
        self.await_question(SAVE_NEW)
        self.window.answer("Save")
        self.in_panel("Save Batch List")
        self.expect(UNTITLED, 0, can_save=False)
        self.assertEqual([p.name for p in self.folder.iterdir()], ["Kept.vexaB"])

    def test_open(self):
        day = self.file("Day.vexaB", 3)
        odd = self.file(ODD_NAME, 2)
        self.open_window(day)
        self.expect("Vexa Remote: Day", 3, can_save=False)
        self.window.keys("ctrl+o")
        self.in_panel("Open Batch List")
        self.expect("Vexa Remote: Day", 3, can_save=False)
        self.window.keys("ctrl+o")
        self.in_panel("Open Batch List", odd)
        self.expect("Vexa Remote: Плёнка 50% #1 – day & night", 2, can_save=False)

        self.add_item()
        self.window.keys("ctrl+o")
        self.await_question(save_changed("Плёнка 50% #1 – day & night"))
        self.window.answer("Cancel")
        self.expect("Vexa Remote: Плёнка 50% #1 – day & night", 3, can_save=True)

        self.window.keys("ctrl+o")
        self.window.answer("Save")
        self.in_panel("Open Batch List", day)
        self.expect("Vexa Remote: Day", 3, can_save=False)
        self.assertEqual(self.items_in(odd), 3)

        self.add_item()
        self.window.keys("ctrl+o")
        self.window.answer("Don't Save")
        self.in_panel("Open Batch List", odd)
        self.expect("Vexa Remote: Плёнка 50% #1 – day & night", 3, can_save=False)
        self.assertEqual(self.items_in(day), 3)

    def test_save(self):
        self.open_window()
        self.expect(UNTITLED, 0, can_save=False)
        self.add_item()
        self.window.keys("ctrl+s")
        self.in_panel("Save Batch List")
        self.expect(UNTITLED, 1, can_save=True)

        self.window.keys("ctrl+s")
        self.window.await_active("Save Batch List")
        self.assertEqual(self.window.text("File name:"), "Untitled Batch List.vexaB")
        self.in_panel("Save Batch List", self.folder / "Show.final")
        self.expect("Vexa Remote: Show", 1, can_save=False)
        first = self.folder / "Show.final.vexaB"

        self.add_item()
        self.window.keys("ctrl+s")
        self.expect("Vexa Remote: Show", 2, can_save=False)
        eventually("it is saved", lambda: self.items_in(first) == 2)

        self.window.keys("ctrl+shift+s")
        self.in_panel("Save Batch List", self.folder / ODD_NAME)
        self.expect("Vexa Remote: Плёнка 50% #1 – day & night", 2, can_save=False)
        self.add_item()
        self.window.keys("ctrl+s")
        self.expect("Vexa Remote: Плёнка 50% #1 – day & night", 3, can_save=False)
        self.assertEqual(self.items_in(self.folder / ODD_NAME), 3)
        self.assertEqual(self.items_in(first), 2)

    def test_what_makes_a_list_changed(self):
        self.open_window(self.file("Day.vexaB", 1))
        self.add_item()
        self.window.keys("ctrl+s")
        self.expect("Vexa Remote: Day", 2, can_save=False)
        self.window.keys("ctrl+z")
        self.expect("Vexa Remote: Day", 1, can_save=True)
        self.window.keys("ctrl+s")
        self.expect("Vexa Remote: Day", 1, can_save=False)
        self.window.keys("ctrl+shift+z")
        self.expect("Vexa Remote: Day", 2, can_save=False)
        self.window.click("Batch stripe list")
        self.window.keys("ctrl+a", "Delete")
        self.expect("Vexa Remote: Day", 0, can_save=False)

    def test_revert(self):
        revert = (
            "Do you want to revert to the saved version of Day?",
            "It has changed since it was last saved.",
            ["Revert", "Cancel"],
        )
        self.open_window(self.file("Day.vexaB", 2))
        self.assertIn("(Revert to Saved)", self.window.menu("File"))
        self.add_item()
        self.window.choose("File", "Revert to Saved")
        self.await_question(revert)
        self.window.answer("Cancel")
        self.expect("Vexa Remote: Day", 3, can_save=True)
        self.window.choose("File", "Revert to Saved")
        self.await_question(revert)
        self.window.keys("Return")
        self.expect("Vexa Remote: Day", 2, can_save=False)
        self.assertIn("(Revert to Saved)", self.window.menu("File"))

    def test_closing(self):
        self.open_window()
        self.add_item()
        self.window.keys("ctrl+q")
        self.await_question(SAVE_NEW)
        self.window.answer("Cancel")
        self.window.keys("ctrl+q")
        self.await_question(SAVE_NEW)
        self.window.answer("Save")
        self.in_panel("Save Batch List")
        self.expect(UNTITLED, 1, can_save=True)
        self.window.keys("alt+F4")
        self.await_question(SAVE_NEW)
        self.window.answer("Save")
        self.in_panel("Save Batch List", self.folder / "Last.vexaB")
        self.assertEqual(self.window.program.wait(), 0)
        self.assertEqual(self.items_in(self.folder / "Last.vexaB"), 1)

    def test_closing_without_saving(self):
        day = self.file("Day.vexaB", 1)
        self.open_window(day)
        self.add_item()
        self.window.keys("ctrl+q")
        self.await_question(save_changed("Day"))
        self.window.answer("Don't Save")
        self.assertEqual(self.window.program.wait(), 0)
        self.assertEqual(self.items_in(day), 1)

    def recent(self):
        """The items of Open Recent. Leaves the menu open."""
        self.window.keys("alt+f", "c")
        eventually("the menu is open", lambda: self.window.menu("File", "Open Recent"))
        return self.window.menu("File", "Open Recent")

    def test_open_recent(self):
        day, night = self.file("Day.vexaB", 1), self.file("Night & more.vexaB", 2)
        gone = self.file("Gone.vexaB", 3)
        self.open_window()
        self.assertEqual(self.recent(), ["(Clear Menu)"])
        self.window.keys("Escape", "Escape")
        for path in (day, gone, night):
            self.window.keys("ctrl+o")
            self.in_panel("Open Batch List", path)
        self.window.close()

        gone.unlink()
        self.open_window()
        self.assertEqual(
            self.recent(),
            ["Night & more.vexaB", "(Gone.vexaB (not found))", "Day.vexaB", "Clear Menu"],
        )
        self.window.keys("Down", "Return")  # past the missing file
        self.expect("Vexa Remote: Day", 1, can_save=False)

        self.add_item()
        self.assertEqual(self.recent()[:2], ["Day.vexaB", "Night & more.vexaB"])
        self.window.keys("Down", "Return")
        self.await_question(save_changed("Day"))
        self.window.answer("Cancel")
        self.expect("Vexa Remote: Day", 2, can_save=True)
        self.recent()
        self.window.keys("Down", "Return")
        self.await_question(save_changed("Day"))
        self.window.answer("Don't Save")
        self.expect("Vexa Remote: Night & more", 2, can_save=False)

        self.window.keys("F6")
        self.window.await_on("Play")
        self.assertIn("(Open Recent)", self.window.menu("File"))
        self.window.keys("F5")
        self.window.await_on("Stop")
        self.recent()
        self.window.keys("Up", "Return")
        self.assertEqual(self.recent(), ["(Clear Menu)"])


if __name__ == "__main__":
    unittest.main()
