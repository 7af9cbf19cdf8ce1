#!/usr/bin/env python3
"""Prints how fast the Python package reads a list of labels, as a ratio to C++ in the same run.

    PYTHONPATH=build-release/python bench/python.py build-release/bin/bench-parse-loop [COUNT]

Processor time, the least of ten rounds. The labels are ordinary, and all different.
"""

import itertools
import pathlib
import subprocess
import sys
import tempfile
import time

import postwright

FIGURE_BEFORE = pathlib.Path(__file__).with_name("figure-before.sh")
NAMES = ["Jane Doe", "Maria Delgado", "Acme Tool & Die", "Library of Congress"]
STREETS = ["n main street", "Lamar Blvd", "west 42nd st", "Old Mill Rd", "E Pennsylvania Avenue NW"]
UNITS = ["", " apt 4", ", Suite 210", " # 12"]
CITIES = ["austin, texas 78701", "Clarksdale MS 38614", "Washington, DC 20500-0003"]


def labels(count):
    rows = itertools.cycle(itertools.product(NAMES, STREETS, UNITS, CITIES))
    return [f"{name}\n{number} {street}{unit}\n{city}"
            for number, (name, street, unit, city) in zip(range(1, count + 1), rows)]


def least(call):
    times = []
    for _ in range(10):
        begin = time.process_time()
        call()
        times.append(time.process_time() - begin)
    return min(times)


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    texts = labels(int(sys.argv[2]) if len(sys.argv) == 3 else 50_000)
    with tempfile.NamedTemporaryFile("w") as file:
        file.writelines(text.replace("\n", "|") + "\n" for text in texts)
        file.flush()
        cpp = float(subprocess.check_output([sys.argv[1], file.name]))
    print(f"C++, a list     {cpp / len(texts) * 1e6:6.2f} µs a label")
    for name, call in [("parse_many()", lambda: list(postwright.parse_many(texts))),
                       ("parse()", lambda: [postwright.parse(text) for text in texts])]:
        taken = least(call)
        ratio = f"{name}, of C++'s rate"
        before = subprocess.check_output([FIGURE_BEFORE, ratio], text=True).strip()
        print(f"{name:15} {taken / len(texts) * 1e6:6.2f} µs a label\n{ratio}: {cpp / taken:.2f}  {before}")


if __name__ == "__main__":
    main()
