'use strict';

// Printing: the report is laid out at the width of a sheet, measured, and its blocks and table rows are moved onto
// sheets that fit landscape Letter and landscape A4 alike. Afterwards everything goes back to its place. The browser's
// own page breaks could not repeat what a sheet tells of, number the pages or tell them in the contents.
(function (orvex) {
  const {element} = orvex;
  const root = document.documentElement;
  const continued = ' (continued)';
  // Classes of rows that head the rest of their group: not parted from the next row, and repeated where it goes on.
  const leadingRows = ['heading', 'tank-row', 'lead'];
  // How many pieces stand side by side, by the kind of a table.
  const lanes = {'year': 3, 'printed-contents': 2, 'chemicals': 2, 'deck-fittings': 2};
  const tightest = 5;

  let printable = null;
  let printed = null;

  function heightOf(node) { return node.getBoundingClientRect().height; }

  function hasClass(row, classes) { return classes.some((name) => row.classList.contains(name)); }

  // Tables wider than the sheet get smaller letters, step by step.
  function fitTables(main) {
    let blocks = Array.from(main.querySelectorAll('.table-block'));
    for (let step = 1; step <= tightest; step += 1) {
      blocks = blocks.filter((block) => block.querySelector('table').offsetWidth > block.clientWidth + 0.5);
      for (const block of blocks) block.dataset.tight = step;
    }
  }

  // What a unit tells of, e.g. a tank: its own row says so, or the first of its body.
  function subjectOf(row, body) { return row.dataset.subject || body.rows[0].dataset.subject || ''; }

  // Whether a row must not be parted from the next one.
  function isLeading(row, next) {
    if (!next) return false;
    return hasClass(row, leadingRows) || (row.classList.contains('primary') && next.classList.contains('part'));
  }

  // The rows of a table's body that stay together. Each unit knows the rows that head it: the first row of the body,
  // and the mixture whose components it holds.
  function unitsOf(body) {
    const units = [];
    const rows = Array.from(body.rows).filter((row) => !row.hidden);
    const heights = rows.map(heightOf);
    const first = rows.length > 0 && hasClass(rows[0], leadingRows) ? 0 : -1;
    let mixture = -1;
    let unit = null;
    rows.forEach((row, index) => {
      if (!unit) {
        const heads = units.length === 0 ? [] : [first, row.classList.contains('part') ? mixture : -1];
        const repeated = heads.filter((head) => head >= 0);
        unit = {rows: [], height: 0, body, subject: subjectOf(row, body), repeat: repeated.map((head) => rows[head]),
          repeatHeight: repeated.reduce((sum, head) => sum + heights[head], 0)};
      }
      if (row.classList.contains('primary')) mixture = index;
      unit.rows.push(row);
      unit.height += heights[index];
      if (isLeading(row, rows[index + 1])) return;
      units.push(unit);
      unit = null;
    });
    return units;
  }

  // A total belongs to the row above it.
  function withFoot(units, foot) {
    if (!foot) return units;
    const footUnits = unitsOf(foot);
    const last = units.pop();
    if (!last) return footUnits;
    const height = footUnits.reduce((sum, unit) => sum + unit.height, last.height);
    return [...units, Object.assign({}, last, {height, footRows: footUnits.flatMap((unit) => unit.rows), foot})];
  }

  function tableBlock(node) {
    const table = node.querySelector('table');
    const units = withFoot(Array.from(table.tBodies).flatMap(unitsOf), table.tFoot);
    const height = heightOf(node);
    const kind = table.className;
    return {node, table, units, height, lanes: lanes[kind] || 1,
      overhead: height - units.reduce((sum, unit) => sum + unit.height, 0)};
  }

  function measure(node) {
    return node.classList.contains('table-block') ? tableBlock(node) :
      {node, height: heightOf(node), keep: node.dataset.keep !== undefined};
  }

  function shownOf(parent) { return Array.from(parent.children).filter((node) => !node.hidden); }

  function blocksOf(main) {
    const blocks = [];
    for (const part of shownOf(main)) {
      if (part.localName !== 'section') {
        blocks.push(measure(part));
        continue;
      }
      shownOf(part).forEach((node, index) => blocks.push(Object.assign(measure(node), {
        starts: index === 0 && part.dataset.break !== undefined && !root.classList.contains('single'),
        subject: node.dataset.subject || part.dataset.subject || '',
      })));
    }
    return blocks;
  }

  // The widths of a table's columns as they were measured, so that its pieces look like one table.
  function columnsOf(table) {
    const count = Array.from(table.tHead.rows[0].cells).reduce((sum, cell) => sum + cell.colSpan, 0);
    const row = Array.from(table.querySelectorAll('tbody > tr')).find(
        (each) => each.cells.length === count && !each.hidden);
    if (!row) return null;
    return element('colgroup', {}, ...Array.from(row.cells, (cell) => {
      const column = element('col');
      column.style.width = `${cell.getBoundingClientRect().width}px`;
      return column;
    }));
  }

  function headingAgain(row) {
    const copy = row.cloneNode(true);
    for (const node of copy.querySelectorAll('[id]')) node.removeAttribute('id');
    const cell = copy.cells[0];
    (cell.querySelector('.tank-name') || cell).append(continued);
    return copy;
  }

  // A row with figures is repeated by its name, and its month if it has one, lest its figures be counted twice. One
  // cell of the table's width takes no more lines than the row did.
  function rowAgain(row) {
    if (row.cells.length === 1) return headingAgain(row);
    const names = [row.cells[0], ...row.querySelectorAll('.again')].map((cell) => cell.textContent.trim());
    const text = names.filter((name) => name !== '').join(', ') + continued;
    return element('tr', {class: row.className}, element('th', {class: 'name', scope: 'rowgroup',
      colspan: row.cells.length}, text));
  }

  // A piece beside another keeps the room of the caption, but does not say it again.
  function pieceOf(block, from, to, beside) {
    const {table, units, columns} = block;
    const caption = table.caption.cloneNode(true);
    if (from > 0) caption.append(continued);
    if (beside) caption.classList.add('beside');
    const piece = table.cloneNode(false);
    piece.append(caption, ...(columns ? [columns.cloneNode(true)] : []), table.tHead.cloneNode(true));
    if (columns) piece.classList.add('fixed');
    let copy = null;
    let copied = null;
    units.slice(from, to).forEach((unit, index) => {
      if (unit.body !== copied) {
        copied = unit.body;
        copy = copied.cloneNode(false);
        piece.append(copy);
      }
      if (index === 0) copy.append(...unit.repeat.map(rowAgain));
      copy.append(...unit.rows);
      if (!unit.foot) return;
      const foot = unit.foot.cloneNode(false);
      foot.append(...unit.footRows);
      piece.append(foot);
    });
    const frame = block.node.cloneNode(false);
    frame.append(piece);
    return frame;
  }

  function isWhole({block, from, ends}) {
    if (!block.units || block.units.length === 0) return true;
    return block.lanes === 1 && from === 0 && ends[0] === block.units.length;
  }

  function contentOf(item) {
    if (isWhole(item)) return item.block.node;
    const pieces = [];
    let from = item.from;
    for (const end of item.ends) {
      if (end > from) pieces.push(pieceOf(item.block, from, end, pieces.length > 0));
      from = end;
    }
    return item.block.lanes === 1 ? pieces[0] : element('div', {class: 'lanes'}, ...pieces);
  }

  function scaled(content, item) {
    if (item.scale >= 1) return content;
    // Not a transform: a block that is only painted smaller still reaches over the edge of its page.
    const frame = element('div', {class: 'shrunk'}, content);
    frame.style.zoom = String(item.scale);
    return frame;
  }

  // "VF-101" or "VF-101 … VF-109": what a sheet tells of.
  function subjectsOf(items) {
    const names = items.flatMap((item) => {
      if (!item.block.units) return [item.block.subject];
      const units = item.block.units.slice(item.from, item.ends[item.ends.length - 1]);
      return units.length === 0 ? [item.block.subject] : [units[0], units[units.length - 1]].map((unit) =>
        unit.subject || item.block.subject);
    }).filter((name) => name);
    if (names.length === 0) return '';
    const [first, last] = [names[0], names[names.length - 1]];
    return first === last ? first : `${first} … ${last}`;
  }

  function sheetOf(items, page, count) {
    return element('section', {class: 'sheet', 'data-page': page, 'aria-label': `Page ${page}`},
        element('p', {class: 'sheet-head'}, element('span', {}, printable.title),
            element('span', {class: 'sheet-subject'}, subjectsOf(items))),
        element('div', {class: 'sheet-body'}, ...items.map((item) => scaled(contentOf(item), item))),
        element('p', {class: 'sheet-foot'}, element('span', {}, 'ORVEX'),
            element('span', {}, `Page ${page} of ${count}`)));
  }

  function capacity() {
    const probe = sheetOf([], 1, 1);
    const frame = element('div', {class: 'sheets'}, probe);
    document.body.append(frame);
    const body = probe.querySelector('.sheet-body');
    const height = heightOf(body) - parseFloat(getComputedStyle(body).paddingTop);
    frame.remove();
    return height;
  }

  // What moving takes apart, and how it goes back.
  function remember(main) {
    const parents = [main, ...main.querySelectorAll('section, tbody, tfoot')];
    const kept = parents.map((parent) => [parent, Array.from(parent.childNodes)]);
    return () => kept.forEach(([parent, nodes]) => parent.replaceChildren(...nodes));
  }

  function numberContents(frame) {
    for (const cell of frame.querySelectorAll('.page[data-for]')) {
      const target = document.getElementById(cell.dataset.for);
      const sheet = target && target.closest('.sheet');
      cell.textContent = sheet ? sheet.dataset.page : '';
    }
  }

  /** Lays the report out on sheets and returns how many they are; 0 when no report is shown. */
  function preparePrint() {
    if (!printable) return 0;
    if (printed) return printed.count;
    const {main} = printable;
    const scroll = window.scrollY;
    const putBack = remember(main);
    root.classList.add('printing');
    const contents = printable.contents();
    if (contents) main.firstElementChild.after(contents);
    fitTables(main);
    const blocks = blocksOf(main);
    const sheets = orvex.paginate(blocks, capacity());
    for (const item of sheets.flat()) {
      if (!isWhole(item) && item.from === 0) item.block.columns = columnsOf(item.block.table);
    }
    const frame = element('div', {class: 'sheets'});
    frame.append(...sheets.map((items, index) => sheetOf(items, index + 1, sheets.length)));
    document.body.append(frame);
    numberContents(frame);
    root.classList.add('on-sheets');
    printed = {frame, putBack, scroll, count: sheets.length};
    return printed.count;
  }

  /** Puts the report back as it was before preparePrint. */
  function finishPrint() {
    if (!printed) return;
    printed.putBack();
    printed.frame.remove();
    root.classList.remove('printing', 'on-sheets');
    window.scrollTo(0, printed.scroll);
    printed = null;
  }

  // A program that prepared printing itself also ends it: several jobs may print from one preparation.
  let byBrowser = false;
  window.addEventListener('beforeprint', () => {
    byBrowser = !printed;
    preparePrint();
  });
  window.addEventListener('afterprint', () => {
    if (byBrowser) finishPrint();
  });

  /** @param {{main: Element, title: string, contents: function(): Element}} what the report that is shown */
  function setPrintable(what) {
    finishPrint();
    printable = what;
  }

  Object.assign(orvex, {preparePrint, finishPrint, setPrintable});
})(window.orvex = window.orvex || {});
