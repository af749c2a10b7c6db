#include "config_validate_comn/snapshot/vpn_names.h"

namespace {

// It mostly stands at the beginning.
bool contains(std::string_view text, std::string_view part) {
  return text.substr(0, part.size()) == part || text.find(part) != std::string_view::npos;
}

std::string_view without_first(std::string_view text, std::size_t count) {
  return text.substr(text.size() > count ? count : text.size());
}

}  // namespace

bool is_vpls_group(const std::string &group) { return contains(group, kVplsGroupPrefix); }

bool is_vpws_group(const std::string &group) { return contains(group, kVpwsGroupPrefix); }

std::string_view bare_group_view(const std::string &group) { return without_first(group, sizeof kVplsGroupPrefix - 1); }

std::string_view bare_vpn_view(const std::string &vpn) { return without_first(vpn, sizeof kVpnPrefix - 1); }

std::string bare_group_name(const std::string &group) { return std::string(bare_group_view(group)); }

std::string bare_vpn_name(const std::string &vpn) { return std::string(bare_vpn_view(vpn)); }
