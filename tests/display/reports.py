"""Report files for the tests of the display pages: real ones, written by the program from the sample inventory."""

import collections
import copy
import decimal
import functools
import os
import pathlib
import re
import shutil
import sqlite3
import subprocess
import tempfile
import xml.etree.ElementTree as xml

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ.get('ORVEX_BUILD_FOLDER', ROOT / 'build' / 'release'))
DISPLAY = BUILD / 'data' / 'display'
PAGES = {'brief': ('briefdata.xml', 'briefdisplay.htm'), 'summary': ('summarydata.xml', 'summarydisplay.htm'),
         'detail': ('summarydata.xml', 'summarydisplay.htm')}
MONTHS = ['Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep', 'Oct', 'Nov', 'Dec']
NUMBER = re.compile(r'-?[\d,]*\d(\.\d+)?')

_folder = tempfile.TemporaryDirectory(prefix='orvex-pages-')


def new_folder():
    return pathlib.Path(tempfile.mkdtemp(dir=_folder.name))


def tank_ids():
    with sqlite3.connect(BUILD / 'samples' / 'client1.mdb') as client:
        return [row[0] for row in client.execute('SELECT "USER ID" FROM tank')]


# The asphalt tank, whose liquid is in no chemical table, cannot be computed for several months.
MONTHLY_TANKS = ','.join(name for name in tank_ids() if name != 'VF-111')


@functools.lru_cache(maxsize=None)
def report_text(kind, months='', tanks='all', rename=''):
    """The text of a report file; `rename` is the new USER ID of the first sample tank."""
    folder = new_folder()
    client = folder / 'client1.mdb'
    shutil.copy(BUILD / 'samples' / 'client1.mdb', client)
    if rename:
        with sqlite3.connect(client) as database:
            database.execute('UPDATE tank SET "USER ID" = ? WHERE "USER ID" = ?', (rename, 'VF-101'))
    subprocess.run(
        [BUILD / 'apps' / 'orvex-report' / 'orvex-report', '--client', client, '--reference',
         BUILD / 'data' / 'tankdata.mdb', '--kind', kind, '--tanks', tanks, '--out', folder, '--quiet',
         *(['--monthly', months] if months else ['--annual'])], check=True, capture_output=True)
    return (folder / PAGES[kind][0]).read_text(encoding='utf-8')


def all_months(kind):
    return report_text(kind, ','.join(MONTHS), MONTHLY_TANKS)


def page_with(text, kind):
    """A display page in a folder of its own with this text as the file beside it, or with none for None."""
    folder = new_folder()
    for file in DISPLAY.iterdir():
        shutil.copy(file, folder)
    data, page = PAGES[kind]
    if text is not None:
        (folder / data).write_text(text, encoding='utf-8')
    return folder / page


def without(text, *names):
    """A report file without its elements of these names."""
    root = xml.fromstring(text)
    for parent in list(root.iter()):
        for child in list(parent):
            if child.tag in names:
                parent.remove(child)
    return xml.tostring(root, encoding='unicode')


def multiplied(text, count):
    """A report of `count` tanks: those of the text again and again, under names of their own."""
    root = xml.fromstring(text)
    tanks = root.findall('Tank')
    summary = root.find('Summary')
    sums = summary.findall('TankSum')
    total = summary.find('Total')
    for element in [*tanks, summary]:
        root.remove(element)
    for element in [*sums, total]:
        summary.remove(element)
    amount = decimal.Decimal(0)
    for index in range(count):
        tank = copy.deepcopy(tanks[index % len(tanks)])
        row = copy.deepcopy(sums[index % len(sums)])
        row.set('id', f'{row.get("id")}-{index}')
        name = tank.find('TankName')
        name.text = f'{row.get("id")}   -   {tank.find("TankType").text}'
        root.append(tank)
        summary.append(row)
        amount += decimal.Decimal(row.get('loss').replace(',', ''))
    total.text = f'{amount:,.2f}'
    summary.append(total)
    root.append(summary)
    return xml.tostring(root, encoding='unicode')


def _shown_texts(root):
    for element in root.iter():
        if len(element) == 0 and element.text:
            yield element.text
        for name, value in element.attrib.items():
            month = re.fullmatch(r'month_(\d+)', name)
            # A constant holds the values of all months: each month shows its own.
            yield value.split('|')[int(month[1]) - 1] if month and '|' in value else value


def figures(text):
    """How often each number stands in a report file, as it is written."""
    texts = (shown.strip() for shown in _shown_texts(xml.fromstring(text)))
    return collections.Counter(shown for shown in texts if NUMBER.fullmatch(shown))


def amount(figure):
    return decimal.Decimal(figure.replace(',', ''))
