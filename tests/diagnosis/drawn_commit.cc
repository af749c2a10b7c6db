#include "tests/diagnosis/drawn_commit.h"

#include <array>
#include <functional>
#include <random>
#include <vector>

namespace drawn {
namespace {

/// How a thing comes into a commit.
enum class Arrival { stands, added, removed, changed };

class Drawing {
 public:
  explicit Drawing(std::seed_seq seed) : random_(seed) {}

  void draw();
  Commit commit;

 private:
  std::size_t number(std::size_t end) { return random_() % end; }
  bool one_in(std::size_t n) { return number(n) == 0; }

  template <typename T>
  T one_of(const std::vector<T> &choices) {
    return choices[number(choices.size())];
  }

  Arrival arrival() {
    return one_of<Arrival>({Arrival::stands, Arrival::stands, Arrival::added, Arrival::added, Arrival::added,
                            Arrival::removed, Arrival::changed});
  }
  std::string port();
  std::string known_port();
  std::uint16_t vlan() { return static_cast<std::uint16_t>(1 + number(9)); }
  Encapsulation encapsulation();
  VpnName vpn_name();
  VpnName new_vpn();
  BridgeDomain bridge_domain();

  void put_attachment(const VpnName &name, const std::string &port, const Encapsulation &what, Arrival arrival);
  void put_vlan(const VpnName &name, const std::string &port, std::uint16_t vlan, Arrival arrival);
  void put_pw_id(const VpnName &name, const Neighbor &neighbor, std::uint32_t pw_id, Arrival arrival);
  void each_side(Arrival arrival, const std::function<void(Network &, bool is_other)> &put);

  // Patterns.
  void clique();
  void hub();
  void chain();
  void pseudowires();
  void renamed();
  void moved_port();
  void many_attachments();
  void many_vpns();
  void members();
  void transparent_service();
  void untagged_twice();
  void many_ranges();
  void uplink();
  void snooping();
  void service_port();
  void leafs();
  void swapped_vlans();
  void noise();

