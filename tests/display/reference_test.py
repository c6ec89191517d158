#!/usr/bin/python3
"""The page of reference data shows what the file says, sorts it, narrows it and prints it."""

import collections
import re
import subprocess
import unittest
import xml.etree.ElementTree as xml

import browser
import print_test
import reference_exports
import report_case
import reports

HOSTILE = '<img src=x onerror=document.title="harmed"><script>document.title="harmed"</script>&amp;'
ROWS = """return Array.from(document.querySelectorAll(arguments[0] + ' tbody tr')).filter((row) => !row.hidden).map(
    (row) => Array.from(row.cells, (cell) => cell.textContent))"""
HEADINGS = """return Array.from(document.querySelectorAll('table.records th[data-column]')).sort(
    (a, b) => a.dataset.column - b.dataset.column).map((cell) => cell.textContent.replaceAll('\\u00a0', ' '))"""


def chemical(**fields):
    return dict(reference_exports.rows_of('Chemical', 1)[0], **fields)


class ReferenceCase(report_case.ReportCase):
    def show(self, word, rows=None):
        rows = reference_exports.rows_of(word) if rows is None else rows
        text = reference_exports.export(word, rows)
        self.open(text, reference_exports.PAGE)
        return text

    def rows(self, table='table.records'):
        return self.browser.run(ROWS, table)

    def column(self, heading, table='table.records'):
        index = self.browser.run(HEADINGS).index(heading)
        return [row[index] for row in self.rows(table)]

    def press(self, heading):
        index = self.browser.run(HEADINGS).index(heading)
        self.browser.driver.find_element('css selector', f'table.records th[data-column="{index}"] button.sort').click()

    def find(self, text):
        box = self.browser.driver.find_element('id', 'find-record')
        box.clear()
        box.send_keys(text)

    def count_text(self):
        return self.browser.run('return document.querySelector(".find .count").textContent')


class ExportsTest(unittest.TestCase):
    def test_files_of_these_tests_are_such_as_the_program_writes(self):
        for word in reference_exports.TABLES:
            with self.subTest(word):
                file = reports.new_folder() / 'data_export.xml'
                file.write_text(reference_exports.whole(word), encoding='utf-8')
                schema = reports.ROOT / 'data' / 'schema' / 'data_export.rng'
                subprocess.run(['xmllint', '--noout', '--relaxng', schema, file], check=True, capture_output=True)


