#!/usr/bin/python3
"""The charts of the display pages, drawn in a headless Chromium from models like those of the report files."""

import pathlib
import shutil
import tempfile
import unittest

from selenium import webdriver

DISPLAY = pathlib.Path(__file__).resolve().parents[2] / 'data' / 'display'
SCRIPTS = ['charts_scale.js', 'charts_draw.js', 'charts.js', 'charts_months.js']
OPTIONS = ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
           '--disable-background-networking', '--disable-component-update', '--disable-sync']
MONTHS = ['January', 'February', 'March', 'April', 'May', 'June', 'July', 'August', 'September', 'October',
          'November', 'December']
FIXED = 'Vertical Fixed Roof Tank'
INTERNAL = 'Internal Floating Roof Tank'
HOSTILE = '<img src=x onerror="window.harmed = true">'

# Draws one chart, puts it on the page and tells what a person would find there. Pieces are told by the boxes that are
# drawn, texts by what is readable, and `outside` lists what leaves the drawing's area.
DRAW = """
document.body.replaceChildren();
const started = performance.now();
const made = orvex.charts[arguments[0]](arguments[1]);
const milliseconds = performance.now() - started;
if (made === null) return null;
document.body.append(made.figure);
const svg = made.figure.querySelector('svg');
const own = (text) => Array.from(text.childNodes, (node) => node.nodeType === 3 ? node.data : '').join('');
const texts = (selector) => Array.from(made.figure.querySelectorAll(selector), own);
const title = (element) => element && element.querySelector(':scope > title') ?
    element.querySelector(':scope > title').textContent : null;
const piece = (group) => {
  const box = group.querySelector('rect');
  return {kind: group.getAttribute('class').split(' ')[1].slice(6), hover: title(group),
          x: box ? Number(box.getAttribute('x')) : null, y: box ? Number(box.getAttribute('y')) : null,
          width: box ? Number(box.getAttribute('width')) : null,
          height: box ? Number(box.getAttribute('height')) : null};
};
const area = svg.viewBox.baseVal;
const outside = Array.from(svg.querySelectorAll('text, rect, path')).filter((shape) => {
  const box = shape.getBBox();
  return box.x < -0.5 || box.y < -0.5 || box.x + box.width > area.width + 0.5 || box.y + box.height > area.height + 0.5;
}).map((shape) => shape.outerHTML.slice(0, 200));
return {
  rows: made.rows, milliseconds, outside, markup: made.figure.outerHTML,
  caption: made.figure.querySelector('figcaption').textContent,
  notes: texts('.chart-note'), legend: texts('.chart-legend text'), ticks: texts('.chart-axis text'),
  bars: Array.from(svg.querySelectorAll('.chart-row'), (row) => ({
    name: own(row.querySelector('.chart-name')), whole: title(row.querySelector('.chart-name')),
    figure: own(row.querySelector('.chart-figure')), pieces: Array.from(row.querySelectorAll('.chart-piece'), piece)})),
  pieces: Array.from(svg.querySelectorAll(':scope > .chart-piece'), piece),
  figures: texts('.chart-figure'),
  lines: Array.from(svg.querySelectorAll('.chart-line'), (line) => line.getAttribute('d')),
  bands: svg.querySelectorAll('.chart-band').length,
  points: Array.from(svg.querySelectorAll('.chart-point'), title).filter((text) => text !== null),
  bold: texts('text[font-weight]'),
  images: made.figure.querySelectorAll('img, script, [onerror], [onload]').length,
  role: svg.getAttribute('role'), harmed: window.harmed === true,
  described: svg.getAttribute('aria-labelledby').split(' ').map((id) => document.getElementById(id).textContent),
  height: made.figure.getBoundingClientRect().height,
};
"""


def component(name, total, primary=True, **losses):
    return {'name': name, 'primary': primary, 'losses': losses, 'total': total}


def tank(name, *components, kind=FIXED):
    return {'name': f'{name}   -   {kind}', 'id': name, 'type': kind, 'components': list(components), 'liquid': [],
            'groups': [], 'detail': None}


def fixed(name, working, breathing, total, liquid='Crude oil'):
    return tank(name, component(liquid, total, WorkingLoss=working, BreathingLoss=breathing))


def report(*tanks, periods=('Annual',), roll_up=None, total=None):
    summary = None
    if roll_up is not None:
        tanks_of_it = [{'id': name, 'loss': loss} for name, loss in roll_up.items()]
        summary = {'months': '', 'total': total, 'tanks': tanks_of_it}
    return {'kind': 'Brief', 'periods': list(periods), 'tanks': list(tanks), 'summary': summary}


