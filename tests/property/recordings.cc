#include "tests/property/recordings.h"

#include <algorithm>
#include <array>

#include "tests/support/access_printers.h"

namespace {

constexpr std::uint32_t kBeyondVlans = 4200;
constexpr int kLongSequence = 250;

template <typename T>
rc::Gen<T> full_range(T min, T end) {
  return rc::gen::resize(rc::kNominalSize, rc::gen::inRange(min, end));
}

rc::Gen<std::uint32_t> any_bound() {
  return rc::gen::oneOf(rc::gen::element<std::uint32_t>(0, 1, 2, 4093, 4094, 4095, 4096, 4097),
                        full_range<std::uint32_t>(0, kBeyondVlans));
}

rc::Gen<st_acc_dot1q_range_t> narrow_range() {
  return rc::gen::apply(
      [](std::uint32_t vlan, std::uint32_t width) {
        return st_acc_dot1q_range_t{vlan, vlan + width};
      },
      any_bound(), rc::gen::weightedElement<std::uint32_t>({{6, 0}, {1, 1}, {1, 2}, {1, 9}}));
}

}  // namespace

void recording::apply(st_val_acc_dot1q_vpn_t &snapshot) const {
  switch (kind) {
    case kAccess:
      set_vpn_access(group, vpn, interface, is_encap ? VLAN_CFG_ENCAP : VLAN_CFG_BASIC, range, snapshot);
      return;
    case kEncapCfg:
      set_vpn_encap_cfg(group, vpn, interface, is_encap, snapshot);
      return;
    case kMop:
      set_vpn_mop(group, vpn, interface, mop, snapshot);
      return;
  }
}

std::ostream &operator<<(std::ostream &out, const recording &one) {
  out << one.interface << ' ' << one.group << ' ' << one.vpn;
  switch (one.kind) {
    case recording::kAccess:
      return out << (one.is_encap ? " encapsulation " : " basic ") << one.range;
    case recording::kEncapCfg:
      return out << " encap_cfg " << one.is_encap;
    case recording::kMop:
      return out << " mop " << one.mop;
  }
  return out;
}

std::string interface_name(int number) { return "gpon-1/1/" + std::to_string(number); }

rc::Gen<std::string> any_interface(const crowd &of) {
  return rc::gen::map(full_range(0, of.interfaces), interface_name);
}

rc::Gen<group_vpn_id_t> any_vpn(const crowd &of) {
  return rc::gen::map(full_range(0, of.vpns), [](int number) {
    const std::string family = number % 3 == 0 ? "vpws-group " : "vpls-group ";
    const std::array<const char *, 4> groups{"G", "G1", "50%", "%s"};
    return make_group_vpn_id(family + groups[static_cast<std::size_t>(number) % groups.size()],
                             "vpn " + std::to_string(number) + (number % 5 == 0 ? "%n" : ""));
  });
}

rc::Gen<st_acc_dot1q_range_t> any_range(bool malformed) {
  const auto wide = rc::gen::apply(
      [malformed](std::uint32_t a, std::uint32_t b) {
        return malformed ? st_acc_dot1q_range_t{a, b} : st_acc_dot1q_range_t{std::min(a, b), std::max(a, b)};
      },
      any_bound(), any_bound());
  return rc::gen::oneOf(wide, narrow_range());
}

rc::Gen<recording> any_recording(const crowd &of) {
  return rc::gen::apply(
      [](recording::kind_t kind, const group_vpn_id_t &vpn, const std::string &interface, bool is_encap,
         const st_acc_dot1q_range_t &range,
         std::int32_t mop) { return recording{kind, vpn.group_name, vpn.vpn_name, interface, is_encap, range, mop}; },
      rc::gen::weightedElement<recording::kind_t>(
          {{8, recording::kAccess}, {1, recording::kEncapCfg}, {2, recording::kMop}}),
      any_vpn(of), any_interface(of), rc::gen::arbitrary<bool>(),
      rc::gen::weightedOneOf<st_acc_dot1q_range_t>({{30, narrow_range()}, {1, any_range(true)}}),
      rc::gen::element<std::int32_t>(0, 0, 1, 3));
}

rc::Gen<std::vector<recording>> many_recordings(const crowd &of) {
  return rc::gen::resize(kLongSequence, rc::gen::container<std::vector<recording>>(any_recording(of)));
}
