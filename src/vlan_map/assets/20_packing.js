"use strict";

// Where the claims of a port are drawn: exact on the scale, in lanes of which no two overlap in one, with as much of
// their names as there is room for.
const packing = (() => {
  const untaggedWidth = 56;
  const thinnestBar = 6;
  const markWidth = 8;
  const needleWidth = 2;
  const padding = 4;
  const gap = 2;
  const needleLevel = 5;  // of the names' lengths: from here on, marks of what neither changes nor conflicts are needles
  const lastLevel = 6;
  const lanesForSigns = 3;  // more than else, so that signs of changes and conflicts stay
  const pen = document.createElement("canvas").getContext("2d");
  pen.font = getComputedStyle(document.body).getPropertyValue("--label-font");

  const leftOf = (vlan, k) => (vlan === 0 ? 0 : untaggedWidth + (vlan - 1) * k);
  const rightOf = (vlan, k) => untaggedWidth + vlan * k;
  const plotWidth = (k) => rightOf(model.lastVlan, k);
  const textWidth = (text) => pen.measureText(text).width;

  // What the name takes beside a shape; measured when it is first asked for.
  function nameWidth(item, level) {
    item.widths[level] ??= item.names[level] === "" ? 0 : textWidth(item.names[level]) + padding;
    return item.widths[level];
  }

  function placeShape(item, k, level) {
    const x = leftOf(item.first, k);
    const width = rightOf(item.last, k) - x;
    const placed = {item, x, width, shape: "bar", left: x, right: x + width, lane: 0, label: "", labelX: 0,
      isWithin: false};
    if (width >= thinnestBar) return placed;
    const isNeedle = level >= needleLevel && item.names[needleLevel] === "";
    placed.shape = isNeedle ? "needle" : item.first === item.last ? "vlan" : "range";
    placed.left = x + width / 2 - (isNeedle ? needleWidth : markWidth) / 2;
    placed.right = placed.left + (isNeedle ? needleWidth : markWidth);
    return placed;
  }

  // In what is seen of the bar if it fits there, else beside the shape; at the end of the scale, before it.
  function place(item, view, level) {
    const placed = placeShape(item, view.k, level);
    const needed = nameWidth(item, level);
    if (needed === 0) return placed;
    placed.label = item.names[level];
    const seenLeft = Math.max(placed.left, view.left);
    if (placed.shape === "bar" && Math.min(placed.right, view.right) - seenLeft >= needed + padding) {
      placed.isWithin = true;
      placed.labelX = seenLeft + padding;
    } else if (placed.right + needed <= plotWidth(view.k)) {
      placed.labelX = placed.right + 2;
      placed.right += needed;
    } else if (placed.left - needed >= 0) {
      placed.left -= needed;
      placed.labelX = placed.left;
    } else {
      placed.label = "";
    }
    return placed;
  }

  // Gives lanes from left to right and returns how many; 0 where the most are not enough. A claim keeps its lane of
  // before while that is free.
  function assignLanes(all, mostLanes, kept) {
    const ends = [];
    for (const placed of all) {
      const start = placed.left - gap;
      let lane = kept?.get(placed.item) ?? 0;
      if (ends[lane] > start) lane = 0;
      while (ends[lane] > start) lane += 1;
      if (lane >= mostLanes) return 0;
      while (ends.length < lane) ends.push(-Infinity);
      ends[lane] = placed.right;
      placed.lane = lane;
    }
    return ends.length;
  }

  // Where what stands before each claim in its lane ends.
  function endsBefore(all, lanes) {
    const ends = new Array(lanes).fill(-Infinity);
    return all.map(({lane, right}) => {
      const end = ends[lane];
      ends[lane] = right;
      return end;
    });
  }

  // The longest name that fits before what follows in the lane. `all` stands from left to right.
  function useWhatIsLeft(all, view, lanes, level) {
    const limits = new Array(lanes).fill(plotWidth(view.k) + gap);
    const ends = endsBefore(all, lanes);
    for (let i = all.length - 1; i >= 0; i -= 1) {
      const {item, lane, shape, x, width} = all[i];
      const room = limits[lane] - gap - (shape === "bar" ? x + width : x + width / 2 + markWidth / 2);
      for (let wider = 0; wider < level; wider += 1) {
        if (nameWidth(item, wider) > Math.max(room, shape === "bar" ? width : 0)) continue;
        const longer = place(item, view, wider);
        if (longer.left < ends[i] + gap || longer.right + gap > limits[lane]) continue;
        longer.lane = lane;
        all[i] = longer;
        break;
      }
      limits[lane] = all[i].left;
    }
  }

  // Whether the claims cannot be placed, for together they are wider than the lanes; a quick answer.
  function isTooMuch(seen, view, level, mostLanes) {
    const edges = 400;  // what reaches out of view on both sides
    let left = mostLanes * (view.right - view.left + edges);
    for (const item of seen) left -= Math.max(level >= needleLevel ? needleWidth : markWidth, nameWidth(item, level));
    return left < 0;
  }

  function packAt(level, seen, view, mostLanes, kept) {
    const most = level === lastLevel ? Infinity : mostLanes + (level === needleLevel ? lanesForSigns : 0);
    if (isTooMuch(seen, view, level, most)) return null;
    const placed = seen.map((item) => place(item, view, level)).sort((a, b) => a.left - b.left || b.right - a.right);
    const lanes = assignLanes(placed, most, kept);
    return lanes === 0 && placed.length > 0 ? null : {placed, lanes, level};
  }

  // The claims in view: {k: pixels a VLAN, left, right: of the plot's pixels}. `before`, if any, was packed at the same
  // scale; as much of it stays as can.
  function pack(items, view, mostLanes, before) {
    const {k} = view;
    const [left, right] = [view.left - markWidth, view.right + markWidth];
    const seen = items.filter((item) => leftOf(item.first, k) <= right && rightOf(item.last, k) >= left);
    const kept = before && new Map(before.placed.map((placed) => [placed.item, placed.lane]));
    let packed = null;
    for (let level = before ? before.level : 0; packed === null; level += 1) {
      packed = packAt(level, seen, view, mostLanes, kept);
    }
    useWhatIsLeft(packed.placed, view, packed.lanes, packed.level);
    return packed;
  }

  return {pack, leftOf, rightOf, plotWidth, textWidth, untaggedWidth};
})();
