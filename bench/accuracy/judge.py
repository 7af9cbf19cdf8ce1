"""What a label should say, and whether a text says it.

A label is judged element by element, against the elements it was composed of: each has its standard
form, and other spellings that mean the same. Nothing may be left over, missing, moved to another
line, or out of order.
"""

import re
import unicodedata
from dataclasses import dataclass, field

from publication28 import CITY_WORDS, DIRECTIONS, PLAIN_UNITS, SUFFIX_NAMES, UNITS


def _without_accents(text):
    text = unicodedata.normalize("NFD", text.replace("½", " 1/2"))
    return "".join(c for c in text if not unicodedata.combining(c)).upper()


def words(text):
    """Splits the text of an address into words, without case, accents and the signs that may be left
    out. A hyphen next to a digit, a full stop between digits and a number sign by itself stay."""
    text = _without_accents(text)
    text = re.sub(r"(?<!\d)\.|\.(?!\d)|['’]", "", text)
    text = text.replace("#", " # ").replace("&", " AND ")
    text = re.sub(r"(?<![\w])-|-(?![\w])", " ", text)
    text = re.sub(r"(?<=[A-Z])-(?=[A-Z])", " ", text)
    return tuple(re.sub(r"[^\w./#-]", " ", text).split())


def letters(text):
    """What must be kept of a line outside the address: its letters with their accents, and its digits."""
    return "".join(c for c in unicodedata.normalize("NFC", text).upper() if c.isalnum())


@dataclass(frozen=True)
class Element:
    kind: str      # "number", "directional", "name", "suffix", "unit", "city", ...
    standard: str  # as Publication 28 writes it
    typed: str     # as on the label
    also: tuple = ()

    def spellings(self):
        """Every spelling that means the same, as words."""
        found = {words(self.standard), words(self.typed)}
        found.update(map(words, self.also))
        if self.kind == "suffix":
            found.update((name,) for name in SUFFIX_NAMES.get(self.standard, ()))
        elif self.kind == "directional":
            found.update(words(name) for name in DIRECTIONS[self.standard])
        elif self.kind == "unit":
            found.update(self._unit_spellings())
        elif self.kind == "city":
            found.update(self._city_spellings())
        return sorted(found, key=len, reverse=True)

    def _unit_spellings(self):
        designator, _, number = self.standard.partition(" ")
        if not number:
            return [words(name) for name in PLAIN_UNITS[designator]]
        names = [designator, *UNITS.get(designator, [])]
        signs = [""] if designator == "#" else ["", "#"]
        numbers = [number, re.sub(r"(?<=\d)-(?=[A-Z])", "", number)]  # 2-A is 2A, but 2-1 is not 21
        return [words(f"{name} {sign} {value}") for name in names for sign in signs for value in numbers]

    def _city_spellings(self):
        long = words(self.standard)
        short = tuple(CITY_WORDS.get(word, word) for word in long)
        apart = words(self.standard.replace("'", " "))  # COEUR D ALENE
        return [(short[0], *long[1:]), short, ("".join(long),), apart]


@dataclass
class Label:
    """The elements of a label, in the order of the standard form."""
    above: list = field(default_factory=list)   # lines, as typed
    street: list = field(default_factory=list)  # Elements of the delivery line, without the units
    units: list = field(default_factory=list)
    city: Element = None
    state: Element = None
    zip: Element = None
    below: list = field(default_factory=list)
    one_line: bool = False                      # typed in one line: line breaks do not count


@dataclass(frozen=True)
class Verdict:
    wrong: str       # "" if the text says what it should; else the first thing wrong
    standard: bool   # every element of the address is in its standard form


def _match(tokens, elements):
    """Returns "" if the words are exactly these elements; else the kind of the first element that
    cannot be found."""
    furthest = [-1, ""]

    def fits(at, index):
        if index == len(elements):
            if at == len(tokens):
                return True
            if index > furthest[0]:
                furthest[:] = [index, "words too many after " + (elements[-1].kind if elements else "")]
            return False
        for spelling in elements[index].spellings():
            if tokens[at:at + len(spelling)] == spelling and fits(at + len(spelling), index + 1):
                return True
        if index > furthest[0]:
            furthest[:] = [index, elements[index].kind]
        return False

    return "" if fits(0, 0) else furthest[1]


def _is_standard(tokens, elements):
    return tokens == sum((words(element.standard) for element in elements), ())


def _delivery_orders(label):
    """The ways in which street and units may be laid out over lines."""
    yield [label.street + label.units]
    if label.units:
        yield [label.street, label.units]
        yield [label.units, label.street]


def _judge_delivery(lines, label):
    wrong = ""
    for order in _delivery_orders(label):
        if len(order) != len(lines):
            continue
        found = [_match(words(line), part) for line, part in zip(lines, order)]
        if not any(found):
            return "", all(_is_standard(words(line), part) for line, part in zip(lines, order))
        wrong = wrong or next(filter(None, found))
    return wrong or "delivery lines", False


def _without_add_on(element):
    return Element("zip", element.standard[:5], element.standard[:5])


def _match_last(tokens, label):
    found = _match(tokens, _last_line(label))
    lost = found == "zip" and not _match(tokens, _last_line(label)[:-1] + [_without_add_on(label.zip)])
    return "ZIP+4 lost" if lost else found


def _last_line(label):
    return [element for element in (label.city, label.state, label.zip) if element]


def _judge_one_line(text, label):
    above, below = ([Element(kind, line, line) for line in lines]
                    for kind, lines in (("line above", label.above), ("line below", label.below)))
    wrong = ""
    for order in _delivery_orders(label):
        elements = above + sum(order, []) + _last_line(label) + below
        found = _match(words(text), elements)
        if not found:
            return Verdict("", _is_standard(words(text), elements))
        wrong = wrong or found
    return Verdict(wrong, False)


def judge(text, label):
    """Says whether `text` is what `label` should be."""
    if label.one_line:
        return _judge_one_line(text, label)
    lines = [line for line in text.splitlines() if line.strip()]
    above, below = len(label.above), len(label.below)
    if len(lines) < above + below + 2:
        return Verdict("lines lost", False)
    if list(map(letters, lines[:above])) != list(map(letters, label.above)):
        return Verdict("line above", False)
    rest = lines[above:len(lines) - below]
    if list(map(letters, lines[len(lines) - below:])) != list(map(letters, label.below)):
        return Verdict("line below", False)
    wrong = ""
    for last in (1, 2):  # a ZIP code may be on a line of its own
        if len(rest) <= last:
            break
        tokens = words(" ".join(rest[-last:]))
        found = _match_last(tokens, label)
        if not found:
            wrong, standard = _judge_delivery(rest[:-last], label)
            return Verdict(wrong, standard and _is_standard(tokens, _last_line(label)))
        wrong = wrong or found
    return Verdict(wrong, False)
