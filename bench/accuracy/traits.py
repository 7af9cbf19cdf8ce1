"""What is special about a row, to find what the rows that go wrong have in common."""

import re
import unicodedata
from collections import Counter

from publication28 import COMMON_SUFFIXES, DIRECTION_STANDARD, PLAIN_UNITS, SUFFIX_NAMES, SUFFIX_STANDARD, UNITS

_COMMON = set(COMMON_SUFFIXES)
_UNIT_WORDS = {word for standard, words in [*UNITS.items(), *PLAIN_UNITS.items()] for word in [standard, *words]}


def _city_traits(city):
    first = re.sub(r"\W", "", city.split()[0]).upper()
    for words, title in ((SUFFIX_STANDARD, "a suffix"), (DIRECTION_STANDARD, "a directional"), (_UNIT_WORDS, "a unit word"),
                         ({"SAINT", "STE", "LA", "LE", "EL", "MC"}, "SAINT, LA, MC")):
        if first in words and first != "ST":
            yield f"city begins with {title}"
            return
    if first == "ST":
        yield "city begins with ST"
    standards = [*SUFFIX_STANDARD.values(), *UNITS, *PLAIN_UNITS]
    if any(len(word) > 1 and first.startswith(word) for word in standards):
        yield "city begins with letters that are a suffix"


def _street_traits(label):
    by_kind = {part.kind: part for part in label.street}
    name = by_kind["name"].typed.upper() if "name" in by_kind else ""
    if re.search(r"[^\x00-\x7f]", name):
        yield "accent in the street"
    if "'" in name or "-" in name:
        yield "sign in the name of the street"
    if name.split() and name.split()[-1] in SUFFIX_STANDARD and "suffix" in by_kind:
        yield "name ends with a suffix word"
    if name.split() and name.split()[0] in SUFFIX_STANDARD:
        yield "name begins with a suffix word"
    if name in DIRECTION_STANDARD:
        yield "name is a directional"
    suffix = by_kind.get("suffix")
    if suffix and suffix.typed.rstrip(".").upper() not in (suffix.standard, SUFFIX_NAMES[suffix.standard][0]):
        yield "suffix in a rare spelling"
    elif suffix and suffix.standard not in _COMMON:
        yield "rare suffix"
    for part in label.street:
        if part.kind == "directional" and len(part.typed.split()) == 2:
            yield "directional of two words"
        if part.kind == "directional" and "." in part.typed:
            yield "directional with full stops"
    if label.street[-1].kind == "directional":
        yield "postdirectional"


def _unit_traits(label, lines):
    if not label.units:
        return
    if len(label.units) > 1:
        yield "two units"
    last = label.units[-1]
    yield f"unit {last.standard.split()[0]}"
    if re.search(r" [A-Z]$", last.standard):
        yield "unit of one letter"
    if "-" in last.typed:
        yield "unit with hyphen"
    if "#" in last.typed:
        yield "unit with number sign"
    place = next((i for i, line in enumerate(lines) if line.upper().endswith(last.typed.upper())), -1)
    if place >= 0 and re.match(re.escape(label.units[0].typed), lines[place], re.IGNORECASE):
        below = place + 1 < len(lines) and lines[place + 1].upper().startswith(label.street[0].typed.upper())
        yield "unit above the street" if below else "unit on its own line"


def _last_line_traits(label, text):
    zip5 = label.zip.typed[:5]
    upper = text.upper()
    if len(label.zip.typed) > 5:
        yield "ZIP+4" if "-" in label.zip.typed else "ZIP+4 without hyphen"
    if re.search(rf"^{zip5}", text, re.MULTILINE):
        yield "ZIP code on its own line"
    if re.search(rf", {zip5}", text):
        yield "comma before the ZIP code"
    if "." in label.state.typed:
        yield "state with full stops"
    elif len(label.state.typed) > 2:
        yield "state in full"
    if re.search(rf",{re.escape(label.state.typed.upper())} ", upper):
        yield "no blank after the city's comma"
    if not label.city:
        yield "city missing"


def traits(row):
    label = row.typed or row.truth
    lines = row.text.splitlines()
    found = {f"form: {row.group}"}
    if any(re.search(r"\d", line) for line in label.above):
        found.add("digit in a line above")
    if any(re.search(r"\d", line) for line in label.below):
        found.add("digit in a line below")
    if label.below:
        found.add("line below")
    if label.one_line:
        found.add("in one line")
    if unicodedata.normalize("NFC", row.text) != row.text:
        found.add("accents as marks of their own")
    found.update(_street_traits(label))
    found.update(_unit_traits(label, lines))
    found.update(_last_line_traits(label, row.text))
    if label.city:
        found.update(_city_traits(label.city.typed))
    return found


def telling_traits(rows, is_bad):
    """Gives each bad row its most telling trait: of the traits whose rows mostly go wrong, the one with
    most bad rows comes first, and those rows are then left out of the count."""
    left = [(row, traits(row), is_bad(row)) for row in rows]
    told = {}
    for share in (0.9, 0.7, 0.5, 0.3, 0.15, 0):
        while True:
            every, bad = Counter(), Counter()
            for _, found, wrong in left:
                every.update(found)
                if wrong:
                    bad.update(found)
            fitting = [(count, trait) for trait, count in bad.items() if count >= share * every[trait]]
            if not fitting:
                break
            trait = max(fitting)[1]
            told.update((id(row), trait) for row, found, wrong in left if trait in found and wrong)
            left = [each for each in left if trait not in each[1]]
    return told
