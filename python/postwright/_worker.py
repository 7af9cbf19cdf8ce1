"""What a worker process of fix_many() runs: labels in, results out, until no more come."""

from __future__ import annotations

import signal
from multiprocessing.connection import Connection

from ._asking import Asking, PatientFixer


def main(descriptor: int) -> None:
    signal.signal(signal.SIGINT, signal.SIG_IGN)  # the reader of the results handles the terminal's
    connection = Connection(descriptor)
    try:
        asking: Asking
        asking, patience = connection.recv()
        try:
            asking.service  # a base that cannot be used is told before the first label
            fixer = PatientFixer(asking, patience, interruptible=False)
        except Exception as failure:
            connection.send(failure)
            return
        connection.send(None)
        while True:
            connection.send([fixer.fix(label) for label in connection.recv()])
    except (EOFError, ConnectionError):
        pass  # the parent is done, or dead
