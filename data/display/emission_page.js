'use strict';

// The page of a report on emissions: the document, and its contents when there are several tanks.
(function (orvex) {
  const {element, sections, contents} = orvex;

  /**
   * The page of a report.
   * @param {{root: Element, kind: string}} report as orvex.readReport gives it
   * @param {string} fileName how messages call the file
   * @returns {{main: Element, title: string, subject: ?string, navigation: ?Element, contents: function(): ?Element}}
   *     subject: what the report is on, where that is one thing; contents: what is printed in front
   */
  function buildPage(report, fileName) {
    const model = orvex.readModel(report, fileName);
    const main = element('main', {id: 'report'}, ...sections.build(model));
    const parts = sections.parts(main);
    const places = sections.places(model);
    const single = places.length === 1;
    return {
      main,
      title: orvex.labels.kinds[model.kind].title,
      subject: single ? places[0].text : null,
      navigation: single ? null : contents.build(parts, places),
      contents: () => single ? null : contents.printed(parts, places),
    };
  }

  orvex.buildPage = buildPage;
})(window.orvex = window.orvex || {});
