"use strict";

// What of the rows is in view. The browser scrolls; the scale zooms. All drawing is done once a frame.
const view = (() => {
  const frame = document.getElementById("map");
  const sheet = document.getElementById("sheet");
  const canvas = document.getElementById("canvas");
  const widestVlan = 48;
  const restAfter = 200;  // milliseconds without a move
  let scale = 0;  // pixels a VLAN; 0: all VLANs are in view, however wide that is
  let isMoving = false;
  let pending = 0;
  let resting = 0;

  const longest = model.ports.reduce((most, {name}) => Math.max(most, packing.textWidth(name)), 60);

  function nameWidth() {
    return Math.round(Math.min(longest * 1.1 + 14, 240, Math.max(frame.clientWidth * 0.2, 90)));
  }

  const plotSize = () => ({width: Math.max(frame.clientWidth - nameWidth(), 100),
    height: Math.max(frame.clientHeight - paint.scaleHeight, 50)});
  const fitting = () => (plotSize().width - packing.untaggedWidth) / model.lastVlan;
  const currentScale = () => Math.max(scale, fitting());
  const setScale = (k) => { scale = k <= fitting() ? 0 : Math.min(k, Math.max(widestVlan, fitting())); };

  function current() {
    const {width, height} = plotSize();
    const left = frame.scrollLeft;
    return {k: currentScale(), left, right: left + width, top: frame.scrollTop, height};
  }

  // What lies at this height in view stays there when rows change theirs.
  function keepInPlace(anchor, change) {
    const y = frame.scrollTop + anchor;
    const row = frame.scrollTop > 0 ? rowLayout.rowAt(y) : undefined;
    const part = row ? Math.min((y - row.top) / row.height, 1) : 0;
    change();
    if (!row) return;
    const top = Math.round(row.top + part * row.height - anchor);
    if (Math.abs(top - frame.scrollTop) >= 1) frame.scrollTop = top;
  }

  // Writing a size that is there already would make the browser lay the page out again.
  function resize({style}, width, height) {
    if (style.width !== `${width}px`) style.width = `${width}px`;
    if (style.height !== `${height}px`) style.height = `${height}px`;
  }

  function layOut(anchor = 0) {
    keepInPlace(anchor, () => {
      const wanted = current();
      rowLayout.update(wanted, isMoving);
      resize(sheet, Math.floor(packing.plotWidth(wanted.k) + nameWidth()),
        Math.ceil(rowLayout.height + paint.scaleHeight));
    });
  }

  function vlansInView() {
    const {k, left, right} = current();
    const at = (x) => Math.min(Math.max(Math.ceil((x - packing.untaggedWidth) / k), 0), model.lastVlan);
    const first = left < packing.untaggedWidth ? 1 : at(left + 1);
    return [first, Math.max(at(right), first)];
  }

  function draw() {
    pending = 0;
    layOut();
    resize(canvas, frame.clientWidth, frame.clientHeight);
    paint.all(current(), nameWidth(), frame.clientWidth, frame.clientHeight);
    document.getElementById("in-view").textContent = `VLANs ${vlansInView().join("-")}`;
  }

  function request() {
    if (pending === 0) pending = requestAnimationFrame(draw);
  }

  function rest() {
    isMoving = false;
    request();
  }

  function moved() {
    isMoving = true;
    clearTimeout(resting);
    resting = setTimeout(rest, restAfter);
    request();
  }

  // Sets the scale; what was at this place in view, from the plot's left and the rows' top, stays there.
  function scaleTo(k, x = plotSize().width / 2, y = 0) {
    const before = current();
    const vlan = (before.left + x - packing.untaggedWidth) / before.k;
    setScale(k);
    isMoving = false;
    layOut(y);
    frame.scrollLeft = Math.round(vlan * current().k + packing.untaggedWidth - x);
    layOut(y);
    request();
  }

  function showVlans(first, last) {
    const {width} = plotSize();
    const around = Math.max((last - first + 1) * 0.3, 6);
    setScale(width / (last - first + 1 + 2 * around));
    isMoving = false;
    layOut();
    frame.scrollLeft = Math.round(packing.leftOf(Math.max((first + last) / 2, 1), current().k) - width / 2);
    layOut();
    request();
  }

  // Brings a height of the rows into view. Rows that come into view are packed only then, and their heights change.
  function scrollTo(heightOf) {
    for (let tries = 0; tries < 3; tries += 1) {
      frame.scrollTop = heightOf();
      layOut();
    }
    request();
  }

  function showRow(port) {
    const row = rowLayout.rowOf(port);
    if (row) scrollTo(() => row.top - 8);
  }

  // Moves as little as is needed for the claim to be in view.
  function showClaim(claim) {
    const {left, right, k} = current();
    const [first, last] = [packing.leftOf(claim.first, k), packing.rightOf(claim.last, k)];
    if (first > right - 20 || last < left + 20) frame.scrollLeft = Math.round((first + last - (right - left)) / 2);
    layOut();
    const row = rowLayout.rowOf(claim.port);
    if (!row) return;
    const topOf = () => row.top + (rowLayout.placedOf(claim)?.lane ?? 0) * rowLayout.lanePitch;
    const {top, height} = current();
    if (topOf() < top || topOf() + 2 * rowLayout.lanePitch > top + height) scrollTo(() => topOf() - height / 3);
    request();
  }

  frame.addEventListener("scroll", moved, {passive: true});
  new ResizeObserver(request).observe(frame);
  matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => {
    paint.forgetLook();
    request();
  });
  state.listen(request);

  return {frame, showVlans, showRow, showClaim, showAll: () => scaleTo(0),
    zoomBy: (factor, x, y) => scaleTo(currentScale() * factor, x, y),
    at(event) {
      const box = frame.getBoundingClientRect();
      return {x: event.clientX - box.left - nameWidth(), y: event.clientY - box.top - paint.scaleHeight};
    },
    under(event) {
      const {x, y} = this.at(event);
      const {left, top} = current();
      if (y < 0) return {};
      return {...rowLayout.placedAt(x < 0 ? -Infinity : left + x, top + y), isName: x < 0};
    }};
})();
