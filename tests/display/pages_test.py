#!/usr/bin/python3
"""The display pages show what the report files say."""

import collections
import decimal
import re
import unittest
import xml.etree.ElementTree as xml

import report_case
import reports

HOSTILE = '<img src=x onerror=document.title="harmed">'


class PagesTest(report_case.ReportCase):
    def assert_all_figures_shown(self, text, root='main'):
        expected = reports.figures(text)
        self.assertGreater(len(expected), 10)
        shown = collections.Counter(self.browser.cells(root))
        self.assertEqual({figure: count for figure, count in expected.items() if shown[figure] < count}, {})

    def test_every_number_of_each_report_stands_on_its_page(self):
        texts = {(kind, period): text for kind in ('brief', 'summary', 'detail') for period, text in (
            ('annual', reports.report_text(kind)),
            ('all months', reports.all_months(kind)),
            ('two months', reports.report_text(kind, 'Mar,Jul', 'VF-101,HT-201,IF-301,EF-402,DE-502')),
            ('one tank', reports.report_text(kind, '', 'IF-302')))}
        for (kind, period), text in texts.items():
            with self.subTest(kind=kind, period=period):
                self.open(text, kind)
                self.assert_all_figures_shown(text)
                self.assertEqual(self.browser.complaints(), [])

    def test_roll_up_equals_the_sum_of_its_tanks(self):
        for kind in ('brief', 'summary', 'detail'):
            with self.subTest(kind=kind):
                text = reports.report_text(kind)
                self.open(text, kind)
                losses = [reports.amount(cell) for cell in self.browser.cells('.roll-up tbody')[4::5]]
                total = self.browser.cells('.roll-up tfoot')[1]
                self.assertEqual(len(losses), 25)
                # Each of the 25 figures, and the total, is rounded to a cent: they may be 26 half cents apart.
                self.assertLessEqual(abs(sum(losses) - reports.amount(total)), decimal.Decimal('0.13'))
                self.assertEqual(total, xml.fromstring(text).find('Summary/Total').text)

    def test_one_tank_has_neither_roll_up_nor_contents(self):
        self.open(reports.report_text('brief', '', 'VF-101'), 'brief')
        self.assertEqual(self.browser.cells('.roll-up'), [])
        self.assertEqual(self.browser.run('return document.querySelectorAll("nav").length'), 0)
        self.assertIn('11,748.29', self.browser.text())

    def test_summary_and_detail_are_told_apart(self):
        for kind, calculations in (('summary', 0), ('detail', 25)):
            with self.subTest(kind=kind):
                self.open(reports.report_text(kind), kind)
                self.assertIn(f'{kind.capitalize()} emissions report', self.browser.text())
                captions = self.browser.run('return Array.from(document.querySelectorAll("caption"), '
                                            '(caption) => caption.textContent)')
                self.assertEqual(captions.count('Emission calculations'), calculations)
                self.assertEqual(captions.count('Emission totals'), 25)

    def test_calculation_has_a_column_for_each_month_of_the_file(self):
        self.open(reports.report_text('detail', 'Mar,Jul', 'VF-101'), 'detail')
        # The file has month_1 to month_7: it goes on to the last month computed.
        self.assertEqual(self.browser.cells('.months thead'),
                         ['Quantity', 'Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul'])

    def test_each_month_shows_its_own_constant(self):
        self.open(reports.report_text('detail', 'Mar,Jul', 'VF-101'), 'detail')
        row = self.browser.run("""
            return Array.from(document.querySelectorAll('.months tr')).map((row) => Array.from(row.cells,
                (cell) => cell.textContent)).find((texts) => texts[0].startsWith('Ideal Gas Constant R'))""")
        self.assertEqual(row, ['Ideal Gas Constant R (psia cuft / (lb-mol-deg R))', '', '', '10.731', '', '', '', '10.731'])

    def test_characteristics_have_names_and_units(self):
        self.open(reports.report_text('detail', '', 'VF-101'), 'detail')
        items = dict(self.browser.run("""
            return Array.from(document.querySelectorAll('.definition'), (item) => [
                item.querySelector('dt').textContent, item.querySelector('dd').textContent])"""))
        self.assertEqual(items['Shell height'], '24.00 ft')
        self.assertEqual(items['Net throughput'], '2,791,200.00 gal/yr')
        self.assertEqual(items['Slope (cone roof)'], '0.06 ft/ft')
        self.assertEqual(items['Heated'], 'No')

    def test_tables_tell_what_their_headings_are_of(self):
        self.open(reports.report_text('detail', '', 'IF-302,EF-402'), 'detail')
        bare = self.browser.run("""
            return Array.from(document.querySelectorAll('table')).filter((table) => !table.caption || !table.tHead ||
                Array.from(table.querySelectorAll('th')).some((cell) => !cell.scope)).length""")
        self.assertEqual(bare, 0)

    def test_tank_name_with_markup_is_text(self):
        for kind in ('brief', 'summary', 'detail'):
            with self.subTest(kind=kind):
                self.open(reports.report_text(kind, rename=HOSTILE), kind)
                self.assertGreaterEqual(self.browser.text().count(HOSTILE), 2)
                self.assertEqual(self.browser.run('return document.querySelectorAll("img, [onerror]").length'), 0)
                self.assertNotEqual(self.browser.driver.title, 'harmed')
                self.browser.run('orvex.preparePrint()')
                self.assertEqual(self.browser.run('return document.querySelectorAll("img, [onerror]").length'), 0)
                self.assertEqual(self.browser.complaints(), [])

    def test_what_a_tank_lacks_is_told_in_a_sentence(self):
        self.open(reports.without(reports.report_text('detail', '', 'VF-101'), 'EmissionTotals', 'PhysicalChar', 'Data',
                                  'LiquidContents', 'Location'), 'detail')
        self.assertIn('The report holds no losses of this tank.', self.browser.text())
        self.assertIn('The report holds no calculation of this tank.', self.browser.text())

    def test_unknown_elements_are_shown_under_their_own_names(self):
        text = reports.report_text('detail', '', 'VF-101').replace('ShellHeight>', 'FloorArea>')
        self.open(text, 'detail')
        self.assertIn('Floor area', self.browser.text())
        self.assert_all_figures_shown(text)

    def test_contents_find_a_tank(self):
        self.open(reports.report_text('detail'), 'detail')
        self.browser.driver.find_element('id', 'find-tank').send_keys('horizontal tampa')
        entries = self.browser.run("""return Array.from(document.querySelectorAll('.contents .tanks li')).filter(
            (entry) => entry.checkVisibility()).map((entry) => entry.querySelector('.entry').textContent)""")
        self.assertEqual(entries, ['HT-201'])
        self.assertIn('1 of 25 tanks', self.browser.text())
        self.browser.driver.find_element('id', 'find-tank').send_keys('\n')
        self.assertEqual(self.browser.run('return document.querySelector(":target").textContent'),
                         'HT-201   -   Horizontal Tank')

    def test_everything_to_press_is_reached_by_keyboard(self):
        self.open(reports.report_text('detail', '', 'IF-302,EF-402'), 'detail')
        unreachable = self.browser.run("""
            return Array.from(document.querySelectorAll('a, button, input, summary')).filter(
                (each) => each.tabIndex < 0 || (each.localName === 'a' && !each.hasAttribute('href'))).length""")
        self.assertEqual(unreachable, 0)

    def test_table_is_copied_as_text_and_as_a_table(self):
        self.open(reports.report_text('brief', '', 'VF-101,VF-102'), 'brief')
        self.browser.run("""
            window.put = {};
            const original = DataTransfer.prototype.setData;
            DataTransfer.prototype.setData = function (kind, text) {
              window.put[kind] = text;
              return original.call(this, kind, text);
            };""")
        text = self.browser.run('return orvex.copyTable(document.querySelector(".roll-up"))')
        self.assertEqual(text.split('\n')[1].split('\t'),
                         ['VF-101', 'Prairie Crude Gathering', 'Vertical Fixed Roof Tank', 'Odessa, Texas', '11,748.29'])
        # The total's label spans four columns; the total adds before it rounds: 11,748.29 + 908.42 would be .71.
        self.assertEqual(text.split('\n')[3].split('\t'), ['Total emissions of all tanks', '', '', '', '12,656.70'])
        # A browser hands out its clipboard only to a person who presses something.
        self.browser.driver.find_element('css selector', '.roll-up-block button.copy').click()
        put = self.browser.run('return window.put')
        self.assertEqual(put['text/plain'], text)
        self.assertEqual(re.findall(r'<td align="right">([^<]*)</td>', put['text/html']),
                         ['11,748.29', '908.42', '12,656.70'])
        # A program takes the same from the page and fills the clipboard by itself.
        self.assertEqual(self.browser.run('return orvex.tableContent(document.querySelector(".roll-up"))'),
                         {'text': put['text/plain'], 'html': put['text/html']})

    def test_names_that_a_spreadsheet_would_compute_arrive_as_text(self):
        for name in ('=cmd|\' /C calc\'!A0', '+SUM(1,2)', '-2+3', '@SUM(1,2)'):
            with self.subTest(name=name):
                self.open(reports.report_text('brief', '', 'all', rename=name), 'brief')
                self.browser.run("""
                    window.put = {};
                    const original = DataTransfer.prototype.setData;
                    DataTransfer.prototype.setData = function (kind, text) {
                      window.put[kind] = text;
                      return original.call(this, kind, text);
                    };""")
                self.browser.driver.find_element('css selector', '.roll-up-block button.copy').click()
                put = self.browser.run('return window.put')
                self.assertEqual(put['text/plain'].split('\n')[1].split('\t')[0], f"'{name}")
                self.assertIn(f">'{name}</th>", put['text/html'])
                # On the page the name stands as it is.
                self.assertEqual(self.browser.cells('.roll-up tbody')[0], name)

    def test_figures_are_copied_as_numbers_even_below_zero(self):
        text = reports.report_text('brief', '', 'VF-101,VF-102').replace('loss="908.42"', 'loss="-1,908.42"')
        self.open(text, 'brief')
        copied = self.browser.run('return orvex.copyTable(document.querySelector(".roll-up"))')
        self.assertEqual(copied.split('\n')[2].split('\t')[-1], '-1,908.42')

    def test_without_a_choice_the_table_last_touched_is_copied(self):
        self.open(reports.report_text('brief', '', 'VF-101,VF-102'), 'brief')
        self.assertIn('Company', self.browser.run('return orvex.copyTable()'))
        self.browser.run('document.querySelector(".losses td").dispatchEvent(new Event("pointerdown", {bubbles: true}))')
        self.assertIn('Working loss', self.browser.run('return orvex.copyTable()'))

    def test_narrow_window_scrolls_tables_in_their_own_box(self):
        self.open(reports.all_months('detail'), 'detail')
        self.browser.driver.set_window_size(520, 900)
        self.addCleanup(self.browser.driver.set_window_size, 1400, 1000)
        self.assertLessEqual(self.browser.run('return document.documentElement.scrollWidth - window.innerWidth'), 0)
        scrolled = self.browser.run("""const box = document.querySelector('.months-block .table-box');
            return box.scrollWidth > box.clientWidth""")
        self.assertTrue(scrolled)

    def test_narrow_window_scrolls_charts_rather_than_shrinking_their_letters(self):
        self.open(reports.report_text('brief'), 'brief')
        self.browser.driver.set_window_size(520, 900)
        self.addCleanup(self.browser.driver.set_window_size, 1400, 1000)
        self.assertLessEqual(self.browser.run('return document.documentElement.scrollWidth - window.innerWidth'), 0)
        charts = self.browser.run("""return Array.from(document.querySelectorAll('.chart-block'), (block) => {
            const svg = block.querySelector('svg');
            const letters = parseFloat(getComputedStyle(svg.querySelector('.chart-name')).fontSize);
            return [block.scrollWidth > block.clientWidth, letters * svg.clientWidth / svg.viewBox.baseVal.width];
        })""")
        self.assertEqual([scrolls for scrolls, _ in charts], [True, True])
        self.assertGreater(min(pixels for _, pixels in charts), 8)

    def test_dark_and_light_are_both_legible(self):
        self.open(reports.report_text('brief'), 'brief')
        lightness = """const levels = (name) => getComputedStyle(document.documentElement)[name].match(/[0-9]+/g);
            const light = (name) => levels(name).slice(0, 3).reduce((sum, level) => sum + Number(level), 0) / 765;
            return [light('backgroundColor'), light('color')]"""
        for scheme, background_is_lighter in (('light', True), ('dark', False)):
            with self.subTest(scheme=scheme):
                self.browser.driver.execute_cdp_cmd('Emulation.setEmulatedMedia', {
                    'features': [{'name': 'prefers-color-scheme', 'value': scheme}]})
                background, text = self.browser.run(lightness)
                self.assertEqual(background > text, background_is_lighter)
                self.assertGreater(abs(background - text), 0.6)


class SourcesTest(unittest.TestCase):
    def test_nothing_comes_from_outside_and_no_text_becomes_markup(self):
        namespace = 'http://www.w3.org/2000/svg'
        banned = re.compile(r'innerHTML|insertAdjacentHTML|document\.write|\beval\(|new Function|https?:|//[a-z]+\.')
        for file in reports.DISPLAY.iterdir():
            with self.subTest(file=file.name):
                self.assertEqual(banned.findall(file.read_text(encoding='utf-8').replace(namespace, '')), [])


if __name__ == '__main__':
    unittest.main()