def line(label, by_month):
    """A line of the calculation table; months after the last one have no cell, absent ones before it a blank."""
    last = max(by_month)
    return {'label': label, 'cells': [{'column': f'month_{month}', 'text': by_month.get(month, '\u00a0')}
                                      for month in range(1, last + 1)]}


def monthly(*lines, kind=FIXED, liquid=()):
    return dict(tank('T-1', kind=kind), detail={'unit': 'Monthly', 'lines': list(lines), 'fittings': []},
                liquid=list(liquid))


def liquid_row(month, average, low, high, pressure, mixture='Gasoline', bounds=('N/A', 'N/A')):
    return {'MixtureComponent': mixture, 'Month': month, 'AveDailyTemp': average, 'MinDailyTemp': low,
            'MaxDailyTemp': high, 'AvePressure': pressure, 'MinPressure': bounds[0], 'MaxPressure': bounds[1]}


class ChartTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        folder = pathlib.Path(cls.folder.name)
        for name in SCRIPTS + ['charts.css']:
            shutil.copy(DISPLAY / name, folder)
        scripts = ''.join(f'<script src="{name}"></script>' for name in SCRIPTS)
        (folder / 'page.htm').write_text(
            '<!DOCTYPE html><html lang="en"><meta charset="utf-8"><link rel="stylesheet" href="charts.css">'
            '<meta http-equiv="Content-Security-Policy" '
            'content="default-src \'none\'; script-src file:; style-src file:">'
            f'<title>Charts</title><body>{scripts}</body></html>', encoding='utf-8')
        options = webdriver.ChromeOptions()
        options.binary_location = '/usr/bin/chromium'
        for option in OPTIONS + [f'--user-data-dir={folder / "profile"}', '--window-size=1200,900']:
            options.add_argument(option)
        options.set_capability('goog:loggingPrefs', {'browser': 'ALL'})
        cls.browser = webdriver.Chrome(service=webdriver.chrome.service.Service('/usr/bin/chromedriver'),
                                       options=options)
        cls.addClassCleanup(cls.browser.quit)

    def setUp(self):
        self.browser.get((pathlib.Path(self.folder.name) / 'page.htm').as_uri())

    def tearDown(self):
        self.assertEqual([], [entry['message'] for entry in self.browser.get_log('browser')])

    def draw(self, chart, argument):
        drawn = self.browser.execute_script(DRAW, chart, argument)
        if drawn is not None:
            self.assertEqual([], drawn['outside'])
            self.assertNotRegex(drawn['markup'], r'NaN|Infinity|undefined|\[object')
        return drawn

    def widths(self, bar):
        return [piece['width'] for piece in bar['pieces']]


