#!/usr/bin/python3
"""The display pages on paper: sheets that fit landscape Letter and A4, page numbers, tank names, repeated headings."""

import collections
import re
import unittest
import xml.etree.ElementTree as xml

import browser
import report_case
import reports

# What leaves its sheet: [page, what], measured in the layout of paper.
OVERFLOWS = """
const found = [];
for (const sheet of document.querySelectorAll('.sheet')) {
  const body = sheet.querySelector('.sheet-body');
  const frame = body.getBoundingClientRect();
  for (const node of [...body.children, ...body.querySelectorAll('table, .card, figure')]) {
    const box = node.getBoundingClientRect();
    if (box.bottom > frame.bottom + 0.6) found.push([sheet.dataset.page, node.className, 'bottom',
                                                     box.bottom - frame.bottom]);
    if (box.right > frame.right + 0.6) found.push([sheet.dataset.page, node.className, 'right', box.right - frame.right]);
  }
}
return found;
"""


class PrintTest(report_case.ReportCase):
    def print(self, paper):
        pdf = reports.new_folder() / f'{paper}.pdf'
        self.browser.print_pdf(pdf, paper)
        return pdf

    def in_layout_of_paper(self, script):
        emulate = self.browser.driver.execute_cdp_cmd
        emulate('Emulation.setEmulatedMedia', {'media': 'print'})
        try:
            return self.browser.run(script)
        finally:
            emulate('Emulation.setEmulatedMedia', {'media': ''})

    def test_each_report_prints_on_landscape_letter_and_a4(self):
        reports_of = {'brief': reports.report_text('brief'), 'summary': reports.all_months('summary'),
                      'detail': reports.all_months('detail')}
        sizes = {'letter': (792, 612), 'a4': (841.89, 595.28)}
        for kind, text in reports_of.items():
            self.open(text, kind)
            total = self.browser.cells('.roll-up tfoot')[1]
            sheets = self.browser.run('return orvex.preparePrint()')
            self.assertEqual(self.in_layout_of_paper(OVERFLOWS), [], kind)
            for paper, (width, height) in sizes.items():
                with self.subTest(kind=kind, paper=paper):
                    pdf = self.print(paper)
                    pages = browser.pages_of(pdf)
                    self.assertEqual(len(pages), sheets)
                    for page_width, page_height in browser.page_sizes(pdf):
                        self.assertAlmostEqual(page_width, width, delta=1)
                        self.assertAlmostEqual(page_height, height, delta=1)
                    self.assertTrue(any(total in page for page in pages))
                    for number, page in enumerate(pages, 1):
                        self.assertIn(f'Page {number} of {sheets}', page)

    def test_no_number_is_lost_on_the_way_to_the_sheets(self):
        for kind, text in (('brief', reports.all_months('brief')), ('detail', reports.report_text('detail')),
                           ('detail', reports.all_months('detail'))):
            with self.subTest(kind=kind):
                self.open(text, kind)
                self.browser.run('orvex.preparePrint()')
                shown = collections.Counter(self.browser.cells('.sheets'))
                expected = reports.figures(text)
                self.assertEqual({figure: count for figure, count in expected.items() if shown[figure] < count}, {})

    def test_twelve_months_fit_a_sheet_in_legible_letters(self):
        self.open(reports.all_months('detail'), 'detail')
        self.browser.run('orvex.preparePrint()')
        tables = self.in_layout_of_paper("""
            return Array.from(document.querySelectorAll('.sheets table.months'), (table) => [
                table.tHead.rows[0].cells.length, parseFloat(getComputedStyle(table).fontSize) * 0.75])""")
        self.assertGreater(len(tables), 24)
        self.assertEqual({columns for columns, _ in tables}, {13})
        self.assertGreaterEqual(min(points for _, points in tables), 5.5)

    def test_every_piece_of_a_table_repeats_its_headings(self):
        self.open(reports.all_months('detail'), 'detail')
        sheets = self.browser.run('return orvex.preparePrint()')
        pages = browser.pages_of(self.print('a4'))
        continued = [page for page in pages if 'Emission calculations (continued)' in page]
        self.assertGreater(len(continued), 10)
        for page in continued:
            self.assertRegex(page, r'Quantity\s+' + r'\s+'.join(reports.MONTHS))
        self.assertEqual(len(pages), sheets)

    def first_rows(self, selector):
        """[sheet's tank, caption, [cells of each of the first three rows]] of each piece of a table on the sheets."""
        return self.browser.run("""return Array.from(document.querySelectorAll(arguments[0]), (table) => [
            table.closest('.sheet').querySelector('.sheet-subject').textContent, table.caption.textContent,
            Array.from(table.tBodies).flatMap((body) => Array.from(body.rows)).slice(0, 3).map(
                (row) => Array.from(row.cells, (cell) => cell.textContent.trim()))])""", selector)

    def test_liquid_that_goes_on_on_another_sheet_repeats_tank_mixture_and_month(self):
        text = reports.all_months('summary')
        self.open(text, 'summary')
        columns = 14
        # What each line of the file stands under: its tank and, for a component, its mixture and month.
        expected = {}
        for tank in xml.fromstring(text).findall('Tank'):
            above = None
            lines = tank.findall('LiquidContents')
            for line in lines:
                if not line.findtext('MixtureComponent').startswith('\u00a0'):
                    above = f'{line.findtext("MixtureComponent")}, {line.findtext("Month")} (continued)'
                cells = [line[index].text.strip('\u00a0') if line[index].text else '' for index in range(columns)]
                expected.setdefault((tank.findtext('TankName'), *cells), []).append((above, line))
        self.browser.run('orvex.preparePrint()')
        continued = [piece for piece in self.first_rows('.sheets table.liquid') if piece[1].endswith('(continued)')]
        self.assertGreater(len(continued), 20)
        repeated = 0
        for tank, _, rows in continued:
            if len(rows[0]) == columns:
                # A mixture's own line: it names the month itself.
                self.assertIn(rows[0][1], reports.MONTHS)
                self.assertIn((tank, *rows[0]), expected)
                continue
            repeated += 1
            self.assertEqual(len(rows[0]), 1)
            self.assertIn(rows[0][0], [above for above, _ in expected[(tank, *rows[1])]])
        self.assertGreater(repeated, 10)

    def test_calculation_that_goes_on_on_another_sheet_repeats_what_it_computes(self):
        for text in (reports.all_months('detail'), reports.report_text('detail')):
            self.open(text, 'detail')
            blocks = self.browser.run("""return Array.from(document.querySelectorAll(
                '#report :is(table.months, table.year) tbody'), (body) => body.rows[0].cells[0].textContent)""")
            self.browser.run('orvex.preparePrint()')
            repeated = 0
            for tank, caption, rows in self.first_rows('.sheets :is(table.months, table.year)'):
                name = re.sub(r' \(continued\)$', '', rows[0][0])
                self.assertIn(name, blocks, tank)
                repeated += name != rows[0][0]
            self.assertGreater(repeated, 10)

    def test_tank_of_a_brief_report_that_goes_on_on_another_sheet_is_named_with_its_mixture(self):
        self.open(reports.multiplied(reports.report_text('brief'), 100), 'brief')
        self.browser.run('orvex.preparePrint()')
        pieces = self.first_rows('.sheets table.losses')
        names = [rows[0][0] for *_, rows in pieces]
        self.assertTrue(all(re.match(r'[A-Z]{2}-\d{3}-\d+   -   ', name) for name in names))
        within = [rows for *_, rows in pieces if '(continued)' in rows[0][0]]
        self.assertGreater(len(within), 5)
        self.assertGreater(sum(rows[1][0].endswith('(continued)') for rows in within), 5)

    def test_each_tank_of_a_monthly_report_has_its_chart_on_the_page_and_on_paper(self):
        for kind, heading in (('detail', 'Losses by month'), ('summary', 'Liquid by month')):
            with self.subTest(kind=kind):
                text = reports.all_months(kind)
                self.open(text, kind)
                tanks = [tank.findtext('TankName') for tank in xml.fromstring(text).findall('Tank')]
                drawn = self.browser.run("""return Array.from(document.querySelectorAll('section.tank .chart'),
                    (chart) => [chart.closest('section').dataset.subject, chart.querySelector('strong').textContent])""")
                # Tanks whose liquid does not change with the months are computed for the year alone.
                yearly = [tank.findtext('TankName') for tank in xml.fromstring(text).findall('Tank')
                          if tank.findtext('LiquidContents/Month') == 'All']
                self.assertEqual(drawn, [[name, heading] for name in tanks if name not in yearly])
                self.browser.run('orvex.preparePrint()')
                printed = self.browser.run("""return Array.from(document.querySelectorAll('.sheet .monthlyCourse'),
                    (chart) => [chart.closest('.sheet').querySelector('.sheet-subject').textContent,
                        chart.querySelector('strong').textContent])""")
                self.assertEqual(printed, drawn)
                pages = browser.pages_of(self.print('a4'))
                self.assertEqual(sum(page.count(heading) for page in pages), len(drawn))

    def test_each_sheet_of_a_tank_names_it(self):
        self.open(reports.report_text('detail', '', 'VF-103,IF-302'), 'detail')
        self.browser.run('orvex.preparePrint()')
        heads = self.browser.run("""return Array.from(document.querySelectorAll('.sheet'), (sheet) =>
            [sheet.querySelector('.sheet-subject').textContent, sheet.querySelectorAll('h2').length])""")
        names = [name for name, _ in heads]
        first = names.index('VF-103   -   Vertical Fixed Roof Tank')
        self.assertEqual(set(names[:first]), {''})
        self.assertEqual(sorted(set(names[first:])),
                         ['IF-302   -   Internal Floating Roof Tank', 'VF-103   -   Vertical Fixed Roof Tank'])

    def test_sheets_of_a_brief_report_name_their_first_and_last_tank(self):
        self.open(reports.report_text('brief'), 'brief')
        self.browser.run('orvex.preparePrint()')
        names = self.browser.run("""return Array.from(document.querySelectorAll('.sheet-subject'),
            (name) => name.textContent).filter((name) => name !== '')""")
        self.assertTrue(names[0].startswith('VF-101 … '))
        self.assertTrue(names[-1].endswith('DE-502'))

    def test_contents_tell_the_pages(self):
        self.open(reports.report_text('detail'), 'detail')
        self.browser.run('orvex.preparePrint()')
        pages = browser.pages_of(self.print('letter'))
        listed = self.browser.run("""return Array.from(document.querySelectorAll('.sheets .printed-contents tbody tr'),
            (row) => [row.cells[0].textContent, row.cells[1].textContent, Number(row.cells[2].textContent)])""")
        self.assertEqual([name for name, *_ in listed[:3]], ['Overview', 'Losses by tank', 'Losses by chemical'])
        self.assertEqual(len(listed), 3 + 25)
        for name, kind, page in listed[3:]:
            self.assertRegex(pages[page - 1], re.escape(f'{name} - {kind}'))
            self.assertIn('Identification and physical characteristics', pages[page - 1])

    def test_no_heading_stands_alone_at_the_foot(self):
        for text, kind in ((reports.all_months('detail'), 'detail'), (reports.report_text('brief'), 'brief')):
            self.open(text, kind)
            self.browser.run('orvex.preparePrint()')
            lonely = self.browser.run("""
                const last = Array.from(document.querySelectorAll('.sheet-body'), (body) => body.lastElementChild);
                return last.filter((block) => {
                  const rows = block.querySelectorAll('tr');
                  const row = rows[rows.length - 1];
                  return /^H[1-4]$/.test(block.tagName) || (row && row.closest('thead')) ||
                      (row && (row.classList.contains('heading') || row.classList.contains('tank-row'))) ||
                      (row && row.cells.length === 1);
                }).map((block) => block.textContent.slice(-60))""")
            self.assertEqual(lonely, [])

    def test_afterwards_the_page_is_as_it_was(self):
        self.open(reports.report_text('detail', 'Mar,Jul', 'VF-103,IF-302'), 'detail')
        picture = 'return [document.body.textContent, document.querySelectorAll("*").length, document.body.className]'
        before = self.browser.run(picture)
        self.browser.run('window.dispatchEvent(new Event("beforeprint"))')
        self.assertNotEqual(self.browser.run(picture), before)
        self.browser.run('window.dispatchEvent(new Event("afterprint"))')
        self.assertEqual(self.browser.run(picture), before)
        self.assertEqual(self.browser.run('return document.documentElement.className'), '')

    def test_printing_prepared_by_a_program_stays_until_it_says_so(self):
        self.open(reports.report_text('brief'), 'brief')
        sheets = self.browser.run('return orvex.preparePrint()')
        self.print('letter')
        self.assertEqual(self.browser.run('return document.querySelectorAll(".sheet").length'), sheets)
        self.assertEqual(self.browser.run('return orvex.preparePrint()'), sheets)
        self.browser.run('orvex.finishPrint()')
        self.assertEqual(self.browser.run('return document.querySelectorAll(".sheet").length'), 0)

    def test_person_who_prints_gets_the_same_sheets(self):
        self.open(reports.report_text('brief'), 'brief')
        pages = browser.pages_of(self.print('letter'))
        self.assertIn(f'Page {len(pages)} of {len(pages)}', pages[-1])
        self.assertEqual(self.browser.run('return document.querySelectorAll(".sheet").length'), 0)

    def test_names_and_figures_of_any_length_stay_on_the_sheet(self):
        text = reports.report_text('detail', 'Jan,Feb,Mar,Apr,May,Jun,Jul,Aug,Sep,Oct,Nov,Dec', 'VF-101')
        text = re.sub(r'(month_\d+)="[\d,]+\.(\d{4})"', r'\1="123,456,789,012,345.\2"', text)
        text = text.replace('Crude oil (RVP 5)', 'Crude' * 50).replace('<Description>', '<Description>' + 'x' * 6000)
        self.open(text, 'detail')
        self.browser.run('orvex.preparePrint()')
        self.assertEqual(self.in_layout_of_paper(OVERFLOWS), [])


if __name__ == '__main__':
    unittest.main()
