'use strict';

// The drawing that all charts share: elements, kinds of loss with their colours and marks, figure, legend,
// and the frame of a plot over the months.
(function (orvex) {
  const {textWidth} = orvex.chartScale;

  const SVG = 'http://www.w3.org/2000/svg';

  // Units of the drawing. At full width on a landscape sheet one unit is 1/96 inch, so 12 prints as 9 points.
  const WIDTH = 960;
  const TEXT = 12;
  const SMALL = 11;
  const BASELINE = 0.35;  // of the font size, from the middle of a line of text to its baseline

  /**
   * Kinds of loss in the order of stacking. Dark and light alternate within a tank's bar, and each kind has its own
   * marks, so that the kinds stay apart without colour. The colours themselves are in charts.css under the same keys.
   */
  const KINDS = [
    {key: 'working', element: 'WorkingLoss', name: 'Working', marks: []},
    {key: 'breathing', element: 'BreathingLoss', name: 'Breathing', marks: ['rising']},
    {key: 'rim-seal', element: 'RimSealLoss', name: 'Rim seal', marks: ['upright']},
    {key: 'withdrawal', element: 'WithdrawlLoss', name: 'Withdrawal', marks: ['dots']},
    {key: 'deck-fitting', element: 'DeckFittingLoss', name: 'Deck fitting', marks: ['falling']},
    {key: 'deck-seam', element: 'DeckSeamLoss', name: 'Deck seam', marks: ['level']},
  ];

  const MONTHS = [
    'January', 'February', 'March', 'April', 'May', 'June',
    'July', 'August', 'September', 'October', 'November', 'December',
  ];

  // The note below a chart of figures among which such a one stands.
  const UNDRAWN = 'A figure that is below zero or not a number is written, not drawn.';

  let figures = 0;  // numbers the titles, which the pictures refer to by id

  function short(number) { return String(Math.round(number * 100) / 100); }

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
    const made = element(parent, 'text', {'font-size': size, ...attributes, x, y: y + size * BASELINE}, text);
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
      path += `M${short(x + fromX)} ${short(y + fromY)}L${short(x + toX)} ${short(y + toY)}`;
    }
    return path;
  }

  function parallels(x, y, width, height, spacing, upright) {
    let path = '';
    const length = upright ? width : height;
    for (let offset = spacing / 2 + 0.5; offset < length; offset += spacing) {
      path += upright ? `M${short(x + offset)} ${short(y)}v${short(height)}` :
          `M${short(x)} ${short(y + offset)}h${short(width)}`;
    }
    return path;
  }

  function dots(x, y, width, height) {
    const spacing = 6;
    let path = '';
    for (let across = spacing / 2, column = 0; across < width - 1; across += spacing / 2, column += 1) {
      for (let down = column % 2 ? spacing : spacing / 2; down < height - 1; down += spacing) {
        path += `M${short(x + across)} ${short(y + down)}h0`;
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
    const group = element(parent, 'g', {class: 'chart-piece chart-' + kind.key});
    if (hover) {
      element(group, 'title', {}, hover);
    }
    element(group, 'rect', {x, y, width, height});
    for (const mark of kind.marks) {
      const path = MARKS[mark](x, y, width, height);
      if (path !== '') {
        element(group, 'path', {class: 'chart-mark chart-' + mark, d: path});
      }
    }
    return group;
  }

  /** The kinds with their boxes, in lines between `left` and `right`; gives the height that they take. */
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
   * A <figure> with a caption and a drawing of the given height: {figure, svg}. `heading` and `detail` make the
   * caption; `name` and `description` are what a screen reader says of the drawing.
   */
  function figureOf({heading, detail, name, description, height, notes = [], style}) {
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
    const ids = [`chart-${figures}-title`, `chart-${figures}-desc`];
    const svg = element(figure, 'svg', {
      viewBox: `0 0 ${WIDTH} ${short(height)}`,
      role: 'img',
      'aria-labelledby': ids.join(' '),
    });
    element(svg, 'title', {id: ids[0]}, name || heading);
    element(svg, 'desc', {id: ids[1]}, description);
    for (const note of notes) {
      const line = figure.appendChild(document.createElement('p'));
      line.className = 'chart-note';
      line.textContent = note;
    }
    return {figure, svg};
  }

  // A level line from `left` to `right`, interrupted where a figure stands.
  function gridLine(y, left, right, figures) {
    const crossed = figures.filter((box) => box.top < y && y < box.bottom).sort((one, other) => one.left - other.left);
    let path = '';
    let from = left;
    for (const box of crossed) {
      path += box.left > from ? `M${short(from)} ${short(y)}H${short(box.left)}` : '';
      from = Math.max(from, box.right);
    }
    return path + (right > from ? `M${short(from)} ${short(y)}H${short(right)}` : '');
  }

  /** A figure in the middle of `x`, `y`; gives the box that it takes up. */
  function figureAt(parent, x, y, text, size, hover) {
    label(parent, x, y, text, {'text-anchor': 'middle', 'font-size': size, class: 'chart-figure'}, hover);
    const half = textWidth(text, size) / 2 + 3;
    return {left: x - half, right: x + half, top: y - size / 2 - 1, bottom: y + size / 2 + 1};
  }

  function tickWidth(axis) { return Math.max(...axis.ticks.map((tick) => textWidth(tick.text, SMALL))); }

  /**
   * A plot over the months, with the ticks' figures at the left and the months below: {scale, pitch, centers, rule}.
   * `rule(figures)` draws the grid behind everything, once it is known where the figures stand.
   */
  function monthFrame(svg, axis, left, right, top, bottom) {
    const scale = (amount) => bottom - ((bottom - top) * (amount - axis.low)) / (axis.high - axis.low);
    const pitch = (right - left) / MONTHS.length;
    const grid = element(svg, 'g', {class: 'chart-grid'});
    const ticks = element(svg, 'g', {class: 'chart-axis'});
    for (const tick of axis.ticks) {
      label(ticks, left - 8, scale(tick.value), tick.text, {'text-anchor': 'end', 'font-size': SMALL});
    }
    const centers = MONTHS.map((month, index) => left + (index + 0.5) * pitch);
    MONTHS.forEach((month, index) => {
      label(ticks, centers[index], bottom + 14, month.slice(0, 3), {'text-anchor': 'middle', 'font-size': SMALL});
    });
    const rule = (figures) => {
      for (const y of axis.ticks.map((tick) => scale(tick.value))) {
        const line = y === bottom ? 'chart-zero' : 'chart-tick';
        element(grid, 'path', {class: line, d: gridLine(y, left, right, figures)});
      }
    };
    return {scale, pitch, centers, rule};
  }

  orvex.chartDraw = {
    KINDS, MONTHS, UNDRAWN, WIDTH, TEXT, SMALL,
    short, element, label, kindBox, legend, figureOf, figureAt, tickWidth, monthFrame,
  };
})(window.orvex = window.orvex || {});
