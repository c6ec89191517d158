"""Reference data reports for the tests of their display page: files as the program writes them, from its own tables."""

import decimal
import sqlite3
import xml.etree.ElementTree as xml

import reports

PAGE = 'reference'
reports.PAGES[PAGE] = ('data_export.xml', 'data_display.htm')

TABLES = {'Chemical': 'chemical', 'Met': 'met', 'Fit': 'fitting', 'Rim': 'rimseal', 'Deck': 'deckseam',
          'Profile': 'profile names'}
TITLES = {'Chemical': 'Chemical Report', 'Met': 'Meteorological Report', 'Fit': 'Fitting Report',
          'Rim': 'Rim Seal Report', 'Deck': 'Deck Seam Report', 'Profile': 'Speciation Profile Report',
          'Import': 'Import Report'}
BOOLEANS = {'USER_DEF', 'USER DEF', 'User', 'WELDED', 'RIVETED', 'EFLT', 'DEFT', 'IFLT', 'TYP_IFLT', 'WELD_DECK',
            'SELF_SUP', 'TYP_EFLT', 'D_ROOF', 'P_SEAL'}


def _fixed(value, places):
    # Halves go away from zero, as they stand in decimals.
    exact = decimal.Decimal(repr(value)).quantize(decimal.Decimal(1).scaleb(-places), decimal.ROUND_HALF_UP)
    return f'{exact:,}'


def _shown(name, value):
    if value is None:
        return ''
    if name in BOOLEANS:
        return 'Y' if value else 'N'
    if isinstance(value, float):
        if name == 'QUANTITY':
            return _fixed(value, 0)
        return _fixed(value, 2) if value else ''
    return str(value)


def rows_of(word, count=None):
    """The rows of a table as {field: value}, the first `count` of them."""
    with sqlite3.connect(reports.BUILD / 'data' / 'tankdata.mdb') as database:
        database.row_factory = sqlite3.Row
        rows = [dict(row) for row in database.execute(f'SELECT * FROM "{TABLES[word]}" ORDER BY rowid')]
        if word == 'Profile':
            for row in rows:
                row['components'] = [dict(each) for each in database.execute(
                    'SELECT * FROM "profile components" WHERE "SPEC ID" = ?', (row['SPEC ID'],))]
    return rows[:count]


def _child(parent, name, text):
    element = xml.SubElement(parent, name.replace(' ', ''))
    element.text = text
    return element


def export(word, rows):
    """A report on these rows."""
    root = xml.Element('DataExport')
    _child(root, 'Type', word).tail = r'\r\n\r\n'
    for number, row in enumerate(rows, 1):
        record = _child(root, 'Speciation' if word == 'Profile' else word, TITLES[word])
        if word == 'Profile':
            _child(record, 'ProfileName', row['Profile Name'])
            _child(record, 'TYPE', row['TYPE'])
            components = xml.SubElement(record, 'COMPONENTS')
            for each in row['components']:
                component = xml.SubElement(components, 'COMPONENT')
                for name, value in each.items():
                    _child(component, name, '' if value is None else
                           _fixed(value, 2) if isinstance(value, float) else str(value))
        else:
            for name, value in row.items():
                _child(record, name, _shown(name, value))
        _child(record, 'REC_NO', str(number))
    return '<?xml version="1.0"?>' + xml.tostring(root, encoding='unicode')


def whole(word):
    """The report on a whole table of the delivered database."""
    return export(word, rows_of(word))


def multiplied(word, count):
    """A report on `count` records: the table's rows again and again, under names of their own."""
    rows = rows_of(word)
    name = list(rows[0])[1]
    return export(word, [dict(rows[index % len(rows)], **{name: f'{rows[index % len(rows)][name]} {index}'})
                         for index in range(count)])
