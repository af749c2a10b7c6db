#include "config_validate_comn/daemon/model_tags.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/snapshot/snapshot_loading.h"
#include "config_validate_comn/snapshot/vpn_names.h"

namespace {

constexpr const char *kVplsGroup = "/mpls/l2vpn-config/l2vpn/vpls-group{";
constexpr const char *kVpwsGroup = "/mpls/l2vpn-config/l2vpn/vpws-group{";

std::string dot1q_path(bool is_vpls, std::string_view group, std::string_view vpn, std::string_view interface) {
  if (is_vpls) return join_path({kVplsGroup, group, "}/vpn{", vpn, "}/bridge-domain/dot1q"});
  return join_path({kVpwsGroup, group, "}/vpn{", vpn, "}/access-interface{", interface, "}/dot1q"});
}

std::string access_interface_path(bool is_vpls, std::string_view group, std::string_view vpn,
                                  std::string_view interface) {
  if (is_vpls) {
    return join_path({kVplsGroup, group, "}/vpn{", vpn, "}/bridge-domain/access-interface{", interface, "}"});
  }
  return join_path({kVpwsGroup, group, "}/vpn{", vpn, "}/access-interface{", interface, "}"});
}

}  // namespace

std::string build_vpn_access_config_path(std::int32_t tag, const std::string &group, const std::string &vpn,
                                         const std::string &interface) {
  const bool is_vpls = is_vpls_group(group);
  const std::string_view group_key = bare_group_view(group);
  const std::string_view vpn_key = bare_vpn_view(vpn);
  switch (static_cast<std::uint32_t>(tag)) {
    case model_tag::dot1q:
      return dot1q_path(is_vpls, group_key, vpn_key, interface);
    case model_tag::bridge_domain:
      return join_path({kVplsGroup, group_key, "}/vpn{", vpn_key, "}/bridge-domain"});
    case model_tag::access_interface:
      return access_interface_path(is_vpls, group_key, vpn_key, interface);
    default:
      return {};
  }
}
