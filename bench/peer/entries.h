#ifndef BENCH_PEER_ENTRIES_H
#define BENCH_PEER_ENTRIES_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "element/datastore/tree.h"

namespace bench {

/// What one VPN has on one interface.
struct AttachmentEntry {
  std::string vpn;
  std::string interface;
  std::uint32_t vlan_min;
  std::uint32_t vlan_max;
};

struct PseudowireEntry {
  std::string vpn;
  std::uint32_t role;
  std::uint32_t neighbor;
  std::uint32_t pw_id;
};

/// The attachments of a derived tree, each of which must have one VLAN and no encapsulation.
std::vector<AttachmentEntry> attachments(const element::Tree &derived);

/// The pseudowires of a derived tree.
std::vector<PseudowireEntry> pseudowires(const element::Tree &derived);

/// As data of the module peer-rules, in the container of this name.
std::string xml_text(std::string_view container, const std::vector<AttachmentEntry> &entries);
std::string xml_text(std::string_view container, const std::vector<PseudowireEntry> &entries);

}  // namespace bench

#endif