class LossesByTank(ChartTest):
    def draw(self, *tanks, **more):
        return super().draw('lossesByTank', report(*tanks, **more))

    def test_the_largest_tank_comes_first_with_its_figure_as_it_stands_in_the_report(self):
        drawn = self.draw(fixed('A', '300.00', '50.25', '350.25'), fixed('B', '8,068.35', '3,679.94', '11,748.29'),
                          fixed('C', '1.00', '0.00', '1.00'))
        self.assertEqual(['B', 'A', 'C'], [bar['name'] for bar in drawn['bars']])
        self.assertEqual(['11,748.29', '350.25', '1.00'], [bar['figure'] for bar in drawn['bars']])
        self.assertEqual(['B', 'A', 'C'], [row['name'] for row in drawn['rows']])
        self.assertEqual([11748.29, 350.25, 1.0], [row['total'] for row in drawn['rows']])

    def test_equal_tanks_keep_the_order_of_the_report(self):
        drawn = self.draw(fixed('B', '5.00', '0.00', '5.00'), fixed('A', '5.00', '0.00', '5.00'))
        self.assertEqual(['B', 'A'], [bar['name'] for bar in drawn['bars']])

    def test_the_total_of_the_roll_up_goes_before_the_sum_of_the_lines(self):
        # The lines round 0.004 + 0.004 to 0.00 each; the roll-up has added first.
        two = tank('A', component('X', '0.00', WorkingLoss='0.00', BreathingLoss='0.00'),
                   component('Y', '0.00', WorkingLoss='0.00', BreathingLoss='0.00'))
        drawn = self.draw(two, fixed('B', '2.00', '1.00', '3.00'), roll_up={'A': '0.01', 'B': '3.00'}, total='3.01')
        self.assertEqual(['3.00', '0.01'], [bar['figure'] for bar in drawn['bars']])
        self.assertIn('2 tanks, 3.01 in all', drawn['caption'])

    def test_mixtures_of_a_tank_are_added_from_the_displayed_figures_and_components_are_not(self):
        # 0.10 + 0.20 = 0.30 working, 1,000.05 + 0.05 = 1,000.10 breathing, 1,000.15 + 0.25 = 1,000.40 in all.
        drawn = self.draw(tank(
            'A', component('X', '1,000.15', WorkingLoss='0.10', BreathingLoss='1,000.05'),
            component('Benzene', '500.00', primary=False, WorkingLoss='0.05', BreathingLoss='499.95'),
            component('Y', '0.25', WorkingLoss='0.20', BreathingLoss='0.05')))
        [row] = drawn['rows']
        self.assertEqual('1,000.40', row['text'])
        self.assertEqual([('working', '0.30', 0.3), ('breathing', '1,000.10', 1000.1)],
                         [(kind['key'], kind['text'], kind['amount']) for kind in row['kinds']])

    def test_a_bar_is_stacked_from_its_kinds_in_proportion(self):
        drawn = self.draw(
            fixed('V', '600.00', '200.00', '800.00'),
            tank('I', component('Gasoline', '400.00', RimSealLoss='40.00', WithdrawlLoss='60.00',
                                DeckFittingLoss='200.00', DeckSeamLoss='100.00'), kind=INTERNAL))
        vertical, internal = drawn['bars']
        self.assertEqual(['working', 'breathing'], [piece['kind'] for piece in vertical['pieces']])
        self.assertEqual(['rim-seal', 'withdrawal', 'deck-fitting', 'deck-seam'],
                         [piece['kind'] for piece in internal['pieces']])
        unit = sum(self.widths(vertical)) / 800
        for width, amount in zip(self.widths(vertical) + self.widths(internal), [600, 200, 40, 60, 200, 100]):
            self.assertAlmostEqual(width, amount * unit, delta=1)
        self.assertEqual('I, deck seam: 100.00 lb/yr', internal['pieces'][3]['hover'])

    def test_the_legend_names_the_kinds_that_occur(self):
        drawn = self.draw(tank('I', component('Gasoline', '3.00', RimSealLoss='1.00', WithdrawlLoss='2.00',
                                              DeckFittingLoss='0.00', DeckSeamLoss='0.00'), kind=INTERNAL))
        self.assertEqual(['Rim seal', 'Withdrawal'], drawn['legend'])

    def test_the_axis_has_round_ticks_and_the_unit_of_the_period(self):
        tanks = [fixed('A', '61,558.26', '0.00', '61,558.26'), fixed('B', '20.70', '0.00', '20.70')]
        drawn = self.draw(*tanks)
        self.assertEqual(['0', '20,000', '40,000', '60,000', 'lb/yr'], drawn['ticks'])
        self.assertIn('pounds a year', drawn['caption'])
        drawn = self.draw(*tanks, periods=['January', 'March'])
        self.assertEqual('lb', drawn['ticks'][-1])
        self.assertIn('pounds, January, March', drawn['caption'])
        self.assertIn('pounds, January to December', self.draw(*tanks, periods=MONTHS)['caption'])

    def test_beyond_25_tanks_the_others_are_one_bar(self):
        # Tanks of 1.00 to 28.00 lb: the three smallest, 1 + 2 + 3 = 6, are the others.
        drawn = self.draw(*[fixed(f'T-{size}', f'{size}.00', '0.00', f'{size}.00') for size in range(1, 29)])
        self.assertEqual(26, len(drawn['bars']))
        self.assertEqual(('T-28', 'T-4'), (drawn['bars'][0]['name'], drawn['bars'][24]['name']))
        last = drawn['bars'][25]
        self.assertEqual(('and 3 more tanks', '6.00 lb', 'and 3 more tanks: 6.00 lb'),
                         (last['name'], last['figure'], last['whole']))
        self.assertEqual([('working', '6.00'), ('breathing', '0.00')],
                         [(kind['key'], kind['text']) for kind in drawn['rows'][25]['kinds']])
        self.assertEqual([], drawn['notes'])

    def test_a_26th_tank_keeps_its_own_bar_since_it_takes_no_more_room(self):
        drawn = self.draw(*[fixed(f'T-{size}', f'{size}.00', '0.00', f'{size}.00') for size in range(1, 27)])
        self.assertEqual('T-1', drawn['bars'][25]['name'])

    def test_others_that_outweigh_every_tank_do_not_flatten_the_bars(self):
        drawn = self.draw(*[fixed(f'T-{index}', '10.00', '0.00', '10.00') for index in range(100)])
        self.assertEqual('750.00 lb', drawn['bars'][25]['figure'])
        self.assertGreater(self.widths(drawn['bars'][0])[0], 600)
        self.assertEqual(['The last bar is cut short; its figure is that of all the tanks it stands for.'],
                         drawn['notes'])

    def test_2000_tanks_are_drawn_at_once(self):
        # Sum of the 1,975 smallest of 1.37 i, i = 0 to 1,999: 1.37 * 1,974 * 1,975 / 2 = 2,670,575.25 (i = 0 to 1,974).
        tanks = [fixed(f'T-{index}', f'{1.37 * index:.2f}', '0.00', f'{1.37 * index:,.2f}') for index in range(2000)]
        drawn = self.draw(*tanks)
        self.assertEqual('and 1,975 more tanks', drawn['bars'][25]['name'])
        self.assertEqual('2,670,575.25 lb', drawn['bars'][25]['figure'])
        self.assertLess(drawn['milliseconds'], 1000)

    def test_an_inventory_without_losses_shows_its_zeros(self):
        drawn = self.draw(fixed('A', '0.00', '0.00', '0.00'), fixed('B', '0.00', '0.00', '0.00'))
        self.assertEqual(['0.00', '0.00'], [bar['figure'] for bar in drawn['bars']])
        self.assertEqual([[], []], [bar['pieces'] for bar in drawn['bars']])
        self.assertEqual(['0', 'lb/yr'], drawn['ticks'])

    def test_a_single_tank_fills_the_width(self):
        [bar] = self.draw(fixed('A', '8,068.35', '3,679.94', '11,748.29'))['bars']
        self.assertGreater(sum(self.widths(bar)), 800)

    def test_there_is_no_chart_of_no_tanks(self):
        self.assertIsNone(self.draw())
        self.assertIsNone(self.draw(tank('A')))

    def test_a_tank_without_lines_is_left_out(self):
        drawn = self.draw(tank('A'), fixed('B', '1.00', '1.00', '2.00'))
        self.assertEqual(['B'], [bar['name'] for bar in drawn['bars']])

    def test_figures_below_zero_or_unreadable_are_written_but_not_drawn(self):
        drawn = self.draw(fixed('N', '-1.00', '-1.00', '-2.00'), fixed('U', 'n/a', '\u00a0', 'n/a'),
                          fixed('A', '5.00', '-1.00', '4.00'), fixed('E', '', '', ''))
        self.assertEqual([('A', '4.00'), ('N', '-2.00'), ('U', 'n/a'), ('E', '')],
                         [(bar['name'], bar['figure']) for bar in drawn['bars']])
        self.assertEqual([1, 0, 0, 0], [len(bar['pieces']) for bar in drawn['bars']])
        self.assertEqual(['A figure that is below zero or not a number is written, not drawn.'], drawn['notes'])

    def test_large_figures_get_a_large_unit_on_the_axis_and_stay_whole_at_the_bar(self):
        drawn = self.draw(fixed('A', '7,500,000.00', '1.25', '7,500,001.25'))
        self.assertEqual(['0', '2', '4', '6', 'million lb/yr'], drawn['ticks'])
        self.assertEqual('7,500,001.25', drawn['bars'][0]['figure'])

    def test_a_figure_of_sixty_digits_stays_in_its_place(self):
        drawn = self.draw(fixed('A', '9' * 60, '0.00', '9' * 60), fixed('B', '9' * 400, '0.00', '9' * 400))
        self.assertTrue(drawn['bars'][0]['figure'].endswith('…'))
        self.assertGreater(self.widths(drawn['bars'][0])[0], 300)
        self.assertEqual([], drawn['bars'][1]['pieces'])

    def test_small_figures_get_ticks_of_their_own(self):
        drawn = self.draw(fixed('A', '0.03', '0.01', '0.04'))
        self.assertEqual(['0', '0.01', '0.02', '0.03', '0.04', 'lb/yr'], drawn['ticks'])

    def test_names_are_text_whatever_they_hold(self):
        drawn = self.draw(fixed(HOSTILE, '5.00', '0.00', '5.00'), fixed('</text><script>window.harmed = true</script>',
                                                                         '4.00', '0.00', '4.00'))
        self.assertTrue(drawn['bars'][0]['whole'].startswith(HOSTILE))
        self.assertEqual(0, drawn['images'])
        self.browser.execute_async_script('setTimeout(arguments[0], 100)')
        self.assertFalse(self.browser.execute_script('return window.harmed === true'))

    def test_a_long_name_is_cut_and_whole_in_its_title(self):
        name = 'Tank of the northern field ' * 40
        bar = self.draw(fixed(name, '5.00', '0.00', '5.00'))['bars'][0]
        self.assertTrue(bar['name'].startswith('Tank of the northern') and bar['name'].endswith('…'))
        self.assertIn(name.strip(), bar['whole'])

    def test_a_screen_reader_hears_what_the_chart_shows(self):
        drawn = self.draw(fixed('A', '300.00', '50.25', '350.25'), fixed('B', '1.00', '0.00', '1.00'))
        self.assertEqual('img', drawn['role'])
        self.assertEqual(['Losses by tank and kind of loss, lb/yr',
                          '2 tanks, largest first: A 350.25 lb/yr; B 1.00 lb/yr.'], drawn['described'])

    def test_two_charts_on_a_page_have_ids_of_their_own(self):
        ids = self.browser.execute_script(
            'for (const time of [1, 2]) document.body.append(orvex.charts.lossesByTank(arguments[0]).figure);'
            'return Array.from(document.querySelectorAll("[id]"), (each) => each.id)',
            report(fixed('A', '1.00', '0.00', '1.00')))
        self.assertEqual(4, len(ids))
        self.assertEqual(4, len(set(ids)))

    def test_the_longest_chart_fits_a_landscape_sheet(self):
        # A sheet gives 10 by 6.5 inches, 960 by 624 pixels.
        drawn = self.draw(*[fixed(f'T-{index}', '10.00', '-1.00', '10.00') for index in range(100)])
        self.assertLessEqual(drawn['height'], 624)


