#include "config_validate_comn/snapshot/snapshot_loading.h"

#include <cstring>
#include <vector>

#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/interface_encapsulation.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/snapshot/vpn_names.h"

namespace {

struct attachment_t {
  std::string group;  // with its prefix
  std::string vpn;    // with its prefix
  std::string interface;
};

struct encap_paths_t {
  std::string ranges;
  std::string untagged;
};

void record(const attachment_t &at, vlan_cfg_type_t source, st_acc_dot1q_range_t range,
            st_val_acc_dot1q_vpn_t &snapshot) {
  set_vpn_access(at.group, at.vpn, at.interface, source, range, snapshot);
}

// A failed read leaves 0: the VPN then counts as one without a basic VLAN.
std::uint32_t read_bridge_domain_vlan(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                                      const std::string &vpn, std::uint32_t vpn_id) {
  std::uint32_t vlan = 0;
  maapi_get_u_int32_elem(sock, tctx->thandle, &vlan, "%s{%s %s %u}/int-vpls-bd-vlan", "/internal/int-sub-vpls-vpn-bd",
                         group.c_str(), vpn.c_str(), vpn_id);
  return vlan;
}

// The walked list decides where the basic VLAN comes from. The encapsulation's tree goes by the group's name instead,
// and there the keyword counts anywhere: a VPLS group whose key holds "vpws-group " is looked for among the VPWS ones.
void load_attachment(std::int32_t sock, confd_trans_ctx *tctx, const char *group_prefix, const maapi_cursor &mc,
                     st_val_acc_dot1q_vpn_t &snapshot) {
  const std::string group = GET_BUF(&mc.keys[0]);
  const std::string vpn = GET_BUF(&mc.keys[1]);
  const std::uint32_t vpn_id = GET_UINT32(&mc.keys[2]);
  const attachment_t at{group_prefix + group, kVpnPrefix + vpn, GET_BUF(&mc.keys[3])};
  const bool is_vpws = std::strcmp(group_prefix, static_cast<const char *>(kVpwsGroupPrefix)) == 0;
  const std::uint32_t basic_vlan =
      is_vpws ? GET_UINT32(&mc.keys[4]) : read_bridge_domain_vlan(sock, tctx, group, vpn, vpn_id);

  if (get_vpn_access_encap(sock, tctx, at.group, at.vpn, vpn_id, at.interface, basic_vlan, snapshot) == 0) return;
  record(at, VLAN_CFG_BASIC, {basic_vlan, basic_vlan}, snapshot);
}

encap_paths_t build_encap_paths(const attachment_t &at, std::uint32_t vpn_id) {
  const std::string_view group = bare_group_view(at.group);
  const std::string_view vpn = bare_vpn_view(at.vpn);
  const decimal_t id(vpn_id);
  if (is_vpws_group(at.group)) {
    constexpr const char *kList = "/internal/int-vpws-intf-encap{";
    return {join_path({kList, group, " ", vpn, " ", id, " ", at.interface, "}/int-vpws-encap-dot1q-range"}),
            join_path({kList, group, " ", vpn, " ", id, " ", at.interface, "}/int-vpws-encap-untagged"})};
  }
  constexpr const char *kGroups = "/internal/int-vpls-group{";
  constexpr const char *kInterfaces = "}/int-vpls-bd/int-vpls-ac{";
  return {join_path({kGroups, group, "}/int-vpls-vpn{", vpn, " ", id, kInterfaces, at.interface,
                     "}/int-vpls-encap/int-vpls-encap-dot1q-range"}),
          join_path({kGroups, group, "}/int-vpls-vpn{", vpn, " ", id, kInterfaces, at.interface,
                     "}/int-vpls-encap/int-vpls-encap-untagged"})};
}

// The values are integers, which own nothing: only their buffer is released. A failed fetch counts as no encapsulation,
// also for an untagged attachment: the caller then records the basic VLAN, which turns encap_cfg off again.
std::int32_t load_ranges(std::int32_t sock, confd_trans_ctx *tctx, const attachment_t &at, const std::string &path,
                         int count, st_val_acc_dot1q_vpn_t &snapshot) {
  constexpr int kValuesPerRange = 2;
  std::vector<confd_value_t> values(static_cast<std::size_t>(count) * kValuesPerRange);
  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "%s", path.c_str());
  if (maapi_get_objects(&mc, values.data(), kValuesPerRange, &count) < 0) return CONFD_ERR;

  const confd_value_t *value = values.data();
  for (int i = 0; i < count; ++i, value += kValuesPerRange) {
    const std::uint32_t vlan_min = GET_UINT32(&value[0]);
    const std::uint32_t vlan_max = GET_UINT32(&value[1]);
    record(at, VLAN_CFG_ENCAP, {vlan_min, vlan_max}, snapshot);
  }
  return CONFD_OK;
}

// Only the first change counts, whatever follows it.
enum confd_iter_ret keep_first_operation(confd_hkeypath_t * /*kp*/, enum confd_iter_op op, confd_value_t * /*oldv*/,
                                         confd_value_t * /*newv*/, void *state) {
  *static_cast<std::int32_t *>(state) = op;
  return ITER_STOP;
}

}  // namespace

std::int32_t get_vpn_access(std::int32_t sock, confd_trans_ctx *tctx, const char *group_prefix, const char *list_path,
                            st_val_acc_dot1q_vpn_t &snapshot) {
  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "%s", list_path);
  for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) load_attachment(sock, tctx, group_prefix, mc, snapshot);
  return 0;
}

// The basic VLAN is recorded before the ranges: it absorbs a range that starts at it, and the ranges leave encap_cfg
// on.
std::int32_t get_vpn_access_encap(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                                  const std::string &vpn, std::uint32_t vpn_id, const std::string &interface,
                                  std::uint32_t basic_vlan, st_val_acc_dot1q_vpn_t &snapshot) {
  const attachment_t at{group, vpn, interface};
  const encap_paths_t paths = build_encap_paths(at, vpn_id);

  const bool untagged = is_configured_untagged(sock, tctx, paths.untagged);
  if (untagged) record(at, VLAN_CFG_ENCAP, {0, 0}, snapshot);

  const int ranges = maapi_num_instances(sock, tctx->thandle, "%s", paths.ranges.c_str());
  if (ranges < 1) return untagged ? CONFD_OK : CONFD_ERR;

  if (basic_vlan != 0) record(at, VLAN_CFG_BASIC, {basic_vlan, basic_vlan}, snapshot);
  return load_ranges(sock, tctx, at, paths.ranges, ranges, snapshot);
}

// The path is the probe's only format argument, which compilers take for an oversight: it has no conversion left.
std::int32_t get_vpn_mop(std::int32_t sock, confd_trans_ctx *tctx, const std::string &path) {
  std::int32_t operation = 0;
  const bool is_format = path.find('%') == std::string::npos;
  const std::string format = is_format ? std::string() : as_path_format(path);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
  maapi_keypath_diff_iterate(sock, tctx->thandle, keep_first_operation, 0, &operation,
                             is_format ? path.c_str() : format.c_str());
#pragma GCC diagnostic pop
  return operation;
}
