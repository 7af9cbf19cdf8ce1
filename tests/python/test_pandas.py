"""Labels in a DataFrame."""

import doctest
import runpy

import pytest

pandas = pytest.importorskip("pandas")

import postwright.pandas  # noqa: E402  after pandas is known to be there
from conftest import SOURCES  # noqa: E402

FRAME = pandas.DataFrame(
    {"who": ["Jane Doe", None, "Ann"], "where": ["12 n main street", "1 Oak St", "no street"],
     "no": ["4", float("nan"), "rear"], "town": ["austin", "Boston", "austin"],
     "st": ["texas", "MA", "tx"], "zip": [78701.0, 2108.0, None],
     "label": ["Jane Doe\n12 n main street # 4\naustin, texas 78701", "1 Oak St\nBoston, MA 2108",
               "Ann\nno street\nrear\naustin, tx"]}, index=[7, 7, 9])
PARTS = {"name": "who", "street": "where", "unit": "no", "city": "town", "state": "st", "zip": "zip"}


@pytest.mark.parametrize("columns, parts", [(["label"], {}), ([], PARTS)])
@pytest.mark.parametrize("jobs", [1, 2])
def test_has_a_row_for_each(columns, parts, jobs):
    before = FRAME.copy()
    fixed = FRAME.postwright.fix(*columns, **parts, jobs=jobs)
    assert list(fixed.index) == [7, 7, 9]
    assert list(fixed.status) == ["fixed", "turned_down", "turned_down"]
    assert list(fixed.street_line) == ["12 N MAIN ST # 4", "", ""]
    assert list(fixed.reason) == ["", "zip-short", "zip-missing"]
    assert fixed.text.iloc[0] == "Jane Doe\n12 N MAIN ST # 4\nAUSTIN TX 78701"
    assert fixed.text.iloc[1] == FRAME.label.iloc[1] and "02108" in fixed.mended.iloc[1]
    read = FRAME.postwright.parse(*columns, **parts)
    assert list(read.number) == ["12", "", ""] and list(read.prefix) == ["JANE DOE", "", ""]
    pandas.testing.assert_frame_equal(FRAME, before)


def test_takes_lines_and_an_empty_frame():
    read = FRAME.assign(place="austin tx 78701").postwright.parse("who", "where", "place")
    assert list(read.prefix) == ["JANE DOE", "", ""] and list(read.street) == ["MAIN", "OAK", ""]
    assert FRAME[:0].postwright.fix("label").shape == (0, 12)
    assert FRAME[:0].postwright.parse("label").shape == (0, 13)


@pytest.mark.parametrize("call, fault, told", [
    (lambda: FRAME.postwright.fix(), TypeError, "name the columns"),
    (lambda: FRAME.postwright.fix("label", zip="zip"), TypeError, "not both"),
    (lambda: FRAME.postwright.parse("adress"), KeyError, "no column 'adress'"),
    (lambda: pandas.concat([FRAME, FRAME], axis=1).postwright.parse("label"), ValueError, "2 columns"),
    (lambda: FRAME.postwright.fix("label", jobs=0), ValueError, "jobs"),
])
def test_raises_for_faults(call, fault, told):
    with pytest.raises(fault, match=told):
        call()


def test_the_examples_do_what_they_say():
    assert doctest.testmod(postwright.pandas).failed == 0
    spark = runpy.run_path(str(SOURCES / "examples/python/spark_labels.py"))
    frame, = spark["fix_frames"]([FRAME[["label"]]])
    assert list(frame.status) == ["fixed", "turned_down", "turned_down"]
