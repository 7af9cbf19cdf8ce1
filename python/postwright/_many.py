"""Many labels, in worker processes.

Fixes of one process take turns at its parser, so threads would wait for each other. The workers
are programs of their own, not forks: the fork of a process with threads (a numerical library's,
say) may wait for a lock that no thread holds any more.
"""

from __future__ import annotations

import os
import socket
import subprocess
import sys
from collections import deque
from collections.abc import Iterable, Iterator
from multiprocessing.connection import Connection, wait

from ._asking import Asking, PatientFixer
from ._reading import Reader
from ._records import Confirmation, Fix, Status, WorkerError

_AT_ONCE = 32
_AT_ONCE_OF_SERVER = 4
_HELD_FOR_EACH_JOB = 8
"""How many chunks a job may hold: enough that a slow label seldom stops the others, few enough
for memory."""


class _Chunk:
    """Consecutive labels, and what became of them so far."""

    def __init__(self, labels: list[str]) -> None:
        self.labels = labels
        self.fixes: list[Fix | None] = [None] * len(labels)
        self.open = len(labels)

    def take(self, begin: int, fixes: list[Fix]) -> None:
        self.fixes[begin:begin + len(fixes)] = fixes
        self.open -= len(fixes)


_FALSE_STARTS = 3
"""After this many workers in a row have died before they began, no other will begin."""


_Task = tuple[_Chunk, int, int]
"""A range of a chunk's labels."""


class _Worker:
    def __init__(self, asking: Asking, patience: float) -> None:
        ours, theirs = socket.socketpair()
        code = (f"import sys; sys.path[:] = {sys.path!r}\n"
                f"from postwright._worker import main; main({theirs.fileno()})")
        try:
            self._process = subprocess.Popen([sys.executable, "-I", "-c", code],
                                             stdin=subprocess.DEVNULL, pass_fds=[theirs.fileno()])
        except OSError as failure:
            ours.close()
            raise WorkerError(f"{sys.executable!r} cannot be started: {failure}") from failure
        finally:
            theirs.close()
        self.connection = Connection(ours.detach())
        self.is_ready = False
        self.task: _Task | None = None
        self._send((asking, patience))

    def begin(self, task: _Task) -> None:
        chunk, begin, end = task
        self.task = task
        self._send(chunk.labels[begin:end])

    def _send(self, message: object) -> None:
        try:
            self.connection.send(message)
        except OSError:
            pass  # it has died, as its connection will tell

    def end(self) -> str:
        """Ends the process, and says how it ended."""
        self.connection.close()
        try:
            status = self._process.wait(timeout=1)
        except subprocess.TimeoutExpired:
            self._process.kill()
            status = self._process.wait()
        return f"was ended by signal {-status}" if status < 0 else f"ended with status {status}"


class _Pool:
    """The workers, and the chunks under way, in the order they were read."""

    def __init__(self, labels: Iterable[str], jobs: int, asking: Asking, patience: float) -> None:
        self._labels = Reader(labels)
        self._jobs = jobs
        self._of_worker = (asking, patience)
        self._size = _AT_ONCE if asking.server is None else _AT_ONCE_OF_SERVER
        self._workers: list[_Worker] = []
        self._chunks: deque[_Chunk] = deque()
        self._tasks: deque[_Task] = deque()
        self._false_starts = 0
        self._owner = os.getpid()

    def fixes(self) -> Iterator[Fix]:
        try:
            while self._hand_out() or self._chunks:
                while self._chunks and self._chunks[0].open == 0:
                    yield from self._chunks.popleft().fixes
                self._hand_out()
                self._collect()
        finally:
            self._end()
        self._labels.finish()

    def _end(self) -> None:
        if os.getpid() == self._owner:  # not in a child that was forked meanwhile
            for worker in self._workers:
                worker.connection.close()  # all of them first, so that none is waited for alone
            for worker in self._workers:
                worker.end()

    def _hand_out(self) -> bool:
        """Gives each idle worker a task; False if there was none to give."""
        given = False
        while (task := self._next_task()) is not None:
            idle = next((worker for worker in self._workers if worker.task is None), None)
            if idle is None and len(self._workers) == self._jobs:
                self._tasks.appendleft(task)
                break
            if idle is None:
                idle = _Worker(*self._of_worker)
                self._workers.append(idle)
            idle.begin(task)
            given = True
        return given

    def _next_task(self) -> _Task | None:
        if self._tasks:
            return self._tasks.popleft()
        if len(self._chunks) >= self._jobs * _HELD_FOR_EACH_JOB:
            return None
        labels = self._labels.read(self._size)
        if not labels:
            return None
        self._chunks.append(_Chunk(labels))
        return self._chunks[-1], 0, len(labels)

    def _collect(self) -> None:
        busy = {worker.connection: worker for worker in self._workers if worker.task is not None}
        for connection in wait(list(busy)) if busy else []:
            worker = busy[connection]
            try:
                message = worker.connection.recv()
            except (EOFError, OSError):
                self._replace(worker)
                continue
            if isinstance(message, BaseException):
                raise message
            if worker.is_ready:
                chunk, begin, _ = worker.task
                worker.task = None
                chunk.take(begin, message)
            worker.is_ready = True
            self._false_starts = 0

    def _replace(self, worker: _Worker) -> None:
        """A worker has died. Its labels are asked about one by one, to find the one it died over; that
        one counts as not answered."""
        self._workers.remove(worker)
        how = worker.end()
        chunk, begin, end = worker.task
        if not worker.is_ready:
            self._false_starts += 1
            if self._false_starts == _FALSE_STARTS:
                raise WorkerError(f"a worker process {how} before it began")
            self._tasks.appendleft(worker.task)
        elif end - begin > 1:
            self._tasks.extendleft((chunk, i, i + 1) for i in reversed(range(begin, end)))
        else:
            chunk.take(begin, [_of_dead_worker(chunk.labels[begin], how)])


def _of_dead_worker(label: str, how: str) -> Fix:
    return Fix(label=label, status=Status.UNANSWERED, text=label, proposed="", mended="",
               confirmation=Confirmation.NONE, confirmation_text="", reason="worker-ended",
               reason_text=f"The worker process that was fixing this address {how}.", changes=(),
               address=None, source=None, asked=True, retry_after=0)


def _fix_here(labels: Iterable[str], asking: Asking, patience: float) -> Iterator[Fix]:
    fixer = PatientFixer(asking, patience)
    reader = Reader(labels)
    while label := reader.read(1):
        yield fixer.fix(label[0])
    reader.finish()


def fix_in_order(labels: Iterable[str], jobs: int, asking: Asking, patience: float) -> Iterator[Fix]:
    """Yields a Fix for each label, in order."""
    if jobs == 1:
        return _fix_here(labels, asking, patience)
    return _Pool(labels, jobs, asking, patience).fixes()