class LossesByChemical(ChartTest):
    def draw(self, *tanks, **more):
        return super().draw('lossesByChemical', report(*tanks, **more))

    def test_components_count_for_their_mixture_and_a_mixture_without_any_for_itself(self):
        drawn = self.draw(
            tank('A', component('Methyl alcohol', '7.00'), component('Naphtha', '100.00'),
                 component('Toluene', '60.25', primary=False), component('Benzene', '39.75', primary=False),
                 component('Crude oil', '9.00')))
        self.assertEqual(
            [('Toluene', '60.25'), ('Benzene', '39.75'), ('Crude oil', '9.00'), ('Methyl alcohol', '7.00')],
            [(bar['name'], bar['figure']) for bar in drawn['bars']])

    def test_a_chemical_of_several_tanks_is_added_from_the_displayed_figures(self):
        # 6,554.14 + 0.57 + 1,570.66 = 8,125.37
        drawn = self.draw(tank('A', component('Extract', '9,000.00'), component('Benzene', '6,554.14', primary=False)),
                          tank('B', component('Oil', '40.00'), component('Benzene', '0.57', primary=False)),
                          tank('C', component('Benzene', '1,570.66')))
        [row] = drawn['rows']
        self.assertEqual(('Benzene', '8,125.37', 8125.37, 3), (row['name'], row['text'], row['total'], row['tanks']))
        self.assertEqual('8,125.37', drawn['bars'][0]['figure'])

    def test_beyond_20_chemicals_the_others_are_one_bar(self):
        # 22 chemicals of 1.10 to 22.10 lb: the two smallest, 1.10 + 2.10 = 3.20, are the others.
        drawn = self.draw(tank('A', *[component(f'C-{size}', f'{size}.10') for size in range(1, 23)]))
        self.assertEqual(21, len(drawn['bars']))
        self.assertEqual(('and 2 more chemicals', '3.20 lb'), (drawn['bars'][20]['name'], drawn['bars'][20]['figure']))

    def test_the_part_that_no_component_accounts_for_is_not_coloured_as_a_chemical(self):
        drawn = self.draw(tank('A', component('Oil', '9.00'),
                               component('Unidentified Components', '8.00', primary=False),
                               component('Benzene', '1.00', primary=False)))
        self.assertEqual(['rest', 'chemical'], [bar['pieces'][0]['kind'] for bar in drawn['bars']])

    def test_unreadable_figures_do_not_spoil_a_sum(self):
        drawn = self.draw(tank('A', component('X', '1.00')), tank('B', component('X', 'n/a')),
                          tank('C', component('Y', 'n/a')), tank('D', component('Z', '-1.00')))
        self.assertEqual([('X', '1.00'), ('Z', '-1.00'), ('Y', 'n/a')],
                         [(bar['name'], bar['figure']) for bar in drawn['bars']])

    def test_names_are_text_whatever_they_hold(self):
        drawn = self.draw(tank('A', component(HOSTILE * 20, '5.00'), component('__proto__', '4.00'),
                               component('constructor', '3.00'), component('', '2.00')))
        self.assertEqual(['__proto__', 'constructor', '(no name)'], [bar['name'] for bar in drawn['bars'][1:]])
        self.assertTrue(drawn['bars'][0]['whole'].startswith(HOSTILE))
        self.assertEqual((0, False), (drawn['images'], drawn['harmed']))

    def test_there_is_no_chart_of_nothing(self):
        self.assertIsNone(self.draw())


