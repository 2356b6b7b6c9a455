"""The batch list in the window: filled, edited, undone, and striped row by row."""

import unittest

from support import desktop
from support.batch_list import ADD_PANEL, COLUMNS, TITLE, BatchList
from support.cases import DeviceTest
from support.items import Item, items_in
from support.waiting import eventually
from support.wire import run

# Differ in each field of the sort order.
SORTED = [
    Item(1, "b", "00:59:59:20", "01:00:00:02", "30 df", "MTC"),
    Item(1, "Z", "01:00:00:00", "01:00:00:06", "25 fps", "DTL"),
    Item(1, "a", "01:00:00:00", "01:00:00:05", "24 fps", "MTC"),
    Item(1, "a", "01:00:00:00", "01:00:00:08", "30 fps", "FSK"),
    Item(12, "A", "00:00:00:00", "00:00:00:10", "30 fps", "DTL"),
]
ADDED_IN_ORDER = (3, 0, 4, 2, 1)
ALL = [0, 1, 2, 3, 4]


def setUpModule():
    desktop.start()


def without(*rows):
    return [item for row, item in enumerate(SORTED) if row not in rows]


class Adding(DeviceTest):
    def setUp(self):
        super().setUp()
        self.write_settings(vexadelay=0, vexapauseforreel="false")

    def test_in_any_order_the_items_stand_sorted_and_are_striped_as_they_stand(self):
        window = self.open_window()
        batch = BatchList(window)
        for row in ADDED_IN_ORDER:
            batch.set_up(SORTED[row])
            batch.add(SORTED[row])
        batch.await_items(SORTED)
        window.press("Batch striping")
        window.keys("F6")
        self.expect_messages(*run(SORTED))
        batch.await_marks(["Finished"] * len(SORTED))

    def test_the_panel_proposes_the_hour_as_reel_and_the_title_of_before(self):
        window = self.open_window()
        batch = BatchList(window)
        item = Item(7, "Overture", "02:00:00:00", "02:00:05:00")
        batch.set_up(item)
        window.click("Add to batch list")
        window.await_title(ADD_PANEL)
        self.assertEqual((window.text("Reel number"), window.text("Title")), ("2", ""))
        batch.close_panel("Return")
        untitled = item._replace(reel=2, title="untitled")
        batch.await_items([untitled])
        batch.add(item)
        batch.await_items([untitled, item])
        undo = window.menu("Edit")[0]
        batch.open_panel()
        self.assertEqual((window.text("Reel number"), window.text("Title")), ("2", "Overture"))
        batch.close_panel("Escape")
        batch.await_items([untitled, item])
        self.assertEqual(window.menu("Edit")[0], undo)

    def test_without_a_stop_time_nothing_can_be_added(self):
        window = self.open_window()
        self.assertFalse(window.is_shown("Add to batch list"))
        self.assertIn("(Add to Batch List…)", window.menu("Batch List"))
        window.keys("F9", "F8")
        window.await_on("Set stop time")
        self.assertNotIn(ADD_PANEL, window.titles())
        self.assertTrue(window.is_shown("Add to batch list"))

    def test_a_new_item_comes_into_view(self):
        hundred = [Item(n, f"item {n}", "01:00:00:00", "01:00:05:00") for n in range(100)]
        window, batch, _ = self.open_list(hundred)
        window.press("Set stop time")
        window.await_shown("Stop time", "01:00:05:00")
        for reel, row in ((100, 100), (3, 4), (51, 53)):
            self.assertFalse(batch.is_in_view(row - 1))
            batch.add(Item(reel, "~", "01:00:00:00", "01:00:05:00"))
            eventually(f"row {row} is in view", lambda: batch.is_in_view(row))
            self.assertEqual(batch.selected(), [])


