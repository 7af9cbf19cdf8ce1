"""The extension in SQLite's own shell, in a process whose locale is not UTF-8."""

import json
import os
import sqlite3
import subprocess
import threading
from pathlib import Path

import pytest

SOURCES = Path(__file__).resolve().parents[2]
PROGRAMS = Path(os.environ["POSTWRIGHT_PROGRAMS"])
MODULE = os.environ["POSTWRIGHT_SQLITE"]
LABEL = "'Jane Doe' || char(10) || '12 n main street apt 4' || char(10) || 'austin, texas 78701'"


def shell(statements, **environment):
    return subprocess.run(["sqlite3", "-cmd", f".load {MODULE}"], input=statements, encoding="utf-8",
                          capture_output=True, timeout=60,
                          env=os.environ | {"HOME": "/nonexistent"} | environment)


def connect():
    connection = sqlite3.connect(":memory:", check_same_thread=False)
    connection.enable_load_extension(True)
    connection.load_extension(MODULE)
    return connection


@pytest.mark.parametrize("statement, printed", [
    (f"SELECT postwright_parse({LABEL}, 'street_line')", "12 N MAIN ST APT 4"),
    (f"SELECT postwright_parse({LABEL}) ->> 'city'", "AUSTIN"),
    (f"SELECT json_array(postwright_parse({LABEL})) LIKE '[{{\"prefix\":\"JANE DOE\",%'", "1"),
    (f"SELECT number, street, zip FROM postwright_parse({LABEL})", "12|MAIN|78701"),
    ("SELECT postwright_parse('12 peña st, austin tx 78701', 'street')", "PEÑA"),
    ("SELECT postwright_parse('ring twice') IS NULL, postwright_parse(NULL) IS NULL", "1|1"),
    ("SELECT count(*) FROM postwright_parse('ring twice')", "0"),
    (f"SELECT postwright_fix({LABEL})", "Jane Doe\n12 N MAIN ST APT 4\nAUSTIN TX 78701"),
    (f"SELECT postwright_fix({LABEL}, 'status')", "fixed"),
    ("SELECT postwright_fix('ring twice'), postwright_fix('ring twice', 'reason')",
     "ring twice|zip-missing"),
    ("SELECT status, proposed <> '', text, zip FROM "
     "postwright_fix('2870 South West Temple, Madison WI 53703')",
     "to-decide|1|2870 South West Temple, Madison WI 53703|"),
    ("SELECT v.n, a.zip FROM (SELECT 1 AS n, '1 a st, austin tx 78701' AS l UNION ALL "
     "SELECT 2, 'none') v LEFT JOIN postwright_parse(v.l) a ORDER BY v.n", "1|78701\n2|"),
])
def test_answers(statement, printed):
    done = shell(statement + ";")
    assert (done.stdout, done.stderr) == (printed + "\n", "")


@pytest.mark.parametrize("statement, problem", [
    ("SELECT postwright_parse('a', 'town')", "there is no part 'town'; the parts are prefix, "),
    ("SELECT postwright_fix('a', 'town')", "there is no part 'town'; the parts are status, "),
    ("SELECT postwright_parse()", "wrong number of arguments"),
    ("SELECT * FROM postwright_parse", "postwright_parse takes a label: FROM postwright_parse('12 "),
    ("SELECT postwright_parse(CAST(x'C3' AS TEXT))", "the label is not valid UTF-8"),
    ("SELECT * FROM postwright_fix(CAST(x'C3' AS TEXT))", "the label is not valid UTF-8"),
    ("SELECT postwright_parse(printf('%17000000s', 'x'))", "a label has at most 16 MiB"),
    ("SELECT postwright_bases('/nowhere.base')", "/nowhere.base"),
    ("CREATE VIEW v AS SELECT postwright_bases(); SELECT * FROM v", "unsafe use of postwright_bases"),
])
def test_tells_what_is_wrong(statement, problem):
    done = shell(statement + ";")
    assert done.stdout == "" and problem in done.stderr


def test_answers_from_bases_given_and_found(tmp_path):
    base = tmp_path / "postwright/town.base"
    base.parent.mkdir()
    town = (SOURCES / "data/sample/town.csv").read_text().splitlines()
    rows = [line.replace("MILLRACE,OH,00011", "AUSTIN,TX,78701") for line in town]
    csv = tmp_path / "town.csv"
    csv.write_text("".join(f"{row}\n" for row in rows if ",000" not in row))
    subprocess.run([PROGRAMS / "postwright-base", "import", "--quiet", base, csv, "--source", "Made up"],
                   check=True)
    ask = "SELECT confirmation, zip FROM postwright_fix('12 n main st, austin tx 78701');"
    assert shell(ask).stdout == "form-only|78701\n"
    assert shell(f"SELECT postwright_bases('{base}'); {ask}").stdout == "1\nconfirmed|78701-1201\n"
    assert shell(ask, XDG_DATA_HOME=str(tmp_path)).stdout == "confirmed|78701-1201\n"
    assert shell(f"SELECT postwright_bases(); {ask}",
                 XDG_DATA_HOME=str(tmp_path)).stdout == "0\nform-only|78701\n"


def test_reads_what_the_command_reads():
    rows = [json.loads(line)["label"]
            for line in (SOURCES / "tests/data/labels.jsonl").read_text().splitlines()]
    told = subprocess.run([PROGRAMS / "postwright", "parse", "--jsonl"], check=True, encoding="utf-8",
                          input="".join(json.dumps(row) + "\n" for row in rows), capture_output=True)
    connection = connect()
    for row, record in zip(rows, told.stdout.splitlines()):
        read = connection.execute("SELECT postwright_parse(?)", [row]).fetchone()[0]
        assert json.loads(read or "{}") == (json.loads(record) if read else {}), row


def test_threads_and_the_python_package_share_one_parser():
    import postwright
    wrong = []

    def work(read):
        for number in range(1, 2000):
            if read(f"{number} n main street, austin tx 78701") != f"{number} N MAIN ST":
                wrong.append(number)

    def by_sql():
        connection = connect()
        work(lambda label: connection.execute("SELECT postwright_parse(?, 'street_line')",
                                              [label]).fetchone()[0])

    threads = [threading.Thread(target=by_sql) for _ in range(2)]
    threads += [threading.Thread(target=work, args=[lambda label: postwright.parse(label).street_line])]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not wrong
