'use strict';

// The kinds of reference data reports: what each is called and how its fields become columns. What a field is called
// comes from the field tables (reference_fields.js).
(function (orvex) {
  const {labels, referenceFields} = orvex;

  // `table` tells the fields, and `named` how many of its first texts it takes to name a record; `groups` puts
  // neighbours whose labels begin with the same words under one heading; `of` is what the rows are part of, where that
  // is no reference data.
  const kinds = {
    Chemical: {title: 'Chemical Report', table: 'chemical', one: 'chemical', many: 'chemicals',
      groups: ['Vapor pressure', 'Antoine coefficient', 'Coefficient']},
    Met: {title: 'Meteorological Report', table: 'met', one: 'city', many: 'cities', groups: []},
    Fit: {title: 'Fitting Report', table: 'fitting', one: 'fitting', many: 'fittings', named: 2,
      groups: ['Loss factor', 'For']},
    Rim: {title: 'Rim Seal Report', table: 'rimseal', one: 'rim seal', many: 'rim seals', named: 2,
      groups: ['For', 'Seal factor', 'Offered for']},
    Deck: {title: 'Deck Seam Report', table: 'deckseam', one: 'deck seam', many: 'deck seams',
      groups: ['Panel']},
    Profile: {title: 'Speciation Profile Report', table: 'profile names', one: 'profile', many: 'profiles', groups: []},
    Import: {title: 'Import Report', table: 'import errors', one: 'message', many: 'messages', named: 2, groups: [],
      of: 'Log of the last import'},
  };

  // What a report counts by, and what only ties the rows of two tables: neither tells a person anything.
  const counting = 'REC_NO';
  const ties = ['SPECID'];
  const periods = ['January', 'February', 'March', 'April', 'May', 'June', 'July', 'August', 'September', 'October',
    'November', 'December', 'year'];

  function isShown(field) { return field.type !== 'counter' && !ties.includes(field.name); }

  /** The fields of a table that are shown, then those that the file alone knows, under their own names. */
  function fieldsOf(table, records) {
    const present = new Set();
    for (const texts of records) for (const name in texts) present.add(name);
    const fields = referenceFields[table];
    const unknown = Array.from(present).filter((name) => name !== counting &&
        !fields.some((field) => field.name === name));
    return [
      ...fields.filter((field) => isShown(field) && present.has(field.name)),
      ...unknown.map((name) => ({name, label: labels.spellOut(name), unit: '', type: 'text'})),
    ];
  }

  function valueOf(field, texts) {
    const text = texts[field.name];
    if (text === undefined || orvex.isBlank(text)) return '';
    return field.type === 'boolean' && /^[YN]$/.test(text) ? (text === 'Y' ? 'Yes' : 'No') : text;
  }

  // "at 100" and "deg F" stay together where a heading is broken.
  function unbroken(label) { return label.replace(/\b(at|deg) (?=\d|[A-Z]\b)/g, '$1\u00a0'); }

  /** A field as a column of a table that can be sorted; its content is that of a record's `texts`. */
  function columnOf(field) {
    const figure = field.type === 'number';
    // "Liquid weight percent" needs no "(percent)".
    const unit = field.label.endsWith(` ${field.unit}`) ? '' : field.unit;
    return {name: field.name, label: unbroken(field.label), unit, figure, sort: figure ? 'number' : 'text',
      content: (record) => valueOf(field, record.texts)};
  }

  function underGroups(columns, groups) {
    const groupOf = (column) => groups.find((group) => column && column.label.startsWith(`${group} `));
    return columns.map((column, index) => {
      const group = groupOf(column);
      const together = group && [columns[index - 1], columns[index + 1]].some((other) => groupOf(other) === group);
      return together ? Object.assign({}, column, {group, label: column.label.slice(group.length + 1)}) : column;
    });
  }

  /** The columns of some fields; the first one names the record. */
  function columnsOf(fields, groups) {
    const columns = underGroups(fields.map(columnOf), groups);
    return [Object.assign({}, columns[0], {rowHeading: true}), ...columns.slice(1)];
  }

  /** The column of the running numbers, by which a sorted table finds back into the order of the file. */
  const numbering = {label: 'No.', figure: true, sort: 'number', content: (record) => record.texts[counting] || ''};

  // Fields that hold one quantity for each month and the year share a label up to the comma.
  function periodOf(field) {
    const found = /^(.+), (\w+)$/.exec(field.label);
    const period = found ? periods.indexOf(found[2]) : -1;
    return period < 0 ? null : {quantity: found[1], period};
  }

  /**
   * The quantities that are told by months: [{label, unit, names}], names those of January to December and the year;
   * and what is left of the fields.
   */
  function byMonths(fields) {
    const quantities = new Map();
    const rest = [];
    for (const field of fields) {
      const found = periodOf(field);
      if (!found) {
        rest.push(field);
        continue;
      }
      if (!quantities.has(found.quantity)) {
        quantities.set(found.quantity, {label: found.quantity, unit: field.unit, names: []});
      }
      quantities.get(found.quantity).names[found.period] = field.name;
    }
    return {quantities: Array.from(quantities.values()), rest};
  }

  /** What a record says in these fields, on a line: "Atmospheric pressure: 14.40 psia  ·  User-defined: No". */
  function factsText(fields, record) {
    return fields.map((field) => [field, valueOf(field, record.texts)]).filter(([, value]) => value !== '')
      .map(([field, value]) => `${field.label}: ${value}${field.unit ? ` ${field.unit}` : ''}`).join('  ·  ');
  }

  /** "1 city", "430 cities" */
  function countText(kind, count) {
    return `${count.toLocaleString('en-US')} ${count === 1 ? kinds[kind].one : kinds[kind].many}`;
  }

  orvex.reference = {kinds, fieldsOf, valueOf, columnOf, columnsOf, numbering, byMonths, factsText, countText};
})(window.orvex = window.orvex || {});
