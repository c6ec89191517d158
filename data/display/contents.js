'use strict';

// The table of contents: beside the report on the screen, with an entry box that finds a tank among many.
(function (orvex) {
  const {element} = orvex;
  const wide = '(min-width: 64rem)';

  function entry(place) {
    return element('li', {}, element('a', {href: `#${place.anchor}`}, element('span', {class: 'entry'}, place.text),
        place.note ? ' ' : null, place.note ? element('span', {class: 'note'}, place.note) : null));
  }

  function countText(found, all) {
    if (found === all) return `${all} tank${all === 1 ? '' : 's'}`;
    return `${found} of ${all} tanks`;
  }

  // A narrow window shows the contents only when asked: there they would push the report out of sight.
  function foldWhenNarrow(details) {
    const query = window.matchMedia(wide);
    const apply = () => { details.open = query.matches; };
    query.addEventListener('change', apply);
    apply();
  }

  /**
   * The navigation of a report.
   * @param {{anchor, text}[]} parts what stands in front of the tanks
   * @param {{anchor, text, note, search}[]} places the tanks
   */
  function build(parts, places) {
    const entries = places.map(entry);
    const find = orvex.findBox({id: 'find-tank', label: 'Find a tank', placeholder: 'Name, type or place',
      texts: () => places.map((place) => place.search), countText,
      show: (index, shown) => { entries[index].hidden = !shown; },
      choose: (index) => entries[index].querySelector('a').click()}, places.length);
    const details = element('details', {}, element('summary', {}, 'Contents'),
        parts.length > 0 ? element('ul', {class: 'parts'}, ...parts.map(entry)) : null,
        find, element('ul', {class: 'tanks'}, ...entries));
    foldWhenNarrow(details);
    return element('nav', {class: 'contents', 'aria-label': 'Contents'}, details);
  }

  /** The contents as they are printed; the cells of class "page" are filled when the pages are known. */
  function printed(parts, places) {
    const columns = [
      {rowHeading: true, label: 'Section', content: (place) => element('a', {href: `#${place.anchor}`}, place.text)},
      {label: 'Type', content: (place) => place.note},
      {label: 'Page', figure: true, content: (place) => element('span', {class: 'page', 'data-for': place.anchor})},
    ];
    return orvex.tables.plain('printed-contents', 'Contents', columns, [...parts, ...places]);
  }

  orvex.contents = {build, printed};
})(window.orvex = window.orvex || {});
