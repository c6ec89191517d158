'use strict';

// Figures, axes and text widths: what the charts need before anything is drawn.
(function (orvex) {
  // The report files write figures as "1,234.50". Anything else ("N/A", a no-break space) is no amount.
  const FIGURE = /^-?\d[\d,]*(?:\.\d+)?$/;
  const BLANKS = /^[\s\u00a0]+|[\s\u00a0]+$/g;

  const ROUND_STEPS = [1, 2, 2.5, 5, 10];

  // Above a million the ticks count in these, so that the axis keeps short numbers.
  const LARGE_UNITS = [
    {size: 1e12, word: 'trillion'},
    {size: 1e9, word: 'billion'},
    {size: 1e6, word: 'million'},
  ];

  const FALLBACK_ADVANCE = 0.6;  // of the font size, where the browser gives no canvas to measure with

  const groupedDigits = new Map();
  let measuring = null;

  function trimmed(text) { return String(text === undefined || text === null ? '' : text).replace(BLANKS, ''); }

  /** The amount of a figure as the report writes it, or null when the text is no figure. */
  function amountOf(text) {
    const plain = trimmed(text);
    if (!FIGURE.test(plain)) {
      return null;
    }
    const amount = Number(plain.replace(/,/g, ''));
    return Number.isFinite(amount) ? amount : null;
  }

  /** An amount as the report writes figures: "1,234.50". */
  function figureText(amount, decimals = 2) {
    if (!groupedDigits.has(decimals)) {
      const digits = {minimumFractionDigits: decimals, maximumFractionDigits: decimals};
      groupedDigits.set(decimals, new Intl.NumberFormat('en-US', digits));
    }
    const text = groupedDigits.get(decimals).format(amount);
    return /[1-9]/.test(text) ? text : text.replace('-', '');  // a sum of sums may end as a negative zero
  }

  /** Whether a bar can show the amount. */
  function isDrawable(amount) { return amount !== null && amount >= 0; }

  /** A sum of displayed figures, free of the crumbs that binary fractions leave behind. */
  function sumOf(amounts, decimals = 2) {
    const sum = amounts.reduce((total, amount) => total + (amount === null ? 0 : amount), 0);
    return Math.abs(sum) < 1e12 ? Number(sum.toFixed(decimals)) : sum;
  }

  function roundStep(span, count) {
    const rough = span / count;
    const power = Math.pow(10, Math.floor(Math.log10(rough)));
    return power * ROUND_STEPS.find((step) => step * power >= rough * (1 - 1e-9));
  }

  // Decimals that it takes to write every multiple of a step.
  function decimalsOf(step) {
    for (let decimals = 0; decimals < 8; decimals += 1) {
      const shifted = step * 10 ** decimals;
      if (Math.abs(shifted - Math.round(shifted)) <= 1e-6 * shifted) {
        return decimals;
      }
    }
    return 8;
  }

  function tickText(value, decimals) {
    if (Math.abs(value) >= 1e7) {
      return value.toExponential(2);  // beyond the largest word, where written-out digits would fill the page
    }
    return value === 0 ? '0' : figureText(value, decimals);
  }

  /**
   * Round ticks between `low` and `high`: {low, high, ticks: [{value, text}], unit}. `low` and `high` are widened to
   * ticks when `widen` is set. `unit` carries the word for large numbers ("million lb").
   */
  function axisOf(low, high, unit, {count = 6, widen = false} = {}) {
    const span = high - low;
    const large = LARGE_UNITS.find((each) => Math.max(Math.abs(low), Math.abs(high)) >= each.size);
    const size = large ? large.size : 1;
    const named = large ? large.word + ' ' + unit : unit;
    if (!(span > 0) || !Number.isFinite(span)) {
      const only = {value: low, text: tickText(low / size, decimalsOf(low / size))};
      return {low, high: low + 1, ticks: [only], unit: named};
    }
    const step = roundStep(span, count);
    const first = widen ? Math.floor(low / step + 1e-9) : Math.ceil(low / step - 1e-9);
    const last = widen ? Math.ceil(high / step - 1e-9) : Math.floor(high / step + 1e-9);
    const decimals = decimalsOf(step / size);
    const ticks = [];
    for (let index = first; index <= last; index += 1) {
      ticks.push({value: index * step, text: tickText((index * step) / size, decimals)});
    }
    return {low: widen ? first * step : low, high: widen ? last * step : high, ticks, unit: named};
  }

  /** Width of a text in the page's font, in the charts' units. */
  function textWidth(text, size, weight = 400) {
    if (measuring === null) {
      measuring = document.createElement('canvas').getContext('2d') || false;
    }
    if (!measuring) {
      return text.length * size * FALLBACK_ADVANCE;
    }
    const family = getComputedStyle(document.body || document.documentElement).fontFamily || 'sans-serif';
    measuring.font = weight + ' ' + size + 'px ' + family;
    return measuring.measureText(text).width;
  }

  /** A text cut with an ellipsis so that it fits `width`; the same text when it fits already. */
  function fitted(text, width, size, weight = 400) {
    // No name that fits is anywhere near this long, and measuring a name of megabytes would stall the page.
    const letters = Array.from(text.slice(0, 400));
    if (letters.length < 400 && textWidth(text, size, weight) <= width) {
      return text;
    }
    let fits = 0;
    let tooLong = letters.length;
    while (tooLong - fits > 1) {
      const half = (fits + tooLong) >> 1;
      if (textWidth(letters.slice(0, half).join('') + '…', size, weight) <= width) {
        fits = half;
      } else {
        tooLong = half;
      }
    }
    return letters.slice(0, fits).join('').replace(/\s+$/, '') + '…';
  }

  orvex.chartScale = {trimmed, amountOf, isDrawable, figureText, sumOf, axisOf, textWidth, fitted};
})(window.orvex = window.orvex || {});