class TablesTest(ReferenceCase):
    def test_every_value_of_each_kind_stands_on_the_page(self):
        for word in reference_exports.TABLES:
            with self.subTest(word):
                root = xml.fromstring(self.show(word))
                # The keys of the rows tell a person nothing and are left out.
                values = collections.Counter(
                    {'Y': 'Yes', 'N': 'No'}.get(element.text, element.text) for element in root.iter()
                    if len(element) == 0 and element.text and element.tag not in ('Type', 'Counter', 'SPECID'))
                shown = collections.Counter(self.browser.cells())
                facts = self.browser.text()
                self.assertEqual([value for value, count in values.items()
                                  if shown[value] < count and (word != 'Met' or facts.count(value) < count)], [])
                self.assertEqual(self.browser.complaints(), [])

    def test_title_and_count_tell_what_the_report_is_on(self):
        for word, sentence in (('Chemical', '332 chemicals'), ('Met', '430 cities'), ('Fit', '47 fittings'),
                               ('Rim', '12 rim seals'), ('Deck', '5 deck seams'), ('Profile', '14 profiles')):
            with self.subTest(word):
                self.show(word)
                self.assertEqual(self.browser.run('return [document.querySelector("h1").textContent, document.title]'),
                                 [reference_exports.TITLES[word]] * 2)
                self.assertIn(f'Reference data: {sentence}', self.browser.text())

    def test_headings_are_labels_with_units_rather_than_names_of_fields(self):
        self.show('Deck')
        self.assertEqual(self.browser.run(HEADINGS), [
            'No.', 'Name', 'Deck construction', 'Sheet width (ft)', 'width', 'length',
            'Deck seam length factor (ft/sq ft)', 'Deck seam loss per unit length factor (lb-mole/ft-yr)',
            'Certification note', 'User-defined'])
        self.assertEqual(self.browser.run('return document.querySelector("th.over").textContent'), 'Panel (ft)')
        for word in reference_exports.TABLES:
            with self.subTest(word):
                self.show(word)
                heads = self.browser.run('return Array.from(document.querySelectorAll("thead"), (h) => h.textContent)')
                self.assertEqual([head for head in heads if re.search(r'[A-Z]_[A-Z\d]|USER ?DEF|CTYST', head)], [])

    def test_a_unit_that_a_group_does_not_share_stands_at_each_column(self):
        self.show('Fit')
        headings = self.browser.run(HEADINGS)
        self.assertIn('KFa (lb-mole/yr)', headings)
        self.assertIn('KFb (lb-mole/(yr mph^m))', headings)
        self.assertIn('m', headings)

    def test_yes_and_no_are_words(self):
        self.show('Rim')
        self.assertEqual(set(self.column('welded shells')), {'Yes', 'No'})

    def test_a_text_of_one_letter_is_no_yes(self):
        self.show('Chemical', [chemical(NAME='N'), chemical(NAME='Y')])
        self.assertEqual(self.column('Chemical name'), ['N', 'Y'])

    def test_fields_that_the_page_does_not_know_are_shown_under_their_own_names(self):
        text = reference_exports.whole('Deck').replace('<SD>', '<NewFactor>').replace('</SD>', '</NewFactor>')
        self.open(text, reference_exports.PAGE)
        self.assertEqual(self.column('New factor'), ['0.20', '0.17', '0.14', '0.33', '0.28'])

    def test_each_city_has_its_months(self):
        self.show('Met')
        first = reference_exports.rows_of('Met', 1)[0]
        rows = self.rows('#record-1')
        self.assertEqual([row[0] for row in rows], [
            'Daily maximum ambient temperature (deg F)', 'Daily minimum ambient temperature (deg F)',
            'Daily total solar insulation factor (Btu/sq ft day)', 'Average wind speed (mph)'])
        self.assertEqual(rows[0][1], f'{first["TAX_JAN"]:,.2f}')
        self.assertEqual(rows[2][8], f'{first["INSOL_AUG"]:,.2f}')
        self.assertEqual(rows[3][13], f'{first["WIND_ANN"]:,.2f}')
        heads = self.browser.run('return Array.from(document.querySelector(".city-months thead tr").cells, '
                                 '(cell) => cell.textContent)')
        self.assertEqual(heads, ['Quantity', *reports.MONTHS, 'Year'])
        self.assertIn(f'Atmospheric pressure: {first["ATMOS_PRS"]:.2f} psia',
                      self.browser.run('return document.querySelector(".parts caption").textContent'))

    def test_log_of_an_import_is_listed_as_it_was_written(self):
        self.show('Import', [{'IDX_ID': '17', 'ID': HOSTILE, 'Error': 'Import Successful'},
                             {'IDX_ID': None, 'ID': 'South', 'Error': 'No city.'}])
        self.assertEqual(self.browser.run(HEADINGS), ['No.', 'Key', 'Record', 'Message'])
        self.assertEqual(self.rows(), [['1', '17', HOSTILE, 'Import Successful'], ['2', '', 'South', 'No city.']])
        self.assertEqual(self.browser.run('return document.querySelector("h1").textContent'), 'Import Report')
        self.assertIn('Log of the last import: 2 messages', self.browser.text())
        self.assertNotIn('Reference data', self.browser.text())

    def test_name_in_the_list_leads_to_the_part_of_its_record(self):
        self.show('Met')
        self.browser.driver.find_element('link text', 'Anchorage, Alaska').click()
        caption = self.browser.run('return document.querySelector(":target caption").textContent')
        self.assertTrue(caption.startswith('Anchorage, Alaska'))

    def test_one_record_needs_no_list_and_no_find_box(self):
        self.show('Met', reference_exports.rows_of('Met', 1))
        self.assertEqual(self.browser.run('return document.querySelectorAll("table.records, input").length'), 0)
        self.assertEqual(self.browser.run('return document.querySelectorAll(".city-months").length'), 1)
        self.show('Chemical', [chemical()])
        self.assertEqual(len(self.rows()), 1)

    def test_report_without_records_says_so(self):
        for word, noun in (('Chemical', 'chemicals'), ('Met', 'cities'), ('Profile', 'profiles')):
            with self.subTest(word):
                self.show(word, [])
                self.assertIn(f'The report holds no {noun}.', self.browser.text())
                self.assertEqual(self.browser.run('return orvex.preparePrint()'), 1)

    def test_text_with_markup_is_text(self):
        for word, field in (('Chemical', 'NAME'), ('Met', 'CTYST'), ('Fit', 'COVR_TYPE'), ('Profile', 'Profile Name')):
            with self.subTest(word):
                rows = reference_exports.rows_of(word, 3)
                rows[1][field] = HOSTILE
                self.show(word, rows)
                self.assertIn(HOSTILE, self.browser.text())
                self.find('<img')
                self.browser.run('orvex.preparePrint()')
                self.assertEqual(self.browser.run('return document.querySelectorAll("main img, .sheets img, [onerror], '
                                                  'main script, .sheets script").length'), 0)
                self.assertIn(HOSTILE, self.browser.run('return document.querySelector(".sheets").textContent'))
                self.assertNotEqual(self.browser.driver.title, 'harmed')
                self.assertEqual(self.browser.complaints(), [])

    def test_shown_and_hidden_boxes_are_still_a_table_to_screen_readers(self):
        self.show('Chemical', reference_exports.rows_of('Chemical', 2))
        roles = self.browser.run("""return ['table.records', 'thead', 'tbody', 'tbody tr', 'thead th', 'tbody th',
            'tbody td'].map((name) => document.querySelector(name).getAttribute('role'))""")
        self.assertEqual(roles, ['table', 'rowgroup', 'rowgroup', 'row', 'columnheader', 'rowheader', 'cell'])

    def test_no_column_covers_its_neighbour(self):
        for word in reference_exports.TABLES:
            with self.subTest(word):
                self.show(word)
                wide = self.browser.run("""return Array.from(document.querySelectorAll('table.records :is(th, td)')
                    ).filter((cell) => cell.scrollWidth > cell.clientWidth + 1).map((cell) => cell.textContent)""")
                self.assertEqual(wide, [])


