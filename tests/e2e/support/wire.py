"""The frames of the generator, as bytes."""

STOP = bytes.fromhex("f0 7d 42 00 00 00 00 00 f7")


def play(hours, minutes, seconds, frames, mode):
    """What Play sends: stop, setup and start."""
    setup = bytes([0xF0, 0x7D, 0x42, hours, minutes, seconds, frames, mode, 0xF7])
    start = bytes([*setup[:7], 0x7F, 0xF7])
    return [STOP, setup, start]
