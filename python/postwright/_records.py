"""What the calls return. Plain values: frozen, compared by what they hold, picklable."""

from __future__ import annotations

import dataclasses
import enum

_record = dataclasses.dataclass(frozen=True, slots=True)


class PostwrightError(Exception):
    """The package's own exceptions, besides TypeError, ValueError and MemoryError."""


class BadFileError(PostwrightError):
    """A list of ZIP codes or an address base cannot be used; the message names it and says why."""


class WorkerError(PostwrightError):
    """A worker process of fix_many() could not be started."""


@_record
class Address:
    """The elements of an address as the parser read them, in upper case (USPS Publication 28,
    section 23); "" for an element that the address lacks."""

    prefix: str
    """The text above the address."""
    number: str
    """The house number: "12 1/2"."""
    predirectional: str
    street: str
    """The street's name, MAIN; the whole line of a post-office box, PO BOX 12."""
    street_suffix: str
    postdirectional: str
    secondary_unit: str
    secondary_number: str
    street_line: str
    """The delivery line: "12 N MAIN ST APT 4B"."""
    city: str
    state: str
    zip: str
    """As it was written: "62701", "62701-1234" or "627011234"."""
    suffix: str
    """The text below the address."""


@_record
class Part:
    """A run of words in a text."""

    text: str
    """As written; "" where only the other text has the words."""
    line: int
    """Counted from 0."""
    begin: int
    """text[begin:end] of the whole text; where there are no words, the place they would have."""
    end: int


@_record
class Change:
    """One change: words of the typed text, and what the corrected text has instead."""

    rule: str
    """A code that never changes its meaning: "suffix", "zip-of-street"."""
    rule_text: str
    """The same in English."""
    typed: Part
    corrected: Part
    doubt: bool
    """No rule accounts for it: a person should look before it is taken."""
    reason: str
    """For a doubt, one English sentence; else ""."""


class Status(enum.IntEnum):
    """What became of a label."""

    UNCHANGED = 0
    """The service says the same, apart from case, spaces and punctuation; or nobody was asked."""
    FIXED = 1
    """Corrected, and each change is accounted for."""
    UNDECIDED = 2
    """A person must decide: a doubtful correction, a number that is not on the street, or a unit
    that is not in the building."""
    TURNED_DOWN = 3
    """The service does not know the address, or the text holds none."""
    UNANSWERED = 4
    """Nobody judged the address, and asking again later may help."""


class Confirmation(enum.StrEnum):
    """How far the service confirmed an address as one that exists."""

    NONE = ""
    """Nobody was asked, or no address came back."""
    CONFIRMED = "confirmed"
    UNIT_MISSING = "unit-missing"
    """The building is known, and has units."""
    UNIT_NOT_KNOWN = "unit-not-known"
    """The building is known, the unit is not."""
    NUMBER_NOT_KNOWN = "number-not-known"
    """The street is known, the number is not."""
    FORM_ONLY = "form-only"
    """Well formed; nobody has checked the street."""


@_record
class StandardAddress:
    """An address in the service's standard form."""

    street_line: str
    urbanization: str
    """In Puerto Rico; else ""."""
    city: str
    state: str
    zip: str
    """With the ZIP+4 if the service knows it: "78701-1201"."""


@_record
class Source:
    """Where an answer comes from."""

    kind: str
    """One of "base", "zip-list", "upstream" and "cache"."""
    name: str
    """The base's file, or the other service."""
    date: str
    """When the base was made or the answer was kept: "2026-11-20"."""
    text: str
    """The same in English, to follow "according to"."""


@_record
class Fix:
    """What became of a label."""

    label: str
    """As it was given."""
    status: Status
    text: str
    """The text to use: corrected if the status is FIXED, else as it was given."""
    proposed: str
    """The corrected text if a person must decide; else ""."""
    mended: str
    """Where no address was read and only one thing can be meant, the text with what it lacks, to be
    offered to a person. Mostly ""."""
    confirmation: Confirmation
    confirmation_text: str
    """The same in English."""
    reason: str
    """A code: why it was left alone, turned down or not answered, or what is doubtful; or ""."""
    reason_text: str
    """The same in English, for a person."""
    changes: tuple[Change, ...]
    """What the correction changes, if the status is FIXED or UNDECIDED."""
    address: StandardAddress | None
    """The address, where it can be relied on: FIXED, or UNCHANGED and asked about."""
    source: Source | None
    """Where the answer comes from, if the service tells."""
    asked: bool
    """False if the label was left alone."""
    retry_after: int
    """Seconds after which the service wants to be asked again; 0 if it does not say."""

    @property
    def confirmed(self) -> bool:
        """True if the service knows the address, down to the unit."""
        return self.confirmation is Confirmation.CONFIRMED
