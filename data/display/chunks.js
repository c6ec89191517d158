'use strict';

// Many nodes in parents of some hundred each. The style sheet tells the browser to lay out only those parents that are
// near the window ("content-visibility"), and their `--shown` how tall the others are.
(function (orvex) {
  const size = 100;

  function tellShown(parent) {
    const shown = Array.from(parent.children).filter((node) => !node.hidden).length;
    parent.hidden = shown === 0;
    parent.style.setProperty('--shown', shown);
  }

  /** Puts nodes into parents that `make` makes, in order; gives the parents. */
  function inChunks(nodes, make) {
    const parents = [];
    for (let from = 0; from < nodes.length; from += size) {
      const parent = make();
      parent.append(...nodes.slice(from, from + size));
      tellShown(parent);
      parents.push(parent);
    }
    return parents;
  }

  /** Puts the nodes of these parents into another order; each parent gets as many as it had. */
  function reorder(parents, nodes) {
    const counts = parents.map((parent) => parent.children.length);
    let from = 0;
    parents.forEach((parent, index) => {
      parent.append(...nodes.slice(from, from + counts[index]));
      from += counts[index];
    });
    showChunks(parents);
  }

  /** Takes notice of what was shown or hidden in these parents. */
  function showChunks(parents) { parents.forEach(tellShown); }

  Object.assign(orvex, {inChunks, reorder, showChunks});
})(window.orvex = window.orvex || {});
