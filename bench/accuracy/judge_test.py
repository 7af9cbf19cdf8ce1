#!/usr/bin/env python3
"""The judge must not call a wrong answer right: near misses of one label."""

import unittest

from judge import Element, Label, judge


def label(**changes):
    parts = dict(
        above=["José O'Brien, Jr.", "3M Company"],
        street=[Element("number", "12-14", "12-14"), Element("directional", "N", "North"),
                Element("name", "PENA HILL", "Peña Hill"), Element("suffix", "AVE", "Avenue")],
        units=[Element("unit", "APT 4B", "Apartment #4B")],
        city=Element("city", "SAINT PAUL", "St. Paul"), state=Element("state", "MN", "Minnesota"),
        zip=Element("zip", "55101-1234", "55101-1234", ("55101 1234", "551011234")),
        below=["Ring twice"])
    parts.update(changes)
    return Label(**parts)


NAMES = "JOSÉ OBRIEN JR\n3M COMPANY\n"
TAIL = "\nSAINT PAUL MN 55101-1234\nRING TWICE"

ROWS = [  # name, text, what is wrong
    ("standard", NAMES + "12-14 N PENA HILL AVE APT 4B" + TAIL, ""),
    ("as typed", "José O'Brien, Jr.\n3M Company\n12-14 North Peña Hill Avenue, Apartment #4B\n"
     "St. Paul, Minnesota 55101-1234\nRing twice", ""),
    ("unit on its own line", NAMES + "12-14 N PENA HILL AVE\nAPT 4B" + TAIL, ""),
    ("unit above", NAMES + "APT 4B\n12-14 N PENA HILL AVE" + TAIL, ""),
    ("ZIP+4 without hyphen", NAMES + "12-14 N PENA HILL AVE APT 4B\nST PAUL MN 551011234\nRING TWICE", ""),
    ("hyphen of the number lost", NAMES + "1214 N PENA HILL AVE APT 4B" + TAIL, "number"),
    ("hyphen of the number a blank", NAMES + "12 14 N PENA HILL AVE APT 4B" + TAIL, "number"),
    ("another number", NAMES + "12-15 N PENA HILL AVE APT 4B" + TAIL, "number"),
    ("directional lost", NAMES + "12-14 PENA HILL AVE APT 4B" + TAIL, "directional"),
    ("another directional", NAMES + "12-14 NE PENA HILL AVE APT 4B" + TAIL, "directional"),
    ("word of the name abbreviated", NAMES + "12-14 N PENA HL AVE APT 4B" + TAIL, "name"),
    ("another suffix", NAMES + "12-14 N PENA HILL ST APT 4B" + TAIL, "suffix"),
    ("suffix lost", NAMES + "12-14 N PENA HILL APT 4B" + TAIL, "suffix"),
    ("suffix doubled", NAMES + "12-14 N PENA HILL AVE AVE APT 4B" + TAIL, "unit"),
    ("another unit", NAMES + "12-14 N PENA HILL AVE APT 4" + TAIL, "unit"),
    ("another designator", NAMES + "12-14 N PENA HILL AVE STE 4B" + TAIL, "unit"),
    ("unit lost", NAMES + "12-14 N PENA HILL AVE" + TAIL, "unit"),
    ("unit doubled", NAMES + "12-14 N PENA HILL AVE APT 4B\nAPT 4B" + TAIL, "words too many after suffix"),
    ("street broken over lines", NAMES + "12-14 N PENA\nHILL AVE APT 4B" + TAIL, "name"),
    ("city cut into the street", NAMES + "12-14 N PENA HILL AVE APT 4B ST\nPAUL MN 55101-1234\nRING TWICE", "city"),
    ("another city", NAMES + "12-14 N PENA HILL AVE APT 4B\nSAINT PAULS MN 55101-1234\nRING TWICE", "city"),
    ("another state", NAMES + "12-14 N PENA HILL AVE APT 4B\nSAINT PAUL MS 55101-1234\nRING TWICE", "state"),
    ("another ZIP code", NAMES + "12-14 N PENA HILL AVE APT 4B\nSAINT PAUL MN 55102-1234\nRING TWICE", "zip"),
    ("ZIP+4 lost", NAMES + "12-14 N PENA HILL AVE APT 4B\nSAINT PAUL MN 55101\nRING TWICE", "ZIP+4 lost"),
    ("ZIP+4 of another ZIP code", NAMES + "12-14 N PENA HILL AVE APT 4B\nSAINT PAUL MN 55102\nRING TWICE", "zip"),
    ("accent of a name lost", "JOSE OBRIEN JR\n3M COMPANY\n12-14 N PENA HILL AVE APT 4B" + TAIL, "line above"),
    ("digit of a name lost", "JOSÉ OBRIEN JR\nM COMPANY\n12-14 N PENA HILL AVE APT 4B" + TAIL, "line above"),
    ("name line lost", "JOSÉ OBRIEN JR\n12-14 N PENA HILL AVE APT 4B" + TAIL, "lines lost"),
    ("name drawn into the street", "JOSÉ OBRIEN JR\n3M COMPANY 12-14 N PENA HILL AVE\nAPT 4B" + TAIL, "line above"),
    ("names swapped", "3M COMPANY\nJOSÉ OBRIEN JR\n12-14 N PENA HILL AVE APT 4B" + TAIL, "line above"),
    ("line too many", NAMES + "REAR\n12-14 N PENA HILL AVE APT 4B" + TAIL, "number"),
    ("note changed", NAMES + "12-14 N PENA HILL AVE APT 4B\nSAINT PAUL MN 55101-1234\nRING ONCE", "line below"),
    ("note drawn up", NAMES + "12-14 N PENA HILL AVE APT 4B\nSAINT PAUL MN 55101-1234 RING TWICE", "lines lost"),
    ("empty", "", "lines lost"),
]

