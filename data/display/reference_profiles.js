'use strict';

// The speciation profiles of a report: a list of them, and for each one the table of its components with the sums of
// its percents, which tell how much of a whole mixture it describes.
(function (orvex) {
  const {element, tables, reference, referenceRows} = orvex;

  const twoDecimals = new Intl.NumberFormat('en-US', {minimumFractionDigits: 2, maximumFractionDigits: 2});
  const whole = 10000;

  function isPercent(field) { return field.unit === 'percent'; }

  // The file has hundredths: sums of them are whole numbers, which no rounding can change.
  function hundredths(text) {
    const number = orvex.number(text);
    return number === null ? null : Math.round(number * 100);
  }

  function shown(sum) { return twoDecimals.format(sum / 100); }

  /** The sum of a field over components in hundredths; null where no component has a share. */
  function sumOf(field, components) {
    const parts = components.map((texts) => hundredths(reference.valueOf(field, texts)));
    const sum = parts.reduce((total, part) => total + (part || 0), 0);
    return parts.some((part) => part) ? sum : null;
  }

  /** The sums of the percents: field name to sum. */
  function sumsOf(fields, components) {
    return new Map(fields.filter(isPercent).map((field) => [field.name, sumOf(field, components)]));
  }

  function sumText(sum) { return sum === null ? '' : shown(sum); }

  function comparedText(sum) {
    if (sum === null) return '';
    if (sum === whole) return 'equal';
    return sum < whole ? `${shown(whole - sum)} below` : `${shown(sum - whole)} above`;
  }

  function footRow(heading, fields, sums, textOf) {
    return element('tr', {class: 'total'}, element('th', {scope: 'row', class: 'name'}, heading),
        ...fields.slice(1).map((field) => element('td', {class: field.type === 'number' ? 'figure' : null},
            sums.has(field.name) ? textOf(sums.get(field.name)) : '')));
  }

  function foot(fields, sums) {
    return [
      footRow('Sum of percents', fields, sums, sumText),
      footRow('Compared with 100', fields, sums, comparedText),
    ];
  }

  function componentTable(template, fields, make, record, sums, facts) {
    const block = template.cloneNode(true);
    referenceRows.giveName(block, record, facts);
    const table = block.querySelector('table');
    if (record.components.length === 0) {
      table.tBodies[0].append(element('tr', {}, element('td', {colspan: fields.length},
          'The profile has no components.')));
      return block;
    }
    table.tBodies[0].append(...record.components.map((texts) => make({texts})));
    table.append(element('tfoot', {}, ...foot(fields, sums)));
    return block;
  }

  function shareColumns(fields, sums) {
    return fields.filter(isPercent).map((field) => ({label: field.label, group: 'Sum of', figure: true, sort: 'number',
      content: (record) => sumText(sums.get(record).get(field.name))}));
  }

  /** The profiles: {list: {block, rows}, blocks}, both in the order of the records. */
  function build(fields, records) {
    const componentFields = reference.fieldsOf('profile components', records.flatMap((record) => record.components));
    const componentColumns = componentFields.length > 0 ? reference.columnsOf(componentFields, []) : [];
    const template = tables.table({kind: 'components', caption: '', columns: componentColumns, bodies: [[]]});
    const make = referenceRows.rowMaker(componentColumns);
    const sums = new Map(records.map((record) => [record, sumsOf(componentFields, record.components)]));
    const count = {label: 'Components', figure: true, sort: 'number',
      content: (record) => String(record.components.length)};
    return {
      list: referenceRows.overview({caption: 'Profiles',
        columns: [...reference.columnsOf(fields, []), count, ...shareColumns(componentFields, sums)]}, records),
      blocks: records.map((record) => componentTable(template, componentFields, make, record, sums.get(record),
          reference.factsText(fields.slice(1), record))),
    };
  }

  orvex.referenceProfiles = {build};
})(window.orvex = window.orvex || {});
