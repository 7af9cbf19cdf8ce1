"""How people type the parts of a label other than the street: names, notes, last lines, case."""

import unicodedata

from judge import Element, Label
from publication28 import STATES

PEOPLE_FIRST = "Maria Thomas José Anne-Marie Siobhán Wei Latoya Bob Günther Priya Noël Earl Faith April Dean".split()
PEOPLE_LAST = ("Nguyen García-López McDonald O'Brien Smith DeLaCruz Park Hill Lake Street Rhodes Court Banks "
               "Peña St.Clair North West Van Buren Müller Johnson Walker Lane").split()
PLAIN_NAMES = ["Acme Hardware", "Springfield Public Library", "The Jenkins Family", "Current Resident",
               "Maria & Thomas Nguyen", "Smith, Jones & Partners LLP", "St. Mary's Church", "West Side Dental",
               "c/o Robert Miller", "Attn: Accounts Payable", "Dr. Ellen Court", "Lakeside Inn & Suites",
               "Office of the Registrar", "Main Street Bakery", "Box Lunch Cafe", "North Star Realty",
               "PO'Neill & Daughters", "Oak Room Restaurant", "Unit Drop Forge Co", "Route One Diner"]
DIGIT_NAMES = ["3M Company", "Class of 1998", "Unit 5 Brewing Co", "Name 2 Person", "7-Eleven", "21st Century Oil",
               "Suite 16 Lounge", "Local 3 IBEW", "Pier 1 Imports", "Studio 54 Hair", "99 Cents Only",
               "Company #173", "Boy Scouts Troop 88", "4 Paws Rescue", "Bldg 7 Storage LLC", "1st Baptist Church",
               "Highway 61 Records", "Box 12 Studios", "H2O Plumbing", "Forever 21", "Flat 5 Jazz Club"]
NOTES = ["Ring twice", "USA", "Leave at back door", "Gate code 1234", "Tel 555-0123", "Customer 20413", "Fragile",
         "Order #5581", "United States of America", "Deliver by 3 PM", "Attn: Receiving"]
RANKS = ["SGT", "PFC", "CPT", "LT", "MSgt", "SSgt", "PO2", "Maj.", "Mr."]
MILITARY_UNITS = ["B Co 3-187 IN", "HHC 2BCT", "52nd Fighter Wing", "U.S. Embassy", "Det 3 31 MXS", "USS Carl Vinson"]


def person(chance):
    middle = chance.choice(["", "", " J.", " K", " Marie"])
    tail = chance.choice([""] * 8 + [" Jr.", " III"])
    return f"{chance.choice(PEOPLE_FIRST)}{middle} {chance.choice(PEOPLE_LAST)}{tail}"


def lines_above(chance):
    count = chance.choices([0, 1, 2, 3], [20, 55, 20, 5])[0]
    pool = [person, person, lambda c: c.choice(PLAIN_NAMES), lambda c: c.choice(PLAIN_NAMES),
            lambda c: c.choice(DIGIT_NAMES)]
    return [chance.choice(pool)(chance) for _ in range(count)]


def military_lines_above(chance):
    lines = [f"{chance.choice(RANKS)} {person(chance)}"]
    if chance.random() < 0.3:
        lines.append(chance.choice(MILITARY_UNITS))
    return lines


def lines_below(chance):
    return [chance.choice(NOTES)] if chance.random() < 0.12 else []


def zip_element(chance, zip5, share_with_add_on=0.12):
    if chance.random() >= share_with_add_on:
        return Element("zip", zip5, zip5)
    add_on = f"{chance.randint(1, 9998):04d}"
    standard = f"{zip5}-{add_on}"
    typed = chance.choice([standard] * 9 + [zip5 + add_on])
    return Element("zip", standard, typed, (f"{zip5} {add_on}", zip5 + add_on))


def city_element(chance, city):
    """The city as in the list of ZIP codes, or with its first word abbreviated."""
    typed = city
    for long, short in (("Saint ", "St. "), ("Fort ", "Ft. "), ("Mount ", "Mt. "), ("North ", "N. "), ("West ", "W "),
                        ("East ", "E. "), ("South ", "So. ")):
        share = 0.4 if long[0] in "SFM" and long != "South " else 0.05
        if city.startswith(long) and chance.random() < share:
            typed = short + city[len(long):]
    return Element("city", city.upper(), typed)


def state_element(chance, state):
    name = STATES.get(state, state)
    forms = [state] * 16 + [name] * 3 + [state.lower()] * (chance.random() < 0.2)
    if state in ("NY", "NJ", "DC", "NM", "SD", "RI"):
        forms.append(".".join(state) + ".")
    return Element("state", state, chance.choice(forms), (name, state))


def last_line(chance, label):
    """The lines with city, state and ZIP code, written in one of the ways people write them."""
    city, state, code = label.city.typed, label.state.typed, label.zip.typed
    return chance.choices(
        [[f"{city}, {state} {code}"], [f"{city} {state} {code}"], [f"{city}, {state}  {code}"],
         [f"{city}, {state}, {code}"], [f"{city},{state} {code}"], [f"{city}, {state}", code]],
        [60, 25, 6, 4, 2, 3])[0]


def plain(word):
    return word.isalpha() and word.isascii()


def text_of(chance, label, delivery_lines):
    """The whole label as typed."""
    lines = label.above + delivery_lines + last_line(chance, label) + label.below
    if not label.one_line and chance.random() < 0.03:
        lines.insert(len(label.above), "")
    text = (", " if label.one_line else "\n").join(lines)
    if chance.random() < 0.1:  # accents as combining marks, as some systems write them
        text = unicodedata.normalize("NFD", text)
    return chance.choices([str, str.upper, str.lower], [70, 23, 7])[0](text)


def make_one_line(chance, label):
    """Some labels are typed on one line: those whose names can be told from the street."""
    if chance.random() < 0.05 and all(plain(word) for line in label.above for word in line.split()):
        label.one_line, label.below = True, []
    return label


def new_label(chance, zip5, city, state):
    return Label(above=lines_above(chance), city=city_element(chance, city), state=state_element(chance, state),
                 zip=zip_element(chance, zip5), below=lines_below(chance))
