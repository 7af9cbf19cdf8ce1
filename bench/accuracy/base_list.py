"""The list with an address base: made-up addresses in real ZIP codes, and rows of which one in so many
has a person's mistake, of one of twelve classes.

How many right answers a row has is found from what its label says, not from how it was made: by
comparing it with every address of the state that has its house number.
"""

import random
from dataclasses import dataclass, replace

from judge import Element, Label
from label_text import last_line, lines_above, lines_below
from plain_list import Row
from publication28 import COMMON_SUFFIXES, DIRECTION_STANDARD, DIRECTIONS, SUFFIX_NAMES, SUFFIX_STANDARD, UNITS, ordinal

FIRST = """Oak Elm Maple Cedar Pine River Lake Hill Stone Mill Fox Deer Eagle Willow Birch Spring Forest Garden Orchard
Meadow Prairie Valley Canyon Summit Harbor Windsor Lincoln Madison Jackson Monroe Franklin Harrison Sherman Hamilton
Lexington Concord Hawthorne Magnolia Juniper Sycamore Laurel Dogwood Heather Jasmine Crystal Silver Copper Amber""".split()
SECOND = ["", "", "", "", "wood", "ton", "field", " Creek", " Ridge", " Park", " Hollow", " Point", " Glen", " Run", " View", " Hill"]
WHOLE = """Main;Broad;Market;Church;Central;Central Park;Sunset;Sunset Hill;Lake Shore;Martin Luther King Jr;MacArthur;El Camino
North;South;Saint Charles;Mount Vernon;Old Mill;Van Buren;La Salle;Avenue A;College;University;State;High;Court;Park"""


@dataclass(frozen=True)
class Address:
    number: str
    pre: str
    name: str
    suffix: str
    post: str
    unit: tuple  # designator and number, or ()
    city: str
    state: str
    zip: str

    def street_words(self):
        return tuple(" ".join((self.pre, self.name, self.suffix, self.post)).upper().split())


def _street(chance):
    kind = chance.random()
    if kind < 0.15:
        name = ordinal(chance.randint(1, 60)).lower()
    elif kind < 0.35:
        name = chance.choice(WHOLE.replace("\n", ";").split(";"))
    else:
        name = chance.choice(FIRST) + chance.choice(SECOND)
    pre = chance.choice(list("NSEW") + ["NE", "SW"]) if chance.random() < 0.25 else ""
    post = chance.choice(list("NSEW") + ["NW"]) if chance.random() < 0.06 else ""
    return pre, name, "" if name.startswith("Avenue ") else chance.choice(COMMON_SUFFIXES), post


def _sibling(chance, street):
    """A street that could be mistaken for this one: another suffix, or another directional."""
    pre, name, suffix, post = street
    if chance.random() < 0.5:
        return pre, name, chance.choice(COMMON_SUFFIXES), post
    return chance.choice(["", "N", "S", "E", "W"]), name, suffix, post


def _houses(chance, street, city, state, zip5, low):
    step = chance.choice([1, 2, 2, 4])
    for at in range(chance.randint(6, 18)):
        number = str(low + at * step + chance.choice([0, 0, step]))
        address = Address(number, *street, (), city, state, zip5)
        if chance.random() < 0.12:
            designator = chance.choice(["APT", "APT", "STE", "UNIT"])
            first = chance.choice([1, 101])
            yield from (replace(address, unit=(designator, str(first + n))) for n in range(4))
        else:
            yield address


def _places(chance, zips, states):
    """Towns of one ZIP code and towns of several, in some states."""
    by_city = {}
    for zip5, city, state in zips:
        if state not in ("AA", "AE", "AP", "PR"):
            by_city.setdefault((state, city), []).append(zip5)
    by_state = {}
    for (state, city), codes in by_city.items():
        by_state.setdefault(state, []).append((city, codes))
    large = sorted(state for state, towns in by_state.items() if sum(len(codes) > 1 for _, codes in towns) >= 8)
    for state in chance.sample(large, states):
        several = [town for town in by_state[state] if len(town[1]) > 1]
        alone = [town for town in by_state[state] if len(town[1]) == 1]
        for city, codes in chance.sample(several, 4) + chance.sample(alone, 6):
            for zip5 in codes[:4]:
                yield city, state, zip5


def make_addresses(zips, seed, states):
    """Returns the addresses of the base, each once, sorted."""
    chance = random.Random(f"{seed} base")
    found = set()
    for city, state, zip5 in _places(chance, zips, states):
        for _ in range(30):
            street = _street(chance)
            low = chance.randint(0, 80) * 100 + chance.randint(1, 30)
            found.update(_houses(chance, street, city, state, zip5, low))
            if chance.random() < 0.3:  # often with the same numbers
                low += chance.choice([0, 0, 100])
                found.update(_houses(chance, _sibling(chance, street), city, state, zip5, low))
    return sorted(found, key=lambda a: (a.zip, a.street_words(), a.number, a.unit))


