"use strict";

// What a mark stands for, beside it while it is pointed at or has the focus. The table of claims says it.
(() => {
  const picture = document.getElementById("map");
  const detail = document.getElementById("detail");
  const names = [...document.querySelectorAll("#claims thead th")].map((cell) => cell.textContent);
  let leaving = 0;
  let shown = null;

  function fill(mark) {
    const row = document.getElementById(`claim-${mark.dataset.claim}`);
    const list = document.createElement("dl");
    [...row.cells].forEach((cell, i) => {
      if (cell.textContent === "") return;
      const name = document.createElement("dt");
      const text = document.createElement("dd");
      name.textContent = names[i];
      text.textContent = cell.textContent;
      list.append(name, text);
    });
    detail.replaceChildren(list);
  }

  function follow() {
    if (detail.hidden) return;
    const gap = 6;
    const box = shown.querySelector(".bar").getBoundingClientRect();
    const seen = picture.getBoundingClientRect();
    const fitsBelow = box.bottom + gap + detail.offsetHeight < window.innerHeight;
    const left = Math.min(Math.max(box.left, seen.left + gap), window.innerWidth - detail.offsetWidth - gap);
    detail.style.left = `${Math.max(left, 0)}px`;
    detail.style.top = `${Math.max(fitsBelow ? box.bottom + gap : box.top - gap - detail.offsetHeight, 0)}px`;
  }

  function show(mark) {
    clearTimeout(leaving);
    fill(mark);
    shown = mark;
    detail.hidden = false;
    follow();
  }

  function hide() {
    clearTimeout(leaving);
    detail.hidden = true;
  }

  // The pointer may go on to the text; a mark with the focus keeps its own.
  function leave() {
    clearTimeout(leaving);
    leaving = setTimeout(() => {
      const focused = document.activeElement;
      if (focused && focused.matches(".lanes .mark")) show(focused);
      else hide();
    }, 200);
  }

  picture.addEventListener("mouseover", (event) => {
    const mark = event.target.closest(".lanes .mark");
    if (mark) show(mark);
    else leave();
  });
  picture.addEventListener("mouseleave", leave);
  detail.addEventListener("mouseenter", () => clearTimeout(leaving));
  detail.addEventListener("mouseleave", leave);
  picture.addEventListener("focusin", (event) => {
    if (event.target.matches(".lanes .mark")) show(event.target);
  });
  picture.addEventListener("focusout", hide);
  document.addEventListener("scroll", follow, {capture: true, passive: true});
  document.addEventListener("keydown", (event) => {
    if (event.key === "Escape") hide();
  });
})();
