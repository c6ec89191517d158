'use strict';

// Turns a report on reference data into its records. Texts stay as they are in the file.
(function (orvex) {
  const {child, textsOf} = orvex.xml;

  // What a record's own text says, in front of its elements: the title of the report.
  function titleOf(element) {
    const first = element.firstChild;
    return first && first.nodeType === Node.TEXT_NODE ? first.data.trim() : '';
  }

  function readRecord(element) {
    const texts = textsOf(element);
    const list = child(element, 'COMPONENTS');
    if (list) delete texts.COMPONENTS;
    return {texts, components: list ? Array.from(list.children, textsOf) : []};
  }

  /**
   * The model of a report on reference data.
   * @param {{root: Element, kind: string}} report as orvex.readReport gives it
   * @returns {{kind: string, title: string, records: {texts: Object<string, string>, components: object[]}[]}}
   *     texts: element name to text; components: those of a profile, each as such texts
   */
  function readReference({root, kind}) {
    const elements = Array.from(root.children).filter((element) => element.localName !== 'Type');
    return {kind, title: (elements.length > 0 && titleOf(elements[0])) || orvex.reference.kinds[kind].title,
      records: elements.map(readRecord)};
  }

  orvex.readReference = readReference;
})(window.orvex = window.orvex || {});
