"""One label: its result, and what raises."""

import dataclasses
import doctest
import json
import os
import pickle
import signal
import subprocess
import sys
import threading

import pytest

import postwright
from conftest import PROGRAMS, SOURCES, serving

LABELS = [json.loads(line) for name in ("labels", "address-lines")
          for line in (SOURCES / f"tests/data/{name}.jsonl").read_text().splitlines()]


def run(*command, text=None, **environment):
    done = subprocess.run(command, input=text, capture_output=True, encoding="utf-8",
                          env=os.environ | environment)
    assert done.returncode == 0, done.stderr
    return done.stdout


def test_reads_what_the_parser_reads():
    rows = [row for row in LABELS if "fields" in row]
    read = [*postwright.parse_many(row["label"] for row in rows)]
    assert read == [postwright.parse(row["label"]) for row in rows]
    for row, address in zip(rows, read):
        fields = dataclasses.asdict(address) if address else {}
        assert {name: text for name, text in fields.items() if text} == row["fields"], row["name"]


@pytest.mark.parametrize("options", [[], ["--whole-label"], ["--keep-punctuation"],
                                     ["--accept-doubtful"]])
def test_fixes_as_the_command_does(options):
    keywords = {option.removeprefix("--").replace("-", "_"): True for option in options}
    lines = "".join(json.dumps({"address": row["label"]}) + "\n" for row in LABELS)
    records = run(PROGRAMS / "postwright", "fix", "--jsonl", "--explain", *options, text=lines)
    for line in records.splitlines():
        record = json.loads(line)
        fix = postwright.fix(record["address"], **keywords)
        told = {
            "address": fix.label, "status": fix.status, "proposed": fix.proposed,
            "confirmation": fix.confirmation, "confirmation_text": fix.confirmation_text,
            "reason": fix.reason, "reason_text": fix.reason_text,
            "fixed": fix.text if fix.status <= postwright.Status.FIXED else "",
            "source": fix.source.kind if fix.source else "",
        }
        record.setdefault("proposed", "")
        assert told == {name: record[name] for name in told}
        assert fix.status == postwright.Status.FIXED or fix.text == fix.label
        if fix.status is not postwright.Status.UNCHANGED:
            assert [(change.rule, change.doubt, change.typed.text, change.corrected.text)
                    for change in fix.changes] == \
                [(change["rule"], change["doubt"], change["typed"], change["corrected"])
                 for change in record["changes"]]


def test_answers_from_bases_given_and_found(tmp_path):
    town = tmp_path / "town.csv"
    town.write_text("".join(
        line.replace("MILLRACE,OH,00011", "AUSTIN,TX,78701") + "\n"
        for line in (SOURCES / "data/sample/town.csv").read_text().splitlines()
        if ",000" not in line.replace("MILLRACE,OH,00011", "")))
    base = tmp_path / "postwright/town.base"
    base.parent.mkdir()
    run(PROGRAMS / "postwright-base", "import", "--quiet", base, town, "--source", "Made up")
    label = "12 n main st\naustin tx 78701"
    fix = postwright.fix(label, bases=[base])
    assert fix.confirmed and fix.address.zip == "78701-1201" and fix.source.kind == "base"
    wrong = postwright.fix(label.replace("12", "21"), bases=[base])
    assert wrong.status is postwright.Status.UNDECIDED and wrong.reason == "number-not-known"
    assert not wrong.confirmed and wrong.address is None
    assert not postwright.fix(label).confirmed
    found = "import postwright, sys; sys.exit(not postwright.fix(sys.argv[1]).confirmed)"
    run(sys.executable, "-c", found, label, XDG_DATA_HOME=str(tmp_path))
    base.write_bytes(base.read_bytes()[:5000])
    with pytest.raises(postwright.BadFileError, match="town.base"):
        list(postwright.fix_many([label] * 3, jobs=2, bases=[base]))


