#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/daemon/vpls_application_tables.h"
#include "config_validate_comn/rules/service_port_names.h"
#include "config_validate_comn/snapshot/record_kinds.h"
#include "config_validate_comn/snapshot/snapshot_loading.h"
#include "config_validate_comn/snapshot/vpn_names.h"

namespace {

constexpr int kMaxListedInterfaces = 16;

bool is_entry_changed(std::int32_t sock, confd_trans_ctx *tctx, const std::string &list, const std::string &interface) {
  return get_vpn_mop(sock, tctx, list + "{" + interface + "}") != 0;
}

/// The VPN's entry of the application's tree. The keys are joined in as they are: a path of any length is whole.
std::string int_vpls_bd_path(const std::string &group, const std::string &vpn, std::uint32_t vpls_id) {
  return "/internal/int-vpls-group{" + group + "}/int-vpls-vpn{" + vpn + " " + std::to_string(vpls_id) +
         "}/int-vpls-bd";
}

int set_single_interface_warning(confd_trans_ctx *tctx, const std::string &group, const std::string &vpn,
                                 const std::string &interface) {
  confd_trans_seterr(
      tctx,
      "All VPLS assigned to interface %s will run as TLS since vpls-group %s vpn-name %s has port based TLS behavior",
      interface.c_str(), group.c_str(), vpn.c_str());
  return CONFD_VALIDATION_WARN;
}

// `is_listed` is asked for each of the first 16 entries of the VPN's access list, in list order, whether the text names
// it; when none is named there is no warning. The blank after each name also stands before "will".
template <typename Predicate>
int set_interface_list_warning(std::int32_t sock, confd_trans_ctx *tctx, const std::string &list,
                               const std::string &group, const std::string &vpn, Predicate is_listed) {
  std::string text = "All VPLS assigned to interface ";
  const std::size_t no_interface = text.size();
  {
    scoped_cursor mc;
    maapi_init_cursor(sock, tctx->thandle, &mc, "%s", list.c_str());
    maapi_get_next(&mc);
    for (int entry = 1; mc.n != 0 && entry <= kMaxListedInterfaces; ++entry) {
      const std::string name = GET_BUF(&mc.keys[0]);
      if (is_listed(name)) text += name + " ";
      maapi_get_next(&mc);
    }
  }
  if (text.size() == no_interface) return CONFD_OK;

  text += "will run as TLS since vpls-group " + group + " vpn-name " + vpn + " has port based TLS behavior";
  confd_trans_seterr(tctx, "%s", text.c_str());
  return CONFD_VALIDATION_WARN;
}

// The VPN's transparent-LAN-service or VLAN changed, so every interface of the VPN is concerned.
// It is the interface that led here that must not be a service port; the listed entries may be.
int set_vpn_tls_bd_warning_msg(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                               const std::string &vpn, const std::string &interface, std::uint32_t vpls_id) {
  const std::string list = int_vpls_bd_path(group, vpn, vpls_id) + "/int-vpls-ac";
  const bool is_concerned = !begins_with_service_port_dash(interface);
  if (maapi_num_instances(sock, tctx->thandle, "%s", list.c_str()) == 1) {
    return is_concerned ? set_single_interface_warning(tctx, group, vpn, interface) : CONFD_OK;
  }
  return set_interface_list_warning(sock, tctx, list, group, vpn,
                                    [is_concerned](const std::string & /*entry*/) { return is_concerned; });
}

// Only access interfaces changed, so those that did are concerned; again unless a service port led here.
int set_vpn_tls_acc_warning_msg(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                                const std::string &vpn, const std::string &interface, std::uint32_t vpls_id) {
  const std::string list = int_vpls_bd_path(group, vpn, vpls_id) + "/int-vpls-ac";
  const auto is_concerned = [&](const std::string &entry) {
    return !begins_with_service_port_dash(interface) && is_entry_changed(sock, tctx, list, entry);
  };
  if (maapi_num_instances(sock, tctx->thandle, "%s", list.c_str()) == 1) {
    return is_concerned(interface) ? set_single_interface_warning(tctx, group, vpn, interface) : CONFD_OK;
  }
  return set_interface_list_warning(sock, tctx, list, group, vpn, is_concerned);
}

int set_vpn_tls_warning_msg(std::int32_t sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t & /*snapshot*/,
                            const std::string &group_name, const std::string &vpn_name, const std::string &interface) {
  const std::string group = bare_group_name(group_name);
  const std::string vpn = bare_vpn_name(vpn_name);
  const std::int32_t tls_change = get_vpn_mop(
      sock, tctx,
      "/mpls/l2vpn-config/l2vpn/vpls-group{" + group + "}/vpn{" + vpn + "}/bridge-domain/transparent-lan-service");
  const std::uint32_t vpls_id = get_int_vpls_id(sock, tctx, group, vpn);
  const std::int32_t vlan_change = get_vpn_mop(sock, tctx, int_vpls_bd_path(group, vpn, vpls_id) + "/int-vpls-bd-vlan");

  if (tls_change != 0 || vlan_change != 0) {
    return set_vpn_tls_bd_warning_msg(sock, tctx, group, vpn, interface, vpls_id);
  }
  return set_vpn_tls_acc_warning_msg(sock, tctx, group, vpn, interface, vpls_id);
}

/// What the VPNs of one interface have shown so far.
struct port_sharing_t {
  bool is_changed = false;
  bool has_port_based_vpws = false;
  const group_vpn_id_t *vlan_based_vpls = nullptr;  ///< the last in key order
};

void note_vpn(port_sharing_t &sharing, const group_vpn_id_t &id, bool is_port_based, bool is_modified) {
  if (id.vpn_type == VPN_TYPE_VPWS && is_port_based) {
    sharing.is_changed |= is_modified;
    sharing.has_port_based_vpws = true;
  }
  if (id.vpn_type == VPN_TYPE_VPLS && !is_port_based) {
    sharing.is_changed |= is_modified;
    sharing.vlan_based_vpls = &id;
  }
}

// The VPN that the text names is the VLAN-based VPLS that will run as TLS, not the port-based VPWS that makes it so.
std::int32_t set_sharing_warning(confd_trans_ctx *tctx, const std::string &interface, const group_vpn_id_t &vpls) {
  confd_trans_seterr(tctx, "All VPLS assigned to interface %s will run as TLS since %s %s has port based TLS behavior",
                     interface.c_str(), vpls.group_name.c_str(), vpls.vpn_name.c_str());
  return CONFD_VALIDATION_WARN;
}

}  // namespace

// - A changed port-based VPLS with transparent-LAN-service ends the walk with what its message builder answers, be that
//   no warning: the interfaces after it are not looked at.
// - A port-based VPWS next to a VLAN-based VPLS on one interface draws the warning when one of the two changed.
// - Neither ever rejects.
std::int32_t config_validate_vpn_access_tls(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot) {
  for (const auto &[interface, vpns] : snapshot.intf_map) {
    port_sharing_t sharing;
    for (const auto &[id, record] : vpns) {
      const bool takes_port = is_port_based(record);
      const bool is_modified = get_vpn_mop(id.group_name, id.vpn_name, interface, snapshot) != 0;
      note_vpn(sharing, id, takes_port, is_modified);
      if (is_modified && takes_port && id.vpn_type == VPN_TYPE_VPLS &&
          get_vpls_tls(id.group_name, id.vpn_name, snapshot)) {
        return set_vpn_tls_warning_msg(sock, tctx, snapshot, id.group_name, id.vpn_name, interface);
      }
    }
    if (sharing.is_changed && sharing.has_port_based_vpws && sharing.vlan_based_vpls != nullptr) {
      return set_sharing_warning(tctx, interface, *sharing.vlan_based_vpls);
    }
  }
  return CONFD_OK;
}
