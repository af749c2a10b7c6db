"use strict";

// The scale: how wide a VLAN is drawn. Never narrower than the page came, so that marks of a lane stay apart.
(() => {
  const picture = document.getElementById("map");
  const scale = document.getElementById("scale");
  const shown = document.getElementById("zoom");
  const untagged = Number(picture.dataset.untagged);
  const narrowest = Number(picture.dataset.vlan);
  const last = Number(picture.dataset.last);
  const tickDistance = 50;
  const meetingWidth = 6;
  const furthest = 64;
  let zoom = 1;
  let drawn = 0;

  const leftOf = (vlan, width) => (vlan === 0 ? 0 : untagged + (vlan - 1) * width);
  const rightOf = (vlan, width) => untagged + vlan * width;

  function place(mark, width) {
    const first = Number(mark.dataset.first);
    const least = Number(mark.dataset.least || meetingWidth);
    const x = leftOf(first, width);
    const size = Math.max(rightOf(Number(mark.dataset.last), width) - x, least);
    mark.setAttribute("x", Math.min(x, rightOf(last, width) - size).toFixed(2));
    mark.setAttribute("width", size.toFixed(2));
  }

  function stretch(svg, width) {
    const height = svg.getAttribute("height");
    svg.setAttribute("width", rightOf(last, width).toFixed(2));
    svg.setAttribute("viewBox", `0 0 ${rightOf(last, width).toFixed(2)} ${height}`);
  }

  function label(words, x) {
    const text = document.createElementNS("http://www.w3.org/2000/svg", "text");
    text.setAttribute("class", "tick");
    text.setAttribute("x", x.toFixed(2));
    text.setAttribute("y", "12");
    text.textContent = words;
    return text;
  }

  function drawScale(width) {
    const steps = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000];
    const step = steps.find((wider) => wider * width >= tickDistance) || 1000;
    scale.querySelectorAll(".tick").forEach((tick) => tick.remove());
    scale.append(label("untagged", untagged / 2));
    for (let vlan = step; vlan <= last; vlan += step) scale.append(label(vlan, leftOf(vlan, width)));
    picture.style.setProperty("--tick", `${step * width}px`);
    picture.style.setProperty("--origin", `${untagged - width}px`);
    stretch(scale, width);
  }

  function draw(width) {
    if (width === drawn) return;
    drawn = width;
    drawScale(width);
    picture.querySelectorAll(".lanes").forEach((svg) => stretch(svg, width));
    picture.querySelectorAll("[data-first]").forEach((mark) => place(mark, width));
  }

  function widthFor(factor) {
    const names = scale.previousElementSibling.offsetWidth;
    const fitting = (picture.clientWidth - names - untagged - 1) / last;
    return Math.max(narrowest, fitting) * factor;
  }

  // What is in the middle stays there.
  function zoomTo(factor) {
    const names = scale.previousElementSibling.offsetWidth;
    const half = (picture.clientWidth - names) / 2;
    const middle = (picture.scrollLeft + half - untagged) / drawn;
    zoom = Math.min(Math.max(factor, 1), furthest);
    shown.textContent = `${zoom}\u00d7`;
    draw(widthFor(zoom));
    picture.scrollLeft = middle * drawn + untagged - half;
  }

  document.getElementById("zoom-in").addEventListener("click", () => zoomTo(zoom * 2));
  document.getElementById("zoom-out").addEventListener("click", () => zoomTo(zoom / 2));
  window.addEventListener("resize", () => draw(widthFor(zoom)));
  window.addEventListener("beforeprint", () => draw(narrowest));
  window.addEventListener("afterprint", () => draw(widthFor(zoom)));
  draw(widthFor(zoom));
})();