class Editing(DeviceTest):
    def setUp(self):
        super().setUp()
        self.window, self.batch, self.file = self.open_list(SORTED)

    def check_edit_menu(self, undo, redo):
        self.assertEqual(self.window.menu("Edit")[:2], [undo, redo])

    def test_a_title_is_edited_where_it_stands(self):
        self.batch.rename(0, "zz")
        self.batch.double_click(2, TITLE)
        self.window.write("first")
        self.window.keys("Return")
        renamed = [SORTED[0]._replace(title="zz"), SORTED[1], SORTED[2]._replace(title="first")]
        renamed += SORTED[3:]
        self.batch.await_items(renamed)
        self.check_edit_menu("(Undo)", "(Redo)")
        self.assertIn("(Save)", self.window.menu("File"))

    def test_a_title_that_was_given_up_stays(self):
        self.batch.double_click(1, TITLE)
        self.window.write("other")
        self.window.keys("Escape")
        self.batch.rename(4, "last")
        self.batch.await_items([*SORTED[:4], SORTED[4]._replace(title="last")])

    def test_a_title_that_is_being_typed_is_taken_by_what_follows(self):
        self.window.press("Set stop time")
        self.window.await_shown("Stop time", "01:00:05:00")
        added = Item(20, "added", "01:00:00:00", "01:00:05:00")
        self.batch.add(added)
        self.begin_title(0, "saved")
        self.window.keys("ctrl+s")
        saved = [SORTED[0]._replace(title="saved"), *SORTED[1:], added]
        eventually("it is saved", lambda: items_in(self.file.read_bytes()) == saved)
        self.begin_title(4, "kept")
        self.window.choose("Edit", "Undo Add to Batch List")
        self.batch.await_items([*saved[:4], saved[4]._replace(title="kept")])

    def begin_title(self, row, title):
        self.batch.select(row)
        self.window.keys("F2")
        self.window.write(title)

    def test_the_keyboard_goes_on_from_the_place_of_a_deletion(self):
        self.batch.select(2)
        self.window.keys("Delete", "Down")
        self.batch.await_items(without(2))
        eventually("the next row but one", lambda: self.batch.selected() == [3])
        self.window.keys("ctrl+z")
        self.batch.await_items(SORTED)
        self.assertEqual(self.batch.selected(), [4])  # the same row
        self.window.keys("Down")
        eventually("the row after it", lambda: self.batch.selected() == [3])

    def test_nothing_but_a_title_is_edited(self):
        for column in COLUMNS:
            if column != TITLE:
                self.batch.double_click(1, column)
                self.window.write("9")
        self.batch.rename(4, "last")
        self.batch.await_items([*SORTED[:4], SORTED[4]._replace(title="last")])

    def check_deleted_and_back(self, delete):
        self.batch.select(0, 3)
        delete()
        self.batch.await_items(without(0, 3))
        self.check_edit_menu("Undo Delete Selected Rows", "(Redo)")
        self.assertFalse(self.window.is_shown("Remove selected items"))
        self.window.keys("ctrl+z")
        self.batch.await_items(SORTED)
        self.assertEqual(self.batch.selected(), [])
        self.check_edit_menu("(Undo)", "Redo Delete Selected Rows")
        self.window.keys("ctrl+shift+z")
        self.batch.await_items(without(0, 3))
        self.window.keys("ctrl+z")
        self.batch.await_items(SORTED)
        self.assertIn("(Save)", self.window.menu("File"))

    def test_rows_are_deleted_by_button(self):
        self.check_deleted_and_back(lambda: self.window.click("Remove selected items"))

    def test_rows_are_deleted_by_key(self):
        for key in ("Delete", "BackSpace"):
            with self.subTest(key=key):
                self.check_deleted_and_back(lambda: self.window.keys(key))

    def test_without_a_selection_the_key_deletes_nothing(self):
        self.batch.select(2)
        self.window.keys("ctrl+space")
        eventually("no row is selected", lambda: not self.batch.selected())
        self.window.keys("Delete", "F8")
        self.window.await_on("Set stop time")
        self.check_edit_menu("Undo Set Stop Time", "(Redo)")
        self.batch.await_items(SORTED)

    def test_the_last_row_takes_batch_striping_with_it(self):
        self.window.press("Batch striping")
        self.window.await_on("Batch striping")
        self.batch.select(*ALL)
        self.window.keys("Delete")
        self.batch.await_items([])
        self.window.await_on("Batch striping", False)
        self.assertFalse(self.window.is_enabled("Batch striping"))
        self.window.keys("ctrl+z")
        self.batch.await_items(SORTED)
        self.assertTrue(self.window.is_enabled("Batch striping"))
        self.assertFalse(self.window.is_on("Batch striping"))

    def test_batch_striping_is_turned_on_and_off(self):
        self.window.click("Batch striping")
        self.window.await_on("Batch striping")
        self.check_edit_menu("Undo Turn On Batch Striping", "(Redo)")
        self.window.keys("ctrl+b")
        self.window.await_on("Batch striping", False)
        self.check_edit_menu("Undo Turn Off Batch Striping", "(Redo)")
        self.window.keys("ctrl+z")
        self.window.await_on("Batch striping")
        self.check_edit_menu("Undo Turn On Batch Striping", "Redo Turn Off Batch Striping")
        self.window.keys("ctrl+z")
        self.window.await_on("Batch striping", False)
        self.window.keys("ctrl+shift+z")
        self.window.await_on("Batch striping")

    def test_the_choice_of_rows_turns_batch_striping_on(self):
        self.assertFalse(self.window.is_enabled("Selected"))
        self.batch.select(1)
        self.window.click("Selected")
        self.window.await_on("Selected")
        self.assertTrue(self.window.is_on("Batch striping"))
        self.check_edit_menu("Undo Stripe Selected", "(Redo)")
        self.window.click("Selected")
        self.window.keys("ctrl+z")
        self.window.await_on("All")
        self.assertTrue(self.window.is_on("Batch striping"))
        self.check_edit_menu("(Undo)", "Redo Stripe Selected")
        self.window.choose("Batch List", "Stripe Selected Items")
        self.window.await_on("Selected")
        self.check_edit_menu("(Undo)", "Redo Stripe Selected")