class ProfilesTest(ReferenceCase):
    @staticmethod
    def profile(name, kind, percents, field='WT_FRACT'):
        empty = {'CAS': '', 'WT_FRACT': 0.0, 'VP_FRACT': 0.0, 'WEIGHT': 0.0, 'MOLWT': 78.1, 'VP_MOLWT': 78.1}
        components = [dict({'SPEC ID': 1, 'NAME': f'Part {index}'}, **dict(empty, **{field: percent}))
                      for index, percent in enumerate(percents)]
        return {'SPEC ID': 1, 'Profile Name': name, 'TYPE': kind, 'components': components}

    def foot(self, index):
        return self.browser.run("""return Array.from(document.querySelectorAll('.components-block')[arguments[0]]
            .querySelectorAll('tfoot tr'), (row) => Array.from(row.cells, (cell) => cell.textContent))""", index)

    def test_percents_are_added_and_compared_with_100(self):
        # 33.33 * 3 = 99.99; 0.1 + 0.2 is 0.30 and no 0.30000000000000004; 60.5 + 39.6 = 100.10
        self.show('Profile', [self.profile('Thirds', 'Full', [33.33] * 3), self.profile('Whole', 'Full', [62.5, 37.5]),
                              self.profile('Little', 'Partial', [0.1, 0.2]),
                              self.profile('Much', 'Vapor', [60.5, 39.6], 'VP_FRACT')])
        self.assertEqual([self.foot(0)[row][2] for row in (0, 1)], ['99.99', '0.01 below'])
        self.assertEqual([self.foot(1)[row][2] for row in (0, 1)], ['100.00', 'equal'])
        self.assertEqual([self.foot(2)[row][2] for row in (0, 1)], ['0.30', '99.70 below'])
        self.assertEqual([self.foot(3)[row][3] for row in (0, 1)], ['100.10', '0.10 above'])
        # The side that a profile does not use has no sum.
        self.assertEqual([self.foot(3)[row][2] for row in (0, 1)], ['', ''])
        self.assertEqual(self.foot(0)[0][0], 'Sum of percents')
        self.assertEqual([row[4:] for row in self.rows()],
                         [['99.99', ''], ['100.00', ''], ['0.30', ''], ['', '100.10']])

    def test_profile_without_components_says_so(self):
        self.show('Profile', [self.profile('Empty', 'Partial', []), self.profile('Whole', 'Full', [100.0])])
        self.assertIn('The profile has no components.', self.browser.text())
        self.show('Profile', [self.profile('Empty', 'Partial', [])])
        self.assertIn('The profile has no components.', self.browser.text())
        self.assertEqual(self.browser.run('return orvex.preparePrint()'), 1)

    def test_components_are_sorted_and_their_sum_stays_below(self):
        self.show('Profile')
        button = self.browser.driver.find_element('css selector', '.components-block .figure button.sort')
        button.click()
        shares = [float(row[2]) for row in self.rows('#record-1')]
        self.assertEqual(shares, sorted(shares))
        self.assertEqual(self.foot(0)[0][2], '28.30')
        # The other profiles stay as they are.
        second = [row[0] for row in self.rows('#record-2')]
        self.assertEqual(second, [each['NAME'] for each in reference_exports.rows_of('Profile', 2)[1]['components']])


