"""Items of a batch list, as in the table and as in a list file."""

import plistlib
from typing import NamedTuple

RATES = ("24 fps", "25 fps", "30 fps", "30 df")
SYNC_TYPES = ("MTC", "DTL", "FSK")


class Item(NamedTuple):
    reel: int
    title: str
    start: str
    stop: str
    rate: str = "30 fps"
    sync: str = "MTC"

    @property
    def row(self):
        """The texts of the item's row."""
        return (str(self.reel), *self[1:])


def fields(time):
    """Hours, minutes, seconds and frames of a timecode text."""
    return [int(pair) for pair in time.split(":")]


def seconds_of(item):
    """How long the clock counts; one frame, if the stop is no later than the start."""
    frames = _frame_number(item.stop, item.rate) - _frame_number(item.start, item.rate)
    per_second = 29.97 if item.rate == "30 df" else int(item.rate[:2])
    return max(frames, 1) / per_second


def list_file(items):
    """A batch list file with these items."""
    return plistlib.dumps({"vexabatchlist": [_element(n, item) for n, item in enumerate(items)]})


def items_in(list_file):
    """The items in a batch list file."""
    return [_item(element) for element in plistlib.loads(list_file)["vexabatchlist"]]


def _frame_number(time, rate):
    """How many frames of the day come before that time."""
    hours, minutes, seconds, frames = fields(time)
    minutes += 60 * hours
    number = (60 * minutes + seconds) * int(rate[:2]) + frames
    # Two numbers are dropped at every minute but each tenth.
    return number - 2 * (minutes - minutes // 10) if rate == "30 df" else number


def _element(number, item):
    return {
        "vexaid": number,
        "vexareel": item.reel,
        "vexatitle": item.title,
        "vexastart": int.from_bytes(fields(item.start), "big"),
        "vexastop": int.from_bytes(fields(item.stop), "big"),
        "vexarate": RATES.index(item.rate),
        "vexatype": SYNC_TYPES.index(item.sync),
    }


def _item(element):
    start, stop = (
        ":".join(f"{field:02}" for field in element[key].to_bytes(4, "big"))
        for key in ("vexastart", "vexastop")
    )
    rate, sync = RATES[element["vexarate"]], SYNC_TYPES[element["vexatype"]]
    return Item(element["vexareel"], element["vexatitle"], start, stop, rate, sync)
