#ifndef DIAGNOSIS_PORT_USE_H
#define DIAGNOSIS_PORT_USE_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diagnosis/entries.h"

namespace diagnosis {

/// VLANs of a port, both ends included; 0 stands for the frames without a tag.
struct Vlans {
  std::uint32_t first = 0;
  std::uint32_t last = 0;
};

/// What an entry takes of a port.
struct PortUse {
  std::string port;
  std::vector<Vlans> vlans;
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
