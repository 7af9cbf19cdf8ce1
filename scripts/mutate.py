#!/usr/bin/env python3
"""Puts small faults into the product's code, one at a time, and reports those that no test notices.

  scripts/mutate.py run [--seed N] [--count N] [--folder FOLDER]...
  scripts/mutate.py report [--survived]

A fault is one changed operator, constant or statement on one line. The programs and tests that the
file goes into are built again and run, those of the file's own folder first, until one fails: then the
fault was noticed. A fault that does not compile does not count.

Works on a copy of what is committed, kept under .cache/mutate/: the first run builds all of it. The
same seed and sources always give the same faults. Results add up in .cache/mutate/results.tsv; a fault
listed there is not tried again, so an interrupted run goes on where it stopped.
"""

import argparse
import collections
import csv
import json
import os
import pathlib
import random
import re
import subprocess
import sys

HOME = pathlib.Path(__file__).resolve().parent.parent
CACHE = HOME / ".cache" / "mutate"
TREE = CACHE / "tree"
BUILD = TREE / "build"
RESULTS = CACHE / "results.tsv"
ROOMS = ["apps", "client", "common", "core", "platform", "postal", "service"]
FIELDS = ["seed", "number", "place", "before", "after", "outcome", "by"]
TEST_SECONDS = 120

# What is changed, and to what. If several fit, one is drawn.
OPERATORS = [
    (r" == ", " != "), (r" != ", " == "), (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "),
    (r" >= ", " > "), (r" && ", " || "), (r" \|\| ", " && "), (r" \+ ", " - "), (r" - ", " + "),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"\+\+", "--"), (r" \+= ", " -= "),
    (r"\bif \(!", "if ("), (r"\bif \((?![!*]|const|auto)", "if (!"), (r"\breturn !", "return "),
    (r"\bbreak;", ";"), (r"\bcontinue;", "break;"), (r"(?<![\w.'\"])([1-9]\d?)(?![\w.'\"])", None),
    (r"^\s+[a-z_]\w*(?:\.|->)\w+\(.*\);$", ""), (r"'(\\?.)'", None), (r"\bmin\(", "max("),
    (r"\bmax\(", "min("), (r"\bany_of\(", "all_of("), (r"\ball_of\(", "any_of("),
]


def run(*command, **more):
    return subprocess.run(command, check=True, text=True, **more)


def output(*command, **more):
    return run(*command, stdout=subprocess.PIPE, **more).stdout


def code_of(line):
    """The line with its strings and comments blanked out, so that they get no faults."""
    line = re.sub(r'"(?:\\.|[^"\\])*"', lambda found: '"' + "_" * (len(found[0]) - 2) + '"', line)
    return re.sub(r"//.*", "", line)


def changed(line, found, becomes):
    text = found[0]
    if becomes is None:  # a number, or a character
        becomes = str(int(found[1]) + 1) if text[0] != "'" else "'\\x01'"
    elif text.startswith(" ") and becomes == "":
        becomes = " ;"
    return line[: found.start()] + becomes + line[found.end():]


def faults_of(file):
    """All faults that can be put into a file: (line, before, after)."""
    faults = []
    for number, line in enumerate(file.read_text().split("\n")):
        code = code_of(line)
        if code.lstrip().startswith(("#", "case ", "static_assert", "template", "using ")):
            continue
        for pattern, becomes in OPERATORS:
            for found in re.finditer(pattern, code):
                faults.append((number, line, changed(line, found, becomes)))
    return faults


def draw(seed, count, folders):
    """The faults of a seed: files are drawn by their length, then one fault in each."""
    chance = random.Random(seed)
    files = sorted(file for folder in folders for file in (TREE / folder).rglob("*.cpp"))
    lines = [len(file.read_text().split("\n")) for file in files]
    drawn = []
    while len(drawn) < count:
        file = chance.choices(files, lines)[0]
        faults = faults_of(file)
        if faults:
            drawn.append((file, *chance.choice(faults)))
    return drawn


def prepare():
    """Makes the copy, of what is committed now, and builds it."""
    CACHE.mkdir(parents=True, exist_ok=True)
    commit = output("git", "rev-parse", "HEAD", cwd=HOME).strip()
    if not TREE.exists():
        run("git", "clone", "--quiet", "--shared", str(HOME), str(TREE))
    run("git", "fetch", "--quiet", "origin", commit, cwd=TREE)
    run("git", "checkout", "--quiet", "--force", commit, cwd=TREE)
    # "a && b || c" draws a warning, but is still a fault.
    run("cmake", "--preset", "dev", "-DPOSTWRIGHT_WARNINGS_AS_ERRORS=OFF", cwd=TREE,
        stdout=subprocess.DEVNULL)
    run("cmake", "--build", "--preset", "dev", cwd=TREE, stdout=subprocess.DEVNULL)


