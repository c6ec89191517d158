"""Prints a workbook as xlrd sees it: for each sheet a line with its name, then one a row, cells parted by tabs.

Numbers stand in their exact hexadecimal form, texts as "=" and the text with its escapes, logicals are "true" and
"false", a cell that is not there is "null". It is run by the system's own Python, which has xlrd.
"""

import io
import sys

import xlrd


def cell(found):
    if found.ctype == xlrd.XL_CELL_EMPTY:
        return "null"
    if found.ctype == xlrd.XL_CELL_BOOLEAN:
        return "true" if found.value else "false"
    if found.ctype == xlrd.XL_CELL_NUMBER:
        return found.value.hex()
    if found.ctype == xlrd.XL_CELL_TEXT:
        return "=" + ascii(found.value)[1:-1]
    raise ValueError(found)


log = io.StringIO()
book = xlrd.open_workbook(sys.argv[1], logfile=log, verbosity=1)
if book.biff_version != 50 or "WARNING" in log.getvalue():
    raise ValueError(book.biff_version, log.getvalue())
for sheet in book.sheets():
    print("[" + ascii(sheet.name)[1:-1] + "]")
    for row in range(sheet.nrows):
        print("\t".join(cell(sheet.cell(row, column)) for column in range(sheet.ncols)))
