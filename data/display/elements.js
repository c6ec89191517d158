'use strict';

// The one way the page makes elements: texts go in as text nodes, so no text of a report is ever read as markup.
(function (orvex) {
  /**
   * A new element.
   * @param {string} name e.g. "td"
   * @param {Object<string, string|number|boolean>} attributes false and null leave one out, true sets it empty
   * @param {...(Node|string|null)} content null leaves one out
   */
  function element(name, attributes, ...content) {
    const made = document.createElement(name);
    for (const [key, value] of Object.entries(attributes || {})) {
      if (value !== false && value !== null && value !== undefined) made.setAttribute(key, value === true ? '' : value);
    }
    made.append(...content.filter((part) => part !== null && part !== undefined));
    return made;
  }

  orvex.element = element;
})(window.orvex = window.orvex || {});
