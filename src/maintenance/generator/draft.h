#ifndef MAINTENANCE_GENERATOR_DRAFT_H
#define MAINTENANCE_GENERATOR_DRAFT_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "element/datastore/tree.h"
#include "l2vpn/configuration.h"
#include "l2vpn/edit.h"
#include "maintenance/generator/random.h"

namespace maintenance {

/// What a commit does with a thing.
enum class Arrival {
  stands,   ///< nothing: it is in both configurations
  added,    ///< it is in the candidate alone
  removed,  ///< it is in the running configuration alone
  changed   ///< it is in both, with other content in each
};

/// What a VPN takes of a port. For a VPLS VPN, the VLAN is its bridge domain's.
struct Claim {
  std::optional<std::uint32_t> dot1q{};
  bool untagged = false;
  std::vector<l2vpn::VlanRange> ranges{};
};

/// The leafs of a VPLS VPN's bridge domain.
struct BridgeDomain {
  std::optional<std::uint32_t> dot1q{};
  std::optional<std::uint32_t> mtu{};
  bool is_transparent = false;
};

/// A commit while it is drawn.
class Draft {
 public:
  Draft(const element::Schema &schema, std::uint64_t seed) : random(seed), running(schema), candidate(schema) {}

  // Draws.
  Arrival arrival();
  std::uint32_t vlan();        ///< of few, so that they meet
  std::string port();          ///< also one that the element does not have
  std::string known_port();    ///< one of the element's
  std::string service_port();  ///< a name that some rule takes for a service port's
  Claim claim();
  l2vpn::VlanRange range();
  l2vpn::Family family();
  l2vpn::VpnKey vpn();      ///< of few, so that patterns meet in one
  l2vpn::VpnKey new_vpn();  ///< of a name that is not used yet
  l2vpn::VpnKey new_vpn(l2vpn::Family family);
  BridgeDomain bridge_domain();

  /// Calls `put` with each configuration that a thing of this arrival is in, the running one first. `is_before` is true
  /// for the running configuration of a thing that changes, which gets the content before the change.
  void each_side(Arrival arrival, const std::function<void(element::Tree &, bool is_before)> &put);

  // Puts a thing into the configurations that it stands in, in place of what is there. A thing that changes is drawn
  // anew for the running configuration.
  void attach(const l2vpn::VpnKey &vpn, const std::string &port, const Claim &claim, Arrival arrival);
  void put_bridge_domain(const l2vpn::VpnKey &vpls_vpn, const BridgeDomain &domain, Arrival arrival);
  void put_pseudowire(const l2vpn::VpnKey &vpn, const std::string &address, bool is_backup, std::uint32_t pw_id,
                      Arrival arrival);
  void put_member(std::uint32_t vlan, const std::string &port, Arrival arrival);

  Random random;
  element::Tree running;
  element::Tree candidate;

 private:
  std::uint32_t new_names_ = 0;
};

using Pattern = void (*)(Draft &);

// The patterns of each subject; each is drawn into any commit.
extern const std::vector<Pattern> access_patterns;   ///< VPNs that meet on ports
extern const std::vector<Pattern> service_patterns;  ///< service ports, transparent services, bridge domains
extern const std::vector<Pattern> pseudowire_patterns;
extern const std::vector<Pattern> member_patterns;  ///< static members, uplinks, snooping
extern const std::vector<Pattern> limit_patterns;
extern const std::vector<Pattern> change_patterns;  ///< renamed, moved, swapped, removed
/// A network without a fault, of things that no other pattern draws.
void draw_background(Draft &draft);

}  // namespace maintenance

#endif
