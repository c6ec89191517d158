#!/usr/bin/python3
"""What the pages do when the file beside them cannot be read, or is no report for them."""

import unittest

import browser
import reports


class OrdinaryBrowserTest(unittest.TestCase):
    """A browser that keeps a page from its neighbours."""

    @classmethod
    def setUpClass(cls):
        cls.browser = browser.Browser(reads_neighbours=False)
        cls.addClassCleanup(cls.browser.close)

    def setUp(self):
        self.text = reports.report_text('brief')
        self.page = reports.page_with(self.text, 'brief')
        self.assertEqual(self.browser.open(self.page), 'waiting')

    def drop(self, name, text):
        self.browser.run("""
            const data = new DataTransfer();
            data.items.add(new File([arguments[1]], arguments[0]));
            const event = (kind) => new DragEvent(kind, {dataTransfer: data, bubbles: true, cancelable: true});
            document.body.dispatchEvent(event('dragover'));
            document.body.dispatchEvent(event('drop'));""", name, text)
        return self.browser.wait_for_state()

    def test_says_so_in_one_sentence(self):
        self.assertIn('does not let this page read the file briefdata.xml', self.browser.message())
        self.assertEqual(self.browser.message().count('.'), 2)  # one in the file's name, one at the end

    def test_works_from_the_picked_file(self):
        self.browser.driver.find_element('id', 'pick').send_keys(str(self.page.with_name('briefdata.xml')))
        self.browser.driver.implicitly_wait(10)
        self.browser.driver.find_element('id', 'report')
        self.assertEqual(self.browser.state(), 'ready')
        self.assertIn('236,111.42', self.browser.text())

    def test_works_from_the_dropped_file(self):
        self.assertEqual(self.drop('briefdata.xml', self.text), 'ready')
        self.assertIn('236,111.42', self.browser.text())

    def test_asks_again_after_a_file_that_is_no_report(self):
        self.assertEqual(self.drop('notes.txt', 'Call the terminal on Monday'), 'failed')
        self.assertIn('notes.txt', self.browser.message())
        self.assertEqual(self.drop('briefdata.xml', self.text), 'ready')


class FaultyFileTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = browser.Browser()
        cls.addClassCleanup(cls.browser.close)

    def assert_told(self, text, kind, sentence):
        self.assertEqual(self.browser.open(reports.page_with(text, kind)), 'failed')
        self.assertEqual(self.browser.message(), sentence)

    def test_missing_file_is_asked_for(self):
        self.assertEqual(self.browser.open(reports.page_with(None, 'detail')), 'waiting')
        self.assertIn('summarydata.xml', self.browser.message())

    def test_page_without_its_scripts_says_so(self):
        page = reports.page_with(reports.report_text('brief'), 'brief')
        page.with_name('display.js').unlink()
        self.browser.driver.get(page.as_uri())
        self.assertIn('scripts of the page are missing', self.browser.driver.find_element('tag name', 'p').text)

    def test_text_for_a_page_without_scripts_is_gone_when_they_have_run(self):
        self.assertEqual(self.browser.open(reports.page_with(reports.report_text('brief'), 'brief')), 'ready')
        self.assertNotIn('scripts', self.browser.text())

    def test_empty_file(self):
        self.assert_told('', 'brief', 'briefdata.xml is empty.')

    def test_file_cut_off_in_the_middle(self):
        text = reports.report_text('detail')
        cut = text[:len(text) // 2]
        self.assertEqual(self.browser.open(reports.page_with(cut, 'detail')), 'failed')
        self.assertRegex(self.browser.message(), r'^summarydata\.xml is damaged or not an XML file\. '
                                                 r'It can be read up to line \d+\.$')

    def test_file_of_other_content(self):
        self.assert_told('<catalog/>', 'brief', 'briefdata.xml is an XML file, but not a report of ORVEX.')

    def test_file_that_multiplies_its_text_by_entities(self):
        # Each of the 5,000 references stands for 50,000 characters: 250 MB from 300 kB.
        declaration = f'<?xml version="1.0"?><!DOCTYPE REPORT [<!ENTITY much "{"x" * 50000}">]>'
        text = reports.report_text('brief').replace('<?xml version="1.0"?>', declaration, 1)
        self.assertIn(declaration, text)
        self.assert_told(text.replace('<NAME>', '<NAME>' + '&much;' * 5000, 1), 'brief',
                         'briefdata.xml has a document type declaration, which no report of ORVEX has.')

    def test_report_without_its_type(self):
        self.assert_told(reports.without(reports.report_text('brief'), 'TYPE'), 'brief',
                         'briefdata.xml does not tell which kind of report it holds.')

    def test_report_without_tanks(self):
        self.assert_told(reports.without(reports.report_text('brief'), 'Tank'), 'brief',
                         'briefdata.xml holds a report without any tank.')

    def test_report_of_the_other_page(self):
        self.assert_told(reports.report_text('detail'), 'brief',
                         'briefdata.xml holds a Detail report, but this page shows Brief reports: '
                         'open summarydisplay.htm instead.')
        self.assert_told(reports.report_text('brief'), 'detail',
                         'summarydata.xml holds a Brief report, but this page shows Summary reports and Detail reports: '
                         'open briefdisplay.htm instead.')

    def test_report_of_a_kind_that_no_page_shows(self):
        text = reports.report_text('brief').replace('<TYPE>Brief</TYPE>', '<TYPE>Draft</TYPE>')
        self.assert_told(text, 'brief', 'briefdata.xml holds a report of the unknown kind “Draft”.')


if __name__ == '__main__':
    unittest.main()
