"""The preferences panel of a window."""

from support.waiting import eventually


class Preferences:
    def __init__(self, window):
        self._window = window

    def open(self):
        self._window.choose("Edit", "Preferences…")
        self._window.await_title("Preferences")
        eventually(
            "the panel has the keyboard", lambda: self._window.has_focus("Delay between items")
        )

    def close(self, key):
        self._window.keys(key)
        self._window.await_title("Preferences", there=False)

    def shown(self):
        """Delay, destination, frame rate, sync type and whether to pause for a reel change."""
        return (
            self._window.text("Delay between items"),
            self._window.shown("MIDI destination"),
            self._window.shown("Default frame rate"),
            self._window.shown("Default sync type"),
            self._window.is_on("Pause for reel change"),
        )

    def change(self, delay, destination=0, rate=0, sync=0, pause=False):
        """Enters a new delay, steps down each list, and sets the check box, all from the
        keyboard."""
        keys = [*delay, "Tab", "Tab"]
        for steps in (destination, rate, sync):
            keys += ["Down"] * steps + ["Tab"]
        self._window.keys(*keys, *["space"] * pause)
        eventually("it is changed", lambda: self.shown()[0] == delay)
