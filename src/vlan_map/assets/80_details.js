"use strict";

// What is selected, beside the drawing, in the words of the page's conflicts and tables; else the list of conflicts.
const details = (() => {
  const panel = document.getElementById("detail");
  const mostPorts = 30;

  function element(name, properties, ...content) {
    const made = Object.assign(document.createElement(name), properties);
    made.append(...content);
    return made;
  }

  const button = (text, onclick, className = "") => element("button", {type: "button", onclick, className}, text);

  // A part of the page again; identifiers stay with the first.
  function copyOf(id) {
    const copy = document.getElementById(id).cloneNode(true);
    copy.removeAttribute("id");
    copy.querySelectorAll("[id]").forEach((one) => one.removeAttribute("id"));
    return copy;
  }

  const back = () => button("All conflicts", () => state.select({}), "back");

  function listItem(article, index) {
    const sign = element("span", {className: "badge"}, model.conflictSign(index));
    const rule = article.querySelector("code")?.textContent ?? "";
    const message = element("span", {className: "message"}, article.querySelector(".message").textContent);
    const shown = button("", () => go.toConflict(index), "conflict-link");
    shown.append(sign, " ", element("b", {}, rule), message);
    return element("li", {}, shown);
  }

  function conflictList() {
    const articles = [...document.querySelectorAll("#conflicts article")];
    if (articles.length === 0) return [element("h2", {}, "No conflicts"), element("p", {}, "Select a claim or a port.")];
    const list = element("ol", {className: "list"}, ...articles.map(listItem));
    return [element("h2", {}, `Conflicts (${articles.length})`), list];
  }

  function conflict(index) {
    const zoom = button("Zoom to it", () => go.toConflict(index));
    return [element("p", {className: "actions"}, back(), zoom), copyOf(`conflict-${index + 1}`)];
  }

  function claimFacts(claim) {
    const row = document.getElementById(`claim-${claim.number}`);
    const names = [...row.closest("table").querySelectorAll("thead th")].map((cell) => cell.textContent);
    const list = element("dl", {}, element("dt", {}, "Port"),
      element("dd", {}, button(claim.port.name, () => go.toPort(claim.port), "link")));
    [...row.cells].slice(0, 4).forEach((cell, i) => {
      if (cell.textContent === "") return;
      list.append(element("dt", {}, names[i]), element("dd", {}, cell.textContent));
    });
    return list;
  }

  function claim(one) {
    const zoom = button("Zoom to claim", () => go.toClaim(one, true));
    const vlan = button("On all ports", () => go.toVlans(one.first, one.last));
    return [element("p", {className: "actions"}, back(), zoom, vlan), element("h2", {}, "Claim"), claimFacts(one),
      ...one.conflicts.map((index) => copyOf(`conflict-${index + 1}`))];
  }

  function port(one) {
    const copy = copyOf(`port-${one.index}`);
    copy.querySelector("table")?.remove();
    return [element("p", {className: "actions"}, back(), button("Zoom to port", () => go.toPort(one))), copy,
      ...one.conflicts.map((index) => copyOf(`conflict-${index + 1}`))];
  }

  function portList(ports, text) {
    const items = ports.slice(0, mostPorts).map((one) =>
      element("li", {}, button(one.name, () => go.toPort(one), "link"), text(one)));
    const left = ports.length - items.length;
    if (left > 0) items.push(element("li", {}, `and ${left} more`));
    return element("ul", {}, ...items);
  }

  function vlans([first, last]) {
    const takes = (one) => one.status !== 3 && one.first <= last && one.last >= first;
    const takenOn = model.ports.filter((one) => one.claims.some(takes));
    const freeOn = model.ports.filter((one) => !one.claims.some(takes));
    const claimants = (one) => ` ${one.claims.filter(takes).map((each) => `${each.group} ${each.vpn}`).join(", ")}`;
    const name = first === 0 && last === 0 ? "Untagged frames" : first === last ? `VLAN ${first}` : `VLANs ${first}-${last}`;
    return [element("p", {className: "actions"}, back(), button("Zoom to it", () => view.showVlans(Math.max(first, 1),
      Math.max(last, 1)))), element("h2", {}, name),
      element("h3", {}, `Free on ${freeOn.length} of ${model.ports.length} ports`), portList(freeOn, () => ""),
      element("h3", {}, `Taken on ${takenOn.length}`), portList(takenOn, claimants)];
  }

  function content({claim: one, port: where, conflict: index, vlans: span}) {
    if (one) return claim(one);
    if (where) return port(where);
    if (index !== undefined) return conflict(index);
    return span ? vlans(span) : conflictList();
  }

  function show() {
    panel.replaceChildren(...content(state.selected));
    panel.scrollTop = 0;
  }

  // Links of the page's own parts lead into the drawing.
  document.addEventListener("click", (event) => {
    const link = event.target.closest("a.jump, a.badge");
    if (!link || !link.closest("#conflicts, #ports, #detail")) return;
    event.preventDefault();
    const [, kind, number] = /^#(claim|conflict)-(\d+)$/.exec(link.hash);
    if (kind === "claim") go.toClaim(model.claims[number], true);
    else go.toConflict(Number(number) - 1);
    if (!link.closest("#detail")) view.frame.scrollIntoView({block: "nearest"});
    view.frame.focus({preventScroll: true});
  });
  state.listen((what) => { if (what === "selection") show(); });

  return {show};
})();
