'use strict';

// Sorts a table by the column whose heading is pressed: numbers as numbers, texts without regard to case, rows with an
// empty cell last whichever way the others go. Equal rows keep their order.
(function (orvex) {
  const collator = new Intl.Collator('en', {sensitivity: 'accent', numeric: true});

  function keyOf(row, column, kind) {
    const text = row.cells[column] ? row.cells[column].textContent.trim() : '';
    const number = kind === 'number' ? orvex.number(text) : null;
    // What stands in a column of figures and is none comes behind them.
    return {row, text, number, rank: text === '' ? 2 : kind === 'number' && number === null ? 1 : 0};
  }

  function compare(a, b, direction) {
    if (a.rank !== b.rank) return a.rank - b.rank;
    if (a.number !== null) return direction * (a.number - b.number);
    return direction * collator.compare(a.text, b.text);
  }

  function mark(table, chosen, ascending) {
    for (const heading of table.tHead.querySelectorAll('[aria-sort]')) {
      heading.setAttribute('aria-sort', heading !== chosen ? 'none' : ascending ? 'ascending' : 'descending');
    }
  }

  /** Sorts the table of a heading by its column: upwards first, then downwards. Tells it by the event "orvex-sort". */
  function sortBy(heading) {
    const table = heading.closest('table');
    const ascending = heading.getAttribute('aria-sort') !== 'ascending';
    const {column, sort} = heading.dataset;
    const bodies = Array.from(table.tBodies);
    const keys = bodies.flatMap((body) => Array.from(body.rows, (row) => keyOf(row, Number(column), sort)));
    keys.sort((a, b) => compare(a, b, ascending ? 1 : -1));
    orvex.reorder(bodies, keys.map((key) => key.row));
    mark(table, heading, ascending);
    table.dispatchEvent(new CustomEvent('orvex-sort', {bubbles: true}));
  }

  document.addEventListener('click', (event) => {
    const button = event.target.closest && event.target.closest('button.sort');
    if (button) sortBy(button.closest('th'));
  });
})(window.orvex = window.orvex || {});
