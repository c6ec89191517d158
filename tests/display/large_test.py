#!/usr/bin/python3
"""Large reports stay usable. The times are printed; the limits are generous, for machines that are busy."""

import unittest

import browser
import reports

CASES = [
    ('2,000 tanks, Brief', 'brief', lambda: reports.report_text('brief'), 2000),
    ('200 tanks, Detail, annual', 'detail', lambda: reports.report_text('detail'), 200),
    ('200 tanks, Detail, 12 months', 'detail', lambda: reports.all_months('detail'), 200),
]


class LargeTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = browser.Browser()
        cls.addClassCleanup(cls.browser.close)

    def test_large_reports_open_and_print(self):
        for name, kind, text, count in CASES:
            with self.subTest(name):
                page = reports.page_with(reports.multiplied(text(), count), kind)
                self.assertEqual(self.browser.open(page), 'ready')
                opening, drawing = self.browser.driver.execute_async_script("""
                    const done = arguments[arguments.length - 1];
                    const at = (name) => performance.getEntriesByName(name)[0].startTime;
                    const before = performance.now();
                    requestAnimationFrame(() => setTimeout(() => done([at('orvex-ready') - at('orvex-start'),
                                                                       performance.now() - before])));""")
                sheets, preparing = self.browser.run(
                    'const before = performance.now(); return [orvex.preparePrint(), performance.now() - before]')
                nodes = self.browser.run('return document.querySelectorAll("*").length')
                back = self.browser.run(
                    'const before = performance.now(); orvex.finishPrint(); return performance.now() - before')
                print(f'\n{name}: {nodes} elements, opens in {opening / 1000:.2f} s, first frame {drawing / 1000:.2f} s, '
                      f'{sheets} sheets prepared in {preparing / 1000:.2f} s, put back in {back / 1000:.2f} s')
                self.assertEqual(self.browser.run('return document.querySelectorAll(".roll-up tbody tr").length'), count)
                self.assertLess(opening, 20_000)
                self.assertLess(preparing, 60_000)


if __name__ == '__main__':
    unittest.main()
