#ifndef CONFIG_VALIDATE_COMN_DAEMON_INTERFACE_IDENTIFIERS_H
#define CONFIG_VALIDATE_COMN_DAEMON_INTERFACE_IDENTIFIERS_H

#include <cstdint>
#include <string>

#include "limid.h"

// The identifier manager's conversions between an interface's name, its logical identifier and its ifindex. None
// reports a failure: an identifier that the manager does not know yields 0 or the empty name, and the rules go on with
// that.

limid_t get_limid_by_intf_name(const std::string &name);

std::int32_t get_ifindex_by_limid(limid_t limid);

limid_t get_limid_by_ifindex(std::int32_t ifindex);

/// The name is at most 63 characters long.
std::string get_intf_name_by_limid(limid_t limid);

#endif
