"use strict";

// The ways to a claim, a port, a VLAN and a conflict. What is filtered away comes back.
const go = (() => {
  function toClaim(claim, zooms) {
    if (!state.shows(claim)) filters.clear();
    state.select({claim});
    if (zooms) view.showVlans(Math.max(claim.first, 1), Math.max(claim.last, 1));
    view.showClaim(claim);
  }

  function toPort(port) {
    if (!state.rows.some((row) => row.port === port)) filters.clear();
    state.select({port});
    const taken = port.claims.filter(({last}) => last > 0 && last < model.lastVlan);
    if (taken.length === 0) view.showAll();
    else view.showVlans(Math.min(...taken.map(({first}) => Math.max(first, 1))), Math.max(...taken.map(({last}) => last)));
    view.showRow(port);
  }

  // The VLANs on which the claims of a conflict meet, else all that they take. A whole port says nothing.
  function vlansOf({overlaps, claims}) {
    const isNarrow = ([first, last]) => last > 0 && last - first < model.lastVlan - 1;
    const met = overlaps.map(([, first, last]) => [first, last]).filter(isNarrow);
    const taken = claims.map((number) => [model.claims[number].first, model.claims[number].last]).filter(isNarrow);
    const spans = met.length > 0 ? met : taken;
    if (spans.length === 0) return null;
    return [Math.max(Math.min(...spans.map(([first]) => first)), 1), Math.max(...spans.map(([, last]) => last))];
  }

  function toConflict(index) {
    const conflict = model.conflicts[index];
    const claims = conflict.claims.map((number) => model.claims[number]);
    const ports = conflict.ports.map((port) => model.ports[port]);
    const isShown = claims.every(state.shows) && ports.every((port) => state.rows.some((row) => row.port === port));
    if (!isShown) filters.clear();
    state.select({conflict: index});
    const vlans = vlansOf(conflict);
    if (vlans) view.showVlans(...vlans);
    else view.showAll();
    if (ports.length > 0) view.showRow(ports[0]);
    if (claims.length > 0) {
      state.current = claims[0];
      view.showClaim(claims[0]);
    }
  }

  function toNextConflict(step) {
    const count = model.conflicts.length;
    if (count === 0) return;
    const at = state.selected.conflict ?? (step > 0 ? -1 : 0);
    toConflict((at + step + count) % count);
  }

  function toVlans(first, last) {
    filters.setVlans(first, last);
    view.showVlans(Math.max(first, 1), Math.max(last, 1));
  }

  return {toClaim, toPort, toConflict, toNextConflict, toVlans};
})();
