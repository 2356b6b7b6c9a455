"""The programs' launch messages to the desktop, by the Startup Notification Protocol."""

from Xlib import X, display


class StartupMessages:
    """Listens from its creation on."""

    def __init__(self):
        self._display = display.Display()
        root = self._display.screen().root
        root.change_attributes(event_mask=X.PropertyChangeMask)
        self._display.sync()

    def next(self):
        """The next complete message; messages come in pieces."""
        text = b""
        while b"\0" not in text:
            event = self._display.next_event()
            if event.type == X.ClientMessage:
                text += bytes(event.data[1])
        return text.partition(b"\0")[0].decode()