@pytest.mark.parametrize("call, fault", [
    (lambda: postwright.parse(b"12 main st"), TypeError),
    (lambda: postwright.fix(None), TypeError),
    (lambda: postwright.explain("a", 1), TypeError),
    (lambda: postwright.fix("a", bases="town.base"), TypeError),
    (lambda: postwright.fix("a", bases=["/nowhere.base"]), postwright.BadFileError),
    (lambda: postwright.fix("a", server="no host"), ValueError),
    (lambda: postwright.fix("a", server=""), ValueError),
    (lambda: postwright.fix("a", server="a", bases=[]), ValueError),
    (lambda: postwright.fix("a", timeout=0), ValueError),
    (lambda: postwright.fix("a", timeout=float("nan")), ValueError),
    (lambda: postwright.fix_many([], jobs=0), ValueError),
    (lambda: postwright.fix_many([], jobs=1.5), TypeError),
])
def test_raises_for_faults(call, fault):
    with pytest.raises(fault):
        call()


@pytest.mark.parametrize("label", ["12 main st\0\naustin tx 78701", "12 \ud800 st\naustin tx 78701"])
def test_takes_any_str(label):
    postwright.parse(label)
    postwright.explain(label, label)
    fix = postwright.fix(label)
    assert (fix.status, fix.reason, fix.text) == (postwright.Status.TURNED_DOWN, "no-label", label)


def test_results_are_plain_values():
    fix = postwright.fix("Zoë 🏠\n12 n main street\naustin tx 78701")
    assert fix.text.startswith("Zoë 🏠\n12 N MAIN ST\n")
    assert pickle.loads(pickle.dumps(fix)) == fix
    assert len({fix, pickle.loads(pickle.dumps(fix))}) == 1
    assert dataclasses.replace(fix, text="") != fix
    with pytest.raises(dataclasses.FrozenInstanceError):
        fix.text = ""
    typed = fix.changes[0].typed
    assert fix.label[typed.begin:typed.end] == typed.text == "street"


REFUSAL = "<AddressValidateResponse><Address><Error><Number>-2147219401</Number>" \
          "<Description>Address Not Found.</Description></Error></Address></AddressValidateResponse>"


@pytest.mark.parametrize("status, body, outcome, reason", [
    (200, REFUSAL, postwright.Status.TURNED_DOWN, "not-found"),
    (503, "", postwright.Status.UNANSWERED, "http-status"),
    (200, "no XML", postwright.Status.UNANSWERED, "bad-answer"),
])
def test_tells_a_refusal_from_no_answer(status, body, outcome, reason):
    with serving(lambda _: (status, body)) as (server, asked):
        fix = postwright.fix("12 main st\naustin tx 78701", server=server)
    assert (fix.status, fix.reason, fix.text, len(asked)) == (outcome, reason, fix.label, 1)


def test_an_interrupt_ends_the_wait():
    silent = threading.Event()
    with serving(lambda _: (200, str(silent.wait(30)))) as (server, asked):
        def interrupt():
            while not asked:
                pass
            os.kill(os.getpid(), signal.SIGINT)

        threading.Thread(target=interrupt).start()
        with pytest.raises(KeyboardInterrupt):
            postwright.fix("12 main st\naustin tx 78701", server=server)
        silent.set()
    assert postwright.fix("12 main st\naustin tx 78701").status is postwright.Status.UNCHANGED


def test_leaves_the_locale_alone():
    code = """if True:
        import locale
        names = ["C", "C.UTF-8"]
        for name in names:
            locale.setlocale(locale.LC_ALL, name)
            import postwright
            before = locale.setlocale(locale.LC_ALL)
            assert postwright.fix("12 peña st\\naustin tx 78701").text.startswith("12 PENA ST")
            assert postwright.parse("12 peña st\\naustin tx 78701").street == "PEÑA"
            assert locale.setlocale(locale.LC_ALL) == before == name
    """
    run(sys.executable, "-c", code, LC_ALL="C")


def test_the_examples_do_what_they_say():
    assert doctest.testmod(postwright).failed == 0
    guide = run(sys.executable, SOURCES / "examples/python/guide.py")
    assert guide.endswith("directional north N False\nsuffix street ST False\n")
    script = SOURCES / "examples/python/fix_label.py"
    label = "Zoë\n12 n main street\naustin tx 78701"
    assert run(sys.executable, script, text=label) == "Zoë\n12 N MAIN ST\nAUSTIN TX 78701\n"
    for server in ("127.0.0.1:1", "no host"):
        assert subprocess.run([sys.executable, script, server], input=b"", capture_output=True).returncode
