// Pseudowires with one pw-id towards one neighbour, in several VPNs, before and after.

#include "maintenance/generator/draft.h"

namespace maintenance {
namespace {

std::string draw_address(Draft &draft) {
  return draft.random.text_of({"10.0.0.1", "10.0.0.1", "10.0.0.2", "255.0.0.128"});
}

void same_pw_id(Draft &draft) {
  const std::string address = draw_address(draft);
  const auto pw_id = draft.random.one_of<std::uint32_t>({0, 1, 2, 3, 4294967295});
  for (std::size_t left = 1 + draft.random.number(3); left > 0; --left) {
    const l2vpn::VpnKey vpn = draft.random.one_in(2) ? draft.vpn() : draft.new_vpn();
    const bool is_backup = draft.random.one_in(4);
    draft.put_pseudowire(vpn, address, is_backup, pw_id, draft.arrival());
  }
}

// Two VPNs exchange their pw-ids, or one takes the other's.
void exchanged(Draft &draft) {
  const std::string address = draw_address(draft);
  const l2vpn::VpnKey one = draft.new_vpn();
  const l2vpn::VpnKey other = draft.new_vpn();
  const bool by_backup = draft.random.one_in(3);
  const bool is_whole = draft.random.one_in(2);
  const auto put = [&](element::Tree &tree, const l2vpn::VpnKey &vpn, std::uint32_t pw_id) {
    if (by_backup && vpn.family == l2vpn::Family::vpws) {
      l2vpn::put_backup_neighbor(tree, vpn, {address, pw_id});
    } else {
      l2vpn::put_neighbor(tree, vpn, {address, pw_id});
    }
  };
  put(draft.running, one, 11);
  put(draft.running, other, 12);
  put(draft.candidate, one, 12);
  if (is_whole) put(draft.candidate, other, 11);
}

// From neighbour to backup neighbour of one VPN.
void to_backup(Draft &draft) {
  const std::string address = draw_address(draft);
  const l2vpn::VpnKey vpn = draft.new_vpn(l2vpn::Family::vpws);
  draft.put_pseudowire(vpn, address, false, 21, draft.random.one_in(2) ? Arrival::removed : Arrival::stands);
  draft.put_pseudowire(vpn, draft.random.one_in(3) ? "10.0.0.9" : address, true, 21, Arrival::added);
}

void unrelated(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.new_vpn();
  const auto pw_id = static_cast<std::uint32_t>(1000 + draft.random.number(100));
  const std::string address = draw_address(draft);
  draft.put_pseudowire(vpn, address, draft.random.one_in(3), pw_id, Arrival::added);
}

}  // namespace

const std::vector<Pattern> pseudowire_patterns{same_pw_id, same_pw_id, exchanged, to_backup, unrelated};

}  // namespace maintenance
