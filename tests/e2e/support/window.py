"""The program's window as its operator uses it: widgets by name, keyboard and mouse."""

import contextlib
import signal
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

from support import desktop, program
from support.waiting import PATIENCE, eventually

# Searched only when their contents are wanted.
MENU_ROLES = (Atspi.Role.MENU_BAR, Atspi.Role.POPUP_MENU)
CLOSED_ROLES = (*MENU_ROLES, Atspi.Role.TABLE)
# Windows that take the keyboard; a tool tip does not.
WINDOW_ROLES = (Atspi.Role.FRAME, Atspi.Role.DIALOG, Atspi.Role.ALERT)

# A busy program answers late; the defaults are 0.8 s, and 15 s after its start.
Atspi.set_timeout(round(PATIENCE * 1000), round(PATIENCE * 1000))


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def click(widget, times=1):
    """Clicks a widget, but not in a scaled window: there Qt reports its own pixels, not the
    screen's."""
    xdotool("mousemove", *center(widget), "click", "--repeat", times, "--delay", 20, 1)


def center(widget):
    """The widget's center on the screen."""
    box = extents(widget)
    return box.x + box.width // 2, box.y + box.height // 2


def extents(widget):
    return Atspi.Component.get_extents(widget, Atspi.CoordType.SCREEN)