  std::mt19937 random_;
  std::uint32_t new_names_ = 0;
};

// The library takes paths with the names of access interfaces for formats: one percent sign would end the process.
std::string Drawing::port() {
  return one_of<std::string>({"eth1", "eth1", "eth1", "eth2", "eth2", "eth3", "eth%%", "service-port-1",
                              "service-port-2", "service-port-x", "eth9"});
}

std::string Drawing::known_port() {
  for (;;) {
    if (std::string drawn = port(); drawn != "eth9") return drawn;
  }
}

Encapsulation Drawing::encapsulation() {
  Encapsulation what;
  switch (number(6)) {
    case 0:
      break;
    case 1:
      what.is_untagged = true;
      break;
    case 2:
    case 3:
      what.dot1q = vlan();
      break;
    default:
      for (std::size_t i = 1 + number(2); i > 0; --i) {
        const std::uint16_t first = vlan();
        what.ranges.emplace(first, static_cast<std::uint16_t>(first + number(4)));
      }
      if (one_in(4)) what.dot1q = vlan();
  }
  return what;
}

VpnName Drawing::vpn_name() {
  VpnName name;
  name.family = one_in(2) ? Family::vpls : Family::vpws;
  name.group = one_of<std::string>({"g", "g", "g", "h%%", one_in(4) ? "a b" : "g"});
  name.name = one_of<std::string>({"a", "b", "c", "50%%", one_in(4) ? "a/b" : "d"});
  return name;
}

VpnName Drawing::new_vpn() {
  VpnName name = vpn_name();
  name.name = "n" + std::to_string(++new_names_);
  if (one_in(2)) name.group = "g";
  return name;
}

BridgeDomain Drawing::bridge_domain() {
  BridgeDomain drawn;
  if (one_in(2)) drawn.dot1q = vlan();
  drawn.mtu = one_of<std::uint32_t>({0, 0, 1500, 2000, 9000});
  drawn.is_tls = one_in(3);
  return drawn;
}

void Drawing::each_side(Arrival arrival, const std::function<void(Network &, bool is_other)> &put) {
  if (arrival != Arrival::added) put(commit.running, arrival == Arrival::changed);
  if (arrival != Arrival::removed) put(commit.candidate, false);
}

void Drawing::put_attachment(const VpnName &name, const std::string &port, const Encapsulation &what, Arrival arrival) {
  const Encapsulation before = encapsulation();
  each_side(arrival,
            [&](Network &network, bool is_other) { network.vpns[name].attachments[port] = is_other ? before : what; });
}

void Drawing::put_vlan(const VpnName &name, const std::string &port, std::uint16_t vlan, Arrival arrival) {
  Encapsulation what;
  what.dot1q = vlan;
  const std::uint16_t before = this->vlan();
  each_side(arrival, [&](Network &network, bool is_other) {
    Vpn &vpn = network.vpns[name];
    vpn.attachments[port] = what;
    if (is_other) vpn.attachments[port].dot1q = before;
    if (name.family == Family::vpls) vpn.bridge_domain.dot1q = is_other ? before : vlan;
  });
}

void Drawing::put_pw_id(const VpnName &name, const Neighbor &neighbor, std::uint32_t pw_id, Arrival arrival) {
  const auto before = static_cast<std::uint32_t>(number(4));
  each_side(arrival,
            [&](Network &network, bool is_other) { network.vpns[name].pw_ids[neighbor] = is_other ? before : pw_id; });
}

void Drawing::clique() {
  const std::string on = port();
  const std::uint16_t taken = vlan();
  const bool by_range = one_in(3);
  const bool whole = one_in(6);
  for (std::size_t i = 2 + number(2); i > 0; --i) {
    if (by_range || whole) {
      Encapsulation what;
      if (by_range) what.ranges.emplace(taken, static_cast<std::uint16_t>(taken + number(3)));
      put_attachment(new_vpn(), on, what, arrival());
    } else {
      put_vlan(new_vpn(), on, taken, arrival());
    }
  }
}

void Drawing::hub() {
  const std::string on = port();
  Encapsulation range;
  range.ranges.emplace(1, 9);
  put_attachment(new_vpn(), on, range, arrival());
  for (std::size_t i = 1 + number(3); i > 0; --i) put_vlan(new_vpn(), on, vlan(), arrival());
}

void Drawing::chain() {
  const std::string on = port();
  for (const std::uint16_t first : std::array<std::uint16_t, 3>{1, 4, 7}) {
    Encapsulation range;
    range.ranges.emplace(first, static_cast<std::uint16_t>(first + 3));
    put_attachment(new_vpn(), on, range, arrival());
  }
}

void Drawing::pseudowires() {
  const Neighbor neighbor{one_of<std::string>({"10.0.0.1", "10.0.0.2"}), one_in(4)};
  const auto pw_id = static_cast<std::uint32_t>(number(4));
  for (std::size_t i = 1 + number(3); i > 0; --i) {
    VpnName name = vpn_name();
    if (one_in(4)) name.name = "100%s";
    put_pw_id(name, neighbor, pw_id, arrival());
  }
}

// All of a VPN under another name, or in another group.
void Drawing::renamed() {
  const VpnName from = new_vpn();
  put_attachment(from, port(), encapsulation(), Arrival::removed);
  put_pw_id(from, {"10.0.0.1", false}, static_cast<std::uint32_t>(1 + number(3)), Arrival::removed);
  VpnName to = from;
  (one_in(2) ? to.group : to.name) += "x";
  commit.candidate.vpns[to] = commit.running.vpns[from];
}

void Drawing::moved_port() {
  const VpnName name = new_vpn();
  const Encapsulation what = encapsulation();
  if (one_in(2)) put_attachment(name, "eth1", what, Arrival::stands);
  put_attachment(name, "eth2", what, Arrival::removed);
  put_attachment(name, "eth3", one_in(2) ? what : encapsulation(), Arrival::added);
}

void Drawing::many_attachments() {
  const VpnName name{Family::vpls, "g", "m"};
  const std::uint16_t inner = vlan();
  for (const char *on : {"eth1", "eth2", "eth3", "eth%%", "service-port-1"}) {
    if (one_in(5)) continue;
    Encapsulation what;
    if (one_in(2)) what.ranges.emplace(inner, static_cast<std::uint16_t>(inner + number(3)));
    put_attachment(name, on, what, arrival());
  }
}

void Drawing::many_vpns() {
  for (std::size_t i = 3 + number(3); i > 0; --i) {
    VpnName name = new_vpn();
    name.group = "g";
    each_side(arrival(), [&name](Network &network, bool /*is_other*/) { network.vpns[name]; });
  }
}

void Drawing::members() {
  const std::string at = known_port();
  const std::uint16_t on = vlan();
  for (std::size_t i = 1 + number(2); i > 0; --i) {
    const std::pair<std::uint16_t, std::string> drawn{on + (one_in(3) ? 1 : 0), one_in(4) ? known_port() : at};
    each_side(arrival(), [&drawn](Network &network, bool /*is_other*/) { network.members.insert(drawn); });
  }
  Encapsulation range;
  range.ranges.emplace(on, static_cast<std::uint16_t>(on + number(4)));
  if (one_in(2)) {
    put_attachment(new_vpn(), at, one_in(2) ? range : Encapsulation(), arrival());
  } else {
    put_vlan(new_vpn(), at, on, arrival());
  }
}

void Drawing::transparent_service() {
  const std::string on = port();
  const VpnName name{Family::vpls, "g", "t"};
  const BridgeDomain after{static_cast<std::uint16_t>(one_in(3) ? vlan() : 0), 1500, !one_in(3)};
  const BridgeDomain before{0, one_of<std::uint32_t>({1500, 9000}), one_in(2)};
  each_side(arrival(),
            [&](Network &network, bool is_other) { network.vpns[name].bridge_domain = is_other ? before : after; });
  put_attachment(name, on, {}, arrival());
  if (one_in(2)) put_attachment(name, port(), {}, arrival());
  if (one_in(2)) put_attachment({Family::vpws, "g", "w"}, on, {}, arrival());
}

void Drawing::untagged_twice() {
  const std::string on = port();
  for (std::size_t i = 2 + number(2); i > 0; --i) {
    Encapsulation what;
    what.is_untagged = true;
    if (one_in(4)) what.dot1q = vlan();
    put_attachment(new_vpn(), on, what, arrival());
  }
}

void Drawing::many_ranges() {
  const VpnName name = new_vpn();
  for (const char *on : {"eth1", "eth2", "eth3"}) {
    Encapsulation what;
    for (std::uint16_t first = 1; first < 12 && !one_in(3); first += 3) {
      what.ranges.emplace(first, static_cast<std::uint16_t>(first + number(2)));
    }
    put_attachment(one_in(2) ? name : vpn_name(), on, what, arrival());
  }
}

void Drawing::uplink() {
  const std::uint16_t on = vlan();
  const std::string at = known_port();
  each_side(arrival(), [&](Network &network, bool is_other) {
    network.uplinks["up"] = static_cast<std::uint16_t>(is_other ? on + 1 : on);
  });
  each_side(arrival(), [&](Network &network, bool /*is_other*/) { network.members.emplace(on, at); });
  put_attachment(vpn_name(), at, encapsulation(), arrival());
}

void Drawing::snooping() {
  const std::string at = known_port();
  each_side(arrival(), [&](Network &network, bool /*is_other*/) { network.snooping.emplace(1, at); });
  put_attachment({Family::vpls, "g", "s"}, at, encapsulation(), arrival());
}

void Drawing::service_port() {
  const VlanAction action = one_of<VlanAction>({VlanAction::none, VlanAction::any, VlanAction::vid});
  each_side(arrival(),
            [&](Network &network, bool is_other) { network.service_ports[1] = is_other ? VlanAction::any : action; });
  put_attachment(vpn_name(), "service-port-1", encapsulation(), arrival());
}

void Drawing::leafs() {
  const VpnName name{Family::vpls, "g", one_of<std::string>({"a", "b", "m", "s"})};
  const BridgeDomain after = bridge_domain();
  const BridgeDomain before = bridge_domain();
  each_side(arrival(),
            [&](Network &network, bool is_other) { network.vpns[name].bridge_domain = is_other ? before : after; });
}

void Drawing::swapped_vlans() {
  const std::string on = port();
  const VpnName one{Family::vpws, "g", "x"};
  const VpnName other{Family::vpws, "g", "y"};
  commit.running.vpns[one].attachments[on].dot1q = 1;
  commit.running.vpns[other].attachments[on].dot1q = 2;
  commit.candidate.vpns[one].attachments[on].dot1q = 2;
  commit.candidate.vpns[other].attachments[on].dot1q = one_in(3) ? 3 : 1;
  if (one_in(2)) put_vlan(new_vpn(), on, static_cast<std::uint16_t>(1 + number(2)), Arrival::added);
}

void Drawing::noise() { put_attachment(vpn_name(), port(), encapsulation(), arrival()); }

void Drawing::draw() {
  using Pattern = void (Drawing::*)();
  static const std::vector<Pattern> patterns{&Drawing::clique,
                                             &Drawing::clique,
                                             &Drawing::hub,
                                             &Drawing::chain,
                                             &Drawing::pseudowires,
                                             &Drawing::pseudowires,
                                             &Drawing::renamed,
                                             &Drawing::moved_port,
                                             &Drawing::many_attachments,
                                             &Drawing::many_vpns,
                                             &Drawing::members,
                                             &Drawing::members,
                                             &Drawing::transparent_service,
                                             &Drawing::untagged_twice,
                                             &Drawing::many_ranges,
                                             &Drawing::uplink,
                                             &Drawing::snooping,
                                             &Drawing::service_port,
                                             &Drawing::leafs,
                                             &Drawing::leafs,
                                             &Drawing::swapped_vlans,
                                             &Drawing::noise,
                                             &Drawing::noise};
  for (std::size_t i = 1 + number(4); i > 0; --i) (this->*one_of(patterns))();
}

}  // namespace

brute_force::Configurations Commit::configurations() const {
  return {tree_of(running.lines()), tree_of(candidate.lines())};
}

Commit draw_commit(std::uint32_t seed, std::size_t most_entries) {
  for (std::uint32_t attempt = 0;; ++attempt) {
    Drawing drawing(std::seed_seq{seed, attempt});
    drawing.draw();
    const std::size_t entries = count_entries(drawing.commit.configurations());
    if (entries <= most_entries && entries > 2) return drawing.commit;
  }
}

}  // namespace drawn
