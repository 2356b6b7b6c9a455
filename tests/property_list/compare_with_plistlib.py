"""Compares the program's property lists with those of Python's plistlib.

plistlib writes the same random values each time, in both forms. The given program reads them and
writes them as XML, and plistlib reads them again. They must come back unchanged.
"""

import datetime
import plistlib
import random
import struct
import subprocess
import sys

COUNT = 5000
ALPHABET = "aZ 0<&>\"'\t\n\u00e4\u20ac\ud7ff\ue000\ufffd\U0001f600\U0010ffff"


def random_text(rng):
    return "".join(rng.choices(ALPHABET, k=rng.choice((0, 1, 3, 20, 300))))


def random_date(rng):
    return datetime.datetime(1, 1, 1) + datetime.timedelta(seconds=rng.randrange(315537897600))


def random_value(rng, depth=0):
    kind = rng.randrange(9 if depth < 6 else 7)
    if kind == 0:
        return rng.random() < 0.5
    if kind == 1:
        magnitude = rng.getrandbits(rng.randrange(65))
        return rng.choice((magnitude, -(magnitude >> 1), 2**64 - 1, 2**63, -(2**63), 255, 256))
    if kind == 2:
        bits = struct.pack(">Q", rng.getrandbits(64))
        return rng.choice((0.0, 0.1, 1e300, float("inf"), float("-inf"), float("nan"),
                           struct.unpack(">d", bits)[0]))
    if kind == 3:
        return random_date(rng)
    if kind == 4:
        return rng.randbytes(rng.choice((0, 1, 2, 3, 57, 1000)))
    if kind in (5, 6):
        return random_text(rng)
    size = rng.choice((0, 1, 2, 5, 20))
    if kind == 7:
        return [random_value(rng, depth + 1) for _ in range(size)]
    keys = sorted((random_text(rng) for _ in range(size)), key=lambda key: key.encode("utf-16-be"))
    return {key: random_value(rng, depth + 1) for key in keys}


def rewritten(program, files):
    stream = b"".join(struct.pack(">I", len(file)) + file for file in files)
    answer = subprocess.run([program], input=stream, stdout=subprocess.PIPE, check=True).stdout
    position = 0
    for _ in files:
        (length,) = struct.unpack_from(">I", answer, position)
        yield answer[position + 4 : position + 4 + length]
        position += 4 + length


def main(program):
    rng = random.Random(1)
    values = [random_value(rng) for _ in range(COUNT)]
    for form in (plistlib.FMT_XML, plistlib.FMT_BINARY):
        files = [plistlib.dumps(value, fmt=form) for value in values]
        for number, (value, xml) in enumerate(zip(values, rewritten(program, files))):
            # repr() shows kinds and key order, and is the same for every NaN.
            if not xml or repr(plistlib.loads(xml)) != repr(value):
                sys.exit(f"value {number} as {form.name} came back as {xml!r}")
    print(f"{COUNT} values came back unchanged from each form")


main(sys.argv[1])
