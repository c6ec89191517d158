'use strict';

// The tables of the charts over all tanks. A chart adds displayed figures: its sums stand nowhere else in the report,
// and whoever cannot see the chart reads them here.
(function (orvex) {
  const {labels, tables} = orvex;

  // The rest of a chart is no tank and no chemical: it stands below the others, like a total.
  function restRows(columns, rows, nameOf) {
    const rest = rows.filter((row) => row.rest);
    return rest.length === 0 ? null :
      rest.map((row) => tables.row(columns, Object.assign({}, row, {name: nameOf(row), tanks: ''}), 'rest'));
  }

  function textOfKind(row, key) {
    const found = row.kinds.find((kind) => kind.key === key);
    return found ? found.text : '';
  }

  /** The rows of `lossesByTank`; `anchorOf` as for `tables.tankLink`. */
  function tanks(rows, anchorOf) {
    const present = new Set(rows.flatMap((row) => row.kinds.map((kind) => kind.key)));
    const kinds = orvex.chartDraw.KINDS.filter((kind) => present.has(kind.key));
    const columns = [
      {label: 'Tank', rowHeading: true, content: (row) => row.rest ? row.name : tables.tankLink(row, anchorOf)},
      {name: 'type', label: 'Type'},
      ...kinds.map((kind) => ({label: labels.losses.find((loss) => loss.name === kind.element).label, unit: 'lb',
        figure: true, content: (row) => textOfKind(row, kind.key)})),
      {name: 'text', label: 'Total emissions', unit: 'lb', figure: true},
    ];
    return tables.table({kind: 'kinds', caption: 'Losses by tank and kind of loss, largest first', columns,
      bodies: [rows.filter((row) => !row.rest).map((row) => tables.row(columns, row))],
      foot: restRows(columns, rows, (row) => row.name)});
  }

  /** The rows of `lossesByChemical`. All chemicals are listed, also those that the chart makes one bar of. */
  function chemicals(rows) {
    const all = rows.flatMap((row) => row.rest ? row.others : [row]);
    const columns = labels.chemicals;
    const nameOf = (row) => `The last ${row.others.length.toLocaleString('en-US')} chemicals together`;
    return tables.table({kind: 'chemicals', caption: 'Losses by chemical over all tanks, largest first', columns,
      bodies: [all.map((row) => tables.row(columns, Object.assign({}, row, {tanks: String(row.tanks)})))],
      foot: restRows(columns, rows, nameOf)});
  }

  orvex.chartTables = {tanks, chemicals};
})(window.orvex = window.orvex || {});