STANDARD = {"standard", "unit on its own line", "unit above"}


class JudgeTest(unittest.TestCase):
    def test_rows(self):
        for name, text, wrong in ROWS:
            with self.subTest(name):
                verdict = judge(text, label())
                self.assertEqual(verdict.wrong, wrong)
                self.assertEqual(verdict.standard, name in STANDARD)

    def test_one_line(self):
        typed = label(above=["Jane Doe"], below=[], one_line=True)
        good = "JANE DOE\n12-14 N PENA HILL AVE APT 4B\nSAINT PAUL MN 55101-1234"
        self.assertEqual(judge(good, typed).wrong, "")
        self.assertEqual(judge(good.replace("\n", ", "), typed).wrong, "")
        self.assertEqual(judge(good.replace("DOE", "ROE"), typed).wrong, "line above")
        self.assertEqual(judge(good + " USA", typed).wrong, "words too many after zip")

    def test_name_that_is_a_directional_stays_spelt_out(self):
        north = label(street=[Element("number", "12", "12"), Element("name", "NORTH", "North"),
                              Element("suffix", "AVE", "Ave")], units=[])
        self.assertEqual(judge(NAMES + "12 NORTH AVE" + TAIL, north).wrong, "")
        self.assertEqual(judge(NAMES + "12 N AVE" + TAIL, north).wrong, "name")

    def test_hyphen_of_a_unit(self):
        for unit, text, wrong in [("APT 2-A", "APT 2A", ""), ("APT 2-1", "APT 21", "unit"), ("# 4", "4", "unit")]:
            hyphened = label(units=[Element("unit", unit, unit)])
            self.assertEqual(judge(NAMES + f"12-14 N PENA HILL AVE {text}" + TAIL, hyphened).wrong, wrong)

    def test_unit_without_number(self):
        rear = label(units=[Element("unit", "REAR", "rear")])
        self.assertEqual(judge(NAMES + "12-14 N PENA HILL AVE REAR" + TAIL, rear).wrong, "")
        self.assertEqual(judge(NAMES + "12-14 N PENA HILL AVE REAR 1" + TAIL, rear).wrong,
                         "words too many after unit")


if __name__ == "__main__":
    unittest.main()