def tests_by_program():
    """Which tests run which program, from ctest and its properties."""
    shown = json.loads(output("ctest", "--test-dir", str(BUILD), "--show-only=json-v1"))
    tests = collections.defaultdict(list)
    for test in shown["tests"]:
        labels = [p["value"] for p in test.get("properties", []) if p["name"] == "LABELS"]
        command = test.get("command", [])
        if command and "consumer" not in sum(labels, []):
            for word in command:
                if pathlib.Path(word).parent == BUILD / "bin":
                    tests[pathlib.Path(word).name].append(test["name"])
    return tests


class Tests:
    """Which programs and tests a source goes into."""

    def __init__(self):
        self.by_program = tests_by_program()
        self.inputs = {
            program: set(output("ninja", "-C", str(BUILD), "-t", "inputs", "bin/" + program)
                         .splitlines())
            for program in self.by_program
        }

    def of(self, file):
        """The programs, those of the file's own folder first."""
        name = str(file.relative_to(TREE))
        reached = [p for p, inputs in self.inputs.items() if "../" + name in inputs or
                   str(file) in inputs or name in inputs]
        room = name.split("/")[:2]

        def distance(program):
            sources = [i for i in self.inputs[program] if "/tests/" in i and i.endswith(".cpp")]
            near = any("/tests/" + "/".join(room) + "/" in s for s in sources)
            alike = any(file.stem in pathlib.Path(s).stem for s in sources)
            return (not alike, not near, program)

        return sorted(reached, key=distance)


def environment():
    return {**os.environ, "QT_QPA_PLATFORM": "offscreen", "no_proxy": "*"}


def noticed_by(programs, tests):
    """The test that fails; empty if none does, None if the fault does not compile."""
    for program in programs:
        built = subprocess.run(["ninja", "-C", str(BUILD), "bin/" + program],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if built.returncode != 0:
            return None
        names = "|".join(re.escape(name) for name in tests.by_program[program])
        ran = subprocess.run(["ctest", "--test-dir", str(BUILD), "-R", f"^({names})$", "--timeout",
                              str(TEST_SECONDS)], stdout=subprocess.DEVNULL,
                             stderr=subprocess.DEVNULL, env=environment())
        if ran.returncode != 0:
            return program
    return ""


def results():
    if not RESULTS.exists():
        return []
    with RESULTS.open(newline="") as file:
        return list(csv.DictReader(file, FIELDS, delimiter="\t"))


def keep(row):
    with RESULTS.open("a", newline="") as file:
        csv.DictWriter(file, FIELDS, delimiter="\t").writerow(row)


def try_faults(options):
    prepare()
    tests = Tests()
    done = {(row["place"], row["before"], row["after"]) for row in results()}
    for number, (file, line, before, after) in enumerate(
            draw(options.seed, options.count, options.folder or ROOMS)):
        place = f"{file.relative_to(TREE)}:{line + 1}"
        if (place, before.strip(), after.strip()) in done:
            continue
        programs = tests.of(file)
        whole = file.read_text()
        lines = whole.split("\n")
        lines[line] = after
        try:
            file.write_text("\n".join(lines))
            by = noticed_by(programs, tests)
        finally:
            file.write_text(whole)
        outcome = "not built" if by is None else "noticed" if by else "survived"
        keep({"seed": options.seed, "number": number, "place": place, "before": before.strip(),
              "after": after.strip(), "outcome": outcome, "by": by or ""})
        print(f"{outcome:9} {place}: {before.strip()}  ->  {after.strip()}", flush=True)
    report(options)


def report(options):
    count = collections.defaultdict(collections.Counter)
    for row in results():
        for folder in (row["place"].split("/")[0], "all"):
            count[folder][row["outcome"]] += 1
        if getattr(options, "survived", False) and row["outcome"] == "survived":
            print(f"{row['place']}: {row['before']}  ->  {row['after']}")
    for folder, outcomes in sorted(count.items(), key=lambda item: (item[0] == "all", item[0])):
        built = outcomes["noticed"] + outcomes["survived"]
        if built:
            print(f"{folder:9} {outcomes['noticed']:4} of {built:4} noticed, "
                  f"{100 * outcomes['noticed'] / built:.0f} %")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    commands = parser.add_subparsers(required=True)
    trying = commands.add_parser("run", help="try faults that have not been tried yet")
    trying.add_argument("--seed", type=int, default=1, help="another seed draws other faults")
    trying.add_argument("--count", type=int, default=20, help="how many to draw (default: 20)")
    trying.add_argument("--folder", action="append", choices=ROOMS, help="only in this folder")
    trying.set_defaults(do=try_faults)
    telling = commands.add_parser("report", help="the results of all runs")
    telling.add_argument("--survived", action="store_true", help="name the faults that no test noticed")
    telling.set_defaults(do=report)
    options = parser.parse_args()
    options.do(options)


if __name__ == "__main__":
    sys.exit(main())
