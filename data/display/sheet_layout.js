'use strict';

// Which block of a report goes on which sheet: arithmetic on heights alone, without the page.
//
// A block is {height, keep, starts, scale} or, when it may be parted between rows, also {units, overhead, lanes}:
//   keep      it must not be the last one on its sheet (a heading)
//   starts    it begins a new sheet
//   units     what stays together in a table, e.g. a row: {height, repeatHeight}; the latter is that of the headings of
//             the unit's group, which are repeated when the group goes on elsewhere
//   overhead  what each piece of a table costs besides its units: caption and column headings
//   lanes     how many pieces of it stand side by side
(function (orvex) {
  // A table shorter than this part of a sheet is never parted.
  const smallTable = 0.3;
  // One that fits on a sheet of its own is not begun in this last part of another.
  const lastPart = 0.45;

  function heightOf(units, from, to) {
    if (to <= from) return 0;
    let height = units[from].repeatHeight;
    for (let index = from; index < to; index += 1) height += units[index].height;
    return height;
  }

  /** The end of the units from `from` on that fit into `room`. */
  function take(units, from, room) {
    if (from >= units.length) return from;
    let left = room - units[from].repeatHeight;
    let to = from;
    while (to < units.length && units[to].height <= left) {
      left -= units[to].height;
      to += 1;
    }
    return to;
  }

  // The ends of the lanes that `room` gives place to.
  function fill(block, from, room) {
    const ends = [];
    let at = from;
    for (let lane = 0; lane < block.lanes; lane += 1) {
      at = take(block.units, at, room);
      ends.push(at);
    }
    return ends;
  }

  // When all the rest fits, lanes of even height look better than a full one and a remnant.
  function balanced(block, from, room) {
    const full = fill(block, from, room);
    if (block.lanes === 1 || full[full.length - 1] < block.units.length) return full;
    const rest = block.units.length - from;
    for (let count = Math.ceil(rest / block.lanes); count <= rest; count += 1) {
      const height = heightOf(block.units, from, from + count);
      const ends = fill(block, from, height);
      if (height <= room && ends[ends.length - 1] === block.units.length) return ends;
    }
    return full;
  }

  function tallestLane(block, from, ends) {
    let begin = from;
    let tallest = 0;
    for (const end of ends) {
      tallest = Math.max(tallest, heightOf(block.units, begin, end));
      begin = end;
    }
    return tallest;
  }

  function wholeOf(block) {
    if (!block.units) return block.height;
    return block.overhead + (block.lanes === 1 ? heightOf(block.units, 0, block.units.length) :
      tallestLane(block, 0, balanced(block, 0, Infinity)));
  }

  // The least room in which it makes sense to begin a block.
  function leastOf(block, room, capacity) {
    const whole = wholeOf(block);
    if (!block.units || whole <= room) return Math.min(whole, capacity);
    const worthBeginning = whole > capacity * smallTable && block.lanes === 1 && room > capacity * lastPart;
    const parted = whole > capacity || worthBeginning;
    const begun = heightOf(block.units, 0, Math.min(3, block.units.length));
    return parted ? Math.min(capacity, block.overhead + Math.max(begun, capacity * smallTable / 2)) : whole;
  }

  /** The room that a block needs, of the room that there is, together with what it must not be parted from. */
  function needed(blocks, index, room, capacity) {
    const block = blocks[index];
    const next = blocks[index + 1];
    if (!block.keep || !next || next.starts) return leastOf(block, room, capacity);
    return block.height + needed(blocks, index + 1, room - block.height, capacity);
  }

  /**
   * The sheets: [[{block, scale}, or {block, from, ends, scale}]]. `scale` below 1 shrinks what no sheet is tall
   * enough for.
   * @param {object[]} blocks see above
   * @param {number} capacity the height of a sheet
   */
  function paginate(blocks, capacity) {
    const sheets = [[]];
    let room = capacity;

    function newSheet() {
      if (sheets[sheets.length - 1].length > 0) sheets.push([]);
      room = capacity;
    }

    function put(item, height) {
      item.scale = height > room ? room / height : 1;
      sheets[sheets.length - 1].push(item);
      room -= height;
    }

    function putPieces(block, follows) {
      let from = 0;
      while (from < block.units.length) {
        let ends = balanced(block, from, room - block.overhead);
        if (ends[ends.length - 1] === from) {
          if (room < capacity && !(follows && from === 0)) {
            newSheet();
            continue;
          }
          ends = ends.map(() => from + 1);
        }
        put({block, from, ends}, block.overhead + tallestLane(block, from, ends));
        from = ends[ends.length - 1];
        if (from < block.units.length) newSheet();
      }
    }

    blocks.forEach((block, index) => {
      // What follows a heading was weighed with it.
      const follows = index > 0 && blocks[index - 1].keep && !block.starts;
      if (block.starts || (!follows && needed(blocks, index, room, capacity) > room)) newSheet();
      if (block.units && block.units.length > 0) putPieces(block, follows);
      else put({block}, block.height);
    });
    return sheets;
  }

  orvex.paginate = paginate;
})(window.orvex = window.orvex || {});
