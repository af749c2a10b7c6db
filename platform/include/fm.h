#ifndef FM_H
#define FM_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct fm_slot {
  uint32_t shelf;
  uint32_t slot;
} fm_slot_t;

int fm_init(void);
int fm_local_slot(fm_slot_t *slot);

/* Each writes one scalar of the card in the slot; a non-zero result leaves the value as it was. */
int fm_scalar_card_hal_vpn_vpn_max_limit(const fm_slot_t *slot, uint32_t *value);
int fm_scalar_card_vpn_mgr_access_ports(const fm_slot_t *slot, uint32_t *value);
int fm_scalar_card_selective_encapsulation_max_vlan_entries(const fm_slot_t *slot, uint32_t *value);
int fm_scalar_card_selective_encapsulation_max_vlan_ranges(const fm_slot_t *slot, uint32_t *value);

#ifdef __cplusplus
}
#endif

#endif
