#include "vlan_map/page_tables.h"

#include <fmt/format.h>

#include <algorithm>

#include "report/escape/markup.h"
#include "vlan_map/labels.h"

namespace vlan_map {
namespace {

using report::to_markup;

// A limit may be drawn by hundreds of claims; the table of claims has them all.
constexpr std::size_t kLinks = 6;

std::string link_to(const Map &map, const ClaimNumbers &numbers, const ClaimPlace &place) {
  const Port &port = map.ports[place.port];
  const Claim &claim = port.claims[place.claim];
  return fmt::format(R"(<li><a class="jump" href="#mark-{}">{}: {} {}, {}, {}</a></li>)", numbers.of(place),
                     to_markup(port.name), to_markup(group_text(claim)), to_markup(vpn_text(claim)),
                     text_of(claim.vlans), commit_text(claim));
}

std::string links_of(const Map &map, const ClaimNumbers &numbers, const Conflict &conflict) {
  std::string markup = "<ul>";
  if (conflict.claims.empty()) {
    for (const std::size_t port : conflict.ports) {
      markup +=
          fmt::format(R"(<li><a class="jump" href="#port-{}">{}</a></li>)", port, to_markup(map.ports[port].name));
    }
    if (conflict.ports.empty()) markup += "<li>no place on a port</li>";
  }
  const std::size_t shown = std::min(conflict.claims.size(), kLinks);
  for (std::size_t i = 0; i < shown; ++i) markup += link_to(map, numbers, conflict.claims[i]);
  if (shown < conflict.claims.size()) markup += fmt::format("<li>and {} more</li>", conflict.claims.size() - shown);
  if (!conflict.complete) markup += "<li>the search for the claims was ended early</li>";
  return markup + "</ul>";
}

std::string conflict_row(const Map &map, const ClaimNumbers &numbers, std::size_t index) {
  const Conflict &conflict = map.conflicts[index];
  return fmt::format(
      "<tr class=\"{0}\" id=\"conflict-{1}\"><th scope=\"row\"><span class=\"badge\">{2}</span> {0}</th>"
      "<td>{6}</td>"
      "<td>{3}</td><td>{4}</td><td>{5}</td></tr>\n",
      conflict.is_warning ? "warning" : "rejection", index + 1, conflict_sign(map, index), to_markup(conflict.message),
      links_of(map, numbers, conflict), conflict.from_device ? "on this commit" : "once the others are solved",
      conflict.rule);
}

std::string claim_row(const Map &map, std::size_t number, const Port &port, const Claim &claim) {
  return fmt::format(
      "<tr id=\"claim-{}\"><th scope=\"row\">{}</th><td>{}</td><td>{}</td><td>{}</td><td>{}</td><td>{}</td></tr>\n",
      number, to_markup(port.name), to_markup(group_text(claim)), to_markup(vpn_text(claim)), text_of(claim.vlans),
      commit_text(claim), to_markup(conflicts_text(map, claim.conflicts)));
}

}  // namespace

ClaimNumbers::ClaimNumbers(const Map &map) {
  std::size_t next = 0;
  for (const Port &port : map.ports) {
    firsts_.push_back(next);
    next += port.claims.size();
  }
}

std::string conflict_table(const Map &map, const ClaimNumbers &numbers) {
  std::string markup =
      "<table id=\"conflicts\"><thead><tr><th scope=\"col\">Conflict</th><th scope=\"col\">Rule</th>"
      "<th scope=\"col\">Message</th>"
      "<th scope=\"col\">Claims</th><th scope=\"col\">The element says it</th></tr></thead><tbody>\n";
  for (std::size_t i = 0; i < map.conflicts.size(); ++i) markup += conflict_row(map, numbers, i);
  return markup + "</tbody></table>\n";
}

std::string claim_table(const Map &map, const ClaimNumbers &numbers) {
  std::string markup =
      "<table id=\"claims\"><thead><tr><th scope=\"col\">Port</th><th scope=\"col\">Group</th>"
      "<th scope=\"col\">VPN</th><th scope=\"col\">VLANs</th><th scope=\"col\">This commit</th>"
      "<th scope=\"col\">Conflicts</th></tr></thead><tbody>\n";
  for (std::size_t p = 0; p < map.ports.size(); ++p) {
    const Port &port = map.ports[p];
    for (std::size_t c = 0; c < port.claims.size(); ++c) {
      markup += claim_row(map, numbers.of({p, c}), port, port.claims[c]);
    }
  }
  return markup + "</tbody></table>\n";
}

}  // namespace vlan_map
