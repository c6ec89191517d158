#!/usr/bin/python3
"""What the charts say stands in tables, too: on the page, in its contents and on paper."""

import collections
import decimal
import re
import unittest
import xml.etree.ElementTree as xml

import report_case
import reports

# Each chart with the tables around it: {name, figures, cells}. The figures are those written beside the bars and those
# behind the last colon of what shows when the mouse rests on a piece.
CHARTS = """
const own = (text) => Array.from(text.childNodes, (node) => node.nodeType === 3 ? node.data : '').join('');
return Array.from(document.querySelectorAll('main .chart'), (chart) => {
  const tables = chart.closest('section').querySelectorAll('td');
  const written = Array.from(chart.querySelectorAll('.chart-figure'), own);
  const hovers = Array.from(chart.querySelectorAll('title'), (title) => title.textContent)
      .filter((text) => text.includes(': ')).map((text) => text.slice(text.lastIndexOf(': ')));
  return {name: chart.parentElement.className, figures: [...written, ...hovers],
          cells: Array.from(tables, (cell) => cell.textContent.trim())};
});
"""
ROWS = """
return Array.from(document.querySelectorAll(arguments[0]), (row) => Array.from(row.cells, (cell) => cell.textContent));
"""
DECIMAL = re.compile(r'-?[\d,]*\d\.\d+')


def losses_by_chemical(text):
    """{chemical: [tanks, pounds]}: components count for their mixture, a mixture without any for itself."""
    amounts = collections.defaultdict(list)
    tanks = collections.defaultdict(set)  # a tank of two mixtures may hold a chemical twice
    for index, tank in enumerate(xml.fromstring(text).findall('Tank')):
        lines = [(line.findtext('NAME'), line.findtext('TotalEmissions')) for line in tank.iter('COMPONENT')]
        lines.append(('', ''))
        for (name, total), (following, _) in zip(lines, lines[1:]):
            if name.startswith('\u00a0') or not following.startswith('\u00a0'):
                amounts[name.strip()].append(reports.amount(total))
                tanks[name.strip()].add(index)
    return {name: [len(tanks[name]), sum(found)] for name, found in amounts.items()}


def with_chemicals(text, count):
    """A report whose lines name `count` chemicals, one after the other and again."""
    root = xml.fromstring(text)
    for index, name in enumerate(root.iter('NAME')):
        if name.text.startswith('\u00a0'):
            name.text = f'\u00a0\u00a0Chemical {index % count}'
    return xml.tostring(root, encoding='unicode')


