"""Titles go through Python's csv module and back, and times are added up by its fractions.

Usage: compare_with_csv.py REWRITE, a program that reads rows on its standard input and writes them,
with the exact length of each reel, on its standard output.
"""

import csv
import io
import subprocess
import sys
from fractions import Fraction
from random import Random

HEADER = ["Reel", "Title", "Start", "Stop", "Rate", "Sync"]
RATES = {"24 fps": (24, Fraction(1, 24)), "25 fps": (25, Fraction(1, 25)),
         "30 fps": (30, Fraction(1, 30)), "30 df": (30, Fraction(100, 2997))}
TITLES = ["", "plain", 'say "hm"', "two\nlines", "two\r\nlines", "a,b;c\td", "=1+1", "'=1+1",
          "'", "日本語", "שלום", " blanks ", "+1", "-1", "@x", '"', "\t", "🎬"]


def exists(time, rate):
    _, minutes, seconds, frames = time
    drops = rate == "30 df" and minutes % 10 and seconds == 0 and frames < 2
    return frames < RATES[rate][0] and not drops


def next_frame(time, rate):
    hours, minutes, seconds, frames = time
    frames += 1
    if frames == RATES[rate][0]:
        frames, seconds = 0, seconds + 1
    if seconds == 60:
        seconds, minutes = 0, minutes + 1
    if minutes == 60:
        minutes, hours = 0, hours + 1
    time = hours, minutes, seconds, frames
    return time if exists(time, rate) else next_frame(time, rate)


def frame_numbers():
    """The number of every time of the first two hours, by counting."""
    numbers = {}
    for rate in RATES:
        time, number = (0, 0, 0, 0), 0
        while time < (2, 0, 0, 0):
            numbers[rate, time] = number
            time, number = next_frame(time, rate), number + 1
    return numbers


def text(time):
    return ":".join(f"{field:02}" for field in time)


def rows(random, numbers):
    times = {rate: sorted(time for known, time in numbers if known == rate) for rate in RATES}
    result = []
    for row in range(2000):
        rate = random.choice(list(RATES))
        start, stop = random.choice(times[rate]), random.choice(times[rate])
        result.append(([str(row % 50), random.choice(TITLES), text(start), text(stop), rate,
                        random.choice(["MTC", "DTL", "FSK"])], start, stop))
    return result


def guarded(title):
    return "'" + title if title.lstrip("'")[:1] in tuple("=+-@\t\r") else title


def main(rewrite):
    numbers = frame_numbers()
    made = rows(Random(17), numbers)
    totals = {}
    for (reel, _, _, _, rate, _), start, stop in made:
        frames = max(1, numbers[rate, stop] - numbers[rate, start])  # one is counted before a stop
        totals[reel] = totals.get(reel, 0) + frames * RATES[rate][1]

    for dialect, delimiter in [("excel", ","), ("excel-tab", "\t"), ("unix", ";")]:
        sheet = io.StringIO()
        writer = csv.writer(sheet, dialect=dialect, delimiter=delimiter)
        writer.writerow(HEADER)
        writer.writerows([fields[0], guarded(fields[1]), *fields[2:]] for fields, _, _ in made)
        ran = subprocess.run([rewrite], input=sheet.getvalue().encode(), capture_output=True,
                             check=True)
        rewritten = list(csv.reader(io.StringIO(ran.stdout.decode(), newline="")))
        assert rewritten[0] == HEADER, rewritten[0]
        for (fields, _, _), back in zip(made, rewritten[1:], strict=True):
            assert [fields[0], guarded(fields[1]), *fields[2:]] == back, (fields, back)
        lengths = [line.split() for line in ran.stderr.decode().splitlines()]
        assert {reel: Fraction(int(units), int(of)) for reel, units, of in lengths} == totals
        print(f"{dialect}: {len(made)} rows there and back, {len(totals)} totals equal")


main(sys.argv[1])
