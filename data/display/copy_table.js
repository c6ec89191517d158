'use strict';

// Copies a table as HTML, for text programs, and as tab-separated text, for spreadsheets.
(function (orvex) {
  const {element} = orvex;
  let touched = null;

  function tableAt(node) {
    if (!(node instanceof Element)) return null;
    const block = node.closest('.table-block');
    return block ? block.querySelector('table') : node.closest('table') || node.querySelector('table');
  }

  // Spreadsheets compute what begins with one of these, and a formula out of somebody else's file may even start
  // programs: behind an apostrophe it stays text. Figures go as they are, negative ones too. A pasted table is computed
  // like pasted text, so both are guarded.
  function guarded(text) {
    const computed = /^[=+\-@]/.test(text) && orvex.number(text.replace(/^\+/, '')) === null;
    return computed ? `'${text}` : text;
  }

  function textOf(cell) { return guarded(cell.textContent.replace(/\s+/g, ' ').trim()); }

  // Rows that the person has narrowed away are not copied.
  function rowsOf(table) { return Array.from(table.rows).filter((row) => !row.hidden); }

  // Cells that span rows or columns stand in the first place of what they cover.
  function grid(table) {
    const rows = rowsOf(table);
    const lines = rows.map(() => []);
    rows.forEach((row, y) => {
      let x = 0;
      for (const cell of row.cells) {
        while (lines[y][x] !== undefined) x += 1;
        for (let down = 0; down < cell.rowSpan && y + down < lines.length; down += 1) {
          for (let right = 0; right < cell.colSpan; right += 1) {
            lines[y + down][x + right] = down === 0 && right === 0 ? textOf(cell) : '';
          }
        }
        x += cell.colSpan;
      }
    });
    return lines;
  }

  // The bare table: the page's classes, anchors and links mean nothing elsewhere.
  function htmlOf(table) {
    const bare = element('table', {border: 1});
    for (const row of rowsOf(table)) {
      bare.append(element('tr', {}, ...Array.from(row.cells, (cell) => element(cell.localName, {
        rowspan: cell.rowSpan > 1 ? cell.rowSpan : null, colspan: cell.colSpan > 1 ? cell.colSpan : null,
        align: cell.classList.contains('figure') ? 'right' : 'left',
      }, textOf(cell)))));
    }
    return bare.outerHTML;
  }

  function putOnClipboard(text, html) {
    const fill = (event) => {
      event.clipboardData.setData('text/plain', text);
      event.clipboardData.setData('text/html', html);
      event.preventDefault();
      event.stopImmediatePropagation();
    };
    document.addEventListener('copy', fill, true);
    document.execCommand('copy');
    document.removeEventListener('copy', fill, true);
  }

  /**
   * A table as other programs take it.
   * @param {Element=} chosen the table or something in it; without one the table last touched, or else the first
   * @returns {?{text: string, html: string}} tab-separated text and bare HTML; null when the page has no table
   */
  function tableContent(chosen) {
    const inPlace = touched && touched.isConnected ? touched : null;
    const table = tableAt(chosen) || inPlace || document.querySelector('table');
    if (!table) return null;
    return {text: grid(table).map((line) => line.join('\t')).join('\n'), html: htmlOf(table)};
  }

  /**
   * Puts a table on the clipboard, which a browser lets a page do while the person presses a key or a button.
   * @param {Element=} chosen as for tableContent
   * @returns {string} the table as tab-separated text; empty when the page has no table
   */
  function copyTable(chosen) {
    const content = tableContent(chosen);
    if (!content) return '';
    putOnClipboard(content.text, content.html);
    return content.text;
  }

  function answer(button) {
    button.textContent = 'Copied';
    window.setTimeout(() => { button.textContent = 'Copy'; }, 1500);
  }

  function touch(event) {
    const block = event.target instanceof Element ? event.target.closest('.table-block') : null;
    if (block) touched = tableAt(block);
  }

  for (const kind of ['pointerdown', 'focusin', 'contextmenu']) document.addEventListener(kind, touch, true);
  document.addEventListener('click', (event) => {
    const button = event.target.closest && event.target.closest('button.copy');
    if (!button) return;
    copyTable(button);
    answer(button);
  });

  Object.assign(orvex, {copyTable, tableContent});
})(window.orvex = window.orvex || {});