class SortingTest(ReferenceCase):
    def headings_sorted(self):
        return self.browser.run("""return Array.from(document.querySelectorAll('table.records [aria-sort]')).filter(
            (cell) => cell.getAttribute('aria-sort') !== 'none').map(
            (cell) => [cell.querySelector('button').textContent, cell.getAttribute('aria-sort')])""")

    def test_figures_are_sorted_as_numbers_with_empty_cells_last_both_ways(self):
        weights = [900.0, None, 1250.5, 2.0, 100.0, None, 25.0]
        self.show('Chemical', [chemical(NAME=f'C{index}', MOLWT=weight) for index, weight in enumerate(weights)])
        heading = 'Liquid molecular weight (lb/lb-mole)'
        self.press(heading)
        self.assertEqual(self.column(heading), ['2.00', '25.00', '100.00', '900.00', '1,250.50', '', ''])
        self.assertEqual(self.headings_sorted(), [['Liquid molecular weight', 'ascending']])
        self.press(heading)
        self.assertEqual(self.column(heading), ['1,250.50', '900.00', '100.00', '25.00', '2.00', '', ''])
        self.assertEqual(self.headings_sorted(), [['Liquid molecular weight', 'descending']])
        # Rows without a value keep their order.
        self.assertEqual(self.column('Chemical name')[-2:], ['C1', 'C5'])

    def test_negative_figures_come_first(self):
        self.show('Chemical', [chemical(VP_COEF_C=value) for value in (3.5, -20.25, 0.5, -3.0)])
        self.press('C (deg C)')
        self.assertEqual(self.column('C (deg C)'), ['-20.25', '-3.00', '0.50', '3.50'])

    def test_texts_are_sorted_without_regard_to_case(self):
        names = ('toluene', 'Benzene', None, 'acetone', 'Xylene', 'ACETAL')
        self.show('Chemical', [chemical(NAME=name) for name in names])
        self.press('Chemical name')
        self.assertEqual(self.column('Chemical name'), ['ACETAL', 'acetone', 'Benzene', 'toluene', 'Xylene', ''])
        self.press('Chemical name')
        self.assertEqual(self.column('Chemical name'), ['Xylene', 'toluene', 'Benzene', 'acetone', 'ACETAL', ''])

    def test_yes_and_no_are_sorted(self):
        self.show('Rim')
        self.press('riveted shells')
        self.assertEqual(self.column('riveted shells'), ['No'] * 9 + ['Yes'] * 3)
        # Equal rows keep their order.
        self.assertEqual(self.column('No.')[:9], [str(number) for number in range(1, 10)])

    def test_running_number_gives_back_the_order_of_the_file(self):
        self.show('Chemical')
        self.press('Category')
        self.assertNotEqual(self.column('No.'), [str(number) for number in range(1, 333)])
        self.press('No.')
        self.assertEqual(self.column('No.'), [str(number) for number in range(1, 333)])

    def test_heading_is_pressed_by_keyboard(self):
        self.show('Deck')
        button = self.browser.driver.find_element('css selector', 'table.records th.name button.sort')
        button.send_keys('\n')
        # Numbers in texts count as numbers, too.
        names = ['Panel: 5 x 7.5 Ft', 'Panel: 5 x 12 Ft', 'Sheet: 5 Ft Wide', 'Sheet: 6 Ft Wide', 'Sheet: 7 Ft Wide']
        self.assertEqual(self.column('Name'), names)
        self.browser.driver.switch_to.active_element.send_keys(' ')
        self.assertEqual(self.column('Name'), names[::-1])

    def test_parts_of_the_records_follow_the_order_of_the_list(self):
        for word, heading in (('Met', 'State'), ('Profile', 'Profile type')):
            with self.subTest(word):
                self.show(word)
                self.press(heading)
                parts = self.browser.run('return Array.from(document.querySelectorAll(".parts > *"), '
                                         '(part) => part.dataset.subject)')
                self.assertEqual([row[1] for row in self.rows()], parts)

    def test_sorted_list_is_printed_and_copied_as_it_stands(self):
        self.show('Chemical')
        self.press('Liquid density (lb/gal)')
        names = self.column('Chemical name')
        copied = self.browser.run('return orvex.copyTable()').split('\n')
        self.assertEqual([line.split('\t')[1] for line in copied[2:]], names)
        self.browser.run('orvex.preparePrint()')
        self.assertEqual([row[1] for row in self.rows('.sheets')], names)
        self.browser.run('orvex.finishPrint()')
        self.assertEqual(self.column('Chemical name'), names)


