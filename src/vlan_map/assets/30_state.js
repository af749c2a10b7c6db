"use strict";

// What is shown and selected. Whoever changes it says so; whoever shows it listens.
const state = (() => {
  const listeners = [];
  const filter = {vpn: "", vlans: null, port: "", conflictsOnly: false, changesOnly: false};
  let rows = [];

  const isFilteringClaims = () =>
    filter.vpn !== "" || filter.vlans !== null || filter.conflictsOnly || filter.changesOnly;

  const meetsVlans = (item) =>
    filter.vlans === null || (item.first <= filter.vlans[1] && item.last >= filter.vlans[0]);

  function isShown(item) {
    const {claim} = item;
    return claim.searched.includes(filter.vpn) && meetsVlans(item) &&
        (!filter.conflictsOnly || claim.conflicts.length > 0) && (!filter.changesOnly || claim.status !== 0);
  }

  // A conflict about no claim still belongs to its ports.
  const isKept = (port, items) => items.length > 0 || !isFilteringClaims() ||
      (filter.conflictsOnly && port.conflicts.length > 0 && filter.vpn === "" && filter.vlans === null);

  function filterRows() {
    rows = [];
    for (const port of model.ports) {
      if (!port.name.toLowerCase().includes(filter.port)) continue;
      const items = isFilteringClaims() ? port.items.filter(isShown) : port.items;
      if (isKept(port, items)) rows.push({port, items});
    }
  }

  function say(what) {
    for (const listener of listeners) listener(what);
  }

  const made = {
    selected: {},  // {claim}, {port} or {conflict} with what it is, {vlans} of the filter, or nothing
    current: null,  // the claim that the keyboard is at
    filter,
    get rows() { return rows; },
    isFilteringClaims,
    listen(listener) { listeners.push(listener); },
    setFilter(values) {
      Object.assign(filter, values);
      filterRows();
      say("filter");
    },
    clearFilter() {
      made.setFilter({vpn: "", vlans: null, port: "", conflictsOnly: false, changesOnly: false});
    },
    shows(claim) {
      return rows.some((row) => row.port === claim.port && row.items.includes(claim.items[0]));
    },
    select(selected) {
      made.selected = selected;
      if (selected.claim) made.current = selected.claim;
      say("selection");
    },
  };
  filterRows();
  return made;
})();
