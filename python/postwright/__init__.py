"""Finds the US postal address in a label's text, splits it, and gives the text back corrected.

    >>> import postwright
    >>> postwright.parse("Jane Doe, 12 n main street, austin texas 78701").street_line
    '12 N MAIN ST'
    >>> fix = postwright.fix("Jane Doe\\n12 n main street\\naustin, texas 78701")
    >>> fix.status.name, fix.text
    ('FIXED', 'Jane Doe\\n12 N MAIN ST\\nAUSTIN TX 78701')

What became of a label is a value (Fix.status): a label that is turned down, not answered or in
doubt raises nothing. Exceptions are for faults: a label that is not a str, a file that cannot be used.

Every call may be made from any thread, and in a child of fork(). The calls of one process take turns,
without the interpreter's lock; fix_many() can use several processors. The process's locale does not
matter and is not changed.
"""

from __future__ import annotations

import operator
import os
from collections.abc import Iterable, Iterator

from . import _native
from ._asking import Asking as _Asking
from ._many import fix_in_order as _fix_in_order
from ._reading import Reader as _Reader
from ._records import (Address, BadFileError, Change, Confirmation, Fix, Part, PostwrightError,
                       Source, StandardAddress, Status, WorkerError)

__all__ = [
    "Address", "BadFileError", "Change", "Confirmation", "Fix", "Part", "PostwrightError", "Source",
    "StandardAddress", "Status", "WorkerError", "explain", "fix", "fix_many", "parse", "parse_many",
]


def parse(text: str) -> Address | None:
    """Finds the address in a label's text and splits it; asks nobody. None where there is none.

    `text` may have any line breaks and any length; the time grows in proportion.
    """
    return _native.parse(text)


def parse_many(texts: Iterable[str]) -> Iterator[Address | None]:
    """Yields what parse() returns for each text, in their order.

    Up to 1,024 texts are read ahead. What `texts` raises, or the TypeError for an item that is not a
    str, is raised after the results of the texts before it.
    """
    reader = _Reader(texts)
    while labels := reader.read(1024):
        yield from _native.parse_list(labels)
    reader.finish()


def fix(text: str, *, server: str | None = None,
        bases: Iterable[str | os.PathLike[str]] | None = None, whole_label: bool = False,
        keep_punctuation: bool = False, accept_doubtful: bool = False,
        timeout: float = 120.0) -> Fix:
    """Asks for the standard form of the address in a label's text, and corrects the text.

    Nothing is sent over a network unless `server`, HOST[:PORT], names a Verify service. The process
    answers by itself, from the ZIP codes that come with it and from address bases: the files `bases`,
    or else those that the command `postwright fix` finds in ~/.local/share/postwright and
    /var/lib/postwright at the first call.

    The lines that are the address are asked about and corrected, and the others stay as they are;
    `whole_label` asks about the whole text. Punctuation that the postal service leaves out is
    removed unless `keep_punctuation` is set. A doubtful correction is proposed (Status.UNDECIDED),
    not made, unless `accept_doubtful` is set. A server has `timeout` seconds to answer; an interrupt
    (KeyboardInterrupt) ends the wait.

    Raises TypeError or ValueError for an invalid argument, and BadFileError.
    """
    return _Asking.of(server=server, bases=bases, whole_label=whole_label, timeout=timeout,
                      keep_punctuation=keep_punctuation, accept_doubtful=accept_doubtful).fix(text)


def fix_many(texts: Iterable[str], *, jobs: int = 1, patience: float = 600.0,
             server: str | None = None, bases: Iterable[str | os.PathLike[str]] | None = None,
             whole_label: bool = False, keep_punctuation: bool = False,
             accept_doubtful: bool = False, timeout: float = 120.0) -> Iterator[Fix]:
    """Yields what fix() returns for each text, one for each and in their order.

    With `jobs` above 1 that many worker processes ask at once; at most 256 texts a job are read
    ahead. The workers end with the generator. One that dies is replaced; the text it died over gets
    Status.UNANSWERED with the reason "worker-ended".

    A server that does not answer is asked again after a second, then after 2, 4 and so on up to 60,
    for at most `patience` seconds since its last answer; after that, the texts that it does not
    answer come as Status.UNANSWERED, to be asked about another time. So does a text that it leaves
    unanswered while it answers others. The logger "postwright" gets a warning of each wait.

    Raises as fix() does, WorkerError if no worker can be started, and what `texts` raises, after the
    results of the texts before it.
    """
    jobs = operator.index(jobs)
    if not 1 <= jobs <= 256:
        raise ValueError("jobs must be a number from 1 to 256")
    asking = _Asking.of(server=server, bases=bases, whole_label=whole_label, timeout=timeout,
                        keep_punctuation=keep_punctuation, accept_doubtful=accept_doubtful)
    return _fix_in_order(texts, jobs, asking, patience)


def explain(typed: str, corrected: str, footnotes: str = "") -> tuple[Change, ...]:
    """Says which words of a corrected text replace which typed ones, by which rule, and which of the
    changes are doubtful; in the order of the corrected text, empty if both texts say the same.

    `footnotes` are the letters of the service's Footnotes element, if known: some changes are
    explained by them alone. Asks nobody.
    """
    return _native.explain(typed, corrected, footnotes)


