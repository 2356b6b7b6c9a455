"""The batch list in the window: its table, and the panel that adds to it."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

from support.waiting import eventually
from support.window import click, extents, xdotool

COLUMNS = range(6)
TITLE, START = 1, 2
ADD_PANEL = "Add to Batch List"


class BatchList:
    def __init__(self, window):
        self._window = window

    def rows(self):
        """The texts of every row."""
        table = self._table()
        return [_texts(table, row) for row in range(Atspi.Table.get_n_rows(table))]

    def length(self):
        return Atspi.Table.get_n_rows(self._table())

    def marks(self):
        """How far a run has come with each row, as a screen reader says it."""
        table = self._table()
        rows = range(Atspi.Table.get_n_rows(table))
        cells = (Atspi.Table.get_accessible_at(table, row, TITLE) for row in rows)
        return [cell.get_description() for cell in cells]

    def selected(self):
        return list(Atspi.Table.get_selected_rows(self._table()))

    def is_in_view(self, row):
        """Whether the whole row is visible."""
        table, cell = extents(self._table()), extents(self._cell(row, TITLE))
        return table.y < cell.y and cell.y + cell.height <= table.y + table.height

    def await_items(self, items):
        rows = [item.row for item in items]
        eventually(f"the list shows {rows}", lambda: self.rows() == rows)

    def await_marks(self, marks):
        eventually(f"the rows are marked {marks}", lambda: self.marks() == marks)

    def select(self, *rows):
        """Clicks on the first row, and on the others with Ctrl."""
        click(self._cell(rows[0], START))
        for row in rows[1:]:
            self.toggle(row)
        eventually(f"the rows {rows} are selected", lambda: self.selected() == sorted(rows))

    def toggle(self, row):
        """Clicks on a row with Ctrl."""
        xdotool("keydown", "ctrl")
        click(self._cell(row, START))
        xdotool("keyup", "ctrl")

    def double_click(self, row, column):
        click(self._cell(row, column), times=2)

    def rename(self, row, title):
        """Edits the title of a row in place, with the keyboard."""
        self.select(row)
        self._window.keys("F2")
        self._window.write(title)
        self._window.keys("Return")
        eventually(f"the title is {title}", lambda: self.rows()[row][TITLE] == title)

    def set_up(self, item):
        """Enters the item's settings in the window."""
        self._window.press("MTC")  # otherwise the rates are disabled
        self._window.press(item.rate)
        self._window.press(item.sync)
        self._window.type_time("Start time", item.start)
        self._window.await_on("Start time", False)
        self._window.type_time("Stop time", item.stop)
        self._window.await_on("Stop time", False)

    def open_panel(self):
        self._window.keys("F9")
        self._window.await_title(ADD_PANEL)
        eventually("the panel has the keyboard", lambda: self._window.has_focus("Reel number"))

    def close_panel(self, key):
        self._window.keys(key)
        self._window.await_title(ADD_PANEL, there=False)

    def add(self, item):
        """Adds an item with the window's settings and its own reel number and title."""
        length = self.length()
        self.open_panel()
        self._window.write(str(item.reel))
        self._window.keys("Tab")
        self._window.write(item.title)
        eventually("the title is typed", lambda: self._window.text("Title") == item.title)
        self.close_panel("Return")
        eventually("the list is longer", lambda: self.length() == length + 1)

    def _table(self):
        return self._window.widget("Batch stripe list")

    def _cell(self, row, column):
        return Atspi.Table.get_accessible_at(self._table(), row, column)


def _texts(table, row):
    cells = (Atspi.Table.get_accessible_at(table, row, column) for column in COLUMNS)
    return tuple(cell.get_name() for cell in cells)
