#ifndef TESTS_PROPERTY_RECORDINGS_H
#define TESTS_PROPERTY_RECORDINGS_H

#include <rapidcheck.h>

#include <ostream>
#include <string>

#include "config_validate_comn/snapshot/access_snapshot.h"

/// One write into an access snapshot, as random tests draw it.
struct recording {
  enum kind_t { kAccess, kEncapCfg, kMop };

  kind_t kind = kAccess;
  std::string group;
  std::string vpn;
  std::string interface;
  bool is_encap = false;  ///< source of an access, or the flag
  st_acc_dot1q_range_t range;
  std::int32_t mop = 0;

  void apply(st_val_acc_dot1q_vpn_t &snapshot) const;
};

std::ostream &operator<<(std::ostream &out, const recording &one);

/// How many VPNs and interfaces the recordings of a sequence choose from: few interfaces make crowded ports.
struct crowd {
  int vpns = 1;
  int interfaces = 1;
};

std::string interface_name(int number);
rc::Gen<std::string> any_interface(const crowd &of);
rc::Gen<group_vpn_id_t> any_vpn(const crowd &of);

/// Ranges with the bounds where rules turn (0, 1, 4094, 4095 and beyond), and narrow ones in between; `malformed` also
/// draws a minimum above the maximum.
rc::Gen<st_acc_dot1q_range_t> any_range(bool malformed);

/// Mostly narrow ranges, so that a crowded port still has room.
rc::Gen<recording> any_recording(const crowd &of);

/// Long enough a sequence to crowd a port.
rc::Gen<std::vector<recording>> many_recordings(const crowd &of);

#endif
