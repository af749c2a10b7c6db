#ifndef CONFIG_VALIDATE_COMN_SNAPSHOT_RECORD_KINDS_H
#define CONFIG_VALIDATE_COMN_SNAPSHOT_RECORD_KINDS_H

#include "config_validate_comn/snapshot/access_records.h"

/// The record has no encapsulation of its own, at least one range, and none with both ends non-zero.
bool is_port_based(const acc_intf_vpn_info_t &record);

/// The record has an encapsulation and holds (0, 0).
bool is_untagged(const acc_intf_vpn_info_t &record);

#endif
