'use strict';

// The course of one tank over the months: its losses from the calculation table, or, where the report has none, its
// liquid's temperature and vapor pressure.
(function (orvex) {
  const {trimmed, amountOf, isDrawable, axisOf, textWidth, fitted} = orvex.chartScale;
  const {KINDS, MONTHS, UNDRAWN, WIDTH, TEXT, SMALL} = orvex.chartDraw;
  const {short, element, label, kindBox, legend, figureOf, figureAt, tickWidth, monthFrame} = orvex.chartDraw;

  // The lines of the calculation table that hold a loss, by their labels; what the table calls a kind of loss otherwise
  // than the totals do, it calls so here.
  const LOSS_LINES = new Map([
    ['Standing Losses (lb):', {key: 'breathing', name: 'Standing'}],
    ['Working Losses (lb):', {key: 'working'}],
    ['Rim Seal Losses (lb):', {key: 'rim-seal'}],
    ['Withdrawal Losses (lb):', {key: 'withdrawal'}],
    ['Roof Fitting Losses (lb):', {key: 'deck-fitting', name: 'Roof fitting'}],
    ['Deck Fitting Losses (lb):', {key: 'deck-fitting'}],
    ['Deck Seam Losses (lb):', {key: 'deck-seam'}],
  ]);
  const TOTAL_LINE = 'Total Losses (lb):';

  const COLUMNS_HEIGHT = 210;
  const SMALLEST = 8;  // of the figures above the columns, before they are cut

  // What a row tells of its month: the mean, and between which bounds a day moves.
  const COURSES = [
    {
      key: 'temperature', name: 'Liquid surface temperature', unit: 'deg F',
      average: 'AveDailyTemp', low: 'MinDailyTemp', high: 'MaxDailyTemp',
      least: -459.6,  // a temperature that was never computed is stored as 0 degrees Rankine, which no liquid has
      fromZero: false,
    },
    {
      key: 'pressure', name: 'Vapor pressure', unit: 'psia',
      average: 'AvePressure', low: 'MinPressure', high: 'MaxPressure',
      least: 0,
      fromZero: true,
    },
  ];

  // Mixtures stay apart by dash (charts.css) and point as well as by colour; further ones are left to the table.
  const POINTS = [
    (x, y) => ['circle', {cx: x, cy: y, r: 3}],
    (x, y) => ['rect', {x: x - 3, y: y - 3, width: 6, height: 6}],
    (x, y) => ['path', {d: `M${short(x)} ${short(y - 4)}l4 7h-8z`}],
    (x, y) => ['path', {d: `M${short(x)} ${short(y - 4.5)}l4.5 4.5l-4.5 4.5l-4.5 -4.5z`}],
  ];

  const COURSE_HEIGHT = 170;
  const GUTTER = 56;  // between the two plots, which stand side by side
  const COURSE_WIDTH = (WIDTH - GUTTER) / 2;
  const MIXTURE_LABEL = 180;

  function tankName(tank) { return trimmed(tank.id) || trimmed(tank.name); }

  // The texts of a line, January first; '' for a month without one.
  function monthTexts(line) {
    const texts = new Map((line ? line.cells || [] : []).map((cell) => [cell.column, trimmed(cell.text)]));
    return MONTHS.map((month, index) => texts.get(`month_${index + 1}`) || '');
  }

  // The lines of losses as kinds with twelve texts each, in the order of stacking.
  function lossKinds(lines) {
    return lines
        .map((line) => ({line, known: LOSS_LINES.get(trimmed(line.label))}))
        .filter(({known}) => known !== undefined)
        .map(({line, known}) => {
          const order = KINDS.findIndex((kind) => kind.key === known.key);
          return {...KINDS[order], name: known.name || KINDS[order].name, order, texts: monthTexts(line)};
        })
        .sort((one, other) => one.order - other.order);
  }

  // One row for each month that has figures.
  function lossRows(kinds, totals) {
    return MONTHS
        .map((month, index) => ({
          month,
          kinds: kinds
              .map(({key, name, texts}) => ({key, label: name, amount: amountOf(texts[index]), text: texts[index]}))
              .filter((kind) => kind.text !== ''),
          total: amountOf(totals[index]),
          text: totals[index],
        }))
        .filter((row) => row.kinds.length > 0 || row.text !== '');
  }

  function heightOf(row) { return row.kinds.reduce((sum, kind) => sum + Math.max(0, kind.amount || 0), 0); }

  function isUndrawn(row) {
    return row.kinds.some((kind) => !isDrawable(kind.amount)) || (row.text !== '' && !isDrawable(row.total));
  }

  // Where two mixtures share a month the calculation table stops at the first, and its later cells are blank.
  function isCutShort(rows, liquid) {
    return liquid.some((each) => rows.every((row) => row.month !== each.month));
  }

  function drawColumn(svg, row, kinds, name, center, width, bottom, scale) {
    let y = bottom;
    for (const kind of row.kinds.filter((each) => each.amount > 0)) {
      const height = bottom - scale(kind.amount);
      y -= height;
      const gap = height > 2 ? 0.75 : 0;
      const hover = `${name}, ${row.month}, ${kind.label.toLowerCase()}: ${kind.text} lb`;
      const drawn = kinds.find((each) => each.key === kind.key);
      kindBox(svg, drawn, center - width / 2, y + gap, width, height - gap, hover);
    }
    return y;
  }

  function drawLosses(name, kinds, rows, cutShort) {
    const axis = axisOf(0, Math.max(...rows.map(heightOf)), 'lb', {count: 5, widen: true});
    const left = Math.ceil(Math.max(tickWidth(axis), textWidth(axis.unit, SMALL))) + 12;
    const drawn = kinds.filter((kind) => kind.texts.some((text) => amountOf(text) > 0));
    const legendGroup = element(null, 'g', {class: 'chart-legend'});
    const top = legend(legendGroup, drawn, left, WIDTH, 0) + 20;
    const bottom = top + COLUMNS_HEIGHT;
    const {figure, svg} = figureOf({
      heading: 'Losses by month',
      detail: fitted(name, WIDTH / 2, TEXT),
      name: `Losses by month of ${name}, lb`,
      description: `${rows.map((row) => `${row.month} ${row.text || '-'}`).join('; ')}.`,
      height: bottom + 26,
      notes: [
        rows.some(isUndrawn) ? UNDRAWN : null,
        cutShort ? 'The calculation table holds no figures for the months that are blank here.' : null,
      ].filter((note) => note !== null),
      style: 'chart-months',
    });
    svg.appendChild(legendGroup);
    label(svg, left - 8, top - 14, axis.unit, {'text-anchor': 'end', 'font-size': SMALL, class: 'chart-unit'});
    const {scale, pitch, centers, rule} = monthFrame(svg, axis, left, WIDTH, top, bottom);

    const width = Math.round(pitch * 0.6);
    // Twelve figures of four decimals share the width: all are set smaller where one would not fit.
    const widest = Math.max(1, ...rows.map((row) => textWidth(row.text.slice(0, 200), SMALL)));
    const size = Math.max(SMALLEST, Math.min(SMALL, (SMALL * (pitch - 4)) / widest));
    rule(rows.map((row) => {
      const center = centers[MONTHS.indexOf(row.month)];
      const y = drawColumn(svg, row, kinds, name, center, width, bottom, scale);
      return figureAt(svg, center, y - 9, fitted(row.text, pitch - 2, size), size, row.text);
    }));
    return {figure, rows};
  }

  // A month's figures of one course: null where the mean is missing; bounds only where they enclose the mean.
  function courseFigures(row, course) {
    const usable = (column) => {
      const amount = amountOf(row[column]);
      return amount !== null && amount >= course.least ? amount : null;
    };
    const [average, low, high] = [course.average, course.low, course.high].map(usable);
    const known = average !== null && low !== null && high !== null;
    const bounded = known && low <= average && average <= high && low < high;
    return {
      average,
      low: bounded ? low : null,
      high: bounded ? high : null,
      text: trimmed(row[course.average]),
      lowText: bounded ? trimmed(row[course.low]) : '',
      highText: bounded ? trimmed(row[course.high]) : '',
    };
  }

  // The rows of a tank's liquid contents that stand for a month: [{mixture, month, temperature, pressure}].
  function liquidRows(tank) {
    return (tank.liquid || []).flatMap((row) => {
      const month = MONTHS.find((each) => each.slice(0, 3) === trimmed(row.Month));
      if (month === undefined) {
        return [];  // the year's row, or a component, which has no month of its own
      }
      const figures = COURSES.map((course) => [course.key, courseFigures(row, course)]);
      return [{mixture: trimmed(row.MixtureComponent), month, ...Object.fromEntries(figures)}];
    });
  }

  function byMixture(rows) {
    const mixtures = new Map();
    for (const row of rows) {
      mixtures.set(row.mixture, [...(mixtures.get(row.mixture) || []), row]);
    }
    return Array.from(mixtures, ([mixture, ofMixture]) => ({mixture, rows: ofMixture}));
  }

  // A mixture's points of one course, in the order of the months.
  function pointsOf(rows, course) {
    return rows
        .map((row) => ({...row[course.key], month: MONTHS.indexOf(row.month)}))
        .filter((point) => point.average !== null)
        .sort((one, other) => one.month - other.month);
  }

  // Runs of neighbouring months, so that no line bridges a month without a figure.
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

  function pathOf(corners) {
    return corners.map(({x, y}, index) => `${index === 0 ? 'M' : 'L'}${short(x)} ${short(y)}`).join('');
  }

  function drawSeries(svg, {mixture, points}, index, course, frame) {
    const group = element(svg, 'g', {class: `chart-series chart-series-${index + 1}`});
    const at = (point, amount) => ({x: frame.centers[point.month], y: frame.scale(amount)});
    for (const run of runsOf(points.filter((point) => point.low !== null))) {
      const upper = run.map((point) => at(point, point.high));
      const lower = run.map((point) => at(point, point.low)).reverse();
      element(group, 'path', {class: 'chart-band', d: `${pathOf([...upper, ...lower])}Z`});
    }
    for (const run of runsOf(points)) {
      element(group, 'path', {class: 'chart-line', d: pathOf(run.map((point) => at(point, point.average)))});
    }
    for (const point of points) {
      const {x, y} = at(point, point.average);
      const [shape, attributes] = POINTS[index](x, y);
      const bounds = point.lowText === '' ? '' : ` (${point.lowText} to ${point.highText})`;
      const hover = `${mixture}, ${MONTHS[point.month]}: ${point.text}${bounds} ${course.unit}`;
      element(element(group, shape, {class: 'chart-point', ...attributes}), 'title', {}, hover);
    }
    return group;
  }

  // The lowest and the highest mean carry their figures; the others are the table's.
  function labelExtremes(group, points, frame) {
    const sorted = [...points].sort((one, other) => one.average - other.average);
    const [lowest, highest] = [sorted[0], sorted[sorted.length - 1]];
    const extremes = lowest.average < highest.average ? [[lowest, 12], [highest, -12]] : [[lowest, -12]];
    return extremes.map(([point, offset]) => {
      const text = fitted(point.text, 2 * frame.pitch, SMALL);
      return figureAt(group, frame.centers[point.month], frame.scale(point.average) + offset, text, SMALL, point.text);
    });
  }

  function drawCourse(svg, course, mixtures, left, top) {
    const series = mixtures.map(({mixture, rows}) => ({mixture, points: pointsOf(rows, course)}));
    const points = series.flatMap((each) => each.points);
    if (points.length === 0) {
      return;
    }
    const amounts = points.flatMap(({average, low, high}) => [average, low, high]).filter((amount) => amount !== null);
    const [lowest, highest] = [Math.min(...amounts), Math.max(...amounts)];
    const margin = Math.max(1, (highest - lowest) * 0.08);  // room for the figure below the lowest point
    const axis = axisOf(course.fromZero ? 0 : lowest - margin, highest, course.unit, {count: 4, widen: true});
    label(svg, left, top - 26, `${course.name}, ${axis.unit}`, {'font-weight': 600});
    const plotLeft = left + Math.ceil(tickWidth(axis)) + 12;
    const frame = monthFrame(svg, axis, plotLeft, left + COURSE_WIDTH, top, top + COURSE_HEIGHT);
    const groups = series.map((each, index) => drawSeries(svg, each, index, course, frame));
    frame.rule(series.length === 1 ? labelExtremes(groups[0], points, frame) : []);
  }

  function mixtureLegend(svg, mixtures, y) {
    let x = 0;
    mixtures.forEach(({mixture}, index) => {
      const group = element(svg, 'g', {class: `chart-series chart-series-${index + 1}`});
      element(group, 'path', {class: 'chart-line', d: `M${short(x)} ${short(y)}h24`});
      const [shape, attributes] = POINTS[index](x + 12, y);
      element(group, shape, {class: 'chart-point', ...attributes});
      const text = fitted(mixture, MIXTURE_LABEL, TEXT);
      label(svg, x + 30, y, text, {}, mixture);
      x += 30 + textWidth(text, TEXT) + 24;
    });
  }

  // The chart of a tank's rows, or null when none of them has a figure to draw.
  function drawLiquid(tankName, rows) {
    const mixtures = byMixture(rows);
    if (rows.every((row) => COURSES.every((course) => row[course.key].average === null))) {
      return null;
    }
    const shown = mixtures.slice(0, POINTS.length);
    const left = mixtures.length - shown.length;
    const banded = rows.some((row) => COURSES.some((course) => row[course.key].low !== null));
    const top = shown.length > 1 ? 66 : 40;
    const months = rows.map((row) =>
      `${row.mixture}, ${row.month}: ${row.temperature.text || '-'} deg F, ${row.pressure.text || '-'} psia`);
    const {figure, svg} = figureOf({
      heading: 'Liquid by month',
      detail: [
        shown.length === 1 ? `${fitted(shown[0].mixture, WIDTH / 2, TEXT)}; ` : '',
        'daily average',
        banded ? ', with the band from daily minimum to maximum' : '',
      ].join(''),
      name: `Temperature and vapor pressure of the liquid of ${tankName} by month`,
      description: `${months.join('; ')}.`,
      height: top + COURSE_HEIGHT + 26,
      notes: left > 0 ? [`${left} more of the tank’s mixtures stand in the table alone.`] : [],
      style: 'chart-liquid',
    });
    if (shown.length > 1) {
      mixtureLegend(svg, shown, 10);
    }
    COURSES.forEach((course, index) => drawCourse(svg, course, shown, index * (COURSE_WIDTH + GUTTER), top));
    return {figure, rows};
  }

  /**
   * The course of a tank over its months, or null for a tank with figures of the year or of one month alone. With a
   * calculation table: {figure, rows: [{month, kinds: [{key, label, amount, text}], total, text}]}; otherwise {figure,
   * rows: [{mixture, month, temperature, pressure}]}, the last two with {average, low, high} and their texts.
   */
  function monthlyCourse(tank) {
    const lines = (tank.detail && tank.detail.lines) || [];
    const kinds = lossKinds(lines);
    const rows = lossRows(kinds, monthTexts(lines.find((line) => trimmed(line.label) === TOTAL_LINE)));
    const liquid = liquidRows(tank);
    if (rows.length > 1) {
      return drawLosses(tankName(tank), kinds, rows, isCutShort(rows, liquid));
    }
    return new Set(liquid.map((row) => row.month)).size > 1 ? drawLiquid(tankName(tank), liquid) : null;
  }

  orvex.charts = Object.assign(orvex.charts || {}, {monthlyCourse});
})(window.orvex = window.orvex || {});
