"""Who is asked about a label, and how."""

from __future__ import annotations

import dataclasses
import functools
import logging
import os
import threading
import time
from collections.abc import Iterable
from pathlib import Path

from . import _native
from ._records import Fix, Status

_FIRST_PAUSE = 1.0
_LONGEST_PAUSE = 60.0

_log = logging.getLogger("postwright")


@functools.cache
def _found_bases() -> tuple[str, ...]:
    return tuple(str(base) for base in _native.find_bases())


@functools.lru_cache(maxsize=2)  # each holds its bases in memory
def _local_service(bases: tuple[str, ...]) -> _native.Service:
    return _native.local_service([str(Path(__file__).with_name("us-zips.tsv")), *bases])


def _checked_server(server: str) -> str:
    if not server or not all("!" <= c <= "~" for c in server):
        raise ValueError(f"{server!r} is not a HOST[:PORT]")
    return server


@dataclasses.dataclass(frozen=True)
class Asking:
    """The options of fix() and fix_many(), checked."""

    server: str | None
    bases: tuple[str, ...] | None
    whole_label: bool
    keep_punctuation: bool
    accept_doubtful: bool
    timeout: float

    @classmethod
    def of(cls, *, server: str | None, bases: Iterable[str | os.PathLike[str]] | None,
           timeout: float, **form: bool) -> Asking:
        if server is not None and bases is not None:
            raise ValueError("server and bases exclude each other: a server has its own bases")
        if not 0 < timeout <= 86400:
            raise ValueError("timeout must be a number of seconds, more than 0 and at most a day")
        if isinstance(bases, (str, os.PathLike)):
            raise TypeError("bases must be a list of files, not one")
        return cls(server=None if server is None else _checked_server(server),
                   bases=None if bases is None else tuple(os.path.abspath(base) for base in bases),
                   timeout=timeout, **form)

    @functools.cached_property
    def service(self) -> _native.Service:
        if self.server is not None:
            return _native.server(self.server, self.timeout)
        return _local_service(_found_bases() if self.bases is None else self.bases)

    @functools.cached_property
    def form(self) -> _native.Asking:
        return _native.Asking(whole_label=self.whole_label, keep_punctuation=self.keep_punctuation,
                              accept_doubtful=self.accept_doubtful)

    def fix(self, label: str, *, interruptible: bool = True) -> Fix:
        may_interrupt = interruptible and threading.current_thread() is threading.main_thread()
        return _native.fix(label, self.service, self.form, may_interrupt)


class PatientFixer:
    """Fixes labels one by one, and waits for a service that is away."""

    def __init__(self, asking: Asking, patience: float, *, interruptible: bool = True) -> None:
        self._asking = asking
        self._patience = patience
        self._interruptible = interruptible
        self._answered = time.monotonic()
        self._known: str | None = None
        """The last label that was answered: it will be again if the service is there."""

    def fix(self, label: str) -> Fix:
        """Asks again until there is an answer, until it is plain that only this label gets none, or
        until patience runs out."""
        fix = self._ask(label)
        pause = _FIRST_PAUSE
        while fix.status is Status.UNANSWERED and self._left() > 0:
            time.sleep(min(max(pause, fix.retry_after), self._left()))
            known = self._known and self._ask(self._known).status is not Status.UNANSWERED
            if known or self._known is None:
                fix = self._ask(label)
            if known:
                break
            if pause == _FIRST_PAUSE:
                _log.warning("waiting for the service: %s", fix.reason_text)
            pause = min(2 * pause, _LONGEST_PAUSE)
        return fix

    def _left(self) -> float:
        return self._answered + self._patience - time.monotonic()

    def _ask(self, label: str) -> Fix:
        fix = self._asking.fix(label, interruptible=self._interruptible)
        if fix.status is not Status.UNANSWERED and fix.asked:
            self._known = label
            self._answered = time.monotonic()
        return fix
