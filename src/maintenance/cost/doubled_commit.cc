#include "maintenance/cost/doubled_commit.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "l2vpn/edit.h"

namespace cost {
namespace {

/// Appended to a group's name; an operator's name is not expected to end so.
constexpr const char *kTwinGroup = ".twin";
/// Added to the number at the end of a port's name.
constexpr std::uint64_t kTwinPort = 1'000'000;

/// The name of the other port. Only its number differs, for some rules look at the letters before it.
std::string twin_port(const std::string &name) {
  const auto is_digit = [](unsigned char c) { return std::isdigit(c) != 0; };
  const auto digits = std::find_if_not(name.rbegin(), name.rend(), is_digit).base();
  const std::string number(digits, name.end());
  std::uint64_t value = 0;
  std::from_chars(number.data(), number.data() + number.size(), value);
  if (number.empty() || value >= kTwinPort) return name + "." + std::to_string(kTwinPort);
  return std::string(name.begin(), digits) + std::to_string(value + kTwinPort);
}

/// A number in the other half of the range, so that no two pw-ids of a small commit become the same.
std::uint32_t twin_pw_id(std::uint32_t pw_id) {
  const std::uint32_t twin = pw_id ^ 0x8000'0000U;
  return twin == 0 ? std::numeric_limits<std::uint32_t>::max() : twin;
}

std::string twin_group(const l2vpn::VpnKey &vpn) { return vpn.group + kTwinGroup; }

void make_twin(l2vpn::Vpn &vpn) {
  vpn.key.group = twin_group(vpn.key);
  for (l2vpn::Attachment &attachment : vpn.attachments) attachment.interface = twin_port(attachment.interface);
  for (auto *neighbors : {&vpn.neighbors, &vpn.backup_neighbors}) {
    for (l2vpn::Neighbor &neighbor : *neighbors) {
      if (neighbor.pw_id) neighbor.pw_id = twin_pw_id(*neighbor.pw_id);
    }
  }
}

element::Tree doubled_tree(const element::Tree &tree) {
  l2vpn::Configuration twin = l2vpn::read_configuration(tree);
  element::Tree result = tree;
  for (l2vpn::Vpn &vpn : twin.vpns) {
    make_twin(vpn);
    l2vpn::put_vpn(result, vpn);
  }
  for (l2vpn::StaticMember &member : twin.static_members) {
    member.interface = twin_port(member.interface);
    l2vpn::put_static_member(result, member);
  }
  for (l2vpn::Uplink &uplink : twin.uplinks) {
    uplink.interface = twin_port(uplink.interface);
    l2vpn::put_uplink(result, uplink);
  }
  for (l2vpn::SnoopingInterface &snooping : twin.snooping) {
    snooping.interface = twin_port(snooping.interface);
    l2vpn::put_snooping_interface(result, snooping);
  }
  for (l2vpn::ServicePort &port : twin.service_ports) {
    port.number = static_cast<std::uint32_t>(std::min<std::uint64_t>(port.number + kTwinPort, 0xffff'ffffU));
    l2vpn::put_service_port(result, port);
  }
  return result;
}

/// That of access ports holds for a single VPN.
element::CardLimits doubled_limits(element::CardLimits limits) {
  for (std::optional<std::uint32_t> *of_card :
       {&limits.vpn_max, &limits.selective_encapsulation_vlan_entries, &limits.selective_encapsulation_vlan_ranges}) {
    std::optional<std::uint32_t> &limit = *of_card;
    if (limit) limit = static_cast<std::uint32_t>(std::min<std::uint64_t>(std::uint64_t{*limit} * 2, 0x7fff'ffffU));
  }
  return limits;
}

std::shared_ptr<const element::Profile> doubled_profile(const element::Profile &profile) {
  std::vector<element::Interface> interfaces = profile.interfaces();
  std::uint32_t highest_id = 0;
  std::int32_t highest_index = 0;
  for (const element::Interface &interface : interfaces) {
    highest_id = std::max(highest_id, interface.logical_id);
    highest_index = std::max(highest_index, interface.ifindex);
  }
  for (const element::Interface &interface : profile.interfaces()) {
    interfaces.push_back({twin_port(interface.name), ++highest_id, ++highest_index});
  }
  return std::make_shared<element::Profile>(doubled_limits(profile.card), std::move(interfaces));
}

}  // namespace

maintenance::Commit doubled(const maintenance::Commit &commit) {
  return {doubled_profile(*commit.profile), doubled_tree(commit.running), doubled_tree(commit.candidate)};
}

}  // namespace cost