class Striping(DeviceTest):
    def test_the_row_under_way_is_marked_and_the_finished_ones_are_too(self):
        self.write_settings(vexadelay=0, vexapauseforreel="false")
        items = [Item(1, f"item {n}", f"0{n}:00:00:00", f"0{n}:00:00:20") for n in range(5)]
        window, batch, _ = self.open_list(items)
        batch.select(1, 3)
        window.click("Selected")
        window.await_on("Batch striping")
        window.keys("F6")
        batch.await_marks(["", "Under way", "", "", ""])
        self.assertEqual(window.shown("Current item"), "item 1")
        batch.await_marks(["", "Finished", "", "Under way", ""])
        self.assertEqual(window.shown("Current item"), "item 3")
        batch.await_marks(["", "Finished", "", "Finished", ""])
        self.expect_messages(*run([items[1], items[3]]))
        self.assertEqual(batch.selected(), [1, 3])

    def test_the_selected_rows_are_striped_though_others_come_in(self):
        self.write_settings(vexadelay=0, vexapauseforreel="false")
        items = [Item(1, f"item {n}", f"0{n}:00:00:00", f"0{n}:00:00:20") for n in range(5)]
        window, batch, _ = self.open_list(items)
        window.press("Set stop time")
        window.await_shown("Stop time", "01:00:05:00")
        batch.select(1, 3)
        window.click("Selected")
        window.await_on("Selected")
        batch.add(Item(0, "first", "01:00:00:00", "01:00:05:00"))
        self.assertEqual(batch.selected(), [2, 4])
        self.assertTrue(window.is_on("Selected"))
        window.keys("F6")
        self.expect_messages(*run([items[1], items[3]]))
        batch.await_marks(["", "", "Finished", "", "Finished", ""])

    def test_marks_leave_a_title_that_is_being_typed_alone(self):
        items = [Item(1, "long", "01:00:00:00", "01:10:00:00")]
        window, batch, _ = self.open_list(items)
        window.press("Batch striping")
        batch.select(0)
        window.keys("F2")
        window.write("typed")
        window.keys("F6")
        batch.await_marks(["Under way"])
        window.keys("F5")
        batch.await_marks(["Stopped here"])
        window.keys("Return")
        batch.await_items([items[0]._replace(title="typed")])
        self.expect_messages(*run(items)[:-1])

    def test_the_row_under_way_comes_into_view(self):
        self.write_settings(vexadelay=0, vexapauseforreel="false")
        items = [Item(1, f"item {n}", "01:00:00:00", "01:00:00:01") for n in range(39)]
        items.append(Item(1, "the last", "01:00:00:00", "01:00:10:00"))
        window, batch, _ = self.open_list(items)
        batch.select(2)
        window.press("Batch striping")
        window.keys("F6")
        window.await_shown("Current item", "the last")
        eventually("the row is in view", lambda: batch.is_in_view(39))
        self.assertEqual(batch.selected(), [2])
        window.keys("F5")
        self.expect_messages(*run(items)[:-1])
        batch.await_marks(["Finished"] * 39 + ["Stopped here"])


if __name__ == "__main__":
    unittest.main()
