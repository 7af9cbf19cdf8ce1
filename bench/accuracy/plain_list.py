"""The list without an address base: one label for each ZIP code, well-formed, in every form."""

import random
from dataclasses import dataclass

from judge import Label
from label_text import make_one_line, military_lines_above, new_label, text_of
from street_forms import LEFT_ALONE, choose_form


@dataclass
class Row:
    text: str        # the label as typed
    truth: Label     # what it should say
    group: str       # the form, or the class of mistake
    typed: Label = None       # what it says, if that is not the truth
    answers: int = 1          # how many addresses it could stand for
    left_alone: bool = False  # to be left as it is: clients cannot ask about it


def read_zips(path):
    with open(path, encoding="utf-8") as lines:
        return [tuple(line.rstrip("\n").split("\t")) for line in lines if line.strip()]


def _row(seed, zip5, city, state):
    chance = random.Random(f"{seed} {zip5}")  # a row is the same in a list of any size
    label = new_label(chance, zip5, city, state)
    form, title = choose_form(chance, state)
    if title == "military":
        label.above = military_lines_above(chance)
    label.street, label.units, lines, *above = form(chance, state)
    if above and above[0]:
        label.above = label.above + above[0]
    else:
        make_one_line(chance, label)
    return Row(text_of(chance, label, lines), label, title, left_alone=title in LEFT_ALONE)


def plain_rows(zips, size, seed):
    """A row for each of `size` ZIP codes, starting again if there are fewer."""
    order = list(zips)
    if size < len(order):
        order = random.Random(seed).sample(order, size)
    return [_row(f"{seed}/{at // len(order)}", *order[at % len(order)]) for at in range(size)]
