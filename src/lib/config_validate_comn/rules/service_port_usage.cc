#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/rules/service_port_names.h"

// - A service port is an interface with "service-port" anywhere in its name.
// - The first use decides what is remembered and is never updated.
// - A second use passes only when both are VLAN-based.
std::int32_t validate_service_port(std::string &interface, std::unordered_map<std::string, bool> &usage,
                                   en_vpn_match_type_t match) {
  if (!holds_service_port(interface)) return CONFD_OK;

  const bool is_port_based = match == VPN_MATCH_PORT_BASED;
  const auto [first_use, is_first] = usage.try_emplace(interface, is_port_based);
  if (is_first) return CONFD_OK;

  const bool was_port_based = first_use->second;
  return was_port_based || is_port_based ? CONFD_ERR : CONFD_OK;
}
