'use strict';

// The document: an overview of the report, then the tanks in the order of the file.
// The direct children of a section are the blocks that printing distributes over its sheets.
(function (orvex) {
  const {element, labels, tables, isBlank} = orvex;

  const overviewParts = [
    {anchor: 'overview', text: 'Overview'},
    {anchor: 'by-tank', text: 'Losses by tank'},
    {anchor: 'by-chemical', text: 'Losses by chemical'},
  ];

  function nameOf(text) { return isBlank(text) ? '(tank without a name)' : text; }

  function anchorOf(index) { return `tank-${index + 1}`; }

  function periodText(model) {
    const {periods} = model;
    if (periods.length === 12) return `${periods[0]} to ${periods[11]}`;
    return periods.join(', ') || 'not told';
  }

  function fact(term, value) {
    return element('div', {class: 'fact'}, element('dt', {}, term), element('dd', {}, value));
  }

  // What the year's or the months' total is: the roll-up's, or of a single tank that of its only mixture.
  function totalOf(model) {
    if (model.summary && model.summary.total !== null) return model.summary.total;
    const primary = model.tanks.length === 1 ? model.tanks[0].components.filter((component) => component.primary) : [];
    return primary.length === 1 ? primary[0].total : null;
  }

  function titleBlock(model) {
    const total = totalOf(model);
    const single = model.tanks.length === 1;
    return element('header', {class: 'title-block'},
        element('h1', {}, labels.kinds[model.kind].title),
        element('p', {class: 'subtitle'}, single ? model.tanks[0].name : 'Organic liquid storage tanks'),
        element('dl', {class: 'facts'},
            fact(model.periods.length > 1 ? 'Months' : 'Period', periodText(model)),
            fact('Tanks', String(model.tanks.length)),
            total === null ? null : fact('Total emissions', `${total} lb`)));
  }

  // A chart shows nothing that the tables do not say: a report without its picture is better than none.
  function drawn(name, argument) {
    try {
      return orvex.charts[name](argument);
    } catch (error) {
      console.error(error);
      return null;
    }
  }

  function chartBlock(name, chart, anchor) {
    return element('div', {class: `chart-block ${name}`, id: anchor, tabindex: anchor ? '-1' : null}, chart.figure);
  }

  function monthlyCourse(tank) {
    const chart = drawn('monthlyCourse', tank);
    return chart ? chartBlock('monthlyCourse', chart) : null;
  }

  // A chart over all tanks with its table, unless it is one bar, which says no more than the line it stands for.
  function chartWithTable(name, model, anchor, tableOf) {
    const chart = drawn(name, model);
    if (!chart || chart.rows.length < 2) return [];
    return [chartBlock(name, chart, anchor), tableOf(chart.rows)];
  }

  // The roll-up names tanks by their USER ID, trimmed or not.
  function anchorsById(model) {
    const anchors = new Map();
    model.tanks.forEach((tank, index) => anchors.set(tank.id.trim(), anchorOf(index)));
    return (row) => anchors.get((row.id || '').trim()) || null;
  }

  function section(anchor, attributes, ...content) {
    return element('section', Object.assign({'aria-labelledby': anchor}, attributes), ...content);
  }

  function heading(level, anchor, text) {
    return element(level, {id: anchor, 'data-keep': true, tabindex: '-1'}, text);
  }

  function overview(model) {
    const anchor = anchorsById(model);
    const content = [
      model.summary ? tables.rollUp(model.summary, anchor) : null,
      ...chartWithTable('lossesByTank', model, 'by-tank', (rows) => orvex.chartTables.tanks(rows, anchor)),
      ...chartWithTable('lossesByChemical', model, 'by-chemical', orvex.chartTables.chemicals),
    ].filter((node) => node !== null);
    return content.length === 0 ? null :
      section('overview', {class: 'overview'}, heading('h2', 'overview', 'Overview'), ...content);
  }

  function valueText(item, known) {
    if (known.flag && /^[YN]$/.test(item.text)) return item.text === 'Y' ? 'Yes' : 'No';
    return item.text;
  }

  function definition(item, known) {
    const value = valueText(item, known);
    const unit = known.unit && !isBlank(value) ? element('span', {class: 'unit'}, ` ${known.unit}`) : null;
    return element('div', {class: 'definition'}, element('dt', {}, known.label),
        element('dd', {}, isBlank(value) ? '–' : value, unit));
  }

  function card(title, items) {
    return element('div', {class: 'card'}, element('h4', {}, title),
        items.length > 0 ? element('dl', {}, ...items) : null);
  }

  function identificationCard(tank) {
    const items = Object.entries(tank.identification).map(([name, text]) =>
      definition({text}, labels.identification[name] || {label: labels.spellOut(name)}));
    return card('Identification', items);
  }

  function groupCard(group) {
    const known = labels.groups[group.name];
    const title = known ? known.title : labels.spellOut(group.name);
    const type = group.items.find((item) => item.name === 'Type');
    const items = group.items.map((item) =>
      definition(item, labels.ofItem(group.name, item.name, type && type.text)));
    const made = card(title, items);
    if (!isBlank(group.text)) made.append(element('p', {}, group.text));
    return made;
  }

  function characteristics(tank) {
    const groups = tank.groups.filter((group) => group.items.length > 0 || !isBlank(group.text));
    const cards = [...(tank.identification ? [identificationCard(tank)] : []), ...groups.map(groupCard)];
    return cards.length === 0 ? [] : [heading('h3', null, 'Identification and physical characteristics'),
      element('div', {class: 'cards'}, ...cards)];
  }

  function tankFacts(tank) {
    const facts = [
      isBlank(tank.company) ? null : tank.company,
      isBlank(tank.location) ? null : tank.location,
      isBlank(tank.loss) ? null : `Total emissions ${tank.loss} lb`,
    ].filter((text) => text !== null);
    return facts.length === 0 ? null : element('p', {class: 'tank-facts', 'data-keep': true}, facts.join('  ·  '));
  }

  function missing(text) { return element('p', {class: 'missing'}, text); }

  function calculationBlocks(tank) {
    if (!tank.detail) return [];
    return [tables.calculation(tank) || missing('The report holds no calculation of this tank.'),
      tables.roofFittings(tank)];
  }

  function tankSection(model, tank, index) {
    const made = section(anchorOf(index), {class: 'tank', 'data-subject': nameOf(tank.name), 'data-break': true},
        heading('h2', anchorOf(index), nameOf(tank.name)),
        tankFacts(tank), ...characteristics(tank),
        ...tank.groups.filter((group) => group.fittings.length > 0).map(tables.deckFittings),
        tank.liquid.length > 0 ? tables.liquidContents(tank) : null,
        ...calculationBlocks(tank),
        tank.components.length > 0 ? tables.emissionTotals(tank) : missing('The report holds no losses of this tank.'),
        monthlyCourse(tank));
    // Off the screen a section has this height until it is drawn: close enough for a steady scroll bar.
    const height = 420 + 24 * made.querySelectorAll('tr').length;
    made.style.containIntrinsicSize = `auto 900px auto ${height}px`;
    return made;
  }

  // A Brief report has a few lines a tank: one table holds them all.
  function briefSection(model) {
    return section('tanks', {class: 'brief', 'data-break': true},
        heading('h2', 'tanks', 'Tanks'), tables.tankLosses(model.tanks, anchorOf));
  }

  /** The nodes of the document, from top to bottom. */
  function build(model) {
    const tanks = model.kind === 'Brief' ? [briefSection(model)] :
      model.tanks.map((tank, index) => tankSection(model, tank, index));
    return [titleBlock(model), overview(model), ...tanks].filter((node) => node !== null);
  }

  /** Where the tanks of the document are: [{anchor, text, note, search}]; search is what finds one, in lower case. */
  function places(model) {
    return model.tanks.map((tank, index) => ({anchor: anchorOf(index), text: nameOf(tank.id), note: tank.type.trim(),
      search: [tank.name, tank.company, tank.location].join(' ').toLowerCase()}));
  }

  /** What stands in front of the tanks: [{anchor, text}], of the document that `build` made. */
  function parts(main) {
    return overviewParts.filter((part) => main.querySelector(`#${part.anchor}`) !== null);
  }

  orvex.sections = {build, places, parts};
})(window.orvex = window.orvex || {});
