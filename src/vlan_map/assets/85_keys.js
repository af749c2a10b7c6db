"use strict";

// The drawing by keyboard: one stop of the tab key, in which arrows go from claim to claim. What they come to is spoken.
const keys = (() => {
  const spoken = document.getElementById("current");

  const itemsOf = (row) => row.items.filter(({isPrevious}) => !isPrevious).map(({claim}) => claim);
  const rowOf = (claim) => state.rows.findIndex(({port}) => port === claim?.port);

  function sentence(claim) {
    const cells = [...document.getElementById(`claim-${claim.number}`).cells].map((cell) => cell.textContent);
    return `${claim.port.name}: ${cells.filter((text) => text !== "").join(", ")}`;
  }

  function toFirst() {
    const row = state.rows.find(({items}) => items.length > 0);
    if (!row) return;
    view.frame.focus({preventScroll: true});
    go.toClaim(itemsOf(row)[0], false);
  }

  function otherRow(at, step) {
    for (let i = at + step; i >= 0 && i < state.rows.length; i += step) {
      if (state.rows[i].items.length > 0) return state.rows[i];
    }
    return undefined;
  }

  function nearest(claims, to) {
    const distance = ({first, last}) => Math.max(first - to.last, to.first - last, 0);
    return claims.reduce((best, claim) => (distance(claim) < distance(best) ? claim : best));
  }

  function target(key) {
    const at = rowOf(state.current);
    if (at < 0 || !state.shows(state.current)) return itemsOf(otherRow(-1, 1) ?? {items: []})[0];
    const claims = itemsOf(state.rows[at]);
    const place = claims.indexOf(state.current);
    if (key === "ArrowRight") return claims[place + 1];
    if (key === "ArrowLeft") return claims[place - 1];
    if (key === "Home") return claims[0];
    if (key === "End") return claims[claims.length - 1];
    const row = otherRow(at, key === "ArrowDown" ? 1 : -1);
    return row && nearest(itemsOf(row), state.current);
  }

  function middleOfCurrent() {
    const placed = state.current && rowLayout.placedOf(state.current);
    return placed ? placed.x + placed.width / 2 - view.frame.scrollLeft : undefined;
  }

  const withCurrent = (act) => () => { if (state.current) act(state.current); };
  const commands = {
    Enter: withCurrent((claim) => go.toClaim(claim, true)),
    p: withCurrent((claim) => go.toPort(claim.port)),
    v: withCurrent((claim) => go.toVlans(claim.first, claim.last)),
    c: () => go.toNextConflict(1),
    C: () => go.toNextConflict(-1),
    "+": () => view.zoomBy(2, middleOfCurrent()),
    "-": () => view.zoomBy(0.5, middleOfCurrent()),
    0: () => view.showAll(),
    "/": () => document.getElementById("vpn-filter").focus(),
    Escape: () => state.select({}),
  };
  const moves = ["ArrowLeft", "ArrowRight", "ArrowUp", "ArrowDown", "Home", "End"];

  view.frame.addEventListener("keydown", (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey) return;
    if (moves.includes(event.key)) {
      const claim = target(event.key);
      if (claim) go.toClaim(claim, false);
    } else if (Object.hasOwn(commands, event.key)) {
      commands[event.key]();
    } else {
      return;
    }
    event.preventDefault();
  });
  state.listen((what) => {
    if (what === "selection" && state.current) spoken.setAttribute("aria-label", sentence(state.current));
  });

  return {toFirst};
})();
