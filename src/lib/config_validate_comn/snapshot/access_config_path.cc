#include "config_validate_comn/daemon/model_tags.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/snapshot/snapshot_loading.h"
#include "config_validate_comn/snapshot/vpn_names.h"

namespace {

std::string dot1q_path(bool is_vpls, const char *group, const char *vpn, const char *interface) {
  if (is_vpls) return format_path("/mpls/l2vpn-config/l2vpn/vpls-group{%s}/vpn{%s}/bridge-domain/dot1q", group, vpn);
  return format_path("/mpls/l2vpn-config/l2vpn/vpws-group{%s}/vpn{%s}/access-interface{%s}/dot1q", group, vpn,
                     interface);
}

std::string access_interface_path(bool is_vpls, const char *group, const char *vpn, const char *interface) {
  if (is_vpls) {
    return format_path("/mpls/l2vpn-config/l2vpn/vpls-group{%s}/vpn{%s}/bridge-domain/access-interface{%s}", group, vpn,
                       interface);
  }
  return format_path("/mpls/l2vpn-config/l2vpn/vpws-group{%s}/vpn{%s}/access-interface{%s}", group, vpn, interface);
}

}  // namespace

std::string build_vpn_access_config_path(std::int32_t tag, const std::string &group, const std::string &vpn,
                                         const std::string &interface) {
  const bool is_vpls = is_vpls_group(group);
  const std::string group_key = bare_group_name(group);
  const std::string vpn_key = bare_vpn_name(vpn);
  switch (static_cast<std::uint32_t>(tag)) {
    case model_tag::dot1q:
      return dot1q_path(is_vpls, group_key.c_str(), vpn_key.c_str(), interface.c_str());
    case model_tag::bridge_domain:
      return format_path("/mpls/l2vpn-config/l2vpn/vpls-group{%s}/vpn{%s}/bridge-domain", group_key.c_str(),
                         vpn_key.c_str());
    case model_tag::access_interface:
      return access_interface_path(is_vpls, group_key.c_str(), vpn_key.c_str(), interface.c_str());
    default:
      return {};
  }
}
