#include <fmt/format.h>

#include "maintenance/generator/draft.h"

namespace maintenance {
namespace {

constexpr std::uint32_t kFirstVlan = 1000;

}  // namespace

void draw_background(Draft &draft) {
  const std::size_t count = 1 + draft.random.number(6);
  for (std::size_t i = 0; i < count; ++i) {
    const l2vpn::VpnKey vpn{draft.family(), "quiet", fmt::format("q{}", i)};
    const auto vlan = kFirstVlan + static_cast<std::uint32_t>(10 * i);
    Claim claim{vlan, false, {}};
    if (draft.random.one_in(3)) claim = {{}, false, {{vlan, vlan + 4}}};
    const Arrival arrival = draft.random.one_of({Arrival::stands, Arrival::stands, Arrival::added, Arrival::removed});
    draft.attach(vpn, fmt::format("p{:02}", 1 + i), claim, arrival);
    draft.put_pseudowire(vpn, "192.0.2.1", false, 900'000 + vlan, arrival);
    if (draft.random.one_in(3)) draft.put_member(500 + vlan, fmt::format("p{:02}", 1 + i), arrival);
  }
}

}  // namespace maintenance
