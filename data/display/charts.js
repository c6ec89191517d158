'use strict';

// Charts over all tanks of a report: losses by tank and by chemical. Each works on the texts of the report's own
// figures, so that what is drawn is what the tables say.
(function (orvex) {
  const { trimmed, amountOf, isDrawable, figureText, sumOf } = orvex.chartScale;
  const { KINDS, barChart } = orvex.chartDraw;

  const MOST_TANKS = 25;
  const MOST_CHEMICALS = 20;
  const TANK_LABEL = 220;
  const CHEMICAL_LABEL = 300;

  const CHEMICAL = { key: 'chemical', marks: [] };
  // What the calculation calls the part of a mixture that no component accounts for: no chemical, so no colour.
  const UNNAMED = 'Unidentified Components';
  const REST = { key: 'rest', marks: [] };

  const UNDRAWN = 'A figure that is below zero or not a number is written, not drawn.';

  function isAnnual(model) {
    return (model.periods || []).every((period) => trimmed(period) === 'Annual');
  }

  function unitOf(model) {
    return isAnnual(model) ? 'lb/yr' : 'lb';
  }

  function periodText(model) {
    const periods = model.periods || [];
    if (isAnnual(model)) {
      return 'pounds a year';
    }
    return 'pounds, ' + (periods.length === 12 ? 'January to December' : periods.join(', '));
  }

  function byAmount(left, right) {
    return (right.total === null ? -Infinity : right.total) - (left.total === null ? -Infinity : left.total) || 0;
  }

  /** Names and figures of the whole: what the tables give as the total, where they do. */
  function describe(shown, count, noun, unit) {
    const lines = shown.slice(0, 5).map((row) => row.name + ' ' + row.text + ' ' + unit);
    return count + ' ' + noun + (count === 1 ? '' : 's') + ', largest first: ' + lines.join('; ') + '.';
  }

  /** Keeps the first `most` rows and makes one row of the others, when that saves a line. */
  function withRest(rows, most, noun, kindsOf) {
    if (rows.length <= most + 1) {
      return rows;
    }
    const others = rows.slice(most);
    const total = sumOf(others.map((row) => row.total));
    const name = 'and ' + figureText(others.length, 0) + ' more ' + noun + 's';
    return [...rows.slice(0, most), { name, id: null, rest: true, count: others.length, total, text: figureText(total), ...kindsOf(others) }];
  }

  function kindSums(losses) {
    return KINDS.map((kind) => {
      const figures = losses.map((each) => each[kind.element]).filter((text) => text !== undefined);
      const amounts = figures.map(amountOf);
      const amount = amounts.every((each) => each === null) ? null : sumOf(amounts);
      return {
        key: kind.key,
        label: kind.name,
        amount,
        text: figures.length === 1 ? trimmed(figures[0]) : amount === null ? '' : figureText(amount),
      };
    }).filter((kind) => kind.text !== '');
  }

  function tankRow(tank, summaries) {
    const mixtures = (tank.components || []).filter((component) => component.primary);
    if (mixtures.length === 0) {
      return null;
    }
    const kinds = kindSums(mixtures.map((mixture) => mixture.losses || {}));
    const id = trimmed(tank.id) || trimmed(tank.name);
    const totals = mixtures.map((mixture) => amountOf(mixture.total));
    const sum = totals.every((each) => each === null) ? null : sumOf(totals);
    // The roll-up adds before it rounds, so its figure may differ by a cent from that of the lines: it goes first.
    const summary = summaries.get(id);
    const text = summary !== undefined ? summary : mixtures.length === 1 ? trimmed(mixtures[0].total) : sum === null ? trimmed(mixtures[0].total) : figureText(sum);
    return { name: id || '(no name)', id, type: trimmed(tank.type), kinds, total: amountOf(text), text };
  }

  function restKinds(others) {
    return {
      kinds: KINDS.map((kind) => {
        const amounts = others.flatMap((row) => row.kinds.filter((each) => each.key === kind.key).map((each) => each.amount));
        const amount = sumOf(amounts);
        return { key: kind.key, label: kind.name, amount, text: figureText(amount), drawn: amounts.length > 0 };
      })
        .filter((kind) => kind.drawn)
        .map(({ drawn, ...kind }) => kind),
    };
  }

  function barOfTank(row, unit) {
    const whole = row.rest ? row.name + ': ' + row.text + ' lb' : row.type ? row.name + ', ' + row.type : row.name;
    const pieces = row.rest
      ? [{ kind: REST, amount: Math.max(0, row.total), hover: whole }]
      : row.kinds
          .filter((kind) => kind.amount > 0)
          .map((kind) => ({
            kind: KINDS.find((each) => each.key === kind.key),
            amount: kind.amount,
            hover: row.name + ', ' + kind.label.toLowerCase() + ': ' + kind.text + ' ' + unit,
          }));
    return {
      label: row.name,
      hover: whole,
      text: row.rest ? row.text + ' lb' : row.text,
      length: pieces.reduce((sum, piece) => sum + piece.amount, 0),
      pieces,
      rest: Boolean(row.rest),
    };
  }

  /** Losses of each tank by kind of loss, largest first: {figure, rows: [{name, id, kinds, total, text}]}. */
  function lossesByTank(model) {
    const entries = (model.summary && model.summary.tanks) || [];
    const summaries = new Map(entries.map((entry) => [trimmed(entry.id), trimmed(entry.loss)]));
    const tanks = (model.tanks || []).map((tank) => tankRow(tank, summaries)).filter((row) => row !== null);
    if (tanks.length === 0) {
      return null;
    }
    tanks.sort(byAmount);
    const rows = withRest(tanks, MOST_TANKS, 'tank', restKinds);
    const unit = unitOf(model);
    const bars = rows.map((row) => barOfTank(row, unit));
    const longest = Math.max(...bars.filter((bar) => !bar.rest).map((bar) => bar.length));
    const total = model.summary ? trimmed(model.summary.total) : '';
    const notes = [];
    if (bars.some((bar) => bar.rest && bar.length > longest)) {
      notes.push('The last bar is cut short; its figure is that of all the tanks it stands for.');
    }
    if (tanks.some((row) => !isDrawable(row.total) || row.kinds.some((kind) => !isDrawable(kind.amount)))) {
      notes.push(UNDRAWN);
    }
    const detail = periodText(model) + (total ? '; ' + figureText(tanks.length, 0) + ' tanks, ' + total + ' in all' : '');
    return {
      figure: barChart({
        rows: bars,
        kinds: KINDS.filter((kind) => tanks.some((row) => row.kinds.some((each) => each.key === kind.key && each.amount > 0))),
        unit,
        labelWidth: TANK_LABEL,
        heading: 'Losses by tank',
        detail,
        name: 'Losses by tank and kind of loss, ' + unit,
        description: describe(rows, tanks.length, 'tank', unit),
        notes,
      }),
      rows,
    };
  }

  /**
   * The lines of a tank that name chemicals: the components of a mixture that is broken down, otherwise the mixture.
   * A mixture's components follow it in the file.
   */
  function chemicalLines(tank) {
    const lines = tank.components || [];
    return lines.filter((line, index) => {
      const next = lines[index + 1];
      return !line.primary || next === undefined || next.primary;
    });
  }

  /** Losses of each chemical over all tanks, largest first: {figure, rows: [{name, tanks, total, text}]}. */
  function lossesByChemical(model) {
    const chemicals = new Map();
    (model.tanks || []).forEach((tank, index) => {
      for (const line of chemicalLines(tank)) {
        const name = trimmed(line.name);
        if (!chemicals.has(name)) {
          chemicals.set(name, { texts: [], tanks: new Set() });
        }
        chemicals.get(name).texts.push(trimmed(line.total));
        chemicals.get(name).tanks.add(index);
      }
    });
    if (chemicals.size === 0) {
      return null;
    }
    const all = Array.from(chemicals, ([name, { texts, tanks }]) => {
      const amounts = texts.map(amountOf);
      const total = amounts.every((amount) => amount === null) ? null : sumOf(amounts);
      const text = texts.length === 1 || total === null ? texts[0] : figureText(total);
      return { name: name || '(no name)', tanks: tanks.size, total, text };
    });
    all.sort(byAmount);
    const rows = withRest(all, MOST_CHEMICALS, 'chemical', () => ({ tanks: null }));
    const unit = unitOf(model);
    const bars = rows.map((row) => {
      const hover = row.name + ': ' + row.text + ' ' + unit;
      const amount = Math.max(0, row.total === null ? 0 : row.total);
      return {
        label: row.name,
        hover,
        text: row.rest ? row.text + ' lb' : row.text,
        length: amount,
        pieces: amount > 0 ? [{ kind: row.rest || row.name === UNNAMED ? REST : CHEMICAL, amount, hover }] : [],
        rest: Boolean(row.rest),
      };
    });
    const longest = Math.max(...bars.filter((bar) => !bar.rest).map((bar) => bar.length));
    const notes = [];
    if (bars.some((bar) => bar.rest && bar.length > longest)) {
      notes.push('The last bar is cut short; its figure is that of all the chemicals it stands for.');
    }
    if (all.some((row) => !isDrawable(row.total))) {
      notes.push(UNDRAWN);
    }
    return {
      figure: barChart({
        rows: bars,
        kinds: [],
        unit,
        labelWidth: CHEMICAL_LABEL,
        heading: 'Losses by chemical',
        detail: periodText(model) + '; a mixture counts by its components where the report names them',
        name: 'Losses by chemical over all tanks, ' + unit,
        description: describe(rows, all.length, 'chemical', unit),
        notes,
      }),
      rows,
    };
  }

  orvex.charts = Object.assign(orvex.charts || {}, { lossesByTank, lossesByChemical });
})((window.orvex = window.orvex || {}));
