'use strict';

// The course of one tank over the months: its losses from the calculation table, or, where the report has none, its
// liquid's temperature and vapor pressure.
(function (orvex) {
  const { trimmed, amountOf, isDrawable, axisOf, textWidth, fitted } = orvex.chartScale;
  const { KINDS, WIDTH, TEXT, SMALL, short, element, label, kindBox, legend, figureOf } = orvex.chartDraw;

  const MONTHS = ['January', 'February', 'March', 'April', 'May', 'June', 'July', 'August', 'September', 'October', 'November', 'December'];
  const SHORT_MONTHS = MONTHS.map((month) => month.slice(0, 3));

  // The lines of the calculation table that hold a loss, by their labels, and the kind of loss that each one is.
  const LOSS_LINES = new Map([
    ['Standing Losses (lb):', { key: 'breathing', name: 'Standing' }],
    ['Working Losses (lb):', { key: 'working' }],
    ['Rim Seal Losses (lb):', { key: 'rim-seal' }],
    ['Withdrawal Losses (lb):', { key: 'withdrawal' }],
    ['Roof Fitting Losses (lb):', { key: 'deck-fitting', name: 'Roof fitting' }],
    ['Deck Fitting Losses (lb):', { key: 'deck-fitting' }],
    ['Deck Seam Losses (lb):', { key: 'deck-seam' }],
  ]);
  const TOTAL_LINE = 'Total Losses (lb):';

  // What the rows of the liquid contents show over the months: the mean, and between which bounds a day moves.
  const COURSES = [
    {
      key: 'temperature',
      name: 'Liquid surface temperature',
      unit: 'deg F',
      average: 'AveDailyTemp',
      low: 'MinDailyTemp',
      high: 'MaxDailyTemp',
      // A bound that was never computed is stored as 0 degrees Rankine, which no liquid has.
      least: -459.6,
      fromZero: false,
    },
    {
      key: 'pressure',
      name: 'Vapor pressure',
      unit: 'psia',
      average: 'AvePressure',
      low: 'MinPressure',
      high: 'MaxPressure',
      least: 0,
      fromZero: true,
    },
  ];

  // Mixtures stay apart by dash and point as well as by colour; more than these are left to the table.
  const SERIES = ['chart-series-1', 'chart-series-2', 'chart-series-3', 'chart-series-4'];

  const PLOT_HEIGHT = 210;
  const COURSE_HEIGHT = 170;
  const GUTTER = 56; // between the two courses that stand side by side

  function tankName(tank) {
    return trimmed(tank.id) || trimmed(tank.name);
  }

  // The cells of a line by month, January first; '' for a month without one.
  function monthCells(line) {
    const texts = MONTHS.map(() => '');
    for (const cell of line.cells || []) {
      const month = /^month_(\d+)$/.exec(cell.column);
      if (month && Number(month[1]) >= 1 && Number(month[1]) <= 12) {
        texts[Number(month[1]) - 1] = trimmed(cell.text);
      }
    }
    return texts;
  }

  function lossRows(tank) {
    const kinds = [];
    let totals = MONTHS.map(() => '');
    for (const line of (tank.detail && tank.detail.lines) || []) {
      const name = trimmed(line.label);
      if (name === TOTAL_LINE) {
        totals = monthCells(line);
      } else if (LOSS_LINES.has(name)) {
        const kind = KINDS.find((each) => each.key === LOSS_LINES.get(name).key);
        kinds.push({ ...kind, name: LOSS_LINES.get(name).name || kind.name, texts: monthCells(line) });
      }
    }
    kinds.sort((left, right) => KINDS.findIndex((kind) => kind.key === left.key) - KINDS.findIndex((kind) => kind.key === right.key));
    const rows = MONTHS.map((month, index) => ({
      month,
      kinds: kinds
        .map((kind) => ({ key: kind.key, label: kind.name, amount: amountOf(kind.texts[index]), text: kind.texts[index] }))
        .filter((kind) => kind.text !== ''),
      total: amountOf(totals[index]),
      text: totals[index],
    })).filter((row) => row.kinds.length > 0 || row.text !== '');
    return { kinds, rows };
  }

  // A level line from `left` to `right`, interrupted where a figure stands.
  function gridLine(y, left, right, figures) {
    const crossed = figures.filter((box) => box.top < y && y < box.bottom).sort((one, other) => one.left - other.left);
    let path = '';
    let from = left;
    for (const box of crossed) {
      path += box.left > from ? 'M' + short(from) + ' ' + short(y) + 'H' + short(box.left) : '';
      from = Math.max(from, box.right);
    }
    return path + (right > from ? 'M' + short(from) + ' ' + short(y) + 'H' + short(right) : '');
  }

  // A figure in the middle of `x`, `y`, and the box that it takes up.
  function figureAt(parent, x, y, text, size, hover) {
    label(parent, x, y, text, { 'text-anchor': 'middle', 'font-size': size, class: 'chart-figure' }, hover);
    const half = textWidth(text, size) / 2 + 3;
    return { left: x - half, right: x + half, top: y - size / 2 - 1, bottom: y + size / 2 + 1 };
  }

  /**
   * The ticks' figures at the left and the months below: {scale, pitch, centers, rule}. `rule(figures)` draws the grid
   * behind everything once it is known where the figures stand.
   */
  function monthFrame(svg, axis, left, right, top, bottom) {
    const scale = (amount) => bottom - ((bottom - top) * (amount - axis.low)) / (axis.high - axis.low);
    const pitch = (right - left) / 12;
    const grid = element(svg, 'g', { class: 'chart-grid' });
    const ticks = element(svg, 'g', { class: 'chart-axis' });
    for (const tick of axis.ticks) {
      label(ticks, left - 8, scale(tick.value), tick.text, { 'text-anchor': 'end', 'font-size': SMALL });
    }
    const centers = MONTHS.map((month, index) => left + (index + 0.5) * pitch);
    SHORT_MONTHS.forEach((month, index) => {
      label(ticks, centers[index], bottom + 14, month, { 'text-anchor': 'middle', 'font-size': SMALL });
    });
    const rule = (figures) => {
      for (const y of axis.ticks.map((tick) => scale(tick.value))) {
        element(grid, 'path', { class: y === bottom ? 'chart-zero' : 'chart-tick', d: gridLine(y, left, right, figures) });
      }
    };
    return { scale, pitch, centers, rule };
  }

  function tickWidth(axis) {
    return Math.max(...axis.ticks.map((tick) => textWidth(tick.text, SMALL)));
  }

  function lossCourse(tank, kinds, rows) {
    const heights = rows.map((row) => row.kinds.reduce((sum, kind) => sum + Math.max(0, kind.amount || 0), 0));
    const axis = axisOf(0, Math.max(...heights), 'lb', { count: 5, widen: true });
    const left = Math.ceil(Math.max(tickWidth(axis), textWidth(axis.unit, SMALL))) + 12;
    const legendGroup = element(null, 'g', { class: 'chart-legend' });
    const drawn = kinds.filter((kind) => rows.some((row) => row.kinds.some((each) => each.key === kind.key && each.amount > 0)));
    const top = legend(legendGroup, drawn, left, WIDTH, 0) + 20;
    const bottom = top + PLOT_HEIGHT;
    const name = tankName(tank);
    const notes = [];
    if (rows.some((row) => row.kinds.some((kind) => !isDrawable(kind.amount)) || (row.text !== '' && !isDrawable(row.total)))) {
      notes.push('A figure that is below zero or not a number is written, not drawn.');
    }
    const { figure, svg } = figureOf({
      heading: 'Losses by month',
      detail: name,
      name: 'Losses by month of ' + name + ', lb',
      description: rows.map((row) => row.month + ' ' + (row.text || '-')).join('; ') + '.',
      height: bottom + 26,
      notes,
      style: 'chart-months',
    });
    svg.appendChild(legendGroup);
    const { scale, pitch, centers, rule } = monthFrame(svg, axis, left, WIDTH, top, bottom);
    label(svg, left - 8, top - 14, axis.unit, { 'text-anchor': 'end', 'font-size': SMALL, class: 'chart-unit' });

    const width = Math.round(pitch * 0.6);
    // Twelve figures of four decimals share the width: all of them are set smaller where one would not fit.
    const widest = Math.max(...rows.map((row) => textWidth(row.text.slice(0, 200), SMALL)));
    const size = Math.max(8, Math.min(SMALL, (SMALL * (pitch - 4)) / widest));
    const figures = rows.map((row) => {
      const center = centers[MONTHS.indexOf(row.month)];
      let y = bottom;
      for (const kind of row.kinds.filter((each) => each.amount > 0)) {
        const height = bottom - scale(kind.amount);
        y -= height;
        const gap = height > 2 ? 0.75 : 0;
        kindBox(svg, kinds.find((each) => each.key === kind.key), center - width / 2, y + gap, width, height - gap, name + ', ' + row.month + ', ' + kind.label.toLowerCase() + ': ' + kind.text + ' lb');
      }
      return figureAt(svg, center, y - 9, fitted(row.text, pitch - 2, size), size, row.text);
    });
    rule(figures);
    return { figure, rows };
  }

  // A month's figures of one course: null where the mean is missing; bounds only where they enclose the mean.
  function courseFigures(row, course) {
    const [average, low, high] = [course.average, course.low, course.high].map((column) => amountOf(row[column]));
    const usable = (amount) => amount !== null && amount >= course.least;
    const band = usable(low) && usable(high) && low <= average && average <= high && low < high;
    return {
      average: usable(average) ? average : null,
      low: band ? low : null,
      high: band ? high : null,
      text: trimmed(row[course.average]),
      lowText: band ? trimmed(row[course.low]) : '',
      highText: band ? trimmed(row[course.high]) : '',
    };
  }

  function liquidRows(tank) {
    return (tank.liquid || [])
      .filter((row) => SHORT_MONTHS.includes(trimmed(row.Month)))
      .map((row) => ({
        mixture: trimmed(row.MixtureComponent),
        month: MONTHS[SHORT_MONTHS.indexOf(trimmed(row.Month))],
        ...Object.fromEntries(COURSES.map((course) => [course.key, courseFigures(row, course)])),
      }));
  }

  // Runs of neighbouring months, so that a line does not bridge a month without a figure.
  function runsOf(points) {
    const runs = [];
    for (const point of points) {
      const last = runs[runs.length - 1];
      if (last && last[last.length - 1].month + 1 === point.month) {
        last.push(point);
      } else {
        runs.push([point]);
      }
    }
    return runs;
  }

  function pathOf(points) {
    return points.map((point, index) => (index === 0 ? 'M' : 'L') + short(point.x) + ' ' + short(point.y)).join('');
  }

  // The points of a series: mean, and bounds where there are any, in the order of the months.
  function pointsOf(rows, course) {
    return rows
      .filter((row) => row[course.key].average !== null)
      .map((row) => ({ ...row[course.key], month: MONTHS.indexOf(row.month), name: row.month }))
      .sort((left, right) => left.month - right.month);
  }

  const POINTS = [
    (x, y) => ['circle', { cx: x, cy: y, r: 3 }],
    (x, y) => ['rect', { x: x - 3, y: y - 3, width: 6, height: 6 }],
    (x, y) => ['path', { d: 'M' + short(x) + ' ' + short(y - 4) + 'l4 7h-8z' }],
    (x, y) => ['path', { d: 'M' + short(x) + ' ' + short(y - 4.5) + 'l4.5 4.5l-4.5 4.5l-4.5 -4.5z' }],
  ];

  function drawSeries(svg, series, index, course, frame) {
    const group = element(svg, 'g', { class: 'chart-series ' + SERIES[index] });
    const at = (point, amount) => ({ ...point, x: frame.centers[point.month], y: frame.scale(amount) });
    for (const run of runsOf(series.points.filter((point) => point.low !== null))) {
      const outline = [...run.map((point) => at(point, point.high)), ...run.reverse().map((point) => at(point, point.low))];
      element(group, 'path', { class: 'chart-band', d: pathOf(outline) + 'Z' });
    }
    for (const run of runsOf(series.points)) {
      element(group, 'path', { class: 'chart-line', d: pathOf(run.map((point) => at(point, point.average))) });
    }
    for (const point of series.points) {
      const { x, y } = at(point, point.average);
      const [shape, attributes] = POINTS[index](x, y);
      const bounds = point.lowText === '' ? '' : ' (' + point.lowText + ' to ' + point.highText + ')';
      element(element(group, shape, { class: 'chart-point', ...attributes }), 'title', {}, series.mixture + ', ' + point.name + ': ' + point.text + bounds + ' ' + course.unit);
    }
    return group;
  }

  // The highest and the lowest mean carry their figures; the others are the table's.
  function labelExtremes(svg, series, frame) {
    const sorted = [...series.points].sort((left, right) => left.average - right.average);
    const extremes = sorted.length > 1 && sorted[0].average < sorted[sorted.length - 1].average ? [sorted[0], sorted[sorted.length - 1]] : sorted.slice(0, 1);
    return extremes.map((point, index) => {
      const y = frame.scale(point.average) + (extremes.length === 2 && index === 0 ? 12 : -12);
      return figureAt(svg, frame.centers[point.month], y, point.text, SMALL);
    });
  }

  function drawCourse(svg, course, mixtures, left, right, top) {
    const series = mixtures.map((each) => ({ mixture: each.mixture, points: pointsOf(each.rows, course) }));
    const amounts = series.flatMap((each) => each.points.flatMap((point) => [point.average, point.low, point.high])).filter((amount) => amount !== null);
    if (amounts.length === 0) {
      return false;
    }
    const bottom = top + COURSE_HEIGHT;
    const lowest = Math.min(...amounts);
    const highest = Math.max(...amounts);
    const margin = Math.max(1, (highest - lowest) * 0.08); // room for the figure below the lowest point
    const axis = course.fromZero
      ? axisOf(0, highest, course.unit, { count: 4, widen: true })
      : axisOf(lowest - margin, highest, course.unit, { count: 4, widen: true });
    const plotLeft = left + Math.ceil(tickWidth(axis)) + 12;
    label(svg, left, top - 26, course.name + ', ' + axis.unit, { 'font-weight': 600 });
    const frame = monthFrame(svg, axis, plotLeft, right, top, bottom);
    const groups = series.map((each, index) => drawSeries(svg, each, index, course, frame));
    frame.rule(series.length === 1 ? labelExtremes(groups[0], series[0], frame) : []);
    return true;
  }

  function mixtureLegend(svg, mixtures, left, y) {
    let x = left;
    mixtures.forEach((each, index) => {
      const group = element(svg, 'g', { class: 'chart-series ' + SERIES[index] });
      element(group, 'path', { class: 'chart-line', d: 'M' + short(x) + ' ' + short(y) + 'h24' });
      const [shape, attributes] = POINTS[index](x + 12, y);
      element(group, shape, { class: 'chart-point', ...attributes });
      const text = fitted(each.mixture, 180, TEXT);
      label(svg, x + 30, y, text, {}, each.mixture);
      x += 30 + textWidth(text, TEXT) + 24;
    });
  }

  function liquidCourse(tank, rows) {
    const mixtures = [];
    for (const row of rows) {
      const known = mixtures.find((each) => each.mixture === row.mixture);
      if (known) {
        known.rows.push(row);
      } else {
        mixtures.push({ mixture: row.mixture, rows: [row] });
      }
    }
    const shown = mixtures.slice(0, SERIES.length);
    const banded = rows.some((row) => COURSES.some((course) => row[course.key].low !== null));
    const notes = mixtures.length > shown.length ? ['The table holds ' + (mixtures.length - shown.length) + ' more of the tank’s mixtures.'] : [];
    const top = shown.length > 1 ? 66 : 40;
    const { figure, svg } = figureOf({
      heading: 'Liquid by month',
      detail: (shown.length === 1 ? shown[0].mixture + '; ' : '') + 'daily average' + (banded ? ', with the band from daily minimum to maximum' : ''),
      name: 'Temperature and vapor pressure of the liquid of ' + tankName(tank) + ' by month',
      description: rows.map((row) => [row.mixture, row.month, row.temperature.text, 'deg F', row.pressure.text, 'psia'].join(' ')).join('; ') + '.',
      height: top + COURSE_HEIGHT + 26,
      notes,
      style: 'chart-liquid',
    });
    if (shown.length > 1) {
      mixtureLegend(svg, shown, 0, 10);
    }
    const half = (WIDTH - GUTTER) / 2;
    const drawn = COURSES.map((course, index) => drawCourse(svg, course, shown, index * (half + GUTTER), index * (half + GUTTER) + half, top));
    return drawn.includes(true) ? { figure, rows } : null;
  }

  /**
   * The course of a tank over its months, or null for a tank with figures of the year or of one month alone. With a calculation table:
   * {figure, rows: [{month, kinds, total, text}]}; otherwise {figure, rows: [{mixture, month, temperature, pressure}]}.
   */
  function monthlyCourse(tank) {
    const losses = lossRows(tank);
    if (losses.rows.length > 1) {
      return lossCourse(tank, losses.kinds, losses.rows);
    }
    const liquid = liquidRows(tank);
    return new Set(liquid.map((row) => row.month)).size > 1 ? liquidCourse(tank, liquid) : null;
  }

  orvex.charts = Object.assign(orvex.charts || {}, { monthlyCourse });
})((window.orvex = window.orvex || {}));