class FindTest(ReferenceCase):
    def test_rows_that_hold_every_word_are_left(self):
        self.show('Chemical')
        self.find('CRUDE oil')
        names = self.column('Chemical name')
        self.assertTrue(names)
        self.assertTrue(all('crude oil' in f'{row[1]} {row[3]}'.lower() for row in self.rows()))
        self.assertEqual(self.count_text(), f'{len(names)} of 332 chemicals with “crude oil”')
        self.find('71-43-2')
        self.assertEqual(self.column('Chemical name'), ['Benzene'])

    def test_emptied_box_shows_all_again(self):
        self.show('Fit')
        self.find('no such fitting')
        self.assertEqual((self.rows(), self.count_text()), ([], '0 of 47 fittings with “no such fitting”'))
        self.browser.run("""const box = document.getElementById('find-record'); box.value = '';
            box.dispatchEvent(new Event('input'))""")
        self.assertEqual((len(self.rows()), self.count_text()), (47, ''))

    def test_parts_of_the_records_are_narrowed_with_the_list(self):
        self.show('Met')
        self.find('alaska')
        shown = self.browser.run("""return Array.from(document.querySelectorAll('.parts > *')).filter(
            (part) => part.checkVisibility()).map((part) => part.dataset.subject)""")
        self.assertEqual(shown, [row[1] for row in self.rows()])
        self.assertTrue(all(name.endswith('Alaska') for name in shown))

    def test_profile_is_found_by_its_components(self):
        self.show('Profile')
        self.find('isopropyl')
        expected = [row['Profile Name'] for row in reference_exports.rows_of('Profile')
                    if any('isopropyl' in part['NAME'].lower() for part in row['components'])]
        self.assertEqual(self.column('Profile name'), expected)

    def test_what_was_found_can_be_sorted_copied_and_printed(self):
        self.show('Met')
        self.find('texas')
        self.press('City')
        names = [row[1] for row in self.rows()]
        self.assertGreater(len(names), 5)
        copied = self.browser.run('return orvex.copyTable(document.querySelector("table.records"))').split('\n')
        self.assertEqual([line.split('\t')[1] for line in copied[2:]], names)
        self.browser.run('orvex.preparePrint()')
        self.assertEqual([row[1] for row in self.rows('.sheets table.records')], names)
        captions = self.browser.run('return Array.from(document.querySelectorAll(".sheets .city-months caption"), '
                                    '(caption) => caption.firstChild.data)')
        self.assertEqual(captions, names)
        self.assertIn(f'{len(names)} of 430 cities with “texas”',
                      self.browser.run('return document.querySelector(".sheet").textContent'))


