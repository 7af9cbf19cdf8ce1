#!/usr/bin/env python3
"""Fails if a source includes what the README of its folder does not allow.

    scripts/check-includes.py [ROOT]

A README has a table of its folders, `| folder | what lives there | may include |`. The third column
names folders and single headers in backticks, and libraries by the names in LIBRARIES. A folder's own
headers are always allowed, and so are those of the standard library and the system. The tables are
kept true: each folder with sources has a row, each row a folder, and a folder does include what its
row allows.
"""

import collections
import os
import pathlib
import re
import sys

ROOMS = ["apps", "client", "common", "core", "platform", "postal", "python", "service", "sql"]

# What an include begins with, and what a README calls the library it is from.
LIBRARIES = {
    "Q": "Qt", "ui_": "Qt", "boost/": "Boost", "CLI/": "CLI11", "csv.h": "libcsv", "curl/": "libcurl",
    "microhttpd.h": "libmicrohttpd", "nlohmann/": "nlohmann_json", "pugixml.hpp": "pugixml",
    "pybind11/": "pybind11", "simdjson.h": "simdjson", "sqlite3.h": "SQLite",
    "sqlite3ext.h": "SQLite", "tinyxml.h": "TinyXML",
    "utf8proc.h": "utf8proc", "zint.h": "Zint", "zip.h": "libzip", "zlib.h": "zlib",
}

INCLUDE = re.compile(r'#include ([<"])([^>"]+)[>"]')


def find(*endings):
    return sorted(str(path) for room in ROOMS for path in pathlib.Path(room).rglob("*")
                  if path.name.endswith(endings))


def read_rules(readmes, folders):
    """What each folder may include: folder -> the names in its third column."""
    rules = {}
    for readme in readmes:
        here = str(pathlib.Path(readme).parent)
        table = False
        for line in pathlib.Path(readme).read_text().split("\n"):
            cells = [cell.strip() for cell in line.split("|")]
            table = len(cells) == 5 and (table or cells[3] == "may include")
            if not table:
                continue

            def name_of(text):
                text = text.rstrip("/")
                inner = f"{here}/{text}"
                return inner if inner in folders or pathlib.Path(inner).is_file() else text

            rows = re.findall(r"`([^`]+)`", cells[1])
            allowed = {name_of(text) for text in re.findall(r"`([^`]+)`", cells[3])}
            allowed |= {name for name in LIBRARIES.values() if re.search(rf"\b{name}\b", cells[3])}
            for row in rows:
                rules[name_of(row)] = allowed
    return rules


def target_of(quote, name, home):
    """The folder or library that an include reaches, and the header; nothing for a system header."""
    if name.startswith("postwright/"):
        path = home.get(name.removeprefix("postwright/"))
        return (str(pathlib.Path(path).parent), path) if path else None
    for begin, library in LIBRARIES.items():
        if name.startswith(begin):
            return library, name
    if quote == '"' and "/" in name:
        return str(pathlib.Path(name).parent), name
    return None


def find_faults():
    sources = find(".h", ".cpp")
    folders = {str(pathlib.Path(path).parent) for path in sources}
    home = {pathlib.Path(path).name: path for path in sources if path.endswith(".h")}
    rules = read_rules(find("README.md"), folders)
    uses = collections.defaultdict(set)
    for path in sources:
        folder = str(pathlib.Path(path).parent)
        for number, line in enumerate(pathlib.Path(path).read_text().split("\n"), 1):
            found = INCLUDE.match(line)
            target = found and target_of(*found.groups(), home)
            if not target:
                continue
            uses[folder] |= set(target)
            if folder in rules and target[0] != folder and not rules[folder] & set(target):
                yield f"{path}:{number}: {folder} may not include {found.group(2)}"
    for folder in sorted(folders - rules.keys()):
        yield f"{folder}: no README has a row for it"
    for folder in sorted(rules.keys() - folders):
        yield f"{folder}: has a row in a README, but no sources"
    for folder in sorted(rules.keys() & folders):
        for name in sorted(rules[folder] - uses[folder]):
            yield f"{folder}: may include {name}, but does not"
        for other in sorted(rules[folder] & rules.keys()):
            if folder < other and folder in rules[other]:
                yield f"{folder}, {other}: each may include the other"


def main():
    os.chdir(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent.parent)
    faults = list(find_faults())
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