class MonthlyLosses(ChartTest):
    def draw(self, *lines, **more):
        return super().draw('monthlyCourse', monthly(*lines, **more))

    def test_each_month_is_a_column_of_its_kinds_with_the_total_of_the_table(self):
        drawn = self.draw(line('Standing Losses (lb):', {1: '100.0000', 2: '150.5000'}),
                          line('\u00a0\u00a0\u00a0Vapor Density (lb/cu ft):', {1: '0.1000', 2: '0.2000'}),
                          line('Working Losses (lb):', {1: '300.0000', 2: '300.0000'}),
                          line('Total Losses (lb):', {1: '400.0000', 2: '450.5000'}))
        self.assertEqual(['400.0000', '450.5000'], drawn['figures'])
        self.assertEqual(['Working', 'Standing'], drawn['legend'])
        self.assertEqual(['working', 'breathing'] * 2, [piece['kind'] for piece in drawn['pieces']])
        january = drawn['pieces'][:2]
        self.assertAlmostEqual(january[0]['height'] / january[1]['height'], 3, delta=0.1)
        self.assertLess(january[1]['y'], january[0]['y'])
        self.assertEqual('T-1, January, standing: 100.0000 lb', january[1]['hover'])
        self.assertEqual([('January', '400.0000'), ('February', '450.5000')],
                         [(row['month'], row['text']) for row in drawn['rows']])

    def test_absent_months_stay_blank(self):
        drawn = self.draw(line('Working Losses (lb):', {3: '1.0000', 11: '2.0000'}),
                          line('Total Losses (lb):', {3: '1.0000', 11: '2.0000'}))
        self.assertEqual(['March', 'November'], [row['month'] for row in drawn['rows']])
        self.assertEqual([month[:3] for month in MONTHS], drawn['ticks'][-12:])
        march, november = drawn['pieces']
        pitch = (november['x'] - march['x']) / 8
        self.assertAlmostEqual(pitch, 76, delta=6)

    def test_floating_roofs_stack_four_kinds_under_the_names_of_the_table(self):
        lines = [line(label, {1: '1.0000', 2: '2.0000'}) for label in [
            'Rim Seal Losses (lb):', 'Withdrawal Losses (lb):', 'Roof Fitting Losses (lb):', 'Total Losses (lb):']]
        self.assertEqual(['Rim seal', 'Withdrawal', 'Roof fitting'], self.draw(*lines)['legend'])
        lines = [line(label, {1: '1.0000', 2: '2.0000'}) for label in [
            'Rim Seal Losses (lb):', 'Withdrawal Losses (lb):', 'Deck Fitting Losses (lb):', 'Deck Seam Losses (lb):',
            'Total Losses (lb):']]
        self.assertEqual(['Rim seal', 'Withdrawal', 'Deck fitting', 'Deck seam'], self.draw(*lines)['legend'])

    def test_an_underground_tank_has_no_standing_losses(self):
        drawn = self.draw(line('No Standing Losses:  Underground Tank', {1: '\u00a0', 2: '\u00a0'}),
                          line('Working Losses (lb):', {1: '5.0000', 2: '6.0000'}),
                          line('Total Losses (lb):', {1: '5.0000', 2: '6.0000'}))
        self.assertEqual(['Working'], drawn['legend'])

    def test_twelve_long_figures_share_the_width(self):
        months = {month: f'{12345678 + month:,}.1234' for month in range(1, 13)}
        drawn = self.draw(line('Working Losses (lb):', months), line('Total Losses (lb):', months))
        self.assertEqual('million lb', self.browser.execute_script(
            'return document.querySelector(".chart-unit").textContent'))
        overlaps = self.browser.execute_script(
            'const boxes = Array.from(document.querySelectorAll(".chart-figure"), (text) => text.getBBox());'
            'return boxes.slice(1).filter((box, index) => box.x < boxes[index].x + boxes[index].width).length')
        self.assertEqual(0, overlaps)
        self.assertEqual(12, len(drawn['rows']))

    def test_months_that_the_table_leaves_out_are_told(self):
        # Two mixtures in January: the table's walk stays at January, so that February has no figures there.
        rows = [liquid_row(month, '60.00', '50.00', '70.00', '1.0000', mixture=name)
                for month in ['Jan', 'Feb', 'Mar'] for name in ['X', 'Y']]
        figures = {1: '1.0000', 2: '2.0000'}
        drawn = self.draw(line('Working Losses (lb):', figures), line('Total Losses (lb):', figures), liquid=rows)
        self.assertEqual(['The calculation table holds no figures for the months that are blank here.'], drawn['notes'])

    def test_figures_below_zero_or_unreadable_are_written_but_not_drawn(self):
        drawn = self.draw(line('Working Losses (lb):', {1: '-1.0000', 2: 'n/a', 3: '2.0000'}),
                          line('Total Losses (lb):', {1: '-1.0000', 2: 'n/a', 3: '2.0000'}))
        self.assertEqual(['-1.0000', 'n/a', '2.0000'], drawn['figures'])
        self.assertEqual(1, len(drawn['pieces']))
        self.assertEqual(['A figure that is below zero or not a number is written, not drawn.'], drawn['notes'])

    def test_zeros_all_over_draw_no_column(self):
        zeros = {month: '0.0000' for month in range(1, 13)}
        drawn = self.draw(line('Working Losses (lb):', zeros), line('Total Losses (lb):', zeros))
        self.assertEqual(['0.0000'] * 12, drawn['figures'])
        self.assertEqual([], drawn['pieces'])

    def test_a_single_month_or_a_year_has_no_course(self):
        self.assertIsNone(self.draw(line('Total Losses (lb):', {4: '1.0000'})))
        year = {'label': 'Total Losses (lb):', 'cells': [{'column': 'month_0', 'text': '1.0000'}]}
        self.assertIsNone(self.draw(year))


