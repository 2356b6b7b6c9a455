"""A window of another toolkit from which something can be dragged, as from a file manager, which
would rather move it: drag_source.py URI|TEXT …"""

import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

ACTIONS = Gdk.DragAction.COPY | Gdk.DragAction.MOVE


def hand_out(_widget, _context, data, _info, _time):
    if data.get_target().name() == "text/uri-list":
        data.set_uris(sys.argv[1:])
    else:
        data.set_text(" ".join(sys.argv[1:]), -1)


def main():
    handle = Gtk.EventBox()
    handle.add(Gtk.Label(label="Drag me"))
    handle.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], ACTIONS)
    if ":" in sys.argv[1]:
        handle.drag_source_add_uri_targets()
    else:
        handle.drag_source_add_text_targets()
    handle.connect("drag-data-get", hand_out)
    handle.connect("drag-data-delete", lambda *_: print("moved", flush=True))
    handle.connect("drag-failed", lambda *_: print("refused", flush=True))
    handle.connect("drag-end", lambda *_: print("end", flush=True))
    window = Gtk.Window(title="Drag source", default_width=120, default_height=120)
    window.add(handle)
    window.move(0, 0)
    window.show_all()
    Gtk.main()


main()
