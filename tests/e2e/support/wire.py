"""The generator's messages, as bytes."""

from support.items import RATES, SYNC_TYPES, fields

STOP = bytes.fromhex("f0 7d 42 00 00 00 00 00 f7")


def setup_and_start(hours, minutes, seconds, frames, mode):
    setup = bytes([0xF0, 0x7D, 0x42, hours, minutes, seconds, frames, mode, 0xF7])
    return [setup, bytes([*setup[:7], 0x7F, 0xF7])]


def play(hours, minutes, seconds, frames, mode):
    """The messages of Play: stop, setup and start."""
    return [STOP, *setup_and_start(hours, minutes, seconds, frames, mode)]


def mode(rate, sync):
    """The mode code. FSK, the last sync type, has one code for all rates."""
    return 8 if sync == "FSK" else RATES.index(rate) + len(RATES) * SYNC_TYPES.index(sync)


def stripe(item):
    """An item's messages in a batch run, including the stop at its end."""
    return [*setup_and_start(*fields(item.start), mode(item.rate, item.sync)), STOP]


def run(items):
    """All messages of a batch run, from Play to its end."""
    return [STOP, *(message for item in items for message in stripe(item)), STOP]
