'use strict';

// The drawing that all charts share: elements, kinds of loss with their colours and marks, figure, legend, axis, bars.
(function (orvex) {
  const { axisOf, textWidth, fitted } = orvex.chartScale;

  const SVG = 'http://www.w3.org/2000/svg';

  // Units of the drawing. At full width on a landscape sheet one unit is 1/96 inch, so 12 prints as 9 points.
  const WIDTH = 960;
  const TEXT = 12;
  const SMALL = 11;
  const BASELINE = 0.35; // of the font size, from the middle of a line of text to its baseline

  /**
   * Kinds of loss in the order of stacking. Dark and light alternate within a tank's bar, and each kind has its own
   * marks, so that the kinds stay apart without colour. The colours themselves are in charts.css under the same keys.
   */
  const KINDS = [
    { key: 'working', element: 'WorkingLoss', name: 'Working', marks: [] },
    { key: 'breathing', element: 'BreathingLoss', name: 'Breathing', marks: ['rising'] },
    { key: 'rim-seal', element: 'RimSealLoss', name: 'Rim seal', marks: ['upright'] },
    { key: 'withdrawal', element: 'WithdrawlLoss', name: 'Withdrawal', marks: ['dots'] },
    { key: 'deck-fitting', element: 'DeckFittingLoss', name: 'Deck fitting', marks: ['falling'] },
    { key: 'deck-seam', element: 'DeckSeamLoss', name: 'Deck seam', marks: ['level'] },
  ];

  let figures = 0; // numbers the titles, which the pictures refer to by id

  function short(number) {
    return String(Math.round(number * 100) / 100);
  }

  function element(parent, name, attributes = {}, text = null) {
    const made = document.createElementNS(SVG, name);
    for (const [key, value] of Object.entries(attributes)) {
      made.setAttribute(key, typeof value === 'number' ? short(value) : value);
    }
    if (text !== null) {
      made.textContent = text;
    }
    if (parent) {
      parent.appendChild(made);
    }
    return made;
  }

  /** Text with the middle of its line at `y`; `hover` is what a pointer shows, the whole of a name that was cut. */
  function label(parent, x, y, text, attributes = {}, hover = null) {
    const size = attributes['font-size'] || TEXT;
    const made = element(parent, 'text', { 'font-size': size, ...attributes, x, y: y + size * BASELINE }, text);
    if (hover !== null && hover !== text) {
      element(made, 'title', {}, hover);
    }
    return made;
  }

  // Parallel diagonals across a box, as one path, each cut at the box's edges.
  function diagonals(x, y, width, height, falling) {
    const spacing = 6;
    let path = '';
    for (let offset = spacing / 2; offset < width + height; offset += spacing) {
      const fromX = Math.max(0, offset - height);
      const toX = Math.min(width, offset);
      const [fromY, toY] = [offset - fromX, offset - toX].map((down) => (falling ? height - down : down));
      path += 'M' + short(x + fromX) + ' ' + short(y + fromY) + 'L' + short(x + toX) + ' ' + short(y + toY);
    }
    return path;
  }

  function parallels(x, y, width, height, spacing, upright) {
    let path = '';
    const length = upright ? width : height;
    for (let offset = spacing / 2 + 0.5; offset < length; offset += spacing) {
      path += upright
        ? 'M' + short(x + offset) + ' ' + short(y) + 'v' + short(height)
        : 'M' + short(x) + ' ' + short(y + offset) + 'h' + short(width);
    }
    return path;
  }

  function dots(x, y, width, height) {
    const spacing = 6;
    let path = '';
    for (let across = spacing / 2, column = 0; across < width - 1; across += spacing / 2, column += 1) {
      for (let down = column % 2 ? spacing : spacing / 2; down < height - 1; down += spacing) {
        path += 'M' + short(x + across) + ' ' + short(y + down) + 'h0';
      }
    }
    return path;
  }

  // Marks are lines of their own rather than pattern fills: they stay sharp in a PDF and need no ids, which a page that
  // is copied sheet by sheet would double.
  const MARKS = {
    rising: (x, y, width, height) => diagonals(x, y, width, height, false),
    falling: (x, y, width, height) => diagonals(x, y, width, height, true),
    upright: (x, y, width, height) => parallels(x, y, width, height, 5, true),
    level: (x, y, width, height) => parallels(x, y, width, height, 4, false),
    dots,
  };

  /** A box in the colour and marks of a kind of loss. */
  function kindBox(parent, kind, x, y, width, height, hover) {
    const group = element(parent, 'g', { class: 'chart-piece chart-' + kind.key });
    if (hover) {
      element(group, 'title', {}, hover);
    }
    element(group, 'rect', { x, y, width, height });
    for (const mark of kind.marks) {
      const path = MARKS[mark](x, y, width, height);
      if (path !== '') {
        element(group, 'path', { class: 'chart-mark chart-' + mark, d: path });
      }
    }
    return group;
  }

  /** Width that the legend's entries take in one line each: [{kind, x, line}], wrapped at `right`. */
  function legend(parent, kinds, left, right, y) {
    const swatch = 18;
    const lineHeight = 20;
    let x = left;
    let line = 0;
    for (const kind of kinds) {
      const width = swatch + 6 + textWidth(kind.name, TEXT) + 22;
      if (x > left && x + width - 22 > right) {
        x = left;
        line += 1;
      }
      const middle = y + line * lineHeight + lineHeight / 2;
      kindBox(parent, kind, x, middle - 6, swatch, 12);
      label(parent, x + swatch + 6, middle, kind.name);
      x += width;
    }
    return kinds.length === 0 ? 0 : (line + 1) * lineHeight + 8;
  }

  /**
   * A <figure> with a caption and a drawing of the given height: {figure, svg}. `heading` and `detail` make the caption;
   * `name` and `description` are what a screen reader says of the drawing.
   */
  function figureOf({ heading, detail, name, description, height, notes = [], style }) {
    figures += 1;
    const figure = document.createElement('figure');
    figure.className = 'chart ' + style;
    const caption = figure.appendChild(document.createElement('figcaption'));
    caption.appendChild(document.createElement('strong')).textContent = heading;
    if (detail) {
      caption.appendChild(document.createTextNode(' '));
      const more = caption.appendChild(document.createElement('span'));
      more.textContent = detail;
    }
    const ids = ['chart-' + figures + '-title', 'chart-' + figures + '-desc'];
    const svg = element(figure, 'svg', {
      viewBox: '0 0 ' + WIDTH + ' ' + short(height),
      role: 'img',
      'aria-labelledby': ids.join(' '),
    });
    element(svg, 'title', { id: ids[0] }, name || heading);
    element(svg, 'desc', { id: ids[1] }, description);
    for (const note of notes) {
      const line = figure.appendChild(document.createElement('p'));
      line.className = 'chart-note';
      line.textContent = note;
    }
    return { figure, svg };
  }

  // A bar that is longer than the axis: cut short, with a slanted gap before its end.
  function brokenBar(parent, x, y, length, height, hover) {
    const group = element(parent, 'g', { class: 'chart-piece chart-rest' });
    element(group, 'title', {}, hover);
    const slant = height / 2;
    const gap = x + length - 34;
    const from = ['M', x, y, 'H', gap + slant, 'L', gap, y + height, 'H', x, 'Z'];
    const to = ['M', gap + slant + 5, y, 'H', x + length, 'V', y + height, 'H', gap + 5, 'Z'];
    element(group, 'path', { d: [...from, ...to].map((each) => (typeof each === 'number' ? short(each) : each)).join(' ') });
  }

  /**
   * Horizontal bars: `rows` of {label, hover, text, total, pieces: [{kind, amount, hover}], rest}. Each bar carries its
   * figure at its end, so the figures take part in the layout: the axis ends where the widest of them still fits.
   */
  function barChart({ rows, kinds, unit, labelWidth, ...caption }) {
    const pitch = Math.max(19, Math.min(30, 500 / rows.length));
    const thickness = Math.round(pitch * 0.68);
    const longest = Math.max(0, ...rows.filter((row) => !row.rest).map((row) => row.length));
    const axis = axisOf(0, longest, unit);
    const widestLabel = Math.max(...rows.map((row) => textWidth(row.label.slice(0, 200), TEXT)), textWidth(axis.unit, SMALL));
    const left = Math.ceil(Math.min(labelWidth, widestLabel)) + 14;
    const right = WIDTH - 14 - Math.ceil(Math.min(260, Math.max(...rows.map((row) => textWidth(row.text.slice(0, 200), TEXT)))));
    const scale = (amount) => ((right - left) * amount) / axis.high;

    // The legend is laid out in a group of its own first, for its height decides where the plot begins.
    const legendGroup = element(null, 'g', { class: 'chart-legend' });
    const top = legend(legendGroup, kinds, left, WIDTH, 0) + 2;
    const bottom = top + rows.length * pitch;
    const { figure, svg } = figureOf({ ...caption, height: bottom + 24, style: 'chart-bars' });
    svg.appendChild(legendGroup);

    // Where each bar's figure stands, so that the grid can leave it free.
    const figures = rows.map((row) => {
      const text = fitted(row.text, WIDTH - 8 - right, TEXT);
      const end = row.length > axis.high ? right : left + scale(row.length);
      return { text, x: end + 6, right: end + 6 + textWidth(text, TEXT) };
    });
    const grid = element(svg, 'g', { class: 'chart-grid' });
    const ticks = element(svg, 'g', { class: 'chart-axis' });
    for (const tick of axis.ticks) {
      const x = left + scale(tick.value);
      const rowsCrossed = figures.map((each) => x < each.x - 3 || x > each.right + 3);
      element(grid, 'path', {
        class: tick.value === 0 ? 'chart-zero' : 'chart-tick',
        d: rowsCrossed.map((free, index) => (free ? 'M' + short(x) + ' ' + short(top + index * pitch) + 'v' + short(pitch) : '')).join(''),
      });
      label(ticks, x, bottom + 13, tick.text, { 'text-anchor': 'middle', 'font-size': SMALL });
    }
    label(ticks, left - 14, bottom + 13, axis.unit, { 'text-anchor': 'end', 'font-size': SMALL });

    rows.forEach((row, index) => {
      const middle = top + (index + 0.5) * pitch;
      const y = middle - thickness / 2;
      const group = element(svg, 'g', { class: row.rest ? 'chart-row chart-row-rest' : 'chart-row' });
      label(group, left - 8, middle, fitted(row.label, labelWidth, TEXT), { 'text-anchor': 'end', class: 'chart-name' }, row.hover);
      let end = left;
      if (row.length > axis.high) {
        brokenBar(group, left, y, right - left, thickness, row.hover);
      } else {
        for (const piece of row.pieces) {
          const length = scale(piece.amount);
          // A hair of a gap keeps neighbours apart; a piece thinner than that is left whole.
          kindBox(group, piece.kind, end, y, length > 2 ? length - 0.75 : length, thickness, piece.hover);
          end += length;
        }
      }
      label(group, figures[index].x, middle, figures[index].text, { class: 'chart-figure' }, row.text);
    });
    return figure;
  }

  orvex.chartDraw = { KINDS, WIDTH, TEXT, SMALL, short, element, label, kindBox, legend, figureOf, barChart };
})((window.orvex = window.orvex || {}));
