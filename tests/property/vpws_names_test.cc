#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>

#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/support/platform.h"

namespace {

using scripted::text;
using scripted::u32;

/// Names of VPNs by name of their group, as the element sorts them.
using names = std::map<std::string, std::set<std::string>>;

bool is_allowed(char c) {
  if (c >= '0' && c <= '9') return true;
  if (c >= 'a' && c <= 'z') return true;
  if (c >= 'A' && c <= 'Z') return true;
  for (const char other : {'-', '_', '@', '<', '>', '&', '=', ':', '.', '+', '(', ')'}) {
    if (c == other) return true;
  }
  return false;
}

bool is_valid(const std::string &name) {
  for (const char c : name) {
    if (!is_allowed(c)) return false;
  }
  return true;
}

std::string message_of(const std::string &whose) {
  return whose + " contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, =, :, ., (), +)";
}

/// The message for the first invalid name, or nothing.
std::string first_fault(const names &configured) {
  for (const auto &[group, vpns] : configured) {
    if (!is_valid(group)) return message_of("VPWS Group name " + group);
    for (const std::string &vpn : vpns) {
      if (!is_valid(vpn)) return message_of("VPWS Group name " + group + " VPN name " + vpn);
    }
  }
  return "";
}

/// Mostly of allowed characters; any byte but the one that ends a text.
rc::Gen<char> any_character() {
  return rc::gen::weightedOneOf<char>({{60, rc::gen::inRange('a', 'z')},
                                       {20, rc::gen::elementOf(std::string("09AZaz-_@<>&=:.+()"))},
                                       {1, rc::gen::nonZero<char>()}});
}

rc::Gen<std::string> any_name() { return rc::gen::resize(8, rc::gen::container<std::string>(any_character())); }

/// Few groups, the first with so many VPNs that they come in several batches.
names any_names() {
  names configured;
  for (const std::string &group : *rc::gen::resize(4, rc::gen::container<std::set<std::string>>(any_name()))) {
    configured[group] = *rc::gen::resize(5, rc::gen::container<std::set<std::string>>(any_name()));
  }
  if (configured.empty()) return configured;
  const int more = *rc::gen::element(0, 0, 60, 64, 130);
  for (int i = 0; i < more; ++i) configured.begin()->second.insert("vpn-" + std::to_string(i));
  return configured;
}

/// An invalid group's VPNs are not declared: nothing asks for them.
void configure(scripted::Platform &platform, const names &configured) {
  std::vector<scripted::Values> groups;
  for (const auto &[group, vpns] : configured) {
    groups.push_back({text(group)});
    if (!is_valid(group)) continue;
    std::vector<scripted::Values> rows;
    for (const std::string &vpn : vpns) rows.push_back({text(vpn), u32(1)});
    platform.list("/internal/int-vpws-group{\"" + group + "\"}/int-vpws", 2, rows);
  }
  platform.list("/internal/int-vpws-group", 1, groups);
}

RC_GTEST_PROP(VpwsNameProperty, equals_the_test_character_by_character, ()) {
  const names configured = any_names();
  const std::string expected = first_fault(configured);
  RC_CLASSIFY(!expected.empty(), "rejected");

  scripted::Platform platform;
  configure(platform, configured);
  const std::int32_t result = config_validate_vpws_group_name(platform.socket(), &platform.context(), nullptr, nullptr);
  RC_ASSERT(platform.error() == expected);
  RC_ASSERT(result == (expected.empty() ? 0 : -1));
  RC_ASSERT(platform.errors().size() == (expected.empty() ? 0U : 1U));
  RC_ASSERT(platform.leaks().empty());
  RC_ASSERT(platform.misuses().empty());
}

}  // namespace
