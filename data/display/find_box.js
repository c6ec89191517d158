'use strict';

// An entry box that finds things by their texts: it shows those that hold every word typed, and tells how many there
// are.
(function (orvex) {
  const {element} = orvex;

  function wordsOf(text) { return text.toLowerCase().split(/\s+/).filter((word) => word !== ''); }

  /**
   * A find box.
   * @param {{id: string, label: string, placeholder: string, texts: function(): string[],
   *     countText: function(number, number, string[]): string, show: function(number, boolean), done: ?function(),
   *     choose: ?function(number)}} parts
   *     texts: what each thing is found by, in lower case, asked for when something is typed;
   *     countText(found, all, words);
   *     done: called when all have been shown or hidden; choose: what Enter does with the first one found
   * @param {number} all how many things there are
   * @returns {Element}
   */
  function findBox(parts, all) {
    const input = element('input', {type: 'search', id: parts.id, placeholder: parts.placeholder, autocomplete: 'off',
      spellcheck: 'false'});
    const count = element('p', {class: 'count', role: 'status'}, parts.countText(all, all, []));
    let texts = null;
    const matches = () => {
      texts = texts || parts.texts();
      const words = wordsOf(input.value);
      return texts.map((text) => words.every((word) => text.includes(word)));
    };
    input.addEventListener('input', () => {
      const found = matches();
      found.forEach((shown, index) => parts.show(index, shown));
      if (parts.done) parts.done();
      count.textContent = parts.countText(found.filter(Boolean).length, all, wordsOf(input.value));
    });
    input.addEventListener('keydown', (event) => {
      const first = event.key === 'Enter' && parts.choose ? matches().indexOf(true) : -1;
      if (first >= 0) parts.choose(first);
    });
    return element('div', {class: 'find'}, element('label', {for: parts.id}, parts.label), input, count);
  }

  orvex.findBox = findBox;
})(window.orvex = window.orvex || {});
