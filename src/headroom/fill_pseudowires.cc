#include "element/datastore/lookup.h"
#include "headroom/fill.h"

namespace headroom {
namespace {

constexpr std::uint32_t pw_id = 1;  // any: each of the neighbours has it once

element::Node &neighbors_of(element::Tree &candidate, const Vpn &vpn) {
  element::Node &entry = put_vpn(candidate, vpn);
  return element::child_named(vpn.family == Family::vpls ? element::child_named(entry, "vfi") : entry, "neighbor");
}

// A VPWS VPN with another neighbour has the names of its family checked again, a VPLS VPN has not.
Vpn holder(const Site &site) {
  if (!site.vpls.empty()) return site.vpls.front();
  if (!site.vpws.empty()) return site.vpws.front();
  return site.spare_vpn(Family::vpls);
}

}  // namespace

Fill fill_of_pseudowires(const Site &site) {
  Fill fill(Limit::pseudowires, "pseudowire-limit");
  fill.used = site.derived_entries("/KZ-PWE3-MIB/pwTable/pwEntry");
  fill.ways.push_back({[&site](std::uint64_t more) {
    Load load = site.load();
    if (more == 0) return load;
    element::Node &neighbors = neighbors_of(load.candidate, holder(site));
    for (const element::Ipv4 address : site.spare.addresses(more)) {
      element::set_named(element::append_entry(neighbors, {address}), "pw-id", pw_id);
    }
    return load;
  }});
  return fill;
}

}  // namespace headroom
