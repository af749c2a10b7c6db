"use strict";

// Ports, claims and conflicts, of the page's data.
const model = (() => {
  const data = JSON.parse(document.getElementById("map-data").textContent);
  const letters = "WLMUS";
  const signs = ["", "+", "~", "-"];
  const ports = [];
  const claims = [];

  const conflictSign = (index) => `${data.conflicts[index].isWarning ? "!" : "!!"}${index + 1}`;

  function vlansText(first, last) {
    if (first === 0) return last === 0 ? "untagged" : last === data.lastVlan ? "whole port" : `0-${last}`;
    return first === last ? `${first}` : `${first}-${last}`;
  }

  // A text for each amount of room, the longest first.
  function namesOf(claim, isPrevious, first, last) {
    const change = signs[claim.status] + letters[claim.kind];
    const badge = isPrevious || claim.conflicts.length === 0 ? change : conflictSign(claim.conflicts[0]) + change;
    const isQuiet = claim.status === 0 && claim.conflicts.length === 0;
    const holder = claim.kind < 2 ? `${claim.group} ${claim.vpn}` : claim.vpn;
    const vlans = claim.kind === 2 ? "" : ` ${vlansText(first, last)}`;  // a static member's name is its VLAN
    return [`${badge} ${holder}${vlans}`, `${badge} ${claim.vpn}${vlans}`, `${badge} ${claim.vpn}`, badge,
      isQuiet ? "" : badge, isQuiet ? "" : badge, ""];
  }

  // What is drawn of a claim; one that moved is drawn at both places.
  function itemOf(claim, isPrevious, first, last) {
    return {claim, isPrevious, first, last, names: namesOf(claim, isPrevious, first, last), widths: []};
  }

  function claimOf(port, values) {
    const [kind, status, first, last, group, vpn, conflicts, previousFirst, previousLast] = values;
    const claim = {number: claims.length, port, kind, status, first, last, group: data.names[group],
      vpn: data.names[vpn], conflicts};
    claim.searched = `${claim.group} ${claim.vpn}`.toLowerCase();
    claim.isRejected = conflicts.some((index) => !data.conflicts[index].isWarning);
    claim.items = [itemOf(claim, false, first, last)];
    if (previousFirst !== undefined) claim.items.push(itemOf(claim, true, previousFirst, previousLast));
    claims.push(claim);
    return claim;
  }

  data.ports.forEach(({name, inProfile, conflicts, free, claims: values}, index) => {
    const port = {index, name, inProfile, conflicts, free};
    port.claims = values.map((claim) => claimOf(port, claim));
    port.items = port.claims.flatMap((claim) => claim.items).sort((a, b) => a.first - b.first || b.last - a.last);
    ports.push(port);
  });

  return {ports, claims, conflicts: data.conflicts, lastVlan: data.lastVlan, conflictSign, vlansText};
})();
