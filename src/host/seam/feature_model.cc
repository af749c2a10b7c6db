// The line card's feature model: one card, in one slot.

#include <optional>

#include "fm.h"
#include "host/seam/host_session.h"

using host::SeamFunction;

namespace {

constexpr int kRead = 0;
constexpr int kNotRead = -1;
constexpr fm_slot_t kLocalSlot{1, 1};

/// The active element, or null where there is none or the call is the one that must fail.
host::HostSession *card_host(SeamFunction function) {
  host::HostSession *session = host::HostSession::active();
  return session == nullptr || session->enter(function) ? nullptr : session;
}

int read_limit(SeamFunction function, const fm_slot_t &slot, std::uint32_t &value,
               std::optional<std::uint32_t> element::CardLimits::*limit) {
  const host::HostSession *session = card_host(function);
  if (session == nullptr) return kNotRead;
  const bool has_card = slot.shelf == kLocalSlot.shelf && slot.slot == kLocalSlot.slot;
  const std::optional<std::uint32_t> &known = session->profile().card.*limit;
  if (!has_card || !known) return kNotRead;
  value = *known;
  return kRead;
}

}  // namespace

int fm_init() { return card_host(SeamFunction::fm_init) == nullptr ? kNotRead : kRead; }

int fm_local_slot(fm_slot_t *slot) {
  if (card_host(SeamFunction::fm_local_slot) == nullptr) return kNotRead;
  *slot = kLocalSlot;
  return kRead;
}

int fm_scalar_card_hal_vpn_vpn_max_limit(const fm_slot_t *slot, uint32_t *value) {
  return read_limit(SeamFunction::fm_scalar_card_hal_vpn_vpn_max_limit, *slot, *value, &element::CardLimits::vpn_max);
}

int fm_scalar_card_vpn_mgr_access_ports(const fm_slot_t *slot, uint32_t *value) {
  return read_limit(SeamFunction::fm_scalar_card_vpn_mgr_access_ports, *slot, *value,
                    &element::CardLimits::access_ports);
}

int fm_scalar_card_selective_encapsulation_max_vlan_entries(const fm_slot_t *slot, uint32_t *value) {
  return read_limit(SeamFunction::fm_scalar_card_selective_encapsulation_max_vlan_entries, *slot, *value,
                    &element::CardLimits::selective_encapsulation_vlan_entries);
}

int fm_scalar_card_selective_encapsulation_max_vlan_ranges(const fm_slot_t *slot, uint32_t *value) {
  return read_limit(SeamFunction::fm_scalar_card_selective_encapsulation_max_vlan_ranges, *slot, *value,
                    &element::CardLimits::selective_encapsulation_vlan_ranges);
}
