"""A drag source in another toolkit: drag_source.py URI|TEXT. Like a file manager, it would rather
move than copy. Reports when the drag begins, when a target accepts it, and the outcome."""

import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GLib, Gtk  # noqa: E402

ACTIONS = Gdk.DragAction.COPY | Gdk.DragAction.MOVE
NO_ACTION = Gdk.DragAction(0)


class Handle(Gtk.EventBox):
    def __init__(self, thing):
        super().__init__()
        self._thing = thing
        self._outcome = "copied"
        self.add(Gtk.Label(label="Drag me"))
        self.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], ACTIONS)
        if ":" in thing:
            self.drag_source_add_uri_targets()
        else:
            self.drag_source_add_text_targets()

    def do_drag_begin(self, context):
        self._drag = context
        print("begun", flush=True)
        GLib.timeout_add(10, self._look_for_welcome)

    def do_drag_data_get(self, _context, data, _info, _time):
        if not data.set_uris([self._thing]):
            data.set_text(self._thing, -1)

    def do_drag_data_delete(self, _context):
        self._outcome = "moved"

    def do_drag_failed(self, _context, _result):
        self._outcome = "refused"
        return False

    def do_drag_end(self, _context):
        self._drag = None
        print(self._outcome, flush=True)

    def _look_for_welcome(self):
        welcome = self._drag and self._drag.get_selected_action() != NO_ACTION
        if welcome:
            print("welcome", flush=True)
        return GLib.SOURCE_CONTINUE if self._drag and not welcome else GLib.SOURCE_REMOVE


def main():
    window = Gtk.Window(title="Drag source", default_width=120, default_height=120)
    window.add(Handle(sys.argv[1]))
    window.move(0, 0)
    window.show_all()
    Gtk.main()


main()
