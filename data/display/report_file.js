'use strict';

// Reads the text of a report file of any kind. Texts stay as they are in the file.
(function (orvex) {
  /** Why a report cannot be shown, as one sentence for the person. */
  class ReportError extends Error {}

  const decimalNumber = /^-?(\d+\.?\d*|\.\d+)(e[-+]?\d+)?$/i;

  /** The number that a displayed text such as "1,234.50" stands for, or null when it stands for none ("N/A", blank). */
  function number(text) {
    const plain = String(text === null || text === undefined ? '' : text).replace(/,/g, '').trim();
    return decimalNumber.test(plain) ? Number(plain) : null;
  }

  function isBlank(text) { return text === null || text === undefined || text.trim() === ''; }

  function indentOf(text) { return /^\u00a0*/.exec(text)[0].length; }

  function children(parent, name) { return Array.from(parent.children).filter((child) => child.localName === name); }

  function child(parent, name) {
    for (const element of parent.children) {
      if (element.localName === name) return element;
    }
    return null;
  }

  function textOf(parent, name) {
    const element = parent && child(parent, name);
    return element ? element.textContent : null;
  }

  function attributesOf(element) {
    const values = {};
    for (const attribute of element.attributes) values[attribute.name] = attribute.value;
    return values;
  }

  /** All children as {element name: text}. */
  function textsOf(parent) {
    const texts = Object.create(null);
    for (let element = parent.firstElementChild; element; element = element.nextElementSibling) {
      texts[element.localName] = element.textContent;
    }
    return texts;
  }

  function parse(text, fileName) {
    if (text.trim() === '') throw new ReportError(`${fileName} is empty.`);
    // Its entities can make a small file a text that no browser has the memory for.
    if (text.includes('<!DOCTYPE')) {
      throw new ReportError(`${fileName} has a document type declaration, which no report of ORVEX has.`);
    }
    const document = new DOMParser().parseFromString(text, 'application/xml');
    const fault = document.getElementsByTagName('parsererror')[0];
    if (fault) {
      const place = /line (\d+)/.exec(fault.textContent);
      const where = place ? ` It can be read up to line ${place[1]}.` : '';
      throw new ReportError(`${fileName} is damaged or not an XML file.${where}`);
    }
    return document;
  }

  // The root of each sort of report file, and its child that tells the kind of report.
  const kindElements = {REPORT: 'TYPE', DataExport: 'Type'};

  /**
   * Parses a report file.
   * @param {string} text the file's text
   * @param {string} fileName how messages call the file
   * @returns {{root: Element, kind: string}} kind as the file writes it, e.g. "Brief" or "Chemical"
   * @throws {ReportError} when the text is no report of ORVEX
   */
  function readReport(text, fileName) {
    const root = parse(text, fileName).documentElement;
    const kindElement = kindElements[root.localName];
    if (!kindElement) throw new ReportError(`${fileName} is an XML file, but not a report of ORVEX.`);
    const kind = (textOf(root, kindElement) || '').trim();
    if (kind === '') throw new ReportError(`${fileName} does not tell which kind of report it holds.`);
    return {root, kind};
  }

  Object.assign(orvex, {ReportError, readReport, number, isBlank, indentOf});
  orvex.xml = {child, children, textOf, textsOf, attributesOf};
})(window.orvex = window.orvex || {});