def write_csv(addresses, path):
    with open(path, "w", encoding="utf-8") as out:
        out.write("LON,LAT,NUMBER,STREET,UNIT,CITY,DISTRICT,REGION,POSTCODE,ID,HASH\n")
        for a in addresses:
            out.write(f",,{a.number},{' '.join(a.street_words()).title()},{' '.join(a.unit)},{a.city},,{a.state},{a.zip},,\n")


# The search for what a label could stand for.

def _one_letter(a, b):
    """Says whether two texts differ by one letter, or by two neighbouring letters swapped."""
    if abs(len(a) - len(b)) > 1:
        return False
    start = 0
    while start < min(len(a), len(b)) and a[start] == b[start]:
        start += 1
    end = 0
    while end < min(len(a), len(b)) - start and a[-1 - end] == b[-1 - end]:
        end += 1
    left, right = a[start:len(a) - end], b[start:len(b) - end]
    if any(c.isdigit() for c in left + right):
        return False
    return max(len(left), len(right)) <= 1 or (len(left) == 2 and left == right[::-1])


def _standard(words):
    return tuple(SUFFIX_STANDARD.get(word, DIRECTION_STANDARD.get(word, word)) for word in words)


def _street_by_one_mistake(typed, meant):
    """Says whether one mistake in a suffix, a directional or a letter can turn a street into this."""
    said = _standard(typed.street_words())

    def reads(pre, suffix, post):
        return said == _standard(replace(meant, pre=pre, suffix=suffix, post=post).street_words())

    suffixes = [""] if meant.suffix else []
    if meant.suffix and said:
        suffixes += [word for word in said if word in SUFFIX_NAMES]
    if any(reads(meant.pre, suffix, meant.post) for suffix in suffixes):
        return True
    if any(reads(way, meant.suffix, meant.post) or reads(meant.pre, meant.suffix, way) for way in ["", *DIRECTIONS]):
        return True
    return _one_letter(" ".join(typed.street_words()), " ".join(meant.street_words()))


def _by_one_mistake(typed, meant):
    street = _standard(typed.street_words()) == _standard(meant.street_words())
    unit, city, code = typed.unit == meant.unit, typed.city.upper() == meant.city.upper(), typed.zip == meant.zip
    if [street, unit, city, code].count(False) != 1:
        return False
    if not street:
        return _street_by_one_mistake(typed, meant)
    if not unit:
        return bool(typed.unit and meant.unit) and typed.unit[1] == meant.unit[1]
    return True  # another ZIP code; another city, which counts against the first as well


class Search:
    def __init__(self, addresses):
        self._all = set(addresses)
        self._by_number = {}
        for address in addresses:
            self._by_number.setdefault((address.state, address.number), []).append(address)

    def has(self, address):
        said = _standard(address.street_words())
        return any(_standard(a.street_words()) == said and (a.unit, a.city, a.zip) == (address.unit, address.city, address.zip)
                   for a in self._by_number.get((address.state, address.number), []))

    def answers(self, typed):
        return [a for a in self._by_number.get((typed.state, typed.number), []) if _by_one_mistake(typed, a)]


# The mistakes. Each returns the address as typed, or None for an address it does not suit.

def _change_letter(chance, text):
    places = [i for i, c in enumerate(text) if c.isalpha()]
    if len(places) < 4 or any(c.isdigit() for c in text):
        return None
    at, letter = chance.choice(places), chance.choice("abcdefghijklmnopqrstuvwxyz")
    made = chance.choice([text[:at] + text[at + 1:], text[:at] + letter + text[at:], text[:at] + letter + text[at + 1:]])
    return made if made.upper() != text.upper() and made == made.strip() else None


def _swap_letters(chance, text):
    places = [i for i in range(len(text) - 1)
              if text[i].isalpha() and text[i + 1].isalpha() and text[i].upper() != text[i + 1].upper()]
    if len(text) < 4 or not places or any(c.isdigit() for c in text):
        return None
    at = chance.choice(places)
    return text[:at] + text[at + 1] + text[at] + text[at + 2:]


def _with_name(change):
    def mistake(chance, address, _):
        made = change(chance, address.name)
        return made and replace(address, name=made)
    return mistake


def _suffix_missing(chance, address, _):
    return replace(address, suffix="") if address.suffix else None


def _suffix_wrong(chance, address, _):
    return replace(address, suffix=chance.choice(COMMON_SUFFIXES)) if address.suffix else None


def _directional_missing(chance, address, _):
    if not address.pre and not address.post:
        return None
    return replace(address, pre="") if address.pre else replace(address, post="")


def _directional_added(chance, address, _):
    if address.pre or address.post:
        return None
    way = chance.choice("NSEW")
    return replace(address, pre=way) if chance.random() < 0.7 else replace(address, post=way)


