#ifndef CONFIG_VALIDATE_COMN_SNAPSHOT_VPN_NAMES_H
#define CONFIG_VALIDATE_COMN_SNAPSHOT_VPN_NAMES_H

#include <string>
#include <string_view>

// Group and VPN names travel in prefixed form, the keyword and a blank before the key, and are printed so in messages.

constexpr char kVplsGroupPrefix[] = "vpls-group ";
constexpr char kVpwsGroupPrefix[] = "vpws-group ";
constexpr char kVpnPrefix[] = "vpn ";

/// Whether the name is that of a VPLS group: the prefix counts anywhere in the text, so the VPWS group whose key holds
/// "vpls-group " is taken for a VPLS group.
bool is_vpls_group(const std::string &group);

/// The same for VPWS.
bool is_vpws_group(const std::string &group);

/// The key of a group without its prefix: everything after the first 11 characters, whatever they are.
std::string bare_group_name(const std::string &group);
std::string_view bare_group_view(const std::string &group);  ///< for as long as `group` lives

/// The key of a VPN without its prefix: everything after the first 4 characters, whatever they are.
std::string bare_vpn_name(const std::string &vpn);
std::string_view bare_vpn_view(const std::string &vpn);  ///< for as long as `vpn` lives

#endif