class ChartTablesTest(report_case.ReportCase):
    def test_every_figure_of_a_chart_stands_in_a_table_beside_it(self):
        texts = {(kind, period): text for kind in ('brief', 'summary', 'detail') for period, text in (
            ('annual', reports.report_text(kind)), ('all months', reports.all_months(kind)),
            ('one tank', reports.report_text(kind, '', 'HT-204')))}
        texts['brief', '60 tanks'] = reports.multiplied(reports.report_text('brief'), 60)
        for (kind, period), text in texts.items():
            with self.subTest(kind=kind, period=period):
                self.open(text, kind)
                charts = self.browser.run(CHARTS)
                self.assertGreater(len(charts), 0)
                for chart in charts:
                    figures = {figure for part in chart['figures'] for figure in DECIMAL.findall(part)}
                    self.assertGreater(len(figures), 0)
                    self.assertEqual(figures - set(chart['cells']), set(), chart['name'])

    def test_all_chemicals_of_the_report_are_listed_with_their_losses(self):
        for text, kind in ((reports.report_text('brief'), 'brief'), (reports.all_months('summary'), 'summary')):
            with self.subTest(kind=kind):
                self.open(text, kind)
                listed = {name: [int(tanks), reports.amount(total)]
                          for name, tanks, total in self.browser.run(ROWS, '.chemicals tbody tr')}
                self.assertEqual(listed, losses_by_chemical(text))
                amounts = [total for _, total in listed.values()]
                self.assertEqual(amounts, sorted(amounts, reverse=True))
                # The chart draws the 20 largest, and the others as one bar.
                self.assertEqual(self.browser.run(ROWS, '.chemicals tfoot tr'),
                                 [[f'The last {len(amounts) - 20} chemicals together', '', f'{sum(amounts[20:]):,}']])

    def test_tanks_are_listed_by_kind_of_loss_as_in_their_chart(self):
        self.open(reports.multiplied(reports.report_text('brief'), 60), 'brief')
        rows = self.browser.run(ROWS, '.kinds tbody tr')
        self.assertEqual(len(rows), 25)
        # The crude oil tank loses most, in each of its copies.
        self.assertEqual(rows[0], ['VF-109-8', 'Vertical Fixed Roof Tank', '43,226.98', '18,331.28', '', '', '', '',
                                   '61,558.26'])
        [rest] = self.browser.run(ROWS, '.kinds tfoot tr')
        self.assertEqual(rest[0], 'and 35 more tanks')
        self.assertEqual(self.browser.run("""return document.getElementById(document.querySelector(
            '.kinds tbody a').getAttribute('href').slice(1)).textContent.split(' ')[0]"""), 'VF-109-8')

    def test_one_bar_is_no_chart(self):
        self.open(reports.report_text('brief', '', 'VF-101'), 'brief')
        self.assertEqual(self.browser.run('return document.querySelectorAll(".chart, .chemicals, .kinds").length'), 0)

    def test_contents_lead_to_the_charts_and_their_tables(self):
        for text, kind in ((reports.report_text('brief'), 'brief'), (reports.all_months('detail'), 'detail')):
            with self.subTest(kind=kind):
                self.open(text, kind)
                entries = self.browser.run("""return Array.from(document.querySelectorAll('.contents .parts a'),
                    (link) => [link.textContent, document.querySelector(link.hash).nextElementSibling.className])""")
                self.assertEqual(entries, [['Overview', 'table-block roll-up-block'],
                                           ['Losses by tank', 'table-block kinds-block'],
                                           ['Losses by chemical', 'table-block chemicals-block']])
                self.browser.run('orvex.preparePrint()')
                printed = self.browser.run(ROWS, '.sheets .printed-contents tbody tr')
                sheets = self.browser.run("""return Array.from(document.querySelectorAll('.sheet'),
                    (sheet) => Array.from(sheet.querySelectorAll('figcaption strong, caption'),
                        (caption) => caption.textContent))""")
                for name, _, page in printed[1:3]:
                    shown = sheets[int(page) - 1] + sheets[int(page)]
                    self.assertIn(name, shown)
                    self.assertTrue(any(caption.startswith(name) and 'largest first' in caption for caption in shown))

    def test_chemicals_over_several_sheets_repeat_their_headings(self):
        self.open(with_chemicals(reports.report_text('brief'), 400), 'brief')
        chemicals = len(self.browser.run(ROWS, '.chemicals tbody tr'))
        self.assertGreater(chemicals, 150)
        self.browser.run('orvex.preparePrint()')
        pieces = self.browser.run("""return Array.from(document.querySelectorAll('.sheets table.chemicals'), (table) => [
            table.closest('.sheet').dataset.page, table.caption.textContent,
            Array.from(table.tHead.rows[0].cells, (cell) => cell.textContent), table.tBodies[0].rows.length])""")
        self.assertGreater(len({page for page, *_ in pieces}), 1)
        self.assertEqual(sum(rows for *_, rows in pieces), chemicals)
        for index, (_, caption, headings, _) in enumerate(pieces):
            self.assertEqual(headings, ['Chemical', 'Tanks', 'Total emissions (lb)'])
            self.assertEqual(caption, 'Losses by chemical over all tanks, largest first' +
                             (' (continued)' if index > 0 else ''))


if __name__ == '__main__':
    unittest.main()
