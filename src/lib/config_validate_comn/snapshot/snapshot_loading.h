#ifndef CONFIG_VALIDATE_COMN_SNAPSHOT_SNAPSHOT_LOADING_H
#define CONFIG_VALIDATE_COMN_SNAPSHOT_SNAPSHOT_LOADING_H

#include <cstdint>
#include <string>

#include "confd_dp.h"
#include "config_validate_comn/snapshot/access_snapshot.h"

/// Records every attachment of one family. `group_prefix` is kVplsGroupPrefix or kVpwsGroupPrefix, `list_path` the
/// family's internal attachment list; without entries, or without a list, the snapshot stays as it is. Always 0. Stops
/// the process on a key of the wrong type.
std::int32_t get_vpn_access(std::int32_t sock, confd_trans_ctx *tctx, const char *group_prefix, const char *list_path,
                            st_val_acc_dot1q_vpn_t &snapshot);

/// Records the encapsulation of one attachment; names in prefixed form. With dot1q-ranges also the basic VLAN (0:
/// none), before them. Returns 0, or -1 when there is no encapsulation or its ranges cannot be read: the basic VLAN is
/// then the caller's to record. Stops the process on a range value of the wrong type.
std::int32_t get_vpn_access_encap(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                                  const std::string &vpn, std::uint32_t vpn_id, const std::string &interface,
                                  std::uint32_t basic_vlan, st_val_acc_dot1q_vpn_t &snapshot);

/// The operator's path of the node under validation, for a tag of model_tag dot1q, bridge_domain or access_interface;
/// empty for any other. Names in prefixed form. The bridge-domain path is the VPLS one whatever the group: a VPWS VPN
/// has no bridge domain, and the path then simply never changes.
std::string build_vpn_access_config_path(std::int32_t tag, const std::string &group, const std::string &vpn,
                                         const std::string &interface);

/// Asks the transaction itself: the operation (enum confd_iter_op) of the first change at or below the path, 0 when
/// there is none. Names in the path may hold percent signs.
std::int32_t get_vpn_mop(std::int32_t sock, confd_trans_ctx *tctx, const std::string &path);

#endif
