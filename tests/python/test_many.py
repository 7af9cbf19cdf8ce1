"""Many labels: in order, each once, whatever happens."""

import os
import signal
import threading
from pathlib import Path

import pytest

import postwright
from conftest import serving
from postwright import Status

COUNT = 300
LABELS = [f"{number} n main street\naustin tx 78701" for number in range(1, COUNT + 1)]
ADDRESS = "<AddressValidateResponse><Address><Address2>12 N MAIN ST</Address2><City>AUSTIN</City>" \
          "<State>TX</State><Zip5>78701</Zip5></Address></AddressValidateResponse>"


def children():
    return {int(pid) for task in Path("/proc/self/task").iterdir()
            for pid in (task / "children").read_text().split()}


def texts(fixes):
    return [fix.text for fix in fixes]


EXPECTED = [label.upper().replace("STREET", "ST") for label in LABELS]


def test_comes_in_order_and_ends_its_workers():
    before = children()
    assert texts(postwright.fix_many(iter(LABELS), jobs=1)) == EXPECTED
    assert texts(postwright.fix_many(iter(LABELS), jobs=3)) == EXPECTED
    fixes = postwright.fix_many(LABELS, jobs=2)
    assert next(fixes).text == EXPECTED[0]
    assert len(children() - before) == 2
    fixes.close()
    assert children() == before
    assert [*postwright.fix_many([], jobs=2)] == []


@pytest.mark.parametrize("many", [postwright.parse_many,
                                  lambda labels: postwright.fix_many(labels),
                                  lambda labels: postwright.fix_many(labels, jobs=2)])
@pytest.mark.parametrize("last, fault", [(lambda: None, TypeError), (lambda: 1 // 0, ArithmeticError)])
def test_a_fault_comes_after_what_was_read_before_it(many, last, fault):
    def labels():
        yield from LABELS[:40]
        yield last()

    results = []
    with pytest.raises(fault):
        for result in many(labels()):
            results.append(result)
    assert len(results) == 40


def test_a_dead_worker_costs_no_label():
    before = children()
    fixes = []
    for fix in postwright.fix_many(LABELS, jobs=2):
        fixes.append(fix)
        if len(fixes) in (50, 150):
            os.kill((children() - before).pop(), signal.SIGKILL)
    assert [fix.label for fix in fixes] == LABELS
    assert all(fix.status is Status.FIXED or fix.reason == "worker-ended" for fix in fixes)


def test_a_label_that_kills_is_not_judged():
    before = children()

    def answer(_):
        if "KILL" in asked[-1]:
            for worker in children() - before:
                os.kill(worker, signal.SIGKILL)
        return 200, ADDRESS

    labels = ["12 n main st\naustin tx 78701", "12 kill st\naustin tx 78701"] * 2
    with serving(answer) as (server, asked):
        fixes = [*postwright.fix_many(labels, jobs=2, server=server)]
    assert [fix.label for fix in fixes] == labels
    for fix in fixes:  # other workers may have died with it
        assert fix.reason == "worker-ended" or (fix.reason == "" and "kill" not in fix.label)
        assert fix.reason == "" or "was ended by signal 9" in fix.reason_text


@pytest.mark.parametrize("jobs", [1, 2])
def test_an_outage_is_waited_for(jobs, monkeypatch):
    monkeypatch.setattr("postwright._asking._FIRST_PAUSE", 0.01)
    with serving(lambda n: (200, ADDRESS) if n % 20 > 2 else (503, "")) as (server, _):
        fixes = [*postwright.fix_many(LABELS[:30], jobs=jobs, server=server)]
    assert [fix.label for fix in fixes] == LABELS[:30]
    assert all(fix.status is not Status.UNANSWERED for fix in fixes)


def test_patience_ends_and_a_bad_label_holds_nobody_up(monkeypatch):
    monkeypatch.setattr("postwright._asking._FIRST_PAUSE", 0.01)
    with serving(lambda n: (503, "")) as (server, asked):
        fixes = [*postwright.fix_many(LABELS[:5], server=server, patience=0.1)]
    assert {fix.status for fix in fixes} == {Status.UNANSWERED} and texts(fixes) == LABELS[:5]
    with serving(lambda _: (503, "") if "13" in asked[-1] else (200, ADDRESS)) as (server, asked):
        fixes = [*postwright.fix_many(LABELS[10:15], server=server)]
    assert [fix.status is Status.UNANSWERED for fix in fixes] == [False, False, True, False, False]


def test_threads_and_forks_do_not_meet():
    stop = threading.Event()
    wrong = []

    def work():
        while not stop.is_set():
            for label, expected in zip(LABELS[:20], EXPECTED):
                if postwright.fix(label).text != expected:
                    wrong.append(label)

    threads = [threading.Thread(target=work) for _ in range(3)]
    for thread in threads:
        thread.start()
    for _ in range(10):
        child = os.fork()
        if child == 0:
            status = 1
            try:
                status = texts(map(postwright.fix, LABELS[:20])) != EXPECTED[:20]
            finally:
                os._exit(status)
        assert os.waitpid(child, 0)[1] == 0
    stop.set()
    for thread in threads:
        thread.join()
    assert not wrong