class Window:
    def __init__(self, *arguments, path=program.PATH):
        self.program = program.start(*arguments, path=path)
        try:
            self._application = eventually("the program is on the bus", self._find_application)
            self._application.set_cache_mask(Atspi.Cache.NONE)
            self._x_window = eventually("the window is active", self._active_x_window)
            # The first paint lays out the widgets.
            eventually("the window is shown", lambda: self.widget("Stop time"))
        except BaseException:
            self.program.stop()
            raise

    def widget(self, name):
        """The widget with that name, not its caption."""
        return _named(name, self._application)

    def shown(self, name):
        """The text that a time display, label or pop-up list shows."""
        return self.widget(name).get_description()

    def text(self, name):
        """The contents of a text field."""
        return Atspi.Text.get_text(self.widget(name), 0, -1)

    def is_on(self, name):
        return self._has(name, Atspi.StateType.CHECKED)

    def all_on(self):
        """The names of all widgets that are on: buttons, check boxes, radio cells."""
        everything = _descendants(self._application)
        return [w.get_name() for w in everything if _is(w, Atspi.StateType.CHECKED)]

    def has_focus(self, name):
        return self._has(name, Atspi.StateType.FOCUSED)

    def titles(self):
        """The titles of all visible windows of the program, including alerts. Empty once it has
        ended."""
        try:
            titles = [_title(window) for window in _children(self._application)]
        except GLib.GError:
            return []
        return [title for title in titles if title is not None]

    def is_shown(self, name):
        return self._has(name, Atspi.StateType.SHOWING)

    def is_enabled(self, name):
        return self._has(name, Atspi.StateType.ENABLED)

    def menu(self, *titles):
        """The titles of the items of a menu or submenu; disabled ones in parentheses."""
        items = [item for item in self._menu_items(*titles) if item.get_name()]
        return [
            item.get_name() if _is(item, Atspi.StateType.ENABLED) else f"({item.get_name()})"
            for item in items
        ]

    def question(self):
        """The visible alert, if any: its texts, and its buttons from left to right."""
        alert = self._alert()
        if not alert:
            return None
        texts = [w.get_name() for w in _all(alert, Atspi.Role.LABEL) if w.get_name()]
        buttons = sorted(_all(alert, Atspi.Role.PUSH_BUTTON), key=lambda button: extents(button).x)
        return (*texts, [button.get_name() for button in buttons])

    def answer(self, button):
        """Answers the visible alert, as a screen reader does."""
        alert = eventually("there is an alert", self._alert)
        self._do(_first(alert, lambda w: w.get_name() == button))
        eventually("the alert is gone", lambda: self._alert() != alert)

    def enter(self, name, text):
        """Enters any text in a field, and ends with Return."""
        self.focus(name)
        Atspi.EditableText.set_text_contents(self.widget(name), text)
        eventually(f"{name} holds {text}", lambda: self.text(name) == text)
        self.keys("Return")

    def choose_file(self, title, path):
        """Names a file in the file panel with this title."""
        self.await_active(title)
        self.enter("File name:", str(path))
        self.await_title(title, there=False)

    def await_active(self, title):
        """Waits until the window with this title has the keyboard."""
        what = f"{title} is the active window"
        eventually(what, lambda: _active_title() == title and title in self.titles())

    def await_shown(self, name, text):
        eventually(f"{name} shows {text}", lambda: self.shown(name) == text)

    def await_clock(self, text, no_later_than="23:59:59:29"):
        """Waits until the running clock reaches a time."""
        what = f"the clock comes to {text}"
        eventually(what, lambda: text <= self.shown("Current time") <= no_later_than)

    def await_title(self, title, there=True):
        """Waits until a window, panel or alert with that title appears or disappears."""
        what = f"{title} is {'there' if there else 'gone'}"
        eventually(what, lambda: (title in self.titles()) == there)

    def await_alert(self, text):
        """Waits for an alert, given its message or the text below."""
        eventually(f"an alert says {text}", lambda: self.widget(text))

    def await_on(self, name, on=True):
        what = f"{name} is {'on' if on else 'off'}"
        eventually(what, lambda: self.is_on(name) == on)

    def press(self, name):
        """Presses a button, as a screen reader does. Of several with that name, presses the one in
        the active window: a panel that has been closed still has its buttons."""
        self._do(self._in_active_window(name) or self.widget(name))

    def press_at_once(self, *names):
        """Presses buttons while the program is stopped, so that it finds all the presses
        waiting."""
        presses = [(w.app.bus_name, w.path) for w in map(self.widget, names)]
        bus = desktop.accessibility_bus()
        self.program.send_signal(signal.SIGSTOP)
        for name, path in presses:
            action = (name, path, "org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (0,)))
            bus.call(*action, None, Gio.DBusCallFlags.NONE, -1, None)
        bus.flush_sync()
        self.program.send_signal(signal.SIGCONT)

    def focus(self, name):
        Atspi.Component.grab_focus(self.widget(name))
        eventually(f"{name} has the keyboard", lambda: self.has_focus(name))

    def choose(self, *titles):
        """Chooses a menu item, as a screen reader does."""
        *menu, item_title = titles
        item = next(i for i in self._menu_items(*menu) if i.get_name() == item_title)
        self._do(item)

    def click(self, name, times=1):
        """Clicks the center of a widget with the mouse."""
        click(self.widget(name), times)

    def minimize(self):
        xdotool("windowminimize", "--sync", self._x_window)

    def await_raised(self):
        eventually("the window is active", self._active_x_window)

    def await_keyboard(self):
        """Waits until keys reach the window, or the panel or alert over it."""
        eventually("the program has the keyboard", self._has_keyboard)

    def keys(self, *names):
        """Presses keys by their X names; a stopped program receives them when it continues."""
        self.await_keyboard()
        xdotool("key", *names)

    def type(self, text):
        self.keys(*text)

    def write(self, text):
        """Types any text over the contents of the focused field."""
        self.keys("ctrl+a")
        xdotool("type", "--delay", 2, text)

    def hold_key(self, name, until):
        """Holds a key down, which repeats, until a condition is met."""
        self.await_keyboard()
        xdotool("keydown", name)
        try:
            until()
        finally:
            xdotool("keyup", name)

    def type_time(self, name, text, end="Return"):
        """Opens a time display, types the digits of a time and ends the entry."""
        self.click(name)
        self.await_on(name)
        self.type(text.replace(":", ""))
        self.await_shown(name, text)
        self.keys(end)

    @contextlib.contextmanager
    def stopped_at(self, text):
        """Stops the program meanwhile, with its clock at a time."""
        deadline = time.monotonic() + PATIENCE
        while self.shown("Current time") < text:  # no pause: a frame is short
            if time.monotonic() > deadline:
                raise AssertionError(f"the clock does not come to {text}")
        time.sleep(0.01)  # drawing takes a little longer
        self.program.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self.program.send_signal(signal.SIGCONT)

    def picture(self, path, of_panel=False):
        """Saves the window, or the panel over it, as a PNG file with few colours."""
        window = self._active_x_window() if of_panel else self._x_window
        few_colors = ["-strip", "-dither", "None", "-colors", "256"]
        subprocess.run(["import", "-window", window, *few_colors, f"png8:{path}"], check=True)

    def close(self):
        self.program.stop()

    def _find_application(self):
        everything = Atspi.get_desktop(0)
        everything.clear_cache()
        applications = _children(everything)
        return next((a for a in applications if a.get_process_id() == self.program.pid), None)

    def _active_x_window(self):
        """The program's active window, if there is one and it has the keyboard."""
        of_focus, of_active = ["getwindowfocus", "getwindowpid"], ["getactivewindow", "getwindowpid"]
        asked = ["xdotool", *of_focus, *of_active, "getactivewindow"]
        found = subprocess.run(asked, capture_output=True, text=True, check=False).stdout.split()
        # If a window closes during the query, some answers are missing.
        is_ours = len(found) == 3 and found[:2] == [str(self.program.pid)] * 2
        return found[2] if is_ours else None

    def _has_keyboard(self):
        """Whether the program has the keyboard. The screen learns of opened and closed panels
        late."""
        if not self._active_x_window():
            return False
        return self.program.is_stopped() or self._front_is_active()

    def _front_is_active(self):
        try:
            windows = [w for w in _children(self._application) if w.get_role() in WINDOW_ROLES]
            shown = [window for window in windows if _is(window, Atspi.StateType.SHOWING)]
            return bool(shown) and _is(shown[-1], Atspi.StateType.ACTIVE)
        except GLib.GError:  # one of them closed meanwhile
            return False

    def _in_active_window(self, name):
        try:
            windows = _children(self._application)
            active = next((w for w in windows if _is(w, Atspi.StateType.ACTIVE)), None)
            return active and _named(name, active)
        except GLib.GError:  # it closed during the search
            return None

    def _alert(self):
        try:
            return _first(self._application, lambda w: _is_a(w, Atspi.Role.ALERT))
        except GLib.GError:  # it closed during the search, perhaps with the program
            return None

    def _has(self, name, state):
        return _is(self.widget(name), state)

    def _menu_items(self, *titles):
        items = _children(
            _first(self._application, lambda w: w.get_role() == Atspi.Role.MENU_BAR, True)
        )
        for title in titles:
            menu = next(item for item in items if item.get_name() == title)
            items = _children(_children(menu)[0])
        return items

    @staticmethod
    def _do(widget):
        if not _is(widget, Atspi.StateType.ENABLED):
            raise AssertionError(f"{widget.get_name()} is disabled")
        Atspi.Action.do_action(widget, 0)


def _children(parent):
    children = map(parent.get_child_at_index, range(parent.get_child_count()))
    return [child for child in children if child]


def _descendants(root, in_menus=False):
    for child in _children(root):
        yield child
        if in_menus or child.get_role() not in CLOSED_ROLES:
            yield from _descendants(child, in_menus)


def _first(root, is_wanted, in_menus=False):
    return next(filter(is_wanted, _descendants(root, in_menus)), None)


def _named(name, root):
    return _first(root, lambda w: w.get_name() == name and not _is_caption(w))


def _all(root, role):
    return [w for child in _children(root) for w in [child, *_all(child, role)] if _is_a(w, role)]


def _is_a(widget, role):
    return widget.get_role() == role


def _title(window):
    """The title of a visible window."""
    try:
        return window.get_name() if _is(window, Atspi.StateType.SHOWING) else None
    except GLib.GError:  # closed by now
        return None


def _active_title():
    asked = ["xdotool", "getactivewindow", "getwindowname"]
    found = subprocess.run(asked, capture_output=True, text=True, check=False)
    return found.stdout.strip()


def _is(widget, state):
    return widget.get_state_set().contains(state)


def _is_caption(widget):
    relations = [relation.get_relation_type() for relation in widget.get_relation_set()]
    return Atspi.RelationType.LABEL_FOR in relations
