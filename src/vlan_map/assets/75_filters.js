"use strict";

// Filters by VPN, VLAN and port; only conflicts, only changes. What is left is packed anew and has room for its names.
const filters = (() => {
  const field = (id) => document.getElementById(id);
  const vpn = field("vpn-filter");
  const vlan = field("vlan-filter");
  const port = field("port-filter");
  const conflictsOnly = field("conflicts-only");
  const changesOnly = field("changes-only");
  const number = (count, one) => `${count.toLocaleString("en")} ${one}${count === 1 ? "" : "s"}`;

  // [first, last]; null for an empty text; nothing for one that names no VLANs.
  function vlansOf(text) {
    if (text === "") return null;
    if (text === "untagged") return [0, 0];
    const [, first, last = first] = /^(\d+)(?:\s*-\s*(\d+))?$/.exec(text) ?? [];
    if (first === undefined || Number(first) > Number(last) || Number(last) > model.lastVlan) return undefined;
    return [Number(first), Number(last)];
  }

  function countText() {
    const claims = new Set(state.rows.flatMap(({items}) => items.map(({claim}) => claim)));
    const ports = state.rows.length;
    if (claims.size === model.claims.length && ports === model.ports.length) {
      return `${number(claims.size, "claim")} on ${number(ports, "port")}`;
    }
    return `${claims.size.toLocaleString("en")} of ${number(model.claims.length, "claim")} on ` +
        `${ports} of ${number(model.ports.length, "port")}`;
  }

  function apply() {
    const vlans = vlansOf(vlan.value.trim());
    vlan.toggleAttribute("aria-invalid", vlans === undefined);
    state.setFilter({vpn: vpn.value.trim().toLowerCase(), vlans: vlans ?? null, port: port.value.trim().toLowerCase(),
      conflictsOnly: conflictsOnly.checked, changesOnly: changesOnly.checked});
    field("count").textContent = vlans === undefined ? "expected a VLAN or a range, such as 210 or 200-300" : countText();
  }

  function select() {
    if (state.filter.vlans) state.select({vlans: state.filter.vlans});
    else if (state.selected.vlans) state.select({});
  }

  function clear() {
    for (const input of [vpn, vlan, port]) input.value = "";
    for (const box of [conflictsOnly, changesOnly]) box.checked = false;
    apply();
  }

  for (const input of [vpn, vlan, port]) {
    input.addEventListener("input", () => { apply(); select(); });
    input.addEventListener("keydown", (event) => {
      if (event.key !== "Enter") return;
      const {vlans} = state.filter;
      if (input === vlan && vlans) view.showVlans(Math.max(vlans[0], 1), Math.max(vlans[1], 1));
      else keys.toFirst();
    });
  }
  for (const box of [conflictsOnly, changesOnly]) box.addEventListener("change", apply);

  return {apply, clear,
    setVlans(first, last) {
      vlan.value = first === 0 && last === 0 ? "untagged" : first === last ? `${first}` : `${first}-${last}`;
      apply();
      select();
    }};
})();
