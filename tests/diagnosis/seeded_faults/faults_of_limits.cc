#include <fmt/format.h>

#include <functional>
#include <set>

#include "tests/diagnosis/seeded_faults/seeded_fault.h"

namespace seeded {
namespace {

constexpr std::size_t kPseudowireLimit = 1024;
constexpr std::size_t kRangesOfAnInterface = 8;

using Counts = std::function<bool(const std::string &path)>;

bool ends_with_list(const std::string &path, std::string_view list) {
  const std::size_t keys = path.rfind('{');
  return path.back() == '}' && keys != std::string::npos && std::string_view(path).substr(0, keys).ends_with(list);
}

bool is_vpn(const std::string &path) { return ends_with_list(path, "/vpn"); }

bool is_pseudowire(const std::string &path) {
  return ends_with_list(path, "/neighbor") || ends_with_list(path, "/backup-neighbor");
}

bool is_range(const std::string &path) { return ends_with_list(path, "/dot1q-range"); }

bool is_range_of_several(const std::string &path) {
  if (!is_range(path)) return false;
  const std::string keys = path.substr(path.rfind('{') + 1);
  const std::size_t blank = keys.find(' ');
  return keys.substr(0, blank) != keys.substr(blank + 1, keys.size() - blank - 2);
}

// A range's VLANs are counted, and its interface's dot1q with them.
bool may_be_encapsulated_vlan(const std::string &path) { return is_range(path) || path.ends_with("/dot1q"); }

/// How much of what is counted a draft has.
struct Stock {
  std::size_t running = 0;
  std::size_t stays = 0;  ///< in both configurations
  std::size_t added = 0;
};

std::set<std::string> counted_in(const Lines &lines, const Counts &counts) {
  std::set<std::string> paths;
  for (const std::string &line : print(tree_of(lines))) {
    const std::string path = line.substr(0, line.find(" = "));
    if (counts(path)) paths.insert(path);
  }
  return paths;
}

Stock stock_of(const Draft &draft, const Counts &counts) {
  const std::set<std::string> running = counted_in(draft.running, counts);
  const std::set<std::string> candidate = counted_in(draft.candidate, counts);
  Stock stock{running.size(), 0, 0};
  for (const std::string &path : candidate) ++(running.count(path) != 0 ? stock.stays : stock.added);
  return stock;
}

/// What has to come so that the limit is exceeded, whichever of the other faults are taken back, and kept by the
/// running configuration. Enough is added for any two of what is added to stay together when as many are left out as
/// are too many.
struct Filling {
  std::size_t stands = 0;
  std::size_t added = 0;
};

Filling filling_for(const Stock &stock, std::size_t limit, std::size_t more) {
  const std::size_t removed = stock.running - stock.stays;
  Filling filling{0, 2 * stock.added + 3 + removed + more};
  const std::size_t sure = stock.stays + filling.added;
  if (sure < limit + 1) filling.stands = limit + 1 - sure;
  return filling;
}

SeededFault vpn_limit(Draft &draft, NamePool &names) {
  const Filling filling = filling_for(stock_of(draft, is_vpn), kVpnLimit, names.number(4));
  for (std::size_t i = 0; i < filling.stands + filling.added; ++i) {
    put(draft, draw_vpn(names).path(), i < filling.stands ? Arrival::stands : Arrival::added);
  }
  return {"vpn-limit", std::nullopt, {}};
}

SeededFault pseudowire_limit(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  const Filling filling = filling_for(stock_of(draft, is_pseudowire), kPseudowireLimit, names.number(4));
  for (std::size_t i = 0; i < filling.stands + filling.added; ++i) {
    const std::string address = fmt::format("172.16.{}.{}", i / 250, 1 + i % 250);
    put(draft, fmt::format("{}/pw-id = {}", vpn.neighbor(address), 100'000 + i),
        i < filling.stands ? Arrival::stands : Arrival::added);
  }
  return {"pseudowire-limit", std::nullopt, {}};
}

/// Ranges of this width, so many an interface.
void put_ranges(Draft &draft, NamePool &names, const Filling &filling, std::uint16_t width, std::size_t each) {
  Vpn vpn;
  std::string port;
  for (std::size_t i = 0; i < filling.stands + filling.added; ++i) {
    if (i % each == 0) {
      vpn = draw_vpn(names, Family::vpws);
      port = names.port();
    }
    const auto first = static_cast<std::uint16_t>(1 + i % each * width);
    put(draft, range_line(vpn, port, first, static_cast<std::uint16_t>(first + width - 1)),
        i < filling.stands ? Arrival::stands : Arrival::added);
  }
}

SeededFault encapsulated_vlan_limit(Draft &draft, NamePool &names) {
  Stock stock = stock_of(draft, is_range);
  const Stock most = stock_of(draft, may_be_encapsulated_vlan);
  stock.running = most.running;
  stock.added = most.added;
  const Filling filling = filling_for(stock, kEncapsulationVlanLimit, names.number(4));
  put_ranges(draft, names, filling, 1, 25);
  return {"encapsulation-vlan-limit", std::nullopt, {}};
}

SeededFault encapsulated_range_limit(Draft &draft, NamePool &names) {
  const Filling filling = filling_for(stock_of(draft, is_range_of_several), kEncapsulationRangeLimit, names.number(4));
  put_ranges(draft, names, filling, 3, kRangesOfAnInterface);
  return {"encapsulation-range-limit", std::nullopt, {}};
}

SeededFault access_interface_limit(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  const std::size_t in_force = names.number(kAccessInterfaceLimit + 1);
  const std::size_t configured = kAccessInterfaceLimit + 1 + names.number(3);
  put(draft, fmt::format("{}/dot1q = {}", vpn.bridge_domain(), names.vlans()),
      in_force != 0 ? Arrival::stands : Arrival::added);
  for (std::size_t i = 0; i < configured; ++i) {
    put(draft, vpn.attachment(names.port()), i < in_force ? Arrival::stands : Arrival::added);
  }
  return {"access-interface-limit",
          fmt::format("Maximum number of access-interfaces has been exceeded. Attempt to configure {} of {} allowed",
                      configured, kAccessInterfaceLimit),
          {}};
}

// The ranges of one interface in several VPNs.
SeededFault interface_range_limit(Draft &draft, NamePool &names) {
  const std::string port = names.port();
  const std::vector<Vpn> vpns{draw_vpn(names), draw_vpn(names), draw_vpn(names)};
  const std::size_t in_force = names.number(kRangesOfAnInterface + 1);
  const std::size_t configured = kRangesOfAnInterface + 1 + names.number(3);
  for (std::size_t i = 0; i < configured; ++i) {
    const std::uint16_t first = names.vlans();
    put(draft, range_line(names.one_of(vpns), port, first, static_cast<std::uint16_t>(first + 2)),
        i < in_force ? Arrival::stands : Arrival::added);
  }
  return {"encapsulation-interface-range-limit",
          fmt::format("Maximum number of VLAN ranges configured for access-interface {} on VPN Selective Encapsulation "
                      "has been exceeded. Attempt to configure 9 of 8 allowed",
                      port),
          {}};
}

}  // namespace

std::vector<FaultKind> limit_faults() {
  return {{"access-interface-limit", access_interface_limit},
          {"encapsulation-interface-range-limit", interface_range_limit},
          {"pseudowire-limit", pseudowire_limit},
          {"encapsulation-vlan-limit", encapsulated_vlan_limit},
          {"encapsulation-range-limit", encapsulated_range_limit},
          {"vpn-limit", vpn_limit}};
}

}  // namespace seeded
