'use strict';

// Charts over all tanks of a report: losses by tank and by chemical. Each works on the texts of the report's own
// figures, so that what is drawn is what the tables say.
(function (orvex) {
  const {trimmed, amountOf, isDrawable, figureText, sumOf, axisOf, textWidth, fitted} = orvex.chartScale;
  const {KINDS, UNDRAWN, WIDTH, TEXT, SMALL, short, element, label, kindBox, legend, figureOf} = orvex.chartDraw;

  const MOST_TANKS = 25;
  const MOST_CHEMICALS = 20;
  const TANK_LABEL = 220;
  const CHEMICAL_LABEL = 300;
  const FIGURE_LABEL = 260;

  const CHEMICAL = {key: 'chemical', marks: []};
  const REST = {key: 'rest', marks: []};

  // What the calculation calls the part of a mixture that no component accounts for: no chemical, so no colour.
  const UNNAMED = 'Unidentified Components';

  function isAnnual(model) {
    const periods = model.periods || [];
    return periods.length > 0 && periods.every((period) => trimmed(period) === 'Annual');
  }

  function unitOf(model) { return isAnnual(model) ? 'lb/yr' : 'lb'; }

  function periodText(model) {
    if (isAnnual(model)) {
      return 'pounds a year';
    }
    const periods = model.periods || [];
    return ['pounds', ...(periods.length === 12 ? ['January to December'] : periods)].join(', ');
  }

  // The largest first; what is no amount comes last.
  function byAmount(one, other) {
    const [left, right] = [one.total, other.total].map((total) => (total === null ? -Infinity : total));
    return left === right ? 0 : right - left;
  }

  // The sum of displayed figures with its text: a single figure keeps its own, for only then is it known to the digit.
  function totalOf(texts) {
    const figures = texts.map(trimmed);
    const amounts = figures.map(amountOf);
    if (figures.length === 1 || amounts.every((amount) => amount === null)) {
      return {total: figures.length === 1 ? amounts[0] : null, text: figures[0] || ''};
    }
    const total = sumOf(amounts);
    return {total, text: figureText(total)};
  }

  // Keeps the first `most` rows and makes one of the others; a single other one would save no line.
  function withRest(rows, most, noun, more) {
    if (rows.length <= most + 1) {
      return rows;
    }
    const others = rows.slice(most);
    const total = sumOf(others.map((row) => row.total));
    const name = `and ${figureText(others.length, 0)} more ${noun}s`;
    return [...rows.slice(0, most), {name, rest: true, total, text: figureText(total), ...more(others)}];
  }

  // A bar that is longer than the axis: cut short, with a slanted gap before its end.
  function brokenBar(parent, x, y, length, height, hover) {
    const group = element(parent, 'g', {class: 'chart-piece chart-rest'});
    element(group, 'title', {}, hover);
    const slant = height / 2;
    const gap = x + length - 34;
    const [start, end, above, below] = [x, x + length, y, y + height].map(short);
    element(group, 'path', {
      d: `M${start} ${above}H${short(gap + slant)}L${short(gap)} ${below}H${start}Z` +
          `M${short(gap + slant + 5)} ${above}H${end}V${below}H${short(gap + 5)}Z`,
    });
  }

  function drawBar(group, row, left, y, thickness, scale) {
    let end = left;
    for (const piece of row.pieces) {
      const length = scale(piece.amount);
      // A hair of a gap keeps neighbours apart; a piece thinner than that is left whole.
      kindBox(group, piece.kind, end, y, length > 2 ? length - 0.75 : length, thickness, piece.hover);
      end += length;
    }
  }

  // Upright gridlines at the ticks, left out in the rows where a figure would be struck through.
  function drawTicks(svg, axis, figures, {left, top, bottom, pitch, scale}) {
    const grid = element(svg, 'g', {class: 'chart-grid'});
    const ticks = element(svg, 'g', {class: 'chart-axis'});
    for (const tick of axis.ticks) {
      const x = left + scale(tick.value);
      const pieces = figures.map((figure, index) => {
        const struck = figure.x - 3 < x && x < figure.right + 3;
        return struck ? '' : `M${short(x)} ${short(top + index * pitch)}v${short(pitch)}`;
      });
      element(grid, 'path', {class: tick.value === 0 ? 'chart-zero' : 'chart-tick', d: pieces.join('')});
      label(ticks, x, bottom + 13, tick.text, {'text-anchor': 'middle', 'font-size': SMALL});
    }
    label(ticks, left - 14, bottom + 13, axis.unit, {'text-anchor': 'end', 'font-size': SMALL});
  }

  function widestOf(texts) { return Math.max(...texts.map((text) => textWidth(text.slice(0, 200), TEXT))); }

  /**
   * Horizontal bars: `rows` of {label, hover, text, length, pieces: [{kind, amount, hover}], rest}. Each bar carries
   * its figure at its end, so the figures take part in the layout: the axis ends where the widest of them still fits.
   * The bar of the rest, which may be longer than all others together, does not stretch the axis.
   */
  function barChart({rows, kinds, unit, labelWidth, ...caption}) {
    const pitch = Math.max(18, Math.min(30, 470 / rows.length));
    const thickness = Math.round(pitch * 0.68);
    const axis = axisOf(0, Math.max(...rows.filter((row) => !row.rest).map((row) => row.length)), unit);
    const names = Math.max(widestOf(rows.map((row) => row.label)), textWidth(axis.unit, SMALL));
    const left = Math.ceil(Math.min(labelWidth, names)) + 14;
    const right = WIDTH - 14 - Math.ceil(Math.min(FIGURE_LABEL, widestOf(rows.map((row) => row.text))));
    const scale = (amount) => ((right - left) * amount) / axis.high;

    // The legend goes into a group of its own first, for its height decides where the plot begins.
    const legendGroup = element(null, 'g', {class: 'chart-legend'});
    const top = legend(legendGroup, kinds, left, WIDTH, 0) + 2;
    const bottom = top + rows.length * pitch;
    const {figure, svg} = figureOf({...caption, height: bottom + 24, style: 'chart-bars'});
    svg.appendChild(legendGroup);

    const figures = rows.map((row) => {
      const text = fitted(row.text, WIDTH - 8 - right, TEXT);
      const x = (row.length > axis.high ? right : left + scale(row.length)) + 6;
      return {text, x, right: x + textWidth(text, TEXT)};
    });
    drawTicks(svg, axis, figures, {left, top, bottom, pitch, scale});

    rows.forEach((row, index) => {
      const middle = top + (index + 0.5) * pitch;
      const y = middle - thickness / 2;
      const group = element(svg, 'g', {class: row.rest ? 'chart-row chart-row-rest' : 'chart-row'});
      const name = fitted(row.label, labelWidth, TEXT);
      label(group, left - 8, middle, name, {'text-anchor': 'end', class: 'chart-name'}, row.hover);
      if (row.length > axis.high) {
        brokenBar(group, left, y, right - left, thickness, row.hover);
      } else {
        drawBar(group, row, left, y, thickness, scale);
      }
      label(group, figures[index].x, middle, figures[index].text, {class: 'chart-figure'}, row.text);
    });
    return figure;
  }

  // The chart of `rows`, which stand for `count` tanks or chemicals; `piecesOf` tells what a row's bar is made of.
  function chartOf({rows, count, noun, unit, piecesOf, hoverOf, undrawn, ...chart}) {
    const bars = rows.map((row) => {
      const hover = row.rest ? `${row.name}: ${row.text} lb` : hoverOf(row);
      const rest = [{kind: REST, amount: row.total, hover}];
      const pieces = (row.rest ? rest : piecesOf(row, hover)).filter((piece) => piece.amount > 0);
      const length = pieces.reduce((sum, piece) => sum + piece.amount, 0);
      const text = row.rest ? `${row.text} lb` : row.text;
      return {label: row.name, hover, text, length, pieces, rest: Boolean(row.rest)};
    });
    const [rest, longest] = [true, false].map((which) =>
      Math.max(0, ...bars.filter((bar) => bar.rest === which).map((bar) => bar.length)));
    const largest = rows.slice(0, 5).map((row) => `${row.name} ${row.text} ${unit}`).join('; ');
    const notes = [
      rest > longest ? `The last bar is cut short; its figure is that of all the ${noun}s it stands for.` : null,
      undrawn ? UNDRAWN : null,
    ].filter((note) => note !== null);
    const description = `${figureText(count, 0)} ${noun}${count === 1 ? '' : 's'}, largest first: ${largest}.`;
    return {figure: barChart({rows: bars, unit, description, notes, ...chart}), rows};
  }

  // Losses by kind; of several sets, their sums.
  function kindsOf(sets) {
    return KINDS
        .map((kind) => [kind, sets.map((losses) => trimmed(losses[kind.element])).filter((text) => text !== '')])
        .filter(([kind, texts]) => texts.length > 0)
        .map(([kind, texts]) => {
          const {total, text} = totalOf(texts);
          return {key: kind.key, label: kind.name, amount: total, text};
        });
  }

  function tankRow(tank, summaries) {
    const mixtures = (tank.components || []).filter((component) => component.primary);
    const id = trimmed(tank.id) || trimmed(tank.name);
    // The roll-up adds before it rounds, so it may differ by a cent from the sum of the lines: it goes first.
    const text = summaries.get(id) || totalOf(mixtures.map((mixture) => mixture.total)).text;
    const kinds = kindsOf(mixtures.map((mixture) => mixture.losses || {}));
    return {name: id || '(no name)', id, type: trimmed(tank.type), kinds, total: amountOf(text), text};
  }

  function restOfTanks(others) {
    const kinds = KINDS
        .map((kind) => [kind, others.flatMap((row) => row.kinds.filter((each) => each.key === kind.key))])
        .filter(([kind, found]) => found.length > 0)
        .map(([kind, found]) => {
          const amount = sumOf(found.map((each) => each.amount));
          return {key: kind.key, label: kind.name, amount, text: figureText(amount)};
        });
    return {id: null, type: '', kinds};
  }

  function piecesOfTank(row, unit) {
    return row.kinds.map((kind) => ({
      kind: KINDS.find((each) => each.key === kind.key),
      amount: kind.amount,
      hover: `${row.name}, ${kind.label.toLowerCase()}: ${kind.text} ${unit}`,
    }));
  }

  /**
   * Losses of each tank by kind of loss, largest first:
   * {figure, rows: [{name, id, type, kinds: [{key, label, amount, text}], total, text, rest?}]}.
   */
  function lossesByTank(model) {
    const {tanks: entries = [], total = ''} = model.summary || {};
    const summaries = new Map(entries.map((entry) => [trimmed(entry.id), trimmed(entry.loss)]));
    const tanks = (model.tanks || [])
        .filter((tank) => (tank.components || []).some((component) => component.primary))
        .map((tank) => tankRow(tank, summaries))
        .sort(byAmount);
    if (tanks.length === 0) {
      return null;
    }
    const unit = unitOf(model);
    const drawn = new Set(tanks.flatMap((row) => row.kinds.filter((kind) => kind.amount > 0).map((kind) => kind.key)));
    const inAll = trimmed(total) ? `; ${figureText(tanks.length, 0)} tanks, ${trimmed(total)} in all` : '';
    return chartOf({
      rows: withRest(tanks, MOST_TANKS, 'tank', restOfTanks),
      count: tanks.length,
      noun: 'tank',
      unit,
      kinds: KINDS.filter((kind) => drawn.has(kind.key)),
      piecesOf: (row) => piecesOfTank(row, unit),
      hoverOf: (row) => (row.type ? `${row.name}, ${row.type}` : row.name),
      undrawn: tanks.some((row) => !isDrawable(row.total) || row.kinds.some((kind) => !isDrawable(kind.amount))),
      labelWidth: TANK_LABEL,
      heading: 'Losses by tank',
      detail: periodText(model) + inAll,
      name: `Losses by tank and kind of loss, ${unit}`,
    });
  }

  // The lines of a tank that name chemicals: the components of a mixture that is broken down, which follow it in the
  // file, otherwise the mixture itself.
  function chemicalLines(tank) {
    const lines = tank.components || [];
    return lines.filter((line, index) => !line.primary || index + 1 === lines.length || lines[index + 1].primary);
  }

  /**
   * Losses of each chemical over all tanks, largest first: {figure, rows: [{name, tanks, total, text, rest?}]}. The row
   * of the rest holds those that it stands for as `others`.
   */
  function lossesByChemical(model) {
    const found = new Map();
    (model.tanks || []).forEach((tank, index) => {
      for (const line of chemicalLines(tank)) {
        const name = trimmed(line.name);
        found.set(name, found.get(name) || {texts: [], tanks: new Set()});
        found.get(name).texts.push(line.total);
        found.get(name).tanks.add(index);
      }
    });
    if (found.size === 0) {
      return null;
    }
    const chemicals = Array.from(found, ([name, {texts, tanks}]) =>
      ({name: name || '(no name)', tanks: tanks.size, ...totalOf(texts)})).sort(byAmount);
    const unit = unitOf(model);
    return chartOf({
      rows: withRest(chemicals, MOST_CHEMICALS, 'chemical', (others) => ({tanks: null, others})),
      count: chemicals.length,
      noun: 'chemical',
      unit,
      kinds: [],
      piecesOf: (row, hover) => [{kind: row.name === UNNAMED ? REST : CHEMICAL, amount: row.total, hover}],
      hoverOf: (row) => `${row.name}: ${row.text} ${unit}`,
      undrawn: chemicals.some((row) => !isDrawable(row.total)),
      labelWidth: CHEMICAL_LABEL,
      heading: 'Losses by chemical',
      detail: `${periodText(model)}; a mixture that is broken down counts by its components`,
      name: `Losses by chemical over all tanks, ${unit}`,
    });
  }

  orvex.charts = Object.assign(orvex.charts || {}, {lossesByTank, lossesByChemical});
})(window.orvex = window.orvex || {});
