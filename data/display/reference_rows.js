'use strict';

// Tables of reference records, a row each. A report can have thousands of them: rows are copies of one that is made
// once, and on the screen the columns have widths of their own, so that rows out of sight need not be laid out.
(function (orvex) {
  const {element, tables, reference} = orvex;
  // Texts up to this length stay on a line.
  const oneLine = 24;
  const widest = 34;
  // How tables are told to screen readers, whatever the style sheet makes of their boxes.
  const roles = {table: 'table', thead: 'rowgroup', tbody: 'rowgroup', tr: 'row', td: 'cell'};

  /**
   * A function that makes a record's row of these columns. It keeps the greatest length of a column's texts in
   * `lengths`.
   */
  function rowMaker(columns) {
    const template = tables.row(columns.map((column) => Object.assign({}, column, {content: () => ''})), {});
    giveRoles(template);
    const lengths = columns.map(() => 0);
    const make = (record) => {
      const made = template.cloneNode(true);
      let cell = made.firstElementChild;
      columns.forEach((column, index) => {
        const content = column.content(record);
        if (content !== '') {
          cell.append(content);
          const {length} = typeof content === 'string' ? content : content.textContent;
          if (length > lengths[index]) lengths[index] = length;
        }
        cell = cell.nextElementSibling;
      });
      return made;
    };
    return Object.assign(make, {lengths});
  }

  function roleOf(node) {
    if (node.localName !== 'th') return roles[node.localName];
    return node.scope.startsWith('col') ? 'columnheader' : 'rowheader';
  }

  function giveRoles(root) {
    for (const node of [root, ...root.querySelectorAll('tr, th, td')]) {
      node.setAttribute('role', roleOf(node));
    }
  }

  // A column is as wide as its longest text, or the longest word over it, whose letters are bold.
  function widthOf(column, length, hasOwnUnit) {
    const words = column.label.split(' ').map((word) => word.length);
    const heading = 1.05 * Math.max(...words) + (column.sort ? 1.5 : 0);
    const unit = hasOwnUnit ? column.unit.length + 1.5 : 0;
    return Math.max(heading, 0.95 * unit, (column.figure ? 1 : 0.95) * Math.min(length, widest)) + 2.5;
  }

  function placeColumns(block, columns, lengths) {
    const table = block.querySelector('table');
    const widths = columns.map((column, index) => {
      const hasOwnUnit = column.unit && columns.some((other) => other.group === column.group &&
          other.unit !== column.unit);
      return `${widthOf(column, lengths[index], hasOwnUnit).toFixed(1)}ch`;
    });
    table.style.setProperty('--columns', widths.join(' '));
    for (const heading of table.tHead.querySelectorAll('[colspan]')) {
      heading.style.gridColumn = `span ${heading.colSpan}`;
    }
    for (const node of [table, table.tHead, ...table.tBodies]) node.setAttribute('role', roleOf(node));
    giveRoles(table.tHead);
  }

  function stayOnLine(row, columns, lengths) {
    columns.forEach((column, index) => {
      if (!column.figure && lengths[index] <= oneLine) row.cells[index].classList.add('short');
    });
  }

  /**
   * A table of records that can be sorted, with a running number in front.
   * @param {{caption: string, columns: object[]}} parts as for `tables.table`, without the numbers
   * @param {object[]} records each with its `name`
   * @returns {{block: Element, rows: Element[]}} the rows in the order of the records
   */
  function list(parts, records) {
    const columns = [reference.numbering, ...parts.columns];
    const make = rowMaker(columns);
    const rows = records.map((record) => {
      const row = make(record);
      row.dataset.subject = record.name;
      return row;
    });
    for (const row of rows) stayOnLine(row, columns, make.lengths);
    const block = tables.table({kind: 'records', caption: parts.caption, quiet: true, columns, bodies: []});
    block.querySelector('table').append(...orvex.inChunks(rows, () => element('tbody')));
    placeColumns(block, columns, make.lengths);
    // The keyboard scrolls it, too.
    block.querySelector('.table-box').tabIndex = 0;
    return {block, rows};
  }

  /** A list whose names lead to the records' own parts, by their `anchor`. */
  function overview(parts, records) {
    const [name, ...others] = parts.columns;
    const link = (record) => element('a', {href: `#${record.anchor}`}, record.name);
    return list(Object.assign({}, parts, {columns: [Object.assign({}, name, {content: link}), ...others]}), records);
  }

  /** Tells a copy of a table's frame, one for many records, whose it is. */
  function giveName(block, record, facts) {
    const told = facts ? [' ', element('span', {class: 'caption-facts'}, facts)] : [];
    block.querySelector('caption').replaceChildren(record.name, ...told);
    block.querySelector('button.copy').title = `Copy the table “${record.name}”`;
    block.querySelector('.table-box').setAttribute('aria-label', record.name);
    block.id = record.anchor;
    block.tabIndex = -1;
    block.dataset.subject = record.name;
  }

  orvex.referenceRows = {rowMaker, list, overview, giveName};
})(window.orvex = window.orvex || {});
