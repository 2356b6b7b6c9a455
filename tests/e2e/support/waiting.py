"""Waiting for what other processes do: asked again until it is so, never slept on blindly."""

import time

PATIENCE = 30.0  # s, for a busy machine; nobody waits longer than it takes


def eventually(description, probe, seconds=PATIENCE):
    """The first true answer of probe(); an AssertionError when there is none in time."""
    deadline = time.monotonic() + seconds
    while True:
        answer = probe()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"not within {seconds:g} s: {description}")
        time.sleep(0.01)
