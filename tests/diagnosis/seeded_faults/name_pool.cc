#include "tests/diagnosis/seeded_faults/name_pool.h"

#include <fmt/format.h>

namespace seeded {
namespace {

constexpr std::uint16_t kLastVlan = 4094;

std::vector<std::string> numbered(const char *pattern, int count) {
  std::vector<std::string> result;
  for (int i = 1; i <= count; ++i) result.push_back(fmt::format(fmt::runtime(pattern), i));
  return result;
}

std::vector<std::string> port_names() {
  std::vector<std::string> all = numbered("gigabit-ethernet-1/1/{}", 120);
  for (std::string &name : numbered("ten-gigabit-ethernet-1/2/{}", 60)) all.push_back(std::move(name));
  return all;
}

std::vector<std::string> service_port_names() { return numbered("service-port-{}", 30); }

std::vector<std::string> unnumbered_service_port_names() {
  return {"service-port-east", "service-port-west", "service-port", "customer-service-port"};
}

// ifindexes stand in another order than names do.
element::Profile make_profile() {
  std::vector<element::Interface> interfaces;
  for (const auto &some : {port_names(), service_port_names(), unnumbered_service_port_names()}) {
    for (const std::string &name : some) {
      const auto number = static_cast<std::uint32_t>(interfaces.size() + 1);
      interfaces.push_back({name, 5000 + number, static_cast<std::int32_t>(number * 97 % 1009)});
    }
  }
  return element::Profile({kVpnLimit, kAccessInterfaceLimit, kEncapsulationVlanLimit, kEncapsulationRangeLimit},
                          std::move(interfaces));
}

}  // namespace

const element::Profile &profile() {
  static const element::Profile the_profile = make_profile();
  return the_profile;
}

NamePool::NamePool(std::uint32_t seed)
    : random_(seed),
      ports_(port_names()),
      service_ports_(service_port_names()),
      unnumbered_service_ports_(unnumbered_service_port_names()) {
  for (std::uint32_t i = 1; i <= 999; ++i) numbers_.push_back(i);
  for (std::uint32_t i = 1; i <= 4000; ++i) pw_ids_.push_back(i);
  for (std::uint16_t vlan = 1; vlan + kVlansOfABlock <= kLastVlan;
       vlan = static_cast<std::uint16_t>(vlan + kVlansOfABlock)) {
    vlans_.push_back(vlan);
  }
  shuffle(ports_);
  shuffle(service_ports_);
  shuffle(unnumbered_service_ports_);
  shuffle(numbers_);
  shuffle(vlans_);
  shuffle(pw_ids_);
}

std::string NamePool::vpn() { return fmt::format("v{:03}", take(numbers_)); }

std::string NamePool::neighbor() {
  const std::uint32_t number = take(numbers_);
  return fmt::format("{}.0.{}.{}", 1 + number % 7, number / 250, 1 + number % 250);
}

}  // namespace seeded
