#!/usr/bin/env python3
"""Writes a workbook of two sheets, as a parish office might keep it: workbook.py FILE.xlsx"""

import sys
import zipfile
from xml.sax.saxutils import escape

OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
SHEETS = {
    "Staff": [["Name", "Telephone"], ["Zoe Li", "555-0103"]],
    "Christmas 2026": [
        ["St. Brigid, Christmas letter"],
        ["First Name(s)", "Last Name", "Mailing Address", "Unit", "City", "State", "Zip", "Pledge"],
        ["Jo & Al", "Doe", "12 Elm St", "", "Boston", "MA", 2134, 120],
        ["Maria", "de la Cruz", "40 Oak Ave", "Apt 4", "Salem", "MA", 1970, 80],
        ["Ludwig", "van der Berg", "7 Church Rd", "", "Reno", "NV", 89501, 200],
    ],
}


def cell(value):
    if isinstance(value, int):
        return f"<c><v>{value}</v></c>"
    return f'<c t="inlineStr"><is><t>{escape(value)}</t></is></c>'


def sheet(rows):
    return (f'<worksheet xmlns="{MAIN}"><sheetData>'
            + "".join("<row>" + "".join(map(cell, row)) + "</row>" for row in rows)
            + "</sheetData></worksheet>")


with zipfile.ZipFile(sys.argv[1], "w", zipfile.ZIP_DEFLATED) as archive:
    archive.writestr("[Content_Types].xml", f'<Types xmlns="{PACKAGE}/content-types"/>')
    archive.writestr("_rels/.rels", f'<Relationships xmlns="{PACKAGE}/relationships">'
                     f'<Relationship Id="r" Type="{OFFICE}/officeDocument" Target="xl/workbook.xml"/></Relationships>')
    archive.writestr("xl/workbook.xml", f'<workbook xmlns="{MAIN}" xmlns:r="{OFFICE}"><sheets>' + "".join(
        f'<sheet name="{name}" sheetId="{at}" r:id="s{at}"/>' for at, name in enumerate(SHEETS, 1)) + "</sheets></workbook>")
    archive.writestr("xl/_rels/workbook.xml.rels", f'<Relationships xmlns="{PACKAGE}/relationships">' + "".join(
        f'<Relationship Id="s{at}" Type="{OFFICE}/worksheet" Target="sheet{at}.xml"/>' for at in range(1, len(SHEETS) + 1))
        + "</Relationships>")
    for at, rows in enumerate(SHEETS.values(), 1):
        archive.writestr(f"xl/sheet{at}.xml", sheet(rows))
