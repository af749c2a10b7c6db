#include "tests/cli/sample_headroom.h"

#include <utility>

namespace {

using headroom::Limit;
using headroom::LimitState;
using headroom::LimitUsage;
using Number = std::optional<std::int64_t>;

const headroom::Answer vpn_limit_answer{
    "vpn-limit", "vpn_overflow_valp", "Maximum number of VPNs has been exceeded. Attempt to configure 5 of 4 allowed"};
const headroom::Answer too_many_vlans{
    "encapsulation-vlan-limit", "vpn_access_valp",
    "Maximum number of VLANs on VPN Selective Encapsulation has been exceeded. Attempt to configure 9 of 8 allowed"};
const headroom::Answer unknown{"", "vpn_access_valp", "a message\nof another library"};

LimitUsage usage(Limit limit, const std::string &vpn, const std::string &interface, LimitState state,
                 const std::vector<Number> &used_allowed_left, std::optional<headroom::Answer> stop) {
  return {limit,          vpn, interface, state, used_allowed_left[0], used_allowed_left[1], used_allowed_left[2],
          std::move(stop)};
}

report::ElementHeadroom roomy() {
  const Number none;
  headroom::Measurement measurement{host::Decision::accepted_with_warnings, {unknown}, {}, {}};
  measurement.usages = {
      usage(Limit::vpns, "", "", LimitState::no_limit, {5, none, 16384}, std::nullopt),
      usage(Limit::pseudowires, "", "", LimitState::stopped, {none, none, 3}, unknown),
      usage(Limit::access_interfaces, "vpls-group a vpn b", "", LimitState::measured, {1, 4, 3}, vpn_limit_answer),
      usage(Limit::access_interfaces, "vpls-group a vpn longer", "", LimitState::measured, {2, 4, 2}, vpn_limit_answer),
      usage(Limit::encapsulation_vlans, "", "", LimitState::measured, {3, 8, 5}, too_many_vlans),
      usage(Limit::encapsulation_ranges, "", "", LimitState::stopped, {0, 64, 5}, too_many_vlans),
      usage(Limit::interface_ranges, "", "ge-1/1", LimitState::no_room, {none, none, 0}, std::nullopt),
      usage(Limit::bridge_mtu, "vpls-group a vpn b", "", LimitState::measured, {1500, 2000, 500}, unknown)};
  return {"roomy.json", measurement, {}};
}

report::ElementHeadroom tight() {
  report::ElementHeadroom element = roomy();
  element.file = "tight\x1b.json";
  element.measurement.decision = host::Decision::rejected;
  element.measurement.answers = {vpn_limit_answer};
  element.unreadable = {{"a b", 2, {"vpn_overflow_valp"}, {"vpn-limit"}}};
  element.measurement.usages[0] = usage(Limit::vpns, "", "", LimitState::exceeded, {5, 4, -1}, vpn_limit_answer);
  element.measurement.usages[5] =
      usage(Limit::encapsulation_ranges, "", "", LimitState::stopped, {0, 64, std::nullopt}, unknown);
  return element;
}

}  // namespace

report::HeadroomReport sample_headroom() {
  return {"running.xml", "candidate.xml", "/lib/library.so", "0123abcd", {roomy(), tight()}};
}
