"use strict";

// Buttons, paper, and the beginning.
(() => {
  const on = (id, act) => document.getElementById(id).addEventListener("click", act);
  const paper = document.getElementById("paper");

  on("zoom-in", () => view.zoomBy(2));
  on("zoom-out", () => view.zoomBy(0.5));
  on("zoom-all", () => view.showAll());
  on("next-conflict", () => go.toNextConflict(1));
  on("previous-conflict", () => go.toNextConflict(-1));
  function toggle(button, part, isShown) {
    document.getElementById(part).hidden = !isShown;
    document.getElementById(button).setAttribute("aria-expanded", String(isShown));
  }

  for (const part of ["legend", "keys"]) {
    on(`show-${part}`, () => toggle(`show-${part}`, part, document.getElementById(part).hidden));
  }
  toggle("show-legend", "legend", window.innerHeight >= 700);

  // The fixed picture, which is there for browsers without scripts, goes on paper.
  window.addEventListener("beforeprint", () => {
    const fixed = paper.querySelector("noscript");
    if (fixed) paper.innerHTML = fixed.textContent;
  });

  document.getElementById("live").hidden = false;
  document.documentElement.classList.add("is-live");
  filters.apply();
  details.show();
})();
