#include "config_validate_comn/snapshot/vpn_names.h"

namespace {

bool contains(const std::string &text, const char *part) { return text.find(part) != std::string::npos; }

std::string without_first(const std::string &text, std::size_t count) {
  return text.size() > count ? text.substr(count) : std::string{};
}

}  // namespace

bool is_vpls_group(const std::string &group) { return contains(group, static_cast<const char *>(kVplsGroupPrefix)); }

bool is_vpws_group(const std::string &group) { return contains(group, static_cast<const char *>(kVpwsGroupPrefix)); }

std::string bare_group_name(const std::string &group) { return without_first(group, sizeof kVplsGroupPrefix - 1); }

std::string bare_vpn_name(const std::string &vpn) { return without_first(vpn, sizeof kVpnPrefix - 1); }