class PrintTest(ReferenceCase):
    def in_layout_of_paper(self, script):
        self.browser.driver.execute_cdp_cmd('Emulation.setEmulatedMedia', {'media': 'print'})
        try:
            return self.browser.run(script)
        finally:
            self.browser.driver.execute_cdp_cmd('Emulation.setEmulatedMedia', {'media': ''})

    def test_each_kind_prints_on_landscape_sheets_in_legible_letters(self):
        for word in reference_exports.TABLES:
            self.show(word)
            sheets = self.browser.run('return orvex.preparePrint()')
            self.assertEqual(self.in_layout_of_paper(print_test.OVERFLOWS), [], word)
            self.assertGreaterEqual(self.browser.run("""return Math.min(...Array.from(document.querySelectorAll(
                '.sheets table'), (table) => parseFloat(getComputedStyle(table).fontSize) * 0.75))"""), 5.9, word)
            for paper in browser.PAPERS:
                with self.subTest(word, paper=paper):
                    pdf = reports.new_folder() / f'{paper}.pdf'
                    self.browser.print_pdf(pdf, paper)
                    pages = browser.pages_of(pdf)
                    self.assertEqual(len(pages), sheets)
                    self.assertTrue(all(width > height for width, height in browser.page_sizes(pdf)))
                    for number, page in enumerate(pages, 1):
                        self.assertIn(f'Page {number} of {sheets}', page)
                        self.assertIn(reference_exports.TITLES[word], page)

    def test_no_record_is_lost_on_the_way_to_the_sheets(self):
        for word in ('Chemical', 'Fit', 'Met', 'Profile'):
            with self.subTest(word):
                self.show(word)
                before = collections.Counter(self.browser.cells())
                self.browser.run('orvex.preparePrint()')
                after = collections.Counter(self.browser.cells('.sheets'))
                self.assertEqual({cell: count for cell, count in before.items() if after[cell] < count}, {})

    def test_sheets_tell_their_first_and_last_record_and_repeat_the_headings(self):
        self.show('Chemical')
        sheets = self.browser.run('orvex.preparePrint()') or self.browser.run("""
            return Array.from(document.querySelectorAll('.sheet'), (sheet) => [
                sheet.querySelector('.sheet-subject').textContent, sheet.querySelectorAll('thead').length,
                Array.from(sheet.querySelectorAll('tbody th'), (cell) => cell.textContent)])""")
        self.assertGreater(len(sheets), 5)
        for subject, heads, names in sheets:
            self.assertEqual((subject, heads), (f'{names[0]} … {names[-1]}', 1))

    def test_seals_and_fittings_are_told_apart_by_both_their_names(self):
        for word, subject in (
                ('Rim', 'Mechanical Shoe, None … Mechanical Shoe, Rim-mounted'),
                ('Fit', 'Access Hatch (24-in. Diam.), Bolted Cover, Gasketed … Access Hatch (24-in. Diam.)')):
            with self.subTest(word):
                rows = reference_exports.rows_of(word)
                if word == 'Fit':
                    rows = [rows[0], dict(rows[0], COVR_TYPE=None)]
                self.show(word, rows)
                self.browser.run('orvex.preparePrint()')
                self.assertEqual(self.browser.run('return document.querySelector(".sheet-subject").textContent'),
                                 subject)

    def test_no_unit_is_broken_in_the_headings(self):
        for word in reference_exports.TABLES:
            with self.subTest(word):
                self.show(word)
                self.browser.run('orvex.preparePrint()')
                self.assertEqual(self.in_layout_of_paper("""return Array.from(document.querySelectorAll(
                    '.sheets table.records thead .unit')).filter((unit) => unit.getClientRects().length > 1 ||
                    unit.getBoundingClientRect().height > 1.7 * parseFloat(getComputedStyle(unit).fontSize))
                    .map((unit) => unit.textContent)"""), [])

    def test_a_city_is_not_parted(self):
        self.show('Met')
        self.browser.run('orvex.preparePrint()')
        self.assertEqual(set(self.browser.run("""return Array.from(document.querySelectorAll('.sheets .city-months'),
            (table) => table.tBodies[0].rows.length)""")), {4})

    def test_texts_of_any_length_stay_on_the_sheet(self):
        rows = [chemical(NAME='x' * 50, CATEGORY='y' * 60, VP_2_A=123456789012.5), chemical(NAME='Benzene')]
        self.show('Chemical', rows)
        self.browser.run('orvex.preparePrint()')
        self.assertEqual(self.in_layout_of_paper(print_test.OVERFLOWS), [])

    def test_afterwards_the_page_is_as_it_was(self):
        picture = 'return [document.body.textContent, document.querySelectorAll("*").length]'
        for word in ('Chemical', 'Met', 'Profile'):
            with self.subTest(word):
                self.show(word)
                before = self.browser.run(picture)
                self.browser.run('orvex.preparePrint(); orvex.finishPrint()')
                self.assertEqual(self.browser.run(picture), before)


