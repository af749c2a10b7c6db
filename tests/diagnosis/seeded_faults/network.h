#ifndef TESTS_DIAGNOSIS_SEEDED_FAULTS_NETWORK_H
#define TESTS_DIAGNOSIS_SEEDED_FAULTS_NETWORK_H

#include <cstdint>
#include <string>

#include "tests/diagnosis/seeded_faults/name_pool.h"
#include "tests/element/print.h"

namespace seeded {

/// The configurations of a commit while they are written, as lines of tree_of.
struct Draft {
  Lines running;
  Lines candidate;

  void both(const std::string &line);
  void both(const Lines &lines);
};

/// How a thing comes into a commit.
enum class Arrival {
  stands,  ///< is in both configurations
  added,
  changed  ///< is in both, and the commit changes what it takes
};

Arrival draw_arrival(NamePool &names);

enum class Family { vpls, vpws };

struct Vpn {
  Family family = Family::vpls;
  std::string group;
  std::string name;

  std::string group_path() const;
  std::string path() const;
  std::string bridge_domain() const { return path() + "/bridge-domain"; }
  std::string attachment(const std::string &port) const;
  std::string neighbor(const std::string &address) const;

  /// As messages name it.
  std::string text() const;
};

/// A VPN of an unused name in one of a few groups, so that some share one.
Vpn draw_vpn(NamePool &names, Family family);
Vpn draw_vpn(NamePool &names);

/// What an access interface takes of its port.
struct Claim {
  enum Kind { whole_port, vlan, range, untagged };

  Kind kind = whole_port;
  std::uint16_t first = 0;  ///< the VLAN, or the range's first
  std::uint16_t last = 0;   ///< a range's
};

Claim vlan_claim(std::uint16_t vlan);
Claim range_claim(std::uint16_t first, std::uint16_t last);

/// A VPN's access interface that takes this. The VLAN of a VPLS VPN is its bridge domain's.
Lines attached(const Vpn &vpn, const std::string &port, const Claim &claim);
std::string range_line(const Vpn &vpn, const std::string &port, std::uint16_t first, std::uint16_t last);

/// A static member of a VLAN.
std::string member_of(std::uint16_t vlan, const std::string &port);

/// Puts a VPN with one access interface into the commit. One that changes takes something else on its port before.
void attach(Draft &draft, NamePool &names, const Vpn &vpn, const std::string &port, const Claim &claim,
            Arrival arrival);

void put(Draft &draft, const std::string &line, Arrival arrival);
void put(Draft &draft, const Lines &lines, Arrival arrival);

/// Gives the VPN something harmless beside what is seeded in it: pseudowires of its own.
void add_unrelated(Draft &draft, NamePool &names, const Vpn &vpn, Arrival arrival);

}  // namespace seeded

#endif
