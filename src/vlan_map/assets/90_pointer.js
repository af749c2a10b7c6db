"use strict";

// The drawing by pointer: a click selects, a drag moves, Ctrl and wheel or two fingers zoom.
(() => {
  const {frame} = view;
  const canvas = document.getElementById("canvas");
  let dragged = null;
  let pinched = null;

  function select(event) {
    const {row, placed, isName} = view.under(event);
    if (isName && row) go.toPort(row.port);
    else if (placed) state.select({claim: placed.item.claim});
  }

  frame.addEventListener("wheel", (event) => {
    if (!event.ctrlKey && !event.metaKey) return;
    event.preventDefault();
    const {x, y} = view.at(event);
    const lines = event.deltaMode === 1 ? 20 : 1;
    view.zoomBy(Math.exp(-Math.max(Math.min(event.deltaY * lines, 200), -200) * 0.004), x, y);
  }, {passive: false});

  canvas.addEventListener("pointerdown", (event) => {
    if (event.button !== 0 || event.pointerType === "touch") return;
    dragged = {x: event.clientX, y: event.clientY, left: frame.scrollLeft, top: frame.scrollTop, isFar: false};
    canvas.setPointerCapture(event.pointerId);
  });
  canvas.addEventListener("pointermove", (event) => {
    if (!dragged) {
      const {placed, row, isName} = view.under(event);
      canvas.title = isName && row ? row.port.name : placed ? placed.item.names[0] : "";
      canvas.classList.toggle("is-over", Boolean(placed) || Boolean(isName));
      return;
    }
    const [x, y] = [event.clientX - dragged.x, event.clientY - dragged.y];
    dragged.isFar ||= Math.hypot(x, y) > 4;
    if (dragged.isFar) frame.scrollTo(dragged.left - x, dragged.top - y);
  });
  canvas.addEventListener("pointerup", () => { if (!dragged?.isFar) dragged = null; });
  canvas.addEventListener("click", (event) => {
    const wasDragged = dragged !== null;
    dragged = null;
    if (!wasDragged) select(event);
  });
  canvas.addEventListener("pointercancel", () => { dragged = null; });
  canvas.addEventListener("dblclick", (event) => {
    const {placed, isName} = view.under(event);
    const {x, y} = view.at(event);
    if (placed) go.toClaim(placed.item.claim, true);
    else if (!isName) view.zoomBy(2, x, y);
  });

  const spread = ([a, b]) => Math.hypot(a.clientX - b.clientX, a.clientY - b.clientY);
  const between = ([a, b]) => ({clientX: (a.clientX + b.clientX) / 2, clientY: (a.clientY + b.clientY) / 2});
  frame.addEventListener("touchmove", (event) => {
    if (event.touches.length !== 2) return;
    event.preventDefault();
    const size = spread(event.touches);
    const {x, y} = view.at(between(event.touches));
    if (pinched) view.zoomBy(size / pinched, x, y);
    pinched = size;
  }, {passive: false});
  frame.addEventListener("touchend", () => { pinched = null; });
})();
