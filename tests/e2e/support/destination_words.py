"""What the status line's words of a destination claim to have been sent."""

from support.items import fields
from support.wire import STOP, setup_and_start


def claimed_messages(lines, mode):
    """The messages that are claimed by the lines of the program destination_words, in order, if
    every start has that mode code. A line claims a message if it tells of a new time of sending."""
    last_time = "0"
    for line in lines:
        time, words = line.split("\t")
        if time not in ("0", last_time):
            _, message, _ = words.split(" · ")
            yield _message(message, mode)
            last_time = time


def _message(words, mode):
    if words == "stop":
        return STOP
    kind, time = words.split()
    return dict(zip(("setup", "start"), setup_and_start(*fields(time), mode)))[kind]
