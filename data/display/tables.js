'use strict';

// Tables of columns. A column is {name, label, unit, group, share, again, sort, rowHeading, figure, prose}: `name` says
// which text of a record it shows, `group` puts it under a heading with its neighbours, `share` is its part of the
// width in per cent, `again` repeats it beside a row's name where that row's parts go on on another sheet, `sort` lets
// a person sort by it ("number" or "text"), the rest is how it looks.
(function (orvex) {
  const {element, labels, isBlank, indentOf} = orvex;

  function unitText(unit) { return unit ? element('span', {class: 'unit'}, `(${unit})`) : null; }

  function classOf(column) {
    if (column.rowHeading) return 'name';
    if (column.figure) return 'figure';
    if (column.prose) return 'prose';
    return column.again ? 'again' : null;
  }

  function headingCell(column, index, rows) {
    const {label, unit, sort} = column;
    const attributes = {scope: 'col', class: classOf(column), rowspan: rows};
    if (sort) Object.assign(attributes, {'aria-sort': 'none', 'data-sort': sort, 'data-column': index});
    return element('th', attributes, sort ? element('button', {type: 'button', class: 'sort'}, label) : label,
        unit ? ' ' : null, unitText(unit));
  }

  // Runs of columns with the same group, in order.
  function groupsOf(columns) {
    const groups = [];
    for (const column of columns) {
      const last = groups[groups.length - 1];
      if (last && column.group && last.group === column.group) {
        last.columns.push(column);
      } else {
        groups.push({group: column.group, columns: [column]});
      }
    }
    return groups;
  }

  function head(columns) {
    if (!columns.some((column) => column.group)) {
      return element('thead', {}, element('tr', {}, ...columns.map((column, index) => headingCell(column, index))));
    }
    const upper = element('tr');
    const lower = element('tr');
    let index = 0;
    for (const {group, columns: members} of groupsOf(columns)) {
      const first = index;
      index += members.length;
      if (!group) {
        upper.append(headingCell(members[0], first, 2));
        continue;
      }
      // A unit that all of them have stands once, over them.
      const unit = members.every((column) => column.unit === members[0].unit) ? members[0].unit : null;
      upper.append(element('th', {scope: 'colgroup', colspan: members.length, class: 'over'}, group, unit ? ' ' : null,
          unitText(unit)));
      lower.append(...members.map((column, at) => headingCell(unit ? Object.assign({}, column, {unit: null}) : column,
          first + at)));
    }
    return element('thead', {}, upper, lower);
  }

  // Shares of the width, in per cent, for tables whose columns differ much.
  function shares(columns) {
    if (!columns.some((column) => column.share)) return null;
    return element('colgroup', {}, ...columns.map((column) => {
      const made = element('col');
      made.style.width = `${column.share}%`;
      return made;
    }));
  }

  /** A row of `columns` from the texts of `record`; a column may bring its own `content(record)`. */
  function row(columns, record, className) {
    const made = element('tr', {class: className});
    for (const column of columns) {
      const content = column.content ? column.content(record) : record[column.name];
      const cell = element(column.rowHeading ? 'th' : 'td', {scope: column.rowHeading ? 'row' : null,
        class: classOf(column)});
      if (!isBlank(typeof content === 'string' ? content : 'node') && content !== undefined) cell.append(content);
      made.append(cell);
    }
    return made;
  }

  /**
   * A table with its frame: the box it scrolls in when the window is narrow, and its button.
   * @param {{kind: string, caption: string, quiet: boolean, columns: object[], bodies: Element[][], foot: Element[]}}
   *     parts quiet: the caption is for screen readers alone, since a heading stands right above
   */
  function table(parts) {
    const made = element('table', {class: parts.kind},
        element('caption', {class: parts.quiet ? 'quiet' : null}, parts.caption), shares(parts.columns),
        head(parts.columns),
        ...parts.bodies.map((rows) => element('tbody', {}, ...rows)),
        parts.foot ? element('tfoot', {}, ...parts.foot) : null);
    const title = `Copy the table “${parts.caption}”`;
    const button = element('button', {type: 'button', class: 'copy', title}, 'Copy');
    const box = element('div', {class: 'table-box', role: 'group', 'aria-label': parts.caption}, made);
    return element('div', {class: `table-block ${parts.kind}-block`}, button, box);
  }

  function rowsOf(columns, records) { return records.map((record) => row(columns, record)); }

  // Known losses in the order of the labels, then such as the file alone knows.
  function lossColumns(tanks) {
    const present = new Set();
    for (const tank of tanks) {
      for (const component of tank.components) Object.keys(component.losses).forEach((name) => present.add(name));
    }
    const known = labels.losses.filter((loss) => present.has(loss.name));
    const unknown = Array.from(present).filter((name) => !known.some((loss) => loss.name === name));
    const losses = known.concat(unknown.map((name) => ({name, label: labels.spellOut(name)})));
    return [
      {label: 'Mixture / component', rowHeading: true, content: (component) => component.name},
      ...losses.map((loss) => ({label: loss.label, unit: 'lb', figure: true,
        content: (component) => component.losses[loss.name]})),
      {label: 'Total emissions', unit: 'lb', figure: true, content: (component) => component.total},
    ];
  }

  function lossRows(columns, tank) {
    return tank.components.map((component) => row(columns, component, component.primary ? 'primary' : 'part'));
  }

  function tankRow(tank, anchor, columnCount) {
    const place = [tank.company, tank.location].filter((text) => !isBlank(text)).join(', ');
    const heading = element('th', {scope: 'rowgroup', colspan: columnCount, id: anchor, tabindex: '-1'},
        element('span', {class: 'tank-name'}, tank.name),
        place ? element('span', {class: 'place'}, ` ${place}`) : null);
    return element('tr', {class: 'tank-row', 'data-subject': tank.id}, heading);
  }

  /** The losses of all tanks, tank after tank; `anchorOf(index)` is the id that links lead to. */
  function tankLosses(tanks, anchorOf) {
    const columns = lossColumns(tanks);
    const nothing = () => element('tr', {class: 'part'}, element('td', {colspan: columns.length},
        'The report holds no losses of this tank.'));
    const bodies = tanks.map((tank, index) => [
      tankRow(tank, anchorOf(index), columns.length),
      ...(tank.components.length > 0 ? lossRows(columns, tank) : [nothing()]),
    ]);
    return table({kind: 'losses', caption: 'Emissions by tank', columns, bodies});
  }

  function emissionTotals(tank) {
    const columns = lossColumns([tank]);
    return table({kind: 'losses', caption: 'Emission totals', columns, bodies: [lossRows(columns, tank)]});
  }

  /** A tank's name that leads to its part, where it has one; `anchorOf(row)` gives the part's id, or null. */
  function tankLink(row, anchorOf) {
    const anchor = anchorOf(row);
    return anchor ? element('a', {href: `#${anchor}`}, row.id || '(no name)') : row.id;
  }

  /** The roll-up of all tanks; `anchorOf` as for `tankLink`. */
  function rollUp(summary, anchorOf) {
    const columns = labels.rollUp.map((column) => column.name === 'id' ?
      Object.assign({}, column, {content: (tank) => tankLink(tank, anchorOf)}) : column);
    const total = summary.total === null ? null : [element('tr', {class: 'total'},
        element('th', {scope: 'row', class: 'name', colspan: columns.length - 1}, 'Total emissions of all tanks'),
        element('td', {class: 'figure'}, summary.total))];
    return table({kind: 'roll-up', caption: 'All tanks', columns, foot: total,
      bodies: [rowsOf(columns, summary.tanks)]});
  }

  // The lines of a mixture stand out from those of its components, where there are such.
  function classOfLine(line, lines) {
    if (!line.primary) return 'part';
    return lines.some((other) => !other.primary) ? 'primary' : 'only';
  }

  function liquidContents(tank) {
    // One body a month keeps a mixture with its components.
    const bodies = [];
    for (const record of tank.liquid) {
      if (record.primary || bodies.length === 0) bodies.push([]);
      bodies[bodies.length - 1].push(row(labels.liquid, record, classOfLine(record, tank.liquid)));
    }
    return table({kind: 'liquid', caption: 'Liquid contents of storage tank', columns: labels.liquid, bodies});
  }

  function monthOf(column) { return Number(column.slice('month_'.length)); }

  function calculationColumns(lines) {
    const names = new Set();
    for (const line of lines) line.cells.forEach((cell) => names.add(cell.column));
    return Array.from(names).sort((a, b) => monthOf(a) - monthOf(b)).map((name) => ({name, figure: true,
      label: labels.months[monthOf(name)] || name}));
  }

  /**
   * What a month's cell of a calculation line shows. A constant stands in the file as all months' values joined by "|":
   * a month takes its own.
   */
  function cellText(column, text) {
    if (monthOf(column) === 0 || !text.includes('|')) return text;
    return text.split('|')[monthOf(column) - 1] || '';
  }

  function plainLabel(label) { return label.trim().replace(/:$/, ''); }

  function isHeading(line) { return line.cells.every((cell) => isBlank(cell.text)); }

  function lineRow(columns, line, labelParts) {
    const record = {};
    for (const cell of line.cells) record[cell.column] = cellText(cell.column, cell.text);
    const heading = {rowHeading: true, content: () => labelParts.join(' ')};
    const depth = indentOf(line.label) === 0 ? 'lead' : 'step';
    return row([heading, ...columns], record, depth);
  }

  // Blank lines part the blocks. A label without values heads its block, or, when the next line stands deeper, is the
  // first half of that line's label.
  function calculationBodies(columns, lines) {
    const bodies = [[]];
    let begun = [];
    lines.forEach((line, index) => {
      const next = lines[index + 1];
      if (isBlank(line.label)) {
        bodies.push([]);
      } else if (!isHeading(line)) {
        bodies[bodies.length - 1].push(lineRow(columns, line, [...begun, plainLabel(line.label)]));
        begun = [];
      } else if (indentOf(line.label) > 0 && next && indentOf(next.label) > indentOf(line.label)) {
        begun = [plainLabel(line.label)];
      } else {
        bodies[bodies.length - 1].push(element('tr', {class: 'heading'}, element('th', {scope: 'rowgroup',
          colspan: columns.length + 1}, plainLabel(line.label))));
      }
    });
    return bodies.filter((rows) => rows.length > 0);
  }

  /** The calculation, with a column for the year or one for each month_N of the file. */
  function calculation(tank) {
    const {lines} = tank.detail;
    const columns = calculationColumns(lines);
    if (columns.length === 0) return null;
    return table({kind: columns.length > 1 ? 'months' : 'year', caption: 'Emission calculations',
      columns: [{rowHeading: true, label: 'Quantity'}, ...columns],
      bodies: calculationBodies(columns, lines)});
  }

  function plain(kind, caption, columns, records) {
    return records.length === 0 ? null : table({kind, caption, columns, bodies: [rowsOf(columns, records)]});
  }

  function roofFittings(tank) {
    return plain('fittings', 'Roof fittings and their losses', labels.roofFittings, tank.detail.fittings);
  }

  function deckFittings(group) {
    const category = group.fittings.map((fitting) => fitting.category).find((text) => !isBlank(text));
    const caption = category ? `Deck fittings (${category.trim()})` : 'Deck fittings';
    return plain('deck-fittings', caption, labels.deckFittings, group.fittings);
  }

  orvex.tables = {table, row, tankLink, plain, tankLosses, emissionTotals, rollUp, liquidContents, calculation,
    roofFittings, deckFittings};
})(window.orvex = window.orvex || {});
