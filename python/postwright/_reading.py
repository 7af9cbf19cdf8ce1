"""Reading the caller's labels."""

from __future__ import annotations

import itertools
from collections.abc import Iterable


class Reader:
    """Reads labels a few at a time. An error on the way is kept, to be raised once the labels before
    it are dealt with."""

    def __init__(self, labels: Iterable[str]) -> None:
        self._labels = iter(labels)
        self.failure: Exception | None = None
        self.is_at_end = False

    def read(self, most: int) -> list[str]:
        """The next labels; empty at the end."""
        labels: list[str] = []
        if self.is_at_end:
            return labels
        try:
            for label in itertools.islice(self._labels, most):
                if not isinstance(label, str):
                    raise TypeError(f"a label is a str, not {type(label).__name__}")
                labels.append(label)
        except Exception as failure:
            self.failure = failure
        self.is_at_end = len(labels) < most
        return labels

    def finish(self) -> None:
        """Raises the error that was kept, if any."""
        if self.failure is not None:
            raise self.failure
