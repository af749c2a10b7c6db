#ifndef CONFIG_VALIDATE_COMN_SNAPSHOT_ACCESS_SNAPSHOT_H
#define CONFIG_VALIDATE_COMN_SNAPSHOT_ACCESS_SNAPSHOT_H

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "config_validate_comn/snapshot/access_index.h"
#include "config_validate_comn/snapshot/access_records.h"

/// The picture of the configuration under validation that the access rules share: which access interface is attached to
/// which VPN with which VLANs, what the transaction changes, which VPLS VPNs are transparent LAN services. Lives for
/// one validation call; entries are added or overwritten, never removed. All group and VPN names are in prefixed form.
///
/// The maps are the truth. They are written through the setters below, which keep `index` beside them; a map that was
/// filled without them still answers every query correctly (access_index.h says how), only slower.
struct st_val_acc_dot1q_vpn_t {
  /// (group, VPN) of the VPLS VPNs that were recorded as transparent LAN service.
  std::map<std::pair<std::string, std::string>, bool> tls_map;
  mop_map_t mop_map;
  /// Interface -> every VPN attached to it.
  intf_map_t intf_map;
  /// Finds entries of the maps, and rules out most questions about a port or VPN without a walk over them.
  access_index_t index{};
};

/// Records one range of an attachment, and its source as the attachment's latest: encap_cfg is overwritten even when
/// the range's minimum is already there and the range is dropped. Always 0.
std::int32_t set_vpn_access(const std::string &group, const std::string &vpn, const std::string &interface,
                            vlan_cfg_type_t source, st_acc_dot1q_range_t range, st_val_acc_dot1q_vpn_t &snapshot);

/// Overwrites an attachment's encap_cfg. Creates the attachment, without ranges, when it is missing.
void set_vpn_encap_cfg(const std::string &group, const std::string &vpn, const std::string &interface, bool encap_cfg,
                       st_val_acc_dot1q_vpn_t &snapshot);

/// The recorded change operation of an attachment, 0 when none was recorded.
std::int32_t get_vpn_mop(const std::string &group, const std::string &vpn, const std::string &interface,
                         const st_val_acc_dot1q_vpn_t &snapshot);

/// Records the change operation of an attachment; the first one recorded stays.
void set_vpn_mop(const std::string &group, const std::string &vpn, const std::string &interface, std::int32_t mop,
                 st_val_acc_dot1q_vpn_t &snapshot);

/// Whether the VPN was recorded as transparent LAN service.
bool get_vpls_tls(const std::string &group, const std::string &vpn, const st_val_acc_dot1q_vpn_t &snapshot);

/// Records the VPN as transparent LAN service. The setting is not kept: callers record only VPNs whose setting is on,
/// so that presence alone tells.
void set_vpls_tls(const std::string &group, const std::string &vpn, std::int32_t tls, st_val_acc_dot1q_vpn_t &snapshot);

#endif
