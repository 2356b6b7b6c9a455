"""Waits for other processes by asking repeatedly, never by sleeping blindly."""

import time

PATIENCE = 30.0  # s, for a busy machine; waits end as soon as they can


def eventually(description, probe, seconds=PATIENCE):
    """Returns the first true result of probe(), or raises an AssertionError if there is none in
    time."""
    deadline = time.monotonic() + seconds
    while True:
        answer = probe()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"not within {seconds:g} s: {description}")
        time.sleep(0.01)
