"""Tests that open report pages in one browser."""

import unittest

import browser
import reports


class ReportCase(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = browser.Browser()
        cls.addClassCleanup(cls.browser.close)

    def open(self, text, kind):
        """Shows this report file on the page of its kind."""
        self.assertEqual(self.browser.open(reports.page_with(text, kind)), 'ready')
