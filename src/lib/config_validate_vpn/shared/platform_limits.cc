#include "config_validate_vpn/shared/platform_limits.h"

#include "fm.h"

platform_limits_t platform_limits;

namespace {

using fm_scalar_read_t = int (*)(const fm_slot_t *slot, std::uint32_t *value);

// No status is looked at: a failed read leaves the limit unread, and the rule that uses it then refuses every commit
// rather than let one through unchecked.
void read_limit_once(std::uint32_t &limit, fm_scalar_read_t read) {
  if (limit != kLimitNotRead) return;

  fm_slot_t slot{};
  fm_init();
  fm_local_slot(&slot);
  read(&slot, &limit);
}

}  // namespace

void set_vpn_max_limit() { read_limit_once(platform_limits.vpn_max, fm_scalar_card_hal_vpn_vpn_max_limit); }

void set_vpls_max_ac_itf_limit() {
  read_limit_once(platform_limits.vpls_max_ac_itf, fm_scalar_card_vpn_mgr_access_ports);
}
