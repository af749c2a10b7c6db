"use strict";

// Search by VPN, filter by port, and the way from a conflict to its place.
(() => {
  const picture = document.getElementById("map");
  const search = document.getElementById("vpn-search");
  const filter = document.getElementById("port-filter");
  const busyOnly = document.getElementById("busy-only");
  const rows = [...picture.querySelectorAll(".row")];
  const marks = [...picture.querySelectorAll(".lanes .mark")];
  const holders = [...document.querySelectorAll("#claims tbody tr")].map((row) =>
    `${row.cells[1].textContent} ${row.cells[2].textContent}`.toLowerCase());
  const portOf = new Map(rows.map((row) => [row, row.querySelector(".port").textContent.toLowerCase()]));

  const plural = (count, one) => `${count} ${one}${count === 1 ? "" : "s"}`;

  function searchVpn() {
    const wanted = search.value.trim().toLowerCase();
    const claims = new Set();
    const ports = new Set();
    for (const mark of marks) {
      const isHit = wanted !== "" && holders[mark.dataset.claim].includes(wanted);
      mark.classList.toggle("hit", isHit);
      const row = mark.closest(".row");
      if (!isHit || row.hidden) continue;
      claims.add(mark.dataset.claim);
      ports.add(row);
    }
    picture.classList.toggle("searching", wanted !== "");
    const found = `${plural(claims.size, "claim")} on ${plural(ports.size, "port")}`;
    document.getElementById("vpn-count").textContent = wanted === "" ? "" : found;
  }

  function filterPorts() {
    const wanted = filter.value.trim().toLowerCase();
    let shown = 0;
    for (const row of rows) {
      row.hidden = !portOf.get(row).includes(wanted) || (busyOnly.checked && !("busy" in row.dataset));
      if (!row.hidden) shown += 1;
    }
    const all = plural(rows.length, "port");
    document.getElementById("port-count").textContent = shown === rows.length ? all : `${shown} of ${all}`;
    document.dispatchEvent(new Event("rowsfiltered"));
    searchVpn();
  }

  function reveal(place) {
    if (place.closest(".row").hidden) {
      filter.value = "";
      busyOnly.checked = false;
      filterPorts();
    }
    const box = (place.querySelector(":scope > .bar") || place).getBoundingClientRect();
    const seen = picture.getBoundingClientRect();
    picture.scrollTop += box.top - seen.top - seen.height / 2;
    picture.scrollLeft += box.left - seen.left - seen.width / 2;
    place.scrollIntoView({block: "nearest", inline: "nearest"});
    place.focus({preventScroll: true});
  }

  function revealNextHit() {
    const hits = marks.filter((mark) => mark.classList.contains("hit") && !mark.closest(".row").hidden);
    if (hits.length === 0) return;
    const at = hits.findIndex((mark) => mark.getAttribute("tabindex") === "0");
    reveal(hits[(at + 1) % hits.length]);
  }

  function stepOnEnter(event) {
    if (event.key === "Enter") revealNextHit();
  }

  search.addEventListener("input", searchVpn);
  search.addEventListener("keydown", stepOnEnter);
  picture.addEventListener("keydown", stepOnEnter);
  filter.addEventListener("input", filterPorts);
  busyOnly.addEventListener("change", filterPorts);
  document.querySelectorAll("a.jump").forEach((link) =>
    link.addEventListener("click", (event) => {
      event.preventDefault();
      reveal(document.getElementById(link.hash.slice(1)));
    }));
  filterPorts();
})();
