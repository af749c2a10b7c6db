#ifndef DIAGNOSIS_PORT_USE_H
#define DIAGNOSIS_PORT_USE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diagnosis/entries.h"
#include "l2vpn/configuration.h"

namespace diagnosis {

/// VLANs of a port, both ends included; 0 stands for the frames without a tag.
using Vlans = l2vpn::VlanRange;

/// What an entry takes of a port.
struct PortUse {
  std::string port;
  std::vector<Vlans> vlans;
  /// How many of these a card counts where it limits VLANs by encapsulation: those of an attachment with an
  /// encapsulation, untagged frames and what an earlier one absorbs excepted.
  std::size_t counted_vlans = 0;
  std::size_t counted_ranges = 0;  ///< those of them that hold more than one VLAN
};

/// What the entry takes in the candidate configuration, or, of a removed one, in the running configuration. Nothing for
/// an entry that is no attachment, static member, interface of snooping or service port.
std::optional<PortUse> port_use(const Entries &entries, std::uint32_t entry);

/// The same in the running configuration alone.
std::optional<PortUse> former_port_use(const Entries &entries, std::uint32_t entry);

/// The VLANs that both hold.
std::vector<Vlans> shared_vlans(const std::vector<Vlans> &a, const std::vector<Vlans> &b);

/// A pseudowire: "address pw-id", of the candidate or, where it is removed, of the running configuration.
std::optional<std::string> pseudowire(const Entries &entries, std::uint32_t entry);
std::optional<std::string> former_pseudowire(const Entries &entries, std::uint32_t entry);

}  // namespace diagnosis

#endif
