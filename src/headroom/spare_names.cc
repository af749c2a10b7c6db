#include "headroom/spare_names.h"

#include <arpa/inet.h>
#include <fmt/format.h>

#include <limits>

namespace headroom {
namespace {

// The first of the addresses that are reserved for future use, so that no router has one.
constexpr std::uint32_t first_address = 0xF0000001;

// The library tells service ports from others by how a name begins.
std::string_view prefix_of(PortKind kind) {
  return kind == PortKind::service_port ? "service-port-" : "spare-ethernet-";
}

}  // namespace

SpareNames::SpareNames(const element::Tree &running, const element::Tree &candidate, const element::Profile &profile) {
  take_keys(running.root());
  take_keys(candidate.root());
  for (const element::Interface &interface : profile.interfaces()) texts_.insert(interface.name);
}

std::string SpareNames::group() const {
  std::string name = "spare";
  for (int number = 1; texts_.contains(name); ++number) name = fmt::format("spare-{}", number);
  return name;
}

std::vector<std::string> SpareNames::ports(PortKind kind, std::uint64_t count) const {
  std::vector<std::string> names;
  for (std::uint64_t number = 1; names.size() < count; ++number) {
    std::string name = fmt::format("{}{}", prefix_of(kind), number);
    if (!texts_.contains(name)) names.push_back(std::move(name));
  }
  return names;
}

std::vector<element::Ipv4> SpareNames::addresses(std::uint64_t count) const {
  std::vector<element::Ipv4> addresses;
  for (std::uint32_t number = first_address; addresses.size() < count; ++number) {
    const std::uint32_t word = htonl(number);
    if (!addresses_.contains(word)) addresses.push_back({word});
  }
  return addresses;
}

void SpareNames::take_keys(const element::Node &node) {
  for (const element::Value &key : node.keys) {
    if (const auto *text = std::get_if<std::string>(&key)) texts_.insert(*text);
    if (const auto *address = std::get_if<element::Ipv4>(&key)) addresses_.insert(address->word);
  }
  for (const element::Node &below : node.children) take_keys(below);
}

element::Profile with_ports(const element::Profile &profile, const std::vector<std::string> &names) {
  std::vector<element::Interface> interfaces = profile.interfaces();
  std::uint32_t logical_id = std::numeric_limits<std::uint32_t>::max();
  std::int32_t ifindex = std::numeric_limits<std::int32_t>::max();
  for (const std::string &name : names) {
    while (profile.by_logical_id(logical_id) != nullptr) --logical_id;
    while (profile.by_ifindex(ifindex) != nullptr) --ifindex;
    interfaces.push_back({name, logical_id--, ifindex--});
  }
  return {profile.card, std::move(interfaces)};
}

}  // namespace headroom
