"""A headless Chromium that opens display pages as a person does: from disk."""

import base64
import shutil
import subprocess
import tempfile
import time

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

OPTIONS = ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
           '--disable-background-networking', '--disable-component-update', '--disable-sync',
           '--window-size=1400,1000']
# Width and height in inches, upright.
PAPERS = {'letter': (8.5, 11), 'a4': (210 / 25.4, 297 / 25.4)}

# The texts of everything that shows a value, without the units behind them.
CELL_TEXTS = """
return Array.from(document.querySelectorAll(arguments[0]), (cell) => {
  const copy = cell.cloneNode(true);
  for (const unit of copy.querySelectorAll('.unit')) unit.remove();
  return copy.textContent.trim();
});
"""


class Browser:
    """`reads_neighbours`: whether a page may read the file beside it, as in the program's own window."""

    def __init__(self, reads_neighbours=True):
        self._profile = tempfile.mkdtemp(prefix='orvex-browser-')
        options = Options()
        for option in [*OPTIONS, f'--user-data-dir={self._profile}']:
            options.add_argument(option)
        if reads_neighbours:
            options.add_argument('--allow-file-access-from-files')
        options.set_capability('goog:loggingPrefs', {'browser': 'ALL'})
        self.driver = webdriver.Chrome(service=Service('/usr/bin/chromedriver'), options=options)
        self.driver.set_script_timeout(120)

    def close(self):
        self.driver.quit()
        shutil.rmtree(self._profile, ignore_errors=True)

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def state(self):
        return self.run('return document.documentElement.dataset.state')

    def wait_for_state(self, seconds=60):
        """The state that the page reaches after loading."""
        end = time.monotonic() + seconds
        while self.state() == 'loading':
            if time.monotonic() > end:
                raise TimeoutError('the page is still loading')
            time.sleep(0.05)
        return self.state()

    def open(self, page):
        self.driver.get('about:blank')  # so that the same page with another report beside it is loaded anew
        self.driver.get(page.as_uri())
        return self.wait_for_state()

    def message(self):
        return self.run('return document.getElementById("message").textContent')

    def text(self):
        # What is off the screen is no part of innerText until it is drawn.
        return self.run('return document.body.textContent')

    def complaints(self):
        """What the browser's console says is wrong."""
        return [entry['message'] for entry in self.driver.get_log('browser') if entry['level'] == 'SEVERE']

    def cells(self, root='main'):
        return self.run(CELL_TEXTS, ', '.join(f'{root} {name}' for name in ('td', 'th', 'dd')))

    def print_pdf(self, path, paper):
        width, height = PAPERS[paper]
        result = self.driver.execute_cdp_cmd('Page.printToPDF', {
            'landscape': True, 'paperWidth': width, 'paperHeight': height, 'printBackground': True})
        path.write_bytes(base64.b64decode(result['data']))


def pages_of(pdf):
    """The text of each page of a PDF file."""
    text = subprocess.run(['pdftotext', '-layout', str(pdf), '-'], check=True, capture_output=True, text=True).stdout
    return text.split('\f')[:-1]


def page_sizes(pdf):
    """Width and height of each page in points."""
    listing = subprocess.run(['pdfinfo', '-f', '1', '-l', '100000', str(pdf)], check=True, capture_output=True,
                             text=True).stdout
    return [tuple(float(line.split()[index]) for index in (3, 5)) for line in listing.splitlines()
            if line.startswith('Page ') and ' size:' in line]
