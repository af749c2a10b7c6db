"use strict";

// Draws what is in view. Colours and outlines are those of the legend, where style sheets set them.
const paint = (() => {
  const canvas = document.getElementById("canvas");
  const pen = canvas.getContext("2d");
  const scaleHeight = 22;
  const tickDistance = 56;
  let look = null;

  function sample(selector) {
    const style = getComputedStyle(document.querySelector(`.legend ${selector} .bar`));
    return {fill: style.fill, stroke: style.stroke, width: Number.parseFloat(style.strokeWidth),
      dash: style.strokeDasharray === "none" ? [] : style.strokeDasharray.split(",").map(Number.parseFloat)};
  }

  function hatching(colour) {
    const tile = document.createElement("canvas");
    tile.width = 6;
    tile.height = 6;
    const tilePen = tile.getContext("2d");
    tilePen.strokeStyle = colour;
    tilePen.lineWidth = 1.2;
    tilePen.stroke(new Path2D("M-1 1L1 -1M0 6L6 0M5 7L7 5"));
    return pen.createPattern(tile, "repeat");
  }

  function readLook() {
    const page = getComputedStyle(document.body);
    const colour = (name) => page.getPropertyValue(`--${name}`).trim();
    look = {kinds: ["vpws", "vpls", "member", "uplink", "snooping"].map((kind) => sample(`.${kind}.unchanged`).fill),
      changes: ["unchanged", "added", "changed", "removed"].map((change) => sample(`.vpws.${change}`)),
      former: sample(".former"), rejected: sample(".rejected"), warned: sample(".warned"),
      hatching: hatching(colour("faint")), font: colour("label-font"), boldFont: `600 ${colour("label-font")}`};
    for (const name of ["paper", "ground", "ink", "faint", "line", "refused", "focus", "free", "free-text", "meeting"]) {
      look[name] = colour(name);
    }
  }

  function outlineOf({claim, isPrevious}) {
    if (isPrevious) return look.former;
    if (claim.conflicts.length > 0) return claim.isRejected ? look.rejected : look.warned;
    return look.changes[claim.status];
  }

  function fillOf({claim, isPrevious}) {
    if (isPrevious) return look.paper;
    return claim.status === 3 ? look.hatching : look.kinds[claim.kind];
  }

  // Outlines lie within the shape: its edges are where its VLANs end.
  function paintBar(placed, y, outline) {
    const height = rowLayout.barHeight;
    const line = Math.min(outline.width, placed.width / 3);
    pen.fillStyle = fillOf(placed.item);
    pen.fillRect(placed.x, y, placed.width, height);
    pen.lineWidth = line;
    pen.setLineDash(outline.dash);
    pen.strokeStyle = outline.stroke;
    pen.strokeRect(placed.x + line / 2, y + line / 2, placed.width - line, height - line);
  }

  // One VLAN has a round head, few have a square one.
  function paintMark(placed, y, outline) {
    const middle = placed.x + placed.width / 2;
    const centre = y + rowLayout.barHeight / 2;
    pen.setLineDash([]);
    pen.lineWidth = 1;
    pen.strokeStyle = outline.stroke;
    pen.beginPath();
    pen.moveTo(middle, y);
    pen.lineTo(middle, y + rowLayout.barHeight);
    pen.stroke();
    pen.beginPath();
    if (placed.shape === "vlan") pen.arc(middle, centre, 3.5, 0, 2 * Math.PI);
    else pen.rect(middle - 3.5, centre - 3.5, 7, 7);
    pen.fillStyle = fillOf(placed.item);
    pen.fill();
    pen.lineWidth = Math.min(outline.width, 2);
    pen.stroke();
  }

  function paintNeedle(placed, y) {
    pen.fillStyle = look.kinds[placed.item.claim.kind];
    pen.fillRect(placed.x + placed.width / 2 - 1, y, 2, rowLayout.barHeight);
  }

  function paintLabel(placed, y) {
    if (!placed.label) return;
    const {claim, isPrevious} = placed.item;
    const isPlain = isPrevious || claim.status === 3;
    pen.fillStyle = placed.isWithin && !isPlain ? "#000000" : look.ink;
    if (claim.conflicts.length > 0 && !placed.isWithin && !isPrevious) pen.fillStyle = look.refused;
    pen.fillText(placed.label, placed.labelX, y + 11.5);
  }

  function isDimmed({claim}) {
    const {conflict} = state.selected;
    return conflict !== undefined && !claim.conflicts.includes(conflict);
  }

  function paintPlaced(placed, rowTop) {
    const y = rowTop + rowLayout.padding + placed.lane * rowLayout.lanePitch;
    const outline = outlineOf(placed.item);
    pen.globalAlpha = isDimmed(placed.item) ? 0.3 : 1;
    if (placed.shape === "bar") paintBar(placed, y, outline);
    else if (placed.shape === "needle") paintNeedle(placed, y);
    else paintMark(placed, y, outline);
    paintLabel(placed, y);
    pen.globalAlpha = 1;
    if (placed.item.claim !== state.current) return;
    pen.setLineDash([]);
    pen.lineWidth = 2;
    pen.strokeStyle = look.focus;
    pen.strokeRect(placed.left - 2, y - 2, placed.right - placed.left + 4, rowLayout.barHeight + 4);
  }

  function paintBand(vlans, view, top, height, colour) {
    const left = Math.max(packing.leftOf(vlans[0], view.k), view.left);
    const right = Math.min(packing.rightOf(vlans[1], view.k), view.right);
    const width = Math.max(right - left, 3);
    if (right < view.left || left > view.right) return;
    pen.fillStyle = colour;
    pen.fillRect(left - (width - (right - left)) / 2, top, width, height);
  }

  function paintOverlaps(row, view) {
    for (const index of row.port.conflicts) {
      for (const [port, first, last] of model.conflicts[index].overlaps) {
        if (port === row.port.index) paintBand([first, last], view, row.top, row.height, look.meeting);
      }
    }
  }

  function paintFree(row, view) {
    const top = row.top + row.height - rowLayout.footHeight;
    pen.textAlign = "center";
    for (const [first, last] of row.port.free) {
      const left = Math.max(packing.leftOf(first, view.k), view.left);
      const right = Math.min(packing.rightOf(last, view.k), view.right);
      if (right <= left) continue;
      pen.fillStyle = look.free;
      pen.fillRect(left, top + rowLayout.footHeight - 4, right - left, 3);
      const text = `free ${first === last ? first : `${first}-${last}`}`;
      if (packing.textWidth(text) + 8 > right - left) continue;
      pen.fillStyle = look["free-text"];
      pen.fillText(text, (left + right) / 2, top + 7);
    }
    pen.textAlign = "left";
  }

  function shortened(text, width) {
    if (packing.textWidth(text) <= width) return text;
    let rest = text.slice(1);
    while (rest.length > 1 && packing.textWidth(`\u2026${rest}`) > width) rest = rest.slice(1);
    return `\u2026${rest}`;
  }

  function paintName(row, nameWidth) {
    const room = nameWidth - 12;
    pen.font = row.port === state.selected.port ? look.boldFont : look.font;
    pen.fillStyle = look.ink;
    const name = row.port.inProfile ? row.port.name : `${row.port.name} (not in the profile)`;
    pen.fillText(shortened(name, row.port === state.selected.port ? room / 1.1 : room), 6, row.top + 15);
    const flags = row.port.conflicts.map(model.conflictSign).join(" ");
    pen.font = look.boldFont;
    pen.fillStyle = look.refused;
    const shown = packing.textWidth(flags) * 1.1 > room ? `${row.port.conflicts.length} conflicts` : flags;
    if (flags) pen.fillText(shown, 6, row.top + 29);
    pen.font = look.font;
  }

  function ticks(view) {
    const steps = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000];
    const step = steps.find((wider) => wider * view.k >= tickDistance) ?? 1000;
    const vlanAt = (x) => (x - packing.untaggedWidth) / view.k;
    const found = [];
    for (let vlan = Math.max(Math.floor(vlanAt(view.left) / step), 1) * step;
      vlan <= Math.min(vlanAt(view.right) + step, model.lastVlan); vlan += step) found.push(vlan);
    return found;
  }

  function paintGrid(view, bottom) {
    pen.fillStyle = look.line;
    for (const vlan of ticks(view)) pen.fillRect(Math.round(packing.leftOf(vlan, view.k)), view.top, 1, bottom - view.top);
    pen.fillRect(packing.untaggedWidth - 1, view.top, 1, bottom - view.top);
  }

  function paintScale(view, nameWidth, width) {
    pen.fillStyle = look.paper;
    pen.fillRect(0, 0, width, scaleHeight);
    pen.fillStyle = look.line;
    pen.fillRect(0, scaleHeight - 1, width, 1);
    pen.save();
    pen.beginPath();
    pen.rect(nameWidth, 0, width - nameWidth, scaleHeight);
    pen.clip();
    pen.translate(nameWidth - view.left, 0);
    pen.fillStyle = look.faint;
    pen.textAlign = "center";
    for (const vlan of ticks(view)) {
      const middle = packing.leftOf(vlan, view.k) + (view.k > 12 ? view.k / 2 : 0);
      pen.fillText(String(vlan), middle, 15);
    }
    pen.fillText("untagged", packing.untaggedWidth / 2, 15);
    pen.restore();
    pen.fillStyle = look.faint;
    pen.textAlign = "left";
    pen.fillText("VLAN", 6, 15);
  }

  // `view`: {k, left, right} as packing has it, {top, height} of the rows' pixels, and the name column's width.
  function paintRows(rows, view, nameWidth, width) {
    pen.save();
    pen.beginPath();
    pen.rect(nameWidth, scaleHeight, width - nameWidth, view.height);
    pen.clip();
    pen.translate(nameWidth - view.left, scaleHeight - view.top);
    paintGrid(view, view.top + view.height);
    if (state.filter.vlans) paintBand(state.filter.vlans, view, view.top, view.height, look.ground);
    for (const row of rows) {
      paintOverlaps(row, view);
      paintFree(row, view);
      for (const placed of row.packed.placed) paintPlaced(placed, row.top);
      pen.fillStyle = look.line;
      pen.fillRect(view.left, row.top + row.height - 1, width, 1);
    }
    pen.restore();
  }

  function paintNames(rows, view, nameWidth) {
    pen.save();
    pen.beginPath();
    pen.rect(0, scaleHeight, nameWidth, view.height);
    pen.clip();
    pen.translate(0, scaleHeight - view.top);
    pen.fillStyle = look.ground;
    pen.fillRect(0, view.top, nameWidth, view.height);
    for (const row of rows) {
      paintName(row, nameWidth);
      pen.fillStyle = look.line;
      pen.fillRect(0, row.top + row.height - 1, nameWidth, 1);
    }
    pen.restore();
  }

  function all(view, nameWidth, width, height) {
    if (look === null) readLook();
    const density = window.devicePixelRatio || 1;
    const [wide, high] = [Math.round(width * density), Math.round(height * density)];
    if (canvas.width !== wide || canvas.height !== high) [canvas.width, canvas.height] = [wide, high];
    pen.setTransform(density, 0, 0, density, 0, 0);
    pen.fillStyle = look.paper;
    pen.fillRect(0, 0, width, height);
    pen.font = look.font;
    const rows = rowLayout.rows.filter((row) => row.top < view.top + view.height && row.top + row.height > view.top);
    paintRows(rows, view, nameWidth, width);
    paintNames(rows, view, nameWidth);
    paintScale(view, nameWidth, width);
  }

  return {all, scaleHeight, forgetLook() { look = null; }};
})();
