#include <fmt/format.h>

#include "headroom/fill.h"

namespace headroom {

// A VPLS VPN that is only a name asks for no other validation point.
Fill fill_of_vpns(const Site &site) {
  Fill fill(Limit::vpns, "vpn-limit");
  fill.used = site.derived_entries("/KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry") +
              site.derived_entries("/KZ-VPWS-MIB/vpwsConfigTable/vpwsConfigEntry");
  fill.ways.push_back({[&site](std::uint64_t more) {
    Load load = site.load();
    for (std::uint64_t number = 1; number <= more; ++number) {
      put_vpn(load.candidate, {Family::vpls, site.spare.group(), fmt::format("{:08}", number), nullptr});
    }
    return load;
  }});
  return fill;
}

}  // namespace headroom
