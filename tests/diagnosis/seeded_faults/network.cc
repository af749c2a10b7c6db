#include "tests/diagnosis/seeded_faults/network.h"

#include <fmt/format.h>

namespace seeded {
namespace {

void append(Lines &lines, const Lines &more) { lines.insert(lines.end(), more.begin(), more.end()); }

std::string keyword(Family family) { return family == Family::vpls ? "vpls-group" : "vpws-group"; }

/// What the access interface takes before the commit changes it, so that one part of the change makes the difference.
Lines before_the_change(NamePool &names, const Vpn &vpn, const std::string &port, const Claim &claim) {
  switch (claim.kind) {
    case Claim::range:
      return attached(vpn, port, range_claim(names.vlans(), 0));
    case Claim::untagged:
      return attached(vpn, port, {});
    case Claim::whole_port:
    case Claim::vlan:
      break;
  }
  return attached(vpn, port, vlan_claim(names.vlans()));
}

}  // namespace

Arrival draw_arrival(NamePool &names) {
  return names.one_of(std::vector<Arrival>{Arrival::stands, Arrival::added, Arrival::changed});
}

void Draft::both(const std::string &line) {
  running.push_back(line);
  candidate.push_back(line);
}

void Draft::both(const Lines &lines) {
  append(running, lines);
  append(candidate, lines);
}

std::string Vpn::group_path() const {
  return "/mpls/l2vpn-config/l2vpn/" + keyword(family) + "{" + element::quoted_key(group) + "}";
}

std::string Vpn::path() const { return group_path() + "/vpn{" + element::quoted_key(name) + "}"; }

std::string Vpn::attachment(const std::string &port) const {
  return (family == Family::vpls ? bridge_domain() : path()) + "/access-interface{" + port + "}";
}

std::string Vpn::neighbor(const std::string &address) const {
  return path() + (family == Family::vpls ? "/vfi" : "") + "/neighbor{" + address + "}";
}

std::string Vpn::text() const { return keyword(family) + " " + group + " vpn " + name; }

Vpn draw_vpn(NamePool &names, Family family) {
  static const std::vector<std::string> groups{"campus", "metro", "branches", "leased", "wholesale"};
  return {family, names.one_of(groups), names.vpn()};
}

Vpn draw_vpn(NamePool &names) { return draw_vpn(names, names.coin() ? Family::vpls : Family::vpws); }

Claim vlan_claim(std::uint16_t vlan) { return {Claim::vlan, vlan, vlan}; }

// With 0 the block's last VLAN ends it.
Claim range_claim(std::uint16_t first, std::uint16_t last) {
  return {Claim::range, first, last != 0 ? last : static_cast<std::uint16_t>(first + kVlansOfABlock - 1)};
}

std::string range_line(const Vpn &vpn, const std::string &port, std::uint16_t first, std::uint16_t last) {
  return fmt::format("{}/encapsulation/dot1q-range{{{} {}}}", vpn.attachment(port), first, last);
}

Lines attached(const Vpn &vpn, const std::string &port, const Claim &claim) {
  const std::string attachment = vpn.attachment(port);
  switch (claim.kind) {
    case Claim::vlan:
      return {attachment,
              fmt::format("{}/dot1q = {}", vpn.family == Family::vpls ? vpn.bridge_domain() : attachment, claim.first)};
    case Claim::range:
      return {range_line(vpn, port, claim.first, claim.last)};
    case Claim::untagged:
      return {attachment + "/encapsulation/untagged"};
    case Claim::whole_port:
      break;
  }
  return {attachment};
}

void attach(Draft &draft, NamePool &names, const Vpn &vpn, const std::string &port, const Claim &claim,
            Arrival arrival) {
  const Lines after = attached(vpn, port, claim);
  append(draft.candidate, after);
  if (arrival == Arrival::stands) append(draft.running, after);
  if (arrival != Arrival::changed) return;
  const Lines before = before_the_change(names, vpn, port, claim);
  append(draft.running, before);
  if (claim.kind == Claim::range) append(draft.candidate, before);
}

std::string member_of(std::uint16_t vlan, const std::string &port) {
  return fmt::format("/config/vlan{{{}}}/interface{{{}}}", vlan, port);
}

void put(Draft &draft, const std::string &line, Arrival arrival) { put(draft, Lines{line}, arrival); }

void put(Draft &draft, const Lines &lines, Arrival arrival) {
  append(draft.candidate, lines);
  if (arrival != Arrival::added) append(draft.running, lines);
}

void add_unrelated(Draft &draft, NamePool &names, const Vpn &vpn, Arrival arrival) {
  for (std::size_t i = names.number(3); i > 0; --i) {
    put(draft, fmt::format("{}/pw-id = {}", vpn.neighbor(names.neighbor()), names.pw_id()), arrival);
  }
}

}  // namespace seeded
