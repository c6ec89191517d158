'use strict';

// The cities of a meteorological report: a list of them with the values of the year, and for each one a table of its
// months.
(function (orvex) {
  const {element, labels, tables, reference, referenceRows} = orvex;
  const year = 12;

  function yearColumn(quantity) {
    const column = reference.columnOf({name: quantity.names[year], label: quantity.label, unit: quantity.unit,
      type: 'number'});
    return Object.assign(column, {group: 'Of the year'});
  }

  function nameOf(quantity) {
    return element('span', {}, quantity.label, quantity.unit ? element('span', {class: 'unit'}, ` (${quantity.unit})`) :
      null);
  }

  // The table of a city without its figures, of which each city gets a copy.
  function frame(quantities) {
    const columns = [
      {label: 'Quantity', rowHeading: true, content: nameOf},
      ...[...labels.months.slice(1), 'Year'].map((label) => ({label, figure: true})),
    ];
    return tables.table({kind: 'city-months', caption: '', columns,
      bodies: [quantities.map((quantity) => tables.row(columns, quantity))]});
  }

  function fill(block, quantities, record) {
    const {rows} = block.querySelector('tbody');
    quantities.forEach((quantity, index) => {
      let cell = rows[index].firstElementChild.nextElementSibling;
      for (let period = 0; period <= year; period += 1, cell = cell.nextElementSibling) {
        const text = record.texts[quantity.names[period]];
        if (text) cell.textContent = text;
      }
    });
  }

  /** The cities: {list: {block, rows}, blocks}, both in the order of the records. */
  function build(fields, records) {
    const {quantities, rest} = reference.byMonths(fields);
    const [name, ...others] = reference.columnsOf(rest, []);
    const figures = others.filter((column) => column.figure);
    const columns = [name, ...others.filter((column) => !figures.includes(column)),
      ...figures, ...quantities.filter((quantity) => quantity.names[year]).map(yearColumn)];
    const template = frame(quantities);
    const blocks = records.map((record) => {
      const block = template.cloneNode(true);
      referenceRows.giveName(block, record, reference.factsText(rest.filter((field) => field.type !== 'text'), record));
      fill(block, quantities, record);
      return block;
    });
    return {list: referenceRows.overview({caption: 'Cities', columns}, records), blocks};
  }

  orvex.referenceMonths = {build};
})(window.orvex = window.orvex || {});