class FaultyFileTest(ReferenceCase):
    def assert_told(self, text, sentence):
        self.assertEqual(self.browser.open(reports.page_with(text, reference_exports.PAGE)), 'failed')
        self.assertEqual(self.browser.message(), sentence)

    def test_missing_file_is_asked_for(self):
        self.assertEqual(self.browser.open(reports.page_with(None, reference_exports.PAGE)), 'waiting')
        self.assertIn('data_export.xml', self.browser.message())

    def test_document_type_declaration_is_refused(self):
        text = reference_exports.whole('Deck').replace(
            '<?xml version="1.0"?>', '<?xml version="1.0"?><!DOCTYPE DataExport [<!ENTITY much "much">]>')
        self.assert_told(text, 'data_export.xml has a document type declaration, which no report of ORVEX has.')

    def test_file_cut_off_in_the_middle(self):
        text = reference_exports.whole('Rim')
        self.assertEqual(self.browser.open(reports.page_with(text[:len(text) // 2], reference_exports.PAGE)), 'failed')
        self.assertIn('data_export.xml is damaged or not an XML file.', self.browser.message())

    def test_report_of_another_page_is_sent_there(self):
        self.assert_told(reports.report_text('brief'),
                         'data_export.xml holds a Brief report, but this page shows reports on reference data: '
                         'open briefdisplay.htm instead.')
        self.assertEqual(self.browser.open(reports.page_with(reference_exports.whole('Deck'), 'brief')), 'failed')
        self.assertEqual(self.browser.message(),
                         'briefdata.xml holds a report on reference data, but this page shows Brief reports: '
                         'open data_display.htm instead.')

    def test_report_of_a_kind_that_no_page_shows(self):
        for kind in ('Paint', 'constructor'):
            self.assert_told(reference_exports.whole('Deck').replace('>Deck<', f'>{kind}<', 1),
                             f'data_export.xml holds a report of the unknown kind “{kind}”.')

    def test_report_without_its_type(self):
        self.assert_told(reports.without(reference_exports.whole('Deck'), 'Type'),
                         'data_export.xml does not tell which kind of report it holds.')


class OrdinaryBrowserTest(unittest.TestCase):
    def test_browser_that_keeps_the_page_from_its_neighbour_gets_the_picked_file(self):
        ordinary = browser.Browser(reads_neighbours=False)
        self.addCleanup(ordinary.close)
        page = reports.page_with(reference_exports.whole('Fit'), reference_exports.PAGE)
        self.assertEqual(ordinary.open(page), 'waiting')
        self.assertIn('does not let this page read the file data_export.xml', ordinary.message())
        ordinary.driver.find_element('id', 'pick').send_keys(str(page.with_name('data_export.xml')))
        ordinary.driver.implicitly_wait(10)
        ordinary.driver.find_element('id', 'report')
        self.assertEqual(ordinary.state(), 'ready')
        self.assertIn('Fitting Report', ordinary.text())


class LargeTest(ReferenceCase):
    def test_five_thousand_records_open_sort_and_print(self):
        for word in reference_exports.TABLES:
            with self.subTest(word):
                self.open(reference_exports.multiplied(word, 5000), reference_exports.PAGE)
                shown = self.browser.driver.execute_async_script("""
                    const done = arguments[arguments.length - 1];
                    const start = performance.getEntriesByName('orvex-start')[0].startTime;
                    requestAnimationFrame(() => setTimeout(() => done(performance.now() - start)));""")
                self.assertEqual(len(self.rows('table.records')), 5000)
                sorting = self.browser.run("""const before = performance.now();
                    document.querySelector('table.records th.name button.sort').click();
                    document.body.offsetHeight; return performance.now() - before""")
                finding = self.browser.run("""const before = performance.now();
                    const box = document.getElementById('find-record');
                    box.value = '77'; box.dispatchEvent(new Event('input'));
                    document.body.offsetHeight; const took = performance.now() - before;
                    box.value = ''; box.dispatchEvent(new Event('input')); return took""")
                sheets, preparing = self.browser.run(
                    'const before = performance.now(); return [orvex.preparePrint(), performance.now() - before]')
                print(f'\n5,000 records, {word}: shown after {shown / 1000:.2f} s, sorted in {sorting / 1000:.2f} s, '
                      f'narrowed in {finding / 1000:.2f} s, {sheets} sheets prepared in {preparing / 1000:.2f} s')
                self.assertLess(shown, 15_000)
                self.assertLess(sorting, 10_000)
                self.assertLess(finding, 5_000)
                self.assertLess(preparing, 90_000)


if __name__ == '__main__':
    unittest.main()
