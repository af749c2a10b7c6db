// Changes that are more than a thing coming or going: renamed, moved, exchanged, taken away with all that it holds.

#include "maintenance/generator/draft.h"

namespace maintenance {
namespace {

// All of a VPN under another name, or in another group.
void renamed(Draft &draft) {
  const l2vpn::VpnKey from = draft.new_vpn();
  l2vpn::VpnKey to = from;
  (draft.random.one_in(2) ? to.group : to.name) += "x";
  const std::string port = draft.port();
  const Claim claim = draft.claim();
  const auto pw_id = static_cast<std::uint32_t>(1 + draft.random.number(3));
  draft.attach(from, port, claim, Arrival::removed);
  draft.attach(to, port, claim, Arrival::added);
  draft.put_pseudowire(from, "10.0.0.1", false, pw_id, Arrival::removed);
  draft.put_pseudowire(to, "10.0.0.1", false, pw_id, Arrival::added);
}

void moved_port(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.new_vpn();
  const Claim claim = draft.claim();
  if (draft.random.one_in(2)) draft.attach(vpn, "eth1", claim, Arrival::stands);
  draft.attach(vpn, "eth2", claim, Arrival::removed);
  const Claim other = draft.claim();
  draft.attach(vpn, "eth3", draft.random.one_in(2) ? claim : other, Arrival::added);
}

void exchanged_vlans(Draft &draft) {
  const std::string port = draft.port();
  const l2vpn::VpnKey one = draft.new_vpn(l2vpn::Family::vpws);
  const l2vpn::VpnKey other = draft.new_vpn(l2vpn::Family::vpws);
  const auto put = [&port](element::Tree &tree, const l2vpn::VpnKey &vpn, std::uint32_t vlan) {
    l2vpn::put_attachment(tree, vpn, {port, vlan});
  };
  put(draft.running, one, 1);
  put(draft.running, other, 2);
  put(draft.candidate, one, 2);
  put(draft.candidate, other, draft.random.one_in(3) ? 3 : 1);
}

void removed(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.vpn();
  l2vpn::erase_vpn(draft.candidate, vpn);
}

}  // namespace

const std::vector<Pattern> change_patterns{renamed, moved_port, exchanged_vlans, removed};

}  // namespace maintenance