class LiquidByMonth(ChartTest):
    def draw(self, *rows):
        return super().draw('monthlyCourse', dict(tank('T-1'), liquid=list(rows)))

    def test_temperature_and_pressure_run_over_the_months_with_their_bands(self):
        drawn = self.draw(liquid_row('Jan', '50.10', '45.00', '55.00', '1.1000', bounds=('1.0000', '1.2000')),
                          liquid_row('Feb', '60.20', '52.00', '66.00', '1.4000', bounds=('1.2000', '1.7000')))
        self.assertEqual(['Liquid surface temperature, deg F', 'Vapor pressure, psia'], drawn['bold'])
        self.assertEqual((2, 2), (len(drawn['lines']), drawn['bands']))
        self.assertEqual(['50.10', '60.20', '1.1000', '1.4000'], drawn['figures'])
        self.assertEqual('Gasoline, January: 50.10 (45.00 to 55.00) deg F', drawn['points'][0])
        self.assertEqual(('Gasoline', 'January', 50.1, '50.10'), (
            drawn['rows'][0]['mixture'], drawn['rows'][0]['month'], drawn['rows'][0]['temperature']['average'],
            drawn['rows'][0]['temperature']['text']))

    def test_bounds_that_the_report_does_not_know_draw_no_band(self):
        # 0 degrees Rankine, which is how a temperature that was never computed is stored, shows as -459.67.
        drawn = self.draw(liquid_row('Jan', '50.00', '-459.67', '-459.67', '1.1000'),
                          liquid_row('Feb', '60.00', '-459.67', '-459.67', '1.4000'))
        self.assertEqual(0, drawn['bands'])
        self.assertNotIn('-400', drawn['ticks'])

    def test_a_month_without_a_figure_interrupts_the_line(self):
        drawn = self.draw(*[liquid_row(month, '60.00', '50.00', '70.00', pressure)
                            for month, pressure in [('Jan', '1.0000'), ('Feb', '\u00a0'), ('Mar', '1.0000')]])
        self.assertEqual([True, False, False], ['L' in each for each in drawn['lines']])

    def test_components_and_the_year_are_not_months(self):
        rows = [liquid_row('Jan', '50.00', '45.00', '55.00', '1.1000'),
                liquid_row('\u00a0', '\u00a0', '\u00a0', '\u00a0', '0.5000', mixture='\u00a0\u00a0Benzene'),
                liquid_row('Feb', '60.00', '52.00', '66.00', '1.4000')]
        self.assertEqual(['Gasoline', 'Gasoline'], [row['mixture'] for row in self.draw(*rows)['rows']])
        self.assertIsNone(self.draw(liquid_row('All', '50.00', '45.00', '55.00', '1.1000')))
        self.assertIsNone(self.draw(liquid_row('May', '50.00', '45.00', '55.00', '1.1000')))

    def test_mixtures_have_lines_of_their_own_and_a_legend(self):
        rows = [liquid_row('Jan', '50.00', '45.00', '55.00', '6.0000', mixture='Winter grade'),
                liquid_row('Feb', '52.00', '46.00', '58.00', '6.1000', mixture='Winter grade'),
                liquid_row('Mar', '60.00', '52.00', '66.00', '4.0000', mixture=HOSTILE * 9)]
        drawn = self.draw(*rows)
        self.assertIn('Winter grade', drawn['markup'])
        self.assertIn('…', drawn['markup'])
        self.assertEqual((0, False), (drawn['images'], drawn['harmed']))
        self.assertEqual(2 * 3, len(drawn['points']))

    def test_a_fifth_mixture_is_left_to_the_table(self):
        rows = [liquid_row(month, '60.00', '50.00', '70.00', '1.0000', mixture=f'Mixture {index}')
                for month in ['Jan', 'Feb'] for index in range(6)]
        drawn = self.draw(*rows)
        self.assertEqual(['2 more of the tank’s mixtures stand in the table alone.'], drawn['notes'])
        self.assertEqual(2 * 2 * 4, len(drawn['points']))

    def test_a_figure_of_sixty_digits_stays_in_its_place(self):
        drawn = self.draw(liquid_row('Jan', '-5.00', '-6.00', '-4.00', '9' * 60),
                          liquid_row('Feb', '9' * 60, '', '', '0'))
        self.assertEqual(4, len(drawn['points']))

    def test_rows_without_figures_are_no_chart(self):
        self.assertIsNone(self.draw(liquid_row('Jan', 'n/a', '', '', '\u00a0'),
                                    liquid_row('Feb', 'n/a', '', '', '\u00a0')))


