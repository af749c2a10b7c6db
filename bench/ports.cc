#include "bench/ports.h"

#include <fmt/format.h>

#include <utility>
#include <vector>

namespace bench {
namespace {

// The same on every element: a library may read the card's limits once and never again.
constexpr std::uint32_t kCardLimit = 1'000'000;

}  // namespace

std::string port_name(std::size_t port) { return fmt::format("gigabit-ethernet-1/1/{:06}", port + 1); }

element::Profile element_with(std::size_t ports, std::initializer_list<const char *> further_interfaces) {
  std::vector<element::Interface> interfaces;
  const auto add = [&interfaces](std::string name) {
    const auto number = static_cast<std::uint32_t>(interfaces.size() + 1);
    interfaces.push_back({std::move(name), number, static_cast<std::int32_t>(1000000 + number)});
  };
  for (std::size_t port = 0; port < ports; ++port) add(port_name(port));
  for (const char *name : further_interfaces) add(name);
  return element::Profile({kCardLimit, kCardLimit, kCardLimit, kCardLimit}, std::move(interfaces));
}

}  // namespace bench
