"""Prints a dBASE file as dbfread sees it: a line with the names of the fields, then one a record, cells parted by tabs.

Null is "null", logicals are "true" and "false", whole numbers and numbers stand as they do in Python, texts as "=" and
the hexadecimal bytes of their UTF-8. It is run by the system's own Python, which has dbfread.
"""

import sys

import dbfread


def cell(value):
    if value is None:
        return "null"
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, str):
        return "=" + value.encode("utf-8").hex()
    return repr(value)


table = dbfread.DBF(sys.argv[1])
print("\t".join(table.field_names))
for record in table:
    print("\t".join(cell(value) for value in record.values()))
