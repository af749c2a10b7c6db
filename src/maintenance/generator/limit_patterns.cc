// As much as a card's limits allow, and a little more or less.

#include <fmt/format.h>

#include "maintenance/generator/draft.h"

namespace maintenance {
namespace {

constexpr std::size_t kPseudowires = 1024;     // that the library allows
constexpr std::size_t kRangesOfInterface = 8;  // of several VLANs, that the library allows

void vpns(Draft &draft) {
  for (std::size_t left = 2 + draft.random.number(4); left > 0; --left) {
    const l2vpn::VpnKey vpn = draft.new_vpn();
    draft.each_side(draft.arrival(), [&vpn](element::Tree &tree, bool /*is_before*/) { l2vpn::ensure_vpn(tree, vpn); });
  }
}

void attachments(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.new_vpn(l2vpn::Family::vpls);
  const std::uint32_t vlan = draft.vlan();
  const std::size_t count = 2 + draft.random.number(6);
  for (std::size_t i = 1; i <= count; ++i) {
    draft.attach(vpn, fmt::format("p{:02}", i), {vlan, false, {}}, draft.arrival());
  }
}

// Ranges of one VLAN or several, on several ports: about as many as a small card's limits.
void ranges(Draft &draft) {
  const bool is_wide = !draft.random.one_in(3);
  const bool has_vlan = draft.random.one_in(3);
  for (std::size_t i = 1; i <= 4; ++i) {
    const l2vpn::VpnKey vpn = draft.new_vpn();
    Claim claim;
    if (has_vlan) claim.dot1q = draft.random.one_in(2) ? 1 : 90;
    const std::size_t count = draft.random.number(6);
    for (std::uint32_t first = 1; first <= 4 * count; first += 4) {
      claim.ranges.push_back({first, is_wide ? first + 2 : first});
    }
    draft.attach(vpn, fmt::format("p{:02}", i), claim, draft.arrival());
  }
}

// Of one port, over several VPNs.
void ranges_of_port(Draft &draft) {
  const std::string port = draft.known_port();
  const std::size_t count = kRangesOfInterface - 1 + draft.random.number(4);
  const std::size_t parts = 1 + draft.random.number(3);
  std::uint32_t first = 1;
  for (std::size_t part = 0; part < parts; ++part) {
    const l2vpn::VpnKey vpn = draft.new_vpn();
    Claim claim;
    for (std::size_t i = part; i < count; i += parts, first += 4) {
      claim.ranges.push_back({first, draft.random.one_in(12) ? first : first + 1});
    }
    draft.attach(vpn, port, claim, draft.arrival());
  }
}

// So many that a commit of them takes time: drawn seldom.
void pseudowires(Draft &draft) {
  if (!draft.random.one_in(8)) return;
  const l2vpn::VpnKey vpn = draft.new_vpn(l2vpn::Family::vpls);
  const std::size_t count = kPseudowires - 3 + draft.random.number(6);
  const std::size_t standing = count - 1 - draft.random.number(4);
  for (std::size_t i = 0; i < count; ++i) {
    draft.put_pseudowire(vpn, fmt::format("172.16.{}.{}", i / 250, 1 + i % 250), false,
                         static_cast<std::uint32_t>(100'000 + i), i < standing ? Arrival::stands : Arrival::added);
  }
}

}  // namespace

const std::vector<Pattern> limit_patterns{vpns, attachments, ranges, ranges_of_port, pseudowires};

}  // namespace maintenance
