"use strict";

// The rows of the ports that are shown: how high each is, and where. Only rows near the view are packed; the others have
// the height that they had.
const rowLayout = (() => {
  const lanePitch = 18;
  const barHeight = 15;
  const padding = 4;
  const footHeight = 12;
  const portsAtOnce = 12;
  const lanesOfSelected = 100;
  const unknown = {placed: [], lanes: 3, level: 0};
  let rows = [];
  let height = 0;

  // Many ports share the height that few have for themselves. A port that is selected has what it needs.
  function mostLanes(row, viewHeight) {
    if (state.selected.port === row.port) return lanesOfSelected;
    const share = viewHeight / Math.min(Math.max(rows.length, 1), portsAtOnce);
    return Math.min(Math.max(Math.floor((share - footHeight - 2 * padding) / lanePitch), 3), 12);
  }

  const heightOf = ({lanes}) => Math.max(lanes, 1) * lanePitch + 2 * padding + footHeight;

  const isPackedFor = ({view}, {k, left, right, height: high}, most, isMoving) =>
    view !== null && view.k === k && view.left === left && view.right === right && view.height === high &&
    view.most === most && view.isMoving === isMoving;

  // While the same scale is moved, lanes stay and the row does not shrink.
  function pack(row, view, isMoving) {
    const most = mostLanes(row, view.height);
    if (isPackedFor(row, view, most, isMoving)) return;
    const stays = isMoving && row.view !== null && row.view.k === view.k;
    row.packed = packing.pack(row.items, view, most, stays ? row.packed : undefined);
    row.height = Math.max(heightOf(row.packed), stays ? row.height : 0);
    row.view = {k: view.k, left: view.left, right: view.right, height: view.height, most, isMoving};
  }

  // Takes over the rows of the state, which filters have changed.
  function follow() {
    const before = new Map(rows.map((row) => [row.port, row]));
    height = 0;
    rows = state.rows.map(({port, items}) => {
      const row = {port, items, view: null, packed: unknown, top: height,
        height: before.get(port)?.height ?? heightOf(unknown)};
      height += row.height;
      return row;
    });
  }

  // `view`: {k, left, right} as packing has it, {top, height} of the rows' pixels.
  function update(view, isMoving) {
    let top = 0;
    for (const row of rows) {
      row.top = top;
      if (top + row.height > view.top - view.height / 4 && top < view.top + view.height * 1.25) pack(row, view, isMoving);
      top += row.height;
    }
    height = top;
  }

  function rowAt(y) {
    let low = 0;
    let high = rows.length - 1;
    while (low < high) {
      const middle = (low + high + 1) >> 1;
      if (rows[middle].top <= y) low = middle;
      else high = middle - 1;
    }
    return rows[low];
  }

  function placedAt(x, y) {
    const row = rowAt(y);
    if (!row || y > row.top + row.height) return {};
    const lane = Math.floor((y - row.top - padding) / lanePitch);
    const reach = 3;
    const hits = row.packed.placed.filter((placed) =>
      placed.lane === lane && placed.left - reach <= x && x <= placed.right + reach);
    const distance = (placed) => Math.max(placed.left - x, x - placed.right, 0);
    return {row, placed: hits.reduce((best, hit) => (!best || distance(hit) < distance(best) ? hit : best), null)};
  }

  const rowOf = (port) => rows.find((row) => row.port === port);
  const placedOf = (claim) => rowOf(claim.port)?.packed.placed.find(({item}) => item === claim.items[0]);

  state.listen((what) => { if (what === "filter") follow(); });
  follow();

  return {update, rowAt, placedAt, rowOf, placedOf, lanePitch, barHeight, padding, footHeight,
    get rows() { return rows; }, get height() { return height; }};
})();