def _directional_wrong(chance, address, _):
    if not address.pre and not address.post:
        return None
    way = chance.choice(list(DIRECTIONS))
    return replace(address, pre=way) if address.pre else replace(address, post=way)


def _zip_of_the_city(chance, address, zips_of_city):
    return replace(address, zip=chance.choice(zips_of_city[address.state, address.city]))


def _zip_of_elsewhere(chance, address, zips_of_city):
    place = chance.choice(list(zips_of_city))
    if place == (address.state, address.city):
        return None
    return replace(address, zip=chance.choice(zips_of_city[place]))


def _city(chance, address, _):
    made = chance.choice([_change_letter, _swap_letters, lambda *_: ""])(chance, address.city)
    return None if made is None else replace(address, city=made)


def _unit_designator(chance, address, _):
    return replace(address, unit=(chance.choice(["APT", "STE", "UNIT", "#"]), address.unit[1])) if address.unit else None


def _number_swapped(chance, address, _):
    n = address.number
    places = [i for i in range(len(n) - 1) if n[i] != n[i + 1] and not (i == 0 and n[1] == "0")]
    if not places:
        return None
    at = chance.choice(places)
    return replace(address, number=n[:at] + n[at + 1] + n[at] + n[at + 2:])


MISTAKES = {
    "letter": _with_name(_change_letter), "swap": _with_name(_swap_letters),
    "suffix missing": _suffix_missing, "suffix wrong": _suffix_wrong,
    "directional missing": _directional_missing, "directional added": _directional_added,
    "directional wrong": _directional_wrong, "ZIP of the same city": _zip_of_the_city,
    "ZIP of elsewhere": _zip_of_elsewhere, "city misspelt or missing": _city,
    "unit designator": _unit_designator, "number swapped": _number_swapped,
}
NO_MISTAKE = "no mistake"


def _spelt(chance, standard, names):
    return chance.choice([standard.title(), standard.title(), names[0].title(), standard.title() + "."])


def _label(address, chance):
    """The label of an address, its words spelt as people spell them."""
    street = [Element("number", address.number, address.number)]
    if address.pre:
        street.append(Element("directional", address.pre, _spelt(chance, address.pre, DIRECTIONS[address.pre])))
    street.append(Element("name", address.name.upper(), address.name))
    if address.suffix:
        street.append(Element("suffix", address.suffix, _spelt(chance, address.suffix, SUFFIX_NAMES[address.suffix])))
    if address.post:
        street.append(Element("directional", address.post, address.post))
    units = []
    if address.unit:
        designator, number = address.unit
        typed = chance.choice([designator, UNITS[designator][0]]).title()
        units.append(Element("unit", f"{designator} {number}", f"{typed} {number}"))
    return Label(street=street, units=units, city=Element("city", address.city.upper(), address.city),
                 state=Element("state", address.state, address.state), zip=Element("zip", address.zip, address.zip))


def _row(chance, group, meant, typed, answers):
    label, truth = _label(typed, chance), _label(meant, chance)
    label.above = truth.above = lines_above(chance)
    label.below = truth.below = lines_below(chance)
    line = " ".join(part.typed for part in label.street)
    unit = "".join(part.typed for part in label.units)
    lines = chance.choice([[f"{line} {unit}"], [f"{line}, {unit}"], [line, unit]]) if unit else [line]
    last = last_line(chance, label) if typed.city else [f"{typed.state} {typed.zip}"]
    text = "\n".join(label.above + lines + last + label.below)
    text = chance.choices([str, str.upper, str.lower], [70, 25, 5])[0](text)
    if not typed.city:
        label.city = None
    return Row(text, truth, group, label, answers)


def base_rows(addresses, size, seed, one_in):
    """`size` rows, one in `one_in` with a mistake; the classes take turns."""
    chance = random.Random(f"{seed} rows")
    search = Search(addresses)
    zips_of_city = {}
    for address in addresses:
        zips_of_city.setdefault((address.state, address.city), set()).add(address.zip)
    zips_of_city = {place: sorted(codes) for place, codes in zips_of_city.items()}
    with_unit = [address for address in addresses if address.unit]
    classes = list(MISTAKES)
    rows = []
    while len(rows) < size:
        if len(rows) % one_in:
            address = chance.choice(addresses)
            rows.append(_row(chance, NO_MISTAKE, address, address, 1))
            continue
        group = classes[len(rows) // one_in % len(classes)]
        row = None
        while row is None:
            meant = chance.choice(with_unit if group == "unit designator" else addresses)
            typed = MISTAKES[group](chance, meant, zips_of_city)
            if typed is None or search.has(typed):
                continue
            answers = search.answers(typed)
            if group == "number swapped":
                if answers:
                    continue
            elif meant not in answers:
                raise AssertionError(f"{typed} does not lead back to {meant}")
            row = _row(chance, group, meant, typed, len(answers))
        rows.append(row)
    return rows
