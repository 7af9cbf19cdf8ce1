"""The extension for SQLite over a million rows."""

import os
import pathlib
import sqlite3
import threading
import time

import pytest

BIN = pathlib.Path(os.environ["POSTWRIGHT_BIN"])
MILLION = 1_000_000
CORRECT = "UPDATE labels SET label = postwright_fix(label)"


@pytest.fixture
def labels(tmp_path):
    connection = sqlite3.connect(tmp_path / "labels.db")
    connection.enable_load_extension(True)
    connection.load_extension(str(BIN.parent / "lib/sqlite3/postwright"))
    connection.execute(
        "CREATE TABLE labels AS WITH RECURSIVE numbers(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numbers "
        f"LIMIT {MILLION}) SELECT n, 'Zoë' || char(10) || n || ' n main street apt 4' || char(10) || "
        "'austin, texas 78701' AS label FROM numbers")
    connection.commit()
    yield connection
    connection.close()


def test_reads_and_corrects_a_million(labels):
    began = time.monotonic()
    assert labels.execute("SELECT count(*) FROM labels l, postwright_parse(l.label) a WHERE a.street_line = "
                          "n || ' N MAIN ST APT 4' AND a.prefix = 'ZOË'").fetchone() == (MILLION,)
    print(f"\na million labels read in {time.monotonic() - began:.1f} s")
    began = time.monotonic()
    labels.execute(CORRECT)
    print(f"a million labels corrected in {time.monotonic() - began:.1f} s")
    assert labels.execute("SELECT count(*) FROM labels WHERE label = 'Zoë' || char(10) || n || "
                          "' N MAIN ST APT 4' || char(10) || 'AUSTIN TX 78701'").fetchone() == (MILLION,)


def test_is_interrupted_and_nothing_is_changed(labels):
    asked = []

    def interrupt():
        asked.append(time.monotonic())
        labels.interrupt()

    threading.Timer(2, interrupt).start()
    with pytest.raises(sqlite3.OperationalError, match="interrupted"):
        labels.execute(CORRECT)
    print(f"\ninterrupted in {time.monotonic() - asked[0]:.2f} s")
    labels.rollback()
    assert labels.execute("SELECT count(*) FROM labels WHERE label LIKE '%texas 78701'").fetchone() == (MILLION,)