class Colours(ChartTest):
    def luminances(self, **media):
        """Relative luminance of each kind's colour, in the order of stacking."""
        self.browser.execute_cdp_cmd('Emulation.setEmulatedMedia', media)
        self.addCleanup(self.browser.execute_cdp_cmd, 'Emulation.setEmulatedMedia', {})
        kinds = ['WorkingLoss', 'BreathingLoss', 'RimSealLoss', 'WithdrawlLoss', 'DeckFittingLoss', 'DeckSeamLoss']
        losses = {kind: '1.00' for kind in kinds}
        fills = self.browser.execute_script(
            'document.body.replaceChildren(orvex.charts.lossesByTank(arguments[0]).figure);'
            'return Array.from(document.querySelectorAll(".chart-row rect"), (box) => getComputedStyle(box).fill)',
            report(tank('A', component('X', '6.00', **losses))))
        self.assertEqual(6, len(fills))

        def linear(channel):
            channel = int(channel) / 255
            return channel / 12.92 if channel <= 0.03928 else ((channel + 0.055) / 1.055) ** 2.4

        colours = [[linear(channel) for channel in fill[4:-1].split(',')] for fill in fills]
        return [0.2126 * red + 0.7152 * green + 0.0722 * blue for red, green, blue in colours]

    def test_neighbours_in_a_bar_differ_in_lightness(self):
        for theme in ['light', 'dark']:
            found = self.luminances(features=[{'name': 'prefers-color-scheme', 'value': theme}])
            for one, other in [(0, 1), (2, 3), (3, 4), (4, 5)]:
                contrast = (max(found[one], found[other]) + 0.05) / (min(found[one], found[other]) + 0.05)
                self.assertGreater(contrast, 1.7, f'{theme}: kinds {one} and {other}')

    def test_paper_gets_the_colours_of_the_light_page(self):
        light = self.luminances(features=[{'name': 'prefers-color-scheme', 'value': 'light'}])
        dark = self.luminances(features=[{'name': 'prefers-color-scheme', 'value': 'dark'}])
        paper = self.luminances(media='print', features=[{'name': 'prefers-color-scheme', 'value': 'dark'}])
        self.assertNotEqual(light, dark)
        self.assertEqual(light, paper)


del ChartTest

if __name__ == '__main__':
    unittest.main()
