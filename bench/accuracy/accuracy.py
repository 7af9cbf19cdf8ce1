#!/usr/bin/env python3
"""Counts how many labels the programs correct rightly, on lists with known answers.

Makes the lists, runs them through `postwright fix --jsonl` against `postwright-verifyd` on loopback,
judges each answer element by element, fixes the fixed labels once more, and prints a table for each
list in Markdown. The same seed and size give the same lists.
"""

import argparse
import json
import sys
import tempfile
from pathlib import Path

import base_list
import outcome
import plain_list
from programs import Programs

SOURCES = Path(__file__).resolve().parents[2]
ZIPS = SOURCES / "data/us-zips.tsv"


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--programs", default=SOURCES / "build/bin", metavar="FOLDER", help="where the built programs are (default: build/bin)")
    parser.add_argument("--list", choices=["plain", "base", "both"], default="both", help="without an address base, with one, or both (default)")
    parser.add_argument("--size", type=int, metavar="N", help="rows without a base (default: one for each ZIP code)")
    parser.add_argument("--base-size", type=int, default=20000, metavar="N", help="rows with a base (default 20000)")
    parser.add_argument("--mistakes", type=int, default=2, metavar="N", help="with a base, one row in N has a mistake (default 2)")
    parser.add_argument("--states", type=int, default=10, metavar="N", help="states in the base (default 10), with some 9,000 addresses each")
    parser.add_argument("--seed", default="1", help="another seed, other lists")
    parser.add_argument("--fix-option", action="append", default=[], metavar="OPTION", help="handed to postwright fix; again for more")
    parser.add_argument("--rows", metavar="FILE", help="write every bad row here, a JSON object a line")
    parser.add_argument("--causes", type=int, default=0, metavar="N", help="print the N most frequent causes of each list, with an example")
    parser.add_argument("--expect", metavar="FILE", help="run the lists of this file, and end with status 1 where a figure is worse than there")
    parser.add_argument("--lower", action="store_true", help="write the figures that got better into the file of --expect; none is raised")
    return parser.parse_args()


def run_plain(programs, settings):
    zips = plain_list.read_zips(ZIPS)
    rows = plain_list.plain_rows(zips, settings.size or len(zips), settings.seed)
    with programs.service([ZIPS]) as server:
        return judged(programs, server, rows)


def run_base(programs, settings):
    addresses = base_list.make_addresses(plain_list.read_zips(ZIPS), settings.seed, settings.states)
    rows = base_list.base_rows(addresses, settings.base_size, settings.seed, settings.mistakes)
    with tempfile.TemporaryDirectory() as folder:
        csv, base = Path(folder, "addresses.csv"), Path(folder, "addresses.base")
        base_list.write_csv(addresses, csv)
        programs.make_base(csv, base)
        with programs.service([ZIPS, base]) as server:
            print(f"The base has {len(addresses):,} addresses.\n")
            return judged(programs, server, rows)


def judged(programs, server, rows):
    records = programs.fix(server, [row.text for row in rows])
    outcomes = list(map(outcome.outcome_of, rows, records))
    outcome.mark_unstable(outcomes, lambda texts: programs.fix(server, texts))
    return outcomes


LISTS = {"plain": (run_plain, outcome.plain_table, outcome.plain_figures, "Without an address base"),
         "base": (run_base, outcome.base_table, outcome.base_figures, "With an address base")}


def compare(figures, expected):
    """Returns what is worse than expected, and the figures that may be expected from now on."""
    worse, lower = [], {}
    for title, count in figures.items():
        limit = expected.get(title, count)
        lower[title] = min(count, limit)
        if count > limit:
            worse.append(f"{title}: {count}, expected at most {limit}")
    return worse, lower


def main():
    settings = arguments()
    expected = {}
    if settings.expect:
        expected = json.loads(Path(settings.expect).read_text())
        for setting, value in expected["settings"].items():
            setattr(settings, setting, value)
    programs = Programs(settings.programs, settings.fix_option)
    worse, bad = [], []
    for name, (run, table, figures, title) in LISTS.items():
        if settings.list not in (name, "both"):
            continue
        print(f"## {title}\n")
        outcomes = run(programs, settings)
        print(table(outcomes), end="\n\n")
        if settings.causes:
            print(outcome.causes(outcomes, settings.causes), end="\n\n")
        bad += [{"list": name, **outcome.bad_row(each)} for each in outcomes
                if each.kind not in (outcome.RIGHT, outcome.LEFT) or each.unstable]
        if settings.expect:
            found, expected[name] = compare(figures(outcomes), expected.get(name, {}))
            worse += [f"{title}: {what}" for what in found]
    if settings.rows:
        Path(settings.rows).write_text("".join(json.dumps(row, ensure_ascii=False) + "\n" for row in bad), encoding="utf-8")
    if settings.lower:
        Path(settings.expect).write_text(json.dumps(expected, indent=2) + "\n")
    for what in worse:
        print(f"accuracy.py: worse: {what}", file=sys.stderr)
    return 1 if worse else 0


if __name__ == "__main__":
    sys.exit(main())
