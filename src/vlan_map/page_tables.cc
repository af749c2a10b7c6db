#include "vlan_map/page_tables.h"

#include <fmt/format.h>

#include <algorithm>

#include "report/escape/markup.h"
#include "vlan_map/free_vlans.h"
#include "vlan_map/labels.h"

namespace vlan_map {
namespace {

using report::to_markup;

constexpr std::string_view kTableHead =
    "<table><thead><tr><th scope=\"col\">Claimed by</th><th scope=\"col\">VLANs</th><th scope=\"col\">This commit</th>"
    "<th scope=\"col\">File and line</th><th scope=\"col\">Conflicts</th></tr></thead><tbody>\n";

bool is_quiet(const Claim &claim) { return claim.status == ChangeStatus::unchanged && claim.conflicts.empty(); }

std::string claim_row(const Map &map, std::size_t number, const Claim &claim) {
  return fmt::format(
      "<tr id=\"claim-{}\"{}><th scope=\"row\">{} {}</th><td>{}</td><td>{}</td><td>{}</td><td>{}</td></tr>\n", number,
      is_quiet(claim) ? " class=\"quiet\"" : "", to_markup(group_text(claim)), to_markup(vpn_text(claim)),
      text_of(claim.vlans), commit_text(claim), claim.place ? to_markup(report::to_text(*claim.place)) : "",
      to_markup(conflicts_text(map, claim.conflicts)));
}

std::string badges_of(const Map &map, const Port &port) {
  std::string markup;
  for (const std::size_t conflict : port.conflicts) {
    markup +=
        fmt::format(" <a class=\"badge\" href=\"#conflict-{}\">{}</a>", conflict + 1, conflict_sign(map, conflict));
  }
  return markup;
}

std::string port_section(const Map &map, const ClaimNumbers &numbers, std::size_t index) {
  const Port &port = map.ports[index];
  std::string markup = fmt::format(
      "<section class=\"port-section{}\" id=\"port-{}\" tabindex=\"-1\">\n<h3>{}{}</h3>\n<p>{}{}. Free VLANs: {}.</p>\n",
      is_busy(port) ? "" : " quiet", index, to_markup(port.name), badges_of(map, port), count_text(port),
      port.in_profile ? "" : ", not in the element's profile", free_text(port));
  if (port.claims.empty()) return markup + "</section>\n";
  markup += kTableHead;
  for (std::size_t claim = 0; claim < port.claims.size(); ++claim) {
    markup += claim_row(map, numbers.of({index, claim}), port.claims[claim]);
  }
  return markup + "</tbody></table>\n</section>\n";
}

}  // namespace

ClaimNumbers::ClaimNumbers(const Map &map) {
  std::size_t next = 0;
  for (const Port &port : map.ports) {
    firsts_.push_back(next);
    next += port.claims.size();
  }
}

bool is_busy(const Port &port) {
  return !port.conflicts.empty() || !std::all_of(port.claims.begin(), port.claims.end(), is_quiet);
}

std::string port_sections(const Map &map, const ClaimNumbers &numbers) {
  std::string markup;
  for (std::size_t port = 0; port < map.ports.size(); ++port) markup += port_section(map, numbers, port);
  return markup;
}

}  // namespace vlan_map
