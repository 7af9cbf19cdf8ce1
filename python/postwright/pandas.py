"""Labels in a pandas DataFrame. Only this module needs pandas.

    >>> import pandas
    >>> import postwright.pandas
    >>> frame = pandas.DataFrame({"who": ["Jane Doe"], "where": ["12 n main street"],
    ...                           "town": ["austin"], "st": ["tx"], "zip": ["78701"]})
    >>> fixed = frame.postwright.fix(name="who", street="where", city="town", state="st", zip="zip")
    >>> fixed.street_line[0], fixed.status[0]
    ('12 N MAIN ST', 'fixed')
"""

from __future__ import annotations

import dataclasses
import re
from collections.abc import Hashable, Iterable
from typing import Any

import pandas

from . import fix_many, parse_many
from ._records import Address, Fix, Status

_BARE_UNIT = re.compile(r"(?=[A-Za-z0-9-]{1,6}$)(.$|.?[0-9])")
_OF_FIX = ("text", "proposed", "mended", "confirmation", "reason", "reason_text")
_OF_ADDRESS = ("street_line", "urbanization", "city", "state", "zip")


@pandas.api.extensions.register_dataframe_accessor("postwright")
class PostwrightAccessor:
    """What a frame has as `frame.postwright`. The calls do not change the frame: they return one
    with its index, to join to it: `frame.join(frame.postwright.fix("label").add_prefix("fixed_"))`.

    A label is made of columns named by part (`name`, `street`, `unit`, `city`, `state`, `zip`), or of
    columns given by position, each of which is a line of it, or several. Missing values are empty.
    Numbers are taken as written: a ZIP code in a column of numbers has lost its leading zeros, which
    is reported (`zip-short`), not guessed; read such a column with `dtype=str`.
    """

    def __init__(self, frame: pandas.DataFrame) -> None:
        self._frame = frame

    def parse(self, *lines: Hashable, name: Hashable = None, street: Hashable = None,
              unit: Hashable = None, city: Hashable = None, state: Hashable = None,
              zip: Hashable = None) -> pandas.DataFrame:
        """The elements of each label's address, as in postwright.Address; "" in all columns if it has
        none."""
        labels = self._labels(lines, (name, street, unit, city, state, zip))
        names = [field.name for field in dataclasses.fields(Address)]
        none = ("",) * len(names)
        rows = [none if address is None else tuple(getattr(address, name) for name in names)
                for address in parse_many(labels)]
        return pandas.DataFrame(rows, index=self._frame.index, columns=names, dtype=object)

    def fix(self, *lines: Hashable, name: Hashable = None, street: Hashable = None,
            unit: Hashable = None, city: Hashable = None, state: Hashable = None,
            zip: Hashable = None, **options: Any) -> pandas.DataFrame:
        """What became of each label. `options` are those of postwright.fix_many(), such as `jobs=4`.

        The columns: `status`, a category ("unchanged", "fixed", "undecided", "turned_down",
        "unanswered"); `text`, the label to use; `proposed`, `mended`, `confirmation`, `reason` and
        `reason_text` as in postwright.Fix; and, where the address can be relied on, its `street_line`,
        `urbanization`, `city`, `state` and `zip`, else "".
        """
        labels = self._labels(lines, (name, street, unit, city, state, zip))
        fixes = list(fix_many(labels, **options))
        statuses = [status.name.lower() for status in Status]
        table = pandas.DataFrame(map(_row, fixes), index=self._frame.index,
                                 columns=[*_OF_FIX, *_OF_ADDRESS], dtype=object)
        table.insert(0, "status", pandas.Categorical([fix.status.name.lower() for fix in fixes],
                                                     categories=statuses))
        return table

    def _labels(self, lines: tuple[Hashable, ...], parts: tuple[Hashable, ...]) -> list[str]:
        named = [part is not None for part in parts]
        if not lines and not any(named):
            raise TypeError("name the columns of the label: fix('label'), or fix(street='address', "
                            "city='town', state='st', zip='zip')")
        if lines and any(named):
            raise TypeError("give columns by part or as lines of the label, not both")
        if lines:
            return ["\n".join(filter(None, row))
                    for row in zip(*map(self._texts, lines))]
        empty = [""] * len(self._frame)
        texts = [empty if part is None else self._texts(part) for part in parts]
        return [_compose(*row) for row in zip(*texts)]

    def _texts(self, column: Hashable) -> list[str]:
        if column not in self._frame.columns:
            raise KeyError(f"the frame has no column {column!r}; its columns are "
                           f"{', '.join(map(repr, self._frame.columns))}")
        values = self._frame[column]
        if isinstance(values, pandas.DataFrame):
            raise ValueError(f"the frame has {values.shape[1]} columns {column!r}")
        return ["" if missing else _text(value) for value, missing in zip(values, values.isna())]


def _text(value: object) -> str:
    """A column of numbers with one missing holds 78701.0 for 78701."""
    if isinstance(value, float) and value.is_integer():
        value = int(value)
    return str(value).strip()


def _compose(name: str, street: str, unit: str, city: str, state: str, zip: str) -> str:
    if _BARE_UNIT.match(unit):
        unit = f"# {unit}"
    place = " ".join(filter(None, [", ".join(filter(None, [city, state])), zip]))
    return "\n".join(filter(None, [name, street, unit, place]))


def _row(fix: Fix) -> Iterable[str]:
    yield from (str(getattr(fix, name)) for name in _OF_FIX)
    yield from (getattr(fix.address, name) if fix.address else "" for name in _OF_ADDRESS)
