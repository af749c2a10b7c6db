// The card: its feature model and its interfaces.

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>

#include "fm.h"
#include "limid.h"
#include "tests/support/platform.h"

using scripted::Interface;
using scripted::Platform;

namespace {

int read_scalar(const char *function, const fm_slot_t *slot, std::optional<std::uint32_t> scripted::Limits::*limit,
                std::uint32_t *value) {
  Platform &platform = Platform::active();
  if (platform.enter(function)) return -1;
  const std::optional<std::uint32_t> &content = platform.limits.*limit;
  if (slot->shelf != platform.slot.shelf || slot->slot != platform.slot.slot || !content) return -1;
  *value = *content;
  return 0;
}

template <typename Predicate>
const Interface *find_interface(Predicate predicate) {
  const auto &interfaces = Platform::active().interfaces();
  const auto found = std::find_if(interfaces.begin(), interfaces.end(), predicate);
  return found == interfaces.end() ? nullptr : &*found;
}

}  // namespace

int fm_init(void) { return Platform::active().enter("fm_init") ? -1 : 0; }

int fm_local_slot(fm_slot_t *slot) {
  if (Platform::active().enter("fm_local_slot")) return -1;
  *slot = Platform::active().slot;
  return 0;
}

int fm_scalar_card_hal_vpn_vpn_max_limit(const fm_slot_t *slot, uint32_t *value) {
  return read_scalar(__func__, slot, &scripted::Limits::vpn_max, value);
}

int fm_scalar_card_vpn_mgr_access_ports(const fm_slot_t *slot, uint32_t *value) {
  return read_scalar(__func__, slot, &scripted::Limits::access_ports, value);
}

int fm_scalar_card_selective_encapsulation_max_vlan_entries(const fm_slot_t *slot, uint32_t *value) {
  return read_scalar(__func__, slot, &scripted::Limits::encapsulation_entries, value);
}

int fm_scalar_card_selective_encapsulation_max_vlan_ranges(const fm_slot_t *slot, uint32_t *value) {
  return read_scalar(__func__, slot, &scripted::Limits::encapsulation_ranges, value);
}

int limid_from_intfname(const char *name, limid_t *limid) {
  if (Platform::active().enter("limid_from_intfname", name)) return -1;
  const Interface *found = find_interface([&](const Interface &it) { return it.name == name; });
  if (found == nullptr) return -1;
  *limid = found->limid;
  return 0;
}

int limid_to_intfname(limid_t limid, char *name, size_t len) {
  if (Platform::active().enter("limid_to_intfname", std::to_string(limid))) return -1;
  const Interface *found = find_interface([&](const Interface &it) { return it.limid == limid; });
  if (found == nullptr) return -1;
  std::snprintf(name, len, "%s", found->name.c_str());
  return 0;
}

int limid_from_ifindex(int32_t ifindex, limid_t *limid) {
  if (Platform::active().enter("limid_from_ifindex", std::to_string(ifindex))) return -1;
  const Interface *found = find_interface([&](const Interface &it) { return it.ifindex == ifindex; });
  if (found == nullptr) return -1;
  *limid = found->limid;
  return 0;
}

int limid_to_ifindex(limid_t limid, int32_t *ifindex) {
  if (Platform::active().enter("limid_to_ifindex", std::to_string(limid))) return -1;
  const Interface *found = find_interface([&](const Interface &it) { return it.limid == limid; });
  if (found == nullptr) return -1;
  *ifindex = found->ifindex;
  return 0;
}

bool valid_intfname(const char *name) {
  if (Platform::active().enter("valid_intfname", name)) return false;
  return Platform::active().is_valid_name(name);
}
